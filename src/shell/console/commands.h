#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "form/import_form.h"
#include "shell/console/console_face.h"
#include "shell/console/grid_printer.h"

namespace vorlane::shell::console {

/// Splits a line into words at blanks and tabs; a text in double quotes is one
/// word, also an empty one. A quote that stands doubled inside is a quote.
std::vector<std::string> SplitCommand(std::string_view line);

/// Reads one command a line and does what the form does, until `exit`, the end of
/// the input or the closing of the form. A command that is not understood is told
/// on the error stream.
class CommandReader {
 public:
  CommandReader(form::ImportForm& importForm, ConsoleFace& face, std::istream& input,
                std::ostream& output, std::ostream& errors)
      : form_(importForm), face_(face), input_(input), output_(output), errors_(errors) {}

  /// `hasPrompt`: a person types the commands.
  void Run(bool hasPrompt);
  /// Does one line; false when it was `exit`.
  bool Execute(std::string_view line);

 private:
  using Words = std::vector<std::string>;
  struct Command {
    std::string_view name;
    std::string_view usage;
    std::string_view help;
    std::size_t least;  // words behind the name
    std::size_t most;
    void (CommandReader::*run)(const Words& words);
  };
  static const Command kCommands[];

  void Source(const Words& words);
  void Types(const Words& words);
  void Type(const Words& words);
  void Companies(const Words& words);
  void Company(const Words& words);
  void SkipExisting(const Words& words);
  void CheckMasters(const Words& words);
  void Refresh(const Words& words);
  void Post(const Words& words);
  void SaveReport(const Words& words);
  void Summary(const Words& words);
  void SaveFailed(const Words& words);
  void Options(const Words& words);
  void Grid(const Words& words);
  void Marks(const Words& words);
  void Panels(const Words& words);
  void Help(const Words& words);

  void Tick(form::CheckBox& box, const Words& words);
  using RowPrinter = void (*)(const form::ImportGrid&, RowRange, std::ostream&);
  void PrintRows(const Words& words, RowPrinter print);
  void Complain(const std::string& text);

  form::ImportForm& form_;
  ConsoleFace& face_;
  std::istream& input_;
  std::ostream& output_;
  std::ostream& errors_;
};

}  // namespace vorlane::shell::console
