#include "staging/writers.h"

#include "staging/record_columns.h"
#include "tests/staging/store_fixture.h"

namespace vorlane::staging {
namespace {

class WritersTest : public StoreTest {
 protected:
  platform::SystemClock clock_;
  std::vector<std::string> reports_;
  errors::Reporter reporter_{
      clock_, "PC", folder_,
      [this](const std::string& text, const std::string&) { reports_.push_back(text); }};
  StagingWriters writers_{*store_, reporter_};

  void ExpectOneReportFrom(const std::string& where) {
    ASSERT_EQ(reports_.size(), 1u);
    EXPECT_NE(reports_[0].find("LOCATION CODE: " + where + "()"), std::string::npos) << reports_[0];
  }
};

// A record whose every field holds the name of its column.
template <class Record>
Record Named() {
  Record record;
  for (const auto& [column, field] : kRecordColumns<Record>) record.*field = column;
  return record;
}

struct WriterCase {
  const char* name;
  Table table;
  std::function<void(StagingWriters&)> write;
  const char* where;
};

class EachWriter : public WritersTest, public testing::WithParamInterface<WriterCase> {
 protected:
  const TableDef& Def() const { return DefinitionOf(GetParam().table); }
};

// Ids are "v", then the parent's "p" where there is one, then the row's "r".
const WriterCase kCases[] = {
    {"Voucher", Table::Voucher, [](auto& w) { w.AddVoucher("Co", Named<VoucherRec>(), "r"); },
     "C01-0019"},
    {"LedgerEntry", Table::LedgerEntry,
     [](auto& w) { w.AddLedgerEntry("Co", Named<LedgerEntryRec>(), "v", "r"); }, "C01-0011"},
    {"AllLedgerEntry", Table::AllLedgerEntry,
     [](auto& w) { w.AddAllLedgerEntry("Co", Named<LedgerEntryRec>(), "v", "r"); }, "C01-0011A"},
    {"BillAllocation", Table::BillAllocation,
     [](auto& w) { w.AddBillAllocation("Co", Named<BillAllocationRec>(), "v", "p", "r"); },
     "C01-0010"},
    {"TaxBillAllocation", Table::TaxBillAllocation,
     [](auto& w) { w.AddTaxBillAllocation("Co", Named<TaxBillAllocationRec>(), "v", "p", "r"); },
     "C01-0010A"},
    {"BankAllocation", Table::BankAllocation,
     [](auto& w) { w.AddBankAllocation("Co", Named<BankAllocationRec>(), "v", "p", "r"); },
     "C01-0010B"},
    {"CategoryAllocation", Table::CategoryAllocations,
     [](auto& w) { w.AddCategoryAllocation("Co", Named<CategoryAllocationRec>(), "v", "p", "r"); },
     "C01-0018"},
    {"InventoryAllocation", Table::InventoryAllocations,
     [](auto& w) { w.AddInventoryAllocation("Co", Named<InventoryEntryRec>(), "v", "p", "r"); },
     "C01-0026"},
    {"InventoryEntry", Table::InventoryEntry,
     [](auto& w) { w.AddInventoryEntry("Co", Named<InventoryEntryRec>(), "v", "r"); }, "C01-0009"},
    {"InventoryEntryIn", Table::InventoryEntryIn,
     [](auto& w) { w.AddInventoryEntryIn("Co", Named<InventoryEntryRec>(), "v", "r"); },
     "C01-0009A"},
    {"InventoryEntryOut", Table::InventoryEntryOut,
     [](auto& w) { w.AddInventoryEntryOut("Co", Named<InventoryEntryRec>(), "v", "r"); },
     "C01-0009B"},
    {"AllInventoryEntry", Table::AllInventoryEntry,
     [](auto& w) { w.AddAllInventoryEntry("Co", Named<InventoryEntryRec>(), "v", "r"); },
     "C01-0009C"},
    {"BatchAllocation", Table::BatchAllocation,
     [](auto& w) { w.AddBatchAllocation("Co", Named<BatchAllocationRec>(), "v", "p", "r"); },
     "C01-0007"},
    {"AccountingAllocation", Table::AccountingAllocation,
     [](auto& w) {
       w.AddAccountingAllocation("Co", Named<AccountingAllocationRec>(), "v", "p", "r");
     },
     "C01-0008"},
    {"InvoiceDelNotes", Table::InvoiceDelNotes,
     [](auto& w) { w.AddInvoiceDelNotes("Co", Named<DelNoteRec>(), "v", "r"); }, "C01-0005"},
    {"InvoiceOrderList", Table::InvoiceOrderList,
     [](auto& w) { w.AddInvoiceOrderList("Co", Named<OrderRefRec>(), "v", "r"); }, "C01-0006"},
    {"BasicOrderTerms", Table::BasicOrderTerms,
     [](auto& w) { w.AddBasicOrderTerms("Co", "BasicOrderTerms_", "v", "r"); }, "C01-0004"},
    {"BasicBuyerAddress", Table::BasicBuyerAddress,
     [](auto& w) { w.AddBasicBuyerAddress("Co", "BasicBuyerAddress_", "v", "r"); }, "C01-0003"},
    {"Address", Table::Address, [](auto& w) { w.AddAddress("Co", "Address_", "v", "r"); },
     "C01-0002"},
    {"Attendance", Table::Attendance,
     [](auto& w) { w.AddAttendance("Co", Named<AttendanceRec>(), "v", "r"); }, "C01-0025"},
};

TEST_P(EachWriter, PutsEveryTextIntoItsColumnAndReplacesItsKeyOnly) {
  GetParam().write(writers_);
  // Rows that differ in one part of the key each must survive the second write.
  const std::vector<std::string_view> keys = Def().KeyColumns();
  const std::string table(Def().name);
  std::string columns;
  for (const std::string_view key : keys) {
    columns.append(columns.empty() ? "" : ", ").append(key);
  }
  const std::string written = " from " + table + " where 'other' not in (" + columns + ")";
  for (const std::string_view changed : keys) {
    std::string values = columns;
    values.replace(values.find(changed), changed.size(), "'other'");
    store_->Execute("Insert into " + table + " (" + columns + ") Select " + values + written);
  }
  GetParam().write(writers_);

  EXPECT_EQ(Value("Select count(*) from " + table), std::to_string(keys.size() + 1));
  Statement rows = store_->Query("Select *" + written);
  ASSERT_TRUE(rows.Step());
  EXPECT_EQ(rows.Text("CompanyName"), "Co");
  EXPECT_EQ(rows.Text(Def().idColumn), "r");
  const char* parents[] = {"v", "p"};
  for (std::size_t i = 0; i < Def().parentIds.size(); ++i) {
    EXPECT_EQ(rows.Text(Def().parentIds[i]), parents[i]);
  }
  for (const DataColumn& column : Def().data) {
    if (column.use == ColumnUse::ReadOnly) {
      EXPECT_EQ(rows.Text(column.name), std::nullopt) << column.name;
    } else {
      EXPECT_EQ(rows.Text(column.name), column.name);
    }
  }
  EXPECT_FALSE(rows.Step());
}

TEST_P(EachWriter, ReportsUnderItsCodeAndGoesOn) {
  store_->Execute("Drop table " + std::string(Def().name));
  EXPECT_NO_THROW(GetParam().write(writers_));
  ExpectOneReportFrom(GetParam().where);
}

INSTANTIATE_TEST_SUITE_P(Table, EachWriter, testing::ValuesIn(kCases),
                         [](const auto& each) { return each.param.name; });

TEST_F(WritersTest, EmptyFieldIsStoredAsEmptyTextAndNotAsNull) {
  BatchAllocationRec batch;
  batch.GodownName_ = "Main";
  writers_.AddBatchAllocation("Co", batch, "1", "1", "1");
  EXPECT_EQ(Value("Select count(*) from BatchAllocation where BatchName_=''"), "1");
}

TEST_F(WritersTest, OneDescriptionForEachStockLineWhateverItsNumber) {
  writers_.AddBasicUserDescription("Co", "first", "1", "1", "1");
  writers_.AddBasicUserDescription("Co", "other line", "1", "2", "1");
  writers_.AddBasicUserDescription("Co", "Red#Large", "1", "1", "2");
  EXPECT_EQ(Rows("Select FK_InEID, BUDID, BasicDescription_ from BASICUSERDESCRIPTION", 3),
            (std::vector<std::string>{"1|2|Red#Large", "2|1|other line"}));
}

TEST_F(WritersTest, FailureOfADescriptionRisesToTheLoop) {
  store_->Execute("Drop table BASICUSERDESCRIPTION");
  FailureOf([&] { writers_.AddBasicUserDescription("Co", "text", "1", "1", "1"); });
  EXPECT_EQ(reports_.size(), 0u);
}

TEST_F(WritersTest, DeleteStaysWhenTheInsertFails) {
  LedgerEntryRec entry;
  entry.LedgerName_ = "Cash";
  writers_.AddLedgerEntry("Co", entry, "1", "1");
  writers_.AddLedgerEntry("Co", entry, "1", "2");
  store_->Execute("Alter table LedgerEntry drop column TDSPartyName_");
  writers_.AddLedgerEntry("Co", entry, "1", "1");
  EXPECT_EQ(reports_.size(), 1u);
  EXPECT_EQ(Rows("Select LdEID from LedgerEntry"), std::vector<std::string>{"2"});
}

TEST_F(WritersTest, LockedStoreCostsTheRowOnly) {
  writers_.AddAddress("Co", "kept", "1", "1");
  {
    Locker other(file_);
    writers_.AddAddress("Co", "lost", "1", "1");
    EXPECT_EQ(reports_.size(), 1u);
  }
  writers_.AddAddress("Co", "next", "1", "2");
  EXPECT_EQ(Rows("Select Address_ from Address"), (std::vector<std::string>{"kept", "next"}));
}

TEST_F(WritersTest, ApostrophesAreCharactersLikeAnyOther) {
  writers_.AddAddress("O'Brien's", "x' or '1'='1", "1'", "1");
  writers_.AddAddress("O'Brien's", "y", "1'", "1");
  EXPECT_EQ(Rows("Select CompanyName, FK_VchID, Address_ from Address", 3),
            std::vector<std::string>{"O'Brien's|1'|y"});
  EXPECT_EQ(reports_.size(), 0u);
}

TEST_F(WritersTest, EveryRowIsThereForAnotherProgramAsTheCallReturns) {
  writers_.AddAddress("Co", "x", "1", "1");
  StagingStore other(file_);
  Statement read = other.Query("Select Address_ from Address");
  ASSERT_TRUE(read.Step());
  EXPECT_EQ(read.Text(0), "x");
  writers_.AddAddress("Co", "y", "1", "2");  // while the other still reads
  EXPECT_EQ(reports_.size(), 0u);
}

TEST_F(WritersTest, LoopPurgeKeepsWhatOnlyThePostCommandEmpties) {
  for (const TableDef& table : kTables) {
    store_->Execute("Insert into " + std::string(table.name) +
                    " (CompanyName) values ('A'), ('B')");
  }
  const auto left = [&] {
    std::string names;
    for (const TableDef& table : kTables) {
      if (Value("Select count(*) from " + std::string(table.name)) == "0") continue;
      names.append(table.name) += ' ';
    }
    return names;
  };
  writers_.PurgeForLoop(StagingWriters::BankRows::Keep);
  EXPECT_EQ(left(),
            "BankAllocation TaxBillAllocation InventoryAllocations BASICUSERDESCRIPTION "
            "Attendance EXCISEITEMGODOWN ");
  writers_.PurgeForLoop(StagingWriters::BankRows::Purge);
  EXPECT_EQ(left(),
            "TaxBillAllocation InventoryAllocations BASICUSERDESCRIPTION Attendance "
            "EXCISEITEMGODOWN ");
  EXPECT_EQ(reports_.size(), 0u);
}

TEST_F(WritersTest, LoopPurgeGoesOnAfterAFailure) {
  store_->Execute("Insert into AllInventoryEntry (CompanyName) values ('A')");
  store_->Execute("Drop table Voucher");
  writers_.PurgeForLoop(StagingWriters::BankRows::Purge);
  ExpectOneReportFrom("C01-0023");
  EXPECT_NE(reports_[0].find("\"Delete from Voucher \""), std::string::npos);
  EXPECT_EQ(Value("Select count(*) from AllInventoryEntry"), "0");
}

TEST_F(WritersTest, NextVoucherIdIsTheGreatestText) {
  EXPECT_EQ(writers_.NextVoucherId("Co"), "1");
  for (const char* id : {"10", "9"}) writers_.AddVoucher("Co", {}, id);
  writers_.AddVoucher("Else", {}, "99");
  EXPECT_EQ(writers_.NextVoucherId("Co"), "9");
  store_->Execute("Drop table Voucher");
  EXPECT_EQ(writers_.NextVoucherId("Co"), "1");
  ExpectOneReportFrom("C01-0022");
}

}  // namespace
}  // namespace vorlane::staging
