#pragma once

#include <span>
#include <string>
#include <string_view>

#include "errors/trap.h"
#include "gateway/document_builder.h"
#include "gateway/import_digest.h"
#include "gateway/import_envelope.h"
#include "gateway/tally_gateway.h"
#include "masters/master_records.h"

namespace vorlane::masters {

/// A child of a master element: a tag that takes one field when the field holds
/// text, or a part of its own that a function writes.
template <class Rec>
struct MasterTag {
  using PartWriter = void (*)(gateway::DocumentBuilder&, platform::XmlNode*, const Rec&);

  constexpr MasterTag(std::string_view tagName, std::string Rec::*source)
      : tag(tagName), field(source) {}
  constexpr explicit MasterTag(PartWriter part) : write(part) {}

  std::string_view tag;
  std::string Rec::*field = nullptr;
  PartWriter write = nullptr;
};

/// What makes one kind of master: its element, where it fails, its children in
/// the order in which Tally gets them.
template <class Rec>
struct MasterDocument {
  std::string_view element;
  std::string_view location;  ///< the code under which a failure is reported
  std::span<const MasterTag<Rec>> tags;
};

/// Takes the place of one list element for each row of a table.
struct MasterList {
  std::string_view list;
  std::span<const std::string_view> columns;  ///< tags, by the table's columns
};

/// Writes a list for each row from 1 whose first column holds text, each child
/// even when empty. A table of one row, the empty row 0, gives nothing.
void WriteList(gateway::DocumentBuilder& builder, platform::XmlNode* parent, const MasterList& list,
               const TextRows& rows);

/// The names of a master: its own and, when there is one, its alias.
template <class Rec>
void WriteNameList(gateway::DocumentBuilder& builder, platform::XmlNode* parent,
                   const Rec& record) {
  platform::XmlNode* names = builder.AddElement(parent, "NAME.LIST");
  builder.AddElementIfAny(names, "NAME", record.Name);
  builder.AddElementIfAny(names, "NAME", record.Alias);
}

/// Builds the document of one master and sends it. `action` is "Create" or
/// "Alter"; the loops only create, and Tally alters what it knows. Gives the
/// digest, empty after a failure, which has been reported.
template <class Rec>
std::string WriteMaster(gateway::TallyGateway& tally, const MasterDocument<Rec>& document,
                        std::string_view company, const Rec& record, std::string_view action) {
  errors::Reporter& reporter = tally.Reporter();
  std::string result;
  errors::Trap(reporter, document.location, [&] {
    auto envelope = gateway::NewImportEnvelope(company, reporter);
    platform::XmlNode* data = gateway::DataElement(envelope, "//REQUESTDATA");
    gateway::DocumentBuilder builder(*envelope, reporter);
    platform::XmlNode* message = builder.AddElement(data, "TALLYMESSAGE");
    builder.AddAttribute(message, "xmlns:UDF", "TallyUDF");
    platform::XmlNode* master = builder.AddElement(message, document.element);
    builder.AddAttribute(master, "NAME", action == "Alter" ? record.OldName : record.Name);
    builder.AddAttribute(master, "ACTION", action);
    for (const MasterTag<Rec>& tag : document.tags) {
      if (tag.write) {
        tag.write(builder, master, record);
      } else {
        builder.AddElementIfAny(master, tag.tag, record.*tag.field);
      }
    }
    // A digest is no XML, so the second reading hands it back as it is.
    result = gateway::ParseImportResult(tally.SendToGateway(*envelope), reporter);
  });
  return result;
}

}  // namespace vorlane::masters
