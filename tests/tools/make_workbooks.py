#!/usr/bin/python3
"""Makes the workbooks of tests/data/xls that no spreadsheet program saved for us.

Needs python3-xlwt, which nothing else does: the files are kept, so this is only
for changing them.
"""
import os

import xlwt

FOLDER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "xls")

FORMATS = [
    "General", "0", "0.00", "#,##0.00", "0%", "0.00E+00", "@",
    "dd-mm-yyyy", "d/m/yy", "mmm-yy", "h:mm AM/PM", "hh:mm:ss", "mm:ss.0", "[h]:mm", "[mm]:ss",
    "[$-409]d-mmm-yy;@", "[$-F800]dddd, mmmm dd, yyyy", "yyyy-mm-dd\\Thh:mm",
    '"due" dd-mm', '0.00" days"', '#,##0" Dr";#,##0" Cr"', "0.00\\ \\d\\r", "[Red]0.00;[Blue]-0.00",
    "[>=10000000]##\\,##\\,##\\,##0;[>=100000]##\\,##\\,##0;##,##0", "_(* #,##0_);_(* (#,##0)_)",
    "_d0.00_y", "[$Rs.-4009] #,##0.00", "# ?/?", '"TRUE";"TRUE";"FALSE"',
]


def shared_texts_over_continue():
    """Texts of one and two bytes a character and with fonts in their midst, so
    many that the shared texts run over the boundaries of records everywhere."""
    book = xlwt.Workbook(encoding="utf-8")
    sheet = book.add_sheet("TEXTS")
    sheet.write(0, 0, "Text")
    sheet.write(0, 1, "Rich")
    bold = xlwt.easyfont("bold on")
    for row in range(1, 260):
        wide = row % 3 == 0
        piece = "\u0928\u092e\u0938\u094d\u0924\u0947 " if wide else "caf\u00e9 no. "
        tail = " \U0001F600 end" if row % 7 == 0 else " end"
        sheet.write(row, 0, piece * (1 + row * 7 % 31) + str(row) + tail)
        sheet.write_rich_text(row, 1, [piece * (row % 13), (str(row), bold), (tail, bold), "." * row])
    book.save(os.path.join(FOLDER, "shared_texts_over_continue.xls"))


def number_formats():
    """One number in each of many formats: B says how, C has the number so."""
    book = xlwt.Workbook()
    sheet = book.add_sheet("FORMATS")
    for column, name in enumerate(["SrNo", "Format", "Value"]):
        sheet.write(0, column, name)
    for row, code in enumerate(FORMATS, 1):
        sheet.write(row, 0, row)
        sheet.write(row, 1, code)
        sheet.write(row, 2, 45383.75, xlwt.easyxf(num_format_str=code))
    book.save(os.path.join(FOLDER, "number_formats.xls"))


shared_texts_over_continue()
number_formats()
