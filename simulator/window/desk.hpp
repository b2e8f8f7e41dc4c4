#pragma once
// The phone and the panel in their window, from the opening to the closing.

#include "window/options.hpp"
#include "window/sdl_window.hpp"
#include "window/texts.hpp"

namespace sim::driver {
struct Session;
} // namespace sim::driver

namespace sim::window {

/// Shows the session's phone, which is switched on, until the window is closed. Gives the exit status: 0, or 3 when an
/// exception has ended the app. Throws driver::UsageError and script::ScriptError before the window is open.
int ShowDesk(SdlWindow &window, driver::Session &session, const WindowOptions &options, const Texts &texts);

} // namespace sim::window
