#include "matrix/slots.hpp"

#include "preferences/preferences.hpp"

#include <algorithm>
#include <array>
#include <iterator>

namespace corvel {
namespace {

constexpr std::size_t kMostSlots = kGridCustomColumns.most() * kGridCustomRows.most();

/// The text with a number behind it, in decimal digits. A layout asks for many: the platform's formatting would be most
/// of what it does.
template <std::size_t N> ns::String Numbered(const char (&text)[N], long number) {
    constexpr std::size_t kLongestNumber = 20; // with its sign
    char units[N + kLongestNumber];
    const bool isNegative = number < 0;
    auto rest = static_cast<unsigned long>(isNegative ? -number : number);
    std::size_t first = std::size(units) - 1;
    units[first] = '\0';
    do {
        units[--first] = static_cast<char>('0' + (rest % 10));
        rest /= 10;
    } while (rest > 0);
    if (isNegative) {
        units[--first] = '-';
    }
    first -= N - 1;
    std::copy_n(text, N - 1, units + first);
    return ns::String::stringWithUTF8String(units + first);
}

} // namespace

ns::String SlotKey(int index) {
    // Kept: each layout looks every slot up.
    [[clang::no_destroy]] static constinit std::array<objc::Ref<ns::String>, kMostSlots> keys{};
    const auto place = static_cast<std::size_t>(index); // whoever runs a handler of ours may bring a view with any tag
    if (place >= keys.size()) {
        return Numbered("Corvel.slots.", index);
    }
    objc::Ref<ns::String> &key = keys[place];
    if (!key) {
        key = Numbered("Corvel.slots.", index);
    }
    return key;
}

objc::Ref<ns::String> SlotDisplayText(int index) {
    const ns::String text = ReadStringPreference(SlotKey(index), nullptr);
    // The number is a real text: a tap sends it and the editor opens with it.
    return text ? text : Numbered("", index + 1L);
}

} // namespace corvel
