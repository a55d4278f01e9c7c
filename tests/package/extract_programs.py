"""Writes each code block of a document whose first line is a comment with a file name to that file.

extract_programs.py DOCUMENT FOLDER FILE...
"""
import pathlib
import re
import sys

document, folder, *names = sys.argv[1:]
folder = pathlib.Path(folder)
folder.mkdir(parents=True, exist_ok=True)

found = []
for block in re.findall(r"^```\w*\n(.*?)^```$", pathlib.Path(document).read_text(), re.MULTILINE | re.DOTALL):
    named = re.match(r"(?://|#|;) ([\w.]+)\n", block)
    if named:
        found.append(named.group(1))
        (folder / named.group(1)).write_text(block)
if sorted(found) != sorted(names):
    sys.exit(f"{document} holds {sorted(found)}, not {sorted(names)}")
