#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "form/face.h"

namespace vorlane::form {

/// A face that keeps what it is shown and answers from a list.
class RecordingFace : public Face {
 public:
  std::vector<Box> boxes;
  std::deque<BoxAnswer> answers;  ///< to the questions to come, one each
  std::vector<OptionsFields> optionsShown;
  std::optional<OptionsFields> optionsAnswer;  ///< nothing for Cancel
  std::vector<std::pair<Panel, std::string>> panels;
  std::vector<std::pair<std::size_t, std::size_t>> progress;
  std::vector<std::size_t> rowsMarked;
  std::vector<Control> focus;
  std::size_t gridChanges = 0;
  std::size_t eventTurns = 0;
  std::size_t closings = 0;
  /// What a user does while events run, each time that they do.
  std::function<void()> onEvents;
  /// What happens elsewhere when a row has its outcome.
  std::function<void(std::size_t row)> onRowMarked;

  /// The boxes in short: an error report as its location code, other boxes as
  /// their text.
  std::vector<std::string> BoxesInShort() const {
    static constexpr std::string_view kSign = "=> LOCATION CODE: ";
    std::vector<std::string> all;
    for (const Box& box : boxes) {
      const std::size_t at = box.text.find(kSign);
      if (at == std::string::npos) {
        all.push_back(box.text);
      } else {
        const std::size_t code = at + kSign.size();
        all.push_back(box.text.substr(code, box.text.find('(', code) - code));
      }
    }
    return all;
  }

  /// The texts that a panel showed, the empty ones included.
  std::vector<std::string> Texts(Panel panel) const {
    std::vector<std::string> texts;
    for (const auto& [shownIn, text] : panels) {
      if (shownIn == panel) texts.push_back(text);
    }
    return texts;
  }

  BoxAnswer ShowBox(const Box& box) override {
    boxes.push_back(box);
    if (box.buttons == BoxButtons::Ok) return BoxAnswer::Ok;
    if (answers.empty()) {
      ADD_FAILURE() << "The test has no answer to: " << box.text;
      return BoxAnswer::No;
    }
    const BoxAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  std::optional<OptionsFields> ShowOptions(const OptionsFields& shown) override {
    optionsShown.push_back(shown);
    return optionsAnswer;
  }
  void PanelChanged(Panel panel, std::string_view text) override {
    panels.emplace_back(panel, text);
  }
  void Progress(std::size_t done, std::size_t total) override {
    progress.emplace_back(done, total);
  }
  void GridChanged() override { ++gridChanges; }
  void RowMarked(std::size_t row) override {
    rowsMarked.push_back(row);
    if (onRowMarked) onRowMarked(row);
  }
  void FocusOn(Control control) override { focus.push_back(control); }
  void LetEventsRun() override {
    ++eventTurns;
    if (onEvents) onEvents();
  }
  void Close() override { ++closings; }
};

}  // namespace vorlane::form
