#pragma once
// UIPasteboard.

#include "apple/foundation/string.hpp"

namespace ui {

struct Pasteboard : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIPasteboard";

    static Pasteboard generalPasteboard() {
        return objc::SendClass<Pasteboard, "generalPasteboard", Pasteboard>();
    }
    ns::String string() const {
        return objc::Send<"string", ns::String>(*this);
    }
    void setString(ns::String string) const {
        objc::Send<"setString:", void>(*this, string);
    }
};

} // namespace ui
