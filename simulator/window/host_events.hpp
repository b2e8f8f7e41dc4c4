#pragma once
// What the panel's buttons do to an app, as lines of a script.

#include <string>
#include <vector>

namespace sim::window {

/// Enters the N-th room.
std::string EnterRoom(int number);

/// Makes every method throw by which the app sends a comment; no lines for an app that has none.
std::vector<std::string> ThrowWhenSending(const std::string &host);

} // namespace sim::window
