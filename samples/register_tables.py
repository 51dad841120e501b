"""The sheets of register.xls: two registers, each with the map that tells what its
amount columns are. They name the masters of ledgers-and-items.xls and masters.xls.

A register with the three columns of a currency is in foreign currency in all its
rows, so exports have a register of their own. SR/6 is wrong on purpose, and its
narration says so.
"""

from tables import joined

SALEREGISTER = joined("""
# | VchType     | ID    | VchNo | VchDate    | RefNo  | Ledger                | AdjMethod | AdjName | AdjDate | AdjAmount | Narration
1 | Sales       | SR-01 | SR/1  | 02-05-2025 | PO 131 | Gokhale Constructions | New Ref   | SR/1    | 30 Days | 22750     | Fittings, packed
2 | Sales       | SR-02 | SR/2  | 02-05-2025 |        | नाशिक निर्माण संघ         | New Ref   | SR/2    | 15 Days | 8200      | Pipes, less discount
3 | Sales       | SR-03 | SR/3  | 03-05-2025 |        | Cash                  |           |         |         | 0         | Counter, rounded down
4 | Sales       | SR-04 | SR/4  | 05-05-2025 | PO 140 | Gokhale Constructions | New Ref   | SR/4    | 30 Days | 6918      | Lorry and crane, with service tax
5 | Credit Note | SR-05 | SR/5  | 06-05-2025 | SR/1   | Gokhale Constructions | Agst Ref  | SR/1    |         | 2250      | Fittings back: all amounts are negative
6 | Sales       | SR-06 | SR/6  | 07-05-2025 |        | Gokhale Constructions | New Ref   | SR/6    | 30 Days | 1025      | Refused on purpose: the total is 100 short
""", """
# | TotalAmount | Goods125 | VAT125 | Goods5 | VAT5 | Cartage | ServiceTax | Packing | Loading | Deposit | Discount | RoundOff
1 | 22750       | 20000    | 2500   | 0      | 0    | 0       | 0          | 250     |         |         |          |
2 | 8200        | 0        | 0      | 8000   | 400  | 0       | 0          | 0       |         |         | 200.25   | 0.25
3 | 1250        | 1111.50  | 138.94 | 0      | 0    | 0       | 0          | 0       |         |         |          | -0.44
4 | 6918        |          |        |        |      | 5000    | 618        |         | 300     | 1000    |          |
5 | -2250       | -2000    | -250   |        |      |         |            |         |         |         |          |
6 | 1025        | 1000     | 125    |        |      |         |            |         |         |         |          |
""", """
# | TaxPart | CessPart | SecCessPart | CostCategory | CostCentre    | DespatchedThrough | Destination | OrderNos | OrderDates | PaymentTerms | TermsOfDelivery | Buyer                 | BuyerTINNo
1 |         |          |             | Salesmen     | Asha Kulkarni | MH-04 Tempo       | Bhosari     | PO 131   | 30-04-2025 | 30 days      | At the gate     | Gokhale Constructions | 27330012345V
2 |         |          |             |              |               |                   |             |          |            |              |                 |                       |
4 | 600     | 12       | 6           | Vehicles     | MH-04 Tempo   |                   | Baner       | PO 140   | 05-05-2025 | 30 days      |                 | Gokhale Constructions | 27330012345V
""")

# TaxPart, CessPart and SecCessPart are columns of amounts without a row here: they
# are no ledgers, the tax bill of ServiceTax takes them.
SALEREGISTER_MAP = joined("""
#  | ColumnName  | LedgerName             | LedgerSign | Order | VATClassification  | VATRate | AssessableColumn
1  | TotalAmount | Auto                   | Dr         | 1     |                    |         |
2  | Goods125    | Sales VAT 12.5%        | Cr         | 2     | Output VAT @ 12.5% | 12.5    | Goods125
3  | VAT125      | Output VAT 12.5%       | Cr         | 3     | Output VAT @ 12.5% | 12.5    | Goods125
4  | Goods5      | Sales VAT 5%           | Cr         | 4     | Output VAT @ 5%    | 5       | Goods5
5  | VAT5        | Output VAT 5%          | Cr         | 5     | Output VAT @ 5%    | 5       | Goods5
6  | Cartage     | Cartage Outward        | Cr         | 6     |                    |         |
7  | ServiceTax  | Service Tax on Cartage | Cr         | 7     |                    |         | Cartage
8  | Packing     | Packing Charges        | Cr         | 8     |                    |         |
9  | Loading     | Loading Charges        | Cr         | 9     |                    |         |
10 | Deposit     | Container Deposits     | Cr         | 10    |                    |         |
11 | Discount    | Discount Allowed       | Dr         | 11    |                    |         |
12 | RoundOff    | Round Off              | Cr         | 12    |                    |         |
""", """
#  | ServiceTaxOn | ServiceTaxRate | ServiceTaxColumn | CessRate | CessColumn | SecCessRate | SecCessColumn | ServiceTaxLedger | ExpenseColumn
6  |              |                |                  |          |            |             |               | Cartage Outward  |
7  | Yes          | 12             | TaxPart          | 2        | CessPart   | 1           | SecCessPart   |                  | Cartage
""")

# No column ID: it is made of the others, with the first column for a date.
VOUCHERREGISTER = """
VchDate    | VchType | VchNo | RefNo     | Ledger         | AdjMethod | AdjName | AdjDate | AdjAmount | TotalAmount | Goods | Freight | Discount | VchCurrency | BaseCurrency | ExchangeRate | Narration
08-05-2025 | Sales   | EX/11 | GB/2025/9 | Gulf Build LLC | New Ref   | EX/11   | 60 Days | 2450      | 2450        | 2300  | 200     | 50       | $           | ₹            | 85.25        | Pipes to Jebel Ali
09-05-2025 | Sales   | EX/12 |           | Gulf Build LLC | New Ref   | EX/12   | 60 Days | 1000      | 1000        | 1000  | 0       |          | €           | ₹            | 92.50        | Bolts to Sohar
"""

VOUCHERREGISTER_MAP = """
ColumnName  | LedgerName       | LedgerSign | Order
TotalAmount | Auto             | Dr         | 1
Goods       | Export Sales     | Cr         | 2
Freight     | Cartage Outward  | Cr         | 3
Discount    | Discount Allowed | Dr         | 4
"""
