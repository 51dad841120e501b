#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "form/import_form.h"

namespace vorlane::shell::format_tool {

/// Does what the words of a command line say, for people who write formats:
/// list, show, export, import, check, try. Results go to `output`, what is wrong
/// to `errors`. Gives the exit code: 0 when all is well, 1 when a format has
/// complaints or a command fails, 2 when the words make no command. Sends
/// nothing to Tally.
int RunCommand(form::ImportForm& importForm, const std::vector<std::string>& words,
               std::ostream& output, std::ostream& errors);

}  // namespace vorlane::shell::format_tool
