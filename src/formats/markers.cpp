#include "formats/markers.h"

#include <utility>

#include "platform/runtime/failure.h"
#include "platform/runtime/number.h"
#include "platform/runtime/text.h"

namespace vorlane::formats {

void ReplaceMarker(std::string& text, std::string_view marker, std::string_view value) {
  std::size_t at = text.find(marker);
  if (at == std::string::npos) return;
  std::size_t places = 0;
  for (; at != std::string::npos; at = text.find(marker, at + marker.size())) ++places;
  if (text.size() + places * value.size() > kLongestTemplateText) {
    throw platform::Failure(platform::failure_number::kOutOfMemory, "Custom format",
                            "A text of the format grows beyond " +
                                std::to_string(kLongestTemplateText) + " bytes where " +
                                std::string(marker) + " is replaced: " + std::to_string(places) +
                                " times by a cell of " + std::to_string(value.size()) + " bytes.");
  }
  text = platform::ReplaceAll(std::move(text), marker, value);
}

std::vector<std::string> MarkersIn(std::string_view text) {
  std::vector<std::string> markers;
  for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
    const std::size_t end = text.find('}', at);
    if (end == std::string_view::npos) break;
    markers.emplace_back(text.substr(at, end - at + 1));
  }
  return markers;
}

RowMarkers::RowMarkers(const form::ImportGrid& grid) : grid_(grid) {
  columns_.reserve(grid.ColumnCount());
  for (std::size_t i = 1; i <= grid.ColumnCount(); ++i) {
    const std::string number = std::to_string(i);
    columns_.push_back({"{" + grid.Column(i).key + "}", "{#" + number + "}", "{$" + number + "}"});
  }
}

// Stops as soon as nothing is left that could be a marker.
template <typename Put>
void RowMarkers::ForEachColumn(const std::string& text, Put put) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (text.find('{') == std::string::npos) return;
    put(columns_[i], grid_.Text(row_, i + 1));
  }
}

void RowMarkers::PutKeys(std::string& text) const {
  ForEachColumn(text, [&](const Column& column, std::string_view cell) {
    ReplaceMarker(text, column.key, cell);
  });
}

void RowMarkers::PutPositions(std::string& text) const {
  ForEachColumn(text, [&](const Column& column, std::string_view cell) {
    ReplaceMarker(text, column.position, cell);
  });
}

void RowMarkers::PutKeysAndPositions(std::string& text) const {
  ForEachColumn(text, [&](const Column& column, std::string_view cell) {
    ReplaceMarker(text, column.key, cell);
    ReplaceMarker(text, column.position, cell);
  });
}

void RowMarkers::PutCondition(std::string& text) const {
  ForEachColumn(text, [&](const Column& column, std::string_view cell) {
    ReplaceMarker(text, column.key, cell);
    if (text.find(column.position) != std::string::npos) {
      const bool isBlank = platform::Trim(cell).empty();
      ReplaceMarker(text, column.position,
                    isBlank ? "0" : platform::NumberText(platform::Val(cell)));
    }
    ReplaceMarker(text, column.text, cell);
  });
}

}  // namespace vorlane::formats
