#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "docs/tools/columns/descriptions.h"
#include "docs/tools/columns/samples.h"

namespace vorlane::guide {

/// Writes what the program declares into the pages of the guide, between a
/// remark that names it and one that ends it:
///
///   <!-- columns: LEDGERS -->      the columns of a type, a table for each heading
///   <!-- example: masters.xls GODOWNS 1-3,7 -->   rows of a sample's sheet, without
///                                  the columns that they leave empty; columns can be
///                                  named behind the rows, as ": Name, Parent"
///   <!-- types -->                 the catalogue of import types
///   <!-- end -->
class Pages {
 public:
  /// The repository's folder; reads all pages of its guide.
  explicit Pages(const std::string& root);

  /// Fills all pages. Gives what is wrong: a column without a description, a
  /// description without a column, a type without a page.
  std::vector<std::string> Fill();

  /// The pages that Fill has changed, by their paths.
  const std::set<std::string>& Changed() const { return changed_; }
  /// Writes the changed ones.
  void Save() const;

 private:
  std::string Filled(const std::string& path, const std::string& text);
  std::string BlockOf(const std::string& path, const std::string& order);
  std::string ColumnTables(const std::string& type);
  std::string TypeTable(const std::string& path) const;
  Descriptions& DescriptionsOf(const std::string& kind);
  void FindPagesOfTypes();

  std::string root_;
  Samples samples_;
  std::map<std::string, std::string> texts_;       // by path
  std::map<std::string, std::string> pageOfType_;  // by type
  std::map<std::string, Descriptions> described_;  // by kind
  std::set<std::string> changed_;
  std::vector<std::string> complaints_;
};

}  // namespace vorlane::guide
