#include "runtime/base64.hpp"

#include "apple/foundation/data.hpp"
#include "runtime/replace_method.hpp"

namespace sim {
namespace {

objc::IMP originalInit = nullptr;

/// Whether the text comes in whole groups of four with nothing but its last one or two characters for padding.
bool IsPadded(ns::String text) {
    const unsigned long length = text.length();
    if (length % 4 != 0) {
        return false;
    }
    for (unsigned long i = 0; i < length; ++i) {
        const bool mayPad = i + 1 == length || (i + 2 == length && text.characterAtIndex(length - 1) == u'=');
        if (text.characterAtIndex(i) == u'=' && !mayPad) {
            return false;
        }
    }
    return true;
}

ns::Data Init(ns::Data self, objc::SEL selector, ns::String text, unsigned long options) {
    if (options == 0 && !IsPadded(text)) {
        objc::Release(self.pointer);
        return {};
    }
    using Original = ns::Data (*)(ns::Data, objc::SEL, ns::String, unsigned long);
    return reinterpret_cast<Original>(originalInit)(self, selector, text, options);
}

} // namespace

void InstallBase64() {
    originalInit = ReplaceMethod("NSData", objc::Selector<"initWithBase64EncodedString:options:">(), &Init);
}

} // namespace sim
