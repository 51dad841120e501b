#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "form/import_form.h"
#include "formats/format_rows.h"
#include "formats/markers.h"
#include "gateway/document_builder.h"
#include "platform/xml/xml_document.h"

namespace vorlane::formats {

/// How deeply groups may hold each other; the envelope and the parser that reads
/// the document before it is sent leave no more.
inline constexpr int kDeepestGroup = 200;
/// How many groups one row may give: groups that hold each other twice double
/// with every level.
inline constexpr std::size_t kMostGroups = 20'000;

/// Turns the rows of a format into XML, for one row of the grid after the other.
/// The tables are taken as they are at each call.
///
/// All failures rise and end the walk, with what it had made still standing: of
/// the store, of an expression, of a fragment that is not well-formed, of groups
/// that go round in a circle. What the document builder fails at, such as a name
/// that is no XML name, it reports itself, and the walk goes on.
class TemplateExpander {
 public:
  /// Refers to the form, which has to outlive it; columns are those that the
  /// grid has now.
  explicit TemplateExpander(form::ImportForm& importForm);

  /// Gives the top element its attributes.
  void ExpandAttributes(platform::XmlDocument& document, platform::XmlNode* element,
                        std::int32_t format, std::string_view group, std::size_t row);

  /// Gives `parent` the tags of a group and the groups below it. Tags are
  /// written for record 1 alone, child groups always: this is how each row of a
  /// voucher adds its lines. `level` counts the depth from 1.
  void ExpandGroup(platform::XmlDocument& document, platform::XmlNode* parent, std::int32_t format,
                   std::string_view group, std::size_t row, int level, int recordNo, int setNo);

 private:
  /// All that decides what a group gives for a row.
  struct Place {
    std::string group;
    int setNo;
    int recordNo;
    bool operator==(const Place&) const = default;
  };
  struct Walk {
    gateway::DocumentBuilder builder;
    std::int32_t format;
    std::size_t groups = 0;
    std::vector<Place> path;  // from the root to the present group
  };
  class Step;

  void WalkGroup(Walk& walk, platform::XmlNode* parent, const Place& place, int level);
  void WriteTag(Walk& walk, platform::XmlNode* parent, const TagRow& tag);
  void WriteFragment(Walk& walk, platform::XmlNode* parent, const TagRow& tag);
  std::string ColumnValue(const std::string& field) const;
  std::string ComputedValue(const TagRow& tag) const;
  bool IsOn(const GroupRow& child, const Place& parent) const;
  std::string_view CellOf(const std::string& key) const;

  form::ImportForm& form_;
  RowMarkers markers_;
  FormatTables tables_;
  std::size_t row_ = 0;
};

/// The entries of a value list, each closed by ";": what stands behind the last
/// one is none.
std::vector<std::string> ValueListEntries(std::string_view list);

}  // namespace vorlane::formats
