#pragma once
// Format strings expanded with typed arguments. The format may be a user's own text and hold anything: a conversion
// reads an argument only when there is one of its kind.

#include "apple/foundation/string.hpp"

#include <concepts>
#include <type_traits>

namespace corvel {

/// One argument of a format: an object, an integer, a pointer, a zero-terminated UTF-8 string or a number.
class FormatArgument {
  public:
    enum class Kind : unsigned char { kObject, kInteger, kPointer, kText, kNumber };

    FormatArgument(objc::Object object) : kind_(Kind::kObject), object_(object.pointer) {}
    FormatArgument(objc::id object) : kind_(Kind::kObject), object_(object) {}
    template <objc::Handle T> FormatArgument(const objc::Ref<T> &object) : FormatArgument(object.get()) {}
    FormatArgument(const char *text) : kind_(Kind::kText), text_(text) {}
    FormatArgument(const void *pointer) : kind_(Kind::kPointer), pointer_(pointer) {}
    template <std::integral T>
    FormatArgument(T value) : kind_(Kind::kInteger), integer_(static_cast<long long>(value)) {}
    template <std::floating_point T>
    FormatArgument(T value) : kind_(Kind::kNumber), number_(static_cast<double>(value)) {}

    Kind kind() const {
        return kind_;
    }
    /// What each kind holds; good only for that kind.
    objc::Object object() const {
        return objc::Object{object_};
    }
    long long integer() const {
        return integer_;
    }
    const void *pointer() const {
        return pointer_;
    }
    const char *text() const {
        return text_;
    }
    double number() const {
        return number_;
    }

  private:
    Kind kind_;
    union {
        objc::id object_;
        long long integer_;
        const void *pointer_;
        const char *text_;
        double number_;
    };
};

/// Expands a format of the platform's kind. A conversion without an argument of its kind expands to zero or "(null)",
/// `%n` to nothing; an unknown one is copied as it stands; widths and precisions end at kLargestFormatField.
/// Never raises: should an argument's description do so, it counts as "(null)".
objc::Ref<ns::String> FormatArguments(ns::String format, const FormatArgument *arguments, unsigned long count);

/// The widest field and the most digits that a format can ask for.
inline constexpr long kLargestFormatField = 255;

/// FormatArguments with the arguments in place.
template <class... A> objc::Ref<ns::String> FormatString(ns::String format, const A &...arguments) {
    if constexpr (sizeof...(A) == 0) {
        return FormatArguments(format, nullptr, 0);
    } else {
        const FormatArgument list[] = {FormatArgument(arguments)...};
        return FormatArguments(format, list, sizeof...(A));
    }
}

} // namespace corvel
