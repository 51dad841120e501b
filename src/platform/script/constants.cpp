#include "platform/script/constants.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace vorlane::platform::script {
namespace {

struct ConstantRow {
  std::string_view name;
  Value value;
};

Value Number(std::int16_t number) { return number; }
Value Text(std::string_view text) { return Value(text); }

// Sorted by name.
// clang-format off
const ConstantRow kConstants[] = {
    {"VBARRAY",              Value(std::int32_t{8192})},
    {"VBBINARYCOMPARE",      Number(0)},
    {"VBBOOLEAN",            Number(11)},
    {"VBBYTE",               Number(17)},
    {"VBCR",                 Text("\r")},
    {"VBCRLF",               Text("\r\n")},
    {"VBCURRENCY",           Number(6)},
    {"VBDATE",               Number(7)},
    {"VBDOUBLE",             Number(5)},
    {"VBEMPTY",              Number(0)},
    {"VBERROR",              Number(10)},
    {"VBFALSE",              Number(0)},
    {"VBFIRSTFOURDAYS",      Number(2)},
    {"VBFIRSTFULLWEEK",      Number(3)},
    {"VBFIRSTJAN1",          Number(1)},
    {"VBFORMFEED",           Text("\f")},
    {"VBFRIDAY",             Number(6)},
    {"VBGENERALDATE",        Number(0)},
    {"VBINTEGER",            Number(2)},
    {"VBLF",                 Text("\n")},
    {"VBLONG",               Number(3)},
    {"VBLONGDATE",           Number(1)},
    {"VBLONGTIME",           Number(3)},
    {"VBMONDAY",             Number(2)},
    {"VBNEWLINE",            Text("\r\n")},
    {"VBNULL",               Number(1)},
    {"VBNULLCHAR",           Text(std::string_view("\0", 1))},
    {"VBNULLSTRING",         Text("")},
    {"VBOBJECT",             Number(9)},
    {"VBSATURDAY",           Number(7)},
    {"VBSHORTDATE",          Number(2)},
    {"VBSHORTTIME",          Number(4)},
    {"VBSINGLE",             Number(4)},
    {"VBSTRING",             Number(8)},
    {"VBSUNDAY",             Number(1)},
    {"VBTAB",                Text("\t")},
    {"VBTEXTCOMPARE",        Number(1)},
    {"VBTHURSDAY",           Number(5)},
    {"VBTRUE",               Number(-1)},
    {"VBTUESDAY",            Number(3)},
    {"VBUSEDEFAULT",         Number(-2)},
    {"VBUSESYSTEM",          Number(0)},
    {"VBUSESYSTEMDAYOFWEEK", Number(0)},
    {"VBVARIANT",            Number(12)},
    {"VBVERTICALTAB",        Text("\v")},
    {"VBWEDNESDAY",          Number(4)},
};
// clang-format on

}  // namespace

const Value* FindConstant(const FoldedWord& name) {
  // All begin alike, and most names don't.
  if (!name.View().starts_with("VB")) return nullptr;
  const auto* row = std::ranges::lower_bound(kConstants, name.View(), {}, &ConstantRow::name);
  return row != std::end(kConstants) && row->name == name.View() ? &row->value : nullptr;
}

}  // namespace vorlane::platform::script
