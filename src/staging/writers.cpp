#include "staging/writers.h"

#include <span>

#include "errors/trap.h"
#include "platform/runtime/failure.h"
#include "staging/record_columns.h"

namespace vorlane::staging {

/// What differs from one writer to the next; the columns come from the table's
/// definition and the record's binding.
struct Writer {
  Table table;
  std::string_view where;      ///< location code of its reports; empty: failures rise
  int deletedByFirstKeys = 0;  ///< how many key columns choose the rows to delete; 0: all
};

namespace {

constexpr Writer kVoucher{Table::Voucher, "C01-0019"};
constexpr Writer kLedgerEntry{Table::LedgerEntry, "C01-0011"};
constexpr Writer kAllLedgerEntry{Table::AllLedgerEntry, "C01-0011A"};
constexpr Writer kBillAllocation{Table::BillAllocation, "C01-0010"};
constexpr Writer kTaxBillAllocation{Table::TaxBillAllocation, "C01-0010A"};
constexpr Writer kBankAllocation{Table::BankAllocation, "C01-0010B"};
constexpr Writer kCategoryAllocation{Table::CategoryAllocations, "C01-0018"};
constexpr Writer kInventoryAllocation{Table::InventoryAllocations, "C01-0026"};
constexpr Writer kInventoryEntry{Table::InventoryEntry, "C01-0009"};
constexpr Writer kInventoryEntryIn{Table::InventoryEntryIn, "C01-0009A"};
constexpr Writer kInventoryEntryOut{Table::InventoryEntryOut, "C01-0009B"};
constexpr Writer kAllInventoryEntry{Table::AllInventoryEntry, "C01-0009C"};
constexpr Writer kBatchAllocation{Table::BatchAllocation, "C01-0007"};
constexpr Writer kAccountingAllocation{Table::AccountingAllocation, "C01-0008"};
// Deletes by company, voucher and stock line: a stock line has one description,
// whatever number the loop gives it.
constexpr Writer kBasicUserDescription{Table::BasicUserDescription, "", 3};
constexpr Writer kInvoiceDelNotes{Table::InvoiceDelNotes, "C01-0005"};
constexpr Writer kInvoiceOrderList{Table::InvoiceOrderList, "C01-0006"};
constexpr Writer kBasicOrderTerms{Table::BasicOrderTerms, "C01-0004"};
constexpr Writer kBasicBuyerAddress{Table::BasicBuyerAddress, "C01-0003"};
constexpr Writer kAddress{Table::Address, "C01-0002"};
constexpr Writer kAttendance{Table::Attendance, "C01-0025"};

constexpr std::string_view kWhereExecStaging = "C01-0023";
constexpr std::string_view kWhereNextVoucherId = "C01-0022";

std::size_t DeleteKeyCount(const Writer& writer, std::size_t keyCount) {
  return writer.deletedByFirstKeys == 0 ? keyCount
                                        : static_cast<std::size_t>(writer.deletedByFirstKeys);
}

}  // namespace

StagingWriters::StagingWriters(StagingStore& store, errors::Reporter& reporter)
    : store_(store), reporter_(reporter) {}

void StagingWriters::OpenVoucher() { voucher_.emplace(store_); }

void StagingWriters::CloseVoucher() {
  errors::Trap(reporter_, kWhereExecStaging, [&] {
    if (voucher_) voucher_->Close();
  });
  voucher_.reset();
}

void StagingWriters::AddVoucher(Company companyName, const VoucherRec& voucher, Id vchID) {
  WriteRecord(kVoucher, voucher, {companyName, vchID});
}

void StagingWriters::AddLedgerEntry(Company companyName, const LedgerEntryRec& entry, Id vchID,
                                    Id ldEID) {
  WriteRecord(kLedgerEntry, entry, {companyName, vchID, ldEID});
}

void StagingWriters::AddAllLedgerEntry(Company companyName, const LedgerEntryRec& entry, Id vchID,
                                       Id ldEID) {
  WriteRecord(kAllLedgerEntry, entry, {companyName, vchID, ldEID});
}

void StagingWriters::AddBillAllocation(Company companyName, const BillAllocationRec& bill, Id vchID,
                                       Id ldEID, Id biAID) {
  WriteRecord(kBillAllocation, bill, {companyName, vchID, ldEID, biAID});
}

void StagingWriters::AddTaxBillAllocation(Company companyName, const TaxBillAllocationRec& bill,
                                          Id vchID, Id ldEID, Id tbiAID) {
  WriteRecord(kTaxBillAllocation, bill, {companyName, vchID, ldEID, tbiAID});
}

void StagingWriters::AddBankAllocation(Company companyName, const BankAllocationRec& bank, Id vchID,
                                       Id ldEID, Id baAID) {
  WriteRecord(kBankAllocation, bank, {companyName, vchID, ldEID, baAID});
}

void StagingWriters::AddCategoryAllocation(Company companyName,
                                           const CategoryAllocationRec& category, Id vchID,
                                           Id ldEID, Id caID) {
  WriteRecord(kCategoryAllocation, category, {companyName, vchID, ldEID, caID});
}

void StagingWriters::AddInventoryAllocation(Company companyName, const InventoryEntryRec& item,
                                            Id vchID, Id leID, Id inAID) {
  WriteRecord(kInventoryAllocation, item, {companyName, vchID, leID, inAID});
}

void StagingWriters::AddInventoryEntry(Company companyName, const InventoryEntryRec& item, Id vchID,
                                       Id inEID) {
  WriteRecord(kInventoryEntry, item, {companyName, vchID, inEID});
}

void StagingWriters::AddInventoryEntryIn(Company companyName, const InventoryEntryRec& item,
                                         Id vchID, Id inEID) {
  WriteRecord(kInventoryEntryIn, item, {companyName, vchID, inEID});
}

void StagingWriters::AddInventoryEntryOut(Company companyName, const InventoryEntryRec& item,
                                          Id vchID, Id inEID) {
  WriteRecord(kInventoryEntryOut, item, {companyName, vchID, inEID});
}

void StagingWriters::AddAllInventoryEntry(Company companyName, const InventoryEntryRec& item,
                                          Id vchID, Id inEID) {
  WriteRecord(kAllInventoryEntry, item, {companyName, vchID, inEID});
}

void StagingWriters::AddBatchAllocation(Company companyName, const BatchAllocationRec& batch,
                                        Id vchID, Id inEID, Id baAID) {
  WriteRecord(kBatchAllocation, batch, {companyName, vchID, inEID, baAID});
}

void StagingWriters::AddAccountingAllocation(Company companyName,
                                             const AccountingAllocationRec& ledger, Id vchID,
                                             Id inEID, Id acAID) {
  WriteRecord(kAccountingAllocation, ledger, {companyName, vchID, inEID, acAID});
}

void StagingWriters::AddBasicUserDescription(Company companyName, std::string_view description,
                                             Id vchID, Id inEID, Id budID) {
  WriteText(kBasicUserDescription, "BasicDescription_", description,
            {companyName, vchID, inEID, budID});
}

void StagingWriters::AddInvoiceDelNotes(Company companyName, const DelNoteRec& note, Id vchID,
                                        Id idnID) {
  WriteRecord(kInvoiceDelNotes, note, {companyName, vchID, idnID});
}

void StagingWriters::AddInvoiceOrderList(Company companyName, const OrderRefRec& order, Id vchID,
                                         Id iolID) {
  WriteRecord(kInvoiceOrderList, order, {companyName, vchID, iolID});
}

void StagingWriters::AddBasicOrderTerms(Company companyName, std::string_view terms, Id vchID,
                                        Id botID) {
  WriteText(kBasicOrderTerms, "BasicOrderTerms_", terms, {companyName, vchID, botID});
}

void StagingWriters::AddBasicBuyerAddress(Company companyName, std::string_view line, Id vchID,
                                          Id bbaID) {
  WriteText(kBasicBuyerAddress, "BasicBuyerAddress_", line, {companyName, vchID, bbaID});
}

void StagingWriters::AddAddress(Company companyName, std::string_view line, Id vchID, Id adID) {
  WriteText(kAddress, "Address_", line, {companyName, vchID, adID});
}

void StagingWriters::AddAttendance(Company companyName, const AttendanceRec& attendance, Id vchID,
                                   Id attID) {
  WriteRecord(kAttendance, attendance, {companyName, vchID, attID});
}

void StagingWriters::ExecStaging(std::string_view statement) {
  errors::Trap(reporter_, kWhereExecStaging, [&] { store_.Execute(statement); });
}

void StagingWriters::PurgeForLoop(BankRows bankRows) {
  for (const std::string_view statement : kLoopPurge) ExecStaging(statement);
  if (bankRows == BankRows::Purge) ExecStaging(kBankPurge);
}

std::string StagingWriters::NextVoucherId(Company companyName) {
  std::string id = "1";
  errors::Trap(reporter_, kWhereNextVoucherId, [&] {
    Statement rows = store_.Query("Select Max(VchID) as MaxVchID from Voucher where CompanyName=?",
                                  {companyName});
    if (!rows.Step()) return;
    if (const auto greatest = rows.Text("MaxVchID")) id = *greatest;
  });
  return id;
}

template <class Record>
void StagingWriters::WriteRecord(const Writer& writer, const Record& record, Keys keys) {
  std::vector<Cell> cells;
  cells.reserve(std::size(kRecordColumns<Record>));
  for (const auto& [column, field] : kRecordColumns<Record>) {
    cells.emplace_back(column, record.*field);
  }
  Write(writer, keys, cells);
}

void StagingWriters::WriteText(const Writer& writer, std::string_view column, std::string_view text,
                               Keys keys) {
  Write(writer, keys, {{column, text}});
}

void StagingWriters::Write(const Writer& writer, Keys keys, const std::vector<Cell>& cells) {
  if (writer.where.empty()) return WriteUntrapped(writer, keys, cells);
  errors::Trap(reporter_, writer.where, [&] { WriteUntrapped(writer, keys, cells); });
}

void StagingWriters::WriteUntrapped(const Writer& writer, Keys keys,
                                    const std::vector<Cell>& cells) {
  const Statements& statements = StatementsOf(writer, cells);
  std::vector<std::string_view> texts(keys);
  texts.reserve(keys.size() + cells.size());
  for (const Cell& cell : cells) texts.push_back(cell.second);
  const std::span removeTexts(keys.begin(), DeleteKeyCount(writer, keys.size()));
  if (!statements.insertReplaces) {
    store_.Execute(statements.remove, removeTexts);
    store_.Execute(statements.insert, texts);
    return;
  }
  try {
    store_.Execute(statements.insert, texts);
  } catch (const platform::Failure&) {
    // A row that cannot be replaced is gone: a voucher never takes an old one.
    store_.Execute(statements.remove, removeTexts);
    throw;
  }
}

const StagingWriters::Statements& StagingWriters::StatementsOf(const Writer& writer,
                                                               const std::vector<Cell>& cells) {
  Statements& statements = statements_[static_cast<std::size_t>(writer.table)];
  if (!statements.insert.empty()) return statements;

  const TableDef& table = DefinitionOf(writer.table);
  const std::vector<std::string_view> keys = table.KeyColumns();
  std::string remove = "Delete from " + std::string(table.name);
  for (std::size_t i = 0; i < DeleteKeyCount(writer, keys.size()); ++i) {
    remove.append(i == 0 ? " where " : " and ").append(keys[i]).append("=?");
  }

  std::string columns;
  std::string marks;
  const auto append = [&](std::string_view column) {
    columns.append(columns.empty() ? "" : ", ").append(column);
    marks.append(marks.empty() ? "?" : ", ?");
  };
  for (const std::string_view key : keys) append(key);
  for (const Cell& cell : cells) append(cell.first);
  statements.remove = std::move(remove);
  // One statement costs half of two, and most of a voucher's time goes into them.
  statements.insertReplaces =
      DeleteKeyCount(writer, keys.size()) == keys.size() && store_.KeepsKeysApart(table.name);
  statements.insert = statements.insertReplaces ? "Insert or replace into " : "Insert into ";
  statements.insert.append(table.name).append(" (").append(columns);
  statements.insert.append(") values (").append(marks).append(")");
  return statements;
}

}  // namespace vorlane::staging
