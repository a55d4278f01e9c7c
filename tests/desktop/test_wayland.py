"""Windows and popups on a Wayland desktop, where a program places none of its windows."""

import os
import subprocess
import threading
import unittest

from desktop import EXPECTED_MESSAGE, MESSAGE, TIMEOUT, wait_for
from test_windows import token
from wayland import PLACE, WaylandDesktop

STAGE = os.environ["STAGE_PROGRAM"]
GALLERY = os.environ["GALLERY_PROGRAM"]
BLACK = "#000000" # where no window is
# Qt says so whenever a window wishes to come to the front, which only the compositor decides.
QTS_OWN = "Wayland does not support QWindow::requestActivate()"


class Program:
    """A stage or the gallery: what it says of itself, line by line, and how its window stands on the desktop."""

    count = 0

    def __init__(self, desktop, *command):
        Program.count += 1
        self.desktop = desktop
        self.log_name = f"program-{Program.count}.log"
        self.process = desktop.start(command, log=self.log_name, stdout=subprocess.PIPE)
        self.lines = []
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.split())

    def said(self, what):
        return ["said", what] in list(self.lines)

    def place_of(self, widget):
        """Of a named widget of a stage, from the window's corner."""
        for words in reversed(list(self.lines)):
            if words[0] == "state" and widget in words:
                at = words.index(widget)
                return tuple(int(number) for number in words[at + 1:at + 5])
        return None

    def windows(self):
        return self.desktop.windows_of(self.process)

    def complaints(self):
        log = self.desktop.log(self.log_name)
        found = [message for message in MESSAGE.findall(log) if not EXPECTED_MESSAGE.fullmatch(message) and message != QTS_OWN]
        return found + MESSAGE.sub("", log).splitlines()


class WaylandTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = WaylandDesktop()
        cls.addClassCleanup(cls.desktop.close)

    def show(self, *command):
        self.desktop.mouse.point_at(1590, 1090) # off all windows
        program = Program(self.desktop, *command)
        self.addCleanup(self.finish, program)
        wait_for(program.windows, "the window")
        return program

    def show_stage(self, *kind):
        stage = self.show(STAGE, *kind)
        self.wait_for_pixel((PLACE[0] + 5, PLACE[1] + 200), token("bg/bg_box"), "the stage's ground")
        return stage

    def finish(self, program):
        self.desktop.mouse.release()
        program.process.terminate()
        program.process.wait(TIMEOUT)
        self.assertEqual(program.complaints(), [])

    def wait_for_pixel(self, at, color, what):
        wait_for(lambda: self.desktop.pixel(*at) == color, what, 20)

    def on_screen(self, place, dx, dy):
        return PLACE[0] + place[0] + dx, PLACE[1] + place[1] + dy

    def click(self, program, widget):
        place = wait_for(lambda: program.place_of(widget), widget)
        self.desktop.mouse.click(*self.on_screen(place, place[2] // 2, place[3] // 2))
        return place

    def test_the_gallery_starts_renders_and_changes_its_table(self):
        gallery = self.show(GALLERY, "--print-positions")
        toggle = wait_for(lambda: next(([int(n) for n in words[1:]] for words in list(gallery.lines) if words[0] == "tableDark"), None), "the switch")
        (x, y, width, height), _ = next(iter(gallery.windows().values()))
        ground = (x + width - 20, y + height - 20)
        wait_for(lambda: self.desktop.pixel(*ground) != BLACK, "the page")
        before = self.desktop.pixel(*ground)
        self.desktop.mouse.click(x + toggle[0] + toggle[2] // 2, y + toggle[1] + toggle[3] // 2)
        wait_for(lambda: self.desktop.pixel(*ground) != before, "the other table")

    def test_a_menu_opens_under_its_button_and_closes(self):
        stage = self.show_stage("menu")
        x, y, _, height = self.click(stage, "opener")
        left, top = self.on_screen((x, y), 0, height)
        beyond = left + 310 # where the menu hangs over the window's side
        self.wait_for_pixel((beyond, top + 14), token("bg/bg_float"), "the menu")
        self.assertEqual(self.desktop.pixel(beyond, top - 2), BLACK)
        self.desktop.mouse.click(left + 30, top + 15)
        wait_for(lambda: stage.said("chosen-first") and stage.said("menu-closed"), "the choice")

    def test_a_tip_stands_over_its_widget_and_leaves_the_keyboard(self):
        stage = self.show_stage("window", "tipped")
        x, y, width, _ = wait_for(lambda: stage.place_of("pushMe"), "the button")
        tip = self.on_screen((x, y), width // 2, -8 - 6 - 4) # gap, triangle and a margin
        wait_for(lambda: self.desktop.pixel(*tip) != token("bg/bg_box"), "the tip", 20)
        self.assertEqual({title: active for title, (_, active) in stage.windows().items()}, {"main window": True})


if __name__ == "__main__":
    unittest.main()
