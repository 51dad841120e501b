#include "masters/master_lookups.h"

#include "tests/gateway/gateway_fixture.h"

namespace vorlane::masters {
namespace {

class MasterLookupsTest : public gateway::GatewayTest {};

TEST_F(MasterLookupsTest, AsksForTheObjectByItsName) {
  EXPECT_FALSE(MasterExists(tally_, "STOCK <GROUPS>", "Rao & Son's", true));
  EXPECT_EQ(LastRequest().body, tests::Lines(R"(
<ENVELOPE>
  <HEADER>
    <VERSION>1</VERSION>
    <TALLYREQUEST>EXPORT</TALLYREQUEST>
    <TYPE>OBJECT</TYPE>
    <SUBTYPE>STOCK &lt;GROUPS&gt;</SUBTYPE>
    <ID TYPE="Name">Rao &amp; Son's</ID>
  </HEADER>
  <BODY>
    <DESC>
      <STATICVARIABLES>
        <SVEXPORTFORMAT>$$SysName:XML</SVEXPORTFORMAT>
      </STATICVARIABLES>
      <FETCHLIST>
        <FETCH>Name</FETCH>
      </FETCHLIST>
    </DESC>
  </BODY>
</ENVELOPE>)"));
  EXPECT_FALSE(MasterExists(tally_, "GROUPS", "Sundry Debtors", false));
  EXPECT_EQ(server_.Gateway().Exchanges().size(), 1u);
  EXPECT_TRUE(MasterExists(tally_, "GROUPS", " sundry DEBTORS ", true));
  EXPECT_TRUE(ObjectExists(tally_, "Group", "Sundry Debtors"));
  EXPECT_FALSE(ObjectExists(tally_, "Ledger", "Nobody"));
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(MasterLookupsTest, OnlyTallysErrorMessageSpeaksOfAbsence) {
  const std::pair<const char*, bool> rows[] = {
      {"<ERRORMSG>Could not find Ledger 'X'!</ERRORMSG>", false},
      {"<E><ERRORMSG/><ERRORMSG>&#4; x</ERRORMSG></E>", false},
      {"broken <ERRORMSG> text", false},
      {"<ERRORMSG CODE=\"1\">x</ERRORMSG>", true},
      {"<errormsg>x</errormsg>", true},
      {"<UDF:ERRORMSG>x</UDF:ERRORMSG>", false},  // "UDF:" is taken away before
      {"<&#4; ERRORMSG>", false},                 // and so is the reserved reference
      // A digest has lost the tags of the answer that it was read from.
      {"<RESPONSE><ERRORMSG>1</ERRORMSG></RESPONSE>", true},
      {"<E><DATA><LINEERROR>Object does not exist.</LINEERROR></DATA></E>", true},
      {"anything", true},
      {"", true},
  };
  for (const auto& [answer, exists] : rows) {
    NextAnswer({.body = answer});
    EXPECT_EQ(MasterExists(tally_, "LEDGER", "X", true), exists) << answer;
    NextAnswer({.body = answer});
    EXPECT_EQ(ObjectExists(tally_, "Ledger", "X"), exists) << answer;
  }
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(MasterLookupsTest, ObjectExistsLeavesTheNameUnescaped) {
  EXPECT_TRUE(ObjectExists(tally_, "Ledger", "Rao & Sons"));
  EXPECT_EQ(LastRequest().body, "");
  EXPECT_EQ(boxes_.size(), 1u);
}

TEST_F(MasterLookupsTest, ATallyThatIsGoneKnowsEverything) {
  server_.Stop();
  EXPECT_TRUE(MasterExists(tally_, "LEDGER", "X", true));
  EXPECT_FALSE(MasterExists(tally_, "LEDGER", "X", false));
  EXPECT_EQ(boxes_.size(), 1u);
}

}  // namespace
}  // namespace vorlane::masters
