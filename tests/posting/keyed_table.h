#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorlane::posting {

/// A table for PostingTest::Show whose rows say what each of their cells is:
/// "Ledger=Rao|Credit=5". The first line names the columns that are there in any
/// case, with what rows hold that say nothing of them; others come behind, in the
/// order in which they are first named.
inline std::string KeyedTable(std::string_view columns, std::string_view rows) {
  using Cells = std::vector<std::pair<std::string, std::string>>;
  const auto cellsOf = [](std::string_view line) {
    Cells cells;
    while (!line.empty()) {
      const std::string_view cell = line.substr(0, line.find('|'));
      line.remove_prefix(std::min(cell.size() + 1, line.size()));
      const std::size_t sign = std::min(cell.find('='), cell.size());
      cells.emplace_back(cell.substr(0, sign), cell.substr(std::min(sign + 1, cell.size())));
    }
    return cells;
  };
  const auto find = [](Cells& cells, const std::string& key) {
    return std::find_if(cells.begin(), cells.end(), [&](auto& cell) { return cell.first == key; });
  };
  Cells header = cellsOf(columns);
  std::vector<Cells> table;
  while (!rows.empty()) {
    const std::string_view line = rows.substr(0, rows.find('\n'));
    rows.remove_prefix(std::min(line.size() + 1, rows.size()));
    if (line.empty()) continue;
    table.push_back(cellsOf(line));
    for (const auto& cell : table.back()) {
      if (find(header, cell.first) == header.end()) header.emplace_back(cell.first, "");
    }
  }
  std::string text = "SrNo";
  for (const auto& column : header) text += "|" + column.first;
  for (std::size_t row = 0; row < table.size(); ++row) {
    text += "\n" + std::to_string(row + 1);
    for (const auto& column : header) {
      const auto cell = find(table[row], column.first);
      text += "|" + (cell == table[row].end() ? column.second : cell->second);
    }
  }
  return text;
}

inline constexpr std::string_view kVoucherColumns =
    "VchType=Sales|VchNo=1|VchDate=01-04-2025|RefNo=R/1|Narration=n";
inline constexpr std::string_view kLedgerColumns =
    "VchType=Sales|VchNo=1|VchDate=01-04-2025|RefNo=R/1|Narration=n|Ledger|Debit|Credit|AdjMethod|"
    "AdjName|AdjDate|AdjAmount";
inline constexpr std::string_view kItemColumns =
    "VchType=Sales|VchNo=1|VchDate=01-04-2025|RefNo=R/1|Narration=n|Ledger|Debit|Credit|AdjMethod|"
    "AdjName|AdjDate|AdjAmount|ItemName|Quantity|Rate|Unit|GodownName";

}  // namespace vorlane::posting
