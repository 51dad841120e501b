#pragma once

#include <string_view>

// What every page has in its head.

namespace vorlane::practice {

extern const std::string_view kPageStyle;

/// Filters the rows and exchanges that stand in the page as one types. What it does
/// the form does too, on the whole of the books, so that a page without it is whole.
/// Written without "&" and "<", so that the page can be read as XML.
extern const std::string_view kPageScript;

}  // namespace vorlane::practice
