#pragma once

#include <string>

namespace vorlane::practice {

/// A file's text as UTF-8: the product exports as UTF-16 with a mark in front. Without
/// one the bytes are as they are; a mark of UTF-8 goes. A surrogate without its other
/// half becomes U+FFFD.
std::string Utf8Of(std::string bytes);

}  // namespace vorlane::practice
