#pragma once
// What the send functions of all hosts have in common.

#include "adapters/send_table.hpp"
#include "diagnostics/debug_log.hpp"
#include "objc/guard.hpp"

#include <type_traits>

namespace corvel {

/// The text that a send hands to the host, kept while the result lives: "额" in place of nil or an empty text, so that
/// an empty slot sends something.
objc::Ref<ns::String> TextToSend(objc::id text);

/// Runs send(text) with the text to send. Whatever the host raises outside of its send paths ends here.
template <class Send> void RunSend(objc::id given, Send send) {
    objc::Guard([&] {
        const objc::Ref<ns::String> text = TextToSend(given);
        send(text.get());
    });
}

/// Logs the line that opens every send. The finished line serves the log as a format once more, so a percent sign in
/// the comment is expanded a second time; that is how these lines have always looked.
template <class... A> void LogSendLine(ns::String format, const A &...arguments) {
    if (IsLogOn()) {
        DebugLog(FormatString(format, arguments...));
    }
}

/// How a send line shows whether a reference is held.
template <objc::Handle T> ns::String HeldMark(const objc::Ref<T> &reference) {
    return reference ? "Y"_ns : "N"_ns;
}

/// A way to send: through(object) with the object that the place holds when its turn comes. It has sent when it
/// returns, or when it returns true. An empty place and a host exception hand on to the next way; the exception's
/// reason is logged under the format, unless that is nil.
template <objc::Handle T, class F> auto Through(const objc::Ref<T> &place, ns::String failureFormat, F through) {
    return [&place, failureFormat, through] {
        const objc::Ref<T> object = place; // kept: the send itself may put another one in the place
        bool sent = false;
        const auto run = [&] {
            if constexpr (std::is_void_v<decltype(through(object.get()))>) {
                through(object.get());
                sent = true;
            } else {
                sent = through(object.get());
            }
        };
        const auto caught = [&](objc::Object reason) {
            if (failureFormat) {
                DebugLog(failureFormat, reason);
            }
        };
        if (object) {
            objc::Guard(run, caught);
        }
        return sent;
    };
}

/// Tries the ways in their order until one has sent; whether one has. The table says, in the same order, what each
/// needs of the host.
template <std::size_t N, class... Ways> bool SendByFirstOf(const SendPath (&)[N], const Ways &...ways) {
    static_assert(N == sizeof...(Ways));
    return (ways() || ...);
}

} // namespace corvel
