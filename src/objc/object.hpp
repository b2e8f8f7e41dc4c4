#pragma once
// The root of all typed views: a non-owning handle, one pointer wide, passed in a register like the pointer itself.

#include "objc/fixed_string.hpp"
#include "objc/runtime.hpp"

#include <concepts>
#include <type_traits>

namespace objc {

/// Non-owning view of an Objective-C object; nil is a valid value and answers every send with zero.
struct Object {
    /// The platform class that a view stands for; every view shadows it.
    static constexpr const char *kClassName = "NSObject";

    id pointer = nullptr;

    constexpr Object() = default;
    constexpr explicit Object(id object) : pointer(object) {}
    // NOLINTNEXTLINE(google-explicit-constructor): nil is written nullptr
    constexpr Object(std::nullptr_t) {}

    constexpr explicit operator bool() const {
        return pointer != nullptr;
    }
    friend constexpr bool operator==(Object left, Object right) {
        return left.pointer == right.pointer;
    }
};

template <class T>
concept Handle = std::derived_from<T, Object>;

/// The same object under another view; unchecked, like a cast.
template <Handle T> constexpr T As(Object object) {
    return T{object.pointer};
}

} // namespace objc
