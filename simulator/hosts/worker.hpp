#pragma once
// What an app does on another thread than the main one.

#include "script/words.hpp"

namespace sim::hosts {

/// Carries out, on a thread of its own, one of
///
///     notify NAME
///     set KEY VALUE, unset KEY      without synchronising
///     call OBJECT SELECTOR ARGUMENTS…
///
/// and gives what it has to say. Returns when that is done, and with it what the main thread had to do meanwhile; a
/// thread that then sleeps goes on when its time comes. Throws ScriptError for other words, ReachedHost for an
/// exception that came out of the thread's work. Main thread, between two turns of its run loop.
Fact DoOnWorker(WordReader &words);

} // namespace sim::hosts
