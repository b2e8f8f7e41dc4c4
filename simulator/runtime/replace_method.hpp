#pragma once
// Replacement of methods that Foundation has already.

#include "objc/encoding.hpp"
#include "objc/object.hpp"

namespace sim {

/// The implementation that a replacement took the place of.
template <class R, class Self, class... A> using Original = R (*)(Self, objc::SEL, A...);

namespace detail {
objc::IMP ReplaceChecked(const char *className, objc::SEL selector, objc::IMP replacement, const char *encoding,
                         bool classMethod);
} // namespace detail

/// Replaces an instance method of a class by a function of the form R (Self, SEL, arguments...) and gives the
/// implementation that was in force. A method that the class only inherits is added to it, its ancestor's stays.
/// Ends the process with a message when class or method is missing or the encodings disagree.
template <class R, class Self, class... A>
Original<R, Self, A...> ReplaceMethod(const char *className, objc::SEL selector,
                                      R (*replacement)(Self, objc::SEL, A...)) {
    return reinterpret_cast<Original<R, Self, A...>>(detail::ReplaceChecked(
        className, selector, reinterpret_cast<objc::IMP>(replacement), objc::kMethodEncoding<R, A...>.data, false));
}

/// The same for a class method.
template <class R, class Self, class... A>
Original<R, Self, A...> ReplaceClassMethod(const char *className, objc::SEL selector,
                                           R (*replacement)(Self, objc::SEL, A...)) {
    return reinterpret_cast<Original<R, Self, A...>>(detail::ReplaceChecked(
        className, selector, reinterpret_cast<objc::IMP>(replacement), objc::kMethodEncoding<R, A...>.data, true));
}

} // namespace sim
