"""What is translucent on X11: with a compositing manager it lies on what is under it, and without one on black."""

import unittest

from desktop import TIMEOUT, Desktop, wait_for
from test_windows import Stage, are_alike, blended, token

BLACK = "#000000"
GROUND = token("bg/bg_box") # of the window under all of them


class CompositingTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktops = {}
        for compositing in (True, False):
            cls.desktops[compositing] = Desktop(800, 600, compositing=compositing)
            cls.addClassCleanup(cls.desktops[compositing].close)

    def each(self, look, *kind):
        """Shows a stage on both desktops and looks at it."""
        for compositing, desktop in self.desktops.items():
            with self.subTest(compositing=compositing):
                desktop.point_at(790, 590) # off all windows
                stage = Stage(desktop, *kind)
                try:
                    look(compositing, desktop, stage)
                finally:
                    stage.process.terminate()
                    stage.process.wait(TIMEOUT)
                self.assertEqual(stage.complaints(), [])

    def check(self, desktop, at, color, what):
        wait_for(lambda: are_alike(desktop.pixel(*at), color), f"{what} to be {color} at {at}", 20)

    def test_a_dialogs_margin_and_a_windows_corner(self):
        def look(compositing, desktop, stage):
            self.check(desktop, stage.inside(0, 0), GROUND, "the square corner of a window")
            desktop.click(*stage.at("pushMe"))
            dialog = wait_for(lambda: stage.windows("question"), "the dialog")[0]
            x, y, width, height = desktop.geometry(dialog)
            self.check(desktop, (x + 20, y + 70), GROUND, "the panel")
            self.check(desktop, (x + 1, y + 1), GROUND if compositing else BLACK, "the end of the shadow")
            shadow = desktop.pixel(x + width // 2, y + height - 9)
            self.assertEqual(GROUND > shadow > "#d00000", compositing, shadow) # near the panel: a tenth of black at most
            self.assertEqual(shadow == BLACK, not compositing, shadow)

        self.each(look, "window", "asking")

    def test_a_menus_corners(self):
        def look(compositing, desktop, stage):
            desktop.click(*stage.at("opener"))
            said = wait_for(lambda: [what for what in stage.said if what.startswith("menu@")], "the menu to open")
            x, y, width, _ = (int(number) for number in said[-1].partition("@")[2].split(","))
            self.check(desktop, (x + width - 4, y + 14), token("bg/bg_float"), "the panel")
            corner = desktop.pixel(x, y)
            self.assertEqual(corner > "#d00000", compositing, corner)

        self.each(look, "menu")

    def test_the_room_beside_a_tips_triangle(self):
        def look(compositing, desktop, stage):
            tip = wait_for(lambda: [window for window in desktop.windows_of(stage.process) if window != stage.window], "the tip")[0]

            def is_painted():
                x, y, width, height = desktop.geometry(tip)
                return desktop.pixel(x + width // 2, y + height - 10) != GROUND

            wait_for(is_painted, "the tip's bubble", 20)
            x, y, _, height = desktop.geometry(tip)
            self.check(desktop, (x + 2, y + height - 2), GROUND if compositing else BLACK, "the room beside the triangle")

        self.each(look, "window", "tipped")

    def test_a_veil_of_its_own_window(self):
        def look(compositing, desktop, stage):
            expected = blended("overlay/overlay_primary", GROUND if compositing else BLACK)
            self.check(desktop, stage.inside(1, 60), expected, "the veil")

        self.each(look, "veil", "apart")


if __name__ == "__main__":
    unittest.main()
