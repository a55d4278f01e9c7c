"""Fills in the settings dialog by a real keyboard and mouse, and looks at the file that keeps them."""

import configparser
import os
import re
import unittest

from desktop import EXPECTED_MESSAGE, MESSAGE, TIMEOUT, Desktop, wait_for

PROGRAM = os.environ["SETTINGS_PROGRAM"]
# Qt asks where a dialog stands in the frame that the window manager has just taken away.
GONE_FRAME = re.compile(r"QXcbConnection: XCB error: 3 \(BadWindow\), .* \(TranslateCoords\), .*")
SAVE = (461, 422) # from the upper left corner of the dialog


class SettingsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(1280, 900)
        cls.addClassCleanup(cls.desktop.close)

    def setUp(self):
        self.desktop.point_at(1270, 890)
        self.log_name = self.id() + ".log"
        self.file = os.path.join(self.desktop.folder, self.id(), "kept.ini") # in a folder that does not exist yet
        self.start()
        self.addCleanup(self.finish)

    def start(self):
        self.process = self.desktop.start([PROGRAM, "--file", self.file], log=self.log_name)
        self.window = wait_for(lambda: self.titled("Example"), "the window")
        self.wait_until_active(self.window)
        self.desktop.keys("space")
        self.dialog = wait_for(lambda: self.titled("Settings"), "the dialog")
        self.wait_until_active(self.dialog)

    def finish(self):
        self.process.terminate()
        self.process.wait(TIMEOUT)
        log = self.desktop.log(self.log_name)
        complaints = [message for message in MESSAGE.findall(log)
                      if not EXPECTED_MESSAGE.fullmatch(message) and not GONE_FRAME.fullmatch(message)]
        self.assertEqual(complaints + MESSAGE.sub("", log).splitlines(), [])

    def titled(self, title):
        for window in self.desktop.windows_of(self.process):
            if self.desktop.property(window, "_NET_WM_NAME") == f'"{title}"':
                return window
        return None

    def wait_until_active(self, window):
        wait_for(lambda: self.desktop.active_window() == window, "the window to be active")

    def warnings(self):
        return [window for window in self.desktop.windows_of(self.process) if window not in (self.window, self.dialog)]

    def replace(self, text):
        self.desktop.keys("ctrl+a")
        self.desktop.type(text)

    def toast_pixel(self):
        """In the icon of a toast, once one shows."""
        x, y, width, _ = self.desktop.geometry(self.window)
        return self.desktop.pixel(x + width // 2 - 145, y + 67 + 22)

    def click_save(self):
        x, y, _, _ = self.desktop.geometry(self.dialog)
        self.desktop.click(x + SAVE[0], y + SAVE[1])

    def save(self):
        self.click_save()
        wait_for(lambda: not self.titled("Settings"), "the dialog to go")
        wait_for(lambda: os.path.exists(self.file), "the file")

    def kept(self):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        with open(self.file, encoding="utf-8") as file:
            parser.read_file(file)
        return {f"{section}/{key}": value for section in parser.sections() for key, value in parser.items(section)}

    def test_a_wrong_value_is_warned_of_and_not_saved(self):
        self.replace("Anna")
        self.desktop.keys("Tab")
        self.desktop.type("nobody")
        self.desktop.keys("Tab")
        wait_for(self.warnings, "the warning")
        self.click_save()
        self.replace("nobody@example.org") # the keyboard is back in the wrong field
        wait_for(lambda: not self.warnings(), "the warning to go")
        self.assertTrue(self.titled("Settings"))
        self.assertFalse(os.path.exists(self.file))
        self.save()
        self.assertEqual(self.kept()["user/name"], "Anna")
        self.assertEqual(self.kept()["user/mail"], "nobody@example.org")

    def test_values_are_kept_from_one_start_to_the_next(self):
        self.replace("Anna <b>")
        self.desktop.keys("Tab", "Tab", "Down", "Tab", "Down", "Down", "Tab") # French, dark
        self.desktop.type("She said: so.")
        self.save()
        first = self.kept()
        self.assertEqual((first["user/name"], first["user/language"], first["user/look"]), ("Anna <b>", "fr", "dark"))
        self.finish()
        self.start()
        self.desktop.keys("Tab")
        self.desktop.type("anna@example.org")
        self.save() # every value from its field
        wait_for(lambda: self.kept().get("user/mail") == "anna@example.org", "the new value")
        self.assertEqual({**first, "user/mail": "anna@example.org"}, self.kept())

    def test_a_toast_shows_once_saved(self):
        self.replace("Anna")
        self.desktop.keys("Escape")
        wait_for(lambda: not self.titled("Settings"), "the dialog to go")
        self.wait_until_active(self.window)
        ground = self.toast_pixel()
        self.desktop.keys("space")
        self.dialog = wait_for(lambda: self.titled("Settings"), "the dialog")
        self.wait_until_active(self.dialog)
        self.assertFalse(os.path.exists(self.file)) # Escape saved nothing
        self.replace("Anna")
        self.save()
        wait_for(lambda: self.toast_pixel() != ground, "the toast")


if __name__ == "__main__":
    unittest.main()
