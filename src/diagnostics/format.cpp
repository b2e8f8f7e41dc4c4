#include "diagnostics/format.hpp"

#include "objc/guard.hpp"

#include <algorithm>
#include <string_view>

namespace corvel {
namespace {

/// The units of a string, fetched a window at a time.
class Units {
  public:
    explicit Units(ns::String string) : string_(string), length_(string.length()) {}

    unsigned long length() const {
        return length_;
    }
    /// The unit at the index; 0 past the end.
    char16_t operator[](unsigned long index) {
        if (index >= length_) {
            return 0;
        }
        if (index < start_ || index >= end_) {
            start_ = index;
            end_ = std::min(length_, index + std::size(window_));
            string_.getCharacters(window_, {start_, end_ - start_});
        }
        return window_[index - start_];
    }

  private:
    ns::String string_;
    unsigned long length_;
    unsigned long start_ = 0;
    unsigned long end_ = 0;
    char16_t window_[256];
};

bool IsOneOf(char16_t unit, std::u16string_view set) {
    return set.find(unit) != std::u16string_view::npos;
}

/// Flags, fields, positions and sizes: what may stand between the percent sign and the letter.
bool IsModifier(char16_t unit) {
    return IsOneOf(unit, u"0123456789-+ #'.*$hlqjztL");
}

/// What a conversion with that letter shows without an argument; nil when there is no such conversion.
ns::String FixedText(char16_t letter) {
    if (IsOneOf(letter, u"@sS")) {
        return "(null)"_ns;
    }
    if (IsOneOf(letter, u"diuoxXDUO")) {
        return "0"_ns;
    }
    if (IsOneOf(letter, u"aAeEfFgG")) {
        return "0.000000"_ns;
    }
    if (IsOneOf(letter, u"cCn")) {
        return ""_ns;
    }
    if (letter == u'p') {
        return "0x0"_ns;
    }
    return letter == u'%' ? "%"_ns : ns::String{};
}

/// What an object says of itself; it may be the host's and raise, or answer anything.
objc::Ref<ns::String> Description(ns::Object object) {
    ns::Object description;
    objc::Guard([&] { description = object.description(); });
    return description.isKindOfClass(objc::ClassOf<ns::String>()) ? objc::As<ns::String>(description) : "(null)"_ns;
}

void Expand(ns::String format, std::span<const FormatArgument> arguments, ns::MutableString result) {
    Units units(format);
    unsigned long copied = 0;
    const auto copyUntil = [&](unsigned long end) {
        if (copied < end) {
            result.appendString(format.substringWithRange({copied, end - copied}));
        }
    };
    unsigned long at = 0;
    while (at < units.length()) {
        if (units[at] != u'%') {
            ++at;
            continue;
        }
        const unsigned long percent = at++;
        while (IsModifier(units[at])) {
            ++at;
        }
        const char16_t letter = units[at];
        const ns::String fixed = FixedText(letter);
        if (!fixed) {
            continue;
        }
        copyUntil(percent);
        copied = ++at;
        objc::Ref<ns::String> text;
        if (letter != u'%' && !arguments.empty()) {
            text = arguments.front().TextFor(letter);
            arguments = arguments.subspan(1);
        }
        result.appendString(text ? text.get() : fixed);
    }
    copyUntil(units.length());
}

} // namespace

objc::Ref<ns::String> FormatArgument::TextFor(char16_t letter) const {
    const bool isInteger = kind_ == Kind::kInteger;
    if (letter == u'@' && kind_ == Kind::kObject) {
        return Description(ns::Object{object_});
    }
    if (IsOneOf(letter, u"di") && isInteger) {
        const auto slot = static_cast<objc::ArgumentSlot>(integer_);
        return ns::Formatted("%lld"_ns, &slot);
    }
    if (letter == u'p' && !isInteger) {
        const void *address = kind_ == Kind::kObject ? object_ : pointer_;
        // The platforms write the null pointer differently, so they are asked for the digits only.
        const auto slot = static_cast<objc::ArgumentSlot>(reinterpret_cast<std::uintptr_t>(address));
        return ns::Formatted("0x%llx"_ns, &slot);
    }
    return {};
}

objc::Ref<ns::String> FormatArguments(ns::String format, std::span<const FormatArgument> arguments) {
    const auto result = ns::New<ns::MutableString>();
    // Only descriptions are known to raise, and they are guarded; whatever else a platform may object to must not
    // reach the host, and what was expanded until then stands.
    objc::Guard([&] { Expand(format, arguments, result); });
    return {result.get()};
}

} // namespace corvel
