"""The workbooks of samples/business in the order in which they are posted: masters
first, and what names a master behind it. All of it is accepted.

The books are those of the company below: each sheet names it in its first row, as
a column CompanyName may.
"""

import business_masters as masters
import business_vouchers as vouchers
import master_tables as plain
import register_tables as registers
from tables import rows_of, text_of

COMPANY = "Demo Traders"


def with_company(table):
    header, first, *rows = rows_of(table)
    return text_of([header + ["CompanyName"], first + [COMPANY], *rows])


def of_company(source):
    return {name: with_company(table) for name, table in source.items()}


# What a text file is offered as too.
TEXT = of_company({
    "LEDGERGROUPS": masters.LEDGERGROUPS,
    "COSTCATEGORIES": plain.COSTCATEGORIES,
    "COSTCENTRES": masters.COSTCENTRES,
    "LEDGERS": masters.LEDGERS,
    "UNITS": plain.UNITS,
    "GODOWNS": plain.GODOWNS,
    "STOCKGROUPS": plain.STOCKGROUPS,
    "STOCKCATEGORIES": plain.STOCKCATEGORIES,
    "STOCKITEMS": masters.STOCKITEMS,
    "TRANSACTIONS": vouchers.TRANSACTIONS,
    "QUICKTRANSACTIONS": vouchers.QUICKTRANSACTIONS,
    "BANKSTMT": vouchers.BANKSTMT,
    "COSTTRANSACTIONS": vouchers.COSTTRANSACTIONS,
    "TDSTRANSACTIONS": vouchers.TDSTRANSACTIONS,
    "SERVICETAXTRANSACTIONS": vouchers.SERVICETAXTRANSACTIONS,
    "STTDSTRANSACTIONS": vouchers.STTDSTRANSACTIONS,
    "ORDERS": vouchers.ORDERS,
    "NOTES": vouchers.NOTES,
    "ITEMTRANSACTIONS": vouchers.ITEMTRANSACTIONS,
    "VATTRANSACTIONS": vouchers.VATTRANSACTIONS,
    "VATTRANSACTIONSMC": vouchers.VATTRANSACTIONSMC,
    "CRDRNOTES": vouchers.CRDRNOTES,
    "STOCKJV": vouchers.STOCKJV,
    "PHYSICALSTOCK": vouchers.PHYSICALSTOCK,
    "ATTENDANCE": vouchers.ATTENDANCE,
})

WORKBOOKS_ONLY = of_company({
    "LEDGERGROUPSGST": masters.LEDGERGROUPSGST,
    "EMPLOYEECATEGORIES": masters.EMPLOYEECATEGORIES,
    "EMPLOYEEGROUPS": masters.EMPLOYEEGROUPS,
    "EMPLOYEES": masters.EMPLOYEES,
    "LEDGERSGST": masters.LEDGERSGST,
    "UNITSGST": masters.UNITSGST,
    "GODOWNSGST": masters.GODOWNSGST,
    "STOCKGROUPSGST": masters.STOCKGROUPSGST,
    "STOCKCATEGORIESGST": masters.STOCKCATEGORIESGST,
    "STOCKITEMSGST": masters.STOCKITEMSGST,
    "UPDATEGROUPALIAS": masters.UPDATEGROUPALIAS,
    "UPDATELEDGERALIAS": masters.UPDATELEDGERALIAS,
    "UPDATELEDGEROPENING": masters.UPDATELEDGEROPENING,
    "UPDATEPARTYGSTIN": masters.UPDATEPARTYGSTIN,
    "UPDATESTOCKITEMALIAS": masters.UPDATESTOCKITEMALIAS,
    "UPDATESTOCKITEMOPENING": masters.UPDATESTOCKITEMOPENING,
    "SALEREGISTER": vouchers.SALEREGISTER,
    "V_TRANSACTIONS": vouchers.V_TRANSACTIONS,
    "VOUCHERREGISTER": registers.VOUCHERREGISTER,
    "TRANSACTIONSGST": vouchers.TRANSACTIONSGST,
    "SALESBILLS": vouchers.SALESBILLS,
})

MAPS = {
    "SALEREGISTER": registers.SALEREGISTER_MAP,
    "V_TRANSACTIONS": vouchers.V_TRANSACTIONS_MAP,
    "VOUCHERREGISTER": registers.VOUCHERREGISTER_MAP,
}

ORDER = """
LEDGERGROUPS LEDGERGROUPSGST COSTCATEGORIES COSTCENTRES
EMPLOYEECATEGORIES EMPLOYEEGROUPS EMPLOYEES LEDGERS LEDGERSGST
UNITS UNITSGST GODOWNS GODOWNSGST STOCKGROUPS STOCKGROUPSGST
STOCKCATEGORIES STOCKCATEGORIESGST STOCKITEMS STOCKITEMSGST
UPDATEGROUPALIAS UPDATELEDGERALIAS UPDATELEDGEROPENING UPDATEPARTYGSTIN
UPDATESTOCKITEMALIAS UPDATESTOCKITEMOPENING
TRANSACTIONS QUICKTRANSACTIONS BANKSTMT COSTTRANSACTIONS
TDSTRANSACTIONS SERVICETAXTRANSACTIONS STTDSTRANSACTIONS
ORDERS NOTES ITEMTRANSACTIONS VATTRANSACTIONS VATTRANSACTIONSMC
CRDRNOTES STOCKJV PHYSICALSTOCK ATTENDANCE
SALEREGISTER V_TRANSACTIONS VOUCHERREGISTER TRANSACTIONSGST SALESBILLS
""".split()


def sheets_of(name):
    sheets = {name: TEXT[name] if name in TEXT else WORKBOOKS_ONLY[name]}
    if name in MAPS:
        sheets[name + "Map"] = MAPS[name]
    return sheets


# A workbook for each type, as make_samples.py has them: its place in the order is
# the beginning of its name.
WORKBOOKS = {f"business/{place:02}-{name}.xls": sheets_of(name)
             for place, name in enumerate(ORDER, 1)}
assert sorted(ORDER) == sorted(TEXT.keys() | WORKBOOKS_ONLY.keys())
