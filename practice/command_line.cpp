#include "practice/command_line.h"

#include <charconv>
#include <string_view>

#include "practice/vouchers.h"

namespace vorlane::practice {
namespace {

template <typename Number>
bool ReadNumber(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

bool ReadText(const std::string& text, std::string& into) {
  into = text;
  return !text.empty();
}

bool AddText(const std::string& text, std::vector<std::string>& into) {
  into.push_back(text);
  return !text.empty();
}

// "2024-04-01" as eight digits.
std::optional<std::string> ReadIsoDay(const std::string& text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  return ReadTallyDate(text.substr(0, 4) + text.substr(5, 2) + text.substr(8));
}

// "2024-04-01..2025-03-31"
bool ReadPeriod(const std::string& text, std::optional<Period>& period) {
  const std::size_t dots = text.find("..");
  if (dots == text.npos) return false;
  const auto from = ReadIsoDay(text.substr(0, dots));
  const auto to = ReadIsoDay(text.substr(dots + 2));
  if (!from || !to || *from > *to) return false;
  period = Period{*from, *to};
  return true;
}

bool ReadRefusals(std::string_view text, bool& silently) {
  silently = text == "silent";
  return silently || text == "told";
}

struct Option {
  std::string_view name;
  bool (*take)(const std::string& value, Settings& settings);
};

// clang-format off
constexpr Option kOptions[] = {
    {"--port",           [](auto& v, Settings& s) { return ReadNumber(v, s.port); }},
    {"--company",        [](auto& v, Settings& s) { return AddText(v, s.companies); }},
    {"--books",          [](auto& v, Settings& s) { return ReadText(v, s.booksFile); }},
    {"--period",         [](auto& v, Settings& s) { return ReadPeriod(v, s.rules.period); }},
    {"--unique-numbers", [](auto& v, Settings& s) { return AddText(v, s.rules.uniqueNumbers); }},
    {"--refusals",       [](auto& v, Settings& s) { return ReadRefusals(v, s.rules.refusesSilently); }},
    {"--seed",           [](auto& v, Settings& s) { return AddText(v, s.seeds); }},
    {"--record",         [](auto& v, Settings& s) { return ReadText(v, s.recordFolder); }},
    {"--stop-after",     [](auto& v, Settings& s) { return ReadNumber(v, s.stopAfter.emplace()); }},
};
// clang-format on

bool TakeOption(const std::string& name, const std::string& value, Settings& settings) {
  for (const Option& option : kOptions)
    if (name == option.name) return option.take(value, settings);
  return false;
}

}  // namespace

const char* const kUsage =
    "Usage: vorlane-practice [--port PORT] [--company NAME]... [--books FILE]\n"
    "                        [--period YYYY-MM-DD..YYYY-MM-DD] [--unique-numbers TYPE]...\n"
    "                        [--refusals told|silent]\n"
    "                        [--seed FILE|FOLDER]... [--record FOLDER] [--stop-after SECONDS]\n";

bool AsksForHelp(const std::vector<std::string>& arguments) {
  return arguments.size() == 1 && (arguments.front() == "--help" || arguments.front() == "-h");
}

std::variant<Settings, std::string> ReadArguments(const std::vector<std::string>& arguments) {
  Settings settings;
  for (std::size_t i = 0; i < arguments.size(); i += 2)
    if (i + 1 == arguments.size() || !TakeOption(arguments[i], arguments[i + 1], settings))
      return arguments[i];
  return settings;
}

}  // namespace vorlane::practice
