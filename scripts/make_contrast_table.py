#!/usr/bin/env python3
"""Write the table of contrasts in docs/accessibility.md, as print_contrast computes it from tables, stylesheets and painting.

make_contrast_table.py PROGRAM          write the table that PROGRAM prints: build/dev/tests/contrast/print_contrast
make_contrast_table.py --check PROGRAM  exit with 1 when the document differs from what would be written
"""

import argparse
import os
import subprocess
import sys
from pathlib import Path

DOCUMENT = Path(__file__).resolve().parent.parent / "docs" / "accessibility.md"
BEGIN = "<!-- Written by scripts/make_contrast_table.py: change what the tests compute, not this table. -->\n"
END = "<!-- The end of what it wrote. -->\n"


def with_table(text, table):
    head, begin, rest = text.partition(BEGIN)
    _, end, tail = rest.partition(END)
    if not (begin and end):
        sys.exit("docs/accessibility.md has no place for the table")
    return head + BEGIN + table + END + tail


def main():
    parser = argparse.ArgumentParser(description="make_contrast_table.py: write the table of contrasts in docs/accessibility.md.")
    parser.add_argument("program", metavar="PROGRAM", help="print_contrast, built with the tests")
    parser.add_argument("--check", action="store_true", help="write nothing; fail when the document is out of date")
    arguments = parser.parse_args()

    run = subprocess.run([arguments.program], env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, stdin=subprocess.DEVNULL,
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, encoding="utf-8", check=True)
    text = DOCUMENT.read_text(encoding="utf-8")
    written = with_table(text, run.stdout)
    if not arguments.check:
        DOCUMENT.write_text(written, encoding="utf-8")
    elif written != text:
        sys.exit("docs/accessibility.md is out of date: run scripts/make_contrast_table.py " + arguments.program)


if __name__ == "__main__":
    main()
