#pragma once

#include <cstdint>

#include "errors/reporter.h"
#include "platform/xml/xml_document.h"

namespace vorlane::gateway {

/// Indents a whole document: each element on a line of its own, two blanks deeper
/// than its parent; one that holds only text keeps it on its line. An empty
/// document is reported and left as it is.
void NormalizeDocument(platform::XmlDocument& document, errors::Reporter& reporter);

/// The recursive step, on a node and what hangs below it.
void NormalizeNode(platform::XmlNode* node, errors::Reporter& reporter, std::int16_t indent = 0);

}  // namespace vorlane::gateway
