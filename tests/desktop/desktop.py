"""A private desktop for tests: an X server with a window manager, programs on it, and a mouse and keyboard to drive them."""

import os
import re
import shutil
import subprocess
import tempfile
import threading
import time

from managers import chosen_manager

TIMEOUT = 60

# Marks where a log line begins and ends: a message may span lines, and what stands between messages is no log of Qt's.
MESSAGE_PATTERN = "[%{type}] %{message}[end]"
MESSAGE = re.compile(r"\[(?:debug|info|warning|critical|fatal)\] (.*?)\[end\]\n", re.DOTALL)
# Start-up facts, and what a busy machine says of tasks over a tenth of a second.
EXPECTED_MESSAGE = re.compile(r"QcStyleManager::LoadFont.*|QcTaskDispatcher::ExecuteTask: .* elapsed: \d+", re.DOTALL)


def wait_for(condition, what, timeout=TIMEOUT):
    """The first true result of condition(), asked again and again; an error naming what was awaited after the timeout."""
    end = time.monotonic() + timeout
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError(f"waited {timeout} s in vain for {what}")
        time.sleep(0.02)


def steer(geometry, point_at, press, start, by, expected):
    """Presses at a place and moves by as much until a window is as expected, as a hand does, which looks where the window is: the window
    manager takes the pointer over when it gets around to it, and counts from where the pointer is then."""
    before = last = geometry()
    end = (start[0] + by[0], start[1] + by[1])
    at = start
    point_at(*at)
    press()

    def arrives():
        nonlocal at, last
        now, previous = geometry(), last
        last = now
        if now == expected:
            return previous == expected # at rest
        if now == before:
            at = start if at == end else end
        elif now == previous:
            at = tuple(at[axis] + (expected[axis] - now[axis] or expected[axis + 2] - now[axis + 2]) for axis in (0, 1))
        point_at(*at)
        return False

    wait_for(arrives, f"{expected} after a drag", 20)


class Desktop:
    """An X server on a free display number, with screens side by side, a window manager, and with a compositing manager only if told to
    have one; close() ends all that was started on it."""

    def __init__(self, width, height, screens=1, compositing=False):
        self.manager = chosen_manager()
        self.folder = tempfile.mkdtemp(prefix="desktop-")
        self.processes = []
        runtime = os.path.join(self.folder, "runtime")
        os.mkdir(runtime, 0o700)
        temporary = os.path.join(self.folder, "tmp")
        os.mkdir(temporary)
        self.environment = {key: value for key, value in os.environ.items()
                            if key not in ("DISPLAY", "WAYLAND_DISPLAY", "SESSION_MANAGER")}
        # No session bus: with a display and no address one would be launched, and outlive the test. No OpenGL: it adds nothing here.
        self.environment.update(DBUS_SESSION_BUS_ADDRESS="disabled:", QT_XCB_GL_INTEGRATION="none")
        self.environment.update(HOME=self.folder, XDG_RUNTIME_DIR=runtime, TMPDIR=temporary, QT_QPA_PLATFORM="xcb",
                                QT_MESSAGE_PATTERN=MESSAGE_PATTERN,
                                XDG_CONFIG_HOME=self.folder, XDG_CACHE_HOME=self.folder, NO_AT_BRIDGE="1")
        try:
            self._start_server("Xvfb", "-screen", "0", f"{screens * width}x{height}x24")
            if screens > 1:
                self._start_screens(width, height, screens)
            self._start_window_manager()
            if compositing:
                self.start(["xcompmgr", "-n"], log="compositor.log") # no shadows but the windows' own
        except BaseException:
            self.close()
            raise

    def _start_server(self, *command):
        # The server picks a free number itself and writes it to the pipe once it takes connections.
        reader, writer = os.pipe()
        log = f"{command[0]}.log"
        try:
            self.start([command[0], "-displayfd", str(writer), *command[1:], "-nolisten", "tcp", "-noreset"], pass_fds=[writer], log=log)
        finally:
            os.close(writer)
        with os.fdopen(reader) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise AssertionError("the X server did not start: " + self.log(log))
        self.environment["DISPLAY"] = f":{number}"

    def _start_screens(self, width, height, count):
        """Side by side. Qt 6 knows screens by the monitors of one server. Qt 5 wants a server inside of the other one, which would lay
        them over each other, without the extension that says there is but one screen."""
        if os.environ.get("DESKTOP_QT") == "6":
            for number in range(count):
                self.run("xrandr", "--setmonitor", f"screen-{number}", f"{width}/200x{height}/150+{number * width}+0",
                         "none" if number else "screen")
            return
        screens = (("-origin", f"{number * width},0", "-screen", f"{width}x{height}") for number in range(count))
        self._start_server("Xephyr", "+xinerama", "-extension", "RANDR", *(word for screen in screens for word in screen))

    def _start_window_manager(self):
        for name, text in self.manager.files.items():
            path = os.path.join(self.folder, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
        command = [word.replace("FOLDER", self.folder) for word in self.manager.command]
        settings = [f"{name}={value}" for name, value in self.manager.environment.items()]
        self.start(["env", *settings, *command], log="manager.log")
        # It says who it is before it says what it can do, and a program asks for that only once, when it starts.
        wait_for(lambda: "_NET_WM_MOVERESIZE" in self.run("xprop", "-root", "_NET_SUPPORTED"), "the window manager")

    def start(self, command, log, pass_fds=(), stdout=None):
        with open(os.path.join(self.folder, log), "w", encoding="utf-8") as file:
            process = subprocess.Popen(command, env=self.environment, pass_fds=pass_fds, stdin=subprocess.DEVNULL,
                                       stdout=stdout or file, stderr=file, text=True)
        self.processes.append(process)
        return process

    def log(self, name):
        with open(os.path.join(self.folder, name), encoding="utf-8") as file:
            return file.read()

    def run(self, *command):
        """The output of a short command; empty if it failed, which a search without a match does."""
        result = subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, timeout=TIMEOUT, check=False)
        return result.stdout.decode("utf-8", "replace") if result.returncode == 0 else ""

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
        for process in reversed(self.processes):
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
            if process.stdout:
                process.stdout.close()
        self.processes.clear()
        shutil.rmtree(self.folder, ignore_errors=True)

    # --- Looking ---

    def windows_of(self, process):
        """Ids of the visible windows of a process, tips and menus included."""
        return self.run("xdotool", "search", "--onlyvisible", "--pid", str(process.pid)).split()

    def active_window(self):
        match = re.search(r"# (0x[0-9a-f]+)", self.run("xprop", "-root", "_NET_ACTIVE_WINDOW"))
        return str(int(match.group(1), 16)) if match else ""

    def window_at(self, x, y):
        """The uppermost window of a program at a place, tips and menus aside."""
        stacked = re.findall(r"0x[0-9a-f]+", self.run("xprop", "-root", "_NET_CLIENT_LIST_STACKING"))
        for window in (str(int(number, 16)) for number in reversed(stacked)):
            left, top, width, height = self.geometry(window) or (0, 0, 0, 0)
            if left <= x < left + width and top <= y < top + height:
                return window
        return ""

    def property(self, window, name):
        return self.run("xprop", "-id", window, name).partition("=")[2].strip()

    def geometry(self, window):
        """x, y, width, height of a window's inside on the screen."""
        text = self.run("xwininfo", "-id", window)
        numbers = [re.search(label + r": +(-?\d+)", text)
                   for label in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        return tuple(int(number.group(1)) for number in numbers) if all(numbers) else None

    def pixel(self, x, y):
        """The colour on the screen, as "#rrggbb"."""
        result = subprocess.run(["import", "-silent", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"],
                                env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                timeout=TIMEOUT, check=False)
        return "#" + result.stdout[:3].hex()

    def picture(self, x, y, width, height):
        """A part of the screen, as rows of red, green and blue."""
        result = subprocess.run(["import", "-silent", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8", "rgb:-"],
                                env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                timeout=TIMEOUT, check=True)
        return [result.stdout[row * width * 3:(row + 1) * width * 3] for row in range(height)]

    # --- Acting ---

    def place(self, window, x, y, size=None):
        """Has the window manager put a window somewhere, and waits until it is there: "--sync" waits for any change. It depends on
        the window's gravity whether its frame or its inside goes to x, y."""
        left, _, top, _ = (int(number) for number in self.property(window, "_NET_FRAME_EXTENTS").split(","))
        width, height = size or self.geometry(window)[2:]
        if size:
            self.run("xdotool", "windowsize", window, str(width), str(height))
        self.run("xdotool", "windowmove", window, str(x), str(y))
        expected = ((x, y, width, height), (x + left, y + top, width, height))
        wait_for(lambda: self.geometry(window) in expected, f"the window at {x}, {y}")

    def point_at(self, x, y):
        # Not "--sync", which waits for ever if the mouse is there already.
        self.run("xdotool", "mousemove", str(x), str(y))

    def click(self, x, y, button=1):
        self.point_at(x, y)
        self.run("xdotool", "click", str(button))

    def press(self, button=1):
        self.run("xdotool", "mousedown", str(button))

    def release(self, button=1):
        self.run("xdotool", "mouseup", str(button))

    def drag(self, start, by, button=1):
        """In steps, as a hand does: the window manager takes the pointer over in between."""
        x, y = start
        self.point_at(x, y)
        self.press(button)
        for step in range(1, 6):
            self.point_at(x + by[0] * step // 5, y + by[1] * step // 5)
        self.release(button)

    def drag_until(self, window, start, by, expected, button=1):
        """With the button held until the window is where it is to be."""
        try:
            steer(lambda: self.geometry(window), self.point_at, lambda: self.press(button), start, by, expected)
        finally:
            self.release(button)
            # Qt names the left button to the window manager, whose move ends with a release of that one.
            if button != 1 and not self.manager.any_release_ends_a_move:
                self.run("xdotool", "click", "1")

    def press_twice(self, x, y):
        press = ("mousedown", "1", "sleep", "0.12", "mouseup", "1")
        self.point_at(x, y)
        self.run("xdotool", *press, "sleep", "0.03", *press)

    def double_click(self, at, done):
        """As a hand does it, whose press lasts: the window manager, asked to move the window, awaits the release. On a busy machine
        it may ask for the pointer too late for that, and is then freed by one more click, and the double click done again."""
        for _ in range(20):
            self.press_twice(*at)
            try:
                return wait_for(done, "the double click's answer", 3)
            except AssertionError:
                self.click(*at)
        raise AssertionError("no double click was answered")

    def keys(self, *names):
        self.run("xdotool", "key", "--clearmodifiers", *names)

    def type(self, text):
        self.run("xdotool", "type", text)


class Program:
    """A gallery on a desktop."""

    count = 0

    def __init__(self, desktop, program, *arguments):
        Program.count += 1
        self.desktop = desktop
        self.log_name = f"gallery-{Program.count}.log"
        self.process = desktop.start([program, "--print-positions", *arguments], log=self.log_name, stdout=subprocess.PIPE)
        self.positions = {}
        self.classes = [] # of the widgets in sight: "class" or "specimen", name, and place on the screen
        self.page = "" # to which they belong
        self.stops = [] # of the Tab key, in the order of its presses: name, class, and place on the screen
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()
        self.window = wait_for(self._find_window, "the gallery's window")
        self.wait_until_active()
        wait_for(lambda: self.positions, "the positions of the controls")

    def _read(self):
        found = {}
        classes = []
        for line in self.process.stdout:
            if line.strip() == "end":
                self.positions = found
                found = {}
                continue
            name, *numbers = line.split()
            if name in ("class", "specimen"):
                classes.append((name, numbers[0], *(int(number) for number in numbers[1:])))
                continue
            if name == "classes":
                self.classes, classes = classes, []
                self.page = line.strip().partition(" ")[2]
                continue
            if name == "stop":
                self.stops.append((*numbers[:2], *(int(number) for number in numbers[2:])))
                continue
            found[name] = tuple(int(number) for number in numbers)

    def _find_window(self):
        if self.process.poll() is not None:
            raise AssertionError("the gallery ended: " + self.desktop.log(self.log_name))
        for window in self.desktop.windows_of(self.process):
            if "Velmora Gallery" in self.title(window):
                return window
        return None

    def title(self, window=None):
        return self.desktop.property(window or self.window, "_NET_WM_NAME")

    def wait_until_active(self):
        wait_for(lambda: self.desktop.active_window() == self.window, "the window to be active")

    def tips(self):
        return [window for window in self.desktop.windows_of(self.process)
                if "_NET_WM_WINDOW_TYPE_TOOLTIP" in self.desktop.property(window, "_NET_WM_WINDOW_TYPE")]

    def centre_of(self, control):
        """On the screen, wherever the window is now."""
        left, top, width, height = self.positions[control]
        x, y, _, _ = self.desktop.geometry(self.window)
        return x + left + width // 2, y + top + height // 2

    def click(self, control):
        self.desktop.click(*self.centre_of(control))

    def ground(self):
        """The colour of the ground beside the page, where nothing else is painted."""
        x, y, width, height = self.desktop.geometry(self.window)
        return self.desktop.pixel(x + width - 20, y + height - 20)

    def move_to(self, x, y):
        self.desktop.place(self.window, x, y)

    def wait_for_end(self):
        code = self.process.wait(TIMEOUT)
        self._reader.join(TIMEOUT)
        return code

    def complaints(self):
        """What the log holds besides what is expected: unexpected messages, and any output that is no message."""
        log = self.desktop.log(self.log_name)
        found = [message for message in MESSAGE.findall(log) if not EXPECTED_MESSAGE.fullmatch(message)]
        return found + MESSAGE.sub("", log).splitlines()
