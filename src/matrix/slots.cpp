#include "matrix/slots.hpp"

#include "preferences/preferences.hpp"

namespace corvel {

objc::Ref<ns::String> SlotKey(int index) {
    const objc::ArgumentSlot arguments[] = {reinterpret_cast<objc::ArgumentSlot>(kKeyPrefix.get()),
                                            static_cast<objc::ArgumentSlot>(index)};
    return ns::Formatted("%@slots.%d"_ns, arguments);
}

objc::Ref<ns::String> SlotDisplayText(int index) {
    // The number is a real text: a tap sends it and the editor opens with it.
    const objc::ArgumentSlot arguments[] = {static_cast<objc::ArgumentSlot>(index + 1)};
    const objc::Ref<ns::String> number = ns::Formatted("%d"_ns, arguments);
    return ReadStringPreference(SlotKey(index), number);
}

} // namespace corvel
