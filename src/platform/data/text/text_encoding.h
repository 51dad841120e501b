#pragma once

#include "platform/data/text/text_file.h"

namespace vorlane::platform {

/// How the bytes of a file are to be read as characters.
struct CharacterSet {
  enum class Kind {
    Detect,    ///< UTF-8 when the whole file is that, else Windows-1252
    Utf8,      ///< UTF-8 and nothing else
    Utf16,     ///< little endian unless a byte order mark tells otherwise
    CodePage,  ///< a code page of eight bits a character, or fewer known to iconv
  };
  Kind kind = Kind::Detect;
  int codePage = 0;  ///< its number, such as 1252; for CodePage only
};

/// Makes the file's text UTF-8, in the buffer that is there when it is UTF-8
/// already. A byte order mark is stronger than `set` and is passed over.
///
/// A file that mixes UTF-8 with another encoding reads as Windows-1252 whole:
/// which line was meant how cannot be known.
/// Fails, naming the line, when the bytes are not what `set` or the mark
/// promises, and when the file holds a zero byte, so is no text.
void DecodeToUtf8(TextFile& file, const CharacterSet& set);

}  // namespace vorlane::platform
