#include "masters/master_loops.h"

#include "tests/form/form_fixture.h"
#include "tests/masters/master_wire.h"

namespace vorlane::masters {
namespace {

using form::ImportForm;
using form::Panel;
using Lines = std::vector<std::string>;

std::string Response(const std::string& counter) {
  return "<RESPONSE><" + counter + ">1</" + counter + "></RESPONSE>";
}

class MasterLoopsTest : public testing::Test, protected form::PostingFixture {
 protected:
  /// The SUBTYPE and the name of each lookup.
  Lines Lookups() {
    Lines all;
    for (const practice::Exchange& exchange : Tally().Exchanges()) {
      const std::string& body = exchange.request.body;
      const auto between = [&](std::string_view from) {
        const std::size_t at = body.find(from) + from.size();
        return body.substr(at, body.find('<', at) - at);
      };
      if (body.find("<SUBTYPE>") == std::string::npos) continue;
      all.push_back(between("<SUBTYPE>") + ": " + between("<ID TYPE=\"Name\">"));
    }
    return all;
  }
  /// The company of each import, "-" for none.
  Lines Companies() {
    Lines all;
    for (const std::string& body : Tally().Imports()) {
      const std::string_view tag = "<SVCURRENTCOMPANY>";
      const std::size_t at = body.find(tag);
      all.push_back(at == std::string::npos
                        ? "-"
                        : body.substr(at + tag.size(), body.find('<', at + 1) - at - tag.size()));
    }
    return all;
  }
};

struct LoopCase {
  const char* entry;  ///< of cmbTableName
  void (*post)(ImportForm&);
  const char* csv;
  Lines sent;  ///< the masters inside their documents
  const char* status;
  const char* lookup;
};

void PrintTo(const LoopCase& loopCase, std::ostream* out) { *out << loopCase.entry; }

class MasterLoops : public MasterLoopsTest, public testing::WithParamInterface<LoopCase> {};

TEST_P(MasterLoops, SendsEachRowAsADocument) {
  const LoopCase& row = GetParam();
  LoadCsvText(row.entry, row.csv);
  ImportsAnswer(Lines(row.sent.size(), Response("CREATED")));
  row.post(form_);
  Lines sent, marks, status;
  for (std::size_t i = 1; i <= row.sent.size(); ++i) {
    sent.push_back(ImportOf(row.sent[i - 1]));
    marks.push_back("0 blue bold: CREATED ");
    status.push_back(row.status + std::to_string(i) + ".........");
  }
  EXPECT_EQ(Tally().Imports(), sent);
  EXPECT_EQ(Tally().Exchanges().size(), sent.size());  // no lookups with the box clear
  marks.resize(marks.size() + 2, "- black");
  EXPECT_EQ(AllMarked(), marks);
  Lines shown = face_.Texts(Panel::Msg);
  EXPECT_EQ(Lines(shown.end() - static_cast<std::ptrdiff_t>(status.size()), shown.end()), status);
  EXPECT_EQ(face_.rowsMarked.size(), sent.size());
  EXPECT_EQ(face_.boxes.size(), 0u);
}

TEST_P(MasterLoops, AsksBeforeEachRowWithTheBoxTicked) {
  const LoopCase& row = GetParam();
  LoadCsvText(row.entry, row.csv);
  form_.chkSkipMst.ticked = true;
  Tally().Script({{{.body = "<E>it is here</E>"}}});
  row.post(form_);
  EXPECT_EQ(Marked(1), "1 black: SKIPED");
  ASSERT_FALSE(Lookups().empty());
  EXPECT_TRUE(Lookups()[0].starts_with(row.lookup)) << Lookups()[0];
  EXPECT_EQ(Lookups().size(), row.sent.size());
  EXPECT_EQ(Tally().Imports().size(), row.sent.size() - 1);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, MasterLoops,
    testing::Values(
        LoopCase{"LEDGER GROUPS",
                 PostLedgerGroups,
                 "Name,Parent,SubLedger,NameAlias\n"
                 "Debtors & Co,,,\n"
                 "राम's,Debtors & Co,Yes,R\n",
                 {R"(
          <GROUP NAME="Debtors &amp; Co" ACTION="Create">
            <ISBILLWISEON>No</ISBILLWISEON>
            <ISADDABLE>No</ISADDABLE>
            <ISREVENUE>No</ISREVENUE>
            <AFFECTSGROSSPROFIT>No</AFFECTSGROSSPROFIT>
            <ISDEEMEDPOSITIVE>No</ISDEEMEDPOSITIVE>
            <TRACKNEGATIVEBALANCES>No</TRACKNEGATIVEBALANCES>
            <ISCONDENSED>Yes</ISCONDENSED>
            <AFFECTSSTOCK>No</AFFECTSSTOCK>
            <ISCOSTCENTREON>No</ISCOSTCENTREON>
            <NAME.LIST>
              <NAME>Debtors &amp; Co</NAME>
            </NAME.LIST>
          </GROUP>
)",
                  R"(
          <GROUP NAME="राम's" ACTION="Create">
            <PARENT>Debtors &amp; Co</PARENT>
            <ISBILLWISEON>No</ISBILLWISEON>
            <ISADDABLE>No</ISADDABLE>
            <ISSUBLEDGER>Yes</ISSUBLEDGER>
            <ISREVENUE>No</ISREVENUE>
            <AFFECTSGROSSPROFIT>No</AFFECTSGROSSPROFIT>
            <ISDEEMEDPOSITIVE>No</ISDEEMEDPOSITIVE>
            <TRACKNEGATIVEBALANCES>No</TRACKNEGATIVEBALANCES>
            <ISCONDENSED>Yes</ISCONDENSED>
            <AFFECTSSTOCK>No</AFFECTSSTOCK>
            <ISCOSTCENTREON>No</ISCOSTCENTREON>
            <NAME.LIST>
              <NAME>राम's</NAME>
              <NAME>R</NAME>
            </NAME.LIST>
          </GROUP>
)"},
                 "Processed Ledger Groups: ",
                 "GROUPS: Debtors &amp; Co"},
        LoopCase{"UNITS",
                 PostUnits,
                 "Name,IsSimpleUnit,OriginalName,DecimalPlaces,BaseUnits,AdditionalUnits,"
                 "Conversion,NameAlias\n"
                 "Nos,Yes,Numbers,0,a,b,c,alias\n"
                 "Doz,no,x,y,Doz,Nos,12,\n"
                 "Kg,YES,Kilo,3,,,,\n",
                 {R"(
          <UNIT NAME="Nos" ACTION="Create">
            <NAME>Nos</NAME>
            <ISSIMPLEUNIT>Yes</ISSIMPLEUNIT>
            <ORIGINALNAME>Numbers</ORIGINALNAME>
            <DECIMALPLACES>0</DECIMALPLACES>
          </UNIT>
)",
                  R"(
          <UNIT NAME="Doz" ACTION="Create">
            <NAME>Doz</NAME>
            <ISSIMPLEUNIT>no</ISSIMPLEUNIT>
            <BASEUNITS>Doz</BASEUNITS>
            <ADDITIONALUNITS>Nos</ADDITIONALUNITS>
            <CONVERSION>12</CONVERSION>
          </UNIT>
)",
                  // Simple to the loop, compound to the writer.
                  R"(
          <UNIT NAME="Kg" ACTION="Create">
            <NAME>Kg</NAME>
            <ISSIMPLEUNIT>YES</ISSIMPLEUNIT>
          </UNIT>
)"},
                 "Processed Units: ",
                 "UNITS: Nos"},
        LoopCase{"GODOWNS",
                 PostGodowns,
                 "Name,Parent,HasNoStock,NameAlias,JobName\nMain,{Any},No,M,unread\n",
                 {R"(
          <GODOWN NAME="Main" ACTION="Create">
            <PARENT>&#4; Any</PARENT>
            <HASNOSTOCK>No</HASNOSTOCK>
            <NAME.LIST>
              <NAME>Main</NAME>
              <NAME>M</NAME>
            </NAME.LIST>
          </GODOWN>
)"},
                 "Processed Godowns: ",
                 "GODOWNS: Main"},
        LoopCase{"STOCK GROUPS",
                 PostStockGroups,
                 "NameAlias,Name,Parent,IsAddable,BaseUnits\nunread,Pens,Goods,Yes,unread\n",
                 {R"(
          <STOCKGROUP NAME="Pens" ACTION="Create">
            <PARENT>Goods</PARENT>
            <ISADDABLE>Yes</ISADDABLE>
            <NAME.LIST>
              <NAME>Pens</NAME>
            </NAME.LIST>
          </STOCKGROUP>
)"},
                 "Processed Stock Groups: ",
                 "STOCK GROUPS: Pens"},
        LoopCase{"STOCK CATEGORIES",
                 PostStockCategories,
                 "Name,Parent,NameAlias\nRed,Colours,R\n",
                 {R"(
          <STOCKCATEGORY NAME="Red" ACTION="Create">
            <PARENT>Colours</PARENT>
            <NAME.LIST>
              <NAME>Red</NAME>
              <NAME>R</NAME>
            </NAME.LIST>
          </STOCKCATEGORY>
)"},
                 "Processed Stock Categories: ",
                 "STOCK CATEGORIES: Red"},
        LoopCase{"COST CATEGORIES",
                 PostCostCategories,
                 "Name,NameAlias,AllocateRevenue,AllocateNonRevenue\nBranch,,Yes,No\n",
                 {R"(
          <COSTCATEGORY NAME="Branch" ACTION="Create">
            <NAME>Branch</NAME>
            <ALLOCATEREVENUE>Yes</ALLOCATEREVENUE>
            <ALLOCATENONREVENUE>No</ALLOCATENONREVENUE>
            <NAME.LIST>
              <NAME>Branch</NAME>
            </NAME.LIST>
          </COSTCATEGORY>
)"},
                 "Processed Ledger Groups: ",
                 "COST CATEGORIWS: Branch"},
        LoopCase{"COST CENTRES",
                 PostCostCentres,
                 "Name,Parent,Category,NameAlias,AffectsStock,ForPayroll,ForJobCosting,"
                 "IsEmployeeGroup,SortPosition\n"
                 "Pune,,,P,,,,,\nRao,Pune,Branch,,No,Yes,No,Yes,1000\n",
                 {R"(
          <COSTCENTRE NAME="Pune" ACTION="Create">
            <NAME>Pune</NAME>
            <CATEGORY>Primary Cost Category</CATEGORY>
            <NAME.LIST>
              <NAME>Pune</NAME>
              <NAME>P</NAME>
            </NAME.LIST>
          </COSTCENTRE>
)",
                  R"(
          <COSTCENTRE NAME="Rao" ACTION="Create">
            <NAME>Rao</NAME>
            <PARENT>Pune</PARENT>
            <CATEGORY>Branch</CATEGORY>
            <AFFECTSSTOCK>No</AFFECTSSTOCK>
            <FORPAYROLL>Yes</FORPAYROLL>
            <FORJOBCOSTING>No</FORJOBCOSTING>
            <ISEMPLOYEEGROUP>Yes</ISEMPLOYEEGROUP>
            <SORTPOSITION>1000</SORTPOSITION>
            <NAME.LIST>
              <NAME>Rao</NAME>
            </NAME.LIST>
          </COSTCENTRE>
)"},
                 "Processed Ledger Groups: ",
                 "COST CENTRES: Pune"}));

TEST_F(MasterLoopsTest, MarksRowsByWhatTallyAnswers) {
  LoadCsvText("GODOWNS", "Name,Parent,HasNoStock\na,,\n,x,y\nb,,\nc,,\nd,,\n,,\ne,,\n\"  \",x,y\n");
  const std::string raw = "<RESPONSE><CREATED>0</CREATED><IGNORED>2</IGNORED></RESPONSE>";
  ImportsAnswer({"", Response("CREATED"), raw, Response("ERRORS"), "gone", Response("ALTERED")});
  PostGodowns(form_);
  // A row without a name is left alone, but blanks are a name. The loader has
  // left out the empty row.
  EXPECT_EQ(AllMarked(), (Lines{"- black bold", "- black", "0 blue bold: CREATED ",
                                "0 blue bold: " + raw, "1 red bold: ERRORS ", "- red bold: gone",
                                "0 black bold: ALTERED ", "- black", "- black"}));
  EXPECT_EQ(face_.rowsMarked, (std::vector<std::size_t>{1, 3, 4, 5, 6, 7}));
  EXPECT_EQ(face_.eventTurns, 6u);
  EXPECT_EQ(form_.GR1.CurrentRow(), 7u);
  // A second run begins black and overwrites what it reaches.
  ImportsAnswer({"", "", "", "", "", ""});
  PostGodowns(form_);
  EXPECT_EQ(AllMarked()[0], "- black bold");
  EXPECT_EQ(AllMarked()[4], "1 black bold");
}

TEST_F(MasterLoopsTest, SkipsWhatExistsAndPostsTheRest) {
  LoadCsvText("LEDGER GROUPS",
              "Name,Parent,SubLedger\nSundry Debtors,,\nNew,Sundry Debtors,\nNew,,\n");
  form_.chkSkipMst.ticked = true;
  PostLedgerGroups(form_);
  EXPECT_EQ(Lookups(), (Lines{"GROUPS: Sundry Debtors", "GROUPS: New", "GROUPS: New"}));
  EXPECT_EQ(Tally().Imports().size(), 1u);
  EXPECT_EQ(AllMarked(), (Lines{"1 black: SKIPED", "0 blue bold: CREATED ", "1 black: SKIPED",
                                "- black", "- black"}));
}

TEST_F(MasterLoopsTest, ACostCategoryThatExistsIsNeverSkipped) {
  LoadCsvText("COST CATEGORIES", "Name\nPrimary Cost Category\n");
  form_.chkSkipMst.ticked = true;
  PostCostCategories(form_);
  EXPECT_EQ(Lookups(), Lines{"COST CATEGORIWS: Primary Cost Category"});
  EXPECT_EQ(Marked(1), "0 black bold: ALTERED ");
  EXPECT_EQ(Tally().Imports()[0].find("ALLOCATE"), std::string::npos);
}

TEST_F(MasterLoopsTest, RowsGoToTheCompanyThatTheyName) {
  form_.cmbCurrentCompanyList.text = "Typed & Co";
  LoadCsvText("STOCK CATEGORIES",
              "Name,Parent,CompanyName\na,,\nb,,Rao & Sons\nc,,\" Rao \"\nd,,\"  \"\n");
  PostStockCategories(form_);
  EXPECT_EQ(Companies(), (Lines{"Typed &amp; Co", "Rao &amp; Sons", " Rao ", "Typed &amp; Co"}));
  EXPECT_EQ(form_.CurrentCompany, "Typed & Co");
  LoadCsvText("STOCK CATEGORIES", "CompanyName,Name,Parent\nRao & Sons,a,\n");
  PostStockCategories(form_);
  EXPECT_EQ(Companies().back(), "Typed &amp; Co");  // the first column never counts
  form_.cmbCurrentCompanyList.text = " ";
  PostStockCategories(form_);
  EXPECT_EQ(Companies().back(), "-");
}

TEST_F(MasterLoopsTest, AMissingColumnEndsTheLoopWhereItIsRead) {
  struct Row {
    const char* entry;
    void (*post)(ImportForm&);
    const char* csv;
    const char* column;
    Lines boxes;
    std::size_t sent;
  };
  const Row rows[] = {
      {"GODOWNS", PostGodowns, "Title,Parent\na,\n", "NAME", {"F01-0019"}, 0},
      {"LEDGER GROUPS", PostLedgerGroups, "Name,Parent\na,\nb,\n", "SUBLEDGER", {"F01-0016"}, 0},
      {"UNITS",
       PostUnits,
       "Name,IsSimpleUnit,OriginalName,DecimalPlaces\na,Yes,,\nb,No,,\nc,Yes,,\n",
       "BASEUNITS",
       {"F01-0018"},
       1},
      {"STOCK GROUPS", PostStockGroups, "Name,Parent\na,\n", "ISADDABLE", {"F01-0020"}, 0},
      {"STOCK CATEGORIES", PostStockCategories, "Name\na\n", "PARENT", {"F01-0021"}, 0},
      // The alias column alone makes the others required.
      {"COST CATEGORIES",
       PostCostCategories,
       "Name,NameAlias\na,\n",
       "ALLOCATEREVENUE",
       {"F01-0028"},
       0},
      {"COST CENTRES", PostCostCentres, "Name\na\n", "PARENT", {"F01-0030"}, 0},
      {"COST CENTRES", PostCostCentres, "Name,NameAlias\n,\n", "", {}, 0},
  };
  for (const Row& row : rows) {
    face_.boxes.clear();
    const std::size_t before = Tally().Imports().size();
    LoadCsvText(row.entry, row.csv);
    row.post(form_);
    EXPECT_EQ(face_.BoxesInShort(), row.boxes) << row.csv;
    if (!face_.boxes.empty()) {
      EXPECT_NE(face_.boxes[0].text.find("The column " + std::string(row.column) + " is required"),
                std::string::npos)
          << face_.boxes[0].text;
    }
    EXPECT_EQ(Tally().Imports().size() - before, row.sent) << row.csv;
    for (std::size_t i = row.sent + 1; i <= form_.GR1.RowCount(); ++i) {
      EXPECT_EQ(Marked(i), "- black") << row.csv;
    }
  }
}

TEST_F(MasterLoopsTest, ATallyThatIsGoneGivesABoxARowAndGoesOn) {
  LoadCsvText("GODOWNS", "Name,Parent,HasNoStock\na,,\nb,,\n");
  server_.Stop();
  PostGodowns(form_);
  EXPECT_EQ(face_.BoxesInShort(), (Lines{"C02-0001", "C02-0001"}));
  EXPECT_EQ(AllMarked(), (Lines{"- black bold", "- black bold", "- black", "- black"}));
  // With the box ticked nothing is sent twice to a Tally that is gone.
  form_.chkSkipMst.ticked = true;
  PostGodowns(form_);
  EXPECT_EQ(face_.boxes.size(), 4u);
  EXPECT_EQ(form_.GR1.Text(2, form_.GR1.ColumnIndex("PROCESSSTATUS")), "SKIPED");
}

TEST_F(MasterLoopsTest, AUserWhoClearsOrReloadsTheGridMeanwhileEndsNoProgram) {
  LoadCsvText("GODOWNS", "Name,Parent,HasNoStock\na,,\nb,,\n");
  face_.onEvents = [&] { form_.GR1.Clear(); };
  PostGodowns(form_);
  EXPECT_EQ(face_.BoxesInShort(), Lines{"F01-0019"});
  EXPECT_EQ(Tally().Imports().size(), 1u);
  face_.onEvents = nullptr;
  LoadCsvText("GODOWNS", "Name,Parent,HasNoStock\na,,\nb,,\nc,,\nd,,\n");
  face_.onEvents = [&] {
    face_.onEvents = nullptr;
    LoadCsvText("UNITS", "Name\nNos\n");
  };
  PostGodowns(form_);
  EXPECT_EQ(form_.GR1.RowCount(), 3u);
  PostGodowns(form_);  // nothing of the broken run is left
}

}  // namespace
}  // namespace vorlane::masters
