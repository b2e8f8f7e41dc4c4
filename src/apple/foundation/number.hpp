#pragma once
// NSNumber and NSNull.

#include "apple/foundation/object.hpp"

namespace ns {

struct Number : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSNumber";

    static Number numberWithBool(bool value) {
        return objc::SendClass<Number, "numberWithBool:", Number>(value);
    }
    static Number numberWithInt(int value) {
        return objc::SendClass<Number, "numberWithInt:", Number>(value);
    }
    int intValue() const {
        return objc::Send<"intValue", int>(*this);
    }
    float floatValue() const {
        return objc::Send<"floatValue", float>(*this);
    }
    double doubleValue() const {
        return objc::Send<"doubleValue", double>(*this);
    }
};

struct Null : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSNull";
};

} // namespace ns
