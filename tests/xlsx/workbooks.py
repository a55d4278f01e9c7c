#!/usr/bin/env python3
"""Workbooks of real programs with what such workbooks have, for the test beside it. All have the same cells to fill, and the same totals.

workbooks.py make FOLDER    makes them: each as openpyxl writes it, and as LibreOffice does that has read that one
workbooks.py read FOLDER    what LibreOffice shows of all in it, and openpyxl reads: {file: {sheet: lines}} as JSON
workbooks.py print FOLDER   makes a PDF beside each with charts
"""
import glob
import json
import os
import re
import subprocess
import sys
import tempfile
import warnings
import zipfile

import openpyxl
from openpyxl.chart import BarChart, PieChart, Reference
from openpyxl.comments import Comment
from openpyxl.formatting.rule import CellIsRule, ColorScaleRule
from openpyxl.styles import PatternFill
from openpyxl.utils.datetime import CALENDAR_MAC_1904
from openpyxl.workbook.defined_name import DefinedName
from openpyxl.worksheet.datavalidation import DataValidation
from openpyxl.worksheet.table import Table

SIGNATURE = "application/vnd.openxmlformats-package.digital-signature-"
PACKAGE = "http://schemas.openxmlformats.org/package/2006/relationships"


def plain(title="Data"):
    """An invoice: the row 5 is repeated, B2 is set, and another sheet computes with both."""
    book = openpyxl.Workbook()
    data = book.active
    data.title = title
    for row in (["Title"], ["Factor", 2], [], ["Item", "Count", "Price", "Sum"], ["thing", 1, 2, "=B5*C5"], [None, None, "Total", "=SUM(D5:D5)"],
                [None, None, "All", "=D6*$B$2"], ["Thank you"]):
        data.append(row)
    own = "'" + title.replace("'", "''") + "'!"
    sums = book.create_sheet("Sums")
    for formula in ("=%sD7" % own, "=SUM(%s$D$5:$D$5)" % own, "=Factor+1", "=COUNTA(%sA5:A5)" % own):
        sums.append([formula])
    for name, place in (("Factor", "$B$2"), ("Items", "$A$5:$C$5"), ("Title", "$A$1")):
        defined = DefinedName(name, attr_text=own + place)
        if hasattr(book.defined_names, "append"):  # before openpyxl 3.1
            book.defined_names.append(defined)
        else:
            book.defined_names[name] = defined
    return book, data, sums


def add_charts(data):
    for kind, place in ((BarChart, "F1"), (PieChart, "F20")):
        chart = kind()
        chart.add_data(Reference(data, min_col=4, min_row=4, max_row=5), titles_from_data=True)
        chart.set_categories(Reference(data, min_col=1, min_row=5))
        data.add_chart(chart, place)


def add_formats(data):
    data.conditional_formatting.add("D5", CellIsRule(operator="greaterThan", formula=["$D$6"], fill=PatternFill("solid", bgColor="FF0000")))
    data.conditional_formatting.add("D5:D6", ColorScaleRule(start_type="min", end_type="max", start_color="FF0000", end_color="00FF00"))
    for kind, cell, formula in (("whole", "B5", "0"), ("list", "E8", '"x,y"')):
        rule = DataValidation(type=kind, formula1=formula, operator="greaterThan" if kind == "whole" else None)
        rule.add(cell)
        data.add_data_validation(rule)
    data.merge_cells("E5:F5")
    data.merge_cells("A8:C8")
    data.row_dimensions[5].height = 25


def add_pages(data):
    data.print_area = "A1:D8"
    data.print_title_rows = "4:4"
    data.oddHeader.center.text = "&A"
    data.freeze_panes = "A5"
    data.auto_filter.ref = "A4:D5"
    data["A8"].hyperlink = "#Sums!A1"
    data["D6"].comment = Comment("of all", "me")
    data["A5"].comment = Comment("of one", "me")


def add_table(sums):
    for row in (["x", "y"], [1, 2], [3, 4]):
        sums.append(row)
    sums.add_table(Table(displayName="Tab", ref="A5:B7"))


def repack(path, change, added=()):
    with zipfile.ZipFile(path) as archive:
        parts = {name: archive.read(name).decode() for name in archive.namelist()}
    parts.update(added)
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in parts.items():
            archive.writestr(name, change(name, content))


def sign(name, content):
    if name == "[Content_Types].xml":
        return content.replace("</Types>", '<Default Extension="sigs" ContentType="%sorigin"/><Override PartName="/_xmlsignatures/sig1.xml" '
                               'ContentType="%sxmlsignature+xml"/></Types>' % (SIGNATURE, SIGNATURE))
    if name == "_rels/.rels":
        return content.replace("</Relationships>", '<Relationship Id="rIdS" Type="%s/digital-signature/origin" Target="_xmlsignatures/origin.sigs"/>'
                               "</Relationships>" % PACKAGE)
    return content


def share(name, content):
    """The formulas in D5 and E5 are one, and that of E6:E7 is an array formula; the first text has two runs."""
    if name == "xl/sharedStrings.xml":
        return content.replace("<si><t>Title</t></si>", "<si><r><t>Ti</t></r><r><rPr><b/></rPr><t>tle</t></r></si>")
    if name != "xl/worksheets/sheet1.xml":
        return content
    content = re.sub(r'(<c r="D5"[^>]*>)<f>', r'\1<f t="shared" ref="D5:E5" si="0">', content)
    content = re.sub(r'(<c r="E5"[^>]*>)<f>[^<]*</f>', r'\1<f t="shared" si="0"/>', content)
    return re.sub(r'(<c r="E6"[^>]*>)<f>', r'\1<f t="array" ref="E6:E7">', content)


def make(folder):
    def save(name, book):
        path = os.path.join(folder, name + "-openpyxl.xlsx")
        book.save(path)
        return path

    for name, change in (("charts", add_charts), ("formats", add_formats), ("pages", add_pages)):
        book, data, sums = plain()
        change(data)
        save(name, book)
    book, data, sums = plain()
    add_table(sums)
    save("table", book)
    book, data, sums = plain("It's a sheet")
    sums.sheet_state = "hidden"
    save("quoted", book)
    book, data, sums = plain()
    book.epoch = CALENDAR_MAC_1904
    data.protection.sheet = True
    save("protected-1904", book)
    book, data, sums = plain()
    book.template = True
    save("template", book)
    book, data, sums = plain()
    data["E5"], data["E6"], data["E7"] = "=C5*D5", "=D6:D7*2", 0
    repack(save("shared", book), share)
    repack(save("signed", plain()[0]), sign, {
        "_xmlsignatures/origin.sigs": "", "_xmlsignatures/sig1.xml": '<Signature xmlns="http://www.w3.org/2000/09/xmldsig#"/>',
        "_xmlsignatures/_rels/origin.sigs.rels": '<Relationships xmlns="%s"><Relationship Id="rId1" Type="%s/digital-signature/signature" '
                                                 'Target="sig1.xml"/></Relationships>' % (PACKAGE, PACKAGE)})
    with tempfile.TemporaryDirectory() as made:
        convert("xlsx", sorted(glob.glob(os.path.join(folder, "*.xlsx"))), made)
        for path in glob.glob(os.path.join(made, "*.xlsx")):
            os.replace(path, os.path.join(folder, os.path.basename(path).replace("openpyxl", "libreoffice")))


def convert(kind, paths, folder):
    """All in one start of LibreOffice."""
    with tempfile.TemporaryDirectory() as profile:
        subprocess.run(["soffice", "-env:UserInstallation=file://" + profile, "--headless", "--convert-to", kind, "--outdir", folder, *paths],
                       check=True, capture_output=True, timeout=300)


def read(folder):
    warnings.simplefilter("ignore")
    told = {}
    paths = sorted(glob.glob(os.path.join(folder, "*.xlsx")))
    with tempfile.TemporaryDirectory() as made:
        convert("csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,-1", paths, made)
        for path in paths:
            stem = os.path.splitext(os.path.basename(path))[0]
            told[stem] = {}
            for sheet in openpyxl.load_workbook(path).sheetnames:
                with open(os.path.join(made, "%s-%s.csv" % (stem, sheet)), encoding="utf-8") as content:
                    told[stem][sheet] = content.read().splitlines()
    print(json.dumps(told))


if sys.argv[1] == "make":
    make(sys.argv[2])
elif sys.argv[1] == "read":
    read(sys.argv[2])
else:
    convert("pdf", sorted(glob.glob(os.path.join(sys.argv[2], "charts-*.xlsx"))), sys.argv[2])
