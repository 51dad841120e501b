#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "form/import_form.h"

namespace vorlane::form {

/// Reads the columns of one grid row after the other, by key. A column's place
/// is looked up when it is first read and kept for the loop.
class GridReader {
 public:
  explicit GridReader(const ImportForm& importForm) : form_(importForm) {}

  void MoveTo(std::size_t row) { row_ = row; }
  std::size_t Row() const { return row_; }

  /// The cell of a column that the source must have; fails when it has not, and
  /// no sooner than it is read.
  std::string Required(std::string_view key);
  /// True when the source has the column, and not as its very first field.
  bool HasOptional(std::string_view key);
  /// The cell of a column that counts; empty when it does not.
  std::string Optional(std::string_view key);

 private:
  struct Place {
    std::string_view key;  // keys are literals and outlive the loop
    std::size_t gridColumn = 0;
    bool counts = false;
  };
  Place& PlaceOf(std::string_view key);

  const ImportForm& form_;
  std::size_t row_ = 0;
  std::vector<Place> places_;
};

/// The company of a row: the one on the form, or the row's own COMPANYNAME cell
/// when that holds more than blanks. Rows of one sheet can go to several.
class CompanyRule {
 public:
  explicit CompanyRule(ImportForm& importForm);
  /// Makes `CurrentCompany` the company of the reader's row.
  void Apply(GridReader& reader);

 private:
  ImportForm& form_;
  bool hasColumn_;
};

}  // namespace vorlane::form
