#include "masters/master_writers.h"

#include "tests/gateway/gateway_fixture.h"
#include "tests/masters/master_wire.h"

namespace vorlane::masters {
namespace {

// Each field holds its own name, so that a golden document shows what goes where.
template <class Rec>
Rec Filled(std::initializer_list<std::pair<std::string Rec::*, const char*>> fields) {
  Rec record;
  record.OldName = "OldName";
  record.Name = "Name";
  for (const auto& [field, name] : fields) record.*field = name;
  return record;
}
#define F(field) \
  { &Rec::field, #field }

class MasterWritersTest : public gateway::GatewayTest {
 protected:
  template <class Rec>
  using Writer = std::string (*)(gateway::TallyGateway&, std::string_view, const Rec&,
                                 std::string_view);
  template <class Rec>
  std::string Sent(Writer<Rec> write, const Rec& record, std::string_view action = "Create") {
    NextAnswer({.body = "<RESPONSE><CREATED>1</CREATED></RESPONSE>"});
    EXPECT_EQ(write(tally_, "Practice Traders", record, action), "CREATED ");
    EXPECT_TRUE(boxes_.empty());
    return LastRequest().body;
  }
  /// The same without any line that is the same for every document.
  std::string SentInside(const LedgerRec& record) {
    const std::string body = Sent(WriteLedger, record);
    const std::size_t from = body.find("            <ADDITIONALNAME>");
    return body.substr(from, body.find("            <NAME.LIST>") - from);
  }
};

TEST_F(MasterWritersTest, WriteGroup) {
  using Rec = GroupRec;
  EXPECT_EQ(
      Sent(WriteGroup, Filled<Rec>({F(Alias), F(Parent), F(IsBillWiseOn), F(IsAddable),
                                    F(IsSubLedger), F(IsRevenue), F(AffectsGrossProfit),
                                    F(IsDeemedPositive), F(TrackNegativeBalances), F(IsCondensed),
                                    F(SortPosition), F(AffectsStock), F(IsCostCentreOn)})),
      ImportOf(R"(
          <GROUP NAME="Name" ACTION="Create">
            <PARENT>Parent</PARENT>
            <ISBILLWISEON>IsBillWiseOn</ISBILLWISEON>
            <ISADDABLE>IsAddable</ISADDABLE>
            <ISSUBLEDGER>IsSubLedger</ISSUBLEDGER>
            <ISREVENUE>IsRevenue</ISREVENUE>
            <AFFECTSGROSSPROFIT>AffectsGrossProfit</AFFECTSGROSSPROFIT>
            <ISDEEMEDPOSITIVE>IsDeemedPositive</ISDEEMEDPOSITIVE>
            <TRACKNEGATIVEBALANCES>TrackNegativeBalances</TRACKNEGATIVEBALANCES>
            <ISCONDENSED>IsCondensed</ISCONDENSED>
            <SORTPOSITION>SortPosition</SORTPOSITION>
            <AFFECTSSTOCK>AffectsStock</AFFECTSSTOCK>
            <ISCOSTCENTREON>IsCostCentreOn</ISCOSTCENTREON>
            <NAME.LIST>
              <NAME>Name</NAME>
              <NAME>Alias</NAME>
            </NAME.LIST>
          </GROUP>
)"));
}

TEST_F(MasterWritersTest, WriteGodown) {
  using Rec = GodownRec;
  EXPECT_EQ(Sent(WriteGodown,
                 Filled<Rec>({F(Alias), F(Parent), F(JobName), F(HasNoSpace), F(HasNoStock)})),
            ImportOf(R"(
          <GODOWN NAME="Name" ACTION="Create">
            <PARENT>Parent</PARENT>
            <JOBNAME>JobName</JOBNAME>
            <HASNOSPACE>HasNoSpace</HASNOSPACE>
            <HASNOSTOCK>HasNoStock</HASNOSTOCK>
            <NAME.LIST>
              <NAME>Name</NAME>
              <NAME>Alias</NAME>
            </NAME.LIST>
          </GODOWN>
)"));
}

TEST_F(MasterWritersTest, WriteStockGroup) {
  using Rec = StockGroupRec;
  EXPECT_EQ(Sent(WriteStockGroup,
                 Filled<Rec>({F(Alias), F(Parent), F(CostingMethod), F(ValuationMethod),
                              F(BaseUnits), F(AdditionalUnits), F(IsBatchWiseOn), F(IsPerishableOn),
                              F(IsAddable), F(IgnorePhysicalDifference), F(IgnoreNegativeStock),
                              F(TreatSalesAsManufactured), F(TreatPurchasesAsConsumed),
                              F(TreatRejectsAsScrap), F(HasMfgDate), F(AllowUseOfExpiredItems),
                              F(IgnoreBatches), F(IgnoreGodowns)})),
            ImportOf(R"(
          <STOCKGROUP NAME="Name" ACTION="Create">
            <PARENT>Parent</PARENT>
            <COSTINGMETHOD>CostingMethod</COSTINGMETHOD>
            <VALUATIONMETHOD>ValuationMethod</VALUATIONMETHOD>
            <BASEUNITS>BaseUnits</BASEUNITS>
            <ADDITIONALUNITS>AdditionalUnits</ADDITIONALUNITS>
            <ISBATCHWISEON>IsBatchWiseOn</ISBATCHWISEON>
            <ISPERISHABLEON>IsPerishableOn</ISPERISHABLEON>
            <ISADDABLE>IsAddable</ISADDABLE>
            <IGNOREPHYSICALDIFFERENCE>IgnorePhysicalDifference</IGNOREPHYSICALDIFFERENCE>
            <IGNORENEGATIVESTOCK>IgnoreNegativeStock</IGNORENEGATIVESTOCK>
            <TREATSALESASMANUFACTURED>TreatSalesAsManufactured</TREATSALESASMANUFACTURED>
            <TREATPURCHASESASCONSUMED>TreatPurchasesAsConsumed</TREATPURCHASESASCONSUMED>
            <TREATREJECTSASSCRAP>TreatRejectsAsScrap</TREATREJECTSASSCRAP>
            <HASMFGDATE>HasMfgDate</HASMFGDATE>
            <ALLOWUSEOFEXPIREDITEMS>AllowUseOfExpiredItems</ALLOWUSEOFEXPIREDITEMS>
            <IGNOREBATCHES>IgnoreBatches</IGNOREBATCHES>
            <IGNOREGODOWNS>IgnoreGodowns</IGNOREGODOWNS>
            <NAME.LIST>
              <NAME>Name</NAME>
              <NAME>Alias</NAME>
            </NAME.LIST>
          </STOCKGROUP>
)"));
}

TEST_F(MasterWritersTest, WriteStockCategory) {
  using Rec = StockCategoryRec;
  EXPECT_EQ(Sent(WriteStockCategory, Filled<Rec>({F(Alias), F(Parent)})), ImportOf(R"(
          <STOCKCATEGORY NAME="Name" ACTION="Create">
            <PARENT>Parent</PARENT>
            <NAME.LIST>
              <NAME>Name</NAME>
              <NAME>Alias</NAME>
            </NAME.LIST>
          </STOCKCATEGORY>
)"));
}

TEST_F(MasterWritersTest, WriteCostCategory) {
  using Rec = CostCategoryRec;
  EXPECT_EQ(Sent(WriteCostCategory, Filled<Rec>({F(Alias), F(AffectsStock), F(AllocateRevenue),
                                                 F(AllocateNonRevenue)})),
            ImportOf(R"(
          <COSTCATEGORY NAME="Name" ACTION="Create">
            <NAME>Name</NAME>
            <AFFECTSSTOCK>AffectsStock</AFFECTSSTOCK>
            <ALLOCATEREVENUE>AllocateRevenue</ALLOCATEREVENUE>
            <ALLOCATENONREVENUE>AllocateNonRevenue</ALLOCATENONREVENUE>
            <NAME.LIST>
              <NAME>Name</NAME>
              <NAME>Alias</NAME>
            </NAME.LIST>
          </COSTCATEGORY>
)"));
}

TEST_F(MasterWritersTest, WriteCostCentre) {
  using Rec = CostCentreRec;
  EXPECT_EQ(Sent(WriteCostCentre,
                 Filled<Rec>({F(Alias), F(Parent), F(Category), F(AffectsStock), F(ForPayroll),
                              F(ForJobCosting), F(IsEmployeeGroup), F(SortPosition)})),
            ImportOf(R"(
          <COSTCENTRE NAME="Name" ACTION="Create">
            <NAME>Name</NAME>
            <PARENT>Parent</PARENT>
            <CATEGORY>Category</CATEGORY>
            <AFFECTSSTOCK>AffectsStock</AFFECTSSTOCK>
            <FORPAYROLL>ForPayroll</FORPAYROLL>
            <FORJOBCOSTING>ForJobCosting</FORJOBCOSTING>
            <ISEMPLOYEEGROUP>IsEmployeeGroup</ISEMPLOYEEGROUP>
            <SORTPOSITION>SortPosition</SORTPOSITION>
            <NAME.LIST>
              <NAME>Name</NAME>
              <NAME>Alias</NAME>
            </NAME.LIST>
          </COSTCENTRE>
)"));
}

TEST_F(MasterWritersTest, WriteUnitSendsOneHalfByTheExactWordYes) {
  using Rec = UnitRec;
  const auto body = [&](const char* isSimple, const std::string& half) {
    UnitRec unit = Filled<Rec>(
        {F(OriginalName), F(DecimalPlaces), F(BaseUnits), F(AdditionalUnits), F(Conversion)});
    unit.IsSimpleUnit = isSimple;
    EXPECT_EQ(Sent(WriteUnit, unit),
              ImportOf("          <UNIT NAME=\"Name\" ACTION=\"Create\">\n"
                       "            <NAME>Name</NAME>\n            <ISSIMPLEUNIT>" +
                       std::string(isSimple) + "</ISSIMPLEUNIT>\n" + half + "          </UNIT>\n"));
  };
  body("Yes",
       "            <ORIGINALNAME>OriginalName</ORIGINALNAME>\n"
       "            <DECIMALPLACES>DecimalPlaces</DECIMALPLACES>\n");
  for (const char* word : {"No", "YES"}) {
    body(word,
         "            <BASEUNITS>BaseUnits</BASEUNITS>\n"
         "            <ADDITIONALUNITS>AdditionalUnits</ADDITIONALUNITS>\n"
         "            <CONVERSION>Conversion</CONVERSION>\n");
  }
}

TEST_F(MasterWritersTest, WriteLedger) {
  using Rec = LedgerRec;
  // clang-format off
  LedgerRec ledger = Filled<Rec>({
      F(Alias), F(CurrencyName), F(State), F(Country), F(PinCode), F(ContactPerson), F(Phone),
      F(Mobile), F(Fax), F(Email), F(Narration), F(VATTINNumber), F(IncomeTaxNumber),
      F(SalesTaxNumber), F(PriceLevel), F(Parent), F(TaxClassificationName), F(TaxType), F(GSTType),
      F(ServiceCategory), F(TDSDeducteeType), F(TDSRateName), F(LedgerFBTCategory), F(IsBillWiseOn),
      F(IsCostCentresOn), F(IsInterestOn), F(AllowInMobile), F(IsCondensed), F(AffectsStock),
      F(ForPayroll), F(InterestOnBillwise), F(OverrideInterest), F(OverrideAdvInterest),
      F(UseForVAT), F(IgnoreTDSExempt), F(IsTCSApplicable), F(IsTDSApplicable), F(IsFBTApplicable),
      F(IsGSTApplicable), F(ShowInPayslip), F(UseForGratuity), F(ForServiceTax), F(IsInputCredit),
      F(IsExempted), F(TDSDeducteeIsSpecialRate), F(Audited), F(SortPosition), F(ExciseRegNo),
      F(ExciseRegDate), F(ExciseRange), F(ExciseDivision), F(ExciseCommissionerate),
      F(ExciseNatureOfPurchase)});
  // clang-format on
  ledger.OpeningBalance = "77";
  ledger.Address = {"12 Market Road", "", "Pune"};
  ledger.Bank = {{},
                 {"State Bank", "00120", "SBIN01", "Rao", "Primary", "A/c Payee", "Yes", "NEFT"},
                 {"", "lost without a bank"},
                 {"Axis"}};
  ledger.Bills = {{},
                  {"01-04-2024", "B/1", "30 Days", "-1500.50"},
                  {"", "B/2", "", "9"},
                  {"02-04-2024", "", "", "500"}};
  EXPECT_EQ(Sent(WriteLedger, ledger), ImportOf(R"(
          <LEDGER NAME="Name" ACTION="Create">
            <ADDITIONALNAME>Name</ADDITIONALNAME>
            <ADDRESS.LIST>
              <ADDRESS>12 Market Road</ADDRESS>
              <ADDRESS/>
              <ADDRESS>Pune</ADDRESS>
              <ADDRESS/>
              <ADDRESS/>
            </ADDRESS.LIST>
            <CURRENCYNAME>CurrencyName</CURRENCYNAME>
            <STATENAME>State</STATENAME>
            <LEDSTATENAME>State</LEDSTATENAME>
            <COUNTRYOFRESIDENCE>Country</COUNTRYOFRESIDENCE>
            <PINCODE>PinCode</PINCODE>
            <LEDGERCONTACT>ContactPerson</LEDGERCONTACT>
            <LEDGERPHONE>Phone</LEDGERPHONE>
            <LEDGERMOBILE>Mobile</LEDGERMOBILE>
            <LEDGERFAX>Fax</LEDGERFAX>
            <EMAIL>Email</EMAIL>
            <NARRATION>Narration</NARRATION>
            <VATTINNUMBER>VATTINNumber</VATTINNUMBER>
            <INCOMETAXNUMBER>IncomeTaxNumber</INCOMETAXNUMBER>
            <SALESTAXNUMBER>SalesTaxNumber</SALESTAXNUMBER>
            <PRICELEVEL>PriceLevel</PRICELEVEL>
            <PARENT>Parent</PARENT>
            <TAXCLASSIFICATIONNAME>TaxClassificationName</TAXCLASSIFICATIONNAME>
            <TAXTYPE>TaxType</TAXTYPE>
            <GSTTYPE>GSTType</GSTTYPE>
            <SERVICECATEGORY>ServiceCategory</SERVICECATEGORY>
            <TDSDEDUCTEETYPE>TDSDeducteeType</TDSDEDUCTEETYPE>
            <TDSRATENAME>TDSRateName</TDSRATENAME>
            <LEDGERFBTCATEGORY>LedgerFBTCategory</LEDGERFBTCATEGORY>
            <ISBILLWISEON>IsBillWiseOn</ISBILLWISEON>
            <ISCOSTCENTRESON>IsCostCentresOn</ISCOSTCENTRESON>
            <ISINTERESTON>IsInterestOn</ISINTERESTON>
            <ALLOWINMOBILE>AllowInMobile</ALLOWINMOBILE>
            <ISCONDENSED>IsCondensed</ISCONDENSED>
            <AFFECTSSTOCK>AffectsStock</AFFECTSSTOCK>
            <FORPAYROLL>ForPayroll</FORPAYROLL>
            <INTERESTONBILLWISE>InterestOnBillwise</INTERESTONBILLWISE>
            <OVERRIDEINTEREST>OverrideInterest</OVERRIDEINTEREST>
            <OVERRIDEADVINTEREST>OverrideAdvInterest</OVERRIDEADVINTEREST>
            <USEFORVAT>UseForVAT</USEFORVAT>
            <IGNORETDSEXEMPT>IgnoreTDSExempt</IGNORETDSEXEMPT>
            <ISTCSAPPLICABLE>IsTCSApplicable</ISTCSAPPLICABLE>
            <ISTDSAPPLICABLE>IsTDSApplicable</ISTDSAPPLICABLE>
            <ISFBTAPPLICABLE>IsFBTApplicable</ISFBTAPPLICABLE>
            <ISGSTAPPLICABLE>IsGSTApplicable</ISGSTAPPLICABLE>
            <SHOWINPAYSLIP>ShowInPayslip</SHOWINPAYSLIP>
            <USEFORGRATUITY>UseForGratuity</USEFORGRATUITY>
            <FORSERVICETAX>ForServiceTax</FORSERVICETAX>
            <ISINPUTCREDIT>IsInputCredit</ISINPUTCREDIT>
            <ISEXEMPTED>IsExempted</ISEXEMPTED>
            <TDSDEDUCTEEISSPECIALRATE>TDSDeducteeIsSpecialRate</TDSDEDUCTEEISSPECIALRATE>
            <AUDITED>Audited</AUDITED>
            <SORTPOSITION>SortPosition</SORTPOSITION>
            <EXCISEREGNO>ExciseRegNo</EXCISEREGNO>
            <EXCISEREGISTRATIONDATE>ExciseRegDate</EXCISEREGISTRATIONDATE>
            <EXCISERANGE>ExciseRange</EXCISERANGE>
            <EXCISEDIVISION>ExciseDivision</EXCISEDIVISION>
            <EXCISECOMMISSIONERATE>ExciseCommissionerate</EXCISECOMMISSIONERATE>
            <EXCISENATUREOFPURCHASE>ExciseNatureOfPurchase</EXCISENATUREOFPURCHASE>
            <PAYMENTDETAILS.LIST>
              <BANKNAME>State Bank</BANKNAME>
              <ACCOUNTNUMBER>00120</ACCOUNTNUMBER>
              <IFSCODE>SBIN01</IFSCODE>
              <PAYMENTFAVOURING>Rao</PAYMENTFAVOURING>
              <TRANSACTIONNAME>Primary</TRANSACTIONNAME>
              <CHEQUECROSSCOMMENT>A/c Payee</CHEQUECROSSCOMMENT>
              <SETASDEFAULT>Yes</SETASDEFAULT>
              <DEFAULTTRANSACTIONTYPE>NEFT</DEFAULTTRANSACTIONTYPE>
            </PAYMENTDETAILS.LIST>
            <PAYMENTDETAILS.LIST>
              <BANKNAME>Axis</BANKNAME>
              <ACCOUNTNUMBER/>
              <IFSCODE/>
              <PAYMENTFAVOURING/>
              <TRANSACTIONNAME/>
              <CHEQUECROSSCOMMENT/>
              <SETASDEFAULT/>
              <DEFAULTTRANSACTIONTYPE/>
            </PAYMENTDETAILS.LIST>
            <BILLALLOCATIONS.LIST>
              <BILLDATE>01-04-2024</BILLDATE>
              <NAME>B/1</NAME>
              <BILLCREDITPERIOD>30 Days</BILLCREDITPERIOD>
              <ISADVANCE>No</ISADVANCE>
              <OPENINGBALANCE>-1500.50</OPENINGBALANCE>
            </BILLALLOCATIONS.LIST>
            <BILLALLOCATIONS.LIST>
              <BILLDATE>02-04-2024</BILLDATE>
              <NAME/>
              <BILLCREDITPERIOD/>
              <ISADVANCE>No</ISADVANCE>
              <OPENINGBALANCE>500</OPENINGBALANCE>
            </BILLALLOCATIONS.LIST>
            <OPENINGBALANCE>-1000.5</OPENINGBALANCE>
            <NAME.LIST>
              <NAME>Name</NAME>
              <NAME>Alias</NAME>
            </NAME.LIST>
          </LEDGER>
)"));
}

TEST_F(MasterWritersTest, BillsOverrideTheBalanceUnlessTheyMakeNone) {
  struct Row {
    std::vector<std::string> bills;
    const char* balance;
    const char* sent;
  };
  const Row rows[] = {
      {{}, "500", "500"},
      {{}, "", nullptr},
      {{"600", "400"}, "500", "1000"},
      {{"0", ""}, "500", "500"},
      {{"100", "-100"}, "", nullptr},
      {{"-0.10", "-0.20 Cr"}, "5", "-0.3"},
      {{"1,000.00"}, "5", "1"},  // Val ends at the comma
  };
  for (const Row& row : rows) {
    LedgerRec ledger;
    ledger.Name = "A";
    ledger.OpeningBalance = row.balance;
    ledger.Bills.resize(1);
    std::string lines = "            <ADDITIONALNAME>A</ADDITIONALNAME>\n";
    for (const std::string& bill : row.bills) {
      ledger.Bills.push_back({"01-04-2024", "B", "", bill});
      lines +=
          "            <BILLALLOCATIONS.LIST>\n              <BILLDATE>01-04-2024</BILLDATE>\n"
          "              <NAME>B</NAME>\n              <BILLCREDITPERIOD/>\n"
          "              <ISADVANCE>No</ISADVANCE>\n";
      lines += "              <OPENINGBALANCE" +
               (bill.empty() ? "/>\n" : ">" + bill + "</OPENINGBALANCE>\n");
      lines += "            </BILLALLOCATIONS.LIST>\n";
    }
    if (row.sent) {
      lines.append("            <OPENINGBALANCE>").append(row.sent).append("</OPENINGBALANCE>\n");
    }
    EXPECT_EQ(SentInside(ledger), tests::Lines(lines));
  }
}

TEST_F(MasterWritersTest, WriteStockItem) {
  using Rec = StockItemRec;
  // clang-format off
  StockItemRec item = Filled<Rec>({
      F(Alias), F(Parent), F(Category), F(TaxClassificationName), F(CostingMethod),
      F(ValuationMethod), F(BaseUnits), F(AdditionalUnits), F(ExciseItemClassification),
      F(IsCostCentresOn), F(IsBatchWiseOn), F(IsPerishableOn), F(IgnorePhysicalDifference),
      F(IgnoreNegativeStock), F(TreatSalesAsManufactured), F(TreatPurchasesAsConsumed),
      F(TreatRejectsAsScrap), F(HasMfgDate), F(AllowUseOfExpiredItems), F(IgnoreBatches),
      F(IgnoreGodowns), F(IsMRPInclOfTax), F(ReorderAsHigher), F(MinOrderAsHigher), F(Conversion),
      F(Denominator), F(BasicRateOfExcise), F(RateOfVAT), F(OpeningBalance), F(OpeningRate),
      F(OpeningValue), F(BasicQty), F(BasicTariffType), F(VATCommodity), F(PartNo), F(Description),
      F(Remark), F(BasePrice), F(VATPer), F(VATIncl), F(PurchaseDisc), F(SalesDisc)});
  // clang-format on
  item.Batches = {{},
                  {"Main", "B1", "10 Nos", "1000", "100/Nos", "01-04-2024", "90 Days"},
                  {"", "B2", "5 Nos", "500", "", "", ""},
                  {"Shop", "", "", "", "", "", ""}};
  item.StdCosts = {{}, {"01-04-2024", "90"}};
  item.StdPrices = {{}, {"01-04-2024", ""}, {"01-10-2024", "120"}};
  item.Components = {{}, {"Screw", "", "4", "Nos"}, {"", "Main", "1", "Nos"}};
  item.ExciseGodowns = {{}, {"Bonded", "Kg", "Auto", "Raw"}};
  EXPECT_EQ(Sent(WriteStockItem, item), ImportOf(R"(
          <STOCKITEM NAME="Name" ACTION="Create">
            <PARENT>Parent</PARENT>
            <CATEGORY>Category</CATEGORY>
            <TAXCLASSIFICATIONNAME>TaxClassificationName</TAXCLASSIFICATIONNAME>
            <COSTINGMETHOD>CostingMethod</COSTINGMETHOD>
            <VALUATIONMETHOD>ValuationMethod</VALUATIONMETHOD>
            <BASEUNITS>BaseUnits</BASEUNITS>
            <ADDITIONALUNITS>AdditionalUnits</ADDITIONALUNITS>
            <EXCISEITEMCLASSIFICATION>ExciseItemClassification</EXCISEITEMCLASSIFICATION>
            <ISCOSTCENTRESON>IsCostCentresOn</ISCOSTCENTRESON>
            <ISBATCHWISEON>IsBatchWiseOn</ISBATCHWISEON>
            <ISPERISHABLEON>IsPerishableOn</ISPERISHABLEON>
            <IGNOREPHYSICALDIFFERENCE>IgnorePhysicalDifference</IGNOREPHYSICALDIFFERENCE>
            <IGNORENEGATIVESTOCK>IgnoreNegativeStock</IGNORENEGATIVESTOCK>
            <TREATSALESASMANUFACTURED>TreatSalesAsManufactured</TREATSALESASMANUFACTURED>
            <TREATPURCHASESASCONSUMED>TreatPurchasesAsConsumed</TREATPURCHASESASCONSUMED>
            <TREATREJECTSASSCRAP>TreatRejectsAsScrap</TREATREJECTSASSCRAP>
            <HASMFGDATE>HasMfgDate</HASMFGDATE>
            <ISPERISHABLEON>IsPerishableOn</ISPERISHABLEON>
            <ALLOWUSEOFEXPIREDITEMS>AllowUseOfExpiredItems</ALLOWUSEOFEXPIREDITEMS>
            <IGNOREBATCHES>IgnoreBatches</IGNOREBATCHES>
            <IGNOREGODOWNS>IgnoreGodowns</IGNOREGODOWNS>
            <ISMRPINCLOFTAX>IsMRPInclOfTax</ISMRPINCLOFTAX>
            <REORDERASHIGHER>ReorderAsHigher</REORDERASHIGHER>
            <MINORDERASHIGHER>MinOrderAsHigher</MINORDERASHIGHER>
            <CONVERSION>Conversion</CONVERSION>
            <DENOMINATOR>Denominator</DENOMINATOR>
            <BASICRATEOFEXCISE>BasicRateOfExcise</BASICRATEOFEXCISE>
            <RATEOFVAT>RateOfVAT</RATEOFVAT>
            <OPENINGBALANCE>OpeningBalance</OPENINGBALANCE>
            <OPENINGRATE>OpeningRate</OPENINGRATE>
            <OPENINGVALUE>OpeningValue</OPENINGVALUE>
            <BASICQTY>BasicQty</BASICQTY>
            <BASICTARIFFTYPE>BasicTariffType</BASICTARIFFTYPE>
            <VATCOMMODITY>VATCommodity</VATCOMMODITY>
            <BATCHALLOCATIONS.LIST>
              <GODOWNNAME>Main</GODOWNNAME>
              <BATCHNAME>B1</BATCHNAME>
              <OPENINGBALANCE>10 Nos</OPENINGBALANCE>
              <OPENINGVALUE>1000</OPENINGVALUE>
              <OPENINGRATE>100/Nos</OPENINGRATE>
              <MFDON>01-04-2024</MFDON>
              <EXPIRYPERIOD>90 Days</EXPIRYPERIOD>
            </BATCHALLOCATIONS.LIST>
            <BATCHALLOCATIONS.LIST>
              <GODOWNNAME>Shop</GODOWNNAME>
              <BATCHNAME/>
              <OPENINGBALANCE/>
              <OPENINGVALUE/>
              <OPENINGRATE/>
              <MFDON/>
              <EXPIRYPERIOD/>
            </BATCHALLOCATIONS.LIST>
            <STANDARDCOSTLIST.LIST>
              <DATE>01-04-2024</DATE>
              <RATE>90</RATE>
            </STANDARDCOSTLIST.LIST>
            <STANDARDPRICELIST.LIST>
              <DATE>01-04-2024</DATE>
              <RATE/>
            </STANDARDPRICELIST.LIST>
            <STANDARDPRICELIST.LIST>
              <DATE>01-10-2024</DATE>
              <RATE>120</RATE>
            </STANDARDPRICELIST.LIST>
            <COMPONENTLIST.LIST>
              <STOCKITEMNAME>Screw</STOCKITEMNAME>
              <GODOWNNAME/>
              <ACTUALQTY>4 Nos</ACTUALQTY>
            </COMPONENTLIST.LIST>
            <EXCISEITEMGODOWN.LIST>
              <EXCISEGODOWNNAME>Bonded</EXCISEGODOWNNAME>
              <EXCISEREPUNITS>Kg</EXCISEREPUNITS>
              <EXCISEALLOCTYPE>Auto</EXCISEALLOCTYPE>
              <STOCKITEMTYPE>Raw</STOCKITEMTYPE>
            </EXCISEITEMGODOWN.LIST>
            <NAME.LIST>
              <NAME>Name</NAME>
              <NAME>Alias</NAME>
            </NAME.LIST>
            <ADDITIONALNAME.LIST>
              <ADDITIONALNAME>PartNo</ADDITIONALNAME>
            </ADDITIONALNAME.LIST>
            <DESCRIPTION>Description</DESCRIPTION>
            <NARRATION>Remark</NARRATION>
            <UDF:CCMSCVANIBASEPRC.LIST>
              <UDF:CCMSCVANIBASEPRC>BasePrice</UDF:CCMSCVANIBASEPRC>
            </UDF:CCMSCVANIBASEPRC.LIST>
            <UDF:CCMSCVANIVATPRC.LIST>
              <UDF:CCMSCVANIVATPRC>VATPer</UDF:CCMSCVANIVATPRC>
            </UDF:CCMSCVANIVATPRC.LIST>
            <UDF:CCMSCVANIVATINCL.LIST>
              <UDF:CCMSCVANIVATINCL>VATIncl</UDF:CCMSCVANIVATINCL>
            </UDF:CCMSCVANIVATINCL.LIST>
            <UDF:CCMSCVANIPURDISC.LIST>
              <UDF:CCMSCVANIPURDISC>PurchaseDisc</UDF:CCMSCVANIPURDISC>
            </UDF:CCMSCVANIPURDISC.LIST>
            <UDF:CCMSCVANISALDISC.LIST>
              <UDF:CCMSCVANISALDISC>SalesDisc</UDF:CCMSCVANISALDISC>
            </UDF:CCMSCVANISALDISC.LIST>
          </STOCKITEM>
)"));
}

TEST_F(MasterWritersTest, EmptyRecordsSendNoEmptyTags) {
  StockItemRec item;
  item.Name = "Pen & <Ink> \"10\"";
  // A row 0 alone is a table without rows.
  item.Batches = item.StdCosts = item.StdPrices = item.Components = {{"x", "x", "x", "x"}};
  const std::string body = R"(
          <STOCKITEM NAME="Pen &amp; &lt;Ink&gt; &quot;10&quot;" ACTION="Create">
            <NAME.LIST>
              <NAME>Pen &amp; &lt;Ink&gt; "10"</NAME>
            </NAME.LIST>
          </STOCKITEM>
)";
  EXPECT_EQ(Sent(WriteStockItem, item), ImportOf(body));
}

TEST_F(MasterWritersTest, AlterNamesTheMasterByItsOldName) {
  GodownRec godown;
  godown.OldName = "Old";
  godown.Name = godown.Alias = "{Any}";  // an alias that is the name goes out too
  const std::string body = R"(
          <GODOWN NAME="Old" ACTION="Alter">
            <NAME.LIST>
              <NAME>&#4; Any</NAME>
              <NAME>&#4; Any</NAME>
            </NAME.LIST>
          </GODOWN>
)";
  EXPECT_EQ(Sent(WriteGodown, godown, "Alter"), ImportOf(body));
}

TEST_F(MasterWritersTest, ACellThatIsNoXmlIsReportedOnceAndMakesNoMaster) {
  GodownRec godown;
  godown.Name = "Main\x0b";
  // Tally takes the empty document for a look whether it is there.
  EXPECT_EQ(WriteGodown(tally_, "Practice Traders", godown, "Create"),
            "<RESPONSE>TallyPrime Server is Running</RESPONSE>\r\n");
  EXPECT_EQ(boxes_.size(), 1u);
  EXPECT_EQ(LastRequest().body, "");
}

TEST_F(MasterWritersTest, ACompanyThatIsNoXmlFailsTheWriterUnderItsOwnCode) {
  const std::string company = "Rao\x0b";
  const std::pair<const char*, std::function<std::string()>> rows[] = {
      {"C03-0001", [&] { return WriteGodown(tally_, company, {}, "Create"); }},
      {"C03-0002", [&] { return WriteUnit(tally_, company, {}, "Create"); }},
      {"C03-0003", [&] { return WriteGroup(tally_, company, {}, "Create"); }},
      {"C03-0004", [&] { return WriteLedger(tally_, company, {}, "Create"); }},
      {"C03-0005", [&] { return WriteStockGroup(tally_, company, {}, "Create"); }},
      {"C03-0006", [&] { return WriteStockItem(tally_, company, {}, "Create"); }},
      {"C03-0007", [&] { return WriteStockCategory(tally_, company, {}, "Create"); }},
      {"C03-0008", [&] { return WriteCostCategory(tally_, company, {}, "Create"); }},
      {"C03-0009", [&] { return WriteCostCentre(tally_, company, {}, "Create"); }},
  };
  for (const auto& [code, write] : rows) {
    boxes_.clear();
    EXPECT_EQ(write(), "");
    ASSERT_EQ(boxes_.size(), 1u);
    EXPECT_NE(boxes_[0].text.find(code), std::string::npos) << boxes_[0].text;
  }
  EXPECT_TRUE(server_.Gateway().Exchanges().empty());
}

#undef F

}  // namespace
}  // namespace vorlane::masters
