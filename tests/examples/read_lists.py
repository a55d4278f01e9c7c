"""Prints the list validations of a workbook as openpyxl reads them, a line each: cell and list.

usage: read_lists.py WORKBOOK
"""
import sys

import openpyxl

for sheet in openpyxl.load_workbook(sys.argv[1]):
    for validation in sheet.data_validations.dataValidation:
        if validation.type == "list":
            print(sheet.title, validation.sqref, validation.formula1)
