#pragma once
// NSNumber and NSNull.

#include "apple/foundation/string.hpp"

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
    static Number numberWithLong(long value) {
        return objc::SendClass<Number, "numberWithLong:", Number>(value);
    }
    static Number numberWithLongLong(long long value) {
        return objc::SendClass<Number, "numberWithLongLong:", Number>(value);
    }
    static Number numberWithFloat(float value) {
        return objc::SendClass<Number, "numberWithFloat:", Number>(value);
    }
    static Number numberWithDouble(double value) {
        return objc::SendClass<Number, "numberWithDouble:", Number>(value);
    }
    int intValue() const {
        return objc::Send<"intValue", int>(*this);
    }
    long longValue() const {
        return objc::Send<"longValue", long>(*this);
    }
    float floatValue() const {
        return objc::Send<"floatValue", float>(*this);
    }
    double doubleValue() const {
        return objc::Send<"doubleValue", double>(*this);
    }
    String stringValue() const {
        return objc::Send<"stringValue", String>(*this);
    }
    /// The encoding of the type that the number was made of.
    const char *objCType() const {
        return objc::Send<"objCType", const char *>(*this);
    }
};

struct Null : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSNull";

    static Null null() {
        return objc::SendClass<Null, "null", Null>();
    }
};

} // namespace ns
