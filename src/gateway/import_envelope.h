#pragma once

#include <optional>
#include <string_view>

#include "errors/reporter.h"
#include "platform/xml/xml_document.h"

namespace vorlane::gateway {

/// The envelope of nearly every import; the data go under its REQUESTDATA. Takes
/// the company unless its name is empty or blank. Nothing after a failure, which
/// has been reported.
std::optional<platform::XmlDocument> NewImportEnvelope(std::string_view companyName,
                                                       errors::Reporter& reporter);

/// The envelope of custom formats whose source is "ALT"; the data go under its
/// DATA.
std::optional<platform::XmlDocument> NewImportEnvelopeV1(std::string_view companyName,
                                                         errors::Reporter& reporter);

/// The element of an envelope that takes the data, by its path. Fails when the
/// envelope could not be made or has no such element.
platform::XmlNode* DataElement(std::optional<platform::XmlDocument>& envelope,
                               std::string_view path);

}  // namespace vorlane::gateway
