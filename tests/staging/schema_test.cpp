#include "staging/schema.h"

#include <algorithm>
#include <set>

#include "staging/record_columns.h"
#include "tests/staging/store_fixture.h"

namespace vorlane::staging {
namespace {

using SchemaTest = StoreTest;

// Names of a voucher's reads as the document writer spells them, some in
// another case than the schema.
struct Read {
  const char* table;
  const char* parent;
  const char* order;
};
constexpr Read kReads[] = {
    {"Address", nullptr, "val(AdID)"},
    {"BasicBuyerAddress", nullptr, "val(BBAID)"},
    {"BasicOrderTerms", nullptr, "val(BOTID)"},
    {"InvoiceDelNotes", nullptr, "val(IDNID)"},
    {"InvoiceOrderList", nullptr, "val(IOLID)"},
    {"LedgerEntry", nullptr, "CompanyName, FK_VchID, val(LdEID)"},
    {"ALLLedgerEntry", nullptr, "CompanyName, FK_VchID, val(LdEID)"},
    {"InventoryEntry", nullptr, "val(InEID)"},
    {"InventoryEntryIN", nullptr, "val(InEID)"},
    {"InventoryEntryOUT", nullptr, "val(InEID)"},
    {"AllInventoryEntry", nullptr, "val(InEID)"},
    {"CategoryAllocations", "FK_LdEID", "val(CAID)"},
    {"BillAllocation", "FK_LdEID", "val(BiAID)"},
    {"BankAllocation", "FK_LdEID", "val(BaAID)"},
    {"TaxBillAllocation", "FK_LdEID", "val(TBiAID)"},
    {"InventoryAllocations", "FK_LEID", "val(InAID)"},
    {"BatchAllocation", "FK_InEID", "val(BaAID)"},
    {"AccountingAllocation", "FK_InEID", "val(AcAID)"},
    {"BASICUSERDESCRIPTION", "FK_InEID", "BUDID"},
};

TEST_F(SchemaTest, EveryReadOfAVoucherGoesByItsIndex) {
  for (const Read& read : kReads) {
    std::string sql = "Explain query plan Select * from " + std::string(read.table) +
                      " where CompanyName='c' and FK_VchID='1'";
    std::string searched = "(CompanyName=? AND FK_VchID=?";
    if (read.parent != nullptr) {
      sql.append(" and ").append(read.parent).append("='1'");
      searched += " AND FK_";
    }
    Statement plan = store_->Query(sql + " Order By " + read.order);
    ASSERT_TRUE(plan.Step());
    const std::string detail(plan.TextOrEmpty("detail"));
    EXPECT_NE(detail.find(searched), std::string::npos) << read.table << ": " << detail;
  }
  Statement plan = store_->Query(
      "Explain query plan Select * from Voucher where CompanyName='c' and VchID='1' Order By "
      "val(VchID)");
  ASSERT_TRUE(plan.Step());
  EXPECT_NE(plan.TextOrEmpty("detail").find("(CompanyName=? AND VchID=?)"), std::string::npos);
}

template <class Record>
void ExpectFieldsAreTheWrittenColumnsOf(Table table) {
  std::set<std::string_view> fields;
  for (const auto& [column, field] : kRecordColumns<Record>) fields.insert(column);
  std::set<std::string_view> columns;
  for (const DataColumn& column : DefinitionOf(table).data) {
    if (column.use != ColumnUse::ReadOnly) columns.insert(column.name);
  }
  EXPECT_EQ(fields, columns) << DefinitionOf(table).name;
  EXPECT_EQ(fields.size(), std::size(kRecordColumns<Record>));
}

TEST(Records, FieldsAreTheWrittenColumnsOfTheirTables) {
  ExpectFieldsAreTheWrittenColumnsOf<VoucherRec>(Table::Voucher);
  ExpectFieldsAreTheWrittenColumnsOf<LedgerEntryRec>(Table::LedgerEntry);
  ExpectFieldsAreTheWrittenColumnsOf<LedgerEntryRec>(Table::AllLedgerEntry);
  ExpectFieldsAreTheWrittenColumnsOf<AccountingAllocationRec>(Table::AccountingAllocation);
  ExpectFieldsAreTheWrittenColumnsOf<BillAllocationRec>(Table::BillAllocation);
  ExpectFieldsAreTheWrittenColumnsOf<BankAllocationRec>(Table::BankAllocation);
  ExpectFieldsAreTheWrittenColumnsOf<TaxBillAllocationRec>(Table::TaxBillAllocation);
  ExpectFieldsAreTheWrittenColumnsOf<CategoryAllocationRec>(Table::CategoryAllocations);
  ExpectFieldsAreTheWrittenColumnsOf<InventoryEntryRec>(Table::InventoryEntry);
  ExpectFieldsAreTheWrittenColumnsOf<BatchAllocationRec>(Table::BatchAllocation);
  ExpectFieldsAreTheWrittenColumnsOf<DelNoteRec>(Table::InvoiceDelNotes);
  ExpectFieldsAreTheWrittenColumnsOf<OrderRefRec>(Table::InvoiceOrderList);
  ExpectFieldsAreTheWrittenColumnsOf<AttendanceRec>(Table::Attendance);
}

TEST_F(SchemaTest, PostPurgeEmptiesAllButBankRowsAndDescriptions) {
  for (const TableDef& table : kTables) {
    store_->Execute("Insert into " + std::string(table.name) +
                    " (CompanyName) values ('A'), ('B')");
  }
  store_->Execute("Delete from VorlaneMst_");
  store_->Execute("Insert into VorlaneMst_ (TName) values ('MINE')");
  PurgeAll(*store_);
  PurgeAll(*store_);  // empty tables purge without error
  for (const TableDef& table : kTables) {
    const bool kept =
        table.table == Table::BankAllocation || table.table == Table::BasicUserDescription;
    EXPECT_EQ(Value("Select count(*) from " + std::string(table.name)), kept ? "2" : "0")
        << table.name;
  }
  EXPECT_EQ(Value("Select count(*) from VorlaneMst_"), "1");
}

TEST_F(SchemaTest, PostPurgeStopsAtTheFirstFailure) {
  store_->Execute("Insert into Address (AdID) values ('1')");
  store_->Execute("Insert into Voucher (VchID) values ('1')");
  store_->Execute("Drop table EXCISEITEMGODOWN");
  EXPECT_EQ(FailureOf([&] { PurgeAll(*store_); }).Number(),
            platform::failure_number::kTableNotFound);
  EXPECT_EQ(Value("Select count(*) from Address"), "0");
  EXPECT_EQ(Value("Select count(*) from Voucher"), "1");
}

}  // namespace
}  // namespace vorlane::staging
