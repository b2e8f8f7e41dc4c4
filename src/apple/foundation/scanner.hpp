#pragma once
// NSScanner.

#include "apple/foundation/string.hpp"

namespace ns {

struct Scanner : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSScanner";

    static Scanner scannerWithString(String string) {
        return objc::SendClass<Scanner, "scannerWithString:", Scanner>(string);
    }
    void setScanLocation(unsigned long location) const {
        objc::Send<"setScanLocation:", void>(*this, location);
    }
    bool scanHexInt(unsigned *value) const {
        return objc::Send<"scanHexInt:", bool>(*this, value);
    }
};

} // namespace ns
