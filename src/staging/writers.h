#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "errors/reporter.h"
#include "staging/records.h"
#include "staging/schema.h"
#include "staging/store.h"

namespace vorlane::staging {

struct Writer;

/// Writes rows into the staging tables, one writer for each table.
///
/// A writer deletes the row of its key and inserts the new one, and the delete
/// stays in force when the insert fails. Nothing that comes later undoes either. Texts
/// are stored as they are, an empty one as an empty text. All ids are texts
/// that hold whole numbers; `companyName` is the company of the run.
///
/// A failure is reported under the writer's location code and the writer then
/// ends normally, so the loop goes on and the voucher is sent without the row.
/// AddBasicUserDescription alone lets its failures rise to the loop.
class StagingWriters {
 public:
  StagingWriters(StagingStore& store, errors::Reporter& reporter);

  /// Lets the rows of a voucher become final together, see WriteBracket.
  void OpenVoucher();
  /// Makes them final; a failure is reported.
  void CloseVoucher();

  using Id = std::string_view;
  using Company = std::string_view;

  void AddVoucher(Company companyName, const VoucherRec& voucher, Id vchID);

  void AddLedgerEntry(Company companyName, const LedgerEntryRec& entry, Id vchID, Id ldEID);
  void AddAllLedgerEntry(Company companyName, const LedgerEntryRec& entry, Id vchID, Id ldEID);
  void AddBillAllocation(Company companyName, const BillAllocationRec& bill, Id vchID, Id ldEID,
                         Id biAID);
  void AddTaxBillAllocation(Company companyName, const TaxBillAllocationRec& bill, Id vchID,
                            Id ldEID, Id tbiAID);
  void AddBankAllocation(Company companyName, const BankAllocationRec& bank, Id vchID, Id ldEID,
                         Id baAID);
  void AddCategoryAllocation(Company companyName, const CategoryAllocationRec& category, Id vchID,
                             Id ldEID, Id caID);
  void AddInventoryAllocation(Company companyName, const InventoryEntryRec& item, Id vchID, Id leID,
                              Id inAID);

  void AddInventoryEntry(Company companyName, const InventoryEntryRec& item, Id vchID, Id inEID);
  void AddInventoryEntryIn(Company companyName, const InventoryEntryRec& item, Id vchID, Id inEID);
  void AddInventoryEntryOut(Company companyName, const InventoryEntryRec& item, Id vchID, Id inEID);
  void AddAllInventoryEntry(Company companyName, const InventoryEntryRec& item, Id vchID, Id inEID);
  void AddBatchAllocation(Company companyName, const BatchAllocationRec& batch, Id vchID, Id inEID,
                          Id baAID);
  void AddAccountingAllocation(Company companyName, const AccountingAllocationRec& ledger, Id vchID,
                               Id inEID, Id acAID);
  /// Replaces every description of the stock line, whatever its `budID`. "#" in
  /// the text is a line break. Failures rise.
  void AddBasicUserDescription(Company companyName, std::string_view description, Id vchID,
                               Id inEID, Id budID);

  void AddInvoiceDelNotes(Company companyName, const DelNoteRec& note, Id vchID, Id idnID);
  void AddInvoiceOrderList(Company companyName, const OrderRefRec& order, Id vchID, Id iolID);
  void AddBasicOrderTerms(Company companyName, std::string_view terms, Id vchID, Id botID);
  void AddBasicBuyerAddress(Company companyName, std::string_view line, Id vchID, Id bbaID);
  void AddAddress(Company companyName, std::string_view line, Id vchID, Id adID);
  void AddAttendance(Company companyName, const AttendanceRec& attendance, Id vchID, Id attID);

  /// Runs one statement; a failure is reported and nothing more comes of it.
  void ExecStaging(std::string_view statement);

  enum class BankRows { Keep, Purge };
  /// The deletes with which a voucher loop opens, each through ExecStaging, so
  /// that one that fails does not stop the others. Rows of every company go.
  void PurgeForLoop(BankRows bankRows);

  /// The greatest VchID of the company, "1" when it has none or on a reported
  /// failure. Ids are texts and nothing is added: "9" is greater than "10".
  /// Its one caller asks just after the purge and so gets "1".
  std::string NextVoucherId(Company companyName);

 private:
  // One data column of the row in hand: its name and its text.
  using Cell = std::pair<std::string_view, std::string_view>;
  using Keys = std::initializer_list<std::string_view>;
  struct Statements {
    std::string remove;
    std::string insert;
    bool insertReplaces = false;  ///< the insert alone does what both do
  };

  template <class Record>
  void WriteRecord(const Writer& writer, const Record& record, Keys keys);
  void WriteText(const Writer& writer, std::string_view column, std::string_view text, Keys keys);
  void Write(const Writer& writer, Keys keys, const std::vector<Cell>& cells);
  void WriteUntrapped(const Writer& writer, Keys keys, const std::vector<Cell>& cells);
  const Statements& StatementsOf(const Writer& writer, const std::vector<Cell>& cells);

  StagingStore& store_;
  errors::Reporter& reporter_;
  std::optional<WriteBracket> voucher_;             // from OpenVoucher to CloseVoucher
  std::array<Statements, kTableCount> statements_;  // by table, made at first use
};

}  // namespace vorlane::staging
