#!/usr/bin/env python3
"""Writes the spreadsheet templates that the benchmarks fill: T1.xlsx, T2.xlsx, T3.xlsx and invoice.xlsx.

usage: make_templates.py FOLDER

Each has one sheet, Data. Odd columns hold numbers, even columns texts of the shared strings, each of which occurs a few times.
The names N00000, N00001 ... name one cell each, spread evenly over rows and columns. The invoice has a row Items of four cells, the last
of which is a product, and below it a sum, a tax and a total.
"""

import os
import sys
import zipfile

# File: rows, columns, names.
TEMPLATES = {"T1": (100, 1, 100), "T2": (20000, 10, 1000), "T3": (100000, 10, 5000)}

MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
SHEET_TYPE = "application/vnd.openxmlformats-officedocument.spreadsheetml."
DECLARATION = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'


def sheet_and_strings(rows, columns):
    strings = {}
    uses = 0
    out = [f'{DECLARATION}<worksheet xmlns="{MAIN}"><dimension ref="A1:{chr(64 + columns)}{rows}"/><sheetData>']
    for row in range(1, rows + 1):
        out.append(f'<row r="{row}">')
        for column in range(1, columns + 1):
            position = f"{chr(64 + column)}{row}"
            is_number = (column if columns > 1 else row) % 2
            if is_number:
                out.append(f'<c r="{position}" t="n"><v>{(row * 10 + column) / 2}</v></c>')
            else:
                text = f"text {(row * 7 + column) % max(1, rows // 4)}"
                uses += 1
                out.append(f'<c r="{position}" t="s"><v>{strings.setdefault(text, len(strings))}</v></c>')
        out.append("</row>")
    out.append('</sheetData><pageMargins left="0.75" right="0.75" top="1" bottom="1" header="0.5" footer="0.5"/></worksheet>')
    table = "".join(f"<si><t>{text}</t></si>" for text in strings)
    return "".join(out), f'{DECLARATION}<sst xmlns="{MAIN}" count="{uses}" uniqueCount="{len(strings)}">{table}</sst>'


def relationships(*targets):
    items = "".join(
        f'<Relationship Id="rId{number}" Type="{OFFICE}/{kind}" Target="{target}"/>' for number, (kind, target) in enumerate(targets, 1)
    )
    return f'{DECLARATION}<Relationships xmlns="{PACKAGE}/relationships">{items}</Relationships>'


def filled_sheet(rows, columns, names):
    step = max(1, rows // names)
    defined = {f"N{k:05}": f"Data!${chr(65 + k % columns)}${1 + k * step}" for k in range(names)}
    return (*sheet_and_strings(rows, columns), defined)


def invoice():
    cells = {
        1: ["Item", "Quantity", "Price", "Amount"],
        2: ["Chair", 1, 12.5, "=B2*C2"],
        3: ["", "", "Sum", "=SUM(D2:D2)"],
        4: ["", "", "Tax", "=ROUND(D3*0.19,2)"],
        5: ["", "", "Total", "=D3+D4"],
    }

    def cell(position, value):
        if str(value).startswith("="):
            return f'<c r="{position}"><f>{value[1:]}</f><v>0</v></c>'
        return f'<c r="{position}" t="inlineStr"><is><t>{value}</t></is></c>' if isinstance(value, str) else f'<c r="{position}"><v>{value}</v></c>'

    rows = "".join(
        f'<row r="{row}">' + "".join(cell(f"{chr(65 + i)}{row}", value) for i, value in enumerate(values) if value != "") + "</row>"
        for row, values in cells.items()
    )
    sheet = f'{DECLARATION}<worksheet xmlns="{MAIN}"><sheetData>{rows}</sheetData></worksheet>'
    return sheet, f'{DECLARATION}<sst xmlns="{MAIN}" count="0" uniqueCount="0"/>', {"Items": "Data!$A$2:$D$2", "Total": "Data!$D$5"}


def parts(sheet, strings, names):
    defined = "".join(f'<definedName name="{name}">{place}</definedName>' for name, place in names.items())
    overrides = {
        "/xl/workbook.xml": "sheet.main",
        "/xl/worksheets/sheet1.xml": "worksheet",
        "/xl/sharedStrings.xml": "sharedStrings",
        "/xl/styles.xml": "styles",
    }
    yield "[Content_Types].xml", (
        f'{DECLARATION}<Types xmlns="{PACKAGE}/content-types">'
        '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
        '<Default Extension="xml" ContentType="application/xml"/>'
        + "".join(f'<Override PartName="{name}" ContentType="{SHEET_TYPE}{kind}+xml"/>' for name, kind in overrides.items())
        + "</Types>"
    )
    yield "_rels/.rels", relationships(("officeDocument", "xl/workbook.xml"))
    yield "xl/_rels/workbook.xml.rels", relationships(
        ("worksheet", "worksheets/sheet1.xml"), ("styles", "styles.xml"), ("sharedStrings", "sharedStrings.xml")
    )
    yield "xl/workbook.xml", (
        f'{DECLARATION}<workbook xmlns="{MAIN}" xmlns:r="{OFFICE}"><sheets><sheet name="Data" sheetId="1" r:id="rId1"/></sheets>'
        f"<definedNames>{defined}</definedNames></workbook>"
    )
    yield "xl/styles.xml", (
        f'{DECLARATION}<styleSheet xmlns="{MAIN}"><fonts count="1"><font><sz val="11"/><name val="Calibri"/></font></fonts>'
        '<fills count="1"><fill><patternFill patternType="none"/></fill></fills><borders count="1"><border/></borders><cellStyleXfs count="1"><xf/></cellStyleXfs>'
        '<cellXfs count="1"><xf/></cellXfs></styleSheet>'
    )
    yield "xl/sharedStrings.xml", strings
    yield "xl/worksheets/sheet1.xml", sheet


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    os.makedirs(sys.argv[1], exist_ok=True)
    templates = {name: filled_sheet(*shape) for name, shape in TEMPLATES.items()}
    for name, content in {**templates, "invoice": invoice()}.items():
        with zipfile.ZipFile(os.path.join(sys.argv[1], name + ".xlsx"), "w", zipfile.ZIP_DEFLATED) as package:
            for path, text in parts(*content):
                package.writestr(path, text)


if __name__ == "__main__":
    main()
