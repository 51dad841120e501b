#pragma once

#include <string>
#include <string_view>

#include "form/grid_reader.h"
#include "form/import_form.h"

namespace vorlane::masters {

/// The column that names a master that spans rows.
inline constexpr std::string_view kHeldNameKey = "NAME";

/// What the two loops of masters that span rows share, and where they differ.
struct HeldLoopRules {
  std::string_view existsType;  ///< asked of Tally for each new name
  std::string_view statusText;
  std::string_view location;
  /// An empty name sends nothing: the last master of a grid then stays unsent
  /// unless a row with another name closes it.
  bool passesOverEmptyNames;
};

/// A master that gathers several rows: the row that names it, and those below it
/// that add to its tables. It is held until another name comes up and sent then,
/// and its status lands on the row above that name.
class HeldMaster {
 public:
  virtual ~HeldMaster() = default;

  /// Empties the tables that hang on the master.
  virtual void ClearTables() = 0;
  /// Fills the record from the row that names it. The record is not cleared: a
  /// column that the source lacks leaves what an earlier master had.
  virtual void Start(form::GridReader& row, const std::string& name) = 0;
  /// Adds what any row holds for the tables, also one without a name.
  virtual void AddBlocks(form::GridReader& row) = 0;
  /// Sends the master; gives Tally's digest.
  virtual std::string Send(const std::string& company) = 0;
  /// Whether the first master of a grid, too, starts with empty tables.
  virtual bool ClearsForFirst() const = 0;
};

/// Walks the grid. A failure is reported and ends it, with the held master
/// unsent.
void PostHeldMasters(form::ImportForm& importForm, const HeldLoopRules& rules, HeldMaster& master);

}  // namespace vorlane::masters
