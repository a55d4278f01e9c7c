"""Compares the symbols that the library exports with what its installed headers mark for export.

check_symbols.py NM LIBRARY HEADER_DIR
"""
import pathlib
import re
import subprocess
import sys

nm, library, header_dir = sys.argv[1:]

exported = set()
with_symbols = set() # a plain record has none
for header in pathlib.Path(header_dir).glob("*.h"):
    text = re.sub(r"//[^\n]*", "", header.read_text())
    exported |= set(re.findall(r"\b(?:class|struct)\s+VELMORA_EXPORT\s+(\w+)", text))
    functions = re.findall(r"^VELMORA_EXPORT\s[^;]*?\b(\w+)\s*\(", text, re.MULTILINE)
    exported |= set(functions)
    with_symbols |= set(functions) | set(re.findall(r"\bclass\s+VELMORA_EXPORT\s+(\w+)[^;{]*\{\s*Q_OBJECT", text))


def without_templates(name):
    while True:
        shorter = re.sub(r"<[^<>]*>", "", name)
        if shorter == name:
            return name
        name = shorter


seen = set()
faults = []
lines = subprocess.run([nm, "-D", "-C", "--defined-only", library], check=True, capture_output=True, text=True).stdout.splitlines()
for line in lines:
    kind, symbol = line[17:].split(" ", 1)
    if symbol in ("_init", "_fini", "_edata", "_end", "__bss_start"):
        continue
    name = re.sub(r"^(vtable for|typeinfo for|typeinfo name for|VTT for|guard variable for|(non-)?virtual thunk to) ", "", symbol)
    name = without_templates(name)
    # Instances of the standard library's and Qt's templates are weak everywhere, and shared between all users.
    if kind in "WVu" and not re.match(r"Velmora\b", name):
        continue
    owner = re.match(r"Velmora::(?:QcTaskDispatcher::(?=MainThreadTaskInfo))?(\w+)", name)
    if owner and owner.group(1) in exported:
        seen.add(owner.group(1))
    else:
        faults.append(f"leaked: {symbol}")

faults += [f"marked for export, but no symbol: {name}" for name in sorted(with_symbols - seen)]
if not with_symbols:
    faults.append(f"no header in {header_dir} exports anything")
print("\n".join(faults) or f"{len(lines)} symbols of {len(seen)} classes and functions")
sys.exit(1 if faults else 0)
