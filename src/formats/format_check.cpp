#include "formats/format_check.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

#include "formats/conditional.h"
#include "formats/markers.h"
#include "formats/template_expansion.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/text.h"
#include "platform/script/evaluator.h"
#include "platform/xml/xml_document.h"

namespace vorlane::formats {

using staging::FormatCells;
using staging::FormatDefinition;

namespace {

constexpr std::string_view kTypes[] = {"GROUP",      "LEDGER",        "UNIT",      "GODOWN",
                                       "STOCKGROUP", "STOCKCATEGORY", "STOCKITEM", "COSTCATEGORY",
                                       "COSTCENTRE", "VOUCHER"};

using namespace staging::format_cell;

std::string Text(const FormatCells& cells, std::size_t at) { return cells[at].value_or(""); }
std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

bool IsXmlName(const std::string& name) {
  try {
    platform::XmlDocument().CreateElement(name);
    return true;
  } catch (const platform::Failure&) {
    return false;
  }
}

/// Which markers a place knows.
struct Markers {
  bool keys;               // {KEY}
  std::string_view signs;  // what may stand before a position
  bool counters = false;   // {#REC} and {#SET}
};
constexpr Markers kOfColumn{false, "#"};
constexpr Markers kOfExpression{true, "#"};
constexpr Markers kOfFragment{true, ""};
constexpr Markers kOfCondition{true, "#$", true};

/// The expression as it is for a row whose cells are all 1, which fits between
/// quotes and outside of them.
std::string WithCells(std::string text) {
  for (const std::string& marker : MarkersIn(text)) {
    text = platform::ReplaceAll(std::move(text), marker, "1");
  }
  return text;
}

class Checker {
 public:
  Checker(const FormatDefinition& format, const std::optional<ColumnKeys>& columns)
      : format_(format), columns_(columns), root_(format.type.value_or("")) {}

  std::vector<std::string> Run() {
    CheckHead();
    sets_.insert({root_, "1"});
    for (const FormatCells& group : format_.groups) {
      sets_.insert({Text(group, kChild), Text(group, kChildSet)});
    }
    for (const FormatCells& tag : format_.tags) CheckTag(tag);
    for (const FormatCells& group : format_.groups) CheckGroup(group);
    return std::move(complaints_);
  }

 private:
  void CheckHead() {
    where_ = "format " + format_.name;
    if (platform::UpperCase(format_.name) != format_.name) {
      Complain("the name is not in upper case, so no import type finds it");
    }
    if (root_.empty()) {
      Complain("there is no type word, so the format is none");
    } else if (std::ranges::find(kTypes, platform::UpperCase(root_)) == std::end(kTypes)) {
      Complain("the type word " + Quoted(root_) + " leads to no loop");
    } else if (platform::EqualsNoCase(root_, "VOUCHER") && NamesNoRow()) {
      Complain("the source has no column ID, so the report of a run ends in an error box");
    }
  }

  void CheckTag(const FormatCells& tag) {
    const std::string group = Text(tag, kGroup);
    const std::string type = Text(tag, kType);
    where_ = "tag " + Text(tag, kTag) + " of group " + group + ", set " + Text(tag, kSet);
    CheckTagPlace(tag, group, type);
    if (type == "G" && !tag[kFixed]) return CheckFragment(tag);
    if (!IsXmlName(Text(tag, kTag))) Complain("the tag is no XML name");
    if (tag[kFixed]) {
      if (tag[kField]) Complain("the fixed value stands in the place of the field");
      return;
    }
    if (!tag[kField]) return Complain("it has neither a fixed value nor a field");
    if (type == "C") return CheckComputed(*tag[kField]);
    if (tag[kField]->find("{#") != std::string::npos && type == "N") {
      return CheckMarkers(*tag[kField], kOfColumn);
    }
    for (const std::string& marker : MarkersIn(*tag[kField])) ComplainOfPlace(marker);
    CheckColumn(platform::UpperCase(*tag[kField]));
  }

  void CheckTagPlace(const FormatCells& tag, const std::string& group, const std::string& type) {
    const std::string format = Text(tag, kFormat);
    if (!format.empty() && !platform::EqualsNoCase(format, "NUMBER")) {
      Complain("the format " + Quoted(format) + " has no effect; NUMBER is the only one");
    }
    if (type == "A") {
      if (group != root_) Complain("only the top element, " + root_ + ", has attributes");
    } else if (type != "N" && type != "C" && type != "G") {
      Complain("the tag type " + Quoted(type) + " is unknown; A, N, C and G are the ones");
    } else if (!sets_.contains({group, Text(tag, kSet)})) {
      Complain("no group of that name and set is ever added");
    }
  }

  void CheckFragment(const FormatCells& tag) {
    std::string fragment = Text(tag, kTag);
    const std::string list = Text(tag, kField);
    where_ = "fragment of group " + Text(tag, kGroup) + ", set " + Text(tag, kSet);
    if (!tag[kField]) Complain("it has no value list, so it is never written");
    if (!platform::Trim(list.substr(list.rfind(';') + 1)).empty()) {
      Complain("the value list has no closing \";\", so its last value is none");
    }
    std::size_t number = 0;
    for (const std::string& entry : ValueListEntries(list)) {
      CheckMarkers(platform::UpperCase(entry), kOfFragment);
      fragment =
          platform::ReplaceAll(std::move(fragment), "{V" + std::to_string(++number) + "}", "1");
    }
    for (const std::string& hole : MarkersIn(fragment)) {
      if (hole.starts_with("{V")) Complain("the hole " + hole + " has no value");
    }
    if (!platform::XmlDocument().LoadXml(fragment)) Complain("it is no well-formed XML");
  }

  void CheckComputed(const std::string& expression) {
    CheckMarkers(expression, kOfExpression);
    const std::string folded = platform::UpperCase(WithCells(expression));
    try {
      const std::optional<Conditional> parts = CutConditional(folded);
      if (!parts) return platform::script::CheckSyntax(folded);
      if (!folded.starts_with("IF")) {
        return Complain("IF does not stand at the start, so the cut goes wrong");
      }
      if (!HasComparison(parts->condition)) {
        return Complain("the condition holds no comparison, so the tag is always empty");
      }
      platform::script::CheckSyntax(parts->condition);
    } catch (const platform::Failure& failure) {
      Complain("the expression cannot be read: " + failure.Description());
    }
  }

  void CheckGroup(const FormatCells& group) {
    const std::string parent = Text(group, kParent);
    where_ = "group " + Text(group, kChild) + " in " + parent;
    if (!IsXmlName(Text(group, kChild))) Complain("the name is no XML name");
    if (parent != root_ && std::ranges::none_of(format_.groups, [&](const FormatCells& other) {
          return Text(other, kChild) == parent;
        })) {
      Complain("the group that is to hold it is never added");
    }
    if (CanReach(Text(group, kChild), parent)) {
      Complain("it holds itself, which only a condition could end");
    }
    const std::string condition = Text(group, kCondition);
    CheckMarkers(condition, kOfCondition);
    try {
      platform::script::CheckSyntax(WithCells(condition));
    } catch (const platform::Failure& failure) {
      Complain("the condition cannot be read: " + failure.Description());
    }
  }

  bool CanReach(const std::string& from, const std::string& to) const {
    std::set<std::string> seen;
    std::vector<std::string> open{from};
    while (!open.empty()) {
      const std::string here = std::move(open.back());
      open.pop_back();
      if (here == to) return true;
      if (!seen.insert(here).second) continue;
      for (const FormatCells& group : format_.groups) {
        if (Text(group, kParent) == here) open.push_back(Text(group, kChild));
      }
    }
    return false;
  }

  void CheckMarkers(const std::string& text, const Markers& known) {
    for (const std::string& marker : MarkersIn(text)) {
      const std::string_view inner = std::string_view(marker).substr(1, marker.size() - 2);
      if (marker == "{#REC}" || marker == "{#SET}") {
        if (!known.counters) Complain(marker + " is known in conditions alone");
      } else if (inner.starts_with('#') || inner.starts_with('$')) {
        if (known.signs.find(inner[0]) == std::string_view::npos) {
          ComplainOfPlace(marker);
        } else {
          CheckPosition(marker, inner.substr(1));
        }
      } else if (!known.keys) {
        ComplainOfPlace(marker);
      } else if (platform::UpperCase(inner) != inner) {
        Complain(marker + " is not in upper case, so it stands for nothing");
      } else {
        CheckColumn(std::string(inner));
      }
    }
  }

  void ComplainOfPlace(const std::string& marker) {
    Complain(marker + " stands for nothing in this place");
  }

  void CheckPosition(const std::string& marker, std::string_view digits) {
    std::size_t position = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), position);
    const bool isNumber = read.ec == std::errc{} && read.ptr == digits.data() + digits.size();
    if (!isNumber || position == 0) return Complain(marker + " is no position");
    if (columns_ && position > columns_->size()) {
      Complain(marker + " is behind the last column of the source, " +
               std::to_string(columns_->size()));
    }
  }

  void CheckColumn(const std::string& key) {
    if (LacksColumn(key)) Complain("the source has no column " + key);
  }

  /// Of a source with voucher types the load makes the IDs itself.
  bool NamesNoRow() const {
    return LacksColumn("ID") && LacksColumn("VCHTYPE") && LacksColumn("NAME");
  }

  bool LacksColumn(std::string_view key) const {
    return columns_ && std::ranges::find(*columns_, key) == columns_->end();
  }

  void Complain(const std::string& what) {
    complaints_.push_back(where_ + ": " + what + (what.ends_with('.') ? "" : "."));
  }

  const FormatDefinition& format_;
  const std::optional<ColumnKeys>& columns_;
  std::string root_;
  std::string where_;
  std::set<std::pair<std::string, std::string>> sets_;
  std::vector<std::string> complaints_;
};

}  // namespace

std::vector<std::string> CheckFormat(const FormatDefinition& format,
                                     const std::optional<ColumnKeys>& columns) {
  return Checker(format, columns).Run();
}

}  // namespace vorlane::formats
