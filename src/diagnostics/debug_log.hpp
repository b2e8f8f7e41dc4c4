#pragma once
// The library's only log: lines appended to a string in the user defaults, off unless a configuration switches it on.

#include "diagnostics/format.hpp"

namespace corvel {

/// The last 40000 UTF-16 units of a text, which is as much as the log holds. The cut may fall inside a line or a
/// character: no boundary is looked for.
ns::String LogTail(ns::String text);

/// Whether a line would be written now, for whoever has to make more of it than a format and its arguments. Stores that
/// the log is off while nothing is stored. Never raises.
bool IsLogOn();

/// Appends one line with the arguments packed; see DebugLog.
void DebugLogArguments(ns::String format, std::span<const FormatArgument> arguments);

/// Appends "[date] message" to the log while logging is on; formats nothing while it is off. Callable on any thread
/// that may touch the user defaults; two calls at the same moment may lose one line. Never raises.
template <class... A> void DebugLog(ns::String format, const A &...arguments) {
    if constexpr (sizeof...(A) == 0) {
        DebugLogArguments(format, {});
    } else {
        const FormatArgument list[] = {FormatArgument(arguments)...};
        DebugLogArguments(format, list);
    }
}

} // namespace corvel
