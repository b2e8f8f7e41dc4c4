#pragma once
// Format strings expanded with typed arguments. A line of the log may be expanded a second time, when it holds a
// user's comment already: no conversion in it can reach anything beyond the arguments that exist.

#include "apple/foundation/string.hpp"

#include <concepts>
#include <span>

namespace corvel {

/// One argument of a format: an object, an integer or a pointer.
class FormatArgument {
  public:
    FormatArgument(objc::Object object) : kind_(Kind::kObject), object_(object.pointer) {}
    FormatArgument(objc::id object) : kind_(Kind::kObject), object_(object) {}
    template <objc::Handle T> FormatArgument(const objc::Ref<T> &object) : FormatArgument(object.get()) {}
    FormatArgument(const void *pointer) : kind_(Kind::kPointer), pointer_(pointer) {}
    template <std::integral T>
    FormatArgument(T value) : kind_(Kind::kInteger), integer_(static_cast<long long>(value)) {}

    /// What a conversion that ends with the letter shows of the argument; nil when it is of another kind.
    objc::Ref<ns::String> TextFor(char16_t letter) const;

  private:
    enum class Kind : unsigned char { kObject, kInteger, kPointer };
    Kind kind_;
    union {
        objc::id object_;
        long long integer_;
        const void *pointer_;
    };
};

/// Expands a format of the platform's kind: `%@` and `%p` with objects, `%p` with pointers, `%d`, `%ld` and `%lld` with
/// integers; fields and precisions do not count. Any other conversion, and one whose argument is missing or of another
/// kind, turns into a fixed text: "(null)", "0", "0.000000", "0x0", "%" or nothing. What is no conversion stays as it
/// is. Never raises: should an argument's description do so, it counts as "(null)".
objc::Ref<ns::String> FormatArguments(ns::String format, std::span<const FormatArgument> arguments);

/// FormatArguments with the arguments in place.
template <class... A> objc::Ref<ns::String> FormatString(ns::String format, const A &...arguments) {
    if constexpr (sizeof...(A) == 0) {
        return FormatArguments(format, {});
    } else {
        const FormatArgument list[] = {FormatArgument(arguments)...};
        return FormatArguments(format, list);
    }
}

} // namespace corvel
