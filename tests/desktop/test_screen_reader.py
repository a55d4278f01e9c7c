"""Reads the gallery page by page as a screen reader does, over a private accessibility bus: every control has a name, the role of its
kind, and a way to be reached; what the user does is told."""

import os
import re
import subprocess
import unittest

from desktop import Desktop, Program, wait_for

GALLERY = os.environ["GALLERY_PROGRAM"]

# The role of each class, and of plain Qt's class of its kind, beside which it stands.
ROLES = {
    "Velmora::QcButton": ("push button", "QPushButton"),
    "Velmora::QcPrimaryButton": ("push button", "QPushButton"),
    "Velmora::QcSecondaryButton": ("push button", "QPushButton"),
    "Velmora::QcTertiaryButton": ("push button", "QPushButton"),
    "Velmora::QcGhostButton": ("push button", "QPushButton"),
    "Velmora::QcHighlightButton": ("push button", "QPushButton"),
    "Velmora::QcIconButton": ("push button", "QPushButton"),
    "Velmora::QcTextButton": ("push button", "QPushButton"),
    "Velmora::QcTextLinkButton": ("push button", "QPushButton"),
    "Velmora::QcToolButton": ("push button", "QToolButton"),
    "Velmora::QcToolColorButton": ("push button", "QToolButton"),
    "Velmora::QcCombinedToolButton": ("panel", "QGroupBox"),
    "Velmora::QcMenuTextButton": ("push button", "QPushButton"),
    "Velmora::QcMenuToolButton": ("push button", "QToolButton"),
    "Velmora::QcCheckBox": ("check box", "QCheckBox"),
    "Velmora::QcSwitchButton": ("check box", "QCheckBox"),
    "Velmora::QcRadioButton": ("radio button", "QRadioButton"),
    "Velmora::QcLineEdit": ("text", "QLineEdit"),
    "Velmora::QcLineEditFrame": ("panel", "QGroupBox"),
    "Velmora::TextEdit": ("text", "QTextEdit"), # in each of the next two
    "Velmora::QcTextEditFrame": ("panel", "QGroupBox"),
    "Velmora::QcTextEditLimiter": ("panel", "QGroupBox"),
    "Velmora::QcSpinBox": ("spin button", "QSpinBox"),
    "Velmora::QcDoubleSpinBox": ("spin button", "QDoubleSpinBox"),
    "Velmora::QcSelector": ("combo box", "QComboBox"),
    "Velmora::QCSlider": ("slider", "QSlider"),
    "Velmora::QcLabel": ("label", "QLabel"),
    "Velmora::QcMultiLineText": ("label", "QLabel"),
    "Velmora::QcDockAreaTabBar": ("page tab list", "QTabBar"),
    "Velmora::QcDockAreaTabBarButton": ("page tab", "QTabBar"),
    "Velmora::QcDockWidget": ("panel", "QDockWidget"),
    "Velmora::QcSplitter": ("split pane", "QSplitter"),
}
# What is no control: it lies around some or above all, is no part of a page, or has no role but that of a plain widget. A scroll bar over
# a scroll area is none to Qt, which tells of the area's own.
NO_CONTROLS = {
    "Velmora::QcArrowTip", "Velmora::QcDialog", "Velmora::QcDockArea", "Velmora::QcDockAreaTabFrame", "Velmora::QcDockAreaTabStackedWidget",
    "Velmora::QcDockContainer", "Velmora::QcDockIndicator", "Velmora::QcDockMask", "Velmora::QcFrame", "Velmora::QcLoadingDialog",
    "Velmora::QcMaskFrame", "Velmora::QcMaskWindow", "Velmora::QcMenu", "Velmora::QcNotification", "Velmora::QcNotificationPage",
    "Velmora::QcProgressDialog", "Velmora::QcScrollBar", "Velmora::QcStackedWidget", "Velmora::QcToast", "Velmora::QcWindow",
}
# What a checkable button, and one of several, or one that is not, is to Qt, plain or not.
# A label that shows an icon is a picture.
KIN = {"push button": {"check box", "radio button"}, "radio button": {"check box"}, "label": {"icon", "image"}}
CONTROLS = ("push button", "check box", "radio button", "toggle button", "text", "spin button", "combo box", "slider", "link", "menu item",
            "page tab", "list item")


def public_widgets(headers):
    """The names of all widgets that the public headers tell of."""
    bases = {}
    for folder, _, files in os.walk(headers):
        for name in files:
            if name.endswith(".h") and not name.endswith("_p.h"):
                with open(os.path.join(folder, name), encoding="utf-8") as file:
                    bases.update(re.findall(r"^class VELMORA_EXPORT (\w+) : public (\w+)", file.read(), re.MULTILINE))

    def origin(name):
        return origin(bases[name]) if name in bases else name
    others = {"QObject", "QApplication", "QAction", "QIntValidator", "QDoubleValidator"}
    return {"Velmora::" + name for name in bases if origin(name) not in others}


def start_bus(desktop):
    """A session bus of the desktop's own, on which the accessibility bus starts by itself."""
    daemon = desktop.start(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"], log="bus.log", stdout=subprocess.PIPE)
    address = daemon.stdout.readline().strip()
    desktop.environment.update(DBUS_SESSION_BUS_ADDRESS=address, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    desktop.environment.pop("AT_SPI_BUS_ADDRESS", None)
    os.environ.update({key: desktop.environment[key] for key in ("DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "XDG_RUNTIME_DIR", "HOME")})
    os.environ.pop("AT_SPI_BUS_ADDRESS", None)


class Node:
    """What assistive technology asked for of one object."""

    def __init__(self, accessible, parent, index):
        self.accessible = accessible
        self.parent = parent
        self.index = index
        self.role = accessible.getRoleName()
        self.name = accessible.name
        self.states = {pyatspi.stateToString(state) for state in accessible.getState().getStates()}

    def place(self):
        """On the screen; nothing that has none is a control."""
        if "component" not in [name.lower() for name in pyatspi.listInterfaces(self.accessible)]:
            return (0, 0, 0, 0)
        box = self.accessible.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return (box.x, box.y, box.width, box.height)

    def actions(self):
        try:
            action = self.accessible.queryAction()
        except NotImplementedError:
            return []
        return [action.getName(number) for number in range(action.nActions)]

    def has_value(self):
        try:
            self.accessible.queryValue()
            return True
        except NotImplementedError:
            return False

    def do(self, name):
        self.accessible.queryAction().doAction(self.actions().index(name))

    def __repr__(self):
        path = f" in {self.parent.role} '{self.parent.name}'" if self.parent else ""
        return f"{self.role} '{self.name}'{path}"


def walk(accessible, parent=None, index=0):
    """What shows, from the root down."""
    node = Node(accessible, parent, index)
    if "showing" not in node.states and node.role != "application":
        return
    yield node
    for number in range(accessible.childCount):
        child = accessible.getChildAtIndex(number)
        if child is not None:
            yield from walk(child, node, number)


class Events:
    """What the program tells, from the moment of listening on."""

    def __init__(self, *kinds):
        self.told = []
        self.kinds = kinds
        pyatspi.Registry.registerEventListener(self._note, *kinds)

    def _note(self, event):
        try:
            self.told.append((str(event.type), event.detail1, event.source.getRoleName(), event.source.name))
        except (LookupError, GLib.Error):
            pass # it has gone since

    def wait(self, kind, role, name=None, detail=None):
        """Until an event of a kind came from an object of a role."""
        def came():
            pump()
            return [event for event in self.told if event[0].startswith(kind) and event[2] == role
                    and (name is None or name in event[3]) and (detail is None or event[1] == detail)]
        try:
            return wait_for(came, f"{kind} of a {role} {name or ''}", 20)[0]
        except AssertionError as error:
            raise AssertionError(f"{error}; told: {self.told[-20:]}") from None

    def end(self):
        pyatspi.Registry.deregisterEventListener(self._note, *self.kinds)


def pump():
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass


class ScreenReaderTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        global pyatspi, GLib
        cls.desktop = Desktop(1400, 900)
        cls.addClassCleanup(cls.desktop.close)
        cls.public = public_widgets(os.environ["PUBLIC_HEADERS"])
        start_bus(cls.desktop)
        import pyatspi # connects to the bus at once
        from gi.repository import GLib
        cls.gallery = Program(cls.desktop, GALLERY, "--page", "colours", "--table", "light")
        cls.root = wait_for(cls.find, "the gallery on the accessibility bus")

    @classmethod
    def find(cls):
        pump()
        return next((application for application in pyatspi.Registry.getDesktop(0) if application and application.name == "gallery"), None)

    @classmethod
    def tearDownClass(cls):
        cls.gallery.process.terminate()
        cls.gallery.wait_for_end()

    def window(self):
        return wait_for(lambda: next((child for child in self.root if child and "Velmora Gallery" in child.name), None), "the window")

    def nodes(self):
        return list(walk(self.root))

    def find_node(self, role, name):
        return next((node for node in self.nodes() if node.role == role and name == node.name), None)

    def page_items(self):
        pages = next(node for node in walk(self.window()) if node.role == "list" and node.name == "Pages")
        items = [pages.accessible.getChildAtIndex(number) for number in range(pages.accessible.childCount)]
        return [item for item in items if item.getState().contains(pyatspi.STATE_SELECTABLE)] # headings are not

    def title(self):
        return self.gallery.title().strip("\"").partition(" - ")[0]

    def show_page(self, title):
        """By the arrow keys, which go from page to page while the search field has the keyboard."""
        titles = [item.name for item in self.page_items()]
        steps = titles.index(title) - titles.index(self.title())
        self.gallery.click("searchField")
        if steps == 0:
            return
        self.desktop.keys(*(["Down" if steps > 0 else "Up"] * abs(steps)))
        wait_for(lambda: self.title() == title, f"the page {title}")
        wait_for(lambda: self.gallery.page.startswith(title + " - "), f"the classes of {title}")

    def is_specimen(self, node):
        x, y, width, height = node.place()
        return any(kind == "specimen" and left <= x and top <= y and x + width <= left + across and y + height <= top + down
                   for kind, _, left, top, across, down in self.gallery.classes)

    def is_edit_of_plain_combo_box(self, node):
        """Which Qt leaves without a name, whatever the box has for one."""
        if not node.parent or node.parent.role != "combo box":
            return False
        place = node.parent.place()
        return any(name == "QComboBox" and tuple(at) == place for _, name, *at in self.gallery.classes)

    def faults_of(self, nodes):
        for node in nodes:
            if node.role not in CONTROLS:
                continue
            if not node.name.strip() and not self.is_edit_of_plain_combo_box(node):
                yield "no name", repr(node)
            if "enabled" not in node.states:
                continue
            if "focusable" not in node.states and not node.actions() and not node.has_value() and not self.is_specimen(node):
                yield "cannot be reached", repr(node)
            if node.role in ("push button", "check box", "radio button", "link") and not node.actions():
                yield "no action", repr(node)
            if node.parent and node.accessible.getIndexInParent() not in (node.index, -1):
                yield "not where its parent has it", repr(node)

    def roles_missing(self, nodes):
        """Widgets whose class has a role and for which nothing of that role stands at their place, or has no row."""
        roles = {}
        for node in nodes:
            roles.setdefault(node.place(), set()).add(node.role)
        for _, name, *place in self.gallery.classes:
            if name in self.public and name not in ROLES and name not in NO_CONTROLS:
                yield "in no row", name
            role = ROLES.get(name, (None,))[0]
            found = roles.get(tuple(place), set())
            if role and role not in found and not found & KIN.get(role, set()) and place[2] > 0 and place[3] > 0:
                yield "not a " + role, f"{name} at {place}, but {sorted(found)}"

    def roles_missing_at_rest(self, nodes):
        """The same, when the page is laid out."""
        missing = list(self.roles_missing(nodes))

        def found():
            nonlocal missing
            missing = missing and list(self.roles_missing(list(walk(self.window()))))
            return not missing
        try:
            wait_for(found, "the roles", 5)
        except AssertionError:
            pass
        return missing

    def test_every_public_widget_has_a_row(self):
        rows = set(ROLES) - {"Velmora::TextEdit"} | NO_CONTROLS # which no header tells of
        self.assertEqual(sorted(self.public - rows), [], "has no role")
        self.assertEqual(sorted(rows - self.public), [], "is no more")

    def test_a_control_of_any_page_has_a_name_a_role_and_a_way_to_it(self):
        faults = []
        count = 0
        for title in [item.name for item in self.page_items()]:
            self.show_page(title)
            nodes = list(walk(self.window()))
            count += sum(node.role in CONTROLS for node in nodes)
            faults += [(title, *fault) for fault in self.faults_of(nodes)]
            faults += [(title, *fault) for fault in self.roles_missing_at_rest(nodes)]
        print(f"{count} controls were read", flush=True)
        self.assertGreater(count, 1000)
        self.assertEqual(faults, [], "\n" + "\n".join(map(str, faults)))

    # --- What the user does ---

    def listen(self, *kinds):
        events = Events(*kinds)
        self.addCleanup(events.end)
        return events

    def press(self, name):
        """As the reader does it for its user."""
        wait_for(lambda: self.find_node("push button", name), f"the button {name}").do("Press")

    def test_focus_and_toggling_are_told(self):
        self.show_page("Check, radio and switch")
        events = self.listen("object:state-changed:focused", "object:state-changed:checked")
        box = wait_for(lambda: self.find_node("check box", "Rulers"), "the check box")
        before = "checked" in box.states
        box.do("SetFocus")
        events.wait("object:state-changed:focused", "check box", "Rulers", 1)
        self.desktop.keys("space")
        events.wait("object:state-changed:checked", "check box", "Rulers", int(not before))
        box.do("Toggle")
        events.wait("object:state-changed:checked", "check box", "Rulers", int(before))

    def test_typing_is_told(self):
        events = self.listen("object:text-changed:insert", "object:text-changed:delete")
        self.gallery.click("searchField")
        self.desktop.keys("q")
        events.wait("object:text-changed:insert", "text", "Search pages")
        self.desktop.keys("BackSpace")
        events.wait("object:text-changed:delete", "text", "Search pages")

    def test_tab_tells_of_links_one_by_one_and_their_text_can_be_read(self):
        self.show_page("Multi-line text")
        events = self.listen("object:state-changed:focused")
        for name in ("inspection", "night train to Basel"):
            def reaches(name=name):
                pump()
                if [event for event in events.told if event[2] == "link" and event[3] == name]:
                    return True
                self.desktop.keys("Tab")
                return False
            wait_for(reaches, f"the link {name}", 30)
        text = next(node for node in self.nodes() if node.role == "label" and node.accessible.childCount == 2
                    and "focused" in Node(node.accessible.getChildAtIndex(1), node, 1).states).accessible.queryText()
        start = text.caretOffset
        self.assertTrue(text.getText(start, text.characterCount).startswith("night train to Basel"))
        word, begin, end = text.getTextAtOffset(start, pyatspi.TEXT_BOUNDARY_WORD_START)
        self.assertEqual((word.strip(), begin), ("night", start))
        box = text.getCharacterExtents(start, pyatspi.DESKTOP_COORDS)
        self.assertEqual(text.getOffsetAtPoint(box[0] + box[2] // 2, box[1] + box[3] // 2, pyatspi.DESKTOP_COORDS), start)

    def test_a_menu_is_told_item_by_item(self):
        self.show_page("Menu")
        events = self.listen("object:state-changed:focused", "object:state-changed:showing")
        button = wait_for(lambda: next((node for node in self.nodes() if node.name == "Submenus" and node.actions()), None), "the button")
        button.do("ShowMenu" if "ShowMenu" in button.actions() else "Press")
        wait_for(lambda: self.gallery.desktop.windows_of(self.gallery.process)[1:], "the menu")
        self.desktop.keys("Down")
        events.wait("object:state-changed:focused", "menu item", detail=1)
        self.desktop.keys("Escape")
        wait_for(lambda: not self.desktop.windows_of(self.gallery.process)[1:], "the menu to go")

    def test_a_toast_is_told(self):
        self.show_page("Toasts")
        events = self.listen("object:state-changed:showing")
        self.press("Pinned")
        events.wait("object:state-changed:showing", "alert", "You are offline.", 1)

    def test_a_notification_is_told(self):
        self.show_page("Notifications")
        events = self.listen("object:state-changed:showing")
        self.press("One message")
        events.wait("object:state-changed:showing", "alert", detail=1)

    def test_a_veil_is_told(self):
        self.show_page("Windows and dialogs")
        events = self.listen("object:state-changed:focused")
        self.press("Ask over a veil")
        dialog = wait_for(lambda: self.find_node("dialog", "Velmora question"), "the dialog")
        self.assertIn("modal", dialog.states)
        veil = wait_for(lambda: next((node for node in self.nodes() if node.role == "layered pane"), None), "the veil")
        self.assertIn("modal", veil.states)
        self.desktop.keys("Escape")
        wait_for(lambda: not self.find_node("dialog", "Velmora question"), "the dialog to go")
        events.wait("object:state-changed:focused", "push button")


if __name__ == "__main__":
    unittest.main()
