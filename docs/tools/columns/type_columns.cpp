#include "docs/tools/columns/type_columns.h"

#include <algorithm>
#include <optional>

#include "formats/format_posting.h"
#include "formats/markers.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "shell/dispatcher.h"
#include "sources/loader_rules.h"
#include "sources/register_loading.h"
#include "sources/row_repairs.h"
#include "staging/format_text.h"
#include "staging/shipped_formats.h"

namespace vorlane::guide {

using platform::EqualsNoCase;
using platform::UpperCase;
using sources::ImportType;
using sources::Loop;
using staging::FormatCells;
using staging::FormatDefinition;
using namespace staging::format_cell;

namespace {

std::optional<FormatDefinition> FormatOf(std::string_view type) {
  const std::string name = platform::RemoveBlanks(std::string(type));
  for (const staging::ShippedFormat& format : staging::ShippedFormats()) {
    FormatDefinition definition = staging::ParseFormatText(format.text, format.file);
    if (definition.name == name) return definition;
  }
  return std::nullopt;
}

Loop LoopOf(const ImportType* type, const std::optional<FormatDefinition>& format) {
  if (type && type->loop != Loop::CustomFormat) return type->loop;
  return format ? shell::LoopOfFormat(format->type.value_or("")) : Loop::Nothing;
}

/// A type's columns while they are put together.
class Columns {
 public:
  ColumnFacts& At(std::string_view key) {
    const std::string upper = UpperCase(key);
    for (ColumnFacts& column : all_) {
      if (column.key == upper) return column;
    }
    return all_.emplace_back(ColumnFacts{upper, "optional", "", ""});
  }
  bool Has(std::string_view key) const {
    return std::ranges::any_of(
        all_, [&](const ColumnFacts& column) { return EqualsNoCase(column.key, key); });
  }

  void Require(std::string_view key) { At(key).need = "required"; }

  void Add(const form::DeclaredColumn& declared) {
    const bool isNew = !Has(declared.key);
    ColumnFacts& column = At(declared.key);
    if (!isNew) return;  // a block that shares a column with the master itself
    if (declared.isRequired) column.need = "required";
    if (!declared.when.empty()) column.need += " " + std::string(declared.when);
    column.reading = declared.reading;
  }

  std::vector<ColumnFacts> Take() { return std::move(all_); }

 private:
  std::vector<ColumnFacts> all_;
};

/// Adds what a format's template makes of its columns.
class FormatReader {
 public:
  FormatReader(const FormatDefinition& format, Columns& columns)
      : format_(format), columns_(columns) {}

  void Read() {
    for (const FormatCells& tag : format_.tags) ReadTag(tag);
    for (const FormatCells& group : format_.groups) {
      for (const std::string& key : KeysIn(group[kCondition].value_or(""))) {
        AddPlace(key, "whether `" + group[kChild].value_or("") + "` is sent", "");
      }
    }
  }

 private:
  void ReadTag(const FormatCells& tag) {
    if (tag[kFixed] || !tag[kField]) return;
    const bool isComputed = tag[kType] == "C" || tag[kType] == "G";
    const bool isNumber = EqualsNoCase(tag[kFormat].value_or(""), "NUMBER");
    const std::string group = tag[kGroup].value_or("");
    const std::string name = (isComputed ? "computed, `" : "`") + tag[kTag].value_or("") + "`";
    for (const std::string& key : isComputed ? KeysIn(*tag[kField]) : Keys{*tag[kField]}) {
      AddPlace(key, name, group == format_.type ? "" : " of `" + group + "`");
      if (isNumber) columns_.At(key).reading = "number";
    }
  }

  using Keys = std::vector<std::string>;
  static Keys KeysIn(std::string_view text) {
    Keys keys;
    for (const std::string& marker : formats::MarkersIn(text)) {
      const std::string key = marker.substr(1, marker.size() - 2);
      const bool isName = !key.empty() && key.find_first_of("#$") != 0;
      if (isName && std::ranges::find(keys, key) == keys.end()) keys.push_back(key);
    }
    return keys;
  }

  /// A tag that stands in several groups is named once.
  void AddPlace(const std::string& key, const std::string& what, const std::string& where) {
    std::string& tally = columns_.At(key).tally;
    if (platform::EqualsNoCase(LastPart(tally), what + where)) return;
    if (!where.empty() && LastPart(tally).starts_with(what + " of ")) {
      if (tally.find(where.substr(4), tally.rfind("; ") + 1) == std::string::npos) {
        tally += " and " + where.substr(4);
      }
      return;
    }
    if (tally.find(what + where) != std::string::npos) return;
    if (!tally.empty()) tally += "; ";
    tally += what + where;
  }
  static std::string LastPart(const std::string& tally) {
    const std::size_t at = tally.rfind("; ");
    return at == std::string::npos ? tally : tally.substr(at + 2);
  }

  const FormatDefinition& format_;
  Columns& columns_;
};

/// The columns that the first loop of formats makes its key of.
void RequireKey(const FormatDefinition& format, Columns& columns) {
  for (const FormatCells& tag : format.tags) {
    const bool isKey = std::ranges::any_of(formats::kKeyTags,
                                           [&](std::string_view key) { return tag[kTag] == key; });
    if (isKey && tag[kGroup] == format.type && !tag[kFixed] && tag[kField]) {
      columns.Require(*tag[kField]);
    }
  }
}

TypeFacts MapFacts() {
  Columns columns;
  for (const form::DeclaredColumn& column : sources::MapColumns()) columns.Add(column);
  return {std::string(kMapType), "register-map", columns.Take()};
}

}  // namespace

TypeFacts FactsOf(std::string_view typeName) {
  if (typeName == kMapType) return MapFacts();
  const ImportType* type = sources::FindImportType(typeName);
  const std::optional<FormatDefinition> format = FormatOf(typeName);
  const Loop loop = LoopOf(type, format);
  if (loop == Loop::Nothing) {
    throw platform::Failure(platform::failure_number::kItemNotFound, "vorlane-columns",
                            "Nothing posts the import type \"" + std::string(typeName) + "\".");
  }
  const int reading = type ? type->reading : sources::kAsItStands;
  Columns columns;
  if (reading & sources::kOrdered) columns.Require("SRNO");
  for (const form::DeclaredColumn& column : shell::ColumnsOf(loop)) columns.Add(column);
  if (format) {
    FormatReader(*format, columns).Read();
    if (loop == Loop::PostCustomFormat) RequireKey(*format, columns);
  }
  if (reading & sources::kFilledDown) {
    for (const std::string_view key : sources::kFillDownColumns) columns.Require(key);
    for (const std::string_view key : sources::kExcelLoader.dateColumns) {
      if (columns.Has(key)) columns.At(key).reading = "date";
    }
  }
  const bool isVoucher = reading & (sources::kOrdered | sources::kRegister);
  return {std::string(typeName),
          format      ? "formats"
          : isVoucher ? "vouchers"
                      : "masters",
          columns.Take()};
}

std::string TypeOfColumns(std::string_view typeName) {
  const ImportType* type = sources::FindImportType(typeName);
  const std::optional<FormatDefinition> format = FormatOf(typeName);
  const Loop loop = LoopOf(type, format);
  if (loop == Loop::Nothing) return {};
  if (format) return std::string(typeName);
  // Types without a format have the columns of their loop, and its first name.
  for (const ImportType& first : sources::ImportTypes()) {
    if (first.loop == loop) return std::string(first.key);
  }
  return {};
}

std::vector<std::string> DocumentedTypes() {
  std::vector<std::string> all;
  const auto add = [&](const std::string& type) {
    if (!type.empty() && std::ranges::find(all, type) == all.end()) all.push_back(type);
  };
  for (const ImportType& type : sources::ImportTypes()) {
    if (type.listing != sources::kNotListed) add(TypeOfColumns(type.key));
  }
  for (const staging::ShippedFormat& format : staging::ShippedFormats()) {
    const std::string name = staging::ParseFormatText(format.text, format.file).name;
    const bool isKnown = std::ranges::any_of(sources::ImportTypes(), [&](const ImportType& type) {
      return platform::RemoveBlanks(std::string(type.key)) == name;
    });
    if (!isKnown) add(name);
  }
  add(std::string(kMapType));
  return all;
}

}  // namespace vorlane::guide
