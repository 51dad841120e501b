#include "shell/dispatcher.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "formats/format_catalogue.h"
#include "formats/format_posting.h"
#include "formats/gst_master_loops.h"
#include "masters/master_loops.h"
#include "platform/runtime/text.h"
#include "posting/voucher_loops.h"

namespace vorlane::shell {

using form::ImportForm;
using sources::Loop;

namespace {

/// What posts a custom format, by its type word.
constexpr std::pair<std::string_view, Loop> kFormatLoops[] = {
    {"GROUP", Loop::PostLedgerGroupsGST},
    {"LEDGER", Loop::PostLedgersGST},
    {"UNIT", Loop::PostUnitsGST},
    {"GODOWN", Loop::PostGodownsGST},
    {"STOCKGROUP", Loop::PostStockGroupsGST},
    {"STOCKCATEGORY", Loop::PostStockCategoriesGST},
    {"STOCKITEM", Loop::PostStockItemsGST},
    {"COSTCATEGORY", Loop::PostCostCategoriesGST},
    {"COSTCENTRE", Loop::PostCostCentresGST},
    {"VOUCHER", Loop::PostCustomFormat},
};

struct LoopEntry {
  Loop loop;
  void (*run)(ImportForm&);
  form::DeclaredColumns (*columns)();  ///< what it reads of a row
};

// clang-format off
constexpr LoopEntry kLoops[] = {
    {Loop::PostAttendance, posting::PostAttendance, posting::AttendanceColumns},
    {Loop::PostBankStmt, posting::PostBankStmt, posting::BankStmtColumns},
    {Loop::PostCostCategories, masters::PostCostCategories, masters::CostCategoryColumns},
    {Loop::PostCostCategoriesGST, formats::PostCostCategoriesGST, formats::ParentedGSTColumns},
    {Loop::PostCostCentres, masters::PostCostCentres, masters::CostCentreColumns},
    {Loop::PostCostCentresGST, formats::PostCostCentresGST, formats::ParentedGSTColumns},
    {Loop::PostCostTransaction, posting::PostCostTransaction, posting::CostTransactionColumns},
    {Loop::PostCrDrNotes, posting::PostCrDrNotes, posting::CrDrNotesColumns},
    {Loop::PostCustomFormat, formats::PostCustomFormat, formats::CustomFormatColumns},
    {Loop::PostGodowns, masters::PostGodowns, masters::GodownColumns},
    {Loop::PostGodownsGST, formats::PostGodownsGST, formats::GodownGSTColumns},
    {Loop::PostItemizedTransaction, posting::PostItemizedTransaction, posting::ItemizedTransactionColumns},
    {Loop::PostLedgerGroups, masters::PostLedgerGroups, masters::LedgerGroupColumns},
    {Loop::PostLedgerGroupsGST, formats::PostLedgerGroupsGST, formats::HeldGSTColumns},
    {Loop::PostLedgers, masters::PostLedgers, masters::LedgerColumns},
    {Loop::PostLedgersGST, formats::PostLedgersGST, formats::HeldGSTColumns},
    {Loop::PostNotes, posting::PostNotes, posting::NotesColumns},
    {Loop::PostOrders, posting::PostOrders, posting::OrdersColumns},
    {Loop::PostPhysicalStock, posting::PostPhysicalStock, posting::PhysicalStockColumns},
    {Loop::PostQuickTransaction, posting::PostQuickTransaction, posting::QuickTransactionColumns},
    {Loop::PostSTTDSTransaction, posting::PostSTTDSTransaction, posting::STTDSTransactionColumns},
    {Loop::PostServTaxTransaction, posting::PostServTaxTransaction, posting::ServTaxTransactionColumns},
    {Loop::PostStockCategories, masters::PostStockCategories, masters::StockCategoryColumns},
    {Loop::PostStockCategoriesGST, formats::PostStockCategoriesGST, formats::ParentedGSTColumns},
    {Loop::PostStockGroups, masters::PostStockGroups, masters::StockGroupColumns},
    {Loop::PostStockGroupsGST, formats::PostStockGroupsGST, formats::StockGroupGSTColumns},
    {Loop::PostStockItems, masters::PostStockItems, masters::StockItemColumns},
    {Loop::PostStockItemsGST, formats::PostStockItemsGST, formats::HeldGSTColumns},
    {Loop::PostStockJV, posting::PostStockJV, posting::StockJVColumns},
    {Loop::PostTDSTransaction, posting::PostTDSTransaction, posting::TDSTransactionColumns},
    {Loop::PostTransaction, posting::PostTransaction, posting::TransactionColumns},
    {Loop::PostTransactionGST, formats::PostTransactionGST, formats::TransactionGSTColumns},
    {Loop::PostUnits, masters::PostUnits, masters::UnitColumns},
    {Loop::PostUnitsGST, formats::PostUnitsGST, masters::UnitColumns},
    {Loop::PostVATTransaction, posting::PostVATTransaction, posting::VATTransactionColumns},
    {Loop::PostVATTransactionMC, posting::PostVATTransactionMC, posting::VATTransactionMCColumns},
    {Loop::PostVoucherRegister, posting::PostVoucherRegister, posting::VoucherRegisterColumns},
};
// clang-format on

/// A loop that is missing would look like a run that went well.
constexpr bool HasEveryLoop() {
  for (int loop = 0; loop <= static_cast<int>(Loop::PostVoucherRegister); ++loop) {
    const auto wanted = static_cast<Loop>(loop);
    if (wanted == Loop::Nothing || wanted == Loop::CustomFormat) continue;
    if (std::ranges::find(kLoops, wanted, &LoopEntry::loop) == std::end(kLoops)) return false;
  }
  return true;
}
static_assert(HasEveryLoop());

}  // namespace

Loop FindLoop(ImportForm& importForm, std::string_view importType) {
  const std::string key = platform::UpperCase(importType);
  const sources::ImportType* type = sources::FindImportType(key);
  if (type && type->loop != Loop::CustomFormat) return type->loop;
  return LoopOfFormat(formats::IsCustomFormat(importForm.services.store, key));
}

Loop LoopOfFormat(std::string_view typeWord) {
  const std::string word = platform::UpperCase(typeWord);
  for (const auto& [known, loop] : kFormatLoops) {
    if (known == word) return loop;
  }
  return Loop::Nothing;
}

form::DeclaredColumns ColumnsOf(Loop loop) {
  for (const LoopEntry& entry : kLoops) {
    if (entry.loop == loop) return entry.columns();
  }
  return {};
}

void RunLoop(ImportForm& importForm, Loop loop) {
  for (const LoopEntry& entry : kLoops) {
    if (entry.loop == loop) return entry.run(importForm);
  }
}

}  // namespace vorlane::shell
