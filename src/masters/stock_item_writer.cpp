#include "masters/master_document.h"
#include "masters/master_writers.h"

namespace vorlane::masters {

using gateway::DocumentBuilder;
using platform::XmlNode;

namespace {

constexpr std::string_view kBatchColumns[] = {"GODOWNNAME",   "BATCHNAME",   "OPENINGBALANCE",
                                              "OPENINGVALUE", "OPENINGRATE", "MFDON",
                                              "EXPIRYPERIOD"};
constexpr std::string_view kRateColumns[] = {"DATE", "RATE"};
constexpr std::string_view kComponentColumns[] = {"STOCKITEMNAME", "GODOWNNAME", "ACTUALQTY"};
constexpr std::string_view kExciseColumns[] = {"EXCISEGODOWNNAME", "EXCISEREPUNITS",
                                               "EXCISEALLOCTYPE", "STOCKITEMTYPE"};

void WriteBatches(DocumentBuilder& builder, XmlNode* item, const StockItemRec& record) {
  WriteList(builder, item, {"BATCHALLOCATIONS.LIST", kBatchColumns}, record.Batches);
}

void WriteStdCosts(DocumentBuilder& builder, XmlNode* item, const StockItemRec& record) {
  WriteList(builder, item, {"STANDARDCOSTLIST.LIST", kRateColumns}, record.StdCosts);
}

void WriteStdPrices(DocumentBuilder& builder, XmlNode* item, const StockItemRec& record) {
  WriteList(builder, item, {"STANDARDPRICELIST.LIST", kRateColumns}, record.StdPrices);
}

void WriteComponents(DocumentBuilder& builder, XmlNode* item, const StockItemRec& record) {
  TextRows lines = record.Components;
  for (std::vector<std::string>& line : lines) {
    if (line.size() >= 4) line[2] += " " + line[3];  // quantity and unit are one text in Tally
  }
  WriteList(builder, item, {"COMPONENTLIST.LIST", kComponentColumns}, lines);
}

void WriteExciseGodowns(DocumentBuilder& builder, XmlNode* item, const StockItemRec& record) {
  WriteList(builder, item, {"EXCISEITEMGODOWN.LIST", kExciseColumns}, record.ExciseGodowns);
}

void WritePartNo(DocumentBuilder& builder, XmlNode* item, const StockItemRec& record) {
  if (record.PartNo.empty()) return;
  XmlNode* list = builder.AddElement(item, "ADDITIONALNAME.LIST");
  builder.AddElement(list, "ADDITIONALNAME", record.PartNo);
}

/// A user-defined price field: a list of its own around one child of its name.
template <std::string StockItemRec::*Field>
void WriteUserField(DocumentBuilder& builder, XmlNode* item, const StockItemRec& record,
                    const std::string& name) {
  if ((record.*Field).empty()) return;
  XmlNode* list = builder.AddElement(item, name + ".LIST");
  builder.AddElement(list, name, record.*Field);
}

void WriteUserFields(DocumentBuilder& builder, XmlNode* item, const StockItemRec& record) {
  WriteUserField<&StockItemRec::BasePrice>(builder, item, record, "UDF:CCMSCVANIBASEPRC");
  WriteUserField<&StockItemRec::VATPer>(builder, item, record, "UDF:CCMSCVANIVATPRC");
  WriteUserField<&StockItemRec::VATIncl>(builder, item, record, "UDF:CCMSCVANIVATINCL");
  WriteUserField<&StockItemRec::PurchaseDisc>(builder, item, record, "UDF:CCMSCVANIPURDISC");
  WriteUserField<&StockItemRec::SalesDisc>(builder, item, record, "UDF:CCMSCVANISALDISC");
}

constexpr MasterTag<StockItemRec> kStockItemTags[] = {
    {"PARENT", &StockItemRec::Parent},
    {"CATEGORY", &StockItemRec::Category},
    {"TAXCLASSIFICATIONNAME", &StockItemRec::TaxClassificationName},
    {"COSTINGMETHOD", &StockItemRec::CostingMethod},
    {"VALUATIONMETHOD", &StockItemRec::ValuationMethod},
    {"BASEUNITS", &StockItemRec::BaseUnits},
    {"ADDITIONALUNITS", &StockItemRec::AdditionalUnits},
    {"EXCISEITEMCLASSIFICATION", &StockItemRec::ExciseItemClassification},
    {"ISCOSTCENTRESON", &StockItemRec::IsCostCentresOn},
    {"ISBATCHWISEON", &StockItemRec::IsBatchWiseOn},
    {"ISPERISHABLEON", &StockItemRec::IsPerishableOn},
    {"IGNOREPHYSICALDIFFERENCE", &StockItemRec::IgnorePhysicalDifference},
    {"IGNORENEGATIVESTOCK", &StockItemRec::IgnoreNegativeStock},
    {"TREATSALESASMANUFACTURED", &StockItemRec::TreatSalesAsManufactured},
    {"TREATPURCHASESASCONSUMED", &StockItemRec::TreatPurchasesAsConsumed},
    {"TREATREJECTSASSCRAP", &StockItemRec::TreatRejectsAsScrap},
    {"HASMFGDATE", &StockItemRec::HasMfgDate},
    {"ISPERISHABLEON", &StockItemRec::IsPerishableOn},  // goes out twice, as it always has
    {"ALLOWUSEOFEXPIREDITEMS", &StockItemRec::AllowUseOfExpiredItems},
    {"IGNOREBATCHES", &StockItemRec::IgnoreBatches},
    {"IGNOREGODOWNS", &StockItemRec::IgnoreGodowns},
    {"ISMRPINCLOFTAX", &StockItemRec::IsMRPInclOfTax},
    {"REORDERASHIGHER", &StockItemRec::ReorderAsHigher},
    {"MINORDERASHIGHER", &StockItemRec::MinOrderAsHigher},
    {"CONVERSION", &StockItemRec::Conversion},
    {"DENOMINATOR", &StockItemRec::Denominator},
    {"BASICRATEOFEXCISE", &StockItemRec::BasicRateOfExcise},
    {"RATEOFVAT", &StockItemRec::RateOfVAT},
    {"OPENINGBALANCE", &StockItemRec::OpeningBalance},
    {"OPENINGRATE", &StockItemRec::OpeningRate},
    {"OPENINGVALUE", &StockItemRec::OpeningValue},
    {"BASICQTY", &StockItemRec::BasicQty},
    {"BASICTARIFFTYPE", &StockItemRec::BasicTariffType},
    {"VATCOMMODITY", &StockItemRec::VATCommodity},
    MasterTag<StockItemRec>(&WriteBatches),
    MasterTag<StockItemRec>(&WriteStdCosts),
    MasterTag<StockItemRec>(&WriteStdPrices),
    MasterTag<StockItemRec>(&WriteComponents),
    MasterTag<StockItemRec>(&WriteExciseGodowns),
    MasterTag<StockItemRec>(&WriteNameList<StockItemRec>),
    MasterTag<StockItemRec>(&WritePartNo),
    {"DESCRIPTION", &StockItemRec::Description},
    {"NARRATION", &StockItemRec::Remark},
    MasterTag<StockItemRec>(&WriteUserFields),
};

constexpr MasterDocument<StockItemRec> kStockItem{"STOCKITEM", "C03-0006", kStockItemTags};

}  // namespace

std::string WriteStockItem(gateway::TallyGateway& tally, std::string_view company,
                           const StockItemRec& record, std::string_view action) {
  return WriteMaster(tally, kStockItem, company, record, action);
}

}  // namespace vorlane::masters
