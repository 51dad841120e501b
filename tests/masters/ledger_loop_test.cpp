#include "tests/masters/held_fixture.h"

namespace vorlane::masters {
namespace {

class LedgerLoopTest : public HeldLoopTest {
 protected:
  LedgerLoopTest() : HeldLoopTest("LEDGERS", "LEDGER", PostLedgers) {}
};

TEST_F(LedgerLoopTest, AWholeLedgerTagByTag) {
  const Lines sent = Post(
      "Name,NameAlias,Parent,Email,State,Country,PinCode,IncomeTaxNumber,SalesTaxNumber,"
      "VATTINNumber,ExciseRegNo,ExciseRegDate,ExciseRange,ExciseDivision,ExciseCommissionerate,"
      "ExciseNatureOfPurchase,Phone,Mobile,Fax,ContactPerson,BillWiseOn,CostCentresOn,"
      "AffectInventory,Address1,Address2,Address3,Address4,TDSDeducteeType,ForServiceTax,"
      "OpeningBalance,OpeningBillDate,OpeningName,OpeningCreditPeriod,PaymentFavouring,BankName,"
      "AccountNumber,IFSCCode,TransactionName,ChequeCrossComment,SetAsDefault,"
      "DefaultTransactionType\n"
      "Rao & Sons,R&S,Sundry Creditors,a@b.in,Goa,India,403001,PAN1,ST1,TIN1,EX1,01-04-2000,Rg,Dv,"
      "Cm,Manufacturer,0832,98,Fx,Asha,No,Yes,Yes,12 Fort,,Panaji,,2 Company,Yes,"
      "700,01-03-2025,B/1,30 Days,Rao,HDFC,0042,HDFC01,Txn,A/c Payee,Yes,Cheque\n"
      ",,,,,,,,,,,,,,,,,,,,,,,,,,,,,-200.5,02-03-2025,B/2,15 Days,,,,,,,,\n"
      "END\n");
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_EQ(sent[0], tests::TagLines(R"(
<LEDGER NAME="Rao &amp; Sons" ACTION="Create">
<ADDITIONALNAME>Rao &amp; Sons</ADDITIONALNAME>
<ADDRESS.LIST>
  <ADDRESS>12 Fort</ADDRESS><ADDRESS/><ADDRESS>Panaji</ADDRESS><ADDRESS/><ADDRESS/>
</ADDRESS.LIST>
<STATENAME>Goa</STATENAME><LEDSTATENAME>Goa</LEDSTATENAME>
<COUNTRYOFRESIDENCE>India</COUNTRYOFRESIDENCE><PINCODE>403001</PINCODE>
<LEDGERCONTACT>Asha</LEDGERCONTACT><LEDGERPHONE>0832</LEDGERPHONE><LEDGERMOBILE>98</LEDGERMOBILE>
<LEDGERFAX>Fx</LEDGERFAX><EMAIL>a@b.in</EMAIL><VATTINNUMBER>TIN1</VATTINNUMBER>
<INCOMETAXNUMBER>PAN1</INCOMETAXNUMBER><SALESTAXNUMBER>ST1</SALESTAXNUMBER>
<PARENT>Sundry Creditors</PARENT><TDSDEDUCTEETYPE>2</TDSDEDUCTEETYPE>
<ISBILLWISEON>No</ISBILLWISEON><ISCOSTCENTRESON>Yes</ISCOSTCENTRESON>
<ISINTERESTON>No</ISINTERESTON><ALLOWINMOBILE>No</ALLOWINMOBILE><ISCONDENSED>No</ISCONDENSED>
<AFFECTSSTOCK>Yes</AFFECTSSTOCK><FORPAYROLL>No</FORPAYROLL>
<INTERESTONBILLWISE>No</INTERESTONBILLWISE><OVERRIDEINTEREST>No</OVERRIDEINTEREST>
<OVERRIDEADVINTEREST>No</OVERRIDEADVINTEREST><USEFORVAT>No</USEFORVAT>
<IGNORETDSEXEMPT>No</IGNORETDSEXEMPT><ISTCSAPPLICABLE>No</ISTCSAPPLICABLE>
<ISTDSAPPLICABLE>Yes</ISTDSAPPLICABLE><ISFBTAPPLICABLE>No</ISFBTAPPLICABLE>
<ISGSTAPPLICABLE>No</ISGSTAPPLICABLE><FORSERVICETAX>Yes</FORSERVICETAX>
<EXCISEREGNO>EX1</EXCISEREGNO><EXCISEREGISTRATIONDATE>01-04-2000</EXCISEREGISTRATIONDATE>
<EXCISERANGE>Rg</EXCISERANGE><EXCISEDIVISION>Dv</EXCISEDIVISION>
<EXCISECOMMISSIONERATE>Cm</EXCISECOMMISSIONERATE>
<EXCISENATUREOFPURCHASE>Manufacturer</EXCISENATUREOFPURCHASE>
<PAYMENTDETAILS.LIST>
  <BANKNAME>HDFC</BANKNAME><ACCOUNTNUMBER>0042</ACCOUNTNUMBER><IFSCODE>HDFC01</IFSCODE>
  <PAYMENTFAVOURING>Rao</PAYMENTFAVOURING><TRANSACTIONNAME>Txn</TRANSACTIONNAME>
  <CHEQUECROSSCOMMENT>A/c Payee</CHEQUECROSSCOMMENT><SETASDEFAULT>Yes</SETASDEFAULT>
  <DEFAULTTRANSACTIONTYPE>Cheque</DEFAULTTRANSACTIONTYPE>
</PAYMENTDETAILS.LIST>
<BILLALLOCATIONS.LIST>
  <BILLDATE>01-03-2025</BILLDATE><NAME>B/1</NAME><BILLCREDITPERIOD>30 Days</BILLCREDITPERIOD>
  <ISADVANCE>No</ISADVANCE><OPENINGBALANCE>700</OPENINGBALANCE>
</BILLALLOCATIONS.LIST>
<BILLALLOCATIONS.LIST>
  <BILLDATE>02-03-2025</BILLDATE><NAME>B/2</NAME><BILLCREDITPERIOD>15 Days</BILLCREDITPERIOD>
  <ISADVANCE>No</ISADVANCE><OPENINGBALANCE>-200.5</OPENINGBALANCE>
</BILLALLOCATIONS.LIST>
<OPENINGBALANCE>499.5</OPENINGBALANCE>
<NAME.LIST><NAME>Rao &amp; Sons</NAME><NAME>R&amp;S</NAME></NAME.LIST>
</LEDGER>)"));
  EXPECT_EQ(AllMarked(),
            (Lines{"- black", "0 blue bold: CREATED ", "- black", "- black", "- black"}));
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(LedgerLoopTest, TheStatusLandsAboveTheNextNameAndTheLastLedgerIsNotSent) {
  EXPECT_TRUE(Post("Name,Parent\nAlone,P\n").empty());
  EXPECT_EQ(Tags("Name,Parent,Phone\nA,P,\n,,continued\nB,Q,\nEND,,\n", " PARENT "),
            (Lines{"A: P", "B: Q"}));
  EXPECT_EQ(Statuses(), (Lines{"2 CREATED ", "3 CREATED "}));
  EXPECT_EQ(face_.Texts(form::Panel::Msg).back(), "Processed Ledgers: 4.........");
  // The company of the row that ends a ledger is the one that it goes to.
  Post("Name,Parent,CompanyName\nA,P,First\nB,P,Second\n");
  EXPECT_NE(Tally().Imports().back().find("<SVCURRENTCOMPANY>Second<"), std::string::npos);
}

TEST_F(LedgerLoopTest, AnExistingLedgerLeavesItsBillsToTheOneThatIsHeld) {
  SkipExisting({"B"}, "<PARENT>Sundry Debtors</PARENT>");
  EXPECT_EQ(Tags("Name,OpeningBillDate,OpeningName,OpeningCreditPeriod,OpeningBalance\n"
                 "A,,,,9\n"
                 "B,d1,b1,30,100\n"
                 ",d2,b2,30,200\n"
                 "C,,,,\n"
                 "END,,,,\n",
                 " BILLDATE OPENINGBALANCE "),
            (Lines{"A: d1 100 d2 200 300", "C: 0"}));
  EXPECT_EQ(Statuses(), (Lines{"2 SKIPED", "3 CREATED ", "4 CREATED "}));
  EXPECT_EQ(Marked(2), "1 black: SKIPED");
  EXPECT_EQ(Lookups(""), 0);
}

TEST_F(LedgerLoopTest, ARecordIsNotClearedBetweenLedgers) {
  EXPECT_EQ(Tags("Name,Parent,TDSDeducteeType,Address1\nA,P,Company 7,x\nB,,,\nEND,,,\n",
                 " PARENT TDSDEDUCTEETYPE ISTDSAPPLICABLE ADDRESS "),
            (Lines{"A: x P 0 Yes",  // a type that is a text reads as 0
                   "B: 0 No"}));    // it stays; that it applies does not
}

struct TableCase {
  const char* what;
  const char* csv;
  Lines sent;
};

TEST_F(LedgerLoopTest, BillsAndBankOfEachRow) {
  const TableCase cases[] = {
      {"three of four cells make no bill",
       "Name,OpeningBillDate,OpeningName,OpeningCreditPeriod,OpeningBalance\n"
       "A,d,b,,100\n,d,,30,5\n,,b,30,5\n,d,b,30,\nEND,,,,\n",
       {"A: 100"}},
      {"bills of the columns from the first field on",
       "OpeningBillDate,Name,OpeningName,OpeningCreditPeriod,OpeningBalance\n"
       "d,A,b,30,40x\n,END,,,\n",
       {"A: d 40x 40"}},
      {"without a column of bills there are none",
       "Name,OpeningName,OpeningBalance\nA,b,7\nEND,,\n",
       {"A: 7"}},
      {"bills that make nothing keep the balance",
       "Name,OpeningBillDate,OpeningName,OpeningCreditPeriod,OpeningBalance\n"
       "A,d,b,30,5\n,d,b,30,-5\nEND,,,,\n",
       {"A: d 5 d -5 5"}},
      {"bills above the first name are its own; later ledgers begin without",
       "Name,OpeningBillDate,OpeningName,OpeningCreditPeriod,OpeningBalance\n"
       ",d,b,30,5\nA,,,,1\nB,,,,1\nEND,,,,\n",
       {"A: d 5 5", "B: 1"}},
      {"a name again goes on with its ledger", "Name,OpeningBalance\nA,1\nA,2\nEND,\n", {"A: 1"}},
      {"the second account wins",
       "PaymentFavouring,Name,BankName,AccountNumber,IFSCCode,TransactionName,ChequeCrossComment,"
       "SetAsDefault,DefaultTransactionType\n"
       "f1,A,HDFC,1,i,t,c,s,d\nf2,,SBI,2,i,t,c,s,d\n,,Axis,3,i,t,c,s,d\n,END,,,,,,,\n",
       {"A: SBI f2"}},
  };
  for (const TableCase& row : cases) {
    EXPECT_EQ(Tags(row.csv, " BILLDATE OPENINGBALANCE BANKNAME PAYMENTFAVOURING "), row.sent)
        << row.what;
  }
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(LedgerLoopTest, AnAccountWithoutItsColumnsEndsTheLoop) {
  EXPECT_EQ(Tags("Name,PaymentFavouring,BankName\nA,,\nB,f,HDFC\nC,,\nEND,,\n", " PARENT "),
            Lines{"A:"});  // B's row ends the run, after A went out
  EXPECT_EQ(Statuses(), Lines{"1 CREATED "});
  EXPECT_EQ(face_.BoxesInShort(), Lines{"F01-0022"});
  EXPECT_TRUE(Post("Parent,Phone\nP,1\n").empty());
  EXPECT_EQ(face_.BoxesInShort(), (Lines{"F01-0022", "F01-0022"}));
}

}  // namespace
}  // namespace vorlane::masters
