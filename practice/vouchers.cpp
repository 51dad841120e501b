#include "practice/vouchers.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/runtime/date.h"
#include "practice/amounts.h"
#include "practice/names.h"
#include "practice/nodes.h"
#include "practice/references.h"

namespace vorlane::practice {
namespace {

using platform::NodeType;
using platform::XmlNode;

// The lists whose AMOUNT is a side of the voucher; all other lists divide up an
// amount that counts already.
enum class Side {
  Always,
  WithoutAccounts,  // a stock line, unless accounts below it carry its value
};
constexpr std::pair<std::string_view, Side> kSides[] = {
    {"LEDGERENTRIES.LIST", Side::Always},
    {"ALLLEDGERENTRIES.LIST", Side::Always},
    {"ACCOUNTINGALLOCATIONS.LIST", Side::Always},
    {"ALLINVENTORYENTRIES.LIST", Side::WithoutAccounts},
    {"INVENTORYENTRIES.LIST", Side::WithoutAccounts},
};

// Walks the lists of a voucher and gathers what is wrong with them.
class VoucherCheck {
 public:
  VoucherCheck(const CompanyBooks& company, const Rules& rules)
      : company_(company), rules_(rules) {}

  void CheckHead(const XmlNode& voucher) {
    std::string type = ChildText(voucher, "VOUCHERTYPENAME").value_or("");
    if (type.empty()) type = voucher.Attribute("VCHTYPE").value_or("");
    type = WithoutReservedMark(std::move(type));
    const Master* master = company_.Find(Kind::VoucherType, type);
    if (master == nullptr) Add(DoesNotExist(Kind::VoucherType, type));
    CheckDate(ChildText(voucher, "DATE").value_or(""));
    checked_.voucher.remoteId = TrimName(voucher.Attribute("REMOTEID").value_or(""));
    checked_.voucher.number = TrimName(ChildText(voucher, "VOUCHERNUMBER").value_or(""));
    checked_.voucher.party = ChildText(voucher, "PARTYLEDGERNAME").value_or("");
    if (master != nullptr) CheckNumber(*master);
  }

  void CheckReferences(const XmlNode& voucher) {
    for (std::string& line : FindMissingInLists(voucher, company_)) Add(std::move(line));
  }

  void AddSides(const XmlNode& node) {
    for (const XmlNode* child : node.Children()) {
      if (child->Type() != NodeType::Element) continue;
      const std::string list = child->NodeName();
      if (!list.ends_with(".LIST")) continue;
      for (const auto& [name, side] : kSides)
        if (list == name) AddSide(*child, side);
      AddSides(*child);
    }
  }

  CheckedVoucher Finish() {
    if (checked_.faults.empty() && !checked_.isRefusedSilently && debit_ + credit_ != 0)
      AddOfRules("Voucher Totals do not match! Dr. " + AmountText(-debit_) + " Cr. " +
                 AmountText(credit_) +
                 " Diff: " + AmountText(std::max(-debit_, credit_) - std::min(-debit_, credit_)));
    checked_.voucher.amount = AmountText(credit_);
    return std::move(checked_);
  }

 private:
  void Add(std::string line) {
    std::vector<std::string>& faults = checked_.faults;
    if (std::find(faults.begin(), faults.end(), line) == faults.end())
      faults.push_back(std::move(line));
  }

  /// A fault that the product may leave without a word.
  void AddOfRules(std::string line) {
    if (!rules_.refusesSilently) return Add(std::move(line));
    checked_.isRefusedSilently = true;
  }

  void CheckDate(const std::string& date);
  void CheckNumber(const Master& type);
  void AddSide(const XmlNode& line, Side side);

  const CompanyBooks& company_;
  const Rules& rules_;
  CheckedVoucher checked_;
  Amount debit_ = 0;  // negative, as debits are written
  Amount credit_ = 0;
};

bool AreDigits(std::string_view text, std::size_t least, std::size_t most) {
  return text.size() >= least && text.size() <= most &&
         text.find_first_not_of("0123456789") == text.npos;
}

// The eight digits of a day, if there is such a one; the month by its number or
// its three letters.
std::optional<std::string> DayDigits(const std::string& year, const std::string& month,
                                     const std::string& day) {
  std::string name = month;
  if (AreDigits(month, 1, 2)) {
    const int number = std::stoi(month);
    if (number < 1 || number > 12) return std::nullopt;
    name = platform::kMonthNames[static_cast<std::size_t>(number - 1)].substr(0, 3);
  }
  if (name.size() != 3) return std::nullopt;
  const auto date = platform::ParseDate(day + " " + name + " " + year);
  if (!date) return std::nullopt;
  std::string digits;
  platform::AppendPadded(date->year, 4, digits);
  platform::AppendPadded(date->month, 2, digits);
  platform::AppendPadded(date->day, 2, digits);
  return digits;
}

}  // namespace

std::optional<std::string> ReadTallyDate(const std::string& date) {
  if (AreDigits(date, 8, 8)) return DayDigits(date.substr(0, 4), date.substr(4, 2), date.substr(6));
  const std::size_t first = date.find('-');
  const std::size_t last = date.rfind('-');
  if (first == last) return std::nullopt;
  const std::string day = date.substr(0, first);
  const std::string year = date.substr(last + 1);
  if (!AreDigits(day, 1, 2) || !AreDigits(year, 4, 4)) return std::nullopt;
  return DayDigits(year, date.substr(first + 1, last - first - 1), day);
}

namespace {

void VoucherCheck::CheckDate(const std::string& date) {
  if (date.empty()) {
    Add("Voucher date is missing");
    return;
  }
  auto digits = ReadTallyDate(date);
  const std::optional<Period>& period = rules_.period;
  if (!digits || (period && (*digits < period->from || *digits > period->to)))
    AddOfRules("The date " + date + " is Out of Range");
  else
    checked_.voucher.date = *std::move(digits);
}

void VoucherCheck::CheckNumber(const Master& type) {
  checked_.voucher.type = type.name;
  bool once = type.preventsDuplicates;
  for (const std::string& name : rules_.uniqueNumbers)
    once = once || SameName(name, type.name) || SameName(name, type.alias);
  if (once && company_.Vouchers().HasNumberOf(checked_.voucher))
    AddOfRules("Voucher Number '" + checked_.voucher.number + "' already exists!");
}

void VoucherCheck::AddSide(const XmlNode& line, Side side) {
  if (side == Side::WithoutAccounts && FindChild(line, "ACCOUNTINGALLOCATIONS.LIST") != nullptr)
    return;
  const std::string text = ChildText(line, "AMOUNT").value_or("");
  if (const auto amount = ParseAmount(text)) {
    (*amount < 0 ? debit_ : credit_) += *amount;
    if (checked_.voucher.party.empty())
      checked_.voucher.party = ChildText(line, "LEDGERNAME").value_or("");
  } else {
    Add("Amount '" + text + "' is not a number!");  // in our own words
  }
}

}  // namespace

CheckedVoucher CheckVoucher(const XmlNode& voucher, const CompanyBooks& company,
                            const Rules& rules) {
  VoucherCheck check(company, rules);
  check.CheckHead(voucher);
  check.CheckReferences(voucher);
  check.AddSides(voucher);
  return check.Finish();
}

}  // namespace vorlane::practice
