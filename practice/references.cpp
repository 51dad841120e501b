#include "practice/references.h"

#include <algorithm>
#include <utility>

#include "practice/nodes.h"

namespace vorlane::practice {
namespace {

using platform::NodeType;
using platform::XmlNode;

struct ListReference {
  std::string_view list;
  std::string_view tag;
  Kind kind;
  Need need = Need::Optional;
};

// clang-format off
constexpr ListReference kListReferences[] = {
    {"LEDGERENTRIES.LIST",          "LEDGERNAME",            Kind::Ledger,       Need::Required},
    {"ALLLEDGERENTRIES.LIST",       "LEDGERNAME",            Kind::Ledger,       Need::Required},
    {"ACCOUNTINGALLOCATIONS.LIST",  "LEDGERNAME",            Kind::Ledger,       Need::Required},
    {"CATEGORYALLOCATIONS.LIST",    "CATEGORY",              Kind::CostCategory},
    {"COSTCENTREALLOCATIONS.LIST",  "NAME",                  Kind::CostCentre,   Need::Required},
    {"ALLINVENTORYENTRIES.LIST",    "STOCKITEMNAME",         Kind::StockItem,    Need::Required},
    {"INVENTORYENTRIES.LIST",       "STOCKITEMNAME",         Kind::StockItem,    Need::Required},
    {"INVENTORYENTRIESIN.LIST",     "STOCKITEMNAME",         Kind::StockItem,    Need::Required},
    {"INVENTORYENTRIESOUT.LIST",    "STOCKITEMNAME",         Kind::StockItem,    Need::Required},
    {"INVENTORYALLOCATIONS.LIST",   "STOCKITEMNAME",         Kind::StockItem,    Need::Required},
    // Without a godown the stock lies in the main one.
    {"BATCHALLOCATIONS.LIST",       "GODOWNNAME",            Kind::Godown},
    {"BATCHALLOCATIONS.LIST",       "DESTINATIONGODOWNNAME", Kind::Godown},
    {"COMPONENTLIST.LIST",          "STOCKITEMNAME",         Kind::StockItem,    Need::Required},
    {"COMPONENTLIST.LIST",          "GODOWNNAME",            Kind::Godown},
    {"EXCISEITEMGODOWN.LIST",       "EXCISEGODOWNNAME",      Kind::Godown},
};
// clang-format on

void FindMissing(const XmlNode& node, const CompanyBooks& company,
                 std::vector<std::string>& lines) {
  for (const XmlNode* child : node.Children()) {
    if (child->Type() != NodeType::Element) continue;
    const std::string list = child->NodeName();
    if (!list.ends_with(".LIST")) continue;
    for (const ListReference& row : kListReferences) {
      if (list != row.list) continue;
      const std::string name = WithoutReservedMark(ChildText(*child, row.tag).value_or(""));
      if (name.empty() ? row.need == Need::Optional : company.Find(row.kind, name) != nullptr)
        continue;
      std::string line = DoesNotExist(row.kind, name);
      if (std::find(lines.begin(), lines.end(), line) == lines.end())
        lines.push_back(std::move(line));
    }
    FindMissing(*child, company, lines);
  }
}

}  // namespace

std::string DoesNotExist(Kind kind, std::string_view name) {
  return std::string(RowOf(kind).noun) + " '" + std::string(name) + "' does not exist!";
}

std::vector<std::string> FindMissingInLists(const XmlNode& object, const CompanyBooks& company) {
  std::vector<std::string> lines;
  FindMissing(object, company, lines);
  return lines;
}

}  // namespace vorlane::practice
