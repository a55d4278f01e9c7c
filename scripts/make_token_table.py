#!/usr/bin/env python3
"""Write docs/tokens.md, the table of all colour tokens, from the four built-in colour tables.

make_token_table.py          write the document
make_token_table.py --check  exit with 1 when the document differs from what would be written
"""

import argparse
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
COLORS = ROOT / "resources" / "colors"
DOCUMENT = ROOT / "docs" / "tokens.md"

INTRODUCTION = """\
# Colour tokens

<!-- Written by scripts/make_token_table.py from resources/colors: edit the tables there, not this page. -->

Every colour of the kit has a name, its token, and every colour table gives each token a value.
A control or a stylesheet names the token, never the colour: `ColorParams("brand/brand")` in code,
`${brand/brand}` in a stylesheet, `${brand/brand, 0.5}` with an alpha of its own.

The built-in tables are `:/colors/blue_light.ini` and `:/colors/blue_dark.ini`, and for those who need more contrast
`:/colors/contrast_light.ini` and `:/colors/contrast_dark.ini`. A number after the comma is the colour's alpha, from 0
(transparent) to 1 (opaque, the same as no number).

"""

TABLES = {"Light": "blue_light", "Dark": "blue_dark", "Contrast light": "contrast_light", "Contrast dark": "contrast_dark"}


def read_table(path):
    """Return the families of a colour table in file order, as (title, [(token, value, use)])."""
    families = []
    title = ""
    for number, line in enumerate(path.read_text(encoding="utf-8-sig").splitlines(), start=1):
        text = line.strip()
        if text.startswith(";"):
            title = text[1:].strip()
        elif text:
            entry, _, use = text.partition(";")
            token, equals, value = (part.strip() for part in entry.partition("="))
            if not (token and equals and value):
                sys.exit(f"{path.name}:{number}: not 'token = value': {text}")
            if not families or families[-1][0] != title:
                families.append((title, []))
            families[-1][1].append((token, value, use.strip()))
    return families


def tokens_of(families):
    return [token for _, entries in families for token, _, _ in entries]


def document():
    families = read_table(COLORS / "blue_light.ini")
    names = tokens_of(families)
    if len(names) != len(set(names)):
        sys.exit("a token stands twice in the colour tables")
    values = {}
    for heading, name in TABLES.items():
        table = read_table(COLORS / f"{name}.ini")
        if tokens_of(table) != names:
            sys.exit(f"blue_light.ini and {name}.ini must hold the same tokens in the same order")
        values[heading] = {token: value for _, entries in table for token, value, _ in entries}

    lines = [f"There are {len(names)} tokens in {len(families)} families."]
    for title, entries in families:
        lines += ["", f"## {title}", "", "| Token | " + " | ".join(TABLES) + " | Use |", "|---" * (len(TABLES) + 2) + "|"]
        for token, _, use in entries:
            cells = " | ".join(f"`{values[heading][token]}`" for heading in TABLES)
            lines.append(f"| `{token}` | {cells} | {use} |")
    return INTRODUCTION + "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description="Write docs/tokens.md from the built-in colour tables.")
    parser.add_argument("--check", action="store_true", help="write nothing; fail when the document is out of date")
    arguments = parser.parse_args()

    text = document()
    if not arguments.check:
        DOCUMENT.parent.mkdir(exist_ok=True)
        DOCUMENT.write_text(text, encoding="utf-8")
    elif not DOCUMENT.is_file() or DOCUMENT.read_text(encoding="utf-8") != text:
        sys.exit("docs/tokens.md is out of date: run scripts/make_token_table.py")


if __name__ == "__main__":
    main()
