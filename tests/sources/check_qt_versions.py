"""Checks that what differs between Qt 5 and Qt 6 stays in one place.

check_qt_versions.py PROJECT_FOLDER               check the sources
check_qt_versions.py --self-check PROJECT_FOLDER  plant faults in copies of the sources, and see each of them found

Beside the compatibility header, ten conditions on Qt's version may stand in all C++ code, each with its reason: a comment on its line
or the line before.
"""
import pathlib
import re
import shutil
import sys
import tempfile

HEADER = "src/core/QtCompatibility.h"
MOST = 10
FOLDERS = ("src", "designer", "examples", "tests", "benchmarks")
CONDITION = re.compile(r"^\s*#\s*(?:if|elif)\b.*\bQT_VERSION(?:_MAJOR)?\b")
COMMENT = re.compile(r"//|^\s*\*/")


def check(project):
    """The faults of the sources, each a line."""
    faults = []
    places = []
    for folder in FOLDERS:
        for file in sorted((project / folder).rglob("*")):
            name = file.relative_to(project).as_posix()
            if file.suffix not in (".h", ".cpp") or name == HEADER:
                continue
            lines = file.read_text(encoding="utf-8").split("\n")
            for i, line in enumerate(lines):
                if not CONDITION.match(line):
                    continue
                places.append(f"{name}:{i + 1}")
                if not COMMENT.search(line) and (i == 0 or not COMMENT.search(lines[i - 1])):
                    faults.append(f"{name}:{i + 1} asks for Qt's version and gives no reason")
    if len(places) > MOST:
        faults.append(f"{len(places)} conditions on Qt's version, of which {MOST} are allowed: {', '.join(places)}")
    if not any(CONDITION.match(line) for line in (project / HEADER).read_text(encoding="utf-8").split("\n")):
        faults.append(f"{HEADER} has no condition: is it still the place?")
    return faults


def self_check(project):
    """Each planted fault is found."""
    condition = "#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)"
    plants = {
        "a condition without a reason": (f"int before;\n{condition}\n#endif\n", "gives no reason"),
        "more conditions than are allowed": (f"// Because.\n{condition}\n#endif\n" * (MOST + 1), "are allowed"),
    }
    for what, (text, told) in plants.items():
        with tempfile.TemporaryDirectory() as copy:
            for folder in FOLDERS:
                shutil.copytree(project / folder, pathlib.Path(copy) / folder)
            (pathlib.Path(copy) / "src/core/Planted.h").write_text(text, encoding="utf-8")
            if not any(told in fault for fault in check(pathlib.Path(copy))):
                return [f"not found: {what}"]
    return []


def main():
    arguments = sys.argv[1:]
    wants_self_check = arguments[:1] == ["--self-check"]
    project = pathlib.Path(arguments[-1]).resolve()
    faults = self_check(project) if wants_self_check else check(project)
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()
