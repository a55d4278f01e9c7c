"""A private Wayland desktop for tests: sway without a screen of its own, a mouse for it, and the pixels that it shows."""

import json
import os
import shutil
import socket
import struct
import subprocess
import tempfile

from desktop import MESSAGE_PATTERN, TIMEOUT, wait_for

WIDTH, HEIGHT = 1600, 1100 # all of the gallery
PLACE = (200, 150) # of each main window

# Main windows as on other desktops, and not tiled; what belongs to them is left to the compositor.
CONFIG = f"""
output HEADLESS-1 resolution {WIDTH}x{HEIGHT} position 0,0 bg #000000 solid_color
default_border none
default_floating_border none
focus_follows_mouse no
for_window [app_id=".*"] border none
xwayland disable
for_window [title="^(main window|window|window2|.*Velmora Gallery)$"] floating enable, border none, move position {PLACE[0]} {PLACE[1]}
"""


class Device:
    """A device of the compositor's, without which it has none: a client of its virtual devices, which speaks their protocols."""

    DISPLAY, REGISTRY, CALLBACK, SEAT, MANAGER, DEVICE = range(1, 7)

    def __init__(self, path, manager):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(path)
        self.time = 0
        self._send(self.DISPLAY, 1, struct.pack("=I", self.REGISTRY)) # get_registry
        self._send(self.DISPLAY, 0, struct.pack("=I", self.CALLBACK)) # sync: its answer ends the list
        names = self._read_registry()
        for number, interface in ((self.SEAT, "wl_seat"), (self.MANAGER, manager)):
            self._send(self.REGISTRY, 0, struct.pack("=I", names[interface]) + self._text(interface) + struct.pack("=II", 1, number)) # bind
        self._send(self.MANAGER, 0, struct.pack("=II", self.SEAT, self.DEVICE)) # create_virtual_pointer, create_virtual_keyboard

    def close(self):
        self.socket.close()

    @staticmethod
    def _text(text):
        data = text.encode() + b"\0"
        return struct.pack("=I", len(data)) + data + b"\0" * (-len(data) % 4)

    def _send(self, target, request, data, files=()):
        message = struct.pack("=II", target, (8 + len(data)) << 16 | request) + data
        if files:
            socket.send_fds(self.socket, [message], files)
        else:
            self.socket.sendall(message)

    def _receive(self, size):
        data = b""
        while len(data) < size:
            part = self.socket.recv(size - len(data))
            if not part:
                raise AssertionError("the compositor hung up")
            data += part
        return data

    def _read_registry(self):
        names = {}
        while True:
            sender, head = struct.unpack("=II", self._receive(8))
            data = self._receive((head >> 16) - 8)
            if sender == self.CALLBACK:
                return names
            if sender == self.REGISTRY:
                name, length = struct.unpack_from("=II", data)
                names[data[8:8 + length - 1].decode()] = name


class Mouse(Device):
    LEFT_BUTTON = 0x110

    def __init__(self, path):
        super().__init__(path, "zwlr_virtual_pointer_manager_v1")

    def _act(self, request, *numbers):
        self.time += 1
        self._send(self.DEVICE, request, struct.pack(f"={1 + len(numbers)}I", self.time, *numbers))
        self._send(self.DEVICE, 4, b"") # frame

    def point_at(self, x, y):
        self._act(1, x, y, WIDTH, HEIGHT)

    def press(self):
        self._act(2, self.LEFT_BUTTON, 1)

    def release(self):
        self._act(2, self.LEFT_BUTTON, 0)

    def click(self, x, y):
        self.point_at(x, y)
        self.press()
        self.release()


class Keyboard(Device):
    """Of the layout of the United States."""

    KEYMAP = b"""xkb_keymap {
        xkb_keycodes { include "evdev+aliases(qwerty)" };
        xkb_types { include "complete" };
        xkb_compat { include "complete" };
        xkb_symbols { include "pc+us+inet(evdev)" };
    };\0"""
    # As the kernel numbers them.
    KEYS = {"Escape": 1, "Tab": 15, "Return": 28, "Up": 103, "Left": 105, "Right": 106, "Down": 108, "F4": 62, "F10": 68,
            "a": 30, "b": 48, "c": 46}
    MODIFIERS = {"shift": 1, "ctrl": 4, "alt": 8} # as bits of the keymap

    def __init__(self, path):
        super().__init__(path, "zwp_virtual_keyboard_manager_v1")
        keymap = os.memfd_create("keymap")
        os.write(keymap, self.KEYMAP)
        self._send(self.DEVICE, 0, struct.pack("=II", 1, len(self.KEYMAP)), [keymap]) # keymap
        os.close(keymap)

    def _hold(self, modifiers):
        self._send(self.DEVICE, 2, struct.pack("=IIII", modifiers, 0, 0, 0)) # modifiers

    def tap(self, *chords):
        """Each a key, or a key with modifiers, as "shift+F10"."""
        for chord in chords:
            *modifiers, key = chord.split("+")
            self._hold(sum(self.MODIFIERS[name] for name in modifiers))
            for state in (1, 0):
                self.time += 1
                self._send(self.DEVICE, 1, struct.pack("=III", self.time, self.KEYS[key], state)) # key
            self._hold(0)

    def type(self, text):
        self.tap(*text)


class WaylandDesktop:
    """A compositor; close() ends all that was started on it."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="wayland-")
        self.processes = []
        self.mouse = self.keyboard = None
        # It refuses to be root, who runs the tests on a bare machine: then it is nobody.
        self.nobody = {"user": "nobody", "group": "nogroup", "extra_groups": []} if os.geteuid() == 0 else {}
        compositor_folder = os.path.join(self.folder, "compositor") # a runtime folder belongs to who uses it
        own_folder = os.path.join(self.folder, "own")
        for folder in (compositor_folder, own_folder):
            os.mkdir(folder, 0o700)
        os.chmod(self.folder, 0o755)
        if self.nobody:
            shutil.chown(compositor_folder, "nobody", "nogroup")
        self.environment = {key: value for key, value in os.environ.items()
                            if key not in ("DISPLAY", "WAYLAND_DISPLAY", "SESSION_MANAGER", "SWAYSOCK")}
        self.environment.update(HOME=own_folder, XDG_RUNTIME_DIR=own_folder, TMPDIR=own_folder, XDG_CONFIG_HOME=own_folder,
                                XDG_CACHE_HOME=own_folder, DBUS_SESSION_BUS_ADDRESS="disabled:", NO_AT_BRIDGE="1",
                                QT_QPA_PLATFORM="wayland", QT_MESSAGE_PATTERN=MESSAGE_PATTERN)
        self.control = os.path.join(compositor_folder, "control")
        try:
            self._start_compositor(compositor_folder)
        except BaseException:
            self.close()
            raise

    def _start_compositor(self, folder):
        config = os.path.join(self.folder, "config")
        with open(config, "w", encoding="utf-8") as file:
            file.write(CONFIG)
        environment = {**self.environment, "HOME": folder, "XDG_RUNTIME_DIR": folder, "SWAYSOCK": self.control, "WLR_BACKENDS": "headless",
                       "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"}
        self.start(["sway", "--config", config], log="sway.log", environment=environment, **self.nobody)

        def display():
            return [name for name in os.listdir(folder) if name.startswith("wayland-") and not name.endswith(".lock")]

        name = wait_for(display, "the compositor")[0]
        path = os.path.join(folder, name)
        self.environment["WAYLAND_DISPLAY"] = path
        wait_for(lambda: self.ask("get_outputs"), "its screen")
        self.mouse, self.keyboard = Mouse(path), Keyboard(path)

    def start(self, command, log, environment=None, stdout=None, **how):
        with open(os.path.join(self.folder, log), "w", encoding="utf-8") as file:
            process = subprocess.Popen(command, env=environment or self.environment, stdin=subprocess.DEVNULL, stdout=stdout or file,
                                       stderr=file, text=True, **how)
        self.processes.append(process)
        return process

    def log(self, name):
        with open(os.path.join(self.folder, name), encoding="utf-8") as file:
            return file.read()

    def ask(self, question):
        result = subprocess.run(["swaymsg", "--socket", self.control, "--raw", "--type", question], stdin=subprocess.DEVNULL,
                                env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=TIMEOUT, check=False)
        return json.loads(result.stdout) if result.returncode == 0 else None

    def command(self, *words):
        subprocess.run(["swaymsg", "--socket", self.control, "--quiet", "--", *words], stdin=subprocess.DEVNULL, env=self.environment,
                       timeout=TIMEOUT, check=True)

    def windows_of(self, process):
        """The windows of a program by their titles: place and whether it has the keyboard. Popups are none."""
        found = {}

        def walk(node):
            if node.get("pid") == process.pid:
                rect = node["rect"]
                found[node["name"]] = ((rect["x"], rect["y"], rect["width"], rect["height"]), node["focused"])
            for part in node.get("nodes", []) + node.get("floating_nodes", []):
                walk(part)

        walk(self.ask("get_tree") or {})
        return found

    def pixel(self, x, y):
        """The colour on the screen, as "#rrggbb"."""
        result = subprocess.run(["grim", "-g", f"{x},{y} 1x1", "-t", "ppm", "-"], env=self.environment, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, timeout=TIMEOUT, check=True)
        return "#" + result.stdout[-3:].hex()

    def close(self):
        for device in (self.mouse, self.keyboard):
            if device:
                device.close()
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
            if process.stdout:
                process.stdout.close()
        self.processes.clear()
        shutil.rmtree(self.folder, ignore_errors=True)
