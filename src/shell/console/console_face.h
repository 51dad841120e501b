#pragma once

#include <chrono>
#include <cstdio>
#include <istream>
#include <ostream>
#include <string>

#include "form/face.h"

namespace vorlane::shell::console {

/// The form at a terminal. Boxes and dialogs go to the error stream, so that the
/// output carries only what a command asked for; a question reads a line of
/// input, and its end counts as No.
class ConsoleFace : public form::Face {
 public:
  /// `isLive`: the error stream is a terminal, on which progress is shown.
  ConsoleFace(std::istream& input, std::ostream& errors, bool isLive)
      : input_(input), errors_(errors), isLive_(isLive) {}

  form::BoxAnswer ShowBox(const form::Box& box) override;
  /// Shows the fields; counts as cancelled. The command `options` answers it.
  std::optional<form::OptionsFields> ShowOptions(const form::OptionsFields& shown) override;
  void PanelChanged(form::Panel panel, std::string_view text) override;
  void Progress(std::size_t done, std::size_t total) override;
  void GridChanged() override {}
  void RowMarked(std::size_t) override {}
  void FocusOn(form::Control) override {}
  void LetEventsRun() override {}
  void Close() override { isClosed_ = true; }

  bool IsClosed() const { return isClosed_; }
  /// Takes the live line off the screen before something else is printed.
  void EraseLiveLine();

 private:
  std::istream& input_;
  std::ostream& errors_;
  bool isLive_;
  bool isClosed_ = false;
  bool hasLiveLine_ = false;
  std::string msg_;
  std::chrono::steady_clock::time_point lastShown_{};
};

/// The fields of the options dialog, a line each, by the keys that the command
/// `options` takes.
std::string DescribeOptions(const form::OptionsFields& fields);

}  // namespace vorlane::shell::console
