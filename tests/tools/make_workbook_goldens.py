#!/usr/bin/python3
"""Writes what every cell of the test workbooks shows to tests/data/xls/golden.

A line is sheet, row, column (from 0) and text, tab-separated, with tab, line
feed, carriage return and backslash as \\t, \\n, \\r, \\\\. The cells are read by
python3-xlrd, so that the tests compare two readers; run this after a workbook
was added and look at the difference.
"""
import datetime
import decimal
import glob
import os

import xlrd

FOLDER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "xls")


def number_text(value):
    rounded = decimal.Decimal("%.15g" % value)
    if rounded == 0:
        return "0"
    sign, digits, exponent = rounded.normalize().as_tuple()
    point = len(digits) + exponent
    if point <= 15 and -exponent <= 15:
        return "{:f}".format(rounded.normalize())
    mantissa = "".join(map(str, digits[:1])) + "." + "".join(map(str, digits[1:]))
    return "%s%sE%+03d" % ("-" if sign else "", mantissa.rstrip("."), point - 1)


def date_text(serial, from1904):
    day, fraction = divmod(serial, 1)
    if from1904 and day >= 1:
        day += 1462
    seconds = int(fraction * 86400 + 0.5)
    when = datetime.datetime(1899, 12, 30) + datetime.timedelta(days=day, seconds=seconds)
    if day == 0:
        return when.strftime("%H:%M:%S")
    return when.strftime("%d-%m-%Y") + (when.strftime(" %H:%M:%S") if seconds else "")


def cell_text(cell, book):
    if cell.ctype == xlrd.XL_CELL_NUMBER:
        return number_text(cell.value)
    if cell.ctype == xlrd.XL_CELL_DATE:
        return date_text(cell.value, book.datemode == 1)
    if cell.ctype == xlrd.XL_CELL_BOOLEAN:
        return "True" if cell.value else "False"
    if cell.ctype == xlrd.XL_CELL_ERROR:
        return xlrd.error_text_from_code[cell.value]
    return cell.value


def escaped(text):
    for plain, mark in (("\\", "\\\\"), ("\t", "\\t"), ("\n", "\\n"), ("\r", "\\r")):
        text = text.replace(plain, mark)
    return text


def write_golden(path):
    name = os.path.splitext(os.path.basename(path))[0]
    try:
        book = xlrd.open_workbook(path)
    except xlrd.XLRDError:
        return  # encrypted
    with open(os.path.join(FOLDER, "golden", name + ".tsv"), "w", encoding="utf-8",
              newline="\n") as out:
        for sheet in book.sheets():
            for row in range(sheet.nrows):
                for column in range(sheet.ncols):
                    cell = sheet.cell(row, column)
                    if cell.ctype not in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK):
                        out.write("%s\t%d\t%d\t%s\n" % (escaped(sheet.name), row, column,
                                                        escaped(cell_text(cell, book))))


os.makedirs(os.path.join(FOLDER, "golden"), exist_ok=True)
for workbook in sorted(glob.glob(os.path.join(FOLDER, "*.xls"))):
    write_golden(workbook)
