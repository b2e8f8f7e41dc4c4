#include "configuration.hpp"

#include "matrix/slots.hpp"
#include "preferences/own_keys.hpp"

#include <string>

namespace bench {

objc::Ref<ns::String> SlotText(int slot, unsigned long units) {
    constexpr std::u16string_view kTexts = u"主播今天状态真好这首歌太好听了再来一遍关注已点双击屏幕666";
    std::u16string text;
    for (unsigned long i = 0; i < units; ++i) {
        text += kTexts[(static_cast<unsigned long>(slot) + i) % kTexts.size()];
    }
    return ns::String::stringWithCharacters(text.data(), text.size());
}

void StoreGrid(int columns, int rows, unsigned long units) {
    const auto store = ns::UserDefaults::standardUserDefaults();
    corvel::VisitOwnKeys(store, [&](ns::String key, ns::Object) { store.removeObjectForKey(key); });
    corvel::kGridPresetIndex.Write(corvel::kGridPresetIndex.most());
    corvel::kGridCustomColumns.Write(columns);
    corvel::kGridCustomRows.Write(rows);
    for (int slot = 0; slot < columns * rows; ++slot) {
        corvel::StoreObject(corvel::SlotKey(slot), SlotText(slot, units).get());
    }
    corvel::SynchronizeDefaults();
}

} // namespace bench
