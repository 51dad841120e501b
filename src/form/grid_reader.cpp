#include "form/grid_reader.h"

#include "form/declared_column.h"
#include "platform/runtime/text.h"

namespace vorlane::form {

GridReader::Place& GridReader::PlaceOf(std::string_view key) {
  for (Place& place : places_) {
    if (place.key == key) return place;
  }
  Place place;
  place.key = key;
  place.gridColumn = form_.GR1.FindColumn(key).value_or(0);
  place.counts = place.gridColumn != 0 && form_.HasOptionalColumn(key);
  places_.push_back(place);
  return places_.back();
}

std::string GridReader::Required(std::string_view key) {
  const Place& place = PlaceOf(key);
  const std::size_t column = place.gridColumn != 0 ? place.gridColumn : form_.GR1.ColumnIndex(key);
  return std::string(form_.GR1.Text(row_, column));
}

bool GridReader::HasOptional(std::string_view key) { return PlaceOf(key).counts; }

std::string GridReader::Optional(std::string_view key) {
  const Place& place = PlaceOf(key);
  return place.counts ? std::string(form_.GR1.Text(row_, place.gridColumn)) : std::string();
}

CompanyRule::CompanyRule(ImportForm& importForm)
    : form_(importForm), hasColumn_(importForm.HasOptionalColumn(kCompanyColumn.key)) {}

void CompanyRule::Apply(GridReader& reader) {
  form_.CurrentCompany = form_.cmbCurrentCompanyList.text;
  if (!hasColumn_) return;
  // Tested trimmed, used as it stands.
  std::string ofRow = reader.Required(kCompanyColumn.key);
  if (!platform::Trim(ofRow).empty()) form_.CurrentCompany = std::move(ofRow);
}

}  // namespace vorlane::form
