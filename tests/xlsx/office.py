#!/usr/bin/env python3
"""Makes templates with real spreadsheet programs and looks at what became of them, for the tests beside it.

office.py openpyxl OUTPUT IMAGE       a template of openpyxl's, with IMAGE (PNG) as a picture
office.py libreoffice OUTPUT IMAGE    a template of LibreOffice's, with IMAGE (PNG) as the picture named logo
office.py invoice-openpyxl OUTPUT     an invoice of openpyxl's: a row of items, totals, a chart, a second sheet with sums
office.py invoice-libreoffice OUTPUT  the same of LibreOffice's, with its results
office.py look FILE                    what openpyxl reads in it, as JSON
office.py csv FILE                     the first sheet as LibreOffice exports it
office.py sheets FILE                  all sheets so, one after the other
office.py text FILE                    the text of LibreOffice's PDF of it, a line of words to a line
office.py page FILE OUTPUT             the first page of LibreOffice's PDF of it, as an image (PNG)
office.py images FILE                  the sizes of the pictures in LibreOffice's PDF of it, one to a line
"""
import base64
import glob
import json
import os
import re
import subprocess
import sys
import tempfile
import warnings
import zipfile


def make_with_openpyxl(output, image):
    import openpyxl
    from openpyxl.drawing.image import Image
    from openpyxl.workbook.defined_name import DefinedName
    from openpyxl.worksheet.datavalidation import DataValidation

    book = openpyxl.Workbook()
    data = book.active
    data.title = "Data"
    for row in (["old title", 1], ["a & b", 2.5], ["yes", 3]):
        data.append(row)
    choice = DataValidation(type="list", formula1='"yes,no"')
    choice.add("A3")
    data.add_data_validation(choice)
    data.add_image(Image(image), "D4")
    book.create_sheet("My Sheet")["C5"] = "there"
    for name, reference in (("Title", "Data!$A$1"), ("Count", "Data!$B$1"), ("Choice", "Data!$A$3"), ("Far", "'My Sheet'!$B$3:$C$4")):
        defined = DefinedName(name, attr_text=reference)
        if hasattr(book.defined_names, "append"):
            book.defined_names.append(defined)
        else:
            book.defined_names[name] = defined
    book.save(output)


FLAT = """<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" office:version="1.3"
 office:mimetype="application/vnd.oasis.opendocument.spreadsheet"><office:body><office:spreadsheet>
<table:content-validations><table:content-validation table:name="choice" table:condition="cell-content-is-in-list(&quot;yes&quot;;&quot;no&quot;)"
 table:base-cell-address="Data.A3"/></table:content-validations>
<table:table table:name="Data"><table:shapes><draw:frame draw:name="logo" svg:width="2cm" svg:height="1cm" svg:x="6cm" svg:y="3cm">
<draw:image><office:binary-data>{image}</office:binary-data></draw:image></draw:frame></table:shapes>
<table:table-row><table:table-cell office:value-type="string"><text:p>old title</text:p></table:table-cell>
<table:table-cell office:value-type="float" office:value="1"/></table:table-row>
<table:table-row><table:table-cell office:value-type="string"><text:p>kept</text:p></table:table-cell>
<table:table-cell office:value-type="float" office:value="2.5"/></table:table-row>
<table:table-row><table:table-cell table:content-validation-name="choice" office:value-type="string"><text:p>yes</text:p></table:table-cell>
<table:table-cell office:value-type="float" office:value="3"/></table:table-row>
</table:table>
<table:table table:name="My Sheet"><table:table-row><table:table-cell office:value-type="string"><text:p>there</text:p></table:table-cell>
</table:table-row></table:table>
<table:named-expressions>
<table:named-range table:name="Title" table:base-cell-address="$Data.$A$1" table:cell-range-address="$Data.$A$1"/>
<table:named-range table:name="Count" table:base-cell-address="$Data.$A$1" table:cell-range-address="$Data.$B$1"/>
<table:named-range table:name="Choice" table:base-cell-address="$Data.$A$1" table:cell-range-address="$Data.$A$3"/>
<table:named-range table:name="Far" table:base-cell-address="$Data.$A$1" table:cell-range-address="$'My Sheet'.$B$3:$'My Sheet'.$C$4"/>
</table:named-expressions></office:spreadsheet></office:body></office:document>
"""


def convert(source, kind, folder, several=None):
    """Converts with LibreOffice and returns the path of what it made, or the paths: it ends well even when it cannot load a file."""
    profile = "file://" + os.path.join(folder, "profile")
    ran = subprocess.run(["soffice", "-env:UserInstallation=" + profile, "--headless", "--convert-to", kind, "--outdir", folder, source],
                         capture_output=True, text=True, timeout=300)
    stem = os.path.join(folder, os.path.splitext(os.path.basename(source))[0])
    made = glob.glob(stem + several) if several else stem + "." + kind.split(":")[0]
    if not made or (not several and not os.path.exists(made)):
        sys.exit("LibreOffice made nothing of %s: %s%s" % (source, ran.stdout, ran.stderr))
    return made


def number_from_one(source, output):
    """Numbers the relationships of the worksheets from rId1, which LibreOffice does not."""
    with zipfile.ZipFile(source) as archive:
        parts = {info.filename: archive.read(info) for info in archive.infolist()}
    key = "xl/_rels/workbook.xml.rels"
    rels = parts[key].decode()
    targets = {re.search(r'Id="([^"]+)"', item)[1]: re.search(r'Target="([^"]+)"', item)[1] for item in re.findall(r"<Relationship [^>]*>", rels)}
    sheets = sorted((i for i in targets if "worksheets/" in targets[i]), key=lambda i: (len(targets[i]), targets[i]))
    order = sheets + [i for i in targets if i not in sheets]
    fresh = {old: "rId%d" % (number + 1) for number, old in enumerate(order)}
    parts[key] = re.sub(r'(?<= Id=")[^"]+', lambda m: fresh[m[0]], rels).encode()
    parts["xl/workbook.xml"] = re.sub(r'(?<=r:id=")[^"]+', lambda m: fresh[m[0]], parts["xl/workbook.xml"].decode()).encode()
    with zipfile.ZipFile(output, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in parts.items():
            archive.writestr(name, content)


def make_with_libreoffice(output, image):
    with tempfile.TemporaryDirectory() as folder:
        flat = os.path.join(folder, "flat.fods")
        with open(image, "rb") as pixels, open(flat, "w", encoding="utf-8") as document:
            document.write(FLAT.replace("{image}", base64.b64encode(pixels.read()).decode()))
        number_from_one(convert(flat, "xlsx", folder), output)


def make_invoice_with_openpyxl(output):
    import openpyxl
    from openpyxl.chart import BarChart, Reference
    from openpyxl.comments import Comment
    from openpyxl.formatting.rule import CellIsRule
    from openpyxl.styles import PatternFill
    from openpyxl.workbook.defined_name import DefinedName
    from openpyxl.worksheet.datavalidation import DataValidation

    book = openpyxl.Workbook()
    invoice = book.active
    invoice.title = "Invoice"
    for place, value in (("A1", "Invoice"), ("A4", "Item"), ("B4", "Count"), ("C4", "Price"), ("D4", "Sum"), ("A5", "thing"), ("B5", 1), ("C5", 2),
                         ("D5", "=B5*C5"), ("C6", "Net"), ("D6", "=SUM(D5:D5)"), ("C7", "Tax"), ("D7", "=D6*0.2"), ("C8", "Total"), ("D8", "=D6+D7"),
                         ("A10", "Thank you")):
        invoice[place] = value
    invoice.merge_cells("A10:D10")
    invoice.row_dimensions[5].height = 22
    count = DataValidation(type="whole", operator="greaterThan", formula1="0")
    count.add("B5")
    invoice.add_data_validation(count)
    invoice.conditional_formatting.add("D5", CellIsRule(operator="greaterThan", formula=["$D$7"], fill=PatternFill("solid", bgColor="FF0000")))
    invoice["C8"].comment = Comment("with tax", "me")
    invoice.print_area = "A1:D10"
    chart = BarChart()
    chart.add_data(Reference(invoice, min_col=4, min_row=5, max_row=5))
    invoice.add_chart(chart, "A12")
    sums = book.create_sheet("Sums")
    for place, value in (("A1", "=Invoice!D8"), ("A2", "=SUM(Invoice!$D$5:$D$5)"), ("A3", "=COUNT(Invoice!B5:B5)"), ("A4", "=Net*2")):
        sums[place] = value
    for name, reference in (("Items", "Invoice!$A$5:$C$5"), ("Net", "Invoice!$D$6"), ("Price", "Invoice!$C$5")):
        defined = DefinedName(name, attr_text=reference)
        if hasattr(book.defined_names, "append"):
            book.defined_names.append(defined)
        else:
            book.defined_names[name] = defined
    book.save(output)


FLAT_INVOICE = """<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2" office:version="1.3"
 office:mimetype="application/vnd.oasis.opendocument.spreadsheet"><office:body><office:spreadsheet>
<table:table table:name="Invoice">{rows}</table:table>
<table:table table:name="Sums">{sums}</table:table>
<table:named-expressions>
<table:named-range table:name="Items" table:base-cell-address="$Invoice.$A$1" table:cell-range-address="$Invoice.$A$5:.$C$5"/>
<table:named-range table:name="Net" table:base-cell-address="$Invoice.$A$1" table:cell-range-address="$Invoice.$D$6"/>
<table:named-range table:name="Price" table:base-cell-address="$Invoice.$A$1" table:cell-range-address="$Invoice.$C$5"/>
</table:named-expressions></office:spreadsheet></office:body></office:document>
"""


def flat_rows(rows):
    made = ""
    for row in rows:
        made += "<table:table-row>"
        for value in row:
            if value is None:
                made += "<table:table-cell/>"
            elif isinstance(value, str) and value.startswith("of:"):
                made += '<table:table-cell table:formula="%s" office:value-type="float"/>' % value
            elif isinstance(value, str):
                made += '<table:table-cell office:value-type="string"><text:p>%s</text:p></table:table-cell>' % value
            else:
                made += '<table:table-cell office:value-type="float" office:value="%s"/>' % value
        made += "</table:table-row>"
    return made


def make_invoice_with_libreoffice(output):
    rows = [["Invoice"], [None], [None], ["Item", "Count", "Price", "Sum"], ["thing", 1, 2, "of:=[.B5]*[.C5]"],
            [None, None, "Net", "of:=SUM([.D5:.D5])"], [None, None, "Tax", "of:=[.D6]*0.2"], [None, None, "Total", "of:=[.D6]+[.D7]"], [None],
            ["Thank you"]]
    sums = [["of:=[$Invoice.D8]"], ["of:=SUM([$Invoice.$D$5:.$D$5])"], ["of:=COUNT([$Invoice.B5:.B5])"], ["of:=Net*2"]]
    with tempfile.TemporaryDirectory() as folder:
        flat = os.path.join(folder, "flat.fods")
        with open(flat, "w", encoding="utf-8") as document:
            document.write(FLAT_INVOICE.format(rows=flat_rows(rows), sums=flat_rows(sums)))
        os.replace(convert(flat, "xlsx", folder), output)


def all_sheets(path, folder):
    made = convert(path, "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,-1", folder, "-*.csv")
    for sheet in sorted(made):
        with open(sheet, encoding="utf-8") as content:
            print(content.read(), end="")


def look(path):
    import openpyxl

    warnings.simplefilter("ignore")
    book = openpyxl.load_workbook(path)
    print(json.dumps({
        "cells": {sheet.title: {cell.coordinate: cell.value for row in sheet.iter_rows() for cell in row if cell.value is not None} for sheet in book},
        "lists": {sheet.title: {str(rule.sqref): rule.formula1 for rule in sheet.data_validations.dataValidation if rule.type == "list"} for sheet in book},
        "images": {sheet.title: len(sheet._images) for sheet in book},
    }, default=str))


def main():
    command, *arguments = sys.argv[1:]
    if command == "openpyxl":
        make_with_openpyxl(*arguments)
    elif command == "libreoffice":
        make_with_libreoffice(*arguments)
    elif command == "invoice-openpyxl":
        make_invoice_with_openpyxl(*arguments)
    elif command == "invoice-libreoffice":
        make_invoice_with_libreoffice(*arguments)
    elif command == "look":
        look(*arguments)
    else:
        with tempfile.TemporaryDirectory() as folder:
            if command == "csv":
                with open(convert(arguments[0], "csv:Text - txt - csv (StarCalc):44,34,76", folder), encoding="utf-8") as made:
                    print(made.read(), end="")
            elif command == "sheets":
                all_sheets(arguments[0], folder)
            elif command == "page":
                page = os.path.splitext(arguments[1])[0] # pdftoppm adds the extension
                subprocess.run(["pdftoppm", "-r", "150", "-png", "-singlefile", convert(arguments[0], "pdf", folder), page], check=True)
            elif command == "text":
                made = convert(arguments[0], "pdf", folder)
                text = subprocess.run(["pdftotext", "-layout", made, "-"], capture_output=True, text=True, check=True).stdout
                print("\n".join(" ".join(line.split()) for line in text.splitlines() if line.strip()))
            else:
                listed = subprocess.run(["pdfimages", "-list", convert(arguments[0], "pdf", folder)], capture_output=True, text=True, check=True)
                for line in listed.stdout.splitlines()[2:]:
                    fields = line.split()
                    if fields[2] == "image":
                        print("%s x %s" % (fields[3], fields[4]))


main()
