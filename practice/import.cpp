#include "practice/import.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "practice/names.h"
#include "practice/nodes.h"
#include "practice/references.h"
#include "practice/vouchers.h"

namespace vorlane::practice {
namespace {

using platform::NodeType;
using platform::XmlNode;

// The texts of NAME.LIST, which newer documents put into LANGUAGENAME.LIST: the
// name, then the alias.
std::vector<std::string> ListedNames(const XmlNode& object) {
  const XmlNode* list = FindChild(object, "NAME.LIST");
  if (list == nullptr)
    if (const XmlNode* language = FindChild(object, "LANGUAGENAME.LIST"))
      list = FindChild(*language, "NAME.LIST");
  std::vector<std::string> names;
  if (list == nullptr) return names;
  for (const XmlNode* child : list->Children())
    if (child->NodeName() == "NAME") names.push_back(child->Text());
  return names;
}

enum class Outcome { Created, Altered, Deleted, Excepted };

// What came of one object; lines refuse it.
struct Result {
  Outcome outcome = Outcome::Created;
  std::vector<std::string> lineErrors;
  int voucherId = 0;
};

Result Refused(std::string lineError) { return {Outcome::Created, {std::move(lineError)}}; }

bool IsNeeded(Need need, const XmlNode& object) {
  if (need != Need::IfCompound) return need == Need::Required;
  return SameName(ChildText(object, "ISSIMPLEUNIT").value_or("Yes"), "No");
}

// The lines that name the masters which `object` refers to in vain: the first of
// its own, or else all of its lists.
std::vector<std::string> FindMissingReferences(const XmlNode& object, const MasterKind& kind,
                                               bool isNew, const CompanyBooks& company) {
  for (const Reference& reference : kind.references) {
    if (reference.tag.empty()) break;
    const std::optional<std::string> text = ChildText(object, reference.tag);
    // A master that is there keeps what an alteration does not mention.
    if (!text && !isNew) continue;
    const std::string name = WithoutReservedMark(text.value_or(""));
    const bool none = name.empty() || SameName(name, "Not Applicable");
    if (none ? IsNeeded(reference.need, object) : company.Find(reference.kind, name) == nullptr)
      return {DoesNotExist(reference.kind, name)};
  }
  return FindMissingInLists(object, company);
}

Result ImportMaster(const XmlNode& object, const MasterKind& kind, CompanyBooks& company) {
  const std::vector<std::string> names = ListedNames(object);
  const std::string ownName = ChildText(object, "NAME").value_or(names.empty() ? "" : names[0]);
  std::string name(TrimName(object.Attribute("NAME").value_or("")));
  if (name.empty()) name = ownName;
  if (name.empty()) return Refused(std::string(kind.noun) + " name is missing!");

  const std::string action = FoldName(object.Attribute("ACTION").value_or("Create"));
  const Master* known = company.Find(kind.kind, name);
  if (action == "delete") {
    if (known == nullptr) return Refused(DoesNotExist(kind.kind, name));
    company.Remove(kind.kind, name);
    return {Outcome::Deleted, {}};
  }

  std::vector<std::string> missing = FindMissingReferences(object, kind, known == nullptr, company);
  if (!missing.empty()) return {Outcome::Created, std::move(missing)};
  Master master = known == nullptr ? Master{name, {}, {}, false} : *known;
  if (action == "alter" && !ownName.empty()) master.name = ownName;
  if (names.size() > 1) master.alias = names[1];
  if (const auto parent = ChildText(object, "PARENT")) master.parent = *parent;
  if (const auto prevents = ChildText(object, "PREVENTDUPLICATES"))
    master.preventsDuplicates = SameName(*prevents, "Yes");
  const Outcome outcome = known == nullptr ? Outcome::Created : Outcome::Altered;
  company.Put(kind.kind, name, std::move(master));
  return {outcome, {}};
}

Result ImportVoucher(const XmlNode& voucher, CompanyBooks& company, const Rules& rules) {
  const std::string remoteId(TrimName(voucher.Attribute("REMOTEID").value_or("")));
  if (FoldName(voucher.Attribute("ACTION").value_or("")) == "delete") {
    if (company.RemoveVoucher(remoteId)) return {Outcome::Deleted, {}};
    return Refused("Voucher '" + remoteId + "' does not exist!");
  }
  CheckedVoucher checked = CheckVoucher(voucher, company, rules);
  if (!checked.faults.empty()) return {Outcome::Created, std::move(checked.faults)};
  if (checked.isRefusedSilently) return {Outcome::Excepted, {}};
  const auto [id, isNew] = company.PutVoucher(std::move(checked.voucher));
  return {isNew ? Outcome::Created : Outcome::Altered, {}, id};
}

Result ImportObject(const XmlNode& object, CompanyBooks& company, const Rules& rules) {
  if (const MasterKind* kind = FindKindByElement(object.NodeName()))
    return ImportMaster(object, *kind, company);
  if (object.NodeName() == "VOUCHER") return ImportVoucher(object, company, rules);
  return Refused("The practice gateway keeps no objects of the kind '" + object.NodeName() + "'!");
}

void Count(Result result, ImportCounts& counts) {
  if (!result.lineErrors.empty()) {
    ++counts.errors;
    std::move(result.lineErrors.begin(), result.lineErrors.end(),
              std::back_inserter(counts.lineErrors));
    return;
  }
  if (result.voucherId != 0) counts.lastVoucherId = result.voucherId;
  switch (result.outcome) {
    case Outcome::Created:
      ++counts.created;
      break;
    case Outcome::Altered:
      ++counts.altered;
      break;
    case Outcome::Deleted:
      ++counts.deleted;
      break;
    case Outcome::Excepted:
      ++counts.exceptions;
      break;
  }
}

}  // namespace

ImportCounts ImportMessages(const XmlNode& data, CompanyBooks& company, const Rules& rules) {
  ImportCounts counts;
  for (const XmlNode* message : data.Children()) {
    if (message->NodeName() != "TALLYMESSAGE") continue;
    for (const XmlNode* object : message->Children())
      if (object->Type() == NodeType::Element) Count(ImportObject(*object, company, rules), counts);
  }
  return counts;
}

}  // namespace vorlane::practice
