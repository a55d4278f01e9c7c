"""Windows and popups on a Wayland desktop, where a program places none of its windows."""

import os
import subprocess
import threading
import unittest

from desktop import EXPECTED_MESSAGE, MESSAGE, TIMEOUT, steer, wait_for
from test_windows import SIZE_BDIAG, SIZE_FDIAG, SIZE_HOR, SIZE_VER, are_alike, blended, token
from wayland import PLACE, WaylandDesktop

STAGE = os.environ["STAGE_PROGRAM"]
GALLERY = os.environ["GALLERY_PROGRAM"]
MAIN = "main window"
WIDTH, HEIGHT = 400, 300 # of a stage
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

    def state(self):
        """What a stage said last of its window: "cursor", "active" and the rest by name."""
        words = next((words for words in reversed(list(self.lines)) if words[0] == "state"), [])
        return {name: int(value) for name, value in zip(words[5:13:2], words[6:13:2])}

    def size(self):
        """Of a stage's window, as the program knows it."""
        words = next((words for words in reversed(list(self.lines)) if words[0] == "state"), [])
        return tuple(int(word) for word in words[3:5])

    def place_of(self, widget):
        """Of a named widget of a stage, from the window's corner; of one that is a window, as the program has put it."""
        for words in reversed(list(self.lines)):
            if words[0] == "state" and widget in words:
                at = words.index(widget)
                return tuple(int(number) for number in words[at + 1:at + 5])
        return None

    def windows(self):
        return self.desktop.windows_of(self.process)

    def rect(self, title=MAIN):
        """Of a window on the screen; none of a window that is not there."""
        return self.windows().get(title, ((0, 0, 0, 0), False))[0]

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
        ground = self.on_screen((15, 200, 0, 0))
        grounds = (token("bg/bg_box"), blended("overlay/overlay_primary", token("bg/bg_box")))
        wait_for(lambda: any(are_alike(self.desktop.pixel(*ground), color) for color in grounds), "the stage's ground")
        wait_for(lambda: stage.windows()[MAIN][1] or len(stage.windows()) > 1, "the stage to have the keyboard")
        return stage

    def finish(self, program):
        if program.process.poll() is None:
            self.desktop.mouse.release()
        program.process.terminate()
        program.process.wait(TIMEOUT)
        self.assertEqual(program.complaints(), [])

    def wait_for_pixel(self, at, color, what):
        wait_for(lambda: are_alike(self.desktop.pixel(*at), color), what, 20)

    def on_screen(self, place, dx=None, dy=None):
        """A point of a place in the window: its centre unless told otherwise."""
        x, y, width, height = place
        return PLACE[0] + x + (width // 2 if dx is None else dx), PLACE[1] + y + (height // 2 if dy is None else dy)

    def at(self, program, widget, dx=None, dy=None):
        return self.on_screen(wait_for(lambda: program.place_of(widget), widget), dx, dy)

    def click(self, program, widget):
        self.desktop.mouse.click(*self.at(program, widget))

    def wait_for_said(self, program, what):
        wait_for(lambda: program.said(what), what, 20)

    def click_until_said(self, program, at, what):
        """A click counts once what was there before has gone."""
        def counted():
            self.desktop.mouse.click(*at)
            return program.said(what)

        wait_for(counted, what, 20)

    def steer(self, program, start, by, change):
        """Drags until the window is elsewhere by so much, and the program knows its size."""
        expected = tuple(a + b for a, b in zip(program.rect(), change))
        steer(program.rect, self.desktop.mouse.point_at, self.desktop.mouse.press, start, by, expected)
        self.desktop.mouse.release()
        wait_for(lambda: program.size() == expected[2:], "the program to know its size", 20)

    def check_no_window_besides(self, program):
        self.assertEqual({title: active for title, (_, active) in program.windows().items()}, {MAIN: True})

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
        self.click(stage, "opener")
        left, top = self.at(stage, "opener", 0, stage.place_of("opener")[3])
        beyond = left + 310 # where the menu hangs over the window's side
        self.wait_for_pixel((beyond, top + 14), token("bg/bg_float"), "the menu")
        self.assertEqual(self.desktop.pixel(beyond, top - 2), BLACK)
        self.desktop.mouse.click(left + 30, top + 15)
        wait_for(lambda: stage.said("chosen-first") and stage.said("menu-closed"), "the choice")

    def test_keys_choose_in_a_menu_and_escape_closes_it(self):
        stage = self.show_stage("menu")
        self.click(stage, "opener")
        beyond = self.at(stage, "opener", 310, stage.place_of("opener")[3] + 14)
        self.wait_for_pixel(beyond, token("bg/bg_float"), "the menu")
        self.desktop.keyboard.tap("Down", "Escape")
        self.wait_for_said(stage, "menu-closed")
        self.wait_for_pixel(beyond, BLACK, "the menu to go")
        self.click(stage, "opener")
        self.wait_for_pixel(beyond, token("bg/bg_float"), "the menu again")
        self.desktop.keyboard.tap("Down", "Return")
        self.wait_for_said(stage, "chosen-first")

    # --- Moving and resizing ---

    def test_a_window_moves_by_its_title_row(self):
        for kind in ("window", "dialog"):
            with self.subTest(kind=kind):
                stage = self.show_stage(kind)
                grip = self.at(stage, "m_titleFrame")
                self.steer(stage, grip, (130, 90), (130, 90, 0, 0))
                # Another press at once moves it again, and a click after that reaches what it is on.
                self.steer(stage, (grip[0] + 130, grip[1] + 90), (-130, -90), (-130, -90, 0, 0))
                self.click(stage, "pushMe")
                self.wait_for_said(stage, "clicked")
                self.finish(stage)

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
                stage = self.show(STAGE, "panel")
                wait_for(lambda: stage.state().get("active"), "the panel to be active")
                start = (PLACE[0] + at[0], PLACE[1] + at[1])
                self.desktop.mouse.point_at(*self.on_screen((200, 100, 0, 0)))
                self.desktop.mouse.point_at(*start)
                wait_for(lambda: stage.state()["cursor"] == cursor, f"the cursor {cursor}")
                self.steer(stage, start, by, change)
                self.finish(stage)

    def test_a_window_that_the_compositor_neither_minimises_nor_maximises_goes_on_working(self):
        stage = self.show_stage("window")
        for name in ("m_minButton", "m_maxRestoreButton"):
            self.click(stage, name)
        self.click(stage, "pushMe")
        self.wait_for_said(stage, "clicked")
        self.click(stage, "m_closeButton")
        self.assertEqual(stage.process.wait(TIMEOUT), 0)

    # --- What comes over a window ---

    def test_a_tip_stands_over_its_widget_and_leaves_the_keyboard(self):
        stage = self.show_stage("window", "tipped")
        tip = self.at(stage, "pushMe", None, -8 - 6 - 4) # gap, triangle and a margin
        wait_for(lambda: self.desktop.pixel(*tip) != token("bg/bg_box"), "the tip", 20)
        self.check_no_window_besides(stage)

    def test_a_toast_of_its_own_window_stands_in_its_parent_and_leaves_the_keyboard(self):
        stage = self.show_stage("toast", "apart")
        _, _, width, height = wait_for(lambda: stage.place_of("toast"), "the toast")
        left, top = self.on_screen(((WIDTH - width) // 2, 67, 0, 0))
        border = blended("border/border_secondary_disabled", token("bg/bg_float"))
        for edge in ((left + 9, top), (left, top + 9), (left + width - 1, top + 9), (left + 9, top + height - 1)):
            self.wait_for_pixel(edge, border, "the toast's border")
        self.desktop.keyboard.type("ab")
        self.wait_for_said(stage, "typed-ab")
        self.check_no_window_besides(stage)
        self.click_until_said(stage, (left + width - 17, top + 22), "gone")
        self.desktop.keyboard.type("c")
        self.wait_for_said(stage, "typed-abc")

    def test_a_card_of_notifications_stands_in_the_corner_calls_back_and_follows(self):
        stage = self.show_stage("notifications")
        left, top = self.on_screen((WIDTH - 1 - 16 - 320, 80, 0, 0))
        border = blended("border/border_tertairy", token("bg/bg_float"))
        edges = ((9, 0), (0, 9), (319, 9), (9, 115))
        for dx, dy in edges:
            self.wait_for_pixel((left + dx, top + dy), border, "the card's border")
        self.desktop.keyboard.type("ab")
        self.wait_for_said(stage, "typed-ab")
        self.check_no_window_besides(stage)
        self.click_until_said(stage, (left + 40, top + 72), "called-two")
        self.steer(stage, self.at(stage, "m_titleLabel"), (60, 240), (60, 240, 0, 0))
        for dx, dy in edges:
            self.wait_for_pixel((left + 60 + dx, top + 240 + dy), border, "the card's border where the window went")

    def test_a_selectors_list_opens_below_it_and_the_mouse_and_keys_choose(self):
        stage = self.show_stage("selector")
        row = self.at(stage, "selector", 100, 29 + 3 * 28 + 14)
        beyond = self.at(stage, "selector", 60, HEIGHT - stage.place_of("selector")[1] + 2) # below the window
        self.assertEqual(self.desktop.pixel(*beyond), BLACK)
        self.click(stage, "selector")
        self.wait_for_pixel(beyond, token("bg/bg_float"), "the list")
        self.desktop.keyboard.tap("Escape")
        self.wait_for_pixel(beyond, BLACK, "the list to go")
        self.desktop.keyboard.tap("F4")
        self.wait_for_pixel(beyond, token("bg/bg_float"), "the list again")
        self.desktop.keyboard.tap("Down", "Down", "Return")
        self.wait_for_said(stage, "chose2")
        self.wait_for_pixel(beyond, BLACK, "the list to go")
        self.click(stage, "selector")
        self.wait_for_pixel(beyond, token("bg/bg_float"), "the list by the mouse")
        self.click_until_said(stage, row, "chose3")

    def test_a_dialog_stays_a_small_window_before_the_one_it_was_centred_on(self):
        for option in ("asking", "asking-alone"):
            with self.subTest(option=option):
                stage = self.show_stage("window", option)
                self.click(stage, "pushMe")
                wait_for(lambda: stage.windows().get("question", (None, False))[1], "the dialog to have the keyboard")
                # Without a window that it belongs to it would be one of the tiles that fill the screen.
                self.assertEqual(stage.rect("question")[2:], (240, 160))
                x, y, _, _ = stage.rect("question")
                self.wait_for_pixel((x + 120, y + 70), token("bg/bg_box"), "the dialog's panel")
                # The window answers nothing, but a press gives it the keyboard here.
                self.desktop.mouse.click(*self.at(stage, "pushMe"))
                self.desktop.mouse.click(x + 120, y + 70)
                wait_for(lambda: stage.windows()["question"][1], "the dialog to have the keyboard again")
                self.desktop.keyboard.tap("Escape")
                self.wait_for_said(stage, "answer0")
                self.assertEqual(list(stage.lines).count(["said", "clicked"]), 1)
                self.finish(stage)

    def test_a_veil_lies_over_its_window_inside_of_it_and_apart(self):
        for option in ("inside", "apart"):
            with self.subTest(option=option):
                stage = self.show_stage("veil", option)
                ground = blended("overlay/overlay_primary", token("bg/bg_box"))
                for corner in ((1, 60), (WIDTH - 2, 60), (1, 200), (WIDTH - 2, 200)):
                    self.wait_for_pixel(self.on_screen((*corner, 0, 0)), ground, "the veil")
                self.assertEqual(self.desktop.pixel(*self.on_screen((WIDTH, HEIGHT, 0, 0))), BLACK)
                self.check_no_window_besides(stage)
                self.desktop.mouse.click(*self.on_screen(stage.place_of("pushMe")))
                # Its own button, at its lower edge, answers with a dialog of the veil's.
                self.desktop.mouse.click(*self.on_screen((WIDTH // 2, HEIGHT - stage.place_of("lift")[3] // 2, 0, 0)))
                wait_for(lambda: stage.windows().get("question", (None, False))[1], "the dialog to have the keyboard")
                self.assertEqual(stage.rect("question")[2:], (240, 160))
                self.desktop.keyboard.tap("Escape")
                self.wait_for_said(stage, "lifted")
                self.assertFalse(stage.said("clicked"))
                self.wait_for_pixel(self.on_screen((1, 60, 0, 0)), token("bg/bg_box"), "the veil to go")
                self.finish(stage)

    def test_the_progress_dialog_is_a_small_window_that_escape_cancels(self):
        stage = self.show_stage("progress")
        wait_for(lambda: stage.windows().get("progress", (None, False))[1], "the dialog to have the keyboard")
        x, y, width, height = stage.rect("progress")
        self.assertEqual((width, height), (357, 87))
        self.wait_for_pixel((x + 60, y + 32), token("brand/brand"), "three quarters of the bar")
        self.desktop.keyboard.tap("Escape")
        self.wait_for_said(stage, "cancelled")
        wait_for(lambda: stage.windows().get(MAIN, (None, False))[1], "the window to have the keyboard again")
        self.desktop.keyboard.type("a")
        self.wait_for_said(stage, "typed-a")

    def test_the_loading_dialog_lies_in_its_veil(self):
        stage = self.show_stage("veil", "loading")
        ground = blended("overlay/overlay_primary", token("bg/bg_box"))
        self.wait_for_pixel(self.on_screen((1, 60, 0, 0)), ground, "the veil")
        left, top, width, height = wait_for(lambda: stage.place_of("loading"), "the dialog")
        self.assertEqual((left, top, width, height), (0, 0, WIDTH, HEIGHT))
        x, y = self.on_screen((left, top, width, height))
        wait_for(lambda: any(self.desktop.pixel(x, y + dy) != ground for dy in range(-40, 40, 4)), "the spinner and its text", 20)
        self.check_no_window_besides(stage)


if __name__ == "__main__":
    unittest.main()
