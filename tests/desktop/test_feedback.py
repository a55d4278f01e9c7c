"""Shows progress and veils over a window, with a real mouse and keyboard, under a real window manager."""

import unittest

from desktop import TIMEOUT, Desktop, wait_for
from test_windows import Stage, token


class FeedbackTest(unittest.TestCase):
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

    def wait_for_said(self, stage, what):
        wait_for(lambda: what in stage.said, what)

    def test_the_progress_dialog_stands_over_its_window_and_escape_cancels(self):
        stage = self.show("progress")
        dialog = wait_for(lambda: stage.windows("progress"), "the dialog")[0]
        self.assertEqual(self.desktop.geometry(dialog)[2:], (357, 87))
        x, y, width, height = self.desktop.geometry(dialog)
        left, top, outer_width, outer_height = stage.geometry
        # But for the frame that Qt expects around it.
        self.assertLess(abs(2 * x + width - 2 * left - outer_width), 40)
        self.assertLess(abs(2 * y + height - 2 * top - outer_height), 80)
        wait_for(lambda: self.desktop.pixel(x + 60, y + 32) == token("brand/brand"), "three quarters of the bar")
        # A press on the window leaves the dialog before it, which takes the keyboard again when it is pressed.
        self.desktop.click(left + 20, top + 280)
        wait_for(lambda: self.desktop.active_window() == stage.window, "the window to be active")
        self.assertEqual(self.desktop.window_at(x + 20, y + 20), dialog)
        self.desktop.type("a")
        self.wait_for_said(stage, "typed-a")
        self.desktop.click(x + 20, y + 70)
        wait_for(lambda: self.desktop.active_window() == dialog, "the dialog to be active")
        self.desktop.keys("Escape")
        self.wait_for_said(stage, "cancelled")
        wait_for(lambda: not stage.windows("progress"), "the dialog to go")

    def test_the_loading_dialog_in_a_veil_stops_the_mouse_and_leaves_the_keyboard(self):
        stage = self.show("veil", "loading")
        self.assertEqual(wait_for(lambda: stage.widgets.get("loading"), "the dialog"), (0, 0, 400, 300))
        wait_for(lambda: self.desktop.pixel(*stage.inside(1, 60)) not in (token("bg/bg_box"), "#000000"), "the veil")
        self.desktop.click(*stage.at("pushMe"))
        self.desktop.click(*stage.at("m_closeButton"))
        self.desktop.type("ab")
        self.wait_for_said(stage, "typed-ab")
        self.assertNotIn("clicked", stage.said)

    def test_a_veil_apart_covers_its_window_and_stops_the_mouse(self):
        stage = self.show("veil", "apart")
        veil = wait_for(lambda: [window for window in self.desktop.windows_of(stage.process) if window != stage.window], "the veil")[0]
        wait_for(lambda: self.desktop.geometry(veil) == stage.geometry, "the veil over its window")
        self.desktop.click(*stage.at("pushMe"))
        left, top, width, height = stage.widgets["lift"] # on the screen: it is in another window
        self.desktop.click(left + width // 2, top + height // 2)
        dialog = wait_for(lambda: stage.windows("question"), "the dialog over the veil")[0]
        wait_for(lambda: self.desktop.active_window() == dialog, "the dialog to be active")
        self.desktop.keys("Escape")
        self.wait_for_said(stage, "lifted")
        wait_for(lambda: self.desktop.windows_of(stage.process) == [stage.window], "the veil to go")
        self.assertNotIn("clicked", stage.said)

        def counts():
            self.desktop.click(*stage.at("pushMe"))
            return "clicked" in stage.said

        wait_for(counts, "a click on what was covered", 20)


if __name__ == "__main__":
    unittest.main()
