"""Checks that the README's smallest program is the one of examples/hello, word for word.

compare_hello.py README PROGRAM
"""
import pathlib
import re
import sys

readme, program = (pathlib.Path(argument).read_text(encoding="utf-8") for argument in sys.argv[1:])
block = re.search(r"^```cpp\n// main\.cpp\n(.*?)^```$", readme, re.MULTILINE | re.DOTALL)
if not block:
    sys.exit("the README has no block that begins with // main.cpp")
if block.group(1) != program:
    sys.exit("the README's smallest program differs from examples/hello/main.cpp")
