#include "vouchers/voucher_walk.h"

#include <algorithm>
#include <optional>

#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::vouchers {

using platform::Failure;
using platform::XmlNode;
using staging::Statement;

namespace {

/// The amount as it stands against the number zero. A text that is no number,
/// such as an amount in two currencies, is another thing than zero; null is no
/// amount.
bool IsAmountNotZero(std::optional<std::string_view> amount) {
  if (!amount) return false;
  const auto number = platform::ParseNumber(*amount);
  return !number || *number != 0;
}

bool IsWanted(RowRule rule, std::optional<std::string_view> amount) {
  switch (rule) {
    case RowRule::Every:
      return true;
    case RowRule::AmountNotZero:
      return IsAmountNotZero(amount);
    case RowRule::AmountValNotZero:
      return amount && platform::Val(*amount) != 0;
  }
  return true;
}

double RateOf(std::string_view text) {
  return platform::Val(platform::ReplaceAll(std::string(text), "%", ""));
}

[[noreturn]] void FailWithoutPlace(std::string_view element) {
  throw Failure(
      platform::failure_number::kObjectNotSet, "WriteVoucherDocument",
      "The voucher has no element that could take " + std::string(element) + "; it was not sent.");
}

}  // namespace

void VoucherWalk::WriteVoucher(XmlNode* voucher, std::string_view action) {
  XmlNode* parent = voucher;
  WriteLists(writer_.beforeHead_, {}, parent);
  WriteHead(voucher, action);
  WriteLists(writer_.afterHead_, {}, parent);
}

void VoucherWalk::WriteHead(XmlNode* voucher, std::string_view action) {
  Statement row = writer_.store_.Query(writer_.headSql_, {companyName_, vchID_});
  if (!row.Step()) return;  // the lists are written all the same
  guid_ = row.TextOrEmpty(0);
  builder_.AddAttribute(voucher, "REMOTEID", guid_);
  builder_.AddAttribute(voucher, "VCHTYPE", row.TextOrEmpty(1));
  builder_.AddAttribute(voucher, "ACTION", action);
  std::size_t column = 2;
  for (const VoucherTag& tag : kHeadTags) WriteTag(tag, voucher, row, column++);
}

void VoucherWalk::WriteLists(const Lists& lists, std::string_view parentId, XmlNode*& parent) {
  for (const ListRead& read : lists) {
    if (HasRows(read)) WriteList(read, parentId, parent);
  }
}

bool VoucherWalk::HasRows(const ListRead& read) {
  if (read.probeSql.empty()) return true;
  for (const auto& [known, has] : hasRows_) {
    if (known == &read) return has;
  }
  const bool has = writer_.store_.Query(read.probeSql, {companyName_, vchID_}).Step();
  hasRows_.emplace_back(&read, has);
  return has;
}

void VoucherWalk::WriteList(const ListRead& read, std::string_view parentId, XmlNode*& parent) {
  const VoucherList& list = *read.list;
  Statement row = list.parentKey.empty()
                      ? writer_.store_.Query(read.sql, {companyName_, vchID_})
                      : writer_.store_.Query(read.sql, {companyName_, vchID_, parentId});
  const bool readsCategory = list.shape == ListShape::ByCategory;
  const bool readsAmount = list.rows != RowRule::Every;
  if (readsCategory) category_.clear();
  XmlNode* shared = nullptr;
  while (row.Step()) {
    const std::string rowId(row.TextOrEmpty(0));
    std::size_t column = 1;
    const std::string category(readsCategory ? row.TextOrEmpty(column++) : "");
    if (readsAmount && !IsWanted(list.rows, row.Text(column++))) continue;
    XmlNode* element = ElementOf(list, parent, shared, category);
    if (list.shape == ListShape::OneForAll) shared = element;
    WriteTags(list, element, row, column);
    XmlNode* current = element;
    WriteLists(read.nested, rowId, current);
  }
}

XmlNode* VoucherWalk::ElementOf(const VoucherList& list, XmlNode*& parent, XmlNode* shared,
                                std::string_view category) {
  if (shared) return shared;
  XmlNode* place = parent;
  if (list.shape == ListShape::ByCategory) place = CategoryElement(parent, category);
  if (list.place == ListPlace::InLatestEntry) {
    place = lastLedgerEntry_ ? lastLedgerEntry_ : lastOrderRef_ ? lastOrderRef_ : lastDelNote_;
  }
  if (!place) FailWithoutPlace(list.element);
  XmlNode* element = builder_.AddElement(place, list.element);
  if (list.shape == ListShape::RunningParent) parent = element;
  RememberLatest(list, element);
  return element;
}

XmlNode* VoucherWalk::CategoryElement(XmlNode* parent, std::string_view category) {
  if (category != category_) {
    category_ = category;
    categoryElement_ = builder_.AddElement(parent, "CATEGORYALLOCATIONS.LIST");
    builder_.AddElementIfAny(categoryElement_, "CATEGORY", category);
  }
  return categoryElement_;
}

void VoucherWalk::RememberLatest(const VoucherList& list, XmlNode* element) {
  if (list.element == "LEDGERENTRIES.LIST") lastLedgerEntry_ = element;
  if (list.element == "INVOICEORDERLIST.LIST") lastOrderRef_ = element;
  if (list.element == "INVOICEDELNOTES.LIST") lastDelNote_ = element;
}

void VoucherWalk::WriteTags(const VoucherList& list, XmlNode* element, const Statement& row,
                            std::size_t column) {
  if (list.shape == ListShape::SplitText) {
    const std::string_view text = row.TextOrEmpty(column);
    for (std::size_t from = 0; from < text.size();) {
      const std::size_t end = std::min(text.find('#', from), text.size());
      builder_.AddElementIfAny(element, list.tags.front().tag, text.substr(from, end - from));
      from = end + 1;
    }
    return;
  }
  for (const VoucherTag& tag : list.tags) {
    WriteTag(tag, element, row, column);
    column += tag.rule == TagRule::BankEntryName ? 2 : 1;
  }
}

void VoucherWalk::WriteTag(const VoucherTag& tag, XmlNode* element, const Statement& row,
                           std::size_t column) {
  const std::optional<std::string_view> value = row.Text(column);
  const std::string_view text = value.value_or("");
  const auto listOf = [&] { return builder_.AddElement(element, std::string(tag.tag) + ".LIST"); };
  switch (tag.rule) {
    case TagRule::IfAny:
      builder_.AddElementIfAny(element, tag.tag, text);
      break;
    case TagRule::IfNotZero:
      if (platform::Val(text) != 0) builder_.AddElementIfAny(element, tag.tag, text);
      break;
    case TagRule::RateList:
      if (RateOf(text) > 0) builder_.AddElementIfAny(listOf(), tag.tag, text);
      break;
    case TagRule::PlainRateList:
      if (platform::Val(text) > 0) builder_.AddElementIfAny(listOf(), tag.tag, text);
      break;
    case TagRule::Constant:
      builder_.AddElementIfAny(element, tag.tag, tag.column);
      break;
    case TagRule::BankEntryName: {
      std::string name = guid_;
      name.append(text).append(row.TextOrEmpty(column + 1));
      builder_.AddElementIfAny(element, tag.tag, name);
      break;
    }
    case TagRule::ReferenceDate: {
      if (text.empty()) break;
      XmlNode* list = listOf();
      builder_.AddAttribute(list, "DESC", "`ReferenceDate`");
      builder_.AddAttribute(list, "ISLIST", "YES");
      builder_.AddAttribute(list, "TYPE", "Date");
      builder_.AddAttribute(builder_.AddElement(list, tag.tag, text), "DESC", "`ReferenceDate`");
      break;
    }
    case TagRule::DateList:
      // Null alone leaves the list out; an empty text gives an empty one.
      if (value) builder_.AddElementIfAny(listOf(), tag.tag, text);
      break;
  }
}

}  // namespace vorlane::vouchers
