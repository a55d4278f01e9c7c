"""Clicks on a card of notifications with a real mouse, and types beside it, under a real window manager."""

import unittest

import test_windows
from desktop import TIMEOUT, Desktop, wait_for

# On the card.
CLOSE = (303, 22)
CALL_BACK = (40, 72)
PREVIOUS = (126, 104)


class NotificationsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(1280, 900)
        cls.addClassCleanup(cls.desktop.close)

    def setUp(self):
        self.desktop.point_at(1270, 890) # off all windows
        self.stage = test_windows.Stage(self.desktop, "notifications")
        self.addCleanup(self.finish)
        self.card = wait_for(lambda: self.cards(), "the card")[0]
        wait_for(lambda: self.place()[3] == 116, "both messages")
        self.wait_for_ground()

    def finish(self):
        self.stage.process.terminate()
        self.stage.process.wait(TIMEOUT)
        self.assertEqual(self.stage.complaints(), [])

    def cards(self):
        return [window for window in self.desktop.windows_of(self.stage.process) if window != self.stage.window]

    def place(self):
        return self.desktop.geometry(self.card)

    def on_card(self, at):
        return tuple(a + b for a, b in zip(self.place()[:2], at))

    def wait_for_ground(self):
        ground = test_windows.token("bg/bg_float")
        wait_for(lambda: self.desktop.pixel(*self.on_card((6, 6))) == ground, "the card's ground")

    def click_until(self, at, said):
        """Clicks until it counts: a page that slides is not yet where it will be."""
        def counted():
            self.desktop.click(*self.on_card(at))
            return said in self.stage.said

        wait_for(counted, said)

    def test_the_card_stands_in_the_windows_corner_and_leaves_the_keyboard(self):
        x, y, width, _ = self.stage.geometry
        self.assertEqual(self.place(), (x + width - 1 - 16 - 320, y + 80, 320, 116))
        self.desktop.type("ab")
        wait_for(lambda: "typed-ab" in self.stage.said, "what was typed under the card")
        self.assertEqual(self.desktop.active_window(), self.stage.window)

    def test_its_buttons_call_back_page_and_close(self):
        self.click_until(CALL_BACK, "called-two")
        self.desktop.click(*self.on_card(PREVIOUS))
        self.click_until(CALL_BACK, "called-one")
        self.desktop.click(*self.on_card(CLOSE))
        wait_for(lambda: not self.cards(), "the card to close")
        self.desktop.type("c")
        wait_for(lambda: "typed-c" in self.stage.said, "the keyboard to be back")

    def test_the_card_follows_the_window(self):
        x, y, width, height = self.stage.geometry
        self.stage_drag((120, 90), (x + 120, y + 90, width, height))
        wait_for(lambda: self.place()[:2] == (x + 120 + width - 1 - 16 - 320, y + 90 + 80), "the card to follow")

    def stage_drag(self, by, expected):
        self.desktop.drag_until(self.stage.window, self.stage.at("m_titleFrame"), by, expected)

    def test_the_card_goes_and_comes_with_a_minimised_window(self):
        x, y, width, _ = self.stage.geometry
        self.desktop.click(x + width - 92, y + 20) # names of title buttons are the card's too
        wait_for(lambda: self.stage.minimized, "the window to be minimised")
        wait_for(lambda: not self.cards(), "the card to go with it")
        self.desktop.run("xdotool", "windowactivate", self.stage.window)
        wait_for(lambda: not self.stage.minimized and self.stage.active, "the window to come back")
        wait_for(lambda: self.cards() == [self.card], "the card to come back")
        self.wait_for_ground()
        self.click_until(CALL_BACK, "called-two")


if __name__ == "__main__":
    unittest.main()
