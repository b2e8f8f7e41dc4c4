#pragma once
// NSExceptions that the simulator raises where the phone does.

#include <string>

namespace sim {

/// Raises an NSException of that name.
[[noreturn]] void RaiseException(const char *name, const std::string &reason);

} // namespace sim
