"""Checks that lupdate finds every text of the sources that a user can see.

check_texts.py LUPDATE INCLUDE_FOLDER SRC_FOLDER               check the folder
check_texts.py --self-check LUPDATE INCLUDE_FOLDER SRC_FOLDER  plant faults in copies of the folder, and see each of them found

INCLUDE_FOLDER is where <Velmora/X.h> is found: without it lupdate does not know the classes.
"""
import collections
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

# Calls that translate: not those of painters and rectangles, which move.
CALL = re.compile(r"(?:\bqApp\s*->\s*|(?<![\w.>]))(?:\w+::)*(?:translate|tr|QT_TR(?:ANSLATE)?_NOOP\d?)\s*\(")
# A text given as it stands to what shows it.
UNTRANSLATED = re.compile(
    r"\bset(?:Text|Title|WindowTitle|ToolTip|StatusTip|WhatsThis|PlaceholderText|AccessibleName|AccessibleDescription)"
    r"\s*\(\s*(?:(?!(?:\w+::)?(?:tr|translate)\s*\()\w+(?:::\w+)?\s*\(\s*)?\"[^\"]*[A-Za-z]")


def code_of(file):
    """The file's text without comments."""
    pattern = r'("(?:\\.|[^"\\\n])*")|//[^\n]*|/\*.*?\*/'
    return re.sub(pattern, lambda match: match.group(1) or " ", file.read_text(encoding="utf-8"), flags=re.DOTALL)


def found_by(lupdate, include, folder):
    """How many texts lupdate finds in each file, and what it has to say."""
    with tempfile.TemporaryDirectory() as output:
        catalogue = pathlib.Path(output) / "texts.ts"
        run = subprocess.run([lupdate, "-I", include, "-I", folder, "-locations", "absolute", folder, "-ts", catalogue],
                             capture_output=True, text=True)
        if run.returncode != 0:
            sys.exit(f"{lupdate} failed: {run.stderr}")
        places = xml.etree.ElementTree.parse(catalogue).iter("location")
        # Relative to the catalogue, where that is shorter.
        files = [(catalogue.parent / place.get("filename")).resolve() for place in places]
    return collections.Counter(files), run.stderr.strip()


def check(lupdate, include, folder):
    """The faults of the folder, each a line."""
    found, words = found_by(lupdate, include, folder)
    faults = [f"lupdate says: {words}"] if words else []
    total = 0
    for file in sorted(folder.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        code = code_of(file)
        calls = len(CALL.findall(code))
        total += calls
        name = file.relative_to(folder).as_posix()
        if calls != found[file.resolve()]:
            faults.append(f"{name} translates {calls} texts, of which lupdate finds {found[file.resolve()]}: "
                          "it reads context and text only where both are literal")
        faults += [f"{name} shows a text that is not translated: {match.group(0)}" for match in UNTRANSLATED.finditer(code)]
    if total == 0:
        faults.append(f"no text is translated in {folder}")
    return faults


# Code to add to a source, and words of the fault that must be found, or none.
PLANTED = [
    ('auto planted(const char *name) { return QCoreApplication::translate(name, "planted"); }', "translates"),
    ('auto planted(const char *text) { return QCoreApplication::translate("Planted", text); }', "translates"),
    ('void planted(QLabel *label) { label->setText(QStringLiteral("planted")); }', "not translated"),
    ('void planted(QLabel *label) { label->setAccessibleName("planted"); }', "not translated"),
    ('auto planted() { return QCoreApplication::translate("Planted", "found"); }', None),
    ('auto planted() { return qApp->translate("Planted", "found"); } // tr(nothing)', None),
    ('void planted(QLabel *label) { label->setText(QCoreApplication::translate("Planted", "set at once")); }', None),
    ('void planted(QPainter *painter, QLabel *label) { painter->translate(1, 2); label->setText(QStringLiteral("1")); }', None),
]


def self_check(lupdate, include, folder):
    before = set(check(lupdate, include, folder))
    for code, words in PLANTED:
        with tempfile.TemporaryDirectory() as scratch:
            copy = pathlib.Path(scratch) / "src"
            shutil.copytree(folder, copy)
            with open(copy / "planted.cpp", "w", encoding="utf-8") as file:
                file.write(f"#include <QtWidgets>\n{code}\n")
            new = [fault for fault in check(lupdate, include, copy) if fault not in before]
        if words and not any(fault.startswith("planted.cpp") and words in fault for fault in new):
            yield f"planted, not found: {code} ({new})"
        if not words and new:
            yield f"planted, wrongly blamed: {code} ({new})"


if __name__ == "__main__":
    *option, lupdate, include, folder = sys.argv[1:]
    folder = pathlib.Path(folder)
    faults = list(self_check(lupdate, include, folder)) if option == ["--self-check"] else check(lupdate, include, folder)
    print("\n".join(faults))
    sys.exit(1 if faults else 0)
