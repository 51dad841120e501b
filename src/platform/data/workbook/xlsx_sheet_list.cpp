#include "platform/data/workbook/xlsx_sheet_list.h"

#include <map>
#include <memory>
#include <optional>
#include <string_view>

#include <zip.h>

#include "platform/data/workbook/compound_file.h"
#include "platform/runtime/failure.h"
#include "platform/xml/xml_document.h"

namespace vorlane::platform {
namespace {

// A part may be packed a thousand to one, so its length is limited as it is
// unpacked. No workbook's list of sheets comes near.
constexpr std::size_t kMaxPartSize = 16 << 20;

[[noreturn]] void FailFile(const std::string& path, const std::string& fault) {
  throw Failure(failure_number::kProviderError, "Workbook", path + ": " + fault);
}

// The package: a zip archive whose members are called parts.
class Package {
 public:
  Package(const std::string& path, std::span<const std::uint8_t> file) : path_(path) {
    if (IsCompoundFile(file)) {
      FailFile(path, "an .xlsx workbook expected; this one is encrypted or an .xls workbook.");
    }
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(file.data(), file.size(), 0, &error);
    if (source != nullptr) archive_.reset(zip_open_from_source(source, ZIP_RDONLY, &error));
    if (!archive_) {
      if (source != nullptr) zip_source_free(source);
      const std::string reason = zip_error_strerror(&error);
      zip_error_fini(&error);
      FailFile(path, "an .xlsx workbook expected, but the file is no package (" + reason + ").");
    }
    zip_error_fini(&error);
  }

  /// Loads a part; nothing when the package lacks it.
  std::optional<XmlDocument> FindPart(const std::string& name) const {
    const zip_int64_t index = zip_name_locate(archive_.get(), name.c_str(), ZIP_FL_NOCASE);
    if (index < 0) return std::nullopt;
    const std::string text = ReadPart(static_cast<zip_uint64_t>(index), name);
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    std::string_view xml = text;
    if (xml.starts_with(kByteOrderMark)) xml.remove_prefix(kByteOrderMark.size());
    XmlDocument document;
    if (!document.LoadXml(xml)) FailFile(path_, "part " + name + " is no well-formed XML.");
    return document;
  }

 private:
  struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* file) const { zip_fclose(file); }
  };

  std::string ReadPart(zip_uint64_t index, const std::string& name) const {
    const std::unique_ptr<zip_file_t, Discard> file(zip_fopen_index(archive_.get(), index, 0));
    if (!file) FailFile(path_, "part " + name + " cannot be unpacked.");
    std::string text;
    std::size_t size = 0;
    while (true) {
      constexpr std::size_t kStep = 64 << 10;
      text.resize(size + kStep);
      const zip_int64_t count = zip_fread(file.get(), text.data() + size, kStep);
      if (count < 0) FailFile(path_, "part " + name + " is damaged.");
      size += static_cast<std::size_t>(count);
      text.resize(size);
      if (count == 0) return text;
      if (size > kMaxPartSize) {
        FailFile(path_, "part " + name + ": at most 16 megabytes expected, it is longer.");
      }
    }
  }

  const std::string& path_;
  std::unique_ptr<zip_t, Discard> archive_;
};

struct Relation {
  std::string type;
  std::string target;
};

// The relations of a part by their id; empty when it has none.
std::map<std::string, Relation> ReadRelations(const Package& package, const std::string& part) {
  std::map<std::string, Relation> relations;
  const auto document = package.FindPart(part);
  if (!document) return relations;
  for (const XmlNode* node : document->DocumentElement()->Children()) {
    if (node->BaseName() != "Relationship") continue;
    relations[node->Attribute("Id").value_or("")] = {node->Attribute("Type").value_or(""),
                                                     node->Attribute("Target").value_or("")};
  }
  return relations;
}

// Most writers call the workbook's part so, but only its relation is sure.
std::string FindWorkbookPart(const Package& package) {
  for (const auto& [id, relation] : ReadRelations(package, "_rels/.rels")) {
    if (!relation.type.ends_with("/officeDocument")) continue;
    return relation.target.starts_with('/') ? relation.target.substr(1) : relation.target;
  }
  return "xl/workbook.xml";
}

std::string RelationsPartOf(const std::string& part) {
  const std::size_t slash = part.rfind('/');
  const std::size_t nameAt = slash == std::string::npos ? 0 : slash + 1;
  return part.substr(0, nameAt) + "_rels/" + part.substr(nameAt) + ".rels";
}

// The relation's id is the attribute of that name behind a prefix of the
// writer's choice.
std::string RelationId(const XmlNode* sheet) {
  for (const XmlNode* attribute : sheet->Attributes()) {
    if (attribute->BaseName() == "id") return attribute->NodeValue().value_or("");
  }
  return "";
}

// A sheet without a relation is taken for a worksheet; charts and macros have
// relations of other types.
bool IsWorksheet(const XmlNode* sheet, const std::map<std::string, Relation>& relations) {
  const auto relation = relations.find(RelationId(sheet));
  return relation == relations.end() || relation->second.type.ends_with("/worksheet");
}

}  // namespace

std::vector<std::string> ListXlsxSheets(const std::string& path,
                                        std::span<const std::uint8_t> file) {
  const Package package(path, file);
  const std::string part = FindWorkbookPart(package);
  const auto workbook = package.FindPart(part);
  if (!workbook) FailFile(path, "part " + part + " expected, the package has none.");
  const auto relations = ReadRelations(package, RelationsPartOf(part));
  std::vector<std::string> names;
  for (const XmlNode* list : workbook->DocumentElement()->Children()) {
    if (list->BaseName() != "sheets") continue;
    for (const XmlNode* sheet : list->Children()) {
      if (sheet->BaseName() != "sheet" || !IsWorksheet(sheet, relations)) continue;
      names.push_back(sheet->Attribute("name").value_or(""));
    }
  }
  return names;
}

}  // namespace vorlane::platform
