"""Writes each code block of a document whose first line is a comment with a file name to that file.

extract_programs.py [--with-additions] DOCUMENT FOLDER FILE...

A block for "FILE, at its end" is added to that file with --with-additions, and left out without.
"""
import pathlib
import re
import sys

with_additions = sys.argv[1] == "--with-additions"
document, folder, *names = sys.argv[1 + with_additions:]
folder = pathlib.Path(folder)
folder.mkdir(parents=True, exist_ok=True)

found = []
for block in re.findall(r"^```\w*\n(.*?)^```$", pathlib.Path(document).read_text(), re.MULTILINE | re.DOTALL):
    named = re.match(r"(?://|#|;) ([\w.]+)(, at its end)?(?::.*)?\n", block)
    if named and named.group(2):
        if with_additions:
            with open(folder / named.group(1), "a", encoding="utf-8") as file:
                file.write(block)
    elif named:
        found.append(named.group(1))
        (folder / named.group(1)).write_text(block)
if sorted(found) != sorted(names):
    sys.exit(f"{document} holds {sorted(found)}, not {sorted(names)}")
