#pragma once
// NSBundle.

#include "apple/foundation/string.hpp"

namespace ns {

struct Bundle : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSBundle";

    static Bundle mainBundle() {
        return objc::SendClass<Bundle, "mainBundle", Bundle>();
    }
    String bundleIdentifier() const {
        return objc::Send<"bundleIdentifier", String>(*this);
    }
};

} // namespace ns
