"""Moves, resizes, maximises and closes windows with a real mouse, under a real window manager."""

import os
import re
import subprocess
import threading
import unittest

from desktop import EXPECTED_MESSAGE, MESSAGE, TIMEOUT, Desktop, wait_for

STAGE = os.environ["STAGE_PROGRAM"]
TABLES = os.environ["COLOUR_TABLES"]

ARROW, SIZE_VER, SIZE_HOR, SIZE_BDIAG, SIZE_FDIAG = 0, 5, 6, 7, 8 # Qt::CursorShape


def token(name):
    """A token of the light table, "#rrggbb"."""
    with open(os.path.join(TABLES, "blue_light.ini"), encoding="utf-8-sig") as file:
        return re.search(rf"^{re.escape(name)} *= *(#\w{{6}})", file.read(), re.MULTILINE).group(1).lower()


def blended(name, ground):
    """A token of the light table with an alpha, over a colour."""
    with open(os.path.join(TABLES, "blue_light.ini"), encoding="utf-8-sig") as file:
        color, alpha = re.search(rf"^{re.escape(name)} *= *#(\w{{6}}), *([0-9.]+)", file.read(), re.MULTILINE).groups()
    parts = ((int(color[i:i + 2], 16), int(ground[i + 1:i + 3], 16)) for i in (0, 2, 4))
    return "#" + "".join(f"{round(over * float(alpha) + under * (1 - float(alpha))):02x}" for over, under in parts)


def are_alike(one, other):
    """But for the last bit or two, by which two ways to blend differ."""
    return all(abs(int(one[i:i + 2], 16) - int(other[i:i + 2], 16)) <= 3 for i in (1, 3, 5))


class Stage:
    """The program that shows one window and tells how it is."""

    count = 0

    def __init__(self, desktop, *kind):
        Stage.count += 1
        self.desktop = desktop
        self.log_name = f"stage-{Stage.count}.log"
        self.process = desktop.start([STAGE, *kind], log=self.log_name, stdout=subprocess.PIPE)
        self.geometry = self.cursor = self.maximized = self.minimized = self.active = None
        self.widgets = {}
        self.said = []
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()
        wait_for(lambda: self.active and (self.maximized or self.geometry[2:] == (400, 300)), "the stage's window")
        self.window = wait_for(lambda: self.windows("main window"), "the stage's window on the desktop")[0]
        # Shown is not yet painted, and the window manager may still place it.
        wait_for(lambda: self.desktop.pixel(*self.inside(200, 60)) == token("bg/bg_box") or kind[0] in ("panel", "framed", "veil"),
                 "the window's ground")

    def _read(self):
        for line in self.process.stdout:
            words = line.split()
            if words[0] == "said":
                self.said.append(words[1])
                continue
            widgets = {}
            for part in line.split(" widget ")[1:]:
                name, *numbers = part.split()
                widgets[name] = tuple(int(number) for number in numbers)
            self.widgets = widgets
            self.cursor, self.maximized, self.minimized = int(words[6]), words[8] == "1", words[10] == "1"
            self.active = words[12] == "1"
            self.geometry = tuple(int(word) for word in words[1:5])

    def windows(self, title):
        """The visible windows of that title, frames of the window manager not among them."""
        return [window for window in self.desktop.windows_of(self.process)
                if self.desktop.property(window, "_NET_WM_NAME") == f'"{title}"']

    def at(self, widget, dx=None, dy=None):
        """A place of a widget on the screen, its centre unless told otherwise."""
        left, top, width, height = self.widgets[widget]
        x, y, _, _ = self.geometry
        return x + left + (width // 2 if dx is None else dx), y + top + (height // 2 if dy is None else dy)

    def inside(self, dx, dy):
        x, y, _, _ = self.geometry
        return x + dx, y + dy

    def complaints(self):
        log = self.desktop.log(self.log_name)
        found = [message for message in MESSAGE.findall(log) if not EXPECTED_MESSAGE.fullmatch(message)]
        return found + MESSAGE.sub("", log).splitlines()


class WindowsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(1280, 900)
        cls.addClassCleanup(cls.desktop.close)

    def show(self, *kind):
        self.desktop.point_at(1270, 890) # off all windows
        stage = Stage(self.desktop, *kind)
        self.addCleanup(self.finish, stage)
        return stage

    def finish(self, stage):
        if stage.process.poll() is None:
            stage.process.terminate()
            stage.process.wait(TIMEOUT)
        self.assertEqual(stage.complaints(), [])

    def click_until_heard(self, stage):
        """The window manager of a busy machine may be late to move the window at a press that is over, and holds the pointer then until
        the next click."""
        def is_heard():
            self.desktop.click(*stage.at("pushMe"))
            return "clicked" in stage.said

        wait_for(is_heard, "a click")
        stage.said.clear()

    def drag_until(self, stage, start, by, expected, button=1):
        self.desktop.drag_until(stage.window, start, by, expected, button)
        # Only when all is over the window manager tells the program.
        wait_for(lambda: stage.geometry == expected, f"the program to know of {expected}", 20)

    def point_inside_until(self, stage, condition, what):
        """A hand does not stop at one place: the window manager may still hold the pointer and take the first move for itself."""
        column = 200

        def moved_and_true():
            nonlocal column
            column = 401 - column
            self.desktop.point_at(*stage.inside(column, 100))
            return condition()

        wait_for(moved_and_true, what)

    def check_title_row_moves(self, kind):
        for button in (1, 2, 3):
            with self.subTest(kind=kind, button=button):
                stage = self.show(kind)
                x, y, width, height = stage.geometry
                self.drag_until(stage, stage.at("m_titleFrame"), (130, 90), (x + 130, y + 90, width, height), button)
                # Another press at once, on the text this time, moves it again.
                self.drag_until(stage, stage.at("m_titleLabel"), (-60, 45), (x + 70, y + 135, width, height), button)
                # Nothing looks hovered or pressed, and the next press works.
                close = stage.at("m_closeButton", 3, 3)
                self.assertEqual(self.desktop.pixel(*close), token("bg/bg_box"))
                self.desktop.click(*stage.at("pushMe"))
                wait_for(lambda: "clicked" in stage.said, "the click after a move")
                self.finish(stage)

    def test_a_window_moves_by_its_title_row_with_each_mouse_button(self):
        self.check_title_row_moves("window")

    def test_a_dialog_moves_by_its_title_row_with_each_mouse_button(self):
        self.check_title_row_moves("dialog")

    def test_without_its_filter_a_title_row_still_moves_and_answers_no_double_click(self):
        for kind in ("window", "dialog"):
            with self.subTest(kind=kind):
                stage = self.show(kind, "unfiltered")
                self.desktop.press_twice(*stage.at("m_titleFrame"))
                self.click_until_heard(stage)
                x, y, width, height = stage.geometry
                moved = (x + 60, y + 40, width, height)
                self.drag_until(stage, stage.at("m_titleFrame"), (60, 40), moved)
                self.desktop.click(*stage.at("pushMe"))
                wait_for(lambda: "clicked" in stage.said, "the click after the double click")
                self.assertEqual((stage.geometry, stage.maximized), (moved, False))
                self.finish(stage)

    def test_a_press_that_the_host_keeps_from_the_title_row_moves_the_window_still(self):
        stage = self.show("window", "keeping")
        x, y, width, height = stage.geometry
        self.drag_until(stage, stage.at("m_titleFrame"), (60, 40), (x + 60, y + 40, width, height))

    def test_a_dialog_without_its_title_row_is_not_moved(self):
        stage = self.show("dialog", "untitled")
        before = stage.geometry
        for at in ((200, 30), (200, 5), (200, 120)):
            self.desktop.drag(stage.inside(*at), (50, 50))
        self.desktop.click(*stage.at("pushMe"))
        wait_for(lambda: "clicked" in stage.said, "the click after the drags")
        self.assertEqual(self.desktop.geometry(stage.window), before)

    def test_a_tip_stays_with_its_widget_while_the_window_moves(self):
        stage = self.show("window", "tipped")
        button = stage.widgets["pushMe"]

        def tip():
            return [window for window in self.desktop.windows_of(stage.process) if window not in stage.windows("main window")]

        def follows():
            place = self.desktop.geometry(tip()[0])
            if not place:
                return False
            left, top, width, height = place
            x, y, _, _ = stage.geometry
            # Centred above the button, not far from it.
            centred = abs(2 * (left - x) + width - 2 * button[0] - button[2]) <= 2
            return centred and 0 <= y + button[1] - (top + height) < 20

        wait_for(tip, "the tip")
        wait_for(follows, "the tip over its button")
        x, y, width, height = stage.geometry
        for by in ((120, 80), (-70, 30)):
            x, y = x + by[0], y + by[1]
            self.drag_until(stage, stage.at("m_titleFrame"), by, (x, y, width, height))
            wait_for(follows, "the tip to follow")
        self.assertTrue(stage.active) # and takes no keyboard

    def test_a_modal_dialog_stays_above_its_window_which_answers_nothing(self):
        stage = self.show("window", "asking")
        before = stage.geometry
        self.desktop.click(*stage.at("pushMe"))
        dialog = wait_for(lambda: stage.windows("question"), "the dialog")[0]
        wait_for(lambda: self.desktop.active_window() == dialog, "the dialog to be active")
        left, top, width, height = self.desktop.geometry(dialog)
        self.assertEqual((left + width // 2, top + height // 2), stage.inside(200, 150)) # centred
        self.desktop.click(*stage.at("m_minButton"))
        self.desktop.click(*stage.at("m_closeButton"))
        self.desktop.drag(stage.at("m_titleLabel"), (50, 50))
        self.desktop.click(*stage.inside(10, 290))
        x, y = left + width // 2, top + 70
        self.assertEqual(self.desktop.window_at(x, y), dialog)
        self.assertEqual(self.desktop.geometry(stage.window), before)
        self.assertEqual(stage.said, ["clicked"])
        # It moves, and its window lies still.
        self.desktop.drag_until(dialog, (left + 60, top + 30), (-30, 40), (left - 30, top + 40, width, height))
        self.desktop.keys("Escape")
        wait_for(lambda: stage.said == ["clicked", "answer0"], "the answer")
        wait_for(lambda: stage.active, "the window to be active again")
        self.desktop.click(*stage.at("m_closeButton"))
        self.assertEqual(stage.process.wait(TIMEOUT), 0)
        self.assertEqual(stage.geometry, before)

    def test_a_press_brings_the_window_to_the_front(self):
        back, front = self.show("window"), self.show("dialog")
        # Where the window manager places them depends on what lies there, a window of an earlier test that is about to go, too.
        for stage, x, y in ((back, 100, 80), (front, 320, 230)):
            self.desktop.run("xdotool", "windowmove", stage.window, str(x), str(y))
            wait_for(lambda: stage.geometry[:2] == (x, y), f"the window at {x}, {y}")
        place = front.inside(60, 60) # where both are
        wait_for(lambda: self.desktop.window_at(*place) == front.window, "the second window in front")
        # Held until the window manager moves it: after a shorter click it would do so for ever, with the keyboard grabbed.
        self.drag_until(back, back.at("m_titleLabel"), (20, 10), (120, 90, 400, 300))
        wait_for(lambda: back.active and self.desktop.window_at(*place) == back.window, "the first window in front")

    def test_a_hover_still_shows_after_a_move(self):
        stage = self.show("window")
        x, y, width, height = stage.geometry
        self.drag_until(stage, stage.at("m_titleFrame"), (100, 50), (x + 100, y + 50, width, height))
        close = stage.at("m_closeButton", 3, 3)
        self.desktop.point_at(*stage.at("m_closeButton"))
        wait_for(lambda: self.desktop.pixel(*close) != token("bg/bg_box"), "the hover of the close button", 15)
        self.desktop.point_at(*stage.inside(200, 200))
        wait_for(lambda: self.desktop.pixel(*close) == token("bg/bg_box"), "the hover to go", 15)

    def test_a_press_on_a_title_button_moves_nothing(self):
        for kind, names in (("window", ("m_minButton", "m_maxRestoreButton", "m_closeButton")),
                            ("dialog", ("m_minButton", "m_maxButton", "m_closeButton"))):
            stage = self.show(kind)
            before = stage.geometry
            for name in names:
                for button in (1, 2, 3):
                    with self.subTest(kind=kind, name=name, button=button):
                        self.desktop.drag(stage.at(name), (120, 160), button) # released elsewhere, it is no click either
                        self.desktop.point_at(*stage.inside(20, 250))
                        close = stage.at(name, 3, 3)
                        wait_for(lambda: self.desktop.pixel(*close) == token("bg/bg_box"), "no pressed look", 15)
                        self.assertEqual(stage.geometry, before)
                        self.assertEqual(stage.said, [])

    def test_a_double_click_on_the_title_row_maximises_and_restores_a_window(self):
        stage = self.show("window")
        before = stage.geometry
        self.desktop.double_click(stage.at("m_titleFrame"), lambda: stage.maximized and stage.geometry == (0, 0, 1280, 900))
        self.desktop.double_click(stage.at("m_titleFrame"), lambda: not stage.maximized and stage.geometry == before)

    def test_title_buttons_of_a_window(self):
        stage = self.show("window")
        before = stage.geometry
        self.desktop.click(*stage.at("m_maxRestoreButton"))
        wait_for(lambda: stage.maximized and stage.geometry == (0, 0, 1280, 900), "the window to fill the screen")
        self.desktop.click(*stage.at("m_maxRestoreButton"))
        wait_for(lambda: not stage.maximized and stage.geometry == before, "the window to be as before")
        self.desktop.click(*stage.at("m_minButton"))
        wait_for(lambda: stage.minimized, "the window to be minimised")
        self.desktop.run("xdotool", "windowactivate", stage.window)
        wait_for(lambda: not stage.minimized and stage.active, "the window to come back")
        self.desktop.click(*stage.at("m_closeButton"))
        self.assertEqual(stage.process.wait(TIMEOUT), 0)
        self.assertEqual(stage.said, ["closed"])

    def test_one_click_answers_a_window_that_the_desktop_maximised_or_restored(self):
        stage = self.show("window")
        before = stage.geometry
        self.desktop.keys(self.desktop.manager.maximise)
        wait_for(lambda: stage.maximized and stage.geometry == (0, 0, 1280, 900), "the desktop to maximise the window")
        self.desktop.click(*stage.at("m_maxRestoreButton"))
        wait_for(lambda: not stage.maximized and stage.geometry == before, "one click to restore it")
        self.desktop.click(*stage.at("m_maxRestoreButton"))
        wait_for(lambda: stage.maximized and stage.geometry == (0, 0, 1280, 900), "one click to maximise it")
        self.desktop.keys(self.desktop.manager.maximise)
        wait_for(lambda: not stage.maximized and stage.geometry == before, "the desktop to restore the window")
        button = stage.at("m_maxRestoreButton", 3, 3)
        self.desktop.point_at(*stage.inside(20, 250))
        wait_for(lambda: self.desktop.pixel(*button) == token("bg/bg_box"), "the button to look unchecked", 15)
        self.desktop.click(*stage.at("m_maxRestoreButton"))
        wait_for(lambda: stage.maximized and stage.geometry == (0, 0, 1280, 900), "one click to maximise it again")

    def test_one_click_answers_a_window_that_came_back_maximised(self):
        stage = self.show("window", "returning")
        wait_for(lambda: stage.maximized and stage.geometry == (0, 0, 1280, 900), "the window to come back maximised")
        button = stage.at("m_maxRestoreButton", 3, 3)
        wait_for(lambda: self.desktop.pixel(*button) != token("bg/bg_box"), "the button to look checked", 15)
        self.desktop.click(*stage.at("m_maxRestoreButton"))
        wait_for(lambda: not stage.maximized and stage.geometry == (200, 150, 400, 300), "one click to restore it")

    def test_a_window_is_centred_on_the_inside_of_a_framed_one(self):
        stage = self.show("framed")
        _, _, top, bottom = (int(number) for number in self.desktop.property(stage.window, "_NET_FRAME_EXTENTS").split(","))
        self.assertGreater(top, bottom + 4) # a caption, else there is nothing to tell inside and frame by
        window = wait_for(lambda: stage.windows("centred"), "the centred window")[0]
        x, y, width, height = self.desktop.geometry(stage.window)
        wait_for(lambda: self.desktop.geometry(window) == (x + (width - 200) // 2, y + (height - 120) // 2, 200, 120),
                 "the window to be centred", 15)

    def test_title_buttons_of_a_dialog(self):
        stage = self.show("dialog")
        before = stage.geometry
        self.desktop.click(*stage.at("m_maxButton"))
        wait_for(lambda: stage.maximized and stage.geometry == (0, 0, 1280, 900), "the dialog to fill the screen")
        self.desktop.click(*stage.at("m_maxButton"))
        wait_for(lambda: not stage.maximized and stage.geometry == before, "the dialog to be as before")
        self.desktop.click(*stage.at("m_closeButton"))
        self.assertEqual(stage.process.wait(TIMEOUT), 0)
        self.assertEqual(stage.said, ["closed"])

    def test_window_and_dialog_cannot_be_resized(self):
        for kind in ("window", "dialog"):
            stage = self.show(kind)
            before = stage.geometry
            for at in ((0, 150), (399, 150), (399, 299), (0, 0)):
                with self.subTest(kind=kind, at=at):
                    self.desktop.point_at(*stage.inside(*at))
                    if at != (0, 0) or kind == "dialog": # a window's first pixel belongs to its title row, which moves it
                        self.desktop.drag(stage.inside(*at), (40, 40))
                    self.desktop.point_at(*stage.inside(200, 200))
                    self.assertEqual(stage.cursor, ARROW)
                    self.assertEqual(stage.geometry, before)

    def test_a_panel_is_resized_by_its_edges_and_corners(self):
        edges = {
            (2, 150): (SIZE_HOR, (-30, 0), (-30, 0, 30, 0)),
            (397, 150): (SIZE_HOR, (30, 0), (0, 0, 30, 0)),
            (200, 2): (SIZE_VER, (0, -25), (0, -25, 0, 25)),
            (200, 297): (SIZE_VER, (0, 25), (0, 0, 0, 25)),
            (2, 2): (SIZE_FDIAG, (-30, -25), (-30, -25, 30, 25)),
            (397, 2): (SIZE_BDIAG, (30, -25), (0, -25, 30, 25)),
            (2, 297): (SIZE_BDIAG, (-30, 25), (-30, 0, 30, 25)),
            (397, 297): (SIZE_FDIAG, (30, 25), (0, 0, 30, 25)),
        }
        for at, (cursor, by, change) in edges.items():
            with self.subTest(at=at):
                stage = self.show("panel")
                before = stage.geometry
                self.desktop.point_at(*stage.inside(200, 100))
                self.desktop.point_at(*stage.inside(*at))
                wait_for(lambda: stage.cursor == cursor, f"the cursor {cursor}")
                expected = tuple(a + b for a, b in zip(before, change))
                self.drag_until(stage, stage.inside(*at), by, expected)
                self.point_inside_until(stage, lambda: stage.cursor == ARROW, "the cursor to be an arrow again")
                self.desktop.click(*stage.at("pushMe"))
                wait_for(lambda: "clicked" in stage.said, "the click after the resizing")
                self.finish(stage)

    def test_a_press_in_a_menu_over_the_edge_chooses_and_resizes_nothing(self):
        stage = self.show("panel")
        before = stage.geometry
        self.desktop.click(*stage.at("pushMe"))
        menu = wait_for(lambda: [window for window in self.desktop.windows_of(stage.process) if window != stage.window], "the menu")[0]
        x, y, width, height = wait_for(lambda: self.desktop.geometry(menu), "the menu's place")
        self.desktop.drag((x + width - 40, y + height // 2), (20, 0))
        wait_for(lambda: stage.said == ["clicked", "chosen"], "the choice")
        self.desktop.drag(stage.inside(200, 60), (20, 20)) # nothing has kept the mouse
        self.assertEqual(stage.geometry, before)

    def test_a_toast_leaves_the_keyboard_with_who_types(self):
        def place(stage, option):
            if option == "inside":
                left, top, width, height = stage.widgets.get("toast", (0, 0, 0, 0))
                x, y, _, _ = stage.geometry
                return width and (x + left, y + top, width, height)
            others = [window for window in self.desktop.windows_of(stage.process) if window != stage.window]
            return others and self.desktop.geometry(others[0])

        for option in ("inside", "apart"):
            with self.subTest(option=option):
                stage = self.show("toast", option)
                left, top, width, _ = wait_for(lambda: place(stage, option), "the toast")
                wait_for(lambda: self.desktop.pixel(left + 6, top + 6) == token("bg/bg_float"), "the toast in full")
                self.desktop.type("ab")
                wait_for(lambda: "typed-ab" in stage.said, "what was typed under the toast")
                self.assertEqual(self.desktop.active_window(), stage.window)
                self.desktop.click(left + width - 17, top + 22)
                wait_for(lambda: "gone" in stage.said, "the toast to close by its button")
                self.desktop.type("c")
                wait_for(lambda: "typed-abc" in stage.said, "what was typed after it")
                self.finish(stage)


if __name__ == "__main__":
    unittest.main()
