#pragma once
// Constant strings from literals: compile-time objects on the phone, made at first use on the desktop.

#include "objc/fixed_string.hpp"
#include "objc/object.hpp"
#include "objc/send.hpp"

#if defined(__APPLE__)
extern "C" int __CFConstantStringClassReference[];
#endif

namespace objc {

template <FixedString Text> constexpr bool IsAscii() {
    for (const auto unit : Text.data) { // NOLINT(readability-use-anyofallof): <algorithm> weighs more than this loop
        if (static_cast<unsigned>(unit) >= 0x80) {
            return false;
        }
    }
    return true;
}

namespace detail {

#if defined(__APPLE__)
/// A constant CFString as the compiler itself lays it out (Core Foundation's public literal ABI).
struct ConstantStringLayout {
    const void *isa;
    unsigned long flags;
    const void *units;
    long length;
};
inline constexpr unsigned long kFlagsAscii = 0x7c8;
inline constexpr unsigned long kFlagsUtf16 = 0x7d0;

template <FixedString Text>
[[gnu::section("__DATA,__cfstring")]] inline constinit ConstantStringLayout constantString{
    __CFConstantStringClassReference, sizeof(Text.data[0]) == 1 ? kFlagsAscii : kFlagsUtf16, Text.data,
    static_cast<long>(Text.size())};
#else
struct String : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSString";
};

/// An immortal string of the given units (UTF-16).
inline id MakeConstantString(const char16_t *units, std::size_t length) {
    const auto fresh = SendClass<String, "alloc", String>();
    return Send<"initWithCharacters:length:", String>(fresh, units, static_cast<unsigned long>(length)).pointer;
}
#endif

} // namespace detail

/// The constant string of a literal: plain for ASCII, u"…" for any other text.
template <FixedString Text> id ConstantString() {
    static_assert(sizeof(Text.data[0]) == 2 || IsAscii<Text>(), "write text beyond ASCII as u\"...\"");
#if defined(__APPLE__)
    return reinterpret_cast<id>(&detail::constantString<Text>);
#else
    static const id string = [] {
        char16_t units[Text.size() + 1];
        for (std::size_t i = 0; i < Text.size(); ++i) {
            units[i] = static_cast<char16_t>(Text.data[i]);
        }
        return detail::MakeConstantString(units, Text.size());
    }();
    return string;
#endif
}

/// A constant string for tables that stand before any code has run; get() gives the string.
class StringLiteral {
  public:
    constexpr StringLiteral() = default;
    template <FixedString Text> static constexpr StringLiteral Of() {
#if defined(__APPLE__)
        return StringLiteral(&detail::constantString<Text>);
#else
        return StringLiteral(&ConstantString<Text>);
#endif
    }
    /// Nil for a literal that was never given.
    id get() const {
#if defined(__APPLE__)
        return reinterpret_cast<id>(source_);
#else
        return source_ != nullptr ? source_() : nullptr;
#endif
    }

  private:
#if defined(__APPLE__)
    using Source = detail::ConstantStringLayout *;
#else
    using Source = id (*)();
#endif
    constexpr explicit StringLiteral(Source source) : source_(source) {}
    Source source_ = nullptr;
};

} // namespace objc
