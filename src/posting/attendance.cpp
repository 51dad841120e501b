#include "posting/staging_rules.h"
#include "posting/voucher_loops.h"
#include "posting/voucher_run.h"

namespace vorlane::posting {

namespace {

// UNIT is required and goes nowhere; a source without it ends the loop.
constexpr VoucherColumn kColumns[] = {
    columns::kVchType,
    columns::kVchNo,
    columns::kVchDate,
    columns::kRefNo,
    {"EMPLOYEE", &VoucherRow::Employee, Need::Required},
    {"ATTENDANCETYPE", &VoucherRow::AttendanceType, Need::Required},
    {"VALUE", &VoucherRow::Value, Need::Required, Reading::Amount},
    {"UNIT", &VoucherRow::Unit, Need::Required},
    columns::kNarration,
};

/// Attendance vouchers: ATTENDANCE. Their rows are staged and the document has no
/// list for them: Tally gets the head alone.
class Attendance : public VoucherFamily {
 public:
  Attendance() : VoucherFamily("F01-0055", kColumns, staging::StagingWriters::BankRows::Keep) {}

  void AfterOpening(VoucherRun& run) override {
    run.StartVouchersAt(run.Writers().NextVoucherId(run.Company()));
  }

  void StartCounters(VoucherRun&) override {}

  void StageRow(VoucherRun& run) override {
    const VoucherRow& row = run.row;
    if (row.Employee.empty()) return;
    run.Writers().AddAttendance(run.Company(), {row.Employee, row.AttendanceType, row.Value},
                                run.VchID(), Id(++run.counters.AttID));
  }
};

}  // namespace

void PostAttendance(form::ImportForm& importForm) {
  Attendance family;
  VoucherRun(importForm, family).Run();
}
form::DeclaredColumns AttendanceColumns() { return DeclaredOf(kColumns); }

}  // namespace vorlane::posting
