#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "masters/master_loops.h"
#include "tests/form/form_fixture.h"
#include "tests/voucher_text.h"

namespace vorlane::masters {

using Lines = std::vector<std::string>;

/// A loop of masters that span rows, on CSV texts and scripted answers.
class HeldLoopTest : public testing::Test, protected form::PostingFixture {
 protected:
  HeldLoopTest(std::string entry, std::string element, void (*post)(form::ImportForm&))
      : entry_(std::move(entry)), element_(std::move(element)), post_(post) {}

  /// Posts rows whose imports are all taken; gives the masters that went out.
  Lines Post(std::string_view csv) {
    LoadCsvText(entry_, csv);
    const std::size_t before = Tally().Imports().size();
    ImportsAnswer(Lines(9, "<RESPONSE><CREATED>1</CREATED></RESPONSE>"));
    post_(form_);
    Lines sent;
    const Lines imports = Tally().Imports();
    for (std::size_t i = before; i < imports.size(); ++i) {
      sent.push_back(tests::ElementOf(imports[i], element_));
    }
    return sent;
  }

  /// Of each master its name, then the texts of these tags, in document order.
  Lines Tags(std::string_view csv, std::string_view tags) {
    Lines lines;
    for (const std::string& master : Post(csv)) {
      const std::size_t name = master.find('"') + 1;
      std::string line = master.substr(name, master.find('"', name) - name) + ":";
      for (std::size_t at = 0; (at = master.find('<', at)) != master.npos; ++at) {
        const std::string tag = master.substr(at + 1, master.find('>', at) - at - 1);
        if (tags.find(" " + tag + " ") == tags.npos) continue;
        const std::size_t text = at + tag.size() + 2;
        line += " " + master.substr(text, master.find('<', text) - text);
      }
      lines.push_back(line);
    }
    return lines;
  }

  /// The rows that have a status, "3 CREATED".
  Lines Statuses() const {
    Lines all;
    const form::ImportGrid& grid = form_.GR1;
    for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
      const std::string_view text = grid.Text(row, grid.ColumnIndex(form::ImportGrid::kStatusKey));
      if (!text.empty()) all.push_back(std::to_string(row) + " " + std::string(text));
    }
    return all;
  }

  /// How often Tally was asked for the master of that name.
  int Lookups(const std::string& name) {
    const std::string id =
        name.empty() ? "<ID TYPE=\"Name\"/>" : "<ID TYPE=\"Name\">" + name + "</ID>";
    int count = 0;
    for (const practice::Exchange& exchange : Tally().Exchanges()) {
      count += exchange.request.body.find(id) != name.npos;
    }
    return count;
  }

  /// Ticks "Ignore if already exists."; Tally knows these names alone.
  void SkipExisting(const Lines& names, const std::string& children = "") {
    form_.chkSkipMst.ticked = true;
    for (const std::string& name : names) {
      practice::Request request;
      request.method = "POST";
      request.body =
          "<ENVELOPE><HEADER><TALLYREQUEST>Import Data</TALLYREQUEST></HEADER><BODY>"
          "<IMPORTDATA><REQUESTDESC><REPORTNAME>All Masters</REPORTNAME></REQUESTDESC>"
          "<REQUESTDATA><TALLYMESSAGE><" +
          element_ + " NAME=\"" + name + "\" ACTION=\"Create\">" + children + "</" + element_ +
          ">" + "</TALLYMESSAGE></REQUESTDATA></IMPORTDATA></BODY></ENVELOPE>";
      Tally().Handle(request);
    }
  }

 private:
  std::string entry_;
  std::string element_;
  void (*post_)(form::ImportForm&);
};

}  // namespace vorlane::masters
