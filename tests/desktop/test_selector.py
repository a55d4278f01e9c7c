"""Opens and closes a selector's list with a real mouse, keyboard and wheel, under a real window manager."""

import unittest

import test_windows
from desktop import TIMEOUT, Desktop, wait_for

ROW_HEIGHT = 28
LIST_TOP = 29 # below the top of the selector: its height less one, margin and border
GROUND = test_windows.token("bg/bg_box")


class SelectorTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(1280, 900)
        cls.addClassCleanup(cls.desktop.close)

    def setUp(self):
        self.desktop.point_at(1270, 890) # off all windows
        self.stage = test_windows.Stage(self.desktop, "selector")
        self.addCleanup(self.finish)
        self.wait_for_arrow("down")

    def finish(self):
        self.stage.process.terminate()
        self.stage.process.wait(TIMEOUT)
        self.assertEqual(self.stage.complaints(), [])

    def popups(self):
        return [window for window in self.desktop.windows_of(self.stage.process) if window != self.stage.window]

    def arrow(self):
        """Which way the arrow on the screen points: where its tip is, there is ink."""
        width = self.stage.widgets["selector"][2]
        up, down = (self.desktop.pixel(*self.stage.at("selector", width - 1 - 24 + 12, 2 + y)) != GROUND for y in (9, 14))
        return {(True, False): "up", (False, True): "down"}.get((up, down))

    def wait_for_arrow(self, way):
        wait_for(lambda: self.arrow() == way, f"an arrow that points {way}")

    def open(self):
        self.desktop.click(*self.stage.at("selector"))
        self.wait_until_open()

    def wait_until_open(self):
        wait_for(self.popups, "the list")
        self.wait_for_arrow("up")

    def wait_until_closed(self):
        wait_for(lambda: not self.popups(), "the list to close")
        self.wait_for_arrow("down")

    def choose(self, row, expected):
        """Clicks on the row until it counts: for as long as a double click may last Qt takes a click for the end of the one that opened."""
        place = self.stage.at("selector", 100, LIST_TOP + row * ROW_HEIGHT + ROW_HEIGHT // 2)

        def chosen():
            if self.popups():
                self.desktop.click(*place)
            return self.stage.said

        wait_for(chosen, "a choice")
        self.assertEqual(self.stage.said, [f"chose{expected}"])

    def test_the_mouse_opens_chooses_and_closes(self):
        self.open()
        self.choose(3, 3)
        self.wait_until_closed()

    def test_the_wheel_scrolls_the_open_list(self):
        self.open()
        self.desktop.point_at(*self.stage.at("selector", 100, LIST_TOP + 3 * ROW_HEIGHT))
        for _ in range(30):
            self.desktop.run("xdotool", "click", "5")
        self.choose(6, 19)
        self.wait_until_closed()

    def test_a_press_outside_closes_and_chooses_nothing(self):
        self.open()
        self.desktop.click(*self.stage.inside(350, 280))
        self.wait_until_closed()
        self.assertEqual(self.stage.said, [])

    def test_escape_closes_and_keys_choose(self):
        self.open()
        self.desktop.keys("Escape")
        self.wait_until_closed()
        self.assertEqual(self.stage.said, [])
        self.desktop.keys("F4")
        self.wait_until_open()
        self.desktop.keys("Down", "Down", "Return")
        self.wait_until_closed()
        self.assertEqual(self.stage.said, ["chose2"])


if __name__ == "__main__":
    unittest.main()
