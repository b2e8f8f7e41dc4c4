#pragma once
// What the send functions of all hosts have in common.

#include "diagnostics/debug_log.hpp"
#include "objc/guard.hpp"

namespace corvel {

/// The text that a send hands to the host, held while the result lives: "额" in place of nil or an empty text, so
/// that an empty slot sends something.
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
template <class... A> void LogSendLine(ns::String format, A... arguments) {
    DebugLog(FormatString(format, arguments...));
}

/// How a send line shows whether a reference is captured.
template <objc::Handle T> ns::String CapturedMark(const objc::Ref<T> &reference) {
    return reference ? "Y"_ns : "N"_ns;
}

/// Tries one way to send. The path tells whether it sent, which ends the send; a host exception is logged under the
/// format with its reason and counts as not sent.
template <class Path> bool TrySendPath(ns::String failureFormat, Path path) {
    bool sent = false;
    objc::Guard([&] { sent = path(); }, [&](objc::Object reason) { DebugLog(failureFormat, reason); });
    return sent;
}

} // namespace corvel
