#!/usr/bin/python3
"""Makes an .xls workbook of CSV files, numbers and dates in cells of their kind.

    make_workbook.py FILE.xls FILE.csv SHEET [FILE.csv SHEET ...]
"""

import csv
import datetime
import re
import sys

import xlwt

DATE = xlwt.easyxf(num_format_str="dd-mm-yyyy")


def write_cell(sheet, row, column, text):
    if re.fullmatch(r"\d\d-\d\d-\d{4}", text):
        sheet.write(row, column, datetime.datetime.strptime(text, "%d-%m-%Y"), DATE)
    elif re.fullmatch(r"\d+(\.\d+)?", text):
        sheet.write(row, column, float(text))
    elif text:
        sheet.write(row, column, text)


def main():
    target, *sources = sys.argv[1:]
    book = xlwt.Workbook(encoding="utf-8")
    for source, name in zip(sources[::2], sources[1::2]):
        sheet = book.add_sheet(name)
        with open(source, encoding="utf-8", newline="") as file:
            for row, cells in enumerate(csv.reader(file)):
                for column, text in enumerate(cells):
                    write_cell(sheet, row, column, text)
    book.save(target)


main()
