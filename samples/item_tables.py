"""The sheets of ledgers-and-items.xls: ledgers and stock items with every block of
columns. They name the groups, units, godowns and categories of masters.xls.

Two rows are wrong on purpose: the group of Kolhapur Foundry and the unit of Thinner
do not exist. The column Note is for the reader; no import knows it.
"""

from tables import joined

# The last row ends the sheet: a ledger goes out when the next name comes. Western
# Carriers stands last because a deductee type stays for the ledgers below it.
LEDGERS = joined("""
#  | Name                  | NameAlias | Parent             | BillWiseOn | CostCentresOn | AffectInventory | Note
1  | Gokhale Constructions | GKC       | Debtors - Pune     | Yes        | No            | No              | its row carries the first of two bills
2  |                       |           |                    |            |               |                 | the second bill
3  | नाशिक निर्माण संघ         |           | Debtors - Nashik   | Yes        | No            | No              | a balance without bills
4  | Gulf Build LLC        |           | Sundry Debtors     | Yes        | No            | No              |
5  | Bharat Tubes & Pipes  | BTP       | Creditors - Steel  | Yes        | No            | No              | a bank account and a bill
6  |                       |           |                    |            |               |                 | a bill alone
7  | Asian Colours         |           | Creditors - Paint  | Yes        | No            | No              |
8  |                       |           |                    |            |               |                 | takes the place of the account above
9  | Kolhapur Foundry      |           | Creditors - Foundry | Yes       | No            | No              | refused on purpose: no such group
10 | Sales VAT 12.5%       |           | Hardware Sales     | No         | Yes           | Yes             |
11 | Sales VAT 5%          |           | Hardware Sales     | No         | Yes           | Yes             |
12 | Export Sales          |           | Sales Accounts     | No         | Yes           | Yes             |
13 | Purchases VAT 12.5%   |           | Hardware Purchases | No         | Yes           | Yes             |
14 | Output VAT 12.5%      |           | Duties & Taxes     | No         | No            | No              |
15 | Output VAT 5%         |           | Duties & Taxes     | No         | No            | No              |
16 | Input VAT 12.5%       |           | Duties & Taxes     | No         | No            | No              |
17 | Service Tax on Cartage |          | Duties & Taxes     | Yes        | No            | No              |
18 | Cartage Outward       |           | Freight & Cartage  | No         | Yes           | No              |
19 | Packing Charges       |           | Indirect Incomes   | No         | No            | No              |
20 | Loading Charges       |           | Indirect Incomes   | No         | No            | No              |
21 | Container Deposits    |           | Current Liabilities | No        | No            | No              |
22 | Discount Allowed      |           | Indirect Expenses  | No         | No            | No              |
23 | Round Off             |           | Indirect Expenses  | No         | No            | No              |
24 | Western Carriers      |           | Sundry Creditors   | Yes        | No            | No              |
25 | END                   |           |                    |            |               |                 | the closing row: it is not sent
""", """
#  | Address1             | Address2       | Address3       | Address4 | State       | Country              | PinCode
1  | Laxmi Chambers       | 14 Laxmi Road  | Sadashiv Peth  | Pune     | Maharashtra | India                | 411030
3  | गंगापुर रोड             | नाशिक           |                |          | Maharashtra | India                | 422005
4  | Office 1204          | Al Maktoum Tower | Deira        | Dubai    |             | United Arab Emirates |
5  | Plot 7               | MIDC Satpur    |                | Nashik   | Maharashtra | India                | 422007
7  | 22 Paint Bazaar      | Masjid Bunder  |                | Mumbai   | Maharashtra | India                | 400003
24 | Truck Terminal       | Wadala         |                | Mumbai   | Maharashtra | India                | 400037
""", """
#  | ContactPerson  | Phone         | Mobile     | Fax          | Email
1  | Sunil Gokhale  | 020-24451190  | 9822012345 |              | accounts@gokhale.example
4  | Imran Sheikh   | +971 4 222118 |            | +971 4 222119 | buying@gulfbuild.example
5  | R. N. Bharat   | 0253-2350007  |            | 0253-2350008 | sales@btp.example
7  | Ms. Colaco     | 022-23441188  | 9820098200 |              |
""", """
#  | IncomeTaxNumber | SalesTaxNumber  | VATTINNumber | ForServiceTax | TDSDeducteeType
1  | AAFCG1234H      | 411030/S/0118   | 27330012345V |               |
5  | AABCB5678K      | 422007/S/0042   | 27450067890V |               |
7  | AAACA9012L      |                 | 27110054321V |               |
18 |                 |                 |              | Yes           |
24 | AADCW3456M      |                 |              | Yes           | 4
""", """
#  | ExciseRegNo     | ExciseRegDate | ExciseRange | ExciseDivision | ExciseCommissionerate | ExciseNatureOfPurchase
5  | AABCB5678KXM001 | 12-06-2008    | Satpur II   | Nashik I       | Nashik                | Manufacturer
""", """
#  | OpeningBillDate | OpeningName | OpeningCreditPeriod | OpeningBalance
1  | 12-02-2025      | G/88        | 30 Days             | -42000
2  | 10-03-2025      | G/97        | 45 Days             | -18500.50
3  |                 |             |                     | -7250.50
5  | 03-03-2025      | BTP/310     | 45 Days             | 64000
6  | 21-03-2025      | BTP/333     | 45 Days             | 31250
24 |                 |             |                     | 2400
""", """
#  | PaymentFavouring            | BankName         | AccountNumber  | IFSCCode    | TransactionName | ChequeCrossComment | SetAsDefault | DefaultTransactionType
5  | Bharat Tubes & Pipes Pvt Ltd | Bank of Baroda  | 04250200001187 | BARB0SATPUR | Steel           | A/c Payee          | Yes          | e-Fund Transfer
7  | Asian Colours               | Bank of India    | 000120110000417 | BKID0000001 | Paint          | A/c Payee          | Yes          | Cheque
8  | Asian Colours               | HDFC Bank        | 50200012345678 | HDFC0000060 | Paint           |                    | Yes          | e-Fund Transfer
""")

# An item goes out when the next name comes or the data end, so no row closes the
# sheet. The batch of an item's own row shares its opening columns with the item;
# an item with several batches leaves the godown of that row empty.
STOCKITEMS = joined("""
#  | Name             | NameAlias | Parent         | Category | BaseUnits | AdditionalUnit | Denominator | Conversion | CostingMethod | ValuationMethod     | Note
1  | TMT Bar 8 mm     | TMT8      | TMT Bars       | Trade    | Kgs       | Qtl            | 100         | 1          | Avg. Cost     | Avg. Price          |
2  |                  |           |                |          |           |                |             |            |               |                     | first batch, cost and price
3  |                  |           |                |          |           |                |             |            |               |                     | second of each
4  | TMT Bar 12 mm    | TMT12     | TMT Bars       | Trade    | Kgs       |                |             |            | FIFO          | Last Sale Price     | its row is its batch
5  | MS Angle 50x50   |           | Angles & Beams | Trade    | Kgs       |                |             |            | Avg. Cost     | Avg. Price          | excise godowns
6  |                  |           |                |          |           |                |             |            |               |                     |
7  | GI Pipe 1"       |           | GI Pipes       | Premium  | Mtr       |                |             |            | Avg. Cost     | Std. Price          | the price fields
8  | PVC Pipe 110 mm  |           | PVC Pipes      | Economy  | Mtr       |                |             |            | Avg. Cost     | Avg. Price          |
9  | Hex Bolt M12     | HB12      | Fasteners      | Trade    | Box       |                |             |            | Avg. Cost     | Avg. Price          |
10 | Hex Nut M12      | HN12      | Fasteners      | Trade    | Box       |                |             |            | Avg. Cost     | Avg. Price          |
11 | Bolt Set M12     |           | Fasteners      | Premium  | Nos       |                |             |            | Std. Cost     | Std. Price          | made of the two above
12 |                  |           |                |          |           |                |             |            |               |                     |
13 | Enamel White 4 L |           | Paints         | Premium  | Nos       |                |             |            | FIFO          | Avg. Price          | batches with dates
14 |                  |           |                |          |           |                |             |            |               |                     |
15 |                  |           |                |          |           |                |             |            |               |                     |
16 | पेंट ब्रश 2 इंच      |           | Paints         | Economy  | Doz       |                |             |            | Avg. Cost     | Avg. Price          |
17 | Thinner          |           | Paints         | Economy  | Tins      |                |             |            | Avg. Cost     | Avg. Price          | refused on purpose: no such unit
""", """
#  | IsBatchWiseOn | HasMfgDate | IsPerishableOn | IsCostCentresOn | IgnoreNegativeStock
1  | No            | No         | No             | Yes             | No
4  | No            | No         | No             | Yes             | No
5  | No            | No         | No             | No              | Yes
7  | No            | No         | No             | No              | No
8  | No            | No         | No             | No              | No
9  | No            | No         | No             | No              | No
10 | No            | No         | No             | No              | No
11 | No            | No         | No             | No              | No
13 | Yes           | Yes        | Yes            | No              | No
16 | No            | No         | No             | No              | No
17 | No            | No         | No             | No              | No
""", """
#  | PartNo   | Description                        | Remark                      | MfgQty | MfgUnit
1  | TMT-08   | Fe 500, bundles of 50 kg           | Weigh before loading        |        |
7  | GIP-25   | Class B, threaded, 6 m lengths     |                             |        |
9  | HB-M12   | Grade 8.8, zinc plated, box of 50  |                             |        |
11 | SET-M12  | Ten bolts, ten nuts, packed        | Packed at the Andheri shop  | 50     | Nos
13 | EW-4     | Synthetic enamel, gloss            | Sell the older batch first  |        |
""", """
#  | BasicRateOfExcise | RateOfVAT | ExciseCommodity | VATCommodity
1  | 12                | 12.5      | 7214 Bars       | Iron & Steel
5  | 12                | 12.5      | 7216 Angles     | Iron & Steel
7  |                   | 12.5      |                 | Pipes
8  |                   | 5         |                 | Plastic Pipes
""", """
#  | BasePrice | PurchaseDisc | SalesDisc | VATPer | VATIncl
7  | 162.50    | 10           | 4         | 12.5   | No
8  | 260       | 8            | 2.5       | 5      | Yes
""", """
#  | OpeningBalance | OpeningRate | OpeningValue | GodownName         | BatchName     | MfdOn      | ExpiryPeriod
1  | 2000           | 52          | 104000       |                    |               |            |
2  | 1500           | 52          | 78000        | Open Yard          | Primary Batch |            |
3  | 500            | 52          | 26000        | Andheri Shop       | Primary Batch |            |
4  | 3000           | 50          | 150000       | Open Yard          | Primary Batch |            |
5  | 800            | 55          | 44000        |                    |               |            |
7  | 600            | 145         | 87000        | Rack A - Pipes     | Primary Batch |            |
8  | 240            | 228.50      | 54840        | Rack A - Pipes     | Primary Batch |            |
9  | 120            | 1050        | 126000       | Rack B - Fasteners | Primary Batch |            |
10 | 120            | 420         | 50400        | Rack B - Fasteners | Primary Batch |            |
13 | 60             | 810         | 48600        |                    |               |            |
14 | 40             | 810         | 32400        | Andheri Shop       | EW-2411       | 15-11-2024 | 24 Months
15 | 20             | 810         | 16200        | Andheri Shop       | EW-2502       | 10-02-2025 | 24 Months
16 | 15             | 300         | 4500         | Andheri Shop       | Primary Batch |            |
""", """
#  | StdCostDate | StdCost | StdPriceDate | StdPrice
2  | 01-04-2024  | 50.25   | 01-04-2024   | 56
3  | 01-04-2025  | 52      | 01-04-2025   | 58.50
7  |             |         | 01-04-2025   | 162.50
11 | 01-04-2025  | 294     | 01-04-2025   | 360
""", """
#  | BOMItem      | BOMGodown          | BOMQty | BOMUnit
11 | Hex Bolt M12 | Rack B - Fasteners | 0.2    | Box
12 | Hex Nut M12  | Rack B - Fasteners | 0.2    | Box
""", """
#  | ExciseGodown       | ExciseUnitName | ValuationType | StockItemType
5  | Bhiwandi Warehouse | Bhiwandi Unit  | Ad Valorem    | Finished Goods
6  | Open Yard          | Bhiwandi Unit  | Ad Valorem    | Finished Goods
""")
