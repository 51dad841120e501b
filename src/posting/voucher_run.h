#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "form/declared_column.h"
#include "form/grid_reader.h"
#include "form/import_form.h"
#include "form/row_outcome.h"
#include "platform/runtime/format.h"
#include "posting/voucher_row.h"
#include "staging/writers.h"
#include "vouchers/voucher_document.h"

namespace vorlane::posting {

class VoucherRun;

/// How grid rows make vouchers.
enum class Grouping {
  ByKey,     ///< neighbours of one key; the last row shows the outcome
  RowByRow,  ///< each row that the family takes is one, and shows its own outcome
};

/// What one family of vouchers adds to the run that they all share: its columns,
/// where its counters start, what its head holds, and what a row stages.
class VoucherFamily {
 public:
  /// `location` is the code under which a failure of the loop is reported.
  VoucherFamily(std::string_view location, std::span<const VoucherColumn> columns,
                staging::StagingWriters::BankRows bankRows, Grouping grouping = Grouping::ByKey)
      : location_(location), columns_(columns), bankRows_(bankRows), grouping_(grouping) {}
  virtual ~VoucherFamily() = default;

  std::string_view Location() const { return location_; }
  std::span<const VoucherColumn> Columns() const { return columns_; }
  staging::StagingWriters::BankRows BankRows() const { return bankRows_; }
  Grouping Groups() const { return grouping_; }

  /// Before anything is deleted or staged; false ends the loop without a word
  /// more.
  virtual bool BeforeRun(VoucherRun&) { return true; }
  /// Once the staging tables are empty.
  virtual void AfterOpening(VoucherRun&) {}
  /// Whether the row is read at all; one that is not changes nothing.
  virtual bool ReadsRow(form::GridReader&) { return true; }
  /// Of a family that goes row by row: whether the row in hand is a voucher.
  virtual bool TakesRow(VoucherRun&) { return true; }
  /// Of a family that goes row by row: the key of the row in hand.
  virtual std::string KeyOf(const VoucherRow&) { return {}; }
  /// Sets the counters of a new voucher.
  virtual void StartCounters(VoucherRun& run) = 0;
  /// Changes the head that every voucher starts from.
  virtual void FillHead(VoucherRun&, staging::VoucherRec&) {}
  /// Stages what the row in hand holds.
  virtual void StageRow(VoucherRun& run) = 0;

 private:
  std::string_view location_;
  std::span<const VoucherColumn> columns_;
  staging::StagingWriters::BankRows bankRows_;
  Grouping grouping_;
};

/// The numbers of the staged rows of the voucher in hand. They go into the store
/// as texts and never reach Tally.
struct Counters {
  std::int32_t LdEID = 0;
  std::int32_t BiAID = 0;
  std::int32_t BAaID = 0;
  std::int32_t CAID = 0;
  std::int32_t InEID = 0;
  std::int32_t IDNID = 0;
  std::int32_t IOLID = 0;
  std::int32_t BOTID = 0;
  std::int32_t AttID = 0;
  // Both number lines of BasicBuyerAddress (or of Address, for the buyer's own).
  std::int32_t ConsigneeBBAID = 0;
  std::int32_t BuyerBBAID = 0;
};

/// The loop that every family of vouchers shares: it walks the grid, groups
/// neighbouring rows into vouchers by their key, stages them row by row, and
/// sends each voucher when the next one begins. The empty rows at the end of the
/// grid send the last.
class VoucherRun {
 public:
  VoucherRun(form::ImportForm& importForm, VoucherFamily& family);

  /// Runs the whole grid. A failure ends it at its row; the voucher in hand is
  /// then not sent, and the rows after it stay without a status.
  void Run();

  // For the families.

  form::ImportForm& Form() { return form_; }
  staging::StagingWriters& Writers() { return writers_; }
  const std::string& Company() const { return form_.CurrentCompany; }
  const std::string& VchID() const { return vchID_; }
  std::size_t GridRow() const { return reader_.Row(); }
  /// Numbers the vouchers of the run from another id than "1".
  void StartVouchersAt(const std::string& vchID);

  VoucherRow row;  ///< the row in hand; a family may change it, and it stays so
  Counters counters;

  /// A number as AmountFormat writes it.
  std::string FormatAmount(double amount) const { return amountFormat_.ApplyNumber(amount); }

 private:
  struct BoundColumn {
    const VoucherColumn* column;
    std::size_t gridColumn;  // 0 for a required column that the source lacks
  };

  void Open();
  void BindColumns();
  void TakeRow(std::size_t gridRow, form::CompanyRule& companyRule);
  void ReadRow(std::size_t gridRow);
  void ReadCell(std::string_view text, Reading reading, std::string& field) const;
  std::string VoucherKey();
  void GroupRow(std::size_t gridRow);
  void SendRow(std::size_t gridRow);
  void StartVoucher(const std::string& key);
  void SendVoucher(std::size_t outcomeRow);
  void ShowOutcome(std::size_t gridRow, const std::string& status);

  form::ImportForm& form_;
  VoucherFamily& family_;
  platform::FormatPattern amountFormat_;
  staging::StagingWriters writers_;
  vouchers::VoucherDocumentWriter documents_;
  form::GridReader reader_;
  form::VoucherRowMarker marker_;
  std::vector<BoundColumn> boundColumns_;
  bool hasId_ = false;
  std::int32_t voucherNumber_ = 1;
  std::string vchID_ = "1";
  std::string prevVoucherKey_ = "00";
};

/// A family's columns and those that the run reads for every family.
form::DeclaredColumns DeclaredOf(std::span<const VoucherColumn> columns);

}  // namespace vorlane::posting
