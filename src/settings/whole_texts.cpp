#include "settings/whole_texts.hpp"

#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"
#include "settings/byte_buffer.hpp"

namespace corvel {
namespace {

bool IsHigh(char16_t unit) {
    return (unit & 0xfc00) == 0xd800;
}
bool IsLow(char16_t unit) {
    return (unit & 0xfc00) == 0xdc00;
}

/// Replaces the halves that stand alone; whether there was one.
bool MakeWhole(char16_t *units, unsigned long count) {
    bool changed = false;
    for (unsigned long i = 0; i < count; ++i) {
        if (IsHigh(units[i]) && i + 1 < count && IsLow(units[i + 1])) {
            ++i;
        } else if (IsHigh(units[i]) || IsLow(units[i])) {
            units[i] = u'\ufffd';
            changed = true;
        }
    }
    return changed;
}

ns::String WholeText(ns::String text) {
    const unsigned long length = text.length();
    ByteBuffer buffer;
    if (length == 0 || !buffer.Resize(length * sizeof(char16_t))) {
        return text;
    }
    auto *const units = reinterpret_cast<char16_t *>(buffer.data());
    text.getCharacters(units, {0, length});
    return MakeWhole(units, length) ? ns::String::stringWithCharacters(units, length) : text;
}

objc::Ref<ns::Object> WholeArray(ns::Array elements) {
    const auto whole = ns::New<ns::MutableArray>();
    for (const ns::Object element : ns::ArrayOf<ns::Object>(elements)) {
        whole->addObject(WithWholeTexts(element));
    }
    return whole.get();
}

objc::Ref<ns::Object> WholeDictionary(ns::Dictionary members) {
    const auto whole = ns::New<ns::MutableDictionary>();
    for (const ns::Object key : members.allKeys()) {
        whole->setObject(WithWholeTexts(members.objectForKey(key)), WithWholeTexts(key));
    }
    return whole.get();
}

} // namespace

objc::Ref<ns::Object> WithWholeTexts(ns::Object value) {
    if (value.Is<ns::String>()) {
        return WholeText(objc::As<ns::String>(value));
    }
    if (value.Is<ns::Array>()) {
        return WholeArray(objc::As<ns::Array>(value));
    }
    if (value.Is<ns::Dictionary>()) {
        return WholeDictionary(objc::As<ns::Dictionary>(value));
    }
    return value;
}

} // namespace corvel
