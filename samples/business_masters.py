"""The masters of samples/business: the shop of the other samples, without the rows
that are wrong there and with every column that its import types know.
"""

import item_tables as items
import master_tables as masters
import voucher_tables as vouchers
from tables import joined, stacked, widened, without

LEDGERGROUPS = without(masters.LEDGERGROUPS, "Name", "Debtors - Goa")

COSTCENTRES = widened(masters.COSTCENTRES, """
Name          | AffectsStock | ForPayroll | IsEmployeeGroup | SortPosition
Mumbai Branch | No           | No         | No              | 10
Andheri Desk  | No           | No         | No              | 20
Pune Branch   | No           | No         | No              | 30
Asha Kulkarni | No           | No         | No              | 110
Ravi D'Souza  | No           | No         | No              | 120
MH-04 Tempo   | No           | No         | No              | 210
Metro Site    | Yes          | No         | No              | 310
""")

EMPLOYEECATEGORIES = """
Name               | NameAlias | Parent
Permanent Staff    | Permanent |
Staff by the Month |           |
"""

EMPLOYEEGROUPS = """
Name              | NameAlias | Category           | Parent
Shop Staff        |           | Permanent Staff    |
Counter           | Desk      | Permanent Staff    | Shop Staff
Accounts          |           | Permanent Staff    | Shop Staff
Godown Staff      | Loaders   | Staff by the Month |
"""

EMPLOYEES = joined("""
# | Name         | NameAlias | Category           | Parent       | DisplayName  | JoiningDate | LeavingDate | BirthDate  | Gender
1 | Meena Joshi  | E-01      | Permanent Staff    | Accounts     | Meena J.     | 01-06-2018  |             | 14-02-1990 | Female
2 | Suresh Patil | E-02      | Permanent Staff    | Counter      | Suresh       | 15-03-2021  |             | 30-11-1995 | Male
3 | Imtiaz Khan  | E-03      | Staff by the Month | Godown Staff | Imtiaz       | 02-01-2024  |             | 08-07-1999 | Male
4 | Kavita Rao   | E-04      | Permanent Staff    | Counter      |              | 01-10-2022  | 30-04-2025  | 19-09-1997 | Female
""", """
# | Designation | Function  | Location | Phone      | Email                | PanNo      | PFNo                 | ESINo
1 | Accountant  | Accounts  | Andheri  | 9820011223 | meena@demo.example   | AFQPJ1234K | MHBAN00123450000001  | 3100123456
2 | Salesman    | Sales     | Andheri  | 9820044556 | suresh@demo.example  | BTRPP5678L | MHBAN00123450000002  | 3100123457
3 | Loader      | Warehouse | Bhiwandi | 9820077889 |                      |            |                      |
4 | Saleswoman  | Sales     | Andheri  | 9820099001 | kavita@demo.example  | CKLPR9012M | MHBAN00123450000003  | 3100123458
""")

# The ledgers of transactions.xls, then those of ledgers-and-items.xls, whose closing
# row ends the sheet. With the stock, the openings add up to nothing.
LEDGERS = stacked(
    """
Name                  | NameAlias | Parent          | BillWiseOn | CostCentresOn | AffectInventory | OpeningBalance
Capital - Anil Shah   | Capital   | Capital Account | No         | No            | No              | 1021841.75
""",
    widened(without(vouchers.LEDGERS, "Name", "END"), """
Name                    | CostCentresOn | AffectInventory | OpeningBalance
HDFC Bank               | No            | No              | -150000
Sales - Hardware        | Yes           | No              |
Purchases - Steel       | Yes           | No              |
Freight Inward          | Yes           | No              |
Salaries                | Yes           | No              |
Professional Fees       | Yes           | No              |
Advertising             | Yes           | No              |
Conveyance              | Yes           | No              |
Bank Charges            | Yes           | No              |
Furniture               | No            | No              | -90000
"""),
    without(items.LEDGERS, "Name", "Kolhapur Foundry"))

STOCKITEMS = without(items.STOCKITEMS, "Name", "Thinner")

# The masters of GST: groups with the rates that their ledgers and items inherit,
# and a canteen, whose cold drinks bear a cess.
LEDGERGROUPSGST = """
Name            | NameAlias  | Parent         | SubLedger | ApplicableFrom | HSNCode | HSNDescription            | Taxability | GSTRate | CessRate
GST Sales 18%   | GST 18     | Sales Accounts | No        | 01-04-2025     | 7308    | Structures of iron, steel | Taxable    | 18      |
Canteen Sales   |            | Sales Accounts | No        | 01-04-2025     | 2202    | Aerated waters            | Taxable    | 28      | 12
Exempt Sales    |            | Sales Accounts | No        | 01-04-2025     | 6305    | Sacks and bags            | Exempt     | 0       |
GST Parties     |            | Sundry Debtors | Yes       |                |         |                           |            |         |
"""

LEDGERSGST = joined("""
#  | SrNo | Name               | NameAlias | Parent          | CurrencyName | BillWiseOn | CostCentresOn | AffectsStock | CreditPeriod | OpeningBalance
1  | 1    | Konkan Builders    | KB        | GST Parties     | ₹            | Yes        | No            | No           | 30 Days      | -25000
2  | 2    | Gulbarga Hardware  |           | GST Parties     | ₹            | Yes        | No            | No           | 15 Days      |
3  | 3    | Counter Customers  |           | GST Parties     | ₹            | No         | No            | No           |              |
4  | 4    | Sales - GST 18%    |           | GST Sales 18%   |              | No         | Yes           | Yes          |              |
5  | 5    | Cold Drinks Sold   |           | Canteen Sales   |              | No         | No            | Yes          |              |
6  | 6    | Output CGST        |           | Duties & Taxes  |              | No         | No            | No           |              |
7  | 7    | Output SGST        |           | Duties & Taxes  |              | No         | No            | No           |              |
8  | 8    | Output IGST        |           | Duties & Taxes  |              | No         | No            | No           |              |
""", """
#  | MailingName           | Address1        | Address2        | Address3 | State       | Country | PinCode | Contact      | Phone        | Mobile     | Email                  | PanNo
1  | Konkan Builders (LLP) | 12 Station Road | Naupada         | Thane    | Maharashtra | India   | 400601  | Nilesh Konde | 022-25331144 | 9821012345 | office@konkan.example  | AAACK1234F
2  | Gulbarga Hardware     | Main Bazaar     | Opp. Clock Tower | Kalaburagi | Karnataka | India  | 585101  | B. S. Patil  |              | 9448012345 | gulbarga@hw.example    | AABCG5678K
3  |                       |                 |                 |          | Maharashtra | India   |         |              |              |            |                        |
""", """
#  | RegistrationType | GSTIN           | ApplicableFrom | TaxType | DutyHead   | TaxRate | SupplyType | GSTApplicable | HSNCode | HSNDescription        | GSTRate | CessRate | Taxability
1  | Regular          | 27AAACK1234F1Z5 | 01-04-2025     |         |            |         |            |               |         |                       |         |          |
2  | Regular          | 29AABCG5678K1Z2 | 01-04-2025     |         |            |         |            |               |         |                       |         |          |
3  | Unregistered     |                 | 01-04-2025     |         |            |         |            |               |         |                       |         |          |
4  |                  |                 | 01-04-2025     |         |            |         | Goods      | {Applicable}  | 7214    | Bars and rods of iron | 18      |          | Taxable
5  |                  |                 | 01-04-2025     |         |            |         | Goods      | {Applicable}  | 2202    | Aerated waters        | 28      | 12       | Taxable
6  |                  |                 |                | GST     | CGST       | 9       |            |               |         |                       |         |          |
7  |                  |                 |                | GST     | SGST/UTGST | 9       |            |               |         |                       |         |          |
8  |                  |                 |                | GST     | IGST       | 18      |            |               |         |                       |         |          |
""")

UNITSGST = """
Name          | IsSimpleUnit | OriginalName | DecimalPlaces | BaseUnits | AdditionalUnits | Conversion
Bag           | Yes          | Bags         | 0             |           |                 |
Btl           | Yes          | Bottles      | 0             |           |                 |
Crt           | Yes          | Crates       | 0             |           |                 |
Sqf           | Yes          | Square Feet  | 2             |           |                 |
Crt of 24 Btl | No           |              |               | Crt       | Btl             | 24
"""

GODOWNSGST = """
Name          | NameAlias | Parent             | HasNoStock | Address1         | Address2   | State       | Country | PinCode | TaxUnit
Cement Shed   | Shed      | Bhiwandi Warehouse | No         | Gala 11, Rahnal  | Bhiwandi   | Maharashtra | India   | 421302  | Bhiwandi Unit
Kalaburagi Depot |        | Primary            | No         | APMC Yard        | Kalaburagi | Karnataka   | India   | 585104  | Kalaburagi Unit
Goods on Approval |       | Primary            | Yes        |                  |            |             |         |         |
"""

STOCKGROUPSGST = """
Name         | NameAlias | Parent  | IsAddable | BaseUnits | ApplicableFrom | HSNCode | HSNDescription  | Taxability | GSTRate | CessRate
Cement       |           | Primary | Yes       | Bag       | 01-04-2025     | 2523    | Portland cement | Taxable    | 28      |
Cold Drinks  | Drinks    | Primary | Yes       | Btl       | 01-04-2025     | 2202    | Aerated waters  | Taxable    | 28      | 12
Jute Goods   |           | Primary | No        | Nos       | 01-04-2025     | 6305    | Sacks and bags  | Exempt     | 0       |
"""

STOCKCATEGORIESGST = """
Name        | NameAlias | Parent
Canteen     |           | Primary
Fast Movers | Daily     | Trade
"""

STOCKITEMSGST = joined("""
# | SrNo | Name            | NameAlias | Parent      | Category    | BaseUnits | AdditionalUnits | Conversion | Denominator | BatchwiseOn | Description
1 | 1    | Cement OPC 43   | OPC43     | Cement      | Fast Movers | Bag       |                 |            |             | Yes         | 50 kg bags, keep dry
2 | 2    | Wood Screw 8x32 | WS832     | Fasteners   | Economy     | Nos       | Box             | 1          | 200         | No          | Brass, slotted
3 | 3    | Cold Drink 300  |           | Cold Drinks | Canteen     | Btl       | Crt             | 1          | 24          | No          | Returnable bottle
4 | 4    | Jute Bag        |           | Jute Goods  | Canteen     | Nos       |                 |            |             | No          |
""", """
# | SupplyType | ApplicableFrom | HSNCode | HSNDescription      | Taxability | GSTRate | CessRate | OpeningQty | OpeningRate | OpeningValue
1 | Goods      | 01-04-2025     | 2523    | Portland cement     | Taxable    | 28      |          | 150 Bag    | 340/Bag     | 51000
2 | Goods      | 01-04-2025     | 7318    | Screws, bolts, nuts | Taxable    | 18      |          | 4000 Nos   | 2/Nos       | 8000
3 | Goods      | 01-04-2025     | 2202    | Aerated waters      | Taxable    | 28      | 12       | 96 Btl     | 12.5/Btl    | 1200
4 | Goods      | 01-04-2025     | 6305    | Sacks and bags      | Exempt     | 0       |          |            |             |
""")

# What changes when the books are there already.
UPDATEGROUPALIAS = """
Name               | NameAlias | NameAlias2
Creditors - Steel  | Mills     | Rolling Mills
Creditors - Paint  | Painters  |
"""

UPDATELEDGERALIAS = """
Name                 | NameAlias | NameAlias2
Deccan Constructions | DECCON    | Deccan Const.
Steelways India      | SWI       |
"""

UPDATELEDGEROPENING = """
Name      | OpeningBalance
HDFC Bank | -184250.75
Cash      | -12400
"""

UPDATEPARTYGSTIN = """
Name                  | State       | RegistrationType | GSTIN           | ApplicableFrom
Deccan Constructions  | Maharashtra | Regular          | 27AAACD4321G1Z7 | 01-04-2025
Gokhale Constructions | Maharashtra | Regular          | 27AAFCG1234H1Z6 | 01-04-2025
Steelways India       | Maharashtra | Composition      | 27AABCS8765J1Z4 | 01-07-2025
"""

UPDATESTOCKITEMALIAS = """
Name          | NameAlias | NameAlias2
TMT Bar 12 mm | TMT12     | Sariya 12
Jute Bag      | Goni      |
"""

UPDATESTOCKITEMOPENING = """
Name          | OpeningQty | OpeningRate | OpeningValue | Godown
TMT Bar 12 mm | 3100 Kgs   | 50/Kgs      | 155000       | Open Yard
Jute Bag      | 300 Nos    | 18.5/Nos    | 5550         | Andheri Shop
"""
