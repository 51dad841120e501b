#pragma once

#include <string>
#include <vector>

#include "platform/xml/xml_document.h"
#include "practice/books.h"

namespace vorlane::practice {

/// What an import did, summed over its request.
struct ImportCounts {
  int created = 0;
  int altered = 0;
  int deleted = 0;
  int lastVoucherId = 0;  ///< 0 without a voucher
  int lastMasterId = 0;   ///< stays 0, as the product leaves it for masters
  int combined = 0;
  int ignored = 0;
  int errors = 0;
  int cancelled = 0;
  int exceptions = 0;
  std::vector<std::string> lineErrors;
};

/// Imports every object of every TALLYMESSAGE below `data`, one after the other;
/// a refused object counts as an error with its line and stops no other one.
ImportCounts ImportMessages(const platform::XmlNode& data, CompanyBooks& company,
                            const Rules& rules);

}  // namespace vorlane::practice
