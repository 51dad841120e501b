#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vorlane::vouchers {

/// When a tag stands, and what it holds. Most take their column's text and stand
/// when there is any.
enum class TagRule : std::uint8_t {
  IfAny,
  IfNotZero,      ///< when Val of the column is not zero
  RateList,       ///< the tag's own list around it, when Val without "%" is above zero
  PlainRateList,  ///< the same by Val of the text as it stands, so "%5" gives none
  Constant,       ///< always, with the text that stands in the column's place
  BankEntryName,  ///< the voucher's GUID, the column and the row's Date_, run together
  ReferenceDate,  ///< a user-defined list around the date, when there is any
  DateList,       ///< the tag's own list around it, unless the column is null
};

struct VoucherTag {
  std::string_view tag;
  std::string_view column;  ///< of the staging table
  TagRule rule = TagRule::IfAny;
};

/// Which rows of a table make an element.
enum class RowRule : std::uint8_t {
  Every,
  AmountNotZero,     ///< the amount as it stands is a number other than zero
  AmountValNotZero,  ///< Val of the amount is not zero
};

/// How the rows of a table become elements.
enum class ListShape : std::uint8_t {
  OnePerRow,
  OneForAll,      ///< one element around the tags of all rows
  RunningParent,  ///< one a row, each the parent of all that follows in the entry
  ByCategory,     ///< neighbours of one category under one element
  SplitText,      ///< one a row, its text cut at "#" into tags
};

/// Where a list's elements hang.
enum class ListPlace : std::uint8_t {
  InParent,
  InLatestEntry,  ///< the last ledger entry, order reference or delivery note
};

/// A list of the voucher document: the table that it reads, and what each row
/// becomes. Rows come in the order of their ids as numbers.
struct VoucherList {
  std::string_view element;
  std::string_view table;
  std::string_view rowId;
  std::string_view parentKey;  ///< the column of the parent row's id; empty under the voucher
  std::span<const VoucherTag> tags;
  std::span<const VoucherList* const> nested = {};
  RowRule rows = RowRule::Every;
  ListShape shape = ListShape::OnePerRow;
  ListPlace place = ListPlace::InParent;
  std::string_view rowOrder = {};  ///< an order other than by val(rowId)
};

/// The tags of the voucher itself, from the table Voucher.
extern const std::span<const VoucherTag> kHeadTags;
/// The lists in front of the head tags, and those behind them, in order.
extern const std::span<const VoucherList* const> kListsBeforeHead;
extern const std::span<const VoucherList* const> kListsAfterHead;

}  // namespace vorlane::vouchers
