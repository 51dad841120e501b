#include "tests/masters/held_fixture.h"

namespace vorlane::masters {
namespace {

class StockItemLoopTest : public HeldLoopTest {
 protected:
  StockItemLoopTest() : HeldLoopTest("STOCK ITEMS", "STOCKITEM", PostStockItems) {}
};

TEST_F(StockItemLoopTest, AWholeItemTagByTag) {
  const Lines sent = Post(
      "Name,NameAlias,Parent,Category,BaseUnits,CostingMethod,AdditionalUnit,Denominator,"
      "Conversion,"
      "BasicRateOfExcise,RateOfVAT,IsBatchWiseOn,HasMfgDate,IsPerishableOn,IsCostCentresOn,"
      "IgnoreNegativeStock,OpeningBalance,OpeningValue,OpeningRate,PartNo,Description,Remark,"
      "MfgQty,"
      "MfgUnit,ExciseCommodity,VATCommodity,BasePrice,PurchaseDisc,SalesDisc,VATPer,VATIncl,"
      "GodownName,BatchName,MfdOn,ExpiryPeriod,StdCostDate,StdCost,StdPriceDate,StdPrice,BOMItem,"
      "BOMGodown,BOMQty,BOMUnit,ExciseGodown,ExciseUnitName,ValuationType,StockItemType\n"
      "\"12\"\" "
      "Ruler\",Steel,Tools,Trade,Nos,FIFO,Box,1,12.0x,8,5,Yes,No,Yes,No,Yes,100,5000.50,50,P-1,"
      "Ruler <steel>,Old stock,10,Nos,Ch 82,V1,45,2,3,5,Yes,"
      "Shop,B-1,01-01-2025,2 Years,01-04-2025,40,02-04-2025,60,Strip,Shop,2,Nos,Shop,U1,Retail,FG\n"
      ",,,,,,,,,,,,,,,,10,,5x,,,,,,,,,,,,,Yard,,,,,,,,,,,,Yard,,,\n");
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_EQ(sent[0], tests::TagLines(R"(
<STOCKITEM NAME="12&quot; Ruler" ACTION="Create">
<PARENT>Tools</PARENT><CATEGORY>Trade</CATEGORY><COSTINGMETHOD>FIFO</COSTINGMETHOD>
<VALUATIONMETHOD>Avg. Price</VALUATIONMETHOD><BASEUNITS>Nos</BASEUNITS>
<ADDITIONALUNITS>Box</ADDITIONALUNITS><ISCOSTCENTRESON>No</ISCOSTCENTRESON>
<ISBATCHWISEON>Yes</ISBATCHWISEON><ISPERISHABLEON>Yes</ISPERISHABLEON>
<IGNORENEGATIVESTOCK>Yes</IGNORENEGATIVESTOCK><HASMFGDATE>No</HASMFGDATE>
<ISPERISHABLEON>Yes</ISPERISHABLEON><CONVERSION>12</CONVERSION><DENOMINATOR>1</DENOMINATOR>
<BASICRATEOFEXCISE>8</BASICRATEOFEXCISE><RATEOFVAT>5</RATEOFVAT>
<OPENINGBALANCE>100</OPENINGBALANCE><OPENINGRATE>50</OPENINGRATE>
<OPENINGVALUE>-5000.5</OPENINGVALUE><BASICQTY>10Nos</BASICQTY>
<BASICTARIFFTYPE>Ch 82</BASICTARIFFTYPE><VATCOMMODITY>V1</VATCOMMODITY>
<BATCHALLOCATIONS.LIST>
  <GODOWNNAME>Shop</GODOWNNAME><BATCHNAME>B-1</BATCHNAME><OPENINGBALANCE>100</OPENINGBALANCE>
  <OPENINGVALUE>-5000.5</OPENINGVALUE><OPENINGRATE>50</OPENINGRATE><MFDON>01-01-2025</MFDON>
  <EXPIRYPERIOD>2 Years</EXPIRYPERIOD>
</BATCHALLOCATIONS.LIST>
<BATCHALLOCATIONS.LIST>
  <GODOWNNAME>Yard</GODOWNNAME><BATCHNAME/><OPENINGBALANCE>10</OPENINGBALANCE>
  <OPENINGVALUE>0</OPENINGVALUE><OPENINGRATE>5</OPENINGRATE><MFDON/><EXPIRYPERIOD/>
</BATCHALLOCATIONS.LIST>
<STANDARDCOSTLIST.LIST><DATE>01-04-2025</DATE><RATE>40</RATE></STANDARDCOSTLIST.LIST>
<STANDARDPRICELIST.LIST><DATE>02-04-2025</DATE><RATE>60</RATE></STANDARDPRICELIST.LIST>
<COMPONENTLIST.LIST>
  <STOCKITEMNAME>Strip</STOCKITEMNAME><GODOWNNAME>Shop</GODOWNNAME><ACTUALQTY>2 Nos</ACTUALQTY>
</COMPONENTLIST.LIST>
<EXCISEITEMGODOWN.LIST>
  <EXCISEGODOWNNAME>Shop</EXCISEGODOWNNAME><EXCISEREPUNITS>U1</EXCISEREPUNITS>
  <EXCISEALLOCTYPE>Retail</EXCISEALLOCTYPE><STOCKITEMTYPE>FG</STOCKITEMTYPE>
</EXCISEITEMGODOWN.LIST>
<EXCISEITEMGODOWN.LIST>
  <EXCISEGODOWNNAME>Yard</EXCISEGODOWNNAME><EXCISEREPUNITS/><EXCISEALLOCTYPE/><STOCKITEMTYPE/>
</EXCISEITEMGODOWN.LIST>
<NAME.LIST><NAME>12" Ruler</NAME><NAME>Steel</NAME></NAME.LIST>
<ADDITIONALNAME.LIST><ADDITIONALNAME>P-1</ADDITIONALNAME></ADDITIONALNAME.LIST>
<DESCRIPTION>Ruler &lt;steel&gt;</DESCRIPTION><NARRATION>Old stock</NARRATION>
<UDF:CCMSCVANIBASEPRC.LIST><UDF:CCMSCVANIBASEPRC>45</UDF:CCMSCVANIBASEPRC></UDF:CCMSCVANIBASEPRC.LIST>
<UDF:CCMSCVANIVATPRC.LIST><UDF:CCMSCVANIVATPRC>5</UDF:CCMSCVANIVATPRC></UDF:CCMSCVANIVATPRC.LIST>
<UDF:CCMSCVANIVATINCL.LIST><UDF:CCMSCVANIVATINCL>Yes</UDF:CCMSCVANIVATINCL></UDF:CCMSCVANIVATINCL.LIST>
<UDF:CCMSCVANIPURDISC.LIST><UDF:CCMSCVANIPURDISC>2</UDF:CCMSCVANIPURDISC></UDF:CCMSCVANIPURDISC.LIST>
<UDF:CCMSCVANISALDISC.LIST><UDF:CCMSCVANISALDISC>3</UDF:CCMSCVANISALDISC></UDF:CCMSCVANISALDISC.LIST>
</STOCKITEM>)"));
  EXPECT_EQ(AllMarked(), (Lines{"- black", "0 blue bold: CREATED ", "- black", "- black"}));
}

TEST_F(StockItemLoopTest, TheFirstEmptyRowSendsTheLastItem) {
  EXPECT_EQ(Tags("Name,Parent,Category,BaseUnits,Remark\nA,G,,Nos,\n,,,,x\nB,H,,Kgs,\n",
                 " PARENT BASEUNITS NARRATION "),
            (Lines{"A: G Nos", "B: H Kgs"}));
  EXPECT_EQ(Statuses(), (Lines{"2 CREATED ", "3 CREATED "}));
  const Lines shown = face_.Texts(form::Panel::Msg);
  EXPECT_EQ(shown.back(), "Processed Stock Items: 4.........");
}

TEST_F(StockItemLoopTest, AnExistingItemLeavesItsBatchesToTheOneThatIsHeld) {
  SkipExisting({"B"});
  EXPECT_EQ(Tags("Name,Parent,Category,BaseUnits,GodownName\nA,,,Nos,g1\nB,,,Nos,g2\n,,,,g3\n"
                 "C,,,Nos,\n",
                 " GODOWNNAME "),
            (Lines{"A: g1 g2 g3", "C:"}));
  EXPECT_EQ(Statuses(), (Lines{"2 SKIPED", "3 CREATED ", "4 CREATED "}));
  // The empty row asks for a master without a name.
  EXPECT_EQ(Lookups(""), 1) << "the empty row asks for a master without a name";
}

struct BlockCase {
  const char* what;
  const char* csv;
  Lines sent;
};

TEST_F(StockItemLoopTest, BlocksOfEachRow) {
  const BlockCase cases[] = {
      {"a block whose column is the first field is off",
       "GodownName,Name,Parent,Category,BaseUnits,OpeningBalance\nShop,A,,,Nos,7\n",
       {"A: 7"}},
      {"a batch by its godown alone",
       "Name,Parent,Category,BaseUnits,GodownName\nA,,,Nos,Shop\n",
       {"A: Shop"}},
      {"half a cost and half a price are none",
       "Name,Parent,Category,BaseUnits,StdCostDate,StdCost,StdPriceDate,StdPrice\n"
       "A,,,Nos,d,,,60\n",
       {"A:"}},
      {"a component needs a godown",
       "Name,Parent,Category,BaseUnits,BOMItem,BOMGodown,BOMQty,BOMUnit\n"
       "A,,,Nos,i,,2,Nos\n,,,,i,g,two,Nos\nB,,,Nos,j,g,3x,\n",
       {"A: g 0 Nos", "B: g 3 "}},
      {"and all four columns",
       "Name,Parent,Category,BaseUnits,BOMItem,BOMGodown,BOMQty\n"
       "A,,,Nos,i,g,2\n",
       {"A:"}},
      {"numbers that are texts",
       "Name,Parent,Category,BaseUnits,OpeningBalance,OpeningValue,OpeningRate\n"
       "A,,,Nos,ten,none,x\nB,,,Nos,-3,-40,\n",
       {"A: 0 0 0", "B: -3 0 40"}},
      {"tables start anew with each item, absent columns keep what was there",
       "Name,Parent,Category,BaseUnits,GodownName,StdCostDate,StdCost\n"
       "A,,,Nos,Shop,d,1\nB,,,Nos,Yard,,\n",
       {"A: Shop d 1", "B: Yard"}},
  };
  for (const BlockCase& row : cases) {
    EXPECT_EQ(Tags(row.csv,
                   " GODOWNNAME OPENINGBALANCE OPENINGVALUE OPENINGRATE DATE RATE "
                   "ACTUALQTY "),
              row.sent)
        << row.what;
  }
  EXPECT_TRUE(face_.boxes.empty());
}

TEST_F(StockItemLoopTest, AMissingColumnEndsTheLoopWithTheItemUnsent) {
  const std::string_view cases[] = {
      "Name,Parent,Category\nA,,\n",  // no units
      "Name,Parent,Category,BaseUnits,MfgQty\nA,,,Nos,5\n",
      "Name,Parent,Category,BaseUnits,ExciseGodown\nA,,,Nos,g\n",
  };
  for (const std::string_view csv : cases) {
    face_.boxes.clear();
    EXPECT_TRUE(Post(csv).empty()) << csv;
    EXPECT_EQ(face_.BoxesInShort(), Lines{"F01-0031"}) << csv;
    EXPECT_TRUE(Statuses().empty());
  }
}

}  // namespace
}  // namespace vorlane::masters
