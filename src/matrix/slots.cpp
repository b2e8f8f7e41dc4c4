#include "matrix/slots.hpp"

#include "preferences/preferences.hpp"

#include <algorithm>
#include <iterator>

namespace corvel {

namespace {

/// The text with a number of 0 or more behind it, in decimal digits. A layout asks for many: the platform's formatting
/// would be most of what it does.
template <std::size_t N> ns::String Numbered(const char (&text)[N], int number) {
    constexpr std::size_t kMostDigits = 10;
    char units[N + kMostDigits];
    std::size_t first = std::size(units) - 1;
    units[first] = '\0';
    do {
        units[--first] = static_cast<char>('0' + (number % 10));
        number /= 10;
    } while (number > 0);
    first -= N - 1;
    std::copy_n(text, N - 1, units + first);
    return ns::String::stringWithUTF8String(units + first);
}

} // namespace

objc::Ref<ns::String> SlotKey(int index) {
    return Numbered("Corvel.slots.", index);
}

objc::Ref<ns::String> SlotText(ns::String key, int index) {
    const ns::String text = ReadStringPreference(key, nullptr);
    // The number is a real text: a tap sends it and the editor opens with it.
    return text ? text : Numbered("", index + 1);
}

objc::Ref<ns::String> SlotDisplayText(int index) {
    return SlotText(SlotKey(index), index);
}

} // namespace corvel
