"""The vouchers of samples/business: those of the other samples, without the ones that
are refused there and with every column that their import types know.
"""

import gst_tables as gst
import inventory_voucher_tables as inventory
import register_tables as registers
import voucher_tables as vouchers
from tables import joined, stacked, widened, without

TRANSACTIONS = widened(without(vouchers.TRANSACTIONS, "ID", "V-08", "V-09"), """
SrNo | RefDate    | EffectiveDate | LineNarration
1    | 28-03-2025 | 02-04-2025    |
2    |            |               | 8 mm, 12 mm and binding wire
9    | 01-04-2025 |               |
10   |            |               | Two lorries
15   | 09-04-2025 | 11-04-2025    |
""", """
SrNo | BankName      | BranchName | ChequeCross | BankDate   | IFSCCode    | TransactionName | PaymentMode | AccountNumber   | BankPartyName   | TransferMode
14   | HDFC Bank     | Andheri    |             | 04-04-2025 |             |                 |             |                 |                 |
16   | Saraswat Bank | Thane      | A/c Payee   | 12-04-2025 |             |                 |             |                 | Konkan Builders |
20   | ICICI Bank    | Nashik     |             | 15-04-2025 | ICIC0000104 | Steel           | Advised     | 000405001234    | Steelways India | NEFT
""")

QUICKTRANSACTIONS = widened(stacked(vouchers.QUICKTRANSACTIONS, """
SrNo | VchType | VchNo | VchDate    | RefNo | DrLedger          | CrLedger             | Amount | FirstSide | Narration
5    | Receipt | QR/1  | 09-04-2025 |       | HDFC Bank         | राजेश हार्डवेयर          | 5000   | Cr        | By cheque
6    | Payment | QP/1  | 12-04-2025 |       | Western Roadlines | HDFC Bank            | 7500   |           | Deposit for the hired lorry
"""), """
SrNo | ID    | AdjMethod | AdjName | AdjDate | AdjAmount
1    | QT-01 |           |         |         |
2    | QT-02 |           |         |         |
3    | QT-03 |           |         |         |
4    | QT-04 |           |         |         |
5    | QT-05 | Agst Ref  | R/22    |         | 5000
6    | QT-06 | New Ref   | QP/1    | 15 Days | 7500
""", """
SrNo | InstrumentDate | InstrumentType  | InstrumentNumber | PaymentFavouring  | BankAmount | BankName      | BranchName | ChequeCross | IFSCCode    | TransactionName | PaymentMode | AccountNumber | BankPartyName     | TransferMode
5    | 08-04-2025     | Cheque/DD       | 000093           | Demo Traders      | 5000       | Saraswat Bank | Nashik     | A/c Payee   |             |                 |             |               | Rajesh Hardware   |
6    | 12-04-2025     | e-Fund Transfer | N102250733       | Western Roadlines | 7500       | Axis Bank     | Wadala     |             | UTIB0000211 | Lorry           | Advised     | 0091020045678 | Western Roadlines | RTGS
""")

# The cost columns of a statement are read and go no further.
BANKSTMT = widened(vouchers.BANKSTMT, """
SrNo | ID    | AdjDate | CostCategory | CostCentre    | CostAmount
1    | BS-01 |         | Branches     | Mumbai Branch | 118
2    | BS-02 | 45 Days |              |               |
3    | BS-03 |         |              |               |
""")

COSTTRANSACTIONS = widened(vouchers.COSTTRANSACTIONS, """
SrNo | ID    | RefDate    | LineNarration   | PaymentFavouring | BankName  | BranchName | ChequeCross | IFSCCode    | TransactionName | PaymentMode | AccountNumber | BankPartyName | TransferMode
1    | CT-01 |            | Gross, by branch |                 |           |            |             |             |                 |             |               |               |
4    |       |            |                 | Staff            | HDFC Bank | Andheri    | A/c Payee   | HDFC0000060 | Salaries        | Advised     | 0050200017788 | Staff         | NEFT
5    | CT-02 | 28-04-2025 |                 |                  |           |            |             |             |                 |             |               |               |
""")

# A cost amount is sent as it stands here: a debit's is negative.
TDSTRANSACTIONS = widened(vouchers.TDSTRANSACTIONS, """
SrNo | ID    | CostCategory | CostCentre    | CostAmount
1    | TD-01 | Branches     | Mumbai Branch | -30000
4    | TD-02 | Vehicles     | MH-04 Tempo   | -20000
""")

SERVICETAXTRANSACTIONS = widened(vouchers.SERVICETAXTRANSACTIONS, """
SrNo | ID    | CostCategory | CostCentre    | CostAmount
1    | ST-01 | Branches     | Mumbai Branch | -10000
""")

STTDSTRANSACTIONS = widened(vouchers.STTDSTRANSACTIONS, """
SrNo | ID    | CostCategory | CostCentre  | CostAmount
1    | SD-01 | Branches     | Pune Branch | 50000
""")

# From NatureOfSales on these columns are known and go nowhere. A class must be one
# that the voucher type has.
VATTRANSACTIONS = widened(without(inventory.VATTRANSACTIONS, "ID", "VT-04"), """
SrNo | ClassName       | TaxAdjustment | MIRONo  | MIRODt     | OrderDueOn | NatureOfSales | ExciseUnitName | SerialMaster | SerialNumber | ServiceTaxRate
1    |                 |               |         |            |            | Local         | Bhiwandi Unit  |              |              |
2    |                 |               |         |            | 10-04-2025 |               |                | TMT          | 8-2025-11    |
6    | Purchases local |               | MR/2025 | 07-04-2025 |            |               |                |              |              |
17   |                 | Default       |         |            |            |               |                |              |              |
18   |                 |               |         |            |            |               |                |              |              | 12
""", """
SrNo | InstrumentDate | InstrumentType | InstrumentNumber | PaymentFavouring | BankAmount | BankName      | BranchName | ChequeCross | IFSCCode    | TransactionName | PaymentMode | AccountNumber | BankPartyName | TransferMode
10   | 09-04-2025     | Cheque/DD      | 000118           | Demo Traders     | 12487.50   | Saraswat Bank | Nashik     | A/c Payee   | SRCB0000118 | Paint           | Advised     | 0011802200456 | Nashik Sangh  | NEFT
""")

VATTRANSACTIONSMC = widened(inventory.VATTRANSACTIONSMC, """
SrNo | TrackingNo | OrderDueOn | TaxRate | BatchName     | MfdDate    | ExpiryPeriod
2    | DX/1       | 30-04-2025 | 0       | Primary Batch |            |
3    | DX/1       | 30-04-2025 | 0       | HB-2503       | 10-03-2025 | 36 Months
6    |            |            | 5%      |               |            |
""")

ITEMTRANSACTIONS = widened(without(inventory.ITEMTRANSACTIONS, "ID", "IT-02"), """
SrNo | RefNo
1    | PO 122
7    | Memo 41
""")

ORDERS = widened(inventory.ORDERS, """
SrNo | TaxClassification  | OrderDueOn | DelNoteNos | DelNoteDates | DespatchDocNo | Buyer
1    |                    |            |            |              |               | Demo Traders
2    | Purchases @ 12.5%  | 05-05-2025 |            |              |               |
4    |                    |            | DN/39      | 12-04-2025   | LR 8830       | Gokhale Constructions
5    | Output VAT @ 12.5% | 25-04-2025 |            |              |               |
""")

NOTES = widened(stacked(inventory.NOTES, """
SrNo | ID    | VchType       | VchNo | VchDate    | RefNo | Ledger                | Debit | Credit | ItemName         | Quantity | Unit | Rate | GodownName   | Narration
6    | NT-03 | Delivery Note | DN/42 | 28-04-2025 | SO/1  | Gokhale Constructions | 10300 |        |                  |          |      |      |              | Ten tins more, by the tempo
7    |       |               |       |            |       | Sales VAT 12.5%       |       | 9000   | Enamel White 4 L | 10       | Nos  | 900  | Andheri Shop |
8    |       |               |       |            |       | Output VAT 12.5%      |       | 1125   |                  |          |      |      |              |
9    |       |               |       |            |       | Cartage Outward       |       | 175    |                  |          |      |      |              |
"""), """
SrNo | AdjMethod | AdjName | AdjDate | AdjAmount | TaxClassification  | CostCategory | CostCentre  | CostAmount
3    | New Ref   | DN/41   | 30 Days | 20250     |                    |              |             |
6    | New Ref   | DN/42   | 30 Days | 10300     |                    |              |             |
7    |           |         |         |           | Output VAT @ 12.5% |              |             |
9    |           |         |         |           |                    | Vehicles     | MH-04 Tempo | 175
""")

STOCKJV = widened(stacked(without(inventory.STOCKJV, "ID", "SJ-03"), """
SrNo | ID    | VchType       | VchNo | VchDate    | RefNo | ItemName         | Direction | Quantity | Unit | Rate | Amount | GodownName          | BatchName | BatchQuantity | BatchUnit | BatchAmount | Narration
9    | SJ-04 | Stock Journal | SJ/4  | 24-04-2025 | ST/3  | Enamel White 4 L | Out       | 5        | Nos  | 810  | 4050   | Andheri Shop        | EW-2411   | 5             | Nos       | 4050        | With the painters at Baner
10   |       |               |       |            |       | Enamel White 4 L | In        | 5        | Nos  | 810  | 4050   | Goods with Painters | EW-2411   | 5             | Nos       | 4050        |
"""), """
SrNo | MfdDate    | ExpiryPeriod
9    | 15-11-2024 | 24 Months
10   | 15-11-2024 | 24 Months
""")

# The amount of a batch is known here and goes nowhere.
PHYSICALSTOCK = widened(inventory.PHYSICALSTOCK, """
SrNo | RefNo    | BatchAmount
1    | Sheet 14 | 38740
2    |          | 39000
3    |          | 23490
4    |          | 16200
6    | Sheet 15 | 36674.25
""")

CRDRNOTES = widened(without(inventory.CRDRNOTES, "ID", "CD-03"), """
SrNo | AdjDate
1    | 30 Days
4    | 45 Days
""")

ATTENDANCE = """
SrNo | ID    | VchType    | VchNo | VchDate    | RefNo  | Employee     | AttendanceType | Value | Unit | Narration
1    | AT-01 | Attendance | AT/4  | 30-04-2025 | Apr 25 | Meena Joshi  | Present        | 25    | Days | April, the shop
2    |       |            |       |            |        | Suresh Patil | Present        | 23.5  | Days |
3    |       |            |       |            |        | Suresh Patil | Overtime       | 6     | Hrs  |
4    |       |            |       |            |        | Kavita Rao   | Absent         | 1     | Days |
5    | AT-02 | Attendance | AT/5  | 30-04-2025 | Apr 25 | Imtiaz Khan  | Present        | 26    | Days | April, the godown
"""

# One of the three registers has all columns but those of a currency, one has these.
SALEREGISTER = widened(without(registers.SALEREGISTER, "ID", "SR-06"), """
ID    | DelNoteNos | DelNoteDates | DespatchDocNo | OtherRef | Consignee      | ConsigneeAddress   | BuyerAddress
SR-01 | DN/51      | 01-05-2025   | LR 9001       | Verbal   | Baner Towers   | Tower B~Baner~Pune | Laxmi Chambers~14 Laxmi Road~Pune
SR-04 |            |              | LR 9007       | Quote 81 |                |                    |
""")

V_TRANSACTIONS = joined("""
# | VchType  | ID    | VchNo | VchDate    | RefNo   | Ledger               | AdjMethod | AdjName | AdjDate | AdjAmount | Narration
1 | Purchase | PR-01 | PV/1  | 12-05-2025 | BTP/402 | Bharat Tubes & Pipes | New Ref   | BTP/402 | 45 Days | 58500     | Pipes of PO/1, second lot
2 | Purchase | PR-02 | PV/2  | 14-05-2025 | AC/77   | Asian Colours        | New Ref   | AC/77   | 30 Days | 22499     | Enamel, less scheme
""", """
# | TotalAmount | Goods | VAT  | Freight | RoundOff | CostCategory | CostCentre
1 | 58500       | 51000 | 6375 | 1125    |          | Branches     | Mumbai Branch
2 | 22499       | 20000 | 2500 |         | -1       |              |
""")

V_TRANSACTIONS_MAP = """
ColumnName  | LedgerName          | LedgerSign | Order | VATClassification | VATRate | AssessableColumn
TotalAmount | Auto                | Cr         | 1     |                   |         |
Goods       | Purchases VAT 12.5% | Dr         | 2     | Purchases @ 12.5% | 12.5    | Goods
VAT         | Input VAT 12.5%     | Dr         | 3     | Input VAT @ 12.5% | 12.5    | Goods
Freight     | Freight Inward      | Dr         | 4     |                   |         |
RoundOff    | Round Off           | Dr         | 5     |                   |         |
"""

TRANSACTIONSGST = widened(without(gst.TRANSACTIONSGST, "ID", "V-3"), """
SrNo | RefDate    | Country | CmpGSTIN        | IRN                                                              | LineNarration
1    | 01-04-2025 | India   | 27AAACD1111A1Z9 | 4f2c8a90b1d3e5f60718293a4b5c6d7e8f90a1b2c3d4e5f60718293a4b5c6d7e | Delivered at the site
2    |            |         |                 |                                                                  | 8 mm and 12 mm
5    |            | India   | 27AAACD1111A1Z9 |                                                                  |
""", """
SrNo | TransporterName   | TransporterID   | TransportDocNo | TransportDocDate
1    | Western Roadlines | 27AABCW2222B1Z3 | LR 7712        | 02-04-2025
""")

SALESBILLS = gst.SALESBILLS
