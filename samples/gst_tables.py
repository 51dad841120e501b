"""The sheets of gst.xls, in the form that make_samples.py reads: a hardware shop
under GST, posted through the formats that come with the program.

In TRANSACTIONSGST the ledger of G/3 is misspelt on purpose.
"""

UNITS = """
Name | IsSimpleUnit | OriginalName | DecimalPlaces | BaseUnits | AdditionalUnits | Conversion
Nos  | Yes          | Numbers      | 0             |           |                 |
Kgs  | Yes          | Kilograms    | 3             |           |                 |
"""

LEDGERSGST = """
SrNo | Name              | NameAlias | Parent             | RegistrationType | GSTIN           | State       | Country | PinCode | Address1        | ApplicableFrom | BillWiseOn | TaxType | DutyHead        | TaxRate | SupplyType | GSTApplicable | HSNCode | GSTRate | Taxability | OpeningBalance
1    | Konkan Builders   | KB        | Sundry Debtors     | Regular          | 27AAACK1234F1Z5 | Maharashtra | India   | 400601  | 12 Station Road | 01-04-2025     | Yes        |         |                 |         |            |               |         |         |            | -25000
2    | Gulbarga Hardware |           | Sundry Debtors     | Regular          | 29AABCG5678K1Z2 | Karnataka   | India   | 585101  | Main Bazaar     | 01-04-2025     | Yes        |         |                 |         |            |               |         |         |            |
3    | Counter Customers |           | Sundry Debtors     | Unregistered     |                 | Maharashtra | India   |         |                 | 01-04-2025     | No         |         |                 |         |            |               |         |         |            |
4    | Sales - GST 18%   |           | Sales Accounts     |                  |                 |             |         |         |                 | 01-04-2025     |            |         |                 |         | Goods      | {Applicable}  | 7214    | 18      | Taxable    |
5    | Output CGST       |           | Duties & Taxes     |                  |                 |             |         |         |                 |                |            | GST     | CGST            | 9       |            |               |         |         |            |
6    | Output SGST       |           | Duties & Taxes     |                  |                 |             |         |         |                 |                |            | GST     | SGST/UTGST      | 9       |            |               |         |         |            |
7    | Output IGST       |           | Duties & Taxes     |                  |                 |             |         |         |                 |                |            | GST     | IGST            | 18      |            |               |         |         |            |
"""

STOCKITEMSGST = """
SrNo | Name         | NameAlias | Parent | BaseUnits | SupplyType | ApplicableFrom | HSNCode | HSNDescription        | Taxability | GSTRate | CessRate | OpeningQty | OpeningRate | OpeningValue
1    | TMT Bar 8 mm | TMT8      |        | Kgs       | Goods      | 01-04-2025     | 7214    | Bars and rods of iron | Taxable    | 18      |          | 1200 Kgs   | 55/Kgs      | 66000
2    | Wood Screw   |           |        | Nos       | Goods      | 01-04-2025     | 7318    | Screws, bolts, nuts   | Taxable    | 18      |          |            |             |
3    | Tobacco Tin  |           |        | Nos       | Goods      | 01-04-2025     | 2403    |                       | Taxable    | 28      | 65       |            |             |
4    | Jute Bag     |           |        | Nos       | Goods      | 01-04-2025     | 6305    | Sacks and bags        | Exempt     |         |          |            |             |
"""

TRANSACTIONSGST = """
SrNo | ID  | VchType | VchNo | VchDate    | RefNo | Party             | RegistrationType | GSTIN           | State       | PlaceOfSupply | Ledger            | Debit | Credit | AdjMethod | AdjName | AdjDate | AdjAmount | HSNCode | EwayBillNo   | EwayBillDate | TransportMode | VehicleNumber | Distance | Narration
1    | V-1 | Sales   | G/1   | 02-04-2025 | PO 12 | Konkan Builders   | Regular          | 27AAACK1234F1Z5 | Maharashtra | Maharashtra   | Konkan Builders   | 59000 |        | New Ref   | G/1     | 30 Days | 59000     |         | 391004876521 | 02-04-2025   | 1 - Road      | MH04AB1234    | 35       | TMT bars
2    |     |         |       |            |       |                   |                  |                 |             |               | Sales - GST 18%   |       | 50000  |           |         |         |           | 7214    |              |              |               |               |          |
3    |     |         |       |            |       |                   |                  |                 |             |               | Output CGST       |       | 4500   |           |         |         |           |         |              |              |               |               |          |
4    |     |         |       |            |       |                   |                  |                 |             |               | Output SGST       |       | 4500   |           |         |         |           |         |              |              |               |               |          |
5    | V-2 | Sales   | G/2   | 03-04-2025 |       | Gulbarga Hardware | Regular          | 29AABCG5678K1Z2 | Karnataka   | Karnataka     | Gulbarga Hardware | 11800 |        | New Ref   | G/2     |         | 11800     |         |              |              |               |               |          | Screws
6    |     |         |       |            |       |                   |                  |                 |             |               | Sales - GST 18%   |       | 10000  |           |         |         |           | 7318    |              |              |               |               |          |
7    |     |         |       |            |       |                   |                  |                 |             |               | Output IGST       |       | 1800   |           |         |         |           |         |              |              |               |               |          |
8    | V-3 | Sales   | G/3   | 04-04-2025 |       | Counter Customers | Unregistered     |                 | Maharashtra | Maharashtra   | Counter Customers | 1180  |        |           |         |         |           |         |              |              |               |               |          | Over the counter
9    |     |         |       |            |       |                   |                  |                 |             |               | Sales - GST 81%   |       | 1000   |           |         |         |           | 7318    |              |              |               |               |          |
10   |     |         |       |            |       |                   |                  |                 |             |               | Output CGST       |       | 90     |           |         |         |           |         |              |              |               |               |          |
11   |     |         |       |            |       |                   |                  |                 |             |               | Output SGST       |       | 90     |           |         |         |           |         |              |              |               |               |          |
"""

# The report of a run names its vouchers by the ID.
SALESBILLS = """
SrNo | ID    | BillNo | BillDate   | Customer          | SalesLedger     | Taxable | GSTRate | Interstate | Narration
1    | SB-01 | B/1    | 05-04-2025 | Konkan Builders   | Sales - GST 18% | 2500    | 18      | No         | Two boxes of screws
2    | SB-02 | B/2    | 05-04-2025 | Gulbarga Hardware | Sales - GST 18% | 1250.50 | 18      | Yes        | Bags
3    | SB-03 | B/3    | 06-04-2025 | Counter Customers | Sales - GST 18% | 99.99   | 0       | No         | Exempt goods
"""
