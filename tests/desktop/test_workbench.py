"""Works with the workbench by a real mouse and keyboard: tears panels off, drops them, and starts it again."""

import json
import os
import tempfile
import unittest

from desktop import EXPECTED_MESSAGE, MESSAGE, TIMEOUT, Desktop, wait_for

PROGRAM = os.environ["WORKBENCH_PROGRAM"]
FILES, OUTLINE, OUTPUT, PROPERTIES, FIRST_EDITOR = 1, 2, 3, 4, 100
DRAGGED = "#336fff" # the border of a panel that is being dragged: brand/brand of the light table


def areas_of(layout):
    """The types in each area, in the order of the tree."""
    if "dockWidgetList" in layout:
        return [[panel["type"] for panel in layout["dockWidgetList"]]]
    return [area for child in layout["children"] for area in areas_of(child)]


def current_types(layout):
    """The type of the panel in front in each area."""
    if "dockWidgetList" in layout:
        return [layout["dockWidgetList"][layout["currentIndex"]]["type"]]
    return [shown for child in layout["children"] for shown in current_types(child)]


class WorkbenchTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(1280, 900)
        cls.addClassCleanup(cls.desktop.close)

    def setUp(self):
        self.desktop.point_at(1270, 890)
        self.folder = os.path.join(self.desktop.folder, self.id())
        self.state = os.path.join(self.folder, "state")
        os.makedirs(os.path.join(self.folder, "texts"))
        for name, text in (("apples.md", "# Apples\n\nRed.\n"), ("pears.md", "# Pears\n\n## Green\n"), ("plums.txt", "Blue.\n")):
            with open(os.path.join(self.folder, "texts", name), "w", encoding="utf-8") as file:
                file.write(text)
        self.logs = []
        self.start()
        self.addCleanup(self.finish)

    def start(self):
        self.logs.append(f"{self.id()}-{len(self.logs)}.log")
        self.process = self.desktop.start([PROGRAM, os.path.join(self.folder, "texts"), "--state", self.state], log=self.logs[-1])
        self.window = wait_for(lambda: self.titled("Workbench"), "the window")
        wait_for(lambda: self.desktop.active_window() == self.window, "the window to be active")
        wait_for(lambda: self.desktop.pixel(*self.at(550, 300)) == "#ffffff", "the editor")

    def close(self):
        """As the desktop does it, so that the program may keep its layout."""
        self.desktop.run("xdotool", "windowactivate", self.window)
        wait_for(lambda: self.desktop.active_window() == self.window, "the window to be active")
        self.close_by_key(lambda: self.process.poll() is not None, "the program to end")
        self.assertEqual(self.process.returncode, 0)

    def close_by_key(self, is_closed, what):
        """The window manager may be late to take the keyboard for its key: then it is pressed again, as by hand."""
        for _ in range(10):
            self.desktop.keys(self.desktop.manager.close)
            try:
                return wait_for(is_closed, what, 6)
            except AssertionError:
                pass
        raise AssertionError(f"waited in vain for {what}")

    def finish(self):
        self.desktop.release()
        if self.process.poll() is None:
            self.process.terminate()
            self.process.wait(TIMEOUT)
        for name in self.logs:
            log = self.desktop.log(name)
            complaints = [message for message in MESSAGE.findall(log) if not EXPECTED_MESSAGE.fullmatch(message)]
            self.assertEqual(complaints + MESSAGE.sub("", log).splitlines(), [])

    def titled(self, title):
        for window in self.desktop.windows_of(self.process):
            if self.desktop.property(window, "_NET_WM_NAME") == f'"{title}"':
                return window
        return None

    def at(self, dx, dy):
        x, y, _, _ = self.desktop.geometry(self.window)
        return x + dx, y + dy

    def layout(self):
        """Saves the layout by its button and reads the file."""
        path = os.path.join(self.state, "saved-layout.json")
        if os.path.exists(path):
            os.remove(path)
        self.desktop.click(*self.at(*self.SAVE))
        wait_for(lambda: os.path.exists(path), "the saved layout")
        with open(path, encoding="utf-8") as file:
            return json.load(file)

    def areas(self):
        return areas_of(self.layout())

    def drag(self, title, start, end):
        """Until the panel has come: it goes where the mouse is when the program hears of a press or a move, not where it was then."""
        self.desktop.point_at(*start)
        self.desktop.press()
        wait_for(lambda: self.is_torn(title, start), "the panel to be torn out")
        for step in range(1, 11):
            self.desktop.point_at(*(a + (b - a) * step // 10 for a, b in zip(start, end)))
        wait_for(lambda: self.is_under(title, end), "the panel under the mouse")

    def is_torn(self, title, start):
        """If not, the hand goes on moving: what came before the program heard of the press is no move of the drag."""
        for dx in (4, 8):
            self.desktop.point_at(start[0] + dx, start[1])
        return self.titled(title)

    def is_under(self, title, at):
        """Whether a floating panel's title row is at a place."""
        x, y, width, _ = self.floating(title) or (0, 0, 0, 0)
        return x <= at[0] < x + width and y <= at[1] < y + 30

    def floating(self, title):
        window = self.titled(title)
        return window and self.desktop.geometry(window)

    def border(self, title):
        x, y, _, _ = self.floating(title) or (0, 0, 0, 0)
        return self.desktop.pixel(x, y + 60)

    def drop(self, title, docks):
        """The mouse stays until it is over, since the drop is where the mouse is when the program hears of it."""
        if docks:
            self.desktop.release()
            wait_for(lambda: not self.titled(title), "the drop")
        else:
            wait_for(lambda: self.border(title) == DRAGGED, "the border of a dragged panel")
            self.desktop.release()
            wait_for(lambda: self.border(title) != DRAGGED, "the drop")

    def wait_for_layout(self, is_right, what):
        return wait_for(lambda: (layout := self.layout()) and is_right(layout) and layout, what)

    def picture(self):
        """The window's inside without a caret."""
        self.desktop.click(*self.at(100, 600)) # the keyboard is in the outline
        self.desktop.point_at(1270, 890)
        x, y, width, height = self.desktop.geometry(self.window)
        with tempfile.NamedTemporaryFile(suffix=".rgb") as file:
            self.desktop.run("import", "-silent", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8",
                             f"rgb:{file.name}")
            return file.read()

    FIRST = [[FILES], [OUTLINE], [FIRST_EDITOR, FIRST_EDITOR + 1], [OUTPUT], [PROPERTIES]]
    SAVE, LOAD, RESET, SECOND_WINDOW = ((64 + 120 * column, 18) for column in range(4)) # the tool row's buttons
    PROPERTIES_TITLE = (950, 52)
    BEFORE_PROPERTIES = (876, 400) # the splitter's handle
    FILES_CENTRE = (140, 201) # once the properties have left

    def drag_to_files(self):
        self.drag("Properties", self.at(*self.PROPERTIES_TITLE), self.at(*self.FILES_CENTRE))
        wait_for(lambda: self.desktop.pixel(*self.at(40, 150)) != "#ffffff", "the preview over the files")
        self.drop("Properties", docks=True)

    def test_the_first_layout(self):
        self.assertEqual(self.areas(), self.FIRST)

    def test_what_is_typed_at_the_start_goes_into_the_editor_in_front(self):
        self.desktop.type("More. ")
        self.desktop.keys("ctrl+s")

        def is_saved():
            with open(os.path.join(self.folder, "texts", "apples.md"), encoding="utf-8") as file:
                return file.read().startswith("More. # Apples")

        wait_for(is_saved, "the saved text")

    def test_a_file_that_is_open_behind_another_comes_forward_when_it_is_chosen(self):
        self.assertEqual(current_types(self.layout())[2], FIRST_EDITOR)
        self.desktop.click(*self.at(40, 104)) # the second file
        self.desktop.keys("Return")
        self.wait_for_layout(lambda layout: current_types(layout)[2] == FIRST_EDITOR + 1, "the other editor in front")
        self.assertEqual(self.areas(), self.FIRST)

    def test_a_panel_dropped_on_another_is_a_tab_beside_it_also_after_the_next_start(self):
        self.drag_to_files()
        before = self.picture()
        self.close()
        self.start()
        wait_for(lambda: self.picture() == before, "the same picture")
        self.assertEqual(self.areas(), [[FILES, PROPERTIES]] + self.FIRST[1:4])

    def test_a_panel_torn_out_stays_where_it_was_dropped_also_after_the_next_start(self):
        self.drag("Properties", self.at(*self.PROPERTIES_TITLE), self.at(900, -60))
        self.drop("Properties", docks=False)
        layout = self.wait_for_layout(lambda layout: "floatingWidgets" in layout, "a floating panel")
        self.assertEqual(areas_of(layout), self.FIRST[:4])
        place = layout["floatingWidgets"]
        self.close()
        self.start()
        self.assertEqual(self.wait_for_layout(lambda layout: "floatingWidgets" in layout, "it again")["floatingWidgets"], place)
        wait_for(lambda: self.titled("Properties"), "the floating panel")

    def test_a_saved_layout_comes_back_after_another_one(self):
        before = self.layout()
        self.drag_to_files()
        self.assertEqual(self.desktop.pixel(*self.at(*self.BEFORE_PROPERTIES)), "#ffffff")
        self.desktop.click(*self.at(*self.LOAD))
        wait_for(lambda: self.desktop.pixel(*self.at(*self.BEFORE_PROPERTIES)) != "#ffffff", "the loaded layout") # before the next save
        self.assertEqual(areas_of(self.wait_for_layout(lambda layout: areas_of(layout) == self.FIRST, "the first layout")), areas_of(before))

    def test_an_editor_with_changes_asks_before_it_closes(self):
        self.desktop.click(*self.at(500, 200))
        self.desktop.type("More. ")
        self.desktop.click(*self.at(410, 53)) # the close button of its tab
        dialog = wait_for(lambda: self.titled("Unsaved changes"), "the question")
        wait_for(lambda: self.desktop.active_window() == dialog, "the question to be active")
        self.desktop.keys("Escape")
        wait_for(lambda: not self.titled("Unsaved changes"), "the question to go")
        self.assertEqual(self.areas(), self.FIRST)
        self.desktop.click(*self.at(410, 53))
        dialog = wait_for(lambda: self.titled("Unsaved changes"), "the question")
        wait_for(lambda: self.desktop.active_window() == dialog, "the question to be active")
        self.desktop.keys("Return")
        self.wait_for_layout(lambda layout: areas_of(layout) == [[FILES], [OUTLINE], [FIRST_EDITOR + 1], [OUTPUT], [PROPERTIES]], "one editor")

    def test_what_a_second_window_held_comes_back_when_it_closes(self):
        # Side by side: where windows overlap, an area of the older one takes the panel.
        self.desktop.place(self.window, 10, 100, size=(700, 700))
        self.desktop.click(*self.at(*self.SECOND_WINDOW))
        second = wait_for(lambda: self.titled("Second window"), "the second window")
        wait_for(lambda: self.desktop.active_window() == second, "it to be active")
        self.desktop.place(second, 760, 300)
        x, y, width, height = self.desktop.geometry(second)
        ground = wait_for(lambda: (pixel := self.desktop.pixel(x + 20, y + 100)) not in ("#000000", "#ffffff") and pixel, "the second window's ground")
        self.drag("Properties", self.at(580, 52), (x + width // 2, y + height // 2))
        wait_for(lambda: self.desktop.pixel(x + 20, y + 100) != ground, "the preview over the second window")
        self.drop("Properties", docks=True)
        self.desktop.run("xdotool", "windowactivate", self.window)
        self.wait_for_layout(lambda layout: areas_of(layout) == self.FIRST[:4] and "floatingWidgets" not in layout, "a panel in the second window")
        self.desktop.run("xdotool", "windowactivate", second)
        wait_for(lambda: self.desktop.active_window() == second, "it to be active")
        self.close_by_key(lambda: not self.titled("Second window"), "the second window to go")
        self.wait_for_layout(lambda layout: PROPERTIES in sum(areas_of(layout), []), "the panel to be back")

    def test_where_no_layout_was_saved_a_load_leaves_the_second_window(self):
        self.desktop.place(self.window, 10, 100, size=(700, 700))
        self.desktop.click(*self.at(*self.SECOND_WINDOW))
        second = wait_for(lambda: self.titled("Second window"), "the second window")
        wait_for(lambda: self.desktop.active_window() == second, "it to be active")
        self.desktop.place(second, 760, 300)
        self.desktop.click(*self.at(*self.LOAD))
        self.assertEqual(self.areas(), self.FIRST) # the next click, so the load is over
        self.assertEqual(self.titled("Second window"), second)


if __name__ == "__main__":
    unittest.main()
