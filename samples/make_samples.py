#!/usr/bin/python3
"""Makes the sample workbooks and text files beside this file, and a seed for the
practice gateway, from the tables in the modules beside it.

    samples/make_samples.py [FOLDER]

Needs xlwt (Debian: python3-xlwt). The workbooks are committed, so only somebody
who changes a table needs it. The same tables give the same bytes.

How a table is written stands in tables.py. A number without leading zeros becomes a
number cell, dd-mm-yyyy a date cell, any other a text cell.
"""

import csv
import datetime
import os
import re
import sys
from xml.sax.saxutils import escape, quoteattr

import xlwt

sys.dont_write_bytecode = True  # the folder holds samples and nothing else
import business_tables as business
import gst_tables as gst
import inventory_voucher_tables as inventory
import item_tables as items
import master_tables as masters
import register_tables as registers
import voucher_tables as vouchers
from tables import rows_of

# A workbook a line: its sheets in order, each called as the import type is.
WORKBOOKS = {
    "masters.xls": {
        "LEDGERGROUPS": masters.LEDGERGROUPS,
        "UNITS": masters.UNITS,
        "GODOWNS": masters.GODOWNS,
        "STOCKGROUPS": masters.STOCKGROUPS,
        "STOCKCATEGORIES": masters.STOCKCATEGORIES,
        "COSTCATEGORIES": masters.COSTCATEGORIES,
        "COSTCENTRES": masters.COSTCENTRES,
    },
    "transactions.xls": {
        "LEDGERS": vouchers.LEDGERS,
        "COSTCATEGORIES": masters.COSTCATEGORIES,
        "COSTCENTRES": masters.COSTCENTRES,
        "TRANSACTIONS": vouchers.TRANSACTIONS,
        "QUICKTRANSACTIONS": vouchers.QUICKTRANSACTIONS,
        "BANKSTMT": vouchers.BANKSTMT,
        "TDSTRANSACTIONS": vouchers.TDSTRANSACTIONS,
        "SERVICETAXTRANSACTIONS": vouchers.SERVICETAXTRANSACTIONS,
        "STTDSTRANSACTIONS": vouchers.STTDSTRANSACTIONS,
        "COSTTRANSACTIONS": vouchers.COSTTRANSACTIONS,
    },
    "gst.xls": {
        "UNITS": gst.UNITS,
        "LEDGERSGST": gst.LEDGERSGST,
        "STOCKITEMSGST": gst.STOCKITEMSGST,
        "TRANSACTIONSGST": gst.TRANSACTIONSGST,
        "SALESBILLS": gst.SALESBILLS,
    },
    "ledgers-and-items.xls": {
        "LEDGERS": items.LEDGERS,
        "STOCKITEMS": items.STOCKITEMS,
    },
    "inventory-vouchers.xls": {
        "VATTRANSACTIONS": inventory.VATTRANSACTIONS,
        "VATTRANSACTIONSMC": inventory.VATTRANSACTIONSMC,
        "ITEMTRANSACTIONS": inventory.ITEMTRANSACTIONS,
        "ORDERS": inventory.ORDERS,
        "NOTES": inventory.NOTES,
        "STOCKJV": inventory.STOCKJV,
        "PHYSICALSTOCK": inventory.PHYSICALSTOCK,
        "CRDRNOTES": inventory.CRDRNOTES,
        "ATTENDANCE": inventory.ATTENDANCE,
    },
    "register.xls": {
        "SALEREGISTER": registers.SALEREGISTER,
        "SALEREGISTERMap": registers.SALEREGISTER_MAP,
        "VOUCHERREGISTER": registers.VOUCHERREGISTER,
        "VOUCHERREGISTERMap": registers.VOUCHERREGISTER_MAP,
    },
    **business.WORKBOOKS,
}

HEADER = xlwt.easyxf("font: bold on")
ROW = xlwt.easyxf("")
DATE = xlwt.easyxf(num_format_str="dd-mm-yyyy")

# The masters that the vouchers name, for a practice gateway whose books are to
# have them from its start: the element of each table, in order.
SEED_FILE = "seed-ledgers.xml"
SEED = [
    ("LEDGER", vouchers.LEDGERS),
    ("COSTCATEGORY", masters.COSTCATEGORIES),
    ("COSTCENTRE", masters.COSTCENTRES),
]


def value_of(text):
    """What the cell of a text holds: a date, a number or the text itself."""
    if re.fullmatch(r"\d\d-\d\d-\d{4}", text):
        return datetime.datetime.strptime(text, "%d-%m-%Y")
    if re.fullmatch(r"-?(0|[1-9]\d*)(\.\d+)?", text):
        return float(text) if "." in text else int(text)
    return text


def write_sheet(sheet, table):
    for row, cells in enumerate(rows_of(table)):
        for column, text in enumerate(cells):
            if not text:
                continue
            if row == 0:
                sheet.write(row, column, text, HEADER)
                sheet.col(column).width = 256 * 22
            else:
                value = value_of(text)
                is_date = isinstance(value, datetime.datetime)
                sheet.write(row, column, value, DATE if is_date else ROW)
    sheet.panes_frozen = True
    sheet.horz_split_pos = 1


def write_csv(path, table):
    """The table as a spreadsheet program saves its sheet: numbers without the zeros
    that say nothing."""
    with open(path, "w", encoding="utf-8", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        for cells in rows_of(table):
            values = [(text, value_of(text)) for text in cells]
            writer.writerow([f"{value:.15g}" if isinstance(value, (int, float)) else text
                             for text, value in values])


def seed_masters(element, table):
    rows = rows_of(table)
    columns = [name.upper() for name in next(rows)]
    for cells in rows:
        row = dict(zip(columns, cells))
        if not row["NAME"] or row["NAME"] == "END":
            continue
        tags = "".join(f"<{tag}>{escape(row[tag])}</{tag}>"
                       for tag in ("PARENT", "CATEGORY") if row.get(tag))
        yield f"  <{element} NAME={quoteattr(row['NAME'])} ACTION=\"Create\">{tags}</{element}>\n"


def write_seed(path):
    with open(path, "w", encoding="utf-8") as file:
        file.write("<ENVELOPE>\n <HEADER><TALLYREQUEST>Import Data</TALLYREQUEST></HEADER>\n"
                   " <BODY><IMPORTDATA><REQUESTDESC><REPORTNAME>All Masters</REPORTNAME>"
                   "</REQUESTDESC><REQUESTDATA><TALLYMESSAGE>\n")
        for element, table in SEED:
            file.writelines(seed_masters(element, table))
        file.write(" </TALLYMESSAGE></REQUESTDATA></IMPORTDATA></BODY>\n</ENVELOPE>\n")


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    os.makedirs(os.path.join(folder, "business", "csv"), exist_ok=True)
    for file_name, sheets in WORKBOOKS.items():
        book = xlwt.Workbook(encoding="utf-8")
        for name, table in sheets.items():
            write_sheet(book.add_sheet(name), table)
        book.save(os.path.join(folder, file_name))
    for name, table in business.TEXT.items():
        write_csv(os.path.join(folder, "business", "csv", name + ".csv"), table)
    write_seed(os.path.join(folder, SEED_FILE))


main()
