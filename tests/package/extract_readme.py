"""Writes each code block of the README whose first line is a comment with a file name to that file.

extract_readme.py README FOLDER
"""
import pathlib
import re
import sys

readme, folder = sys.argv[1:]
folder = pathlib.Path(folder)
folder.mkdir(parents=True, exist_ok=True)

expected = {"CMakeLists.txt", "main.cpp", "LevelBar.h", "my_colors.ini"}
found = set()
for block in re.findall(r"^```\w*\n(.*?)^```$", pathlib.Path(readme).read_text(), re.MULTILINE | re.DOTALL):
    named = re.match(r"(?://|#|;) ([\w.]+)\n", block)
    if named:
        found.add(named.group(1))
        (folder / named.group(1)).write_text(block)
if found != expected:
    sys.exit(f"the README holds {sorted(found)}, not {sorted(expected)}")
