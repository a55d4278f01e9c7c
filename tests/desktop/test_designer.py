"""Designs a form in Qt Designer with the plugin, by mouse and keyboard, and reads the file that it saves."""

import os
import re
import unittest
import xml.etree.ElementTree as xml

from desktop import MESSAGE, TIMEOUT, Desktop, wait_for

DESIGNER = os.environ["DESIGNER_PROGRAM"]
PLUGINS = os.environ["DESIGNER_PLUGINS"]
TABLES = os.environ["COLOUR_TABLES"]
SCREEN = (1500, 900)
ACCENT = bytes.fromhex("2f7bf5") # of the icons
TARGET = bytes.fromhex("ff00ff") # of a frame on the form, onto which controls are dropped
FORM = """<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <property name="geometry"><rect><x>0</x><y>0</y><width>420</width><height>300</height></rect></property>
  <property name="windowTitle"><string>Form</string></property>
  <widget class="Velmora::QcFrame" name="target">
   <property name="geometry"><rect><x>40</x><y>40</y><width>300</width><height>200</height></rect></property>
   <property name="backgroundColorParams"><string notr="true">#FF00FF</string></property>
  </widget>
 </widget>
 <customwidgets>
  <customwidget>
   <class>Velmora::QcFrame</class><extends>QFrame</extends><header location="global">Velmora/QcFrame.h</header>
   <container>1</container>
  </customwidget>
 </customwidgets>
</ui>
"""


def token(table, name):
    """The bytes of a colour, as the screen shows it."""
    with open(os.path.join(TABLES, table), encoding="utf-8-sig") as file:
        value = re.search(rf"^{re.escape(name)}\s*=\s*#(\w{{6}})", file.read(), re.MULTILINE)
    return bytes.fromhex(value.group(1).lower())


class DesignerTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(*SCREEN)
        cls.addClassCleanup(cls.desktop.close)
        cls.desktop.environment["QT_PLUGIN_PATH"] = PLUGINS

    def setUp(self):
        self.log_name = self.id() + ".log"
        self.file = os.path.join(self.desktop.folder, "form.ui")
        with open(self.file, "w", encoding="utf-8") as file:
            file.write(FORM)
        self.process = self.desktop.start([DESIGNER, self.file], log=self.log_name)
        self.addCleanup(self.finish)
        self.window = wait_for(self.main_window, "Designer's window")
        wait_for(lambda: self.find(TARGET), "the frame on the form")

    def finish(self):
        self.process.kill() # it would ask whether to save
        self.process.wait(TIMEOUT)
        ours = [message for message in MESSAGE.findall(self.desktop.log(self.log_name))
                if re.search("Velmora|Qc[A-Z]", message) and not message.startswith("QcStyleManager::LoadFont")]
        self.assertEqual(ours, [])

    def main_window(self):
        for window in self.desktop.windows_of(self.process):
            if "Qt Designer" in self.desktop.property(window, "_NET_WM_NAME"):
                return window
        return None

    def find(self, colour, left=0, right=SCREEN[0]):
        """The centre of all that has a colour on the screen, between two columns; null if nothing has."""
        rows = self.desktop.picture(left, 0, right - left, SCREEN[1])
        places = []
        for y, row in enumerate(rows):
            at = row.find(colour)
            while at >= 0:
                if at % 3 == 0:
                    places.append((left + at // 3, y))
                at = row.find(colour, at + 1)
        if not places:
            return None
        xs, ys = zip(*places)
        return (min(xs) + max(xs)) // 2, (min(ys) + max(ys)) // 2

    def offer(self, title):
        """Has the widget box show one control only, and says where."""
        self.desktop.click(120, self.filter_row())
        self.desktop.keys("ctrl+a")
        self.desktop.type(title)
        return wait_for(lambda: self.find(ACCENT, right=250), f"{title} in the widget box")

    def filter_row(self):
        return 110

    def drop(self, start, end, arrived):
        """As a hand does it, which drops again what Designer was too busy to take."""
        steps = [(start[0] + (end[0] - start[0]) * step // 10, start[1] + (end[1] - start[1]) * step // 10) for step in range(11)]
        for _ in range(20):
            self.desktop.point_at(*start)
            self.desktop.press()
            for place in steps + steps[-2:] * 5: # the last ones are over the form
                self.desktop.point_at(*place)
            self.desktop.release()
            try:
                return wait_for(arrived, "what was dropped", 3)
            except AssertionError:
                self.desktop.keys("Escape")
        raise AssertionError("nothing was dropped")

    def saved(self):
        self.desktop.keys("ctrl+s")
        before = FORM

        def changed():
            with open(self.file, encoding="utf-8") as file:
                text = file.read()
            return text if text != before and text.rstrip().endswith("</ui>") else None

        return xml.fromstring(wait_for(changed, "the saved form"))

    def test_a_control_dragged_onto_a_form_is_in_the_file_with_its_include(self):
        x, y = self.offer("Primary Button")
        to_x, to_y = self.find(TARGET)
        blue = token("blue_light.ini", "brand/brand")
        self.drop((x, y), (to_x, to_y), lambda: self.find(blue, left=to_x - 100, right=to_x + 160))
        form = self.saved()
        button = form.find(".//widget[@name='target']/widget")
        self.assertEqual(button.get("class"), "Velmora::QcPrimaryButton")
        custom = {entry.findtext("class"): entry for entry in form.iter("customwidget")}["Velmora::QcPrimaryButton"]
        self.assertEqual(custom.findtext("extends"), "QPushButton")
        self.assertEqual(custom.findtext("header"), "Velmora/QcPrimaryButton.h")
        self.assertEqual(custom.find("header").get("location"), "global")

    def test_a_colour_chosen_from_the_context_menu_is_painted_and_saved_for_no_translator(self):
        x, y = self.find(TARGET)
        self.desktop.click(x, y, button=3)
        wait_for(lambda: self.desktop.pixel(x + 40, y + 30) != "#" + TARGET.hex(), "the context menu")
        self.desktop.keys("Down", "Return")
        wait_for(lambda: "backgroundColorParams" in self.desktop.property(self.desktop.active_window(), "_NET_WM_NAME"), "the chooser")
        self.desktop.keys("Tab", "Tab", "ctrl+a") # behind the search and the list the code
        self.desktop.type("#00FE00")
        self.desktop.keys("Return")
        wait_for(lambda: self.find(bytes.fromhex("00fe00")), "the chosen colour")
        code = self.saved().find(".//widget[@name='target']/property[@name='backgroundColorParams']/string")
        self.assertEqual((code.text, code.get("notr")), ("#00FE00", "true"))

    def test_the_menu_shows_the_form_on_the_ground_of_another_table(self):
        light, dark = (token(table, "bg/bg_box") for table in ("blue_light.ini", "blue_dark.ini"))
        x, y = self.find(TARGET)
        beside = (x - 170, y)
        self.assertEqual(self.desktop.pixel(*beside), "#" + light.hex())
        self.desktop.keys("alt+m", "d")
        wait_for(lambda: self.desktop.pixel(*beside) == "#" + dark.hex(), "the ground of the dark table")
        self.desktop.keys("alt+m", "l")
        wait_for(lambda: self.desktop.pixel(*beside) == "#" + light.hex(), "the ground of the light table")
        with open(self.file, encoding="utf-8") as file:
            self.assertEqual(file.read(), FORM) # nothing is kept


if __name__ == "__main__":
    unittest.main()
