#include "platform/script/words.h"

#include <algorithm>
#include <iterator>

namespace vorlane::platform::script {
namespace {

// In the order of the operators.
constexpr Binding kBindings[] = {
    Binding::Imp,        Binding::Eqv,           Binding::Xor,        Binding::Or,
    Binding::And,        Binding::Not,           Binding::Comparison, Binding::Comparison,
    Binding::Comparison, Binding::Comparison,    Binding::Comparison, Binding::Comparison,
    Binding::Comparison, Binding::Concatenate,   Binding::Sum,        Binding::Sum,
    Binding::Modulo,     Binding::IntegerDivide, Binding::Product,    Binding::Product,
    Binding::Power,
};

struct WordRow {
  std::string_view name;
  Word word;
};

using Role = Word::Role;

// Sorted by name.
// clang-format off
constexpr WordRow kWords[] = {
    {"AND",      {Role::Operator, Operator::And}},
    {"AS",       {Role::Reserved}},
    {"BYREF",    {Role::Reserved}},
    {"BYVAL",    {Role::Reserved}},
    {"CALL",     {Role::Reserved}},
    {"CASE",     {Role::Reserved}},
    {"CLASS",    {Role::Reserved}},
    {"CONST",    {Role::Reserved}},
    {"DIM",      {Role::Reserved}},
    {"DO",       {Role::Reserved}},
    {"EACH",     {Role::Reserved}},
    {"ELSE",     {Role::Reserved}},
    {"ELSEIF",   {Role::Reserved}},
    {"EMPTY",    {Role::Empty}},
    {"END",      {Role::Reserved}},
    {"EQV",      {Role::Operator, Operator::Eqv}},
    {"EXIT",     {Role::Reserved}},
    {"FALSE",    {Role::False}},
    {"FOR",      {Role::Reserved}},
    {"FUNCTION", {Role::Reserved}},
    {"GOTO",     {Role::Reserved}},
    {"IF",       {Role::Reserved}},
    {"IMP",      {Role::Operator, Operator::Imp}},
    {"IN",       {Role::Reserved}},
    {"IS",       {Role::Operator, Operator::Is}},
    {"LET",      {Role::Reserved}},
    {"LOOP",     {Role::Reserved}},
    {"ME",       {Role::Reserved}},
    {"MOD",      {Role::Operator, Operator::Modulo}},
    {"NEW",      {Role::Reserved}},
    {"NEXT",     {Role::Reserved}},
    {"NOT",      {Role::Operator, Operator::Not}},
    {"NOTHING",  {Role::Nothing}},
    {"NULL",     {Role::Null}},
    {"ON",       {Role::Reserved}},
    {"OPTION",   {Role::Reserved}},
    {"OR",       {Role::Operator, Operator::Or}},
    {"PRIVATE",  {Role::Reserved}},
    {"PUBLIC",   {Role::Reserved}},
    {"REDIM",    {Role::Reserved}},
    {"REM",      {Role::Reserved}},
    {"RESUME",   {Role::Reserved}},
    {"SELECT",   {Role::Reserved}},
    {"SET",      {Role::Reserved}},
    {"SUB",      {Role::Reserved}},
    {"THEN",     {Role::Reserved}},
    {"TO",       {Role::Reserved}},
    {"TRUE",     {Role::True}},
    {"UNTIL",    {Role::Reserved}},
    {"WEND",     {Role::Reserved}},
    {"WHILE",    {Role::Reserved}},
    {"WITH",     {Role::Reserved}},
    {"XOR",      {Role::Operator, Operator::Xor}},
};
// clang-format on
static_assert(std::ranges::is_sorted(kWords, {}, &WordRow::name));

}  // namespace

Binding BindingOf(Operator op) { return kBindings[static_cast<std::size_t>(op)]; }

FoldedWord::FoldedWord(std::string_view word) : length_(std::min(word.size(), kLongest)) {
  std::transform(
      word.begin(), word.begin() + static_cast<std::ptrdiff_t>(length_), letters_.begin(),
      [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
}

Word FindWord(const FoldedWord& word) {
  const auto* row = std::ranges::lower_bound(kWords, word.View(), {}, &WordRow::name);
  if (row == std::end(kWords) || row->name != word.View()) return {};
  return row->word;
}

}  // namespace vorlane::platform::script
