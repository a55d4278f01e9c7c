"""Opens menus, chooses in them and closes them with a real mouse and keyboard, under a real window manager."""

import unittest

from desktop import TIMEOUT, Desktop, wait_for
from test_windows import Stage, token

ITEM = 28 # pixels
WHEEL_UP, WHEEL_DOWN = 4, 5


class MenusTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(1280, 900)
        cls.addClassCleanup(cls.desktop.close)

    def show(self, *kind):
        self.desktop.point_at(1270, 890) # off all windows
        stage = Stage(self.desktop, "menu", *kind)
        self.addCleanup(self.finish, stage)
        return stage

    def finish(self, stage):
        if stage.process.poll() is None:
            stage.process.terminate()
            stage.process.wait(TIMEOUT)
        self.assertEqual(stage.complaints(), [])

    def open(self, stage):
        """Opens the menu by a click on its button; its place on the screen."""
        stage.said.clear()
        self.desktop.click(*stage.at("opener"))
        place = self.place(stage, "menu")
        self.wait_for_panel(place)
        return place

    def place(self, stage, menu):
        said = wait_for(lambda: [what for what in stage.said if what.startswith(menu + "@")], f"the {menu} to open")
        return tuple(int(number) for number in said[-1].partition("@")[2].split(","))

    def wait_for_panel(self, place):
        x, y, width, _ = place
        grounds = (token("bg/bg_float"), token("bg/bg_transluent_subtle_hover"))
        wait_for(lambda: self.desktop.pixel(x + width - 4, y + 14) in grounds, "the panel")

    def item(self, place, number):
        x, y, _, _ = place
        return x + 30, y + 1 + ITEM * number + ITEM // 2

    def hover(self, place, shows, what):
        """Until it shows: a menu does not count the first move after it has opened, and a busy program hears several moves as one."""
        x, y = place

        def moves_on():
            self.desktop.point_at(x + 2, y)
            self.desktop.point_at(x, y)
            return shows()

        wait_for(moves_on, what)

    def wait_for_said(self, stage, what):
        wait_for(lambda: what in stage.said, what)

    def test_a_click_chooses_an_item_and_closes_the_menu(self):
        stage = self.show()
        place = self.open(stage)
        _, _, width, height = stage.widgets["opener"]
        x, y = stage.at("opener", 0, height)
        self.assertEqual(place[:2], (x, y))
        self.desktop.click(*self.item(place, 0))
        self.wait_for_said(stage, "chosen-first")
        self.wait_for_said(stage, "menu-closed")

    def test_the_item_under_the_mouse_is_filled_and_no_other(self):
        stage = self.show()
        place = self.open(stage)
        x, y, width, _ = place
        looks = {True: token("bg/bg_transluent_subtle_hover"), False: token("bg/bg_float")}
        for number in (0, 1, 0):
            self.hover(self.item(place, number), lambda: all(
                self.desktop.pixel(x + 5, y + 1 + ITEM * other + 4) == looks[other == number] for other in (0, 1)), "the fill")

    def test_a_press_outside_closes_the_menu_and_chooses_nothing(self):
        stage = self.show()
        self.open(stage)
        self.desktop.click(1200, 800)
        self.wait_for_said(stage, "menu-closed")
        # And it opens again.
        self.desktop.click(*self.item(self.open(stage), 0))
        self.wait_for_said(stage, "chosen-first")
        self.assertEqual([what for what in stage.said if what.startswith("chosen")], ["chosen-first"])

    def test_escape_closes_the_menu_and_chooses_nothing(self):
        stage = self.show()
        self.open(stage)
        self.desktop.keys("Down", "Escape")
        self.wait_for_said(stage, "menu-closed")
        self.assertEqual([what for what in stage.said if what.startswith("chosen")], [])

    def test_keys_choose_an_item(self):
        stage = self.show()
        self.open(stage)
        self.desktop.keys("Down", "Return")
        self.wait_for_said(stage, "chosen-first")

    def test_hovering_opens_a_submenu_beside_the_menu(self):
        stage = self.show()
        place = self.open(stage)
        self.assertEqual(place[2], 320)
        self.hover(self.item(place, 2), lambda: any(what.startswith("submenu@") for what in stage.said), "the submenu")
        inner = self.place(stage, "submenu")
        self.assertLessEqual(abs(inner[0] - (place[0] + place[2])), 1)
        self.wait_for_panel(inner)
        # Straight along the item, as a hand goes.
        x, y = self.item(place, 2)
        self.desktop.point_at(place[0] + place[2] - 5, y)
        self.desktop.point_at(inner[0] + 5, y)
        self.desktop.click(*self.item(inner, 0))
        self.wait_for_said(stage, "chosen-inner")
        self.wait_for_said(stage, "menu-closed")

    def test_a_long_menu_scrolls_by_the_wheel_at_its_edge(self):
        stage = self.show("sixty")
        x, y, _, height = self.open(stage)
        self.assertLessEqual(y + height, 900)
        self.assertLess(height, 60 * ITEM)
        edge = (x + 30, y + height - 5)
        self.desktop.point_at(*edge)
        for _ in range(60):
            self.desktop.run("xdotool", "click", str(WHEEL_DOWN))
        self.desktop.click(x + 30, y + height - 1 - ITEM // 2)
        self.wait_for_said(stage, "chosen-60")

    def test_a_long_menu_scrolls_while_the_mouse_rests_at_its_edge(self):
        stage = self.show("sixty")
        x, y, _, height = self.open(stage)
        ground = token("bg/bg_float")
        tip_of_arrow = lambda at: self.desktop.pixel(x + 60, at) != ground
        above, below = y + 3, y + height - 4
        self.assertTrue(tip_of_arrow(below))
        self.assertFalse(tip_of_arrow(above))
        self.hover((x + 30, y + height - 5), lambda: tip_of_arrow(above), "an arrow at the other end")
        wait_for(lambda: not tip_of_arrow(below), "the end")
        self.desktop.click(x + 30, y + height - 1 - ITEM // 2)
        self.wait_for_said(stage, "chosen-60")


if __name__ == "__main__":
    unittest.main()
