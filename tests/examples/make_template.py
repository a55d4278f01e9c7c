"""Makes a template with openpyxl.

usage: make_template.py IMAGE TEMPLATE
"""
import sys

import openpyxl
from openpyxl.drawing.image import Image
from openpyxl.workbook.defined_name import DefinedName
from openpyxl.worksheet.datavalidation import DataValidation


def add_name(book, name, reference):
    if hasattr(book.defined_names, "append"):  # before openpyxl 3.1
        book.defined_names.append(DefinedName(name, attr_text=reference))
    else:
        book.defined_names[name] = DefinedName(name, attr_text=reference)


image, template = sys.argv[1:]
book = openpyxl.Workbook()
order = book.active
order.title = "Order"
for position, value in {"A1": "Research & Development", "B1": 12, "B2": "5 pieces", "B3": "Yes", "B4": "=B1*2"}.items():
    order[position] = value
choice = DataValidation(type="list", formula1='"Yes,No"')
choice.add("B3")
order.add_data_validation(choice)
order.add_image(Image(image), "D2")
notes = book.create_sheet("My notes")
notes["C3"] = 7
for name, reference in {"Amount": "Order!$B$1", "Size": "Order!$B$2", "Choice": "Order!$B$3", "Fresh": "Order!$F$9",
                        "Wide": "Order!$H$1:$I$2", "Note": "'My notes'!$C$3"}.items():
    add_name(book, name, reference)
book.save(template)
