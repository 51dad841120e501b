#include "shell/dispatcher.h"

#include <utility>

#include "formats/format_catalogue.h"
#include "formats/format_posting.h"
#include "formats/gst_master_loops.h"
#include "masters/master_loops.h"
#include "platform/runtime/failure.h"
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

/// The loops that are built.
constexpr std::pair<Loop, void (*)(ImportForm&)> kLoops[] = {
    {Loop::PostAttendance, posting::PostAttendance},
    {Loop::PostBankStmt, posting::PostBankStmt},
    {Loop::PostCostCategories, masters::PostCostCategories},
    {Loop::PostCostCategoriesGST, formats::PostCostCategoriesGST},
    {Loop::PostCostCentres, masters::PostCostCentres},
    {Loop::PostCostCentresGST, formats::PostCostCentresGST},
    {Loop::PostCostTransaction, posting::PostCostTransaction},
    {Loop::PostCrDrNotes, posting::PostCrDrNotes},
    {Loop::PostCustomFormat, formats::PostCustomFormat},
    {Loop::PostGodowns, masters::PostGodowns},
    {Loop::PostGodownsGST, formats::PostGodownsGST},
    {Loop::PostItemizedTransaction, posting::PostItemizedTransaction},
    {Loop::PostLedgerGroups, masters::PostLedgerGroups},
    {Loop::PostLedgerGroupsGST, formats::PostLedgerGroupsGST},
    {Loop::PostLedgers, masters::PostLedgers},
    {Loop::PostLedgersGST, formats::PostLedgersGST},
    {Loop::PostNotes, posting::PostNotes},
    {Loop::PostOrders, posting::PostOrders},
    {Loop::PostPhysicalStock, posting::PostPhysicalStock},
    {Loop::PostQuickTransaction, posting::PostQuickTransaction},
    {Loop::PostSTTDSTransaction, posting::PostSTTDSTransaction},
    {Loop::PostServTaxTransaction, posting::PostServTaxTransaction},
    {Loop::PostStockCategories, masters::PostStockCategories},
    {Loop::PostStockCategoriesGST, formats::PostStockCategoriesGST},
    {Loop::PostStockGroups, masters::PostStockGroups},
    {Loop::PostStockGroupsGST, formats::PostStockGroupsGST},
    {Loop::PostStockItems, masters::PostStockItems},
    {Loop::PostStockItemsGST, formats::PostStockItemsGST},
    {Loop::PostStockJV, posting::PostStockJV},
    {Loop::PostTDSTransaction, posting::PostTDSTransaction},
    {Loop::PostTransaction, posting::PostTransaction},
    {Loop::PostTransactionGST, formats::PostTransactionGST},
    {Loop::PostUnits, masters::PostUnits},
    {Loop::PostUnitsGST, formats::PostUnitsGST},
    {Loop::PostVATTransaction, posting::PostVATTransaction},
    {Loop::PostVATTransactionMC, posting::PostVATTransactionMC},
    {Loop::PostVoucherRegister, posting::PostVoucherRegister},
};

}  // namespace

Loop FindLoop(ImportForm& importForm, std::string_view importType) {
  const std::string key = platform::UpperCase(importType);
  const sources::ImportType* type = sources::FindImportType(key);
  if (type && type->loop != Loop::CustomFormat) return type->loop;
  const std::string word =
      platform::UpperCase(formats::IsCustomFormat(importForm.services.store, key));
  for (const auto& [known, loop] : kFormatLoops) {
    if (known == word) return loop;
  }
  return Loop::Nothing;
}

void RunLoop(ImportForm& importForm, Loop loop) {
  if (loop == Loop::Nothing) return;
  for (const auto& [known, run] : kLoops) {
    if (known == loop) return run(importForm);
  }
  throw platform::Failure(platform::failure_number::kFeatureNotBuilt, "ImportDispatcher",
                          "This version of Vorlane does not have " +
                              std::string(sources::LoopName(loop)) + " yet, which posts >" +
                              importForm.cmbTableName.text + "<. No row was sent to Tally.");
}

}  // namespace vorlane::shell
