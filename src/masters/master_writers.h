#pragma once

#include <string>
#include <string_view>

#include "gateway/tally_gateway.h"
#include "masters/master_records.h"

namespace vorlane::masters {

/// One writer for each kind of master: builds the import document of `record`
/// for `company`, sends it, and gives Tally's digest. `action` is "Create" or
/// "Alter"; only "Alter" names the master by its old name. Failures are reported
/// and give an empty digest.

std::string WriteGroup(gateway::TallyGateway& tally, std::string_view company,
                       const GroupRec& record, std::string_view action);
std::string WriteUnit(gateway::TallyGateway& tally, std::string_view company, const UnitRec& record,
                      std::string_view action);
std::string WriteGodown(gateway::TallyGateway& tally, std::string_view company,
                        const GodownRec& record, std::string_view action);
std::string WriteStockGroup(gateway::TallyGateway& tally, std::string_view company,
                            const StockGroupRec& record, std::string_view action);
std::string WriteStockCategory(gateway::TallyGateway& tally, std::string_view company,
                               const StockCategoryRec& record, std::string_view action);
std::string WriteCostCategory(gateway::TallyGateway& tally, std::string_view company,
                              const CostCategoryRec& record, std::string_view action);
std::string WriteCostCentre(gateway::TallyGateway& tally, std::string_view company,
                            const CostCentreRec& record, std::string_view action);
std::string WriteLedger(gateway::TallyGateway& tally, std::string_view company,
                        const LedgerRec& record, std::string_view action);
std::string WriteStockItem(gateway::TallyGateway& tally, std::string_view company,
                           const StockItemRec& record, std::string_view action);

}  // namespace vorlane::masters
