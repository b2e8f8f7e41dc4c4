#pragma once
// A script with everything that it includes, as one sequence of lines.

#include "script/lexer.hpp"

namespace sim::script {

/// Reads a script, "-" being standard input (from its beginning, so that a second reading finds the same), and puts
/// the lines of each `include FILE` in that line's stead; FILE counts from the including file's directory.
/// Throws ScriptError, also for a file that cannot be read or that includes itself.
std::vector<Line> LoadScript(const std::string &file);

/// Makes standard input readable again from its beginning, also after the process replaced itself.
void KeepStandardInput();

} // namespace sim::script
