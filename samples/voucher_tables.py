"""The sheets of transactions.xls, in the form that make_samples.py reads: a
hardware shop's April, with the masters that its vouchers name.

In TRANSACTIONS two vouchers are wrong on purpose: a ledger of PY/13 is misspelt,
and the sides of S/103 differ.
"""

# The last row ends the sheet: a ledger goes out when the next name comes.
LEDGERS = """
Name                    | Parent               | BillWiseOn
Konkan Builders         | Sundry Debtors       | Yes
Deccan Constructions    | Sundry Debtors       | Yes
राजेश हार्डवेयर             | Sundry Debtors       | Yes
Steelways India         | Sundry Creditors     | Yes
Mehta & Co              | Sundry Creditors     | Yes
Sahyadri Advertising    | Sundry Creditors     | Yes
Western Roadlines       | Sundry Creditors     | Yes
HDFC Bank               | Bank Accounts        |
Sales - Hardware        | Sales Accounts       |
Purchases - Steel       | Purchase Accounts    |
Output CGST 9%          | Duties & Taxes       |
Output SGST 9%          | Duties & Taxes       |
Input CGST 9%           | Duties & Taxes       |
Input SGST 9%           | Duties & Taxes       |
TDS on Fees             | Duties & Taxes       |
TDS on Contracts        | Duties & Taxes       |
Service Tax             | Duties & Taxes       |
Freight Inward          | Direct Expenses      |
Shop Rent               | Indirect Expenses    |
Salaries                | Indirect Expenses    |
Professional Fees       | Indirect Expenses    |
Advertising             | Indirect Expenses    |
Tea & Snacks            | Indirect Expenses    |
Conveyance              | Indirect Expenses    |
Bank Charges            | Indirect Expenses    |
Depreciation            | Indirect Expenses    |
Furniture               | Fixed Assets         |
END                     |                      |
"""

TRANSACTIONS = """
SrNo | ID   | VchType     | VchNo | VchDate    | RefNo   | Ledger               | Debit    | Credit   | AdjMethod | AdjName | AdjDate | AdjAmount | InstrumentDate | InstrumentType  | InstrumentNumber | PaymentFavouring | BankAmount | Narration
1    | V-01 | Sales       | S/101 | 01-04-2025 | PO 4417 | Konkan Builders      | 59000    |          | New Ref   | S/101   | 30 Days | 59000     |                |                 |                  |                  |            | TMT bars, 8 and 12 mm, to the Thane site
2    |      |             |       |            |         | Sales - Hardware     |          | 50000    |           |         |         |           |                |                 |                  |                  |            |
3    |      |             |       |            |         | Output CGST 9%       |          | 4500     |           |         |         |           |                |                 |                  |                  |            |
4    |      |             |       |            |         | Output SGST 9%       |          | 4500     |           |         |         |           |                |                 |                  |                  |            |
5    | V-02 | Sales       | S/102 | 02-04-2025 |         | Deccan Constructions | 14634.95 |          | New Ref   | S/102   | 15 Days | 14634.95  |                |                 |                  |                  |            | GI pipes & fittings
6    |      |             |       |            |         | Sales - Hardware     |          | 12402.50 |           |         |         |           |                |                 |                  |                  |            |
7    |      |             |       |            |         | Output CGST 9%       |          | 1116.23  |           |         |         |           |                |                 |                  |                  |            |
8    |      |             |       |            |         | Output SGST 9%       |          | 1116.22  |           |         |         |           |                |                 |                  |                  |            |
9    | V-03 | Purchase    | P/55  | 03-04-2025 | SW/2210 | Steelways India      |          | 94400    | New Ref   | SW/2210 | 45 Days | 94400     |                |                 |                  |                  |            | TMT bars from the Nashik depot
10   |      |             |       |            |         | Purchases - Steel    | 80000    |          |           |         |         |           |                |                 |                  |                  |            |
11   |      |             |       |            |         | Input CGST 9%        | 7200     |          |           |         |         |           |                |                 |                  |                  |            |
12   |      |             |       |            |         | Input SGST 9%        | 7200     |          |           |         |         |           |                |                 |                  |                  |            |
13   | V-04 | Contra      | C/3   | 04-04-2025 |         | Cash                 | 5000     |          |           |         |         |           |                |                 |                  |                  |            | Drawn for the till
14   |      |             |       |            |         | HDFC Bank            |          | 5000     |           |         |         |           | 04-04-2025     | Cheque          | 000451           | Self             | 5000       |
15   | V-05 | Receipt     | R/21  | 10-04-2025 |         | Konkan Builders      |          | 30000    | Agst Ref  | S/101   |         | 30000     |                |                 |                  |                  |            | Part payment by cheque
16   |      |             |       |            |         | HDFC Bank            | 30000    |          |           |         |         |           | 09-04-2025     | Cheque/DD       | 118204           | Demo Traders     | -30000     |
17   | V-06 | Receipt     | R/22  | 11-04-2025 |         | राजेश हार्डवेयर          |          | 1500.50  | Advance   | R/22    |         | 1500.50   |                |                 |                  |                  |            | अग्रिम, नकद
18   |      |             |       |            |         | Cash                 | 1500.50  |          |           |         |         |           |                |                 |                  |                  |            |
19   | V-07 | Payment     | PY/12 | 15-04-2025 |         | Steelways India      | 50000    |          | Agst Ref  | SW/2210 |         | 50000     |                |                 |                  |                  |            | On account of SW/2210
20   |      |             |       |            |         | HDFC Bank            |          | 50000    |           |         |         |           | 15-04-2025     | e-Fund Transfer | N105251187       | Steelways India  | 50000      |
21   | V-08 | Payment     | PY/13 | 16-04-2025 |         | Shop Rentt           | 12000    |          |           |         |         |           |                |                 |                  |                  |            | Rent of April
22   |      |             |       |            |         | HDFC Bank            |          | 12000    |           |         |         |           | 16-04-2025     | e-Fund Transfer | N106250093       | D'Souza Estates  | 12000      |
23   | V-09 | Sales       | S/103 | 18-04-2025 |         | Konkan Builders      | 11800    |          | New Ref   | S/103   | 30 Days | 11800     |                |                 |                  |                  |            | Fasteners
24   |      |             |       |            |         | Sales - Hardware     |          | 10000    |           |         |         |           |                |                 |                  |                  |            |
25   |      |             |       |            |         | Output CGST 9%       |          | 900      |           |         |         |           |                |                 |                  |                  |            |
26   | V-10 | Credit Note | CN/2  | 21-04-2025 | S/101   | Konkan Builders      |          | 1180     | Agst Ref  | S/101   |         | 1180      |                |                 |                  |                  |            | Two bent bars taken back
27   |      |             |       |            |         | Sales - Hardware     | 1000     |          |           |         |         |           |                |                 |                  |                  |            |
28   |      |             |       |            |         | Output CGST 9%       | 90       |          |           |         |         |           |                |                 |                  |                  |            |
29   |      |             |       |            |         | Output SGST 9%       | 90       |          |           |         |         |           |                |                 |                  |                  |            |
30   | V-11 | Journal     | J/7   | 30-04-2025 |         | Depreciation         | 2500     |          |           |         |         |           |                |                 |                  |                  |            | Shelves, April
31   |      |             |       |            |         | Furniture            |          | 2500     |           |         |         |           |                |                 |                  |                  |            |
"""

QUICKTRANSACTIONS = """
SrNo | VchType | VchNo | VchDate    | RefNo | DrLedger     | CrLedger         | Amount | FirstSide | CostCategory | CostCentre    | CostAmount | Narration
1    | Payment | PC/1  | 02-04-2025 |       | Tea & Snacks | Cash             | 240    |           |              |               |            | Tea for the shop
2    | Payment | PC/2  | 05-04-2025 | V 18  | Conveyance   | Cash             | 385.50 |           | Salesmen     | Asha Kulkarni | 385.50     | Auto fares to Vashi
3    | Receipt | CS/1  | 05-04-2025 |       | Cash         | Sales - Hardware | 1260   | Cr        |              |               |            | Counter sale
4    | Contra  | C/4   | 07-04-2025 |       | HDFC Bank    | Cash             | 1000   |           |              |               |            | Paid in
"""

BANKSTMT = """
SrNo | VchType | VchNo | VchDate    | BankDate   | Bank      | Ledger               | Withdrawal | Deposit  | AdjMethod | AdjName | AdjAmount | Narration
1    | Payment | BP/1  | 08-04-2025 | 08-04-2025 | HDFC Bank | Bank Charges         | 118        |          |           |         |           | SMS CHRG JAN-MAR
2    | Payment | BP/2  | 12-04-2025 | 15-04-2025 | HDFC Bank | Steelways India      | 44400      |          | Agst Ref  | SW/2210 | 44400     | CHQ PAID 000452
3    | Receipt | BR/1  | 17-04-2025 | 17-04-2025 | HDFC Bank | Deccan Constructions |            | 14634.95 | Agst Ref  | S/102   | 14634.95  | NEFT CR DECCAN CONSTR
"""

TDSTRANSACTIONS = """
SrNo | VchType | VchNo | VchDate    | RefNo   | Ledger            | Debit | Credit | AdjMethod | AdjName | AdjDate | AdjAmount | TDSLedger         | TDSRate | IsSpecialRate | Narration
1    | Journal | J/8   | 22-04-2025 | MCO/311 | Professional Fees | 30000 |        |           |         |         |           |                   |         |               | Audit fee
2    |         |       |            |         | Mehta & Co        |       | 27000  | New Ref   | MCO/311 | 30 Days | 27000     | Professional Fees | 10      | No            |
3    |         |       |            |         | TDS on Fees       |       | 3000   |           |         |         |           |                   |         |               |
4    | Journal | J/9   | 24-04-2025 | WR/77   | Freight Inward    | 20000 |        |           |         |         |           |                   |         |               | Lorry hire, lower rate by certificate
5    |         |       |            |         | Western Roadlines |       | 19900  | New Ref   | WR/77   |         | 19900     | Freight Inward    | 0.5     | Yes           |
6    |         |       |            |         | TDS on Contracts  |       | 100    |           |         |         |           |                   |         |               |
"""

SERVICETAXTRANSACTIONS = """
SrNo | VchType | VchNo | VchDate    | RefNo  | Ledger               | Debit | Credit | AdjMethod | AdjName | AdjAmount | ServiceTaxLedger     | AssessableAmt | ServiceTaxRate | ServiceTax | Cess | SecCess | Narration
1    | Journal | J/10  | 25-04-2025 | SA/904 | Advertising          | 10000 |        |           |         |           |                      |               |                |            |      |         | Boards at two stations
2    |         |       |            |        | Service Tax          | 1236  |        | New Ref   | SA/904  | 1236      | Sahyadri Advertising | 10000         | 12             | 1200       | 24   | 12      |
3    |         |       |            |        | Sahyadri Advertising |       | 11236  | New Ref   | SA/904  | 11236     | Advertising          |               |                |            |      |         |
"""

STTDSTRANSACTIONS = """
SrNo | VchType | VchNo | VchDate    | RefNo  | Ledger               | Debit | Credit | AdjMethod | AdjName | AdjAmount | ServiceTaxLedger     | AssessableAmt | ServiceTax | Cess | SecCess | TDSLedger   | TDSRate | IsSpecialRate | Narration
1    | Journal | J/11  | 28-04-2025 | SA/921 | Advertising          | 50000 |        |           |         |           |                      |               |            |      |         |             |         |               | Hoarding at Kalyan
2    |         |       |            |        | Service Tax          | 6180  |        | New Ref   | SA/921  | 6180      | Sahyadri Advertising | 50000         | 6000       | 120  | 60      |             |         |               |
3    |         |       |            |        | Sahyadri Advertising |       | 55180  | New Ref   | SA/921  | 55180     | Advertising          |               |            |      |         | Advertising | 2       | No            |
4    |         |       |            |        | TDS on Contracts     |       | 1000   |           |         |           |                      |               |            |      |         |             |         |               |
"""

COSTTRANSACTIONS = """
SrNo | VchType | VchNo | VchDate    | RefNo | Ledger         | Debit | Credit | AdjMethod | AdjName | AdjDate | AdjAmount | CostCategory | CostCentre    | CostAmount | InstrumentDate | InstrumentType  | InstrumentNumber | BankAmount | Narration
1    | Payment | PY/14 | 30-04-2025 |       | Salaries       | 64000 |        |           |         |         |           | Branches     | Mumbai Branch | 38000      |                |                 |                  |            | April, both branches
2    |         |       |            |       |                |       |        |           |         |         |           | Branches     | Pune Branch   | 26000      |                |                 |                  |            |
3    |         |       |            |       |                |       |        |           |         |         |           | Salesmen     | Ravi D'Souza  | 21000      |                |                 |                  |            |
4    |         |       |            |       | HDFC Bank      |       | 64000  |           |         |         |           |              |               |            | 30-04-2025     | e-Fund Transfer | N120257781       | 64000      |
5    | Journal | J/12  | 30-04-2025 | WR/81 | Freight Inward | 4200  |        |           |         |         |           | Vehicles     | MH-04 Tempo   | 4200       |                |                 |                  |            | Tempo hired out, April
6    |         |       |            |       | Western Roadlines |    | 4200   | New Ref   | WR/81   | 15 Days | 4200      |              |               |            |                |                 |                  |            |
"""
