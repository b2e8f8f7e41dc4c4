#include "runtime/descriptions.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/data.hpp"
#include "runtime/replace_method.hpp"
#include "runtime/utf16.hpp"

#include <algorithm>
#include <cstdio>
#include <span>
#include <string_view>
#include <vector>

namespace sim {
namespace {

using Text = std::u16string;

constexpr std::size_t kIndentation = 4; // blanks a level

constexpr bool IsPlain(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9');
}

void AppendEscaped(Text &text, char16_t unit) {
    constexpr std::u16string_view kMeant = u"\a\b\f\n\r\t\v\"\\";
    constexpr std::u16string_view kLetters = u"abfnrtv\"\\";
    if (const std::size_t index = kMeant.find(unit); index != std::u16string_view::npos) {
        text += u'\\';
        text += kLetters[index];
    } else if (unit >= u' ' && unit < 0x7F) {
        text += unit;
    } else {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\U%04x", static_cast<unsigned>(unit));
        text.append(escaped, escaped + 6);
    }
}

/// A text as the old property lists have it.
Text Quoted(std::u16string_view plain) {
    if (!plain.empty() && std::ranges::all_of(plain, &IsPlain)) {
        return Text(plain);
    }
    Text text = u"\"";
    for (const char16_t unit : plain) {
        AppendEscaped(text, unit);
    }
    return text + u'"';
}

Text Describe(ns::Array array, std::size_t level);
Text Describe(ns::Dictionary dictionary, std::size_t level);

/// An element of a collection that stands at this level: collections begin with their indentation.
Text DescribeElement(ns::Object element, std::size_t level) {
    if (element.Is<ns::Array>()) {
        return Describe(objc::As<ns::Array>(element), level);
    }
    if (element.Is<ns::Dictionary>()) {
        return Describe(objc::As<ns::Dictionary>(element), level);
    }
    if (element.Is<ns::String>()) {
        return Quoted(UnitsOf(objc::As<ns::String>(element)));
    }
    const Text description = UnitsOf(objc::As<ns::String>(element.description()));
    return element.Is<ns::Data>() ? description : Quoted(description);
}

Text Describe(ns::Array array, std::size_t level) {
    const Text margin(level * kIndentation, u' ');
    Text text = margin + u"(\n";
    bool first = true;
    for (const ns::Object element : ns::ArrayOf<ns::Object>(array)) {
        text += (first ? u"" : u",\n") + margin + Text(kIndentation, u' ') + DescribeElement(element, level + 1);
        first = false;
    }
    return text + (first ? u"" : u"\n") + margin + u")";
}

Text Describe(ns::Dictionary dictionary, std::size_t level) {
    const Text margin(level * kIndentation, u' ');
    std::vector<ns::Object> keys;
    for (const ns::Object key : dictionary.allKeys()) {
        keys.push_back(key);
    }
    if (std::ranges::all_of(keys, [](ns::Object key) { return key.Is<ns::String>(); })) {
        std::ranges::sort(keys, {}, [](ns::Object key) { return UnitsOf(objc::As<ns::String>(key)); });
    }
    Text text = margin + u"{\n";
    for (const ns::Object key : keys) {
        text += margin + Text(kIndentation, u' ') + DescribeElement(key, level + 1) + u" = " +
                DescribeElement(dictionary.objectForKey(key), level + 1) + u";\n";
    }
    return text + margin + u"}";
}

/// Bytes in groups of four, a blank between.
std::string Groups(std::span<const unsigned char> bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%s%02x", i > 0 && i % 4 == 0 ? " " : "", bytes[i]);
        text += digits;
    }
    return text;
}

ns::String DescriptionOfData(ns::Data self, objc::SEL) {
    // Long data shows its beginning and its end, in groups.
    constexpr std::size_t kBeginning = 16;
    constexpr std::size_t kEnd = 8;
    const std::span bytes(static_cast<const unsigned char *>(self.bytes()), self.length());
    std::string shown;
    if (bytes.size() > kBeginning + kEnd) {
        shown = Groups(bytes.first(kBeginning)) + " ... " + Groups(bytes.last(kEnd)) + " ";
    } else {
        for (const unsigned char byte : bytes) {
            shown += Groups({&byte, 1});
        }
    }
    const std::string text = "{length = " + std::to_string(bytes.size()) + ", bytes = 0x" + shown + "}";
    return ns::String::stringWithUTF8String(text.c_str());
}

template <class Collection> void InstallCollection() {
    constexpr const char *kName = Collection::kClassName;
    ReplaceMethod(
        kName, objc::Selector<"description">(),
        +[](Collection self, objc::SEL) { return StringOf(Describe(self, 0)); });
    ReplaceMethod(
        kName, objc::Selector<"descriptionWithLocale:">(),
        +[](Collection self, objc::SEL, ns::Object) { return StringOf(Describe(self, 0)); });
    ReplaceMethod(
        kName, objc::Selector<"descriptionWithLocale:indent:">(),
        +[](Collection self, objc::SEL, ns::Object, unsigned long level) { return StringOf(Describe(self, level)); });
}

} // namespace

void InstallDescriptions() {
    InstallCollection<ns::Array>();
    InstallCollection<ns::Dictionary>();
    ReplaceMethod("NSData", objc::Selector<"description">(), &DescriptionOfData);
}

} // namespace sim
