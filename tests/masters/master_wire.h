#pragma once

#include <string>
#include <string_view>

#include "tests/text_lines.h"

namespace vorlane::masters {

/// The body of an import with one master in it, whose lines `master` has at their
/// place in the document. An empty company names none.
inline std::string ImportOf(std::string_view master,
                            std::string_view company = "Practice Traders") {
  std::string text = tests::Lines(R"(
<ENVELOPE>
  <HEADER>
    <TALLYREQUEST> Import Data </TALLYREQUEST>
  </HEADER>
  <BODY>
    <IMPORTDATA>
      <REQUESTDESC>
        <REPORTNAME>All Masters</REPORTNAME>
)");
  if (company.empty()) {
    text += "        <STATICVARIABLES/>\r\n";
  } else {
    text += "        <STATICVARIABLES>\r\n          <SVCURRENTCOMPANY>";
    text.append(company).append("</SVCURRENTCOMPANY>\r\n        </STATICVARIABLES>\r\n");
  }
  text += tests::Lines(R"(
      </REQUESTDESC>
      <REQUESTDATA>
        <TALLYMESSAGE xmlns:UDF="TallyUDF">
)");
  return text + tests::Lines(master) + tests::Lines(R"(
        </TALLYMESSAGE>
      </REQUESTDATA>
    </IMPORTDATA>
  </BODY>
</ENVELOPE>)");
}

}  // namespace vorlane::masters
