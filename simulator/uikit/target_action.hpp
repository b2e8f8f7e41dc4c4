#pragma once
// Whom a control or gesture recogniser tells, and how.

#include "apple/foundation/object.hpp"

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

/// A target, which is not retained, and the action sent to it.
struct TargetAction {
    WeakObject target;
    objc::SEL action = nullptr;

    bool Is(ns::Object otherTarget, objc::SEL otherAction) const {
        return target.Lock().get() == otherTarget && sel_isEqual(action, otherAction) != 0;
    }
};

} // namespace sim
