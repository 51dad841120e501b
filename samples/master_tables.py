"""The sheets of masters.xls, in the form that make_samples.py reads. In LEDGERGROUPS
the parent of one group is misspelt on purpose.
"""

LEDGERGROUPS = """
Name                 | NameAlias        | Parent                   | SubLedger
Hardware Sales       |                  | Sales Accounts           | No
Counter Sales        |                  | Hardware Sales           | No
Hardware Purchases   |                  | Purchase Accounts        | No
Debtors - Mumbai     | Mumbai Parties   | Sundry Debtors           | Yes
Debtors - Pune       | Pune Parties     | Sundry Debtors           | Yes
नाशिक के ग्राहक          | Debtors - Nashik | Sundry Debtors           | Yes
Debtors - Goa        |                  | Sundry Debitors          | Yes

Creditors - Steel    |                  | Sundry Creditors         | Yes
Creditors - Paint    |                  | Sundry Creditors         | Yes
Staff Advances       |                  | Loans & Advances (Asset) | No
Freight & Cartage    | Transport        | Direct Expenses          | No
"""

UNITS = """
Name           | IsSimpleUnit | OriginalName | DecimalPlaces | BaseUnits | AdditionalUnits | Conversion
Nos            | Yes          | Numbers      | 0             |           |                 |
Pcs            | Yes          | Pieces       | 0             |           |                 |
Box            | Yes          | Boxes        | 0             |           |                 |
Doz            | Yes          | Dozens       | 0             |           |                 |
Kgs            | Yes          | Kilograms    | 3             |           |                 |
Qtl            | Yes          | Quintals     | 2             |           |                 |
Mtr            | Yes          | Metres       | 2             |           |                 |
Ltr            | Yes          | Litres       | 2             |           |                 |
Doz of 12 Nos  | No           |              |               | Doz       | Nos             | 12
Box of 50 Pcs  | No           |              |               | Box       | Pcs             | 50
Qtl of 100 Kgs | No           |              |               | Qtl       | Kgs             | 100
"""

GODOWNS = """
Name                | NameAlias | Parent             | HasNoStock
Bhiwandi Warehouse  | BHW       | Primary            | No
Rack A - Pipes      |           | Bhiwandi Warehouse | No
Rack B - Fasteners  |           | Bhiwandi Warehouse | No
Open Yard           |           | Bhiwandi Warehouse | No
Andheri Shop        | Shop      | Primary            | No
Goods with Painters |           | Primary            | No
"""

STOCKGROUPS = """
Name           | NameAlias | Parent      | IsAddable
Steel          |           | Primary     | Yes
TMT Bars       | Rebars    | Steel       | Yes
Angles & Beams |           | Steel       | Yes
Pipes          |           | Primary     | Yes
GI Pipes       |           | Pipes       | Yes
PVC Pipes      |           | Pipes       | Yes
Fasteners      | Nut Bolt  | Primary     | Yes
Paints         |           | Primary     | No
"""

STOCKCATEGORIES = """
Name       | NameAlias | Parent
Trade      |           | Primary
Economy    |           | Trade
Premium    | ISI       | Trade
Imported   |           | Primary
Scrap      | Bhangar   | Primary
"""

COSTCATEGORIES = """
Name     | NameAlias | AllocateRevenue | AllocateNonRevenue
Branches |           | Yes             | Yes
Salesmen | Field     | Yes             | No
Vehicles |           | No              | Yes
"""

COSTCENTRES = """
Name          | NameAlias | Parent        | Category | ForJobCosting
Mumbai Branch | BOM       |               | Branches | No
Andheri Desk  |           | Mumbai Branch | Branches | No
Pune Branch   | PNQ       |               | Branches | No
Asha Kulkarni | AK        |               | Salesmen | No
Ravi D'Souza  | RD        |               | Salesmen | No
MH-04 Tempo   |           |               | Vehicles | No
Metro Site    |           |               |          | Yes
"""
