"""Fills every name of a template with openpyxl, as the other programs here do.

usage: fill_openpyxl.py TEMPLATE OUTPUT
"""
import sys

import openpyxl

book = openpyxl.load_workbook(sys.argv[1])
names = book.defined_names
names = {name.name: name for name in names.definedName} if hasattr(names, "definedName") else dict(names)
for k, name in enumerate(sorted(names)):
    for sheet, position in names[name].destinations:
        book[sheet][position.replace("$", "")] = f"50 value {k}" if k % 2 else 100000 + k
book.save(sys.argv[2])
