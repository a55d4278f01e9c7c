"""Checks that no source includes what stands above it or beside it, but for the arrows that docs/architecture.md names.

check_floors.py ROOT               check the tree
check_floors.py --self-check ROOT  plant faults in copies of the tree, and see each of them found
"""
import pathlib
import re
import shutil
import sys
import tempfile

PAGE = pathlib.Path("docs/architecture.md")
GENERATED = {"Velmora/VelmoraExport.h"}


class Page:
    """What docs/architecture.md says of the rooms."""

    def __init__(self, root):
        text = (root / PAGE).read_text(encoding="utf-8")
        order = re.search(r"^From the ground up: (.+?)\.", text, re.MULTILINE | re.DOTALL)
        self.floor_of = {}
        for floor, rooms in enumerate(order.group(1).split("<") if order else []):
            self.floor_of.update((room, floor) for room in re.findall(r"`(\w+)`", rooms))
        self.alone = set(re.findall(r"^`(\w+)` stands alone", text, re.MULTILINE))
        self.arrows = set(re.findall(r"^\| `(\w+/\w+\.\w+)` \| `(\w+/\w+\.h)` \|", text, re.MULTILINE))
        self.drawn = re.findall(r"^ src/(\w+) ", text, re.MULTILINE)

    def faults(self):
        if not self.floor_of:
            yield f"{PAGE} has no line \"From the ground up: `room` < `room`, `room` < ....\""
        floors = [self.floor_of[room] for room in self.drawn if room in self.floor_of]
        if floors != sorted(floors, reverse=True):
            yield f"{PAGE} draws the rooms in another order than it names them"

    def allows(self, room, other):
        if room == other:
            return True
        return {room, other} <= self.floor_of.keys() and self.floor_of[other] < self.floor_of[room]


def includes_of(file):
    return re.findall(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', file.read_text(encoding="utf-8"), re.MULTILINE)


def check(root):
    """The faults of the tree at root, each a line."""
    source = root / "src"
    files = sorted(file for file in source.rglob("*") if file.suffix in (".h", ".cpp"))
    public = {file.name: file for file in files if file.suffix == ".h" and not file.name.endswith("_p.h")}
    page = Page(root)
    faults = list(page.faults())
    rooms = {file.relative_to(source).parts[0] for file in files}
    faults += [f"src/{room} is not among the rooms that {PAGE} orders and draws" for room in sorted(rooms)
               if room not in page.drawn or room not in page.floor_of.keys() | page.alone]

    met = set()
    for file in files:
        name = file.relative_to(source).as_posix()
        for form, written in includes_of(file):
            if form == "<":
                if not written.startswith("Velmora/") or written in GENERATED:
                    continue
                target = public.get(written[len("Velmora/"):])
            elif written == f"{file.stem}.moc" or written == f"moc_{file.stem}.cpp":
                continue
            else:
                target = next((path for path in (file.parent / written, source / written) if path.is_file()), None)
            if not target:
                faults.append(f"src/{name} includes {written}, which is no header of ours")
                continue
            other = target.resolve().relative_to(source.resolve()).as_posix()
            arrow = (name, other)
            if page.allows(name.split("/")[0], other.split("/")[0]):
                continue
            if arrow in page.arrows:
                met.add(arrow)
            else:
                faults.append(f"src/{name} includes {other}, which does not stand below it")
    faults += [f"{PAGE} names an arrow from {name} to {other} that is not there" for name, other in sorted(page.arrows - met)]
    return faults


# A file below the root, a line to add at its end, and words of the fault that must be found.
PLANTED = [
    ("src/core/QcTaskDispatcher.cpp", "#include <Velmora/QcStyleManager.h>", "does not stand below it"),
    ("src/theme/ColorTable_p.h", "#include <Velmora/QcFrame.h>", "does not stand below it"),
    ("src/theme/ColorTable.cpp", '#include "windows/Veil_p.h"', "does not stand below it"),
    ("src/display/QcLabel.cpp", '#  include "../buttons/QcButton.h"', "does not stand below it"),
    ("src/buttons/QcButton.cpp", '\n#ifdef Q_OS_WIN\n#include "inputs/QcLineEdit.h"\n#endif', "does not stand below it"),
    ("src/theme/ImageCache.cpp", "#include <Velmora/XlsxZip.h>", "does not stand below it"),
    ("src/xlsx/XlsxZip.cpp", "#include <Velmora/ContextProvider.h>", "does not stand below it"),
    ("src/menus/QcMenu.cpp", "#include <Velmora/QcLineEdit.h>", "does not stand below it"),
    ("src/display/QcLabel.cpp", "#include <Velmora/Velmora.h>", "no header of ours"),
    ("src/display/QcLabel.cpp", "#include <Velmora/Missing.h>", "no header of ours"),
    ("src/display/QcLabel.cpp", '#include "theme/Missing_p.h"', "no header of ours"),
    ("src/attic/QcThing.h", "#pragma once", "not among the rooms"),
    (PAGE, "\n| `display/QcLabel.cpp` | `windows/QcWindow.h` | an arrow of the past |", "that is not there"),
    (PAGE, "\n src/windows  drawn below core", "in another order"),
]
HARMLESS = [
    ("src/core/QcTaskDispatcher.cpp", "// #include <Velmora/QcButton.h>"),
    ("src/windows/QcDialog.cpp", "#include <Velmora/QcLineEdit.h>\n#include <QDebug>\n#include \"core/ApplicationEvents_p.h\""),
]


def with_addition(root, name, line):
    """The faults of a copy of the tree with a line added to one of its files."""
    with tempfile.TemporaryDirectory() as folder:
        copy = pathlib.Path(folder)
        shutil.copytree(root / "src", copy / "src")
        (copy / PAGE).parent.mkdir()
        shutil.copy(root / PAGE, copy / PAGE)
        (copy / name).parent.mkdir(exist_ok=True)
        with open(copy / name, "a", encoding="utf-8") as file:
            file.write(line + "\n")
        return check(copy)


def self_check(root):
    before = set(check(root))
    for name, line, words in PLANTED:
        new = [fault for fault in with_addition(root, name, line) if fault not in before]
        if not any(words in fault for fault in new):
            yield f"planted in {name}, not found: {line.strip()} ({new})"
    for name, line in HARMLESS:
        new = set(with_addition(root, name, line)) - before
        if new:
            yield f"planted in {name}, wrongly blamed: {line.strip()} ({new})"


if __name__ == "__main__":
    *option, folder = sys.argv[1:]
    found = list(self_check(pathlib.Path(folder))) if option == ["--self-check"] else check(pathlib.Path(folder))
    print("\n".join(found))
    sys.exit(1 if found else 0)
