#pragma once

#include <string_view>
#include <vector>

namespace vorlane::form {

/// A column that an import loop reads of its rows, told for those who write about
/// it: the guide's tables are made of these. A loop makes them of the very tables
/// that it reads by.
struct DeclaredColumn {
  std::string_view key;      ///< upper case
  bool isRequired = false;   ///< read without a test; a source without it ends the loop
  std::string_view reading;  ///< what is made of the cell, such as "amount"; empty: as it stands
  std::string_view when;     ///< the rows in which it is read; empty: all
};

/// In the order of their reading.
using DeclaredColumns = std::vector<DeclaredColumn>;

/// The company of a row, in every loop that has a CompanyRule.
inline constexpr DeclaredColumn kCompanyColumn{"COMPANYNAME", false, "", ""};

}  // namespace vorlane::form
