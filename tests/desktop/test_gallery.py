"""Drives the gallery with a real mouse and keyboard, under a real window manager."""

import glob
import os
import re
import unittest

from desktop import Desktop, Program, wait_for

GALLERY = os.environ["GALLERY_PROGRAM"]
TABLES = os.environ["COLOUR_TABLES"]


def token(table, name):
    """The colour of a token as its table tells it, "#rrggbb"."""
    with open(os.path.join(TABLES, f"blue_{table}.ini"), encoding="utf-8-sig") as file:
        return re.search(rf"^{re.escape(name)} *= *(#\w{{6}})", file.read(), re.MULTILINE).group(1).lower()


SCREEN = (2720, 900)
LIGHT_GROUND = token("light", "bg/bg_bottom")
DARK_GROUND = token("dark", "bg/bg_bottom")


class GalleryTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(*SCREEN) # room for two galleries side by side
        cls.addClassCleanup(cls.desktop.close)

    def start(self, *arguments):
        gallery = Program(self.desktop, GALLERY, *arguments)
        self.addCleanup(self.finish, gallery)
        return gallery

    def finish(self, gallery):
        if gallery.process.poll() is None:
            gallery.process.terminate()
        gallery.wait_for_end()
        self.maxDiff = None
        self.assertEqual(gallery.complaints(), [])

    def wait_for_ground(self, gallery, color):
        wait_for(lambda: gallery.ground() == color, f"the ground to be {color}")

    def test_starts_in_the_light_table(self):
        gallery = self.start()
        self.wait_for_ground(gallery, LIGHT_GROUND)

    def test_starts_in_the_table_and_on_the_page_that_were_asked_for(self):
        gallery = self.start("--table", "dark", "--page", "labels")
        self.wait_for_ground(gallery, DARK_GROUND)
        self.assertIn("Labels", gallery.title())

    def test_clicking_the_switch_changes_the_pixels(self):
        gallery = self.start()
        self.wait_for_ground(gallery, LIGHT_GROUND)
        gallery.click("tableDark")
        self.wait_for_ground(gallery, DARK_GROUND)
        gallery.click("tableLight")
        self.wait_for_ground(gallery, LIGHT_GROUND)

    def test_typing_in_the_search_field_opens_the_page(self):
        gallery = self.start()
        gallery.click("searchField")
        self.desktop.type("inspector")
        wait_for(lambda: "Theme inspector" in gallery.title(), "the page that was searched for")

    def test_a_left_press_activates_an_inactive_window_and_reaches_its_target(self):
        first = self.start()
        first.move_to(20, 40)
        second = self.start()
        second.move_to(1380, 40)
        self.wait_for_ground(first, LIGHT_GROUND)
        self.assertEqual(self.desktop.active_window(), second.window)

        first.click("tableDark")
        first.wait_until_active()
        self.wait_for_ground(first, DARK_GROUND)
        self.assertEqual(second.ground(), LIGHT_GROUND)

    def test_a_left_press_on_what_takes_no_press_activates_too(self):
        first = self.start()
        first.move_to(20, 40)
        second = self.start()
        second.move_to(1380, 40)
        first.click("pageTitle")
        first.wait_until_active()

    def test_the_buttons_of_the_matrix_keep_their_states_when_the_user_presses_elsewhere(self):
        gallery = self.start("--page", "buttons")
        hover, pressed = 0x2001, 0x5
        gallery.click("tableDark") # such a press ends the hover of every button, and the new table repaints them
        self.wait_for_ground(gallery, DARK_GROUND)
        for state, name in ((hover, "brand/brand_hover"), (pressed, "brand/brand_press")):
            _, _, width, _ = gallery.positions[f"QcPrimaryButton-{state}"]
            x, y = gallery.centre_of(f"QcPrimaryButton-{state}")
            wait_for(lambda: self.desktop.pixel(x - width // 2 + 6, y) == token("dark", name), f"the button in {name}")

    def test_a_menu_button_rests_when_an_entry_was_chosen(self):
        gallery = self.start("--page", "menu-buttons")
        x, y = gallery.centre_of("menu-view")
        _, _, width, height = gallery.positions["menu-view"]
        look = lambda: self.desktop.pixel(x - width // 2 + 4, y)
        self.desktop.point_at(*gallery.centre_of("pageTitle"))
        rest = look()
        for _ in range(2): # the window system tells of the cursor's way otherwise the second time
            self.desktop.point_at(x, y)
            hover = wait_for(lambda: look() != rest and look(), "the hovered look")
            self.desktop.run("xdotool", "click", "1")
            wait_for(lambda: look() not in (rest, hover), "the look of an open menu")
            self.desktop.point_at(x, y + height) # the first entry lies under the button
            self.desktop.click(x + 2, y + height + 2)
            wait_for(lambda: look() == rest, "the button to rest")

    def test_a_key_of_a_text_opens_its_menu(self):
        gallery = self.start("--page", "menu-buttons")
        x, y = gallery.centre_of("menu-view")
        _, _, width, _ = gallery.positions["menu-view"]
        look = lambda: self.desktop.pixel(x - width // 2 + 4, y)
        self.desktop.point_at(*gallery.centre_of("pageTitle"))
        rest = look()
        self.desktop.keys("alt+v")
        wait_for(lambda: look() != rest, "the look of an open menu")
        self.desktop.keys("Escape")
        wait_for(lambda: look() == rest, "the button to rest")

    def test_space_shows_the_press_for_as_long_as_it_is_held(self):
        gallery = self.start("--page", "lineedits")
        x, y = gallery.centre_of("bookContainer")
        _, _, width, _ = gallery.positions["bookContainer"]
        look = lambda: self.desktop.pixel(x - width // 2 + 6, y)
        gallery.click("bookContainer") # which takes the keyboard to the field that is wrong
        self.desktop.point_at(*gallery.centre_of("pageTitle"))
        wait_for(lambda: look() == token("light", "brand/brand"), "the button at rest")
        self.desktop.keys("alt+t", "Tab") # from the last field
        self.desktop.run("xdotool", "keydown", "space")
        self.addCleanup(self.desktop.run, "xdotool", "keyup", "space")
        wait_for(lambda: look() == token("light", "brand/brand_press"), "the pressed look")
        self.desktop.run("xdotool", "keyup", "space")
        wait_for(lambda: look() == token("light", "brand/brand"), "the button at rest")

    def test_shift_f1_shows_the_debug_tip(self):
        gallery = self.start("--page", "debugtip")
        self.desktop.point_at(*gallery.centre_of("approveButton"))
        self.assertEqual(gallery.tips(), [])
        self.desktop.keys("shift+F1")
        tip = wait_for(gallery.tips, "the debug tip")[0]
        # One long line for each of the widgets from the button up to the window.
        def is_long():
            _, _, width, height = self.desktop.geometry(tip)
            return width > 600 and height > 8 * 12
        wait_for(is_long, "a line for each widget")

    def test_the_inspector_follows_a_file_that_is_edited(self):
        gallery = self.start("--page", "inspector")
        gallery.click("followSample")
        pattern = os.path.join(self.desktop.environment["TMPDIR"], "*", "sample_theme.ini")
        path = wait_for(lambda: glob.glob(pattern), "the sample file")[0]
        with open(path, encoding="utf-8") as file:
            text = file.read()

        def with_ground(color):
            return re.sub(r"^bg/bg_bottom *=[^;\n]*", f"bg/bg_bottom = {color} ", text, flags=re.MULTILINE)

        with open(path, "w", encoding="utf-8") as file: # some editors write in place
            file.write(with_ground("#c0ffee"))
        self.wait_for_ground(gallery, "#c0ffee")
        for color in ("#aa5500", "#123456"): # others put a new file in the old one's place, each time
            with open(path + ".new", "w", encoding="utf-8") as file:
                file.write(with_ground(color))
            os.replace(path + ".new", path)
            self.wait_for_ground(gallery, color)

    def test_the_title_row_moves_maximises_and_restores_the_window(self):
        gallery = self.start()
        x, y, width, height = self.desktop.geometry(gallery.window)
        moved = (x + 90, y + 20, width, height)
        self.desktop.drag_until(gallery.window, gallery.centre_of("m_titleFrame"), (90, 20), moved)
        screen = (0, 0, *SCREEN)
        self.desktop.double_click(gallery.centre_of("m_titleLabel"), lambda: self.desktop.geometry(gallery.window) == screen)
        # What fills the screen has no outline.
        title_row = token("light", "bg/bg_box")
        wait_for(lambda: self.desktop.pixel(0, 10) == title_row, "the title row in the corner of the screen")
        self.desktop.double_click((60, 20), lambda: self.desktop.geometry(gallery.window) == moved)
        wait_for(lambda: self.desktop.pixel(moved[0], moved[1] + 10) not in (title_row, "#000000"), "the outline")

    def test_the_title_buttons_minimise_and_close_the_window(self):
        gallery = self.start()
        gallery.click("m_minButton")
        wait_for(lambda: gallery.window not in self.desktop.windows_of(gallery.process), "the window to be minimised")
        self.desktop.run("xdotool", "windowactivate", gallery.window)
        gallery.wait_until_active()
        gallery.click("m_closeButton")
        self.assertEqual(gallery.wait_for_end(), 0)

    def test_the_grip_resizes_the_window(self):
        gallery = self.start()
        x, y, width, height = self.desktop.geometry(gallery.window)
        corner = (x + width - 6, y + height - 6)
        self.desktop.drag_until(gallery.window, corner, (-80, -60), (x, y, width - 80, height - 60))
        self.wait_for_ground(gallery, LIGHT_GROUND)

    def test_control_q_quits(self):
        gallery = self.start()
        self.desktop.keys("ctrl+q")
        self.assertEqual(gallery.wait_for_end(), 0)


if __name__ == "__main__":
    unittest.main()
