#include "practice/names.h"

namespace vorlane::practice {

std::string_view TrimName(std::string_view name) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = name.find_first_not_of(kBlanks);
  if (first == name.npos) return {};
  return name.substr(first, name.find_last_not_of(kBlanks) - first + 1);
}

std::string FoldName(std::string_view name) {
  std::string folded(TrimName(name));
  for (char& c : folded)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return folded;
}

}  // namespace vorlane::practice
