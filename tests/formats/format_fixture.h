#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "formats/template_expansion.h"
#include "platform/runtime/failure.h"
#include "platform/xml/xml_document.h"
#include "tests/form/form_fixture.h"
#include "tests/form/table_of.h"

namespace vorlane::formats {

/// A row of a format table as a test writes it: cells parted by "|", "-" for
/// null.
class FormatWriter {
 public:
  explicit FormatWriter(staging::StagingStore& store) : store_(store) {}

  /// TName | TType | TNo | TSource
  void Format(std::string_view row) { Insert("VorlaneMst_", row); }
  /// SetNo | SrNo | GroupName | TagName | TagType | DefValue | fieldName | ValFormat, of format 1
  void Tag(std::string_view row) { Insert("VorlaneDet_", "1|" + std::string(row)); }
  /// ParentName | GroupName | SetNo | SetOn, of format 1
  void Group(std::string_view row) { Insert("VorlaneGrp_", "1|" + std::string(row)); }

 private:
  void Insert(std::string_view table, std::string_view row) {
    std::string values;
    std::vector<std::string_view> texts;
    while (true) {
      const std::size_t end = row.find('|');
      const std::string_view cell = row.substr(0, end);
      values += values.empty() ? "" : ",";
      values += cell == "-" ? "null" : "?";
      if (cell != "-") texts.push_back(cell);
      if (end == std::string_view::npos) break;
      row.remove_prefix(end + 1);
    }
    store_.Execute("Insert into " + std::string(table) + " values (" + values + ")", texts);
  }

  staging::StagingStore& store_;
};

/// A form whose grid a test lays down and a format that it writes.
class FormatTest : public testing::Test, protected form::PostingFixture {
 protected:
  FormatTest() {
    for (const char* table : {"VorlaneMst_", "VorlaneDet_", "VorlaneGrp_"}) {
      store_.Execute("Delete from " + std::string(table));
    }
  }

  /// Shows the rows and, as a load does, two empty ones behind them.
  void Show(const std::vector<std::string>& header,
            const std::vector<std::vector<std::string>>& rows) {
    const platform::Recordset table = form::TableOf(header, rows);
    form_.lstLedgerTree.Bind(table);
    form_.GR1.ShowSource(form_.lstLedgerTree.Fields(), form_.lstLedgerTree.Rows());
    form_.GR1.AddColumn(form::ImportGrid::kStatusKey, form::ImportGrid::kStatusHeader);
    for (std::size_t row = 0; row < rows.size(); ++row) form_.GR1.AddSourceRow(row);
    form_.GR1.AddRow();
    form_.GR1.AddRow();
  }

  FormatWriter tables_{store_};
};

}  // namespace vorlane::formats
