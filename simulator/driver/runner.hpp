#pragma once
// One run: launch the host, inject the library, play the script.

#include "driver/session.hpp"
#include "script/lexer.hpp"

#include <vector>

namespace sim::driver {

/// How a run ended, as the process's exit status.
enum class Outcome { kHeld = 0, kFailed = 1, kError = 2, kExceptionReachedHost = 3 };

/// Plays the lines that the session has not come to yet. Messages go to standard error, facts to standard output.
Outcome Run(Session &session, const std::vector<script::Line> &lines);

} // namespace sim::driver
