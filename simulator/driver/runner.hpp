#pragma once
// One run: launch the host, inject the library, play the script.

#include "driver/session.hpp"
#include "script/lexer.hpp"

#include <functional>
#include <vector>

namespace sim::driver {

/// How a run ended, as the process's exit status.
enum class Outcome { kHeld = 0, kFailed = 1, kError = 2, kExceptionReachedHost = 3, kRuleBroken = 4 };

/// Runs work that the host or the system would do, in an autorelease pool; throws hosts::ReachedHost for an exception
/// of the platform's kind that comes out of it.
void AsHost(const std::function<void()> &work);

/// Plays one line, to the end of what is due then; the first that is no `setup` launches the app before. Throws
/// ScriptError and hosts::ReachedHost.
void Play(Session &session, const script::Line &line);

/// Plays the lines that the session has not come to yet. Messages go to standard error, facts to standard output.
Outcome Run(Session &session, const std::vector<script::Line> &lines);

} // namespace sim::driver
