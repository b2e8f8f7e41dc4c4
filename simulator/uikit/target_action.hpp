#pragma once
// Targets and actions of controls, gesture recognisers and bar items.

#include "apple/uikit/window.hpp"
#include "runtime/native_class.hpp"

#include <memory>

namespace sim {

/// An object that is not kept alive and reads as nil once it is gone.
class WeakObject {
  public:
    WeakObject() = default;
    explicit WeakObject(ns::Object object)
        : reference_(object ? std::make_shared<objc::WeakRef<ns::Object>>(object) : nullptr) {}

    /// Whether an object was given at all.
    bool IsSet() const {
        return reference_ != nullptr;
    }
    /// The object, kept alive by the result; empty when there is none (any more).
    objc::Ref<ns::Object> Lock() const {
        return reference_ ? reference_->Lock() : objc::Ref<ns::Object>{};
    }

  private:
    std::shared_ptr<objc::WeakRef<ns::Object>> reference_;
};

/// Properties of objects that are not retained, such as delegates.
template <> struct Stored<WeakObject> {
    using Value = ns::Object;
    static Value Read(const WeakObject &member) {
        return Autoreleased(member.Lock());
    }
    static void Write(WeakObject &member, Value value) {
        member = WeakObject(value);
    }
};

/// A target, which is not retained, and the action sent to it. Without a target the action goes up the responder chain.
struct TargetAction {
    WeakObject target;
    objc::SEL action = nullptr;

    bool Is(ns::Object otherTarget, objc::SEL otherAction) const {
        return target.IsSet() == static_cast<bool>(otherTarget) && Fits(otherTarget, otherAction);
    }
    /// The same where nil stands for every target, a null selector for every action.
    bool Fits(ns::Object otherTarget, objc::SEL otherAction) const {
        return (!otherTarget || target.Lock().get() == otherTarget) &&
               (otherAction == nullptr || sel_isEqual(action, otherAction) != 0);
    }
    /// Whether there was a target that is gone. Its action then goes nowhere, not up the responder chain.
    bool IsOrphaned() const {
        return target.IsSet() && !target.Lock();
    }
};

/// Sends an action to the target, or up the responder chain when that is nil; the event may be nil.
inline void SendAction(objc::SEL action, ns::Object target, ns::Object sender, ui::Event event) {
    objc::Send<"sendAction:to:from:forEvent:", bool>(ui::Application::sharedApplication(), action, target, sender,
                                                     event);
}

} // namespace sim
