#!/usr/bin/python3
"""What a user with a script of their own would have: reads the vouchers of a
workbook's sheet TRANSACTIONS and posts each as Vorlane does, with nothing staged.
Tells the seconds that it took, without its own start.

    post_vouchers.py FILE.xls PORT
"""

import sys
import time
import urllib.request
import xml.etree.ElementTree as ElementTree
from xml.sax.saxutils import escape, quoteattr

import xlrd

COMPANY = "Bench & Sons"
FLAGS = (("DIFFACTUALQTY", "No"), ("ISOPTIONAL", "No"), ("ISCANCELLED", "No"),
         ("HASCASHFLOW", "Yes"), ("ISPOSTDATED", "No"), ("USETRACKINGNUMBER", "No"),
         ("ISINVOICE", "No"), ("MFGJOURNAL", "No"), ("HASDISCOUNTS", "No"), ("ASPAYSLIP", "No"),
         ("PERSISTEDVIEW", "Accounting Voucher View"))


def rows_of(path):
    book = xlrd.open_workbook(path)
    sheet = book.sheet_by_name("TRANSACTIONS")
    names = [cell.value.upper() for cell in sheet.row(0)]
    for index in range(1, sheet.nrows):
        row = dict(zip(names, (cell.value for cell in sheet.row(index))))
        if row["VCHDATE"]:
            row["VCHDATE"] = xlrd.xldate_as_datetime(
                row["VCHDATE"], book.datemode).strftime("%d-%b-%Y")
        yield row


def vouchers_of(rows):
    voucher = []
    for row in rows:
        if voucher and voucher[0]["ID"] != row["ID"]:
            yield voucher
            voucher = []
        voucher.append(row)
    if voucher:
        yield voucher


def tag(name, text):
    return f"<{name}>{escape(text)}</{name}>" if text else ""


def entry(row, is_party):
    side = "Yes" if row["DEBIT"] else "No"
    sign = "-" if row["DEBIT"] else ""
    amount = f"-{row['DEBIT']:.15g}" if row["DEBIT"] else f"{row['CREDIT'] or 0:.3f}"
    parts = ["<LEDGERENTRIES.LIST>", tag("LEDGERNAME", row["LEDGER"]),
             tag("ISDEEMEDPOSITIVE", side), tag("ISLASTDEEMEDPOSITIVE", side),
             tag("LEDGERFROMITEM", "No"), tag("REMOVEZEROENTRIES", "No"),
             tag("ISPARTYLEDGER", "Yes" if is_party else "No"), tag("AMOUNT", amount)]
    if row["ADJNAME"]:
        parts += ["<BILLALLOCATIONS.LIST>", tag("NAME", row["ADJNAME"]),
                  tag("BILLCREDITPERIOD", row["ADJDATE"]), tag("BILLTYPE", row["ADJMETHOD"]),
                  tag("AMOUNT", f"{sign}{row['ADJAMOUNT']:.3f}"), "</BILLALLOCATIONS.LIST>"]
    parts.append("</LEDGERENTRIES.LIST>")
    return "".join(parts)


def document(voucher):
    head = voucher[0]
    parts = ["<ENVELOPE><HEADER><TALLYREQUEST> Import Data </TALLYREQUEST></HEADER><BODY>"
             "<IMPORTDATA><REQUESTDESC><REPORTNAME>All Masters</REPORTNAME><STATICVARIABLES>",
             tag("SVCURRENTCOMPANY", COMPANY),
             "</STATICVARIABLES></REQUESTDESC><REQUESTDATA><TALLYMESSAGE xmlns:UDF=\"TallyUDF\">",
             f"<VOUCHER REMOTEID={quoteattr(head['ID'])} VCHTYPE={quoteattr(head['VCHTYPE'])}"
             " ACTION=\"Create\">",
             tag("EFFECTIVEDATE", head["VCHDATE"]), tag("DATE", head["VCHDATE"]),
             tag("GUID", head["ID"]), tag("VOUCHERTYPENAME", head["VCHTYPE"]),
             tag("VOUCHERNUMBER", head["VCHNO"]), tag("REFERENCE", head["REFNO"]),
             tag("NARRATION", head["NARRATION"]), tag("PARTYLEDGERNAME", head["LEDGER"]),
             tag("BASEPARTYNAME", head["LEDGER"]), tag("BASICBUYERNAME", head["LEDGER"])]
    parts += [tag(name, text) for name, text in FLAGS]
    parts.append("<BASICBANKERSDATE.LIST/>")
    parts += [entry(row, row is head) for row in voucher]
    parts.append("</VOUCHER></TALLYMESSAGE></REQUESTDATA></IMPORTDATA></BODY></ENVELOPE>")
    return "".join(parts).encode()


def main():
    start = time.perf_counter()
    path, port = sys.argv[1:]
    refused = 0
    for voucher in vouchers_of(rows_of(path)):
        with urllib.request.urlopen(f"http://127.0.0.1:{port}", document(voucher)) as answer:
            refused += ElementTree.fromstring(answer.read()).findtext("CREATED") != "1"
    print(f"{time.perf_counter() - start:.6f}")
    sys.exit(1 if refused else 0)


main()
