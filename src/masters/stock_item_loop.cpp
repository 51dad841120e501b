#include <span>

#include "masters/held_master_loop.h"
#include "masters/master_loops.h"
#include "masters/master_writers.h"
#include "platform/runtime/number.h"

namespace vorlane::masters {

using form::GridReader;
using form::ImportForm;

namespace {

/// How a cell becomes a field: as it stands, as the number that Val reads, or as
/// that number with its sign turned, for values of stock go out negative.
enum class Reading { Text, Number, Negative };

std::string Read(std::string cell, Reading reading) {
  switch (reading) {
    case Reading::Text:
      return cell;
    case Reading::Number:
      return platform::NumberText(platform::Val(cell));
    case Reading::Negative:
      return platform::NumberText(platform::Val(cell) * -1);
  }
  return cell;
}

std::string_view NameOf(Reading reading) {
  return reading == Reading::Text ? std::string_view() : "number";
}

struct ItemColumn {
  std::string_view key;
  std::string StockItemRec::*field;
  Reading reading = Reading::Text;
};

/// Read without a test, in the row that names the item.
constexpr ItemColumn kRequiredColumns[] = {
    {"PARENT", &StockItemRec::Parent},
    {"CATEGORY", &StockItemRec::Category},
    {"BASEUNITS", &StockItemRec::BaseUnits},
};

/// Read each when the source has it.
constexpr ItemColumn kColumns[] = {
    {"NAMEALIAS", &StockItemRec::Alias},
    {"COSTINGMETHOD", &StockItemRec::CostingMethod},      // over its default
    {"VALUATIONMETHOD", &StockItemRec::ValuationMethod},  // over its default
    {"ADDITIONALUNIT", &StockItemRec::AdditionalUnits},
    {"DENOMINATOR", &StockItemRec::Denominator},
    {"CONVERSION", &StockItemRec::Conversion, Reading::Number},
    {"BASICRATEOFEXCISE", &StockItemRec::BasicRateOfExcise},
    {"RATEOFVAT", &StockItemRec::RateOfVAT},
    {"ISBATCHWISEON", &StockItemRec::IsBatchWiseOn},
    {"HASMFGDATE", &StockItemRec::HasMfgDate},
    {"ISPERISHABLEON", &StockItemRec::IsPerishableOn},
    {"ISCOSTCENTRESON", &StockItemRec::IsCostCentresOn},
    {"IGNORENEGATIVESTOCK", &StockItemRec::IgnoreNegativeStock},
    {"OPENINGBALANCE", &StockItemRec::OpeningBalance, Reading::Number},
    {"OPENINGVALUE", &StockItemRec::OpeningValue, Reading::Negative},
    {"OPENINGRATE", &StockItemRec::OpeningRate, Reading::Number},
    {"PARTNO", &StockItemRec::PartNo},
    {"DESCRIPTION", &StockItemRec::Description},
    {"REMARK", &StockItemRec::Remark},
    {"EXCISECOMMODITY", &StockItemRec::BasicTariffType},
    {"VATCOMMODITY", &StockItemRec::VATCommodity},
    {"BASEPRICE", &StockItemRec::BasePrice},
    {"PURCHASEDISC", &StockItemRec::PurchaseDisc},
    {"SALESDISC", &StockItemRec::SalesDisc},
    {"VATPER", &StockItemRec::VATPer},
    {"VATINCL", &StockItemRec::VATIncl},
};

constexpr std::string_view kMfgQty = "MFGQTY";
constexpr std::string_view kMfgUnit = "MFGUNIT";

/// What a block does with one of its columns.
enum class BlockNeed {
  Key,       ///< the block stands when the source has it and its cell holds text
  Present,   ///< the source must have it for the block to stand at all
  Optional,  ///< empty when the source has it not
  Required,  ///< read without a test
};

struct BlockColumn {
  std::string_view key;
  BlockNeed need;
  Reading reading = Reading::Text;
};

/// A table of the item that any row can add to.
struct Block {
  TextRows StockItemRec::*table;
  std::span<const BlockColumn> columns;
  std::string_view besides;  ///< for the guide: what its required columns stand beside
};

constexpr BlockColumn kBatchColumns[] = {
    {"GODOWNNAME", BlockNeed::Key},
    {"BATCHNAME", BlockNeed::Optional},
    {"OPENINGBALANCE", BlockNeed::Optional, Reading::Number},
    {"OPENINGVALUE", BlockNeed::Optional, Reading::Negative},
    {"OPENINGRATE", BlockNeed::Optional, Reading::Number},
    {"MFDON", BlockNeed::Optional},
    {"EXPIRYPERIOD", BlockNeed::Optional},
};
constexpr BlockColumn kCostColumns[] = {
    {"STDCOSTDATE", BlockNeed::Key},
    {"STDCOST", BlockNeed::Key},
};
constexpr BlockColumn kPriceColumns[] = {
    {"STDPRICEDATE", BlockNeed::Key},
    {"STDPRICE", BlockNeed::Key},
};
constexpr BlockColumn kComponentColumns[] = {
    {"BOMITEM", BlockNeed::Key},
    {"BOMGODOWN", BlockNeed::Key},
    {"BOMQTY", BlockNeed::Present, Reading::Number},
    {"BOMUNIT", BlockNeed::Present},
};
constexpr BlockColumn kExciseColumns[] = {
    {"EXCISEGODOWN", BlockNeed::Key},
    {"EXCISEUNITNAME", BlockNeed::Required},
    {"VALUATIONTYPE", BlockNeed::Required},
    {"STOCKITEMTYPE", BlockNeed::Required},
};

constexpr Block kBlocks[] = {
    {&StockItemRec::Batches, kBatchColumns, ""},
    {&StockItemRec::StdCosts, kCostColumns, ""},
    {&StockItemRec::StdPrices, kPriceColumns, ""},
    {&StockItemRec::Components, kComponentColumns, ""},
    {&StockItemRec::ExciseGodowns, kExciseColumns, "beside `ExciseGodown`"},
};

/// A block whose column is the very first field of the source is switched off,
/// as with every optional column.
bool Stands(const Block& block, GridReader& row) {
  for (const BlockColumn& column : block.columns) {
    const bool needed = column.need == BlockNeed::Key || column.need == BlockNeed::Present;
    if (needed && !row.HasOptional(column.key)) return false;
    if (column.need == BlockNeed::Key && row.Optional(column.key).empty()) return false;
  }
  return true;
}

class HeldStockItem : public HeldMaster {
 public:
  explicit HeldStockItem(ImportForm& importForm) : form_(importForm) { ClearTables(); }

  void ClearTables() override {
    for (const Block& block : kBlocks) (item_.*block.table).assign(1, {});
  }
  bool ClearsForFirst() const override { return true; }

  void Start(GridReader& row, const std::string& name) override {
    item_.Name = name;
    for (const ItemColumn& column : kRequiredColumns) {
      item_.*column.field = row.Required(column.key);
    }
    item_.CostingMethod = "Avg. Cost";
    item_.ValuationMethod = "Avg. Price";
    for (const ItemColumn& column : kColumns) {
      if (row.HasOptional(column.key)) {
        item_.*column.field = Read(row.Optional(column.key), column.reading);
      }
    }
    if (row.HasOptional(kMfgQty)) {
      item_.BasicQty = row.Optional(kMfgQty) + row.Required(kMfgUnit);
    }
  }

  void AddBlocks(GridReader& row) override {
    for (const Block& block : kBlocks) {
      if (!Stands(block, row)) continue;
      std::vector<std::string> line;
      for (const BlockColumn& column : block.columns) {
        const bool isAbsent = column.need == BlockNeed::Optional && !row.HasOptional(column.key);
        line.push_back(isAbsent ? "" : Read(row.Required(column.key), column.reading));
      }
      (item_.*block.table).push_back(std::move(line));
    }
  }

  std::string Send(const std::string& company) override {
    return WriteStockItem(form_.services.gateway, company, item_, "Create");
  }

 private:
  ImportForm& form_;
  StockItemRec item_;
};

// An empty name counts: the first empty row below the grid's data sends the last
// item, and Tally is asked about a master without a name.
constexpr HeldLoopRules kStockItems{"STOCK ITEMS", "Processed Stock Items: ", "F01-0031", false};

}  // namespace

void PostStockItems(ImportForm& importForm) {
  HeldStockItem item(importForm);
  PostHeldMasters(importForm, kStockItems, item);
}

form::DeclaredColumns StockItemColumns() {
  form::DeclaredColumns all{{kHeldNameKey, true, "", ""}};
  for (const ItemColumn& column : kRequiredColumns) all.push_back({column.key, true, "", ""});
  for (const ItemColumn& column : kColumns) {
    all.push_back({column.key, false, NameOf(column.reading), ""});
  }
  all.push_back({kMfgQty, false, "", ""});
  all.push_back({kMfgUnit, true, "", "beside `MfgQty`"});
  for (const Block& block : kBlocks) {
    for (const BlockColumn& column : block.columns) {
      const bool isRequired = column.need == BlockNeed::Required;
      all.push_back({column.key, isRequired, NameOf(column.reading),
                     isRequired ? block.besides : std::string_view()});
    }
  }
  all.push_back(form::kCompanyColumn);
  return all;
}

}  // namespace vorlane::masters
