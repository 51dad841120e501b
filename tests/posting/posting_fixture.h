#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/xml/xml_document.h"
#include "posting/voucher_loops.h"
#include "tests/form/form_fixture.h"
#include "tests/voucher_text.h"

namespace vorlane::posting {

using Texts = std::vector<std::string>;

inline const std::string kCreated = "<RESPONSE><CREATED>1</CREATED></RESPONSE>";
inline const std::string kRefused =
    "<RESPONSE><LINEERROR>No such ledger!</LINEERROR><ERRORS>1</ERRORS></RESPONSE>";
inline const std::string kRefusedDigest = "ERRORS No such ledger! - ";

/// One line for an import: the company, the voucher's REMOTEID, and its ledger
/// entries with their amounts and, in brackets, what hangs on them.
inline std::string Outline(const std::string& body) {
  platform::XmlDocument document;
  document.LoadXml(body);
  const auto textOf = [](const platform::XmlNode& node, std::string_view name) -> std::string {
    for (const platform::XmlNode* child : node.Children()) {
      if (child->NodeName() == name) return child->Text();
    }
    return "";
  };
  const auto company = document.SelectNodes("//SVCURRENTCOMPANY");
  std::string line = company.empty() ? "-" : company.front()->Text();
  const platform::XmlNode& voucher = *document.SelectNodes("//VOUCHER").front();
  line += "/" + voucher.Attribute("REMOTEID").value_or("") + ":";
  for (const platform::XmlNode* entry : voucher.Children()) {
    if (!entry->NodeName().ends_with("LEDGERENTRIES.LIST")) continue;
    line += " " + textOf(*entry, "LEDGERNAME") + " " + textOf(*entry, "AMOUNT");
    if (textOf(*entry, "ISPARTYLEDGER") == "Yes") line += " party";
    for (const platform::XmlNode* list : entry->Children()) {
      if (list->NodeName() == "BILLALLOCATIONS.LIST") {
        line += " [bill " + textOf(*list, "NAME") + " " + textOf(*list, "BILLTYPE") + " " +
                textOf(*list, "AMOUNT") + "]";
      } else if (list->NodeName() == "BANKALLOCATIONS.LIST") {
        line += " [bank " + textOf(*list, "AMOUNT") + "]";
      } else if (list->NodeName() == "CATEGORYALLOCATIONS.LIST") {
        line += " [cost " + textOf(*list, "CATEGORY") + ":";
        for (const platform::XmlNode* centre : list->Children()) {
          const std::string name = textOf(*centre, "NAME");
          if (!name.empty()) line += " " + name + " " + textOf(*centre, "AMOUNT");
        }
        line += "]";
      }
    }
    line += ",";
  }
  if (line.back() == ',') line.pop_back();
  return line;
}

/// A voucher loop on a grid that a test lays down.
class PostingTest : public testing::Test, protected form::PostingFixture {
 protected:
  using Loop = void (*)(form::ImportForm&);

  /// Shows a table as a load does, and the two empty rows behind it, but without
  /// its repairs: lines of cells parted by "|", the header first.
  void Show(std::string_view table) {
    std::vector<Texts> rows;
    for (const std::string& line : Split(table, '\n')) {
      if (!line.empty()) rows.push_back(Split(line, '|'));
    }
    std::vector<platform::Field> fields;
    for (const std::string& name : rows.front()) fields.push_back({name});
    auto cells = std::make_shared<platform::TextTable>(fields.size());
    for (std::size_t row = 1; row < rows.size(); ++row) {
      cells->AppendRow();
      for (std::size_t i = 0; i < rows[row].size(); ++i) cells->Set(row - 1, i, rows[row][i]);
    }
    form_.lstLedgerTree.Bind(platform::Recordset(fields, cells));
    form_.GR1.ShowSource(fields, cells);
    form_.GR1.AddColumn(form::ImportGrid::kStatusKey, form::ImportGrid::kStatusHeader);
    for (std::size_t row = 1; row < rows.size(); ++row) form_.GR1.AddSourceRow(row - 1);
    form_.GR1.AddRow();
    form_.GR1.AddRow();
  }

  /// Posts a table whose imports get these answers, in short "+" for created and
  /// "-" for refused; gives the outlines of what was sent.
  Texts Post(Loop loop, std::string_view table, std::string_view answers) {
    Show(table);
    return Run(loop, answers);
  }
  Texts Run(Loop loop, std::string_view answers) {
    const std::size_t before = Tally().Imports().size();
    for (const char answer : answers) ImportsAnswer({answer == '+' ? kCreated : kRefused});
    loop(form_);
    Texts sent;
    const Texts imports = Tally().Imports();
    for (std::size_t i = before; i < imports.size(); ++i) sent.push_back(Outline(imports[i]));
    EXPECT_EQ(sent.size(), answers.size());
    return sent;
  }

  /// The cells of a staging table, rows parted by "; " and in the order of their keys.
  std::string Staged(const std::string& columns, const std::string& table, std::size_t count) {
    std::string all;
    staging::Statement read = store_.Query("Select " + columns + " from " + table);
    while (read.Step()) {
      if (!all.empty()) all += "; ";
      for (std::size_t i = 0; i < count; ++i) {
        all.append(i == 0 ? "" : ",").append(read.TextOrEmpty(i));
      }
    }
    return all;
  }

  static Texts Split(std::string_view text, char by) {
    Texts pieces{""};
    for (const char c : text) {
      if (c == by) {
        pieces.emplace_back();
      } else {
        pieces.back() += c;
      }
    }
    return pieces;
  }
};

}  // namespace vorlane::posting
