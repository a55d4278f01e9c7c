"""Drags and drops panels on a Wayland desktop, where a program knows where the mouse is in one of its windows only."""

import unittest

import test_docking
from desktop import TIMEOUT, steer, wait_for
from test_docking import BOTTOM, CENTER, LEFT, OUTER_RIGHT, RIGHT, TOP, are_near, centre, indicator_over
from test_wayland import BLACK, QTS_OWN
from test_windows import are_alike
from wayland import PLACE as WINDOWS
from wayland import WaylandDesktop

PLACE = (0, 0, 700, 460) # of each window, as far as the program knows

class WaylandDockingTest(unittest.TestCase):
    expected_place = test_docking.Hand.expected_place

    @classmethod
    def setUpClass(cls):
        cls.desktop = WaylandDesktop()
        cls.addClassCleanup(cls.desktop.close)
        cls.mouse = cls.desktop.mouse

    def show(self, *places, **how):
        self.mouse.point_at(1590, 1090) # off all windows
        stage = test_docking.Stage(self.desktop, *(places or (PLACE,)), **how)
        self.addCleanup(self.finish, stage)
        x, y = WINDOWS
        _, _, width, height = (places or (PLACE,))[0]
        wait_for(lambda: self.rect(stage, "window") == (x, y, width, height), "the window in its place")
        for corner in ((x + 3, y + height - 4), (x + width - 4, y + height - 4)):
            wait_for(lambda at=corner: self.desktop.pixel(*at) != BLACK, "the window to be seen there", 20)
        return stage

    def finish(self, stage):
        self.mouse.release()
        stage.process.terminate()
        stage.process.wait(TIMEOUT)
        self.assertEqual([message for message in stage.complaints() if message != QTS_OWN], [])

    def windows(self, stage):
        return self.desktop.windows_of(stage.process)

    def rect(self, stage, title):
        return self.windows(stage).get(title, ((0, 0, 0, 0), False))[0]

    def on_screen(self, stage, at, window="window"):
        """Where a point is that the program has in its window."""
        return tuple(a - b + c for a, b, c in zip(at, stage.state["windows"][window], self.rect(stage, window)))

    # --- A hand ---

    def glide(self, stage, start, end, window="window"):
        for step in range(1, 7):
            self.mouse.point_at(*self.on_screen(stage, [a + (b - a) * step // 6 for a, b in zip(start, end)], window))

    def press(self, stage, at, window="window"):
        presses = stage.state["presses"]
        self.mouse.point_at(*self.on_screen(stage, at, window))
        self.mouse.press()
        wait_for(lambda: stage.state["presses"] > presses, "the press")

    def take(self, stage, name, at, window="window"):
        self.press(stage, at, window)
        self.glide(stage, at, (at[0] + 25, at[1] + 25), window)
        wait_for(lambda: stage.panel(name)["floating"], f"{name} to be torn out")

    def carry_to(self, stage, area, position, window="window"):
        """From wherever the mouse is to a place of the cross over an area."""
        self.glide(stage, centre(area), [a + 3 for a in centre(area)], window)
        wait_for(lambda: stage.is_shown("indicator") and are_near(stage.state["indicator"]["place"], indicator_over(area, 1)), "the cross")
        end = wait_for(lambda: stage.label(position), f"the label {position} to be offered")
        self.mouse.point_at(*self.on_screen(stage, end, window))
        wait_for(lambda: stage.is_shown("mask"), "the mask")

    def wait_for_drop(self, stage, name, floating):
        wait_for(lambda: stage.panel(name)["floating"] == stage.panel(name)["window"] == floating and not stage.panel(name)["draging"]
                 and not stage.is_shown("indicator") and not stage.is_shown("mask"), "the drop")

    def float_out(self, stage, name, grip):
        """Drops a panel on nothing, and waits for its window to have the keyboard."""
        self.take(stage, name, grip)
        self.mouse.point_at(1500, 1000)
        wait_for(lambda: stage.panel(name)["tip"] and not stage.is_shown("indicator"), "the mouse to be off all areas")
        self.mouse.release()
        self.wait_for_drop(stage, name, True)
        wait_for(lambda: self.windows(stage).get(name, (None, False))[1], "the panel's window")

    # --- An eye ---

    def check_cross_on_screen(self, stage, position, window="window"):
        """The label under the mouse looks hovered, over all that is shown."""
        left, top, _, _ = stage.state["indicator"]["labels"][str(position)]
        at = self.on_screen(stage, (left + 2, top + 8), window)
        wait_for(lambda: are_alike(self.desktop.pixel(*at), test_docking.HOVERED), "the label to look hovered", 20)

    # --- Within a window ---

    def test_a_panel_dragged_by_tab_or_title_goes_where_the_preview_was(self):
        for name, grip, position in (("Two", "tab", LEFT), ("Two", "tab", OUTER_RIGHT), ("Files", "title", BOTTOM), ("Files", "title", CENTER)):
            with self.subTest(name=name, position=position):
                stage = self.show()
                self.take(stage, name, stage.tab_of(name) if grip == "tab" else stage.title_of(name))
                area = wait_for(lambda: stage.state["settled"] and stage.area_of("Files" if name == "Two" else "One"), "the areas to settle")
                self.carry_to(stage, area, position)
                expected = self.expected_place(stage, position, area)
                wait_for(lambda: are_near(stage.state["mask"]["place"], expected), f"the mask at {expected}")
                self.check_cross_on_screen(stage, position)
                # A panel under the mouse would lie over all that.
                self.assertEqual(list(self.windows(stage)), ["window"])
                self.mouse.release()
                self.wait_for_drop(stage, name, False)
                wait_for(lambda: are_near(stage.area_of(name), expected), f"the panel at {expected}")
                self.assertTrue(stage.panel(name)["visible"])
                self.finish(stage)

    def test_the_cross_and_the_preview_go_with_the_mouse(self):
        stage = self.show((0, 0, 900, 460))
        self.take(stage, "Two", stage.tab_of("Two"))
        wait_for(lambda: stage.state["settled"], "the areas to settle")
        for area, position in ((stage.area_of("Files"), TOP), (stage.area_of("One"), RIGHT), (stage.area_of("Files"), LEFT)):
            self.carry_to(stage, area, position)
            self.check_cross_on_screen(stage, position)
            expected = self.expected_place(stage, position, area)
            wait_for(lambda: are_near(stage.state["mask"]["place"], expected), f"the mask at {expected}")
            x, y, width, height = stage.state["mask"]["place"]
            for corner in ((x + 8, y + 60), (x + width - 8, y + height - 8)):
                at = self.on_screen(stage, corner)
                wait_for(lambda: self.desktop.pixel(*at) != "#ffffff", f"the mask's tint at {corner}", 20)

    def test_a_second_window_whose_place_the_program_cannot_tell_takes_no_panel_of_the_first(self):
        # As far as the program knows they lie over each other; the second one is dragged in, and has come to be later.
        stage = self.show(PLACE, PLACE)
        wait_for(lambda: len(self.windows(stage)) == 2, "both windows")
        self.desktop.command('[title="^window2$"]', "move", "position", "200", "620")
        self.desktop.command('[title="^window2$"]', "focus")
        wait_for(lambda: self.windows(stage)["window2"] == ((200, 620, *PLACE[2:]), True), "the second window below")
        wait_for(lambda: self.desktop.pixel(210, 1070) != BLACK, "it to be seen there", 20)
        self.take(stage, "Output", stage.title_of("Output"), "window2")
        self.carry_to(stage, PLACE, CENTER, "window2")
        self.check_cross_on_screen(stage, CENTER, "window2")
        self.mouse.release()
        self.wait_for_drop(stage, "Output", False)
        wait_for(lambda: are_near(stage.area_of("Output"), PLACE), "the panel back in its window")
        self.assertEqual(stage.panel("Output")["neighbours"], 0)

    # --- Windows of their own ---

    def test_escape_ends_a_drag_and_the_panel_becomes_a_window(self):
        for name, grip in (("Files", "title_of"), ("Two", "tab_of")):
            with self.subTest(name=name):
                stage = self.show()
                at = getattr(stage, grip)(name)
                self.take(stage, name, at)
                self.desktop.keyboard.tap("Escape")
                self.wait_for_drop(stage, name, True)
                wait_for(lambda: name in self.windows(stage), "the panel's window")
                # What the hand does until it lets go changes nothing any more.
                self.glide(stage, at, centre(stage.area_of("One")))
                self.mouse.release()
                wait_for(lambda: stage.state["settled"], "quiet")
                self.assertTrue(stage.panel(name)["floating"])
                self.assertFalse(stage.is_shown("indicator"))
                self.finish(stage)

    def test_a_panel_dropped_on_nothing_is_a_window_that_moves_resizes_and_closes(self):
        stage = self.show()
        width, height = stage.panel("Files")["place"][2:]
        self.float_out(stage, "Files", stage.title_of("Files"))
        x, y, *size = self.rect(stage, "Files")
        self.assertEqual(size, [width, height]) # no tile
        # Over the areas of its window too, where its program would have it dropped.
        for by in ((-60, 40), (90, -30)):
            x, y, width, height = self.rect(stage, "Files")
            self.steer(stage, (x + 30, y + 15), by, (x + by[0], y + by[1], width, height))
        wait_for(lambda: stage.state["settled"], "quiet")
        self.assertTrue(stage.panel("Files")["floating"])
        x, y, width, height = self.rect(stage, "Files")
        self.steer(stage, (x + width - 3, y + height - 3), (40, 30), (x, y, width + 40, height + 30))
        x, y, width, height = self.rect(stage, "Files")
        self.mouse.click(x + width - 20, y + 16)
        wait_for(lambda: "Files" not in stage.state["panels"], "the panel to go")
        self.assertEqual(sorted(stage.state["tabs"]), ["One", "Two"])

    def steer(self, stage, start, by, expected):
        steer(lambda: self.rect(stage, "Files"), self.mouse.point_at, self.mouse.press, start, by, expected)
        self.mouse.release()
        wait_for(lambda: tuple(stage.panel("Files")["place"][2:]) == expected[2:], "the program to know its size", 20)

    def test_a_floating_panel_goes_back_by_its_menu(self):
        stage = self.show()
        self.float_out(stage, "Files", stage.title_of("Files"))
        area = stage.area_of("One")
        x, y, width, _ = self.rect(stage, "Files")
        self.mouse.click(x + width // 2, y + 52)
        wait_for(lambda: stage.state["focus"] == "Files", "the edit to have the keyboard")
        self.desktop.keyboard.tap("alt+shift+F10", "Down", "Right", "Return")
        wait_for(lambda: stage.is_shown("mask"), "the mask")
        self.desktop.keyboard.tap("Left", "Return")
        self.wait_for_drop(stage, "Files", False)
        wait_for(lambda: stage.area_of("Files")[0] == area[0] < stage.area_of("One")[0], "the panel at the left of the tabs")
        wait_for(lambda: list(self.windows(stage)) == ["window"], "its window to go")

    def test_a_panel_that_floated_at_the_last_run_is_a_window_of_its_size(self):
        stage = self.show(options=["floating"])
        wait_for(lambda: self.rect(stage, "Back")[2:] == (240, 200), "the panel's window")
        self.assertEqual(self.rect(stage, "window")[2:], PLACE[2:])


if __name__ == "__main__":
    unittest.main()
