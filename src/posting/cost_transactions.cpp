#include "gateway/document_builder.h"
#include "masters/master_lookups.h"
#include "platform/runtime/text.h"
#include "posting/staging_rules.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

using form::ImportForm;
using form::ImportGrid;

constexpr VoucherColumn kColumns[] = {
    columns::kVchType,
    columns::kVchNo,
    columns::kVchDate,
    columns::kRefNo,
    columns::kLedger,
    columns::kDebit,
    columns::kCredit,
    columns::kNarration,
    columns::Needed(columns::kAdjMethod),
    columns::Needed(columns::kAdjName),
    columns::Needed(columns::kAdjDate),
    columns::Needed(columns::kAdjAmount),
    columns::Needed(columns::kCostCategory),
    columns::Needed(columns::kCostCentre),
    columns::Needed(columns::kCostAmount),
    columns::kRefDate,
    columns::kLineNarration,
    columns::kInstrumentDate,
    columns::kInstrumentType,
    columns::kBankName,
    columns::kBranchName,
    columns::kInstrumentNumber,
    columns::kPaymentFavouring,
    columns::kChequeCross,
    columns::kBankAmount,
    columns::kIFSCCode,
    columns::kTransactionName,
    columns::kPaymentMode,
    columns::kAccountNumber,
    columns::kBankPartyName,
    columns::kTransferMode,
};

/// Asks Tally for the ledger of a row, an exchange for each, also for one that
/// repeats. False when Tally does not know it; the row then says so.
bool CheckLedger(ImportForm& importForm, std::size_t gridRow, std::size_t ledgerColumn) {
  ImportGrid& grid = importForm.GR1;
  std::string ledger(grid.Text(gridRow, ledgerColumn));
  if (ledger.empty()) return true;
  // The lookup takes the name as it is given, so it is escaped here; the cell
  // keeps it as it stands, and the words below have it escaped.
  ledger = gateway::EscapeXml(ledger, importForm.services.reporter);
  const bool exists = masters::ObjectExists(importForm.services.gateway, "Ledger", ledger);
  // Said twice over, as reports have always had it.
  const std::string missing = "Ledger '" + ledger + "' does not exist!";
  grid.SetText(gridRow, grid.ColumnIndex(ImportGrid::kStatusKey),
               exists ? std::string() : "ERRORS " + missing + missing + " - ");
  if (!exists) grid.SetAnswered(gridRow);
  return exists;
}

/// Ledger lines that are split over cost centres; rows without a ledger add to
/// the one above: COST TRANSACTIONS and C_TRANSACTIONS.
class CostTransactions : public VoucherFamily {
 public:
  CostTransactions()
      : VoucherFamily("F01-0025", kColumns, staging::StagingWriters::BankRows::Purge) {}

  /// The only loop that can ask for its masters beforehand; it asks for ledgers.
  bool BeforeRun(VoucherRun& run) override {
    ImportForm& importForm = run.Form();
    if (!importForm.chkChkMst.ticked) return true;
    const std::size_t rowCount = importForm.GR1.RowCount();
    bool anyMissing = false;
    for (std::size_t gridRow = 1; gridRow <= rowCount; ++gridRow) {
      const std::size_t ledgerColumn = importForm.GR1.ColumnIndex("LEDGER");
      if (!CheckLedger(importForm, gridRow, ledgerColumn)) anyMissing = true;
      importForm.ShowRow(gridRow);
    }
    if (anyMissing) importForm.ShowBox({"Some of the Masters are missing. ", "", {}});
    return !anyMissing;
  }

  void StartCounters(VoucherRun&) override {}  // all from 0, added to before use

  void FillHead(VoucherRun& run, staging::VoucherRec& head) override {
    const std::string& type = run.row.VchType;
    if (type == "Sales" || type == "Purchase") head.IsInvoice_ = "Yes";
  }

  void StageRow(VoucherRun& run) override {
    const VoucherRow& row = run.row;
    if (!row.Ledger.empty()) {
      ++run.counters.LdEID;
      run.counters.CAID = 0;
      const SignedAmount side = LedgerSign(row);
      sign_ = side.sign;
      staging::LedgerEntryRec entry = LedgerEntryOf(run, side);
      entry.Narration_ = row.LineNarration;
      StageEntry(run, entry);
    }
    if (!platform::Trim(row.CostCentre).empty()) StageCost(run, sign_);
    if (!row.AdjName.empty()) StageBill(run, sign_);
    if (HasBankAmount(row)) StageBank(run);
  }

 private:
  std::string sign_;  // of the ledger's row, for the rows that continue it
};

}  // namespace

void PostCostTransaction(ImportForm& importForm) {
  CostTransactions family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns CostTransactionColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
