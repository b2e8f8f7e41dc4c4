#pragma once
// Methods of the app that call one another, as a script has laid it down.

#include "hosts/invocation.hpp"

#include <functional>

namespace sim::hosts {

/// From now on every run of an app's method of this selector makes the call, in the thread of that run, before it does
/// what it does itself; what the call raises passes on. A run inside the call makes no further one.
void ChainCall(const std::string &selector, Invocation invocation);

/// The same for any work.
void ChainWork(const std::string &selector, std::function<void()> work);

/// Reads the selector of a method of the app.
std::string ReadSelector(WordReader &words);

/// Makes the calls that go with a run of this selector.
void MakeChainedCalls(const std::string &selector);

/// Ends all of them.
void EndChainedCalls();

} // namespace sim::hosts
