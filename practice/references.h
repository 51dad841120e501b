#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/xml/xml_document.h"
#include "practice/books.h"

namespace vorlane::practice {

/// The line that refuses what names this master in vain.
std::string DoesNotExist(Kind kind, std::string_view name);

/// A line, once, for each master that a list inside `object` names in vain, at any
/// depth and in document order; the lists are those of vouchers and of stock items.
std::vector<std::string> FindMissingInLists(const platform::XmlNode& object,
                                            const CompanyBooks& company);

}  // namespace vorlane::practice
