#include "formats/format_catalogue.h"

#include <optional>

namespace vorlane::formats {

namespace {

struct Format {
  std::string name;
  std::string type;
};

// The first row of that name, unless its type is null.
std::optional<Format> FindFormat(staging::StagingStore& store, std::string_view name) {
  staging::Statement rows =
      store.Query("Select TName, TType from VorlaneMst_ where VorlaneMst_.TName=?", {name});
  if (!rows.Step()) return std::nullopt;
  const auto type = rows.Text("TType");
  if (!type) return std::nullopt;
  return Format{std::string(rows.TextOrEmpty("TName")), std::string(*type)};
}

}  // namespace

std::string GetCustomFormatName(staging::StagingStore& store, std::string_view name) {
  const std::optional<Format> format = FindFormat(store, name);
  return format ? format->name : std::string();
}

std::string IsCustomFormat(staging::StagingStore& store, std::string_view name) {
  const std::optional<Format> format = FindFormat(store, name);
  return format ? format->type : std::string();
}

}  // namespace vorlane::formats
