#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/data/connection.h"
#include "platform/runtime/failure.h"
#include "sources/load.h"
#include "sources/register_loading.h"
#include "tests/sources/words.h"

namespace vorlane::sources {

/// A source of tables that a test writes down: a line a row, the header first,
/// "|" between cells. An empty cell is null.
class MadeTables : public platform::Connection {
 public:
  using Tables = std::vector<std::pair<std::string, std::string_view>>;

  explicit MadeTables(Tables tables) : tables_(std::move(tables)) {}

  platform::Recordset OpenSchema() override {
    std::string names = "TABLE_NAME";
    for (const auto& [name, text] : tables_) names += "\n" + name;
    return Read(names);
  }
  platform::Recordset Open(const platform::Query& query) override {
    for (const auto& [name, text] : tables_) {
      if (name == query.table) return Read(text);
    }
    throw platform::Failure(1, "MadeTables", "no table " + query.table);
  }

 private:
  static platform::Recordset Read(std::string_view text) {
    if (text.starts_with('\n')) text.remove_prefix(1);
    const std::vector<std::string> lines = tests::SplitAt(text, '\n');
    std::vector<platform::Field> fields;
    for (const std::string& name : tests::SplitAt(lines[0], '|')) fields.push_back({name});
    auto cells = std::make_shared<platform::TextTable>(fields.size());
    for (std::size_t row = 1; row < lines.size(); ++row) {
      cells->AppendRow();
      const std::vector<std::string> texts = tests::SplitAt(lines[row], '|');
      for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!texts[i].empty()) cells->Set(row - 1, i, texts[i]);
      }
    }
    return {std::move(fields), std::move(cells)};
  }

  Tables tables_;
};

/// Loads a register and its map from such tables, as from a workbook or from
/// another kind of source.
inline void LoadRegister(form::ImportForm& form, std::string_view rows, std::string_view map,
                         const LoaderRules& rules = kExcelLoader) {
  static const std::string kSheet = "VoucherRegister";
  const std::string sign = &rules == &kExcelLoader ? "$" : "";
  LoadRegisterRows(form, {rules, kSheet, [&] { return kSheet + sign; }, kSheet + "Map" + sign,
                          [&] {
                            return std::make_unique<MadeTables>(MadeTables::Tables{
                                {"VOUCHERREGISTER" + sign, rows}, {kSheet + "Map" + sign, map}});
                          }});
}

}  // namespace vorlane::sources
