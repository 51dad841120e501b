#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "practice/books.h"
#include "practice/import.h"

// The texts that the product's gateway answers with: a line an element, one blank
// of indent a level, lines ending in CR LF, `&apos;` for an apostrophe.

namespace vorlane::practice {

/// `<RESPONSE>TallyPrime Server is Running</RESPONSE>`
std::string BannerAnswer();
/// What anything that is not understood gets.
std::string UnknownRequestAnswer();

/// The counters of an import: bare in RESPONSE for the old envelope, in
/// IMPORTRESULT for the new one.
std::string OldImportAnswer(const ImportCounts& counts);
std::string NewImportAnswer(const ImportCounts& counts);

/// An ENVELOPE with STATUS 0 and one LINEERROR.
std::string RefusalAnswer(std::string_view lineError);

/// The company list as a report: parallel siblings.
std::string CompanyReportAnswer(const Books& books);
/// The company list as a collection.
std::string CompanyCollectionAnswer(const Books& books);

/// The report of session values; the company is empty when none is loaded.
std::string SessionReportAnswer(const Books& books);

std::string ObjectAnswer(const MasterKind& kind, const Master& master);
/// The bare error that stands for a master which is not there; `noun` is the
/// kind's noun, or the word asked for when no kind has it.
std::string MissingObjectAnswer(std::string_view noun, std::string_view name);

}  // namespace vorlane::practice
