"""The sheets of inventory-vouchers.xls: the nine types with stock, notes and
attendance. They name the masters of masters.xls and ledgers-and-items.xls.

Four vouchers are wrong on purpose, and their narrations say so: IS/2 names an item
that does not exist, SJ/3 a godown, VS/3 has unequal sides, and CN/12 an unknown
ledger.
"""

from tables import joined

# The service tax stands in the last voucher: the party of the tax stays for all
# rows below it. A bank amount or tax bill would not reach Tally from this type.
VATTRANSACTIONS = joined("""
#  | SrNo | ID    | VchType  | VchNo | VchDate    | RefNo   | RefDate    | VchViewType | Narration
1  | 1    | VT-01 | Sales    | VS/1  | 05-04-2025 | PO 118  | 03-04-2025 | Invoice     | Bars and bolts to the Bhosari site
2  | 2    |       |          |       |            |         |            |             |
3  | 3    |       |          |       |            |         |            |             |
4  | 4    |       |          |       |            |         |            |             |
5  | 5    |       |          |       |            |         |            |             |
6  | 6    | VT-02 | Purchase | VP/1  | 07-04-2025 | BTP/351 | 06-04-2025 |             | Pipes, in two lots
7  | 7    |       |          |       |            |         |            |             |
8  | 8    |       |          |       |            |         |            |             |
9  | 9    |       |          |       |            |         |            |             |
10 | 10   | VT-03 | Sales    | VS/2  | 09-04-2025 |         |            | as invoice  | पेंट और ब्रश
11 | 11   |       |          |       |            |         |            |             |
12 | 12   |       |          |       |            |         |            |             |
13 | 13   |       |          |       |            |         |            |             |
14 | 14   | VT-04 | Sales    | VS/3  | 10-04-2025 |         |            | Invoice     | Refused on purpose: the party has no tax
15 | 15   |       |          |       |            |         |            |             |
16 | 16   |       |          |       |            |         |            |             |
17 | 17   | VT-05 | Journal  | VJ/1  | 11-04-2025 | WC/52   |            |             | Lorry hire with service tax
18 | 18   |       |          |       |            |         |            |             |
19 | 19   |       |          |       |            |         |            |             |
""", """
#  | Ledger                 | Debit    | Credit   | AdjMethod | AdjName | AdjDate | AdjAmount
1  | Gokhale Constructions  | 40850    |          | New Ref   | VS/1    | 30 Days | 40850
2  | Sales VAT 12.5%        |          | 26000    |           |         |         |
3  | Sales VAT 12.5%        |          | 9600     |           |         |         |
4  | Output VAT 12.5%       |          | 4450     |           |         |         |
5  | Cartage Outward        |          | 800      |           |         |         |
6  | Bharat Tubes & Pipes   |          | 48937.50 | New Ref   | BTP/351 | 45 Days | 48937.50
7  | Purchases VAT 12.5%    | 29000    |          |           |         |         |
8  | Purchases VAT 12.5%    | 14500    |          |           |         |         |
9  | Input VAT 12.5%        | 5437.50  |          |           |         |         |
10 | नाशिक निर्माण संघ          | 12487.50 |          | New Ref   | VS/2    |         | 12487.50
11 | Sales VAT 12.5%        |          | 9000     |           |         |         |
12 | Sales VAT 12.5%        |          | 2100     |           |         |         |
13 | Output VAT 12.5%       |          | 1387.50  |           |         |         |
14 | Gokhale Constructions  | 5000     |          | New Ref   | VS/3    |         | 5000
15 | Sales VAT 5%           |          | 5000     |           |         |         |
16 | Output VAT 5%          |          | 250      |           |         |         |
17 | Cartage Outward        | 10000    |          |           |         |         |
18 | Service Tax on Cartage | 1236     |          | New Ref   | WC/52   |         | 1236
19 | Western Carriers       |          | 11236    | New Ref   | WC/52   | 15 Days | 11236
""", """
#  | ItemName         | ItemDescription           | Quantity | Unit | Rate   | Per | GodownName         | BatchName | MfdDate    | ExpiryPeriod | OrderNo | TrackingNo
2  | TMT Bar 8 mm     |                           | 500      | Kgs  | 52     |     | Open Yard          |           |            |              | PO 118  | DN/40
3  | Hex Bolt M12     | Grade 8.8#zinc plated     | 8        | Box  | 1200   |     | Rack B - Fasteners |           |            |              |         |
7  | GI Pipe 1"       | Class B##6 m lengths      | 200 Mtr  | Mtr  | 145    | Mtr | Rack A - Pipes     |           |            |              |         | GRN/31
8  | GI Pipe 1"       |                           | 100 Mtr  | Mtr  | 145    | Mtr |                    |           |            |              |         | GRN/32
11 | Enamel White 4 L | White, gloss              | 10       | Nos  | 900    |     | Andheri Shop       | EW-2411   | 15-11-2024 | 24 Months    |         |
12 | पेंट ब्रश 2 इंच      |                           | 6        | Doz  | 350    |     | Andheri Shop       |           |            |              |         |
15 | PVC Pipe 110 mm  |                           | 20       | Mtr  | 250    |     | Rack A - Pipes     |           |            |              |         |
""", """
#  | TaxClassification    | TaxRate | AssessableAmt | ServiceTaxOn     | ServiceTaxLedger | ServiceTax | Cess | SecCess | CostCategory | CostCentre    | CostAmount
2  | Output VAT @ 12.5%   | 12.5%   | 26000         |                  |                  |            |      |         |              |               |
3  | Output VAT @ 12.5%   | 12.5%   | 9600          |                  |                  |            |      |         |              |               |
4  | Output VAT @ 12.5%   | 12.5    | 35600         |                  |                  |            |      |         |              |               |
5  |                      |         |               |                  |                  |            |      |         | Vehicles     | MH-04 Tempo   | 800
7  | Purchases @ 12.5%    |         | 29000         |                  |                  |            |      |         |              |               |
8  | Purchases @ 12.5%    |         | 14500         |                  |                  |            |      |         |              |               |
9  | Input VAT @ 12.5%    | 12.5    | 43500         |                  |                  |            |      |         |              |               |
11 | Output VAT @ 12.5%   | 12.5    | 9000          |                  |                  |            |      |         | Salesmen     | Asha Kulkarni | 9000
12 | Output VAT @ 12.5%   | 12.5    | 2100          |                  |                  |            |      |         | Salesmen     | Asha Kulkarni | 2100
13 | Output VAT @ 12.5%   | 12.5    | 11100         |                  |                  |            |      |         |              |               |
18 |                      | 12      | 10000         | Western Carriers |                  | 1200       | 24   | 12      |              |               |
19 |                      |         |               |                  | Cartage Outward  |            |      |         |              |               |
""", """
#  | DelNoteNos | DelNoteDates | DespatchDocNo | DespatchedThrough | Destination | OrderNos | OrderDates | PaymentTerms | OtherRef | TermsOfDelivery
1  | DN/40      | 04-04-2025   | LR 8812       | MH-04 Tempo       | Bhosari     | PO 118   | 03-04-2025 | 30 days      | Verbal   | Unloading by buyer
6  | GRN/31     | 05-04-2025   | LR 4410       | Western Carriers  | Bhiwandi    | PO/0     | 28-03-2025 | 45 days      |          | Freight paid
7  | GRN/32     | 06-04-2025   |               |                   |             |          |            |              |          |
""", """
#  | Consignee        | ConsigneeAddress               | Buyer                 | BuyerAddress            | BuyerTINNo
1  | Gokhale, Bhosari | Plot 14~~MIDC Bhosari~Pune     | Gokhale Constructions |                         | 27330012345V
10 |                  |                                | नाशिक निर्माण संघ         | गंगापुर रोड~नाशिक 422005    |
""")

VATTRANSACTIONSMC = joined("""
# | SrNo | ID    | VchType | VchNo | VchDate    | RefNo    | VchViewType | Ledger          | Debit | Credit | AdjMethod | AdjName | AdjDate | AdjAmount | Narration
1 | 1    | MC-01 | Sales   | EX/1  | 12-04-2025 | GB/2025/7 | Invoice    | Gulf Build LLC  | 1560  |        | New Ref   | EX/1    | 60 Days | 1560      | Pipes and bolts to Jebel Ali
2 | 2    |       |         |       |            |          |             | Export Sales    |       | 1200   |           |         |         |           |
3 | 3    |       |         |       |            |          |             | Export Sales    |       | 300    |           |         |         |           |
4 | 4    |       |         |       |            |          |             | Cartage Outward |       | 60     |           |         |         |           |
5 | 5    | MC-02 | Sales   | EX/2  | 14-04-2025 |          | Invoice     | Gulf Build LLC  | 25600 |        | New Ref   | EX/2    | 60 Days | 25600     | The same party in rupees
6 | 6    |       |         |       |            |          |             | Export Sales    |       | 25600  |           |         |         |           |
""", """
# | ItemName     | Quantity | Unit | Rate | GodownName         | OrderNo   | TaxClassification | AssessableAmt | CostCategory | CostCentre    | CostAmount
2 | GI Pipe 1"   | 400      | Mtr  | 3    | Rack A - Pipes     | GB/2025/7 | Exports           | 1200          |              |               |
3 | Hex Bolt M12 | 20       | Box  | 15   | Rack B - Fasteners | GB/2025/7 | Exports           | 300           |              |               |
4 |              |          |      |      |                    |           |                   |               | Vehicles     | MH-04 Tempo   | 60
6 | Hex Nut M12  | 50       | Box  | 512  | Rack B - Fasteners |           | Exports           | 25600         |              |               |
""", """
# | VchCurrency | BaseCurrency | ExchangeRate
1 | $           | ₹            | 85.25
2 | $           | ₹            | 85.25
3 | $           | ₹            | 85.25
4 | $           | ₹            | 85.25
5 | ₹           | ₹            | 1
6 | ₹           | ₹            | 1
""")

ITEMTRANSACTIONS = """
SrNo | ID    | VchType | VchNo | VchDate    | RefNo | Ledger                | Debit | Credit | AdjMethod | AdjName | AdjDate | AdjAmount | ItemName        | Quantity | Rate | Unit | GodownName         | Narration
1    | IT-01 | Sales   | IS/1  | 15-04-2025 |       | Gokhale Constructions | 18900 |        | New Ref   | IS/1    | 30 Days | 18900     |                 |          |      |      |                    | Drainage pipes
2    |       |         |       |            |       | Sales VAT 5%          |       | 15000  |           |         |         |           | PVC Pipe 110 mm | 60       | 250  | Mtr  | Rack A - Pipes     |
3    |       |         |       |            |       | Sales VAT 5%          |       | 3000   |           |         |         |           | PVC Pipe 110 mm | 12       | 250  | Mtr  | Main Location      |
4    |       |         |       |            |       | Output VAT 5%         |       | 900    |           |         |         |           |                 |          |      |      |                    |
5    | IT-02 | Sales   | IS/2  | 15-04-2025 |       | Gokhale Constructions | 5400  |        | New Ref   | IS/2    | 30 Days | 5400      |                 |          |      |      |                    | Refused on purpose: no such item
6    |       |         |       |            |       | Sales VAT 12.5%       |       | 5400   |           |         |         |           | TMT Bar 10 mm   | 100      | 54   | Kgs  | Open Yard          |
7    | IT-03 | Sales   | IS/3  | 16-04-2025 |       | Cash                  | 2400  |        |           |         |         |           |                 |          |      |      |                    | Counter sale
8    |       |         |       |            |       | Sales VAT 12.5%       |       | 2400   |           |         |         |           | Hex Bolt M12    | 2        | 1200 | Box  | Rack B - Fasteners |
"""

ORDERS = joined("""
# | SrNo | ID    | VchType        | VchNo | VchDate    | RefNo | Ledger                | Debit  | Credit | AdjMethod | AdjName | AdjDate | AdjAmount | CostCategory | CostCentre    | CostAmount | Narration
1 | 1    | OR-01 | Purchase Order | PO/1  | 16-04-2025 | PO/1  | Bharat Tubes & Pipes  |        | 170000 |           |         |         |           |              |               |            | Pipes and bars, May
2 | 2    |       |                |       |            |       | Purchases VAT 12.5%   | 70000  |        |           |         |         |           |              |               |            |
3 | 3    |       |                |       |            |       | Purchases VAT 12.5%   | 100000 |        |           |         |         |           |              |               |            |
4 | 4    | OR-02 | Sales Order    | SO/1  | 17-04-2025 | SO/1  | Gokhale Constructions | 41000  |        | New Ref   | SO/1    | 30 Days | 41000     |              |               |            | Paint for the Baner towers
5 | 5    |       |                |       |            |       | Sales VAT 12.5%       |        | 36000  |           |         |         |           |              |               |            |
6 | 6    |       |                |       |            |       | Output VAT 12.5%      |        | 4500   |           |         |         |           |              |               |            |
7 | 7    |       |                |       |            |       | Cartage Outward       |        | 500    |           |         |         |           | Vehicles     | MH-04 Tempo   | 500        |
""", """
# | ItemName         | Quantity | Unit | Rate | GodownName     | BatchName | MfdDate    | ExpiryPeriod | OrderNo
2 | GI Pipe 1"       | 500      | Mtr  | 140  | Rack A - Pipes |           |            |              | PO/1
3 | TMT Bar 12 mm    | 2000     | Kgs  | 50   |                |           |            |              | PO/1
5 | Enamel White 4 L | 40       | Nos  | 900  | Andheri Shop   | EW-2502   | 10-02-2025 | 24 Months    | SO/1
""", """
# | OrderNos | OrderDates | DespatchedThrough | Destination | PaymentTerms | OtherRef | TermsOfDelivery | Consignee      | ConsigneeAddress     | BuyerAddress                      | BuyerTINNo
1 | PO/1     | 16-04-2025 | Western Carriers  | Bhiwandi    | 45 days      | Quote 77 | In two lots     |                |                      |                                   |
4 | GK/55    | 15-04-2025 | MH-04 Tempo       | Baner       | 30 days      |          | By 10 a.m.      | Baner Towers   | Tower B~Baner~Pune   | Laxmi Chambers~14 Laxmi Road~Pune | 27330012345V
""")

NOTES = joined("""
# | SrNo | ID    | VchType       | VchNo | VchDate    | RefNo   | Ledger                | Debit | Credit | Narration
1 | 1    | NT-01 | Receipt Note  | RN/1  | 19-04-2025 | LR 4471 | Bharat Tubes & Pipes  |       | 42000  | First lot of PO/1
2 | 2    |       |               |       |            |         | Purchases VAT 12.5%   | 42000 |        |
3 | 3    | NT-02 | Delivery Note | DN/41 | 21-04-2025 | SO/1    | Gokhale Constructions | 20250 |        | Half of SO/1
4 | 4    |       |               |       |            |         | Sales VAT 12.5%       |       | 18000  |
5 | 5    |       |               |       |            |         | Output VAT 12.5%      |       | 2250   |
""", """
# | ItemName         | Quantity | Unit | Rate | GodownName     | OrderNo | OrderDueOn | TrackingNo | OrderNos | OrderDates
1 |                  |          |      |      |                |         |            |            | PO/1     | 16-04-2025
2 | GI Pipe 1"       | 300      | Mtr  | 140  | Rack A - Pipes | PO/1    | 19-04-2025 | RN/1       |          |
3 |                  |          |      |      |                |         |            |            | SO/1     | 17-04-2025
4 | Enamel White 4 L | 20       | Nos  | 900  |                | SO/1    | 25-04-2025 | DN/41      |          |
""")

# Every row that has a godown repeats the direction.
STOCKJV = joined("""
# | SrNo | ID    | VchType       | VchNo | VchDate    | RefNo | ItemName      | Direction | Quantity | Unit | Rate | Amount | Narration
1 | 1    | SJ-01 | Stock Journal | SJ/1  | 22-04-2025 | PK/9  | Hex Bolt M12  | Out       | 10       | Box  | 1050 | 10500  | Fifty bolt sets packed
2 | 2    |       |               |       |            |       |               | Out       |          |      |      |        |
3 | 3    |       |               |       |            |       | Hex Nut M12   | Out       | 10       | Box  | 420  | 4200   |
4 | 4    |       |               |       |            |       | Bolt Set M12  | In        | 50       | Nos  | 294  | 14700  |
5 | 5    | SJ-02 | Stock Journal | SJ/2  | 23-04-2025 | ST/1  | TMT Bar 8 mm  | Out       | 250      | Kgs  | 52   | 13000  | From the yard to the shop
6 | 6    |       |               |       |            |       | TMT Bar 8 mm  | In        | 250      | Kgs  | 52   | 13000  |
7 | 7    | SJ-03 | Stock Journal | SJ/3  | 23-04-2025 | ST/2  | TMT Bar 12 mm | Out       | 100      | Kgs  | 50   | 5000   | Refused on purpose: no such godown
8 | 8    |       |               |       |            |       | TMT Bar 12 mm | In        | 100      | Kgs  | 50   | 5000   |
""", """
# | GodownName         | BatchName     | BatchQuantity | BatchUnit | BatchAmount
1 | Rack B - Fasteners | Primary Batch | 8             | Box       | 8400
2 | Andheri Shop       | Primary Batch | 2             | Box       | 2100
3 | Rack B - Fasteners | Primary Batch | 10            | Box       | 4200
4 | Andheri Shop       | Primary Batch | 50            | Nos       | 14700
5 | Open Yard          | Primary Batch | 250           | Kgs       | 13000
6 | Andheri Shop       | Primary Batch | 250           | Kgs       | 13000
7 | Open Yard          | Primary Batch | 100           | Kgs       | 5000
8 | Rack C - Bars      | Primary Batch | 100           | Kgs       | 5000
""")

PHYSICALSTOCK = """
SrNo | ID    | VchType        | VchNo | VchDate    | RefNo | ItemName         | GodownName         | BatchName | MfdDate    | ExpiryPeriod | BatchQuantity | BatchUnit | Narration
1    | PS-01 | Physical Stock | PS/1  | 26-04-2025 |       | TMT Bar 8 mm     | Open Yard          |           |            |              | 745           | Kgs       | Count of the yard and the shop
2    |       |                |       |            |       |                  | Andheri Shop       |           |            |              | 750           | Kgs       |
3    |       |                |       |            |       | Enamel White 4 L | Andheri Shop       | EW-2411   | 15-11-2024 | 24 Months    | 29            | Nos       |
4    |       |                |       |            |       |                  | Andheri Shop       | EW-2502   | 10-02-2025 | 24 Months    | 20            | Nos       |
5    |       |                |       |            |       | Hex Nut M12      |                    |           |            |              | 59            | Box       |
6    | PS-02 | Physical Stock | PS/2  | 27-04-2025 |       | PVC Pipe 110 mm  | Rack A - Pipes     |           |            |              | 160.5         | Mtr       | Count of the racks
"""

CRDRNOTES = """
SrNo | ID    | VchType     | VchNo | VchDate    | RefNo   | Ledger                | Debit | Credit | AdjMethod | AdjName | AdjDate | AdjAmount | Narration
1    | CD-01 | Credit Note | CN/11 | 24-04-2025 | VS/1    | Gokhale Constructions |       | 1350   | Agst Ref  | VS/1    |         | 1350      | One box of bolts back
2    |       |             |       |            |         | Sales VAT 12.5%       | 1200  |        |           |         |         |           |
3    |       |             |       |            |         | Output VAT 12.5%      | 150   |        |           |         |         |           |
4    | CD-02 | Debit Note  | DB/4  | 25-04-2025 | BTP/351 | Bharat Tubes & Pipes  | 1631.25 |      | Agst Ref  | BTP/351 |         | 1631.25   | Ten metres short
5    |       |             |       |            |         | Purchases VAT 12.5%   |       | 1450   |           |         |         |           |
6    |       |             |       |            |         | Input VAT 12.5%       |       | 181.25 |           |         |         |           |
7    | CD-03 | Credit Note | CN/12 | 25-04-2025 | IS/1    | Gokhale Construction  |       | 250    | Agst Ref  | IS/1    |         | 250       | Refused on purpose: a ledger misspelt
8    |       |             |       |            |         | Sales VAT 5%          | 250   |        |           |         |         |           |
"""

ATTENDANCE = """
SrNo | ID    | VchType    | VchNo | VchDate    | RefNo | Employee      | AttendanceType | Value | Unit | Narration
1    | AT-01 | Attendance | AT/4  | 30-04-2025 |       | Asha Kulkarni | Present        | 25    | Days | April, both desks
2    |       |            |       |            |       | Ravi D'Souza  | Present        | 23.5  | Days |
3    |       |            |       |            |       | Ravi D'Souza  | Overtime       | 6     | Hrs  |
4    | AT-02 | Attendance | AT/5  | 30-04-2025 |       | Asha Kulkarni | Absent         | 1     | Days | Leave, April
"""
