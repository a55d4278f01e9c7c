"""The gallery on a desktop that says on its session bus whether it is dark, and whether it wants contrast."""

import os
import re
import subprocess
import unittest

from desktop import Desktop, Program, wait_for

GALLERY = os.environ["GALLERY_PROGRAM"]
PORTAL = os.environ["PORTAL_PROGRAM"]
TABLES = os.environ["COLOUR_TABLES"]


def ground_of(table):
    with open(os.path.join(TABLES, f"{table}.ini"), encoding="utf-8-sig") as file:
        return re.search(r"^bg/bg_bottom *= *(#\w{6})", file.read(), re.MULTILINE).group(1).lower()


class WishesTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop(1360, 900)
        self.addCleanup(self.desktop.close)
        bus = self.desktop.start(["dbus-daemon", "--session", "--nofork", "--print-address"], log="bus.log", stdout=subprocess.PIPE)
        self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def start_portal(self, *answers):
        self.portal = subprocess.Popen([PORTAL], env=self.desktop.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end_portal)
        self.assertEqual(self.portal.stdout.readline(), "ready\n")
        for answer in answers:
            self.say(answer)

    def end_portal(self):
        self.portal.communicate(timeout=60)

    def say(self, answer):
        self.portal.stdin.write(answer + "\n")
        self.portal.stdin.flush()
        self.assertEqual(self.portal.stdout.readline(), "said\n")

    def start(self, *arguments):
        gallery = Program(self.desktop, GALLERY, *arguments)
        self.addCleanup(self.finish, gallery)
        return gallery

    def finish(self, gallery):
        gallery.process.terminate()
        gallery.wait_for_end()
        self.assertEqual(gallery.complaints(), [])

    def wait_for_table(self, gallery, table):
        wait_for(lambda: gallery.ground() == ground_of(table), f"the ground of {table}")

    def test_the_gallery_begins_and_stays_with_the_desktop(self):
        self.start_portal("color-scheme 1")
        gallery = self.start()
        self.wait_for_table(gallery, "blue_dark")
        self.say("contrast 1")
        self.wait_for_table(gallery, "contrast_dark")
        self.say("color-scheme 2")
        self.wait_for_table(gallery, "contrast_light")
        gallery.click("tableLight")
        self.wait_for_table(gallery, "blue_light")

    def test_a_table_that_is_asked_for_stays(self):
        self.start_portal("color-scheme 1")
        gallery = self.start("--table", "contrast-light")
        self.wait_for_table(gallery, "contrast_light")

    def test_a_desktop_that_says_nothing_gets_the_light_table(self):
        gallery = self.start()
        self.wait_for_table(gallery, "blue_light")


if __name__ == "__main__":
    unittest.main()
