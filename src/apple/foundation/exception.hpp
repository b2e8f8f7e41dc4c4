#pragma once
// NSException.

#include "apple/foundation/string.hpp"

namespace ns {

struct Exception : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSException";

    static Exception exceptionWithName(String name, String reason) {
        return objc::SendClass<Exception, "exceptionWithName:reason:userInfo:", Exception>(name, reason, Object{});
    }
    /// Does not return.
    void raise() const {
        objc::Send<"raise", void>(*this);
    }
};

} // namespace ns
