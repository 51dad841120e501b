#pragma once

#include <string>
#include <vector>

#include "platform/xml/xml_document.h"
#include "practice/books.h"

namespace vorlane::practice {

/// The lines that refuse a voucher, each once: masters that it names in vain, a
/// date that is missing or none, and, when that is all in order, unequal sides.
/// Empty when it can be taken.
std::vector<std::string> FindVoucherFaults(const platform::XmlNode& voucher,
                                           const CompanyBooks& company);

}  // namespace vorlane::practice
