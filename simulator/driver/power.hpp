#pragma once
// Switching the phone on.

#include "driver/session.hpp"

namespace sim::driver {

/// Makes an empty directory for what a phone keeps. Throws UsageError.
std::string MakeStateDirectory();

/// Switches the phone of the session's options on: what it keeps is read, the platform's classes are there, and the
/// app is installed but not launched. Without a state directory in the options a fresh one is made. Once in a process,
/// before any message is sent to Foundation; throws UsageError.
void SwitchOn(Session &session);

} // namespace sim::driver
