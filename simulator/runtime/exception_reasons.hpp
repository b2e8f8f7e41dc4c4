#pragma once
// The words of exceptions that objects raise by themselves.

namespace sim {

/// Gives unrecognized selectors and undefined keys the phone's reasons.
void InstallExceptionReasons();

} // namespace sim
