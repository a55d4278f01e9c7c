"""Goes through every page of the gallery with the Tab key alone, under a real window manager, and compares pictures: a user must see
where the keyboard is at each stop."""

import os
import re
import shutil
import subprocess
import unittest

from desktop import Desktop, Program, wait_for

GALLERY = os.environ["GALLERY_PROGRAM"]
TABLES = os.environ["COLOUR_TABLES"]
PICTURES = os.environ["WALK_PICTURES"]
KEEPS_ALL = "WALK_KEEPS_ALL" in os.environ # pictures, to be looked at; else only those in which nothing can be seen
FILES = {"light": "blue_light", "dark": "blue_dark", "contrast-light": "contrast_light", "contrast-dark": "contrast_dark"} # of the tables
START = "searchField"
TOO_MANY = 300 # stops of one page
AROUND = 16 # pixels: a frame around an edit, and the ring around that
LEAST = 60 # pixels that a stop changes: the ring of the smallest control has more


def focus_colour(table):
    with open(os.path.join(TABLES, f"{FILES[table]}.ini"), encoding="utf-8-sig") as file:
        code = re.search(r"^others/focus *= *#(\w{6})", file.read(), re.MULTILINE).group(1)
    return bytes.fromhex(code)


def pages():
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    listed = subprocess.run([GALLERY, "--list"], env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
    return listed.stdout.decode().split()


class Walk:
    """From the search field with Tab until it has the keyboard again."""

    def __init__(self, desktop, gallery, table):
        self.desktop = desktop
        self.gallery = gallery
        self.colour = focus_colour(table)
        self.frame = desktop.geometry(gallery.window)
        self.last = None # stop
        self.seen = 0
        self.unseen = []

    def look(self):
        return self.desktop.picture(*self.frame)

    def run(self, page):
        self.gallery.click(START)
        before = self.look()
        while True:
            count = len(self.gallery.stops)
            self.desktop.keys("Tab")
            wait_for(lambda: len(self.gallery.stops) > count, "the next stop")
            stop = self.gallery.stops[-1]
            before = self.judge(page, stop, before)
            if stop[0] == START:
                return
            if count > TOO_MANY:
                raise AssertionError(f"{page} has no end")

    def judge(self, page, stop, before):
        """The picture at the stop, which it counts as seen or not."""
        after = []
        # Where the page scrolled along, the ring came into the place of the one before.
        is_in_place = self.last is not None and self.last[2:] == stop[2:] and self.last not in self.unseen

        def shows():
            nonlocal after
            after = self.look()
            known = [b""] * len(before) if is_in_place and after != before else before
            return self.new_pixels(stop, known, after) >= LEAST
        try:
            wait_for(shows, "the ring", 10)
            self.seen += 1
            if KEEPS_ALL:
                self.keep(page, after)
        except AssertionError:
            self.unseen.append(stop)
            self.keep(page, after)
        self.last = stop
        return after

    def new_pixels(self, stop, before, after):
        """How many pixels around a stop have become of the ring's colour."""
        left, top, width, height = self.frame
        x, y = stop[2] - left, stop[3] - top
        rows = range(max(y - AROUND, 0), min(y + stop[5] + AROUND, height))
        columns = range(max(x - AROUND, 0), min(x + stop[4] + AROUND, width))
        count = 0
        for row in rows:
            old, new = before[row], after[row]
            if old == new or self.colour not in new:
                continue
            for column in columns:
                at = slice(3 * column, 3 * column + 3)
                count += new[at] == self.colour != old[at]
        return count

    def keep(self, page, picture):
        width, height = self.frame[2:]
        path = os.path.join(PICTURES, f"{page}-{self.seen + len(self.unseen):03}.png")
        subprocess.run(["convert", "-size", f"{width}x{height}", "-depth", "8", "rgb:-", path], input=b"".join(picture), check=True)


class KeyboardTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(1400, 900)
        cls.addClassCleanup(cls.desktop.close)
        shutil.rmtree(PICTURES, ignore_errors=True)
        os.makedirs(PICTURES)

    def test_every_stop_of_every_page_can_be_seen(self):
        seen, unseen = 0, []
        for number, page in enumerate(pages()):
            table = list(FILES)[number % len(FILES)]
            gallery = Program(self.desktop, GALLERY, "--page", page, "--table", table)
            walk = Walk(self.desktop, gallery, table)
            try:
                walk.run(page)
            finally:
                gallery.process.terminate()
                gallery.wait_for_end()
            self.assertEqual(gallery.complaints(), [])
            seen += walk.seen
            unseen += [(page, *stop) for stop in walk.unseen]
        print(f"{seen} of {seen + len(unseen)} stops can be seen", flush=True)
        self.assertEqual(unseen, [])


if __name__ == "__main__":
    unittest.main()
