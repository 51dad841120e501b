#include "formats/template_expansion.h"

#include <algorithm>

#include "formats/conditional.h"
#include "platform/runtime/failure.h"
#include "platform/runtime/format.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::formats {

using form::ImportForm;
using platform::Failure;
using platform::XmlDocument;
using platform::XmlNode;

namespace {

constexpr std::int32_t kOutOfStack = 28;
constexpr std::int32_t kInvalidFormat = 321;
constexpr std::size_t kShownCharacters = 200;

bool IsBlank(std::string_view text) { return platform::Trim(text).empty(); }

std::string Shown(std::string_view text) {
  const std::string_view begin = platform::LeftCharacters(text, kShownCharacters);
  return "\"" + std::string(begin) + (begin.size() < text.size() ? "...\"" : "\"");
}

// Words, and dates too, pass as they are.
std::string Formatted(std::string value, const TagRow& tag) {
  static const platform::FormatPattern kNumber("#######################0.00");
  if (!platform::EqualsNoCase(tag.valueFormat, "NUMBER")) return value;
  if (!platform::ParseDecimal(value)) return value;
  return kNumber.Apply(value);
}

// The language's own words, and behind them where in the format they arose.
[[noreturn]] void FailIn(const Failure& failure, const std::string& where,
                         std::string_view expression) {
  throw Failure(failure.Number(), failure.Source(),
                failure.Description() + " (" + where + ": " + Shown(expression) + ")",
                failure.LastSystemError());
}

}  // namespace

std::vector<std::string> ValueListEntries(std::string_view list) {
  std::vector<std::string> entries;
  for (std::size_t end = list.find(';'); end != std::string_view::npos; end = list.find(';')) {
    entries.emplace_back(list.substr(0, end));
    list.remove_prefix(end + 1);
  }
  return entries;
}

TemplateExpander::TemplateExpander(ImportForm& importForm)
    : form_(importForm), markers_(importForm.GR1), tables_(importForm.services.store) {}

std::string_view TemplateExpander::CellOf(const std::string& key) const {
  return form_.GR1.Text(row_, form_.GR1.ColumnIndex(key));
}

void TemplateExpander::ExpandAttributes(XmlDocument& document, XmlNode* element,
                                        std::int32_t format, std::string_view group,
                                        std::size_t row) {
  row_ = row;
  tables_.Refresh();
  gateway::DocumentBuilder builder(document, form_.services.reporter);
  for (const TagRow& tag : tables_.Attributes(format, group)) {
    std::string value;
    if (tag.fixedValue) {
      value = *tag.fixedValue;
    } else if (tag.field) {
      const std::string key = platform::UpperCase(*tag.field);
      if (form_.FindListedColumn(key) >= 0) value = CellOf(key);
    }
    if (!IsBlank(value)) builder.AddAttribute(element, tag.name, value);
  }
}

void TemplateExpander::ExpandGroup(XmlDocument& document, XmlNode* parent, std::int32_t format,
                                   std::string_view group, std::size_t row, int level, int recordNo,
                                   int setNo) {
  row_ = row;
  markers_.MoveTo(row);
  tables_.Refresh();
  Walk walk{gateway::DocumentBuilder(document, form_.services.reporter), format, 0, {}};
  WalkGroup(walk, parent, {std::string(group), setNo, recordNo}, level);
}

// The way down to a group, which ends where it would never end.
class TemplateExpander::Step {
 public:
  Step(Walk& walk, const Place& place, int level) : path_(walk.path) {
    const bool isInItself = std::ranges::find(path_, place) != path_.end();
    path_.push_back(place);
    if (isInItself) Fail("A group of the format holds itself: ");
    if (level > kDeepestGroup) {
      Fail("Groups of the format lie more than " + std::to_string(kDeepestGroup) + " deep: ");
    }
    if (++walk.groups > kMostGroups) {
      Fail("A row gives more than " + std::to_string(kMostGroups) + " groups, the last one: ");
    }
  }
  ~Step() { path_.pop_back(); }
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;

 private:
  [[noreturn]] void Fail(std::string description) const {
    // Of a long way its end is shown, which a circle has gone round often enough.
    constexpr std::size_t kShownPlaces = 12;
    const std::size_t first = path_.size() > kShownPlaces ? path_.size() - kShownPlaces : 0;
    if (first > 0) description += "... > ";
    for (std::size_t i = first; i < path_.size(); ++i) {
      description += path_[i].group + (i + 1 < path_.size() ? " > " : ".");
    }
    throw Failure(kOutOfStack, "Custom format", description);
  }

  std::vector<Place>& path_;
};

void TemplateExpander::WalkGroup(Walk& walk, XmlNode* parent, const Place& place, int level) {
  const Step step(walk, place, level);
  if (place.recordNo == 1) {
    for (const TagRow& tag : tables_.Tags(walk.format, place.group, place.setNo)) {
      WriteTag(walk, parent, tag);
    }
  }
  for (const GroupRow& child : tables_.Groups(walk.format, place.group)) {
    if (!IsOn(child, place)) continue;
    XmlNode* element = walk.builder.AddElement(parent, child.name);
    WalkGroup(walk, element, {child.name, child.setNo, 1}, level + 1);
  }
}

void TemplateExpander::WriteTag(Walk& walk, XmlNode* parent, const TagRow& tag) {
  std::string value;
  if (tag.fixedValue) {
    // A blank one silences the row: the field is not asked.
    value = *tag.fixedValue;
  } else if (!tag.field) {
    return;
  } else if (tag.type == "N") {
    value = Formatted(ColumnValue(*tag.field), tag);
  } else if (tag.type == "C") {
    value = Formatted(ComputedValue(tag), tag);
  } else if (tag.type == "G") {
    return WriteFragment(walk, parent, tag);
  }
  if (!IsBlank(value)) walk.builder.AddElementIfAny(parent, tag.name, value);
}

// A column that the source lacks gives nothing.
std::string TemplateExpander::ColumnValue(const std::string& field) const {
  if (field.find("{#") != std::string::npos) {
    std::string text = field;
    markers_.PutPositions(text);
    return text;
  }
  const std::string key = platform::UpperCase(field);
  return form_.FindListedColumn(key) >= 0 ? std::string(CellOf(key)) : std::string();
}

std::string TemplateExpander::ComputedValue(const TagRow& tag) const {
  std::string expression = *tag.field;
  markers_.PutKeysAndPositions(expression);
  try {
    return EvalConditional(expression, form_.services.clock);
  } catch (const Failure& failure) {
    FailIn(failure, "tag " + tag.name + " of group " + tag.group, expression);
  }
}

// Cells go into the fragment as they are; one with an ampersand makes it no XML.
void TemplateExpander::WriteFragment(Walk& walk, XmlNode* parent, const TagRow& tag) {
  std::string fragment = tag.name;
  std::size_t number = 0;
  for (const std::string& entry : ValueListEntries(*tag.field)) {
    std::string value = platform::UpperCase(entry);
    markers_.PutKeys(value);
    ReplaceMarker(fragment, "{V" + std::to_string(++number) + "}", value);
  }
  if (IsBlank(fragment)) return;
  XmlDocument check;
  if (!check.LoadXml(fragment)) {
    throw Failure(kInvalidFormat, "Custom format",
                  "A ready-made fragment of group " + tag.group +
                      " is not well-formed XML with one element at its top: " + Shown(fragment) +
                      ".");
  }
  walk.builder.CopyXmlFragment(parent, fragment);
}

bool TemplateExpander::IsOn(const GroupRow& child, const Place& parent) const {
  std::string condition = child.condition;
  if (!condition.empty()) {
    markers_.PutCondition(condition);
    ReplaceMarker(condition, "{#REC}", std::to_string(parent.recordNo));
    // The set of the group that holds this one.
    ReplaceMarker(condition, "{#SET}", std::to_string(parent.setNo));
  }
  try {
    return IsGroupOn(EvalScript(condition, form_.services.clock));
  } catch (const Failure& failure) {
    FailIn(failure, "condition of group " + child.name + " in " + child.parent, condition);
  }
}

}  // namespace vorlane::formats
