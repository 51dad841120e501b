#include "platform/script/functions.h"

#include <algorithm>
#include <vector>

#include "platform/script/convert.h"
#include "platform/script/fault.h"

namespace vorlane::platform::script {
namespace {

std::vector<FunctionRow> SortedFunctions() {
  std::vector<FunctionRow> rows;
  for (const std::span<const FunctionRow> some :
       {TextFunctions(), SearchFunctions(), NumberFunctions(), FormatFunctions(), DateFunctions(),
        TypeFunctions()}) {
    rows.insert(rows.end(), some.begin(), some.end());
  }
  std::ranges::sort(rows, {}, &FunctionRow::name);
  return rows;
}

}  // namespace

const FunctionRow* FindFunction(const FoldedWord& name) {
  static const std::vector<FunctionRow> rows = SortedFunctions();
  const auto row = std::ranges::lower_bound(rows, name.View(), {}, &FunctionRow::name);
  return row != rows.end() && row->name == name.View() ? &*row : nullptr;
}

const std::string& Arguments::Text(std::size_t at) {
  Value& value = values_[at];
  if (!value.Is(Kind::Text)) value = ToText(value, name_);
  return value.Text();
}

double Arguments::Real(std::size_t at) const { return ToReal(values_[at], name_); }

std::int32_t Arguments::Long(std::size_t at) const { return ToLong(values_[at], name_); }

std::int32_t Arguments::Long(std::size_t at, std::int32_t otherwise) const {
  return Has(at) ? Long(at) : otherwise;
}

std::int16_t Arguments::Integer(std::size_t at) const { return ToInteger(values_[at], name_); }

DateTime Arguments::When(std::size_t at) const { return ToDateTime(values_[at], name_); }

std::int32_t Arguments::LongBetween(std::size_t at, std::int32_t least, std::int32_t most) const {
  const std::int32_t number = Long(at);
  if (number < least || number > most) FailCall();
  return number;
}

std::int32_t Arguments::LongBetween(std::size_t at, std::int32_t least, std::int32_t most,
                                    std::int32_t otherwise) const {
  return Has(at) ? LongBetween(at, least, most) : otherwise;
}

std::size_t Arguments::Size(std::size_t at, std::int32_t least) const {
  return static_cast<std::size_t>(LongBetween(at, least, std::numeric_limits<std::int32_t>::max()));
}

void Arguments::FailCall() const { Raise(kInvalidCall, name_); }
void Arguments::FailSpace() const { Raise(kOutOfTextSpace, name_); }
void Arguments::FailType() const { Raise(kTypeMismatch, name_); }

}  // namespace vorlane::platform::script
