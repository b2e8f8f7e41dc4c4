#pragma once
// Calls of host methods from a script, with arguments read by the method's own type encoding.

#include "apple/uikit/view.hpp"
#include "script/words.hpp"

namespace sim::hosts {

/// An exception that came out of the host's own code although the host was not told to throw there.
class ReachedHost : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads a value, or the name of a host object that is there.
ns::Object ReadObject(WordReader &words);

/// Sends the selector to the object as the host's own code does and describes the result (empty for none). Objects
/// among the arguments are values, host objects or blocks by name. When the method itself was told to throw, the answer
/// is `threw "reason"`; any other exception becomes ReachedHost.
/// Throws ScriptError for arguments that do not fit.
Fact Invoke(ns::Object receiver, const std::string &selector, WordReader &arguments);

/// The same as an event of the host's own, when the object answers the selector. The app knows what to make of a
/// result, so only what was thrown is told.
Fact InvokeIfAnswered(ns::Object receiver, const std::string &selector, std::vector<Word> arguments = {});

/// Puts a view of the host into another one, or out of where it is (nil), as the host's own code does. The answer is as
/// above for what the view's own methods of having moved were told to throw.
Fact MoveView(ui::View view, ui::View parent);

} // namespace sim::hosts
