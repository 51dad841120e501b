#pragma once

#include <string>
#include <vector>

#include "platform/data/recordset.h"

namespace vorlane::platform {

/// The field names, then the records, values with "|" between them and null as "-".
inline std::vector<std::string> LinesOf(Recordset recordset) {
  std::vector<std::string> lines(1);
  for (const Field& field : recordset.Fields()) {
    lines[0].append(lines[0].empty() ? "" : "|").append(field.name);
  }
  for (; !recordset.Eof(); recordset.MoveNext()) {
    std::string line;
    for (std::size_t i = 0; i < recordset.Fields().size(); ++i) {
      line.append(i > 0 ? "|" : "").append(recordset.Value(i).value_or("-"));
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace vorlane::platform
