#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vorlane::form {

enum class BoxIcon { None, Information, Critical };
enum class BoxButtons { Ok, YesNo };
enum class BoxAnswer { Ok, Yes, No };

/// A message box as a person sees it. Line ends in the text are CR LF.
struct Box {
  std::string text;
  std::string title;
  BoxIcon icon = BoxIcon::None;
  BoxButtons buttons = BoxButtons::Ok;
};

/// The fields of the options dialog `dlgIPAddress`, as they stand on the screen.
struct OptionsFields {
  std::string txtServer;
  std::string txtPort;
  std::string txtDateFormat;
  std::string txtDecPlaces;
  bool chkOldTally = false;
};

/// The panels of the status bar.
enum class Panel { Msg, Stat };

/// The controls that the logic puts the focus on.
enum class Control { CompanyList, TableName };

/// The outward face of the form: a desktop window, a terminal or a recorder.
/// Everything that is shown comes from below; a face adds no words and no logic,
/// and none of these calls may change the form but for LetEventsRun, in which a
/// desktop user may press whatever is enabled.
class Face {
 public:
  virtual ~Face() = default;

  /// Shows a box and waits for its answer. Also called in a silent run.
  virtual BoxAnswer ShowBox(const Box& box) = 0;
  /// Shows the options dialog modally; gives the fields at OK, nothing at Cancel.
  virtual std::optional<OptionsFields> ShowOptions(const OptionsFields& shown) = 0;
  /// A panel has a new text, with the nine points behind it that a face shows.
  virtual void PanelChanged(Panel panel, std::string_view text) = 0;
  /// A run or a load is at record `done` of `total`; for a progress bar.
  virtual void Progress(std::size_t done, std::size_t total) = 0;
  /// The grid has other columns or rows, or its redraw was switched on again.
  virtual void GridChanged() = 0;
  /// A row (from 1) has a new status or new marks and is the current row now.
  virtual void RowMarked(std::size_t row) = 0;
  virtual void FocusOn(Control control) = 0;
  /// Lets pending events run, once a row, so that a window stays alive. A face
  /// whose user ends the program here throws what is no std::exception, through
  /// the loop; Progress may do so, too.
  virtual void LetEventsRun() = 0;
  /// An answer of Tally is awaited and takes its time: a window keeps itself painted,
  /// without taking what the user does. Throws nothing.
  virtual void StayPainted() noexcept {}
  /// The form unloads; the process ends when its events have run out.
  virtual void Close() = 0;
};

}  // namespace vorlane::form
