#include "posting/voucher_run.h"

#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"
#include "posting/staging_rules.h"

namespace vorlane::posting {

using form::ImportForm;
using form::ImportGrid;

namespace {

constexpr std::string_view kIdKey = "ID";

std::string_view NameOf(Reading reading) {
  switch (reading) {
    case Reading::Text:
    case Reading::KeptText:
      return "";
    case Reading::Amount:
      return "amount";
    case Reading::Formatted:
      return "number";
    case Reading::Rate:
      return "rate";
  }
  return "";
}

}  // namespace

VoucherRun::VoucherRun(ImportForm& importForm, VoucherFamily& family)
    : form_(importForm),
      family_(family),
      amountFormat_(importForm.AmountFormat),
      writers_(importForm.services.store, importForm.services.reporter),
      documents_(importForm.services.store, importForm.services.gateway),
      reader_(importForm),
      marker_(importForm) {}

void VoucherRun::Run() {
  form_.Trap(family_.Location(), [&] {
    if (!family_.BeforeRun(*this)) return;
    Open();
    const std::size_t rowCount = form_.GR1.RowCount();
    if (rowCount > 0) BindColumns();
    form::CompanyRule companyRule(form_);
    for (std::size_t gridRow = 1; gridRow <= rowCount; ++gridRow) {
      TakeRow(gridRow, companyRule);
      form_.services.face.Progress(gridRow, rowCount);
      form_.services.face.LetEventsRun();
    }
    form_.stat("msg", "Finished Posing of Data.");
  });
}

void VoucherRun::TakeRow(std::size_t gridRow, form::CompanyRule& companyRule) {
  reader_.MoveTo(gridRow);
  if (!family_.ReadsRow(reader_)) return;
  ReadRow(gridRow);
  // Before the break: the voucher in hand goes out under the company of the row
  // that ends it.
  companyRule.Apply(reader_);
  if (family_.Groups() == Grouping::ByKey) {
    GroupRow(gridRow);
  } else {
    SendRow(gridRow);
  }
}

void VoucherRun::GroupRow(std::size_t gridRow) {
  if (prevVoucherKey_.empty()) return;  // an empty ID: nothing after it is sent
  const std::string key = VoucherKey();
  if (key != prevVoucherKey_) {
    // Before the first row nothing is held yet.
    if (prevVoucherKey_ != "00") SendVoucher(gridRow - 1);
    prevVoucherKey_ = key;
    StartVoucher(key);
  }
  form_.GR1.SetTaken(gridRow);
  family_.StageRow(*this);
}

void VoucherRun::SendRow(std::size_t gridRow) {
  if (!family_.TakesRow(*this)) return;
  StartVoucher(VoucherKey());
  family_.StageRow(*this);
  SendVoucher(gridRow);
}

void VoucherRun::Open() {
  form_.CurrentCompany = form_.cmbCurrentCompanyList.text;
  form_.TabData = form::DataTab::Grid;
  form_.stat("msg", "Deleting Previous Data");
  writers_.PurgeForLoop(family_.BankRows());
  form_.stat("msg", "");
  family_.AfterOpening(*this);
}

void VoucherRun::StartVouchersAt(const std::string& vchID) {
  voucherNumber_ = static_cast<std::int32_t>(platform::Val(vchID));
  vchID_ = vchID;
}

void VoucherRun::BindColumns() {
  const ImportGrid& grid = form_.GR1;
  for (const VoucherColumn& column : family_.Columns()) {
    const std::size_t gridColumn = grid.FindColumn(column.key).value_or(0);
    const bool counts = gridColumn != 0 && form_.HasOptionalColumn(column.key);
    if (column.need == Need::Required || counts) boundColumns_.push_back({&column, gridColumn});
  }
  // ID alone counts from the very first field. One that the loader added is no
  // column of the source and does not group rows.
  hasId_ = form_.FindListedColumn(kIdKey) >= 0;
}

void VoucherRun::ReadCell(std::string_view text, Reading reading, std::string& field) const {
  switch (reading) {
    case Reading::Text:
      field.assign(text);
      break;
    case Reading::KeptText:
      if (!text.empty()) field.assign(text);
      break;
    case Reading::Amount:
      field = FormatAmount(platform::Val(text));
      break;
    case Reading::Formatted:
      amountFormat_.Apply(text, field);
      break;
    case Reading::Rate:
      field = FormatAmount(platform::Val(platform::ReplaceAll(std::string(text), "%", "")));
      break;
  }
}

void VoucherRun::ReadRow(std::size_t gridRow) {
  const ImportGrid& grid = form_.GR1;
  for (const BoundColumn& bound : boundColumns_) {
    const VoucherColumn& column = *bound.column;
    const std::size_t gridColumn =
        bound.gridColumn != 0 ? bound.gridColumn : grid.ColumnIndex(column.key);
    const std::string_view text = grid.Text(gridRow, gridColumn);
    ReadCell(text, column.reading, row.*column.field);
  }
  if (hasId_) row.Id = reader_.Required(kIdKey);
}

std::string VoucherRun::VoucherKey() {
  if (hasId_) return row.Id;
  if (family_.Groups() == Grouping::RowByRow) return family_.KeyOf(row);
  return row.VchType + "-" + row.VchNo + "-" + row.VchDate;
}

void VoucherRun::SendVoucher(std::size_t outcomeRow) {
  ShowOutcome(outcomeRow, documents_.WriteVoucherDocument(Company(), vchID_, "Create",
                                                          [&] { writers_.CloseVoucher(); }));
  vchID_ = std::to_string(++voucherNumber_);
}

void VoucherRun::StartVoucher(const std::string& key) {
  counters = {};
  family_.StartCounters(*this);
  staging::VoucherRec head = DefaultHead(row, key);
  family_.FillHead(*this, head);
  writers_.OpenVoucher();
  writers_.AddVoucher(Company(), head, vchID_);
}

void VoucherRun::ShowOutcome(std::size_t gridRow, const std::string& status) {
  if (family_.Groups() == Grouping::ByKey) {
    marker_.MarkVoucher(gridRow, prevVoucherKey_, status);
  } else {
    marker_.MarkSingleRow(gridRow, status);
  }
  form_.stat("msg", "Processed Document: " + vchID_);
}

form::DeclaredColumns DeclaredOf(std::span<const VoucherColumn> columns) {
  form::DeclaredColumns all;
  bool hasOwnId = false;  // a register's, which it needs
  for (const VoucherColumn& column : columns) {
    all.push_back({column.key, column.need == Need::Required, NameOf(column.reading), ""});
    hasOwnId = hasOwnId || column.key == kIdKey;
  }
  if (!hasOwnId) all.push_back({kIdKey, false, "", ""});
  all.push_back(form::kCompanyColumn);
  return all;
}

}  // namespace vorlane::posting
