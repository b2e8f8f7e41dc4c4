#pragma once
// Calls of host methods from a script, with arguments read by the method's own type encoding.

#include "apple/uikit/view.hpp"
#include "hosts/types.hpp"
#include "objc/ref.hpp"
#include "script/words.hpp"

namespace sim::hosts {

/// An exception that came out of the host's own code although the host was not told to throw there.
class ReachedHost : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads a value, or the name of a host object that is there.
ns::Object ReadObject(WordReader &words);

/// A call of a host method that has been read and can be made at any time.
class Invocation {
  public:
    /// Reads the arguments: values, host objects or blocks by name. They are held, the receiver is not. Throws
    /// ScriptError for a method that the receiver does not have and for arguments that do not fit.
    Invocation(ns::Object receiver, const std::string &selector, WordReader &arguments);

    /// Sends it and describes the result (empty for none). What the method raises passes on. A receiver that is gone is
    /// sent nothing.
    Fact Send();
    const std::string &selector() const {
        return selector_;
    }
    objc::Ref<ns::Object> receiver() const {
        return receiver_.Lock();
    }

  private:
    std::string selector_;
    objc::WeakRef<ns::Object> receiver_;
    std::vector<const Type *> types_; // result, receiver, selector, arguments
    std::vector<Slot> arguments_;
    std::vector<objc::Ref<ns::Object>> held_;
};

/// Makes a call as the host's own code does and describes the result (empty for none). When the method itself was told
/// to throw, the answer is `threw "reason"`; any other exception becomes ReachedHost.
Fact Invoke(Invocation &invocation);

/// The same as an event of the host's own, when there is the object and it answers the selector. The app knows what to
/// make of a result, so only what was thrown is told.
Fact InvokeIfAnswered(ns::Object receiver, const std::string &selector, std::vector<Word> arguments = {});

/// Puts a view of the host into another one, or out of where it is (nil), as the host's own code does. The answer is as
/// above for what the view's own methods of having moved were told to throw.
Fact MoveView(ui::View view, ui::View parent);

} // namespace sim::hosts
