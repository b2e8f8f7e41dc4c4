#include "runtime/foundation_differences.hpp"

#include "apple/foundation/data.hpp"
#include "apple/foundation/number.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "runtime/lasting.hpp"
#include "runtime/replace_method.hpp"

namespace sim {
namespace {

// The phone gives a stored number as text; the desktop gives nil for anything but a string.
ns::String StringForKey(ns::UserDefaults self, objc::SEL, ns::String key) {
    const ns::Object value = self.objectForKey(key);
    if (value.Is<ns::Number>()) {
        return objc::As<ns::Number>(value).stringValue();
    }
    return value.Is<ns::String>() ? objc::As<ns::String>(value) : ns::String{};
}

Original<ns::Data, ns::Data, ns::String, unsigned long> originalInitWithBase64 = nullptr;

// The phone wants whole groups of four, padded in the last two characters at most; the desktop takes any number of
// padding characters behind the text, and none.
ns::Data InitWithBase64(ns::Data self, objc::SEL selector, ns::String text, unsigned long options) {
    const unsigned long length = text.length();
    const auto padding =
        objc::Send<"rangeOfString:", ns::Range>(text, "="_ns); // far behind the text when there is none
    if (options == 0 && (length % 4 != 0 || padding.location + 2 < length)) {
        objc::Release(self.pointer);
        return {};
    }
    return originalInitWithBase64(self, selector, text, options);
}

// An exception made without a reason has none on the phone; the desktop makes one up.
ns::String Reason(ns::Object self, objc::SEL) {
    static const std::ptrdiff_t offset =
        ivar_getOffset(class_getInstanceVariable(objc_getClass("NSException"), "_e_reason"));
    return ns::String{*reinterpret_cast<objc::id *>(reinterpret_cast<char *>(self.pointer) + offset)};
}

Original<void, ns::Object> originalRaise = nullptr;

struct InFlight {
    objc::Ref<ns::Object> exception;
};

// The phone's runtime holds an exception until it has been caught. The desktop's does not: an autoreleased one would
// die with the first pool that it unwinds, so the last one raised is held here.
void Raise(ns::Object self, objc::SEL selector) {
    Lasting<InFlight>().exception = self;
    originalRaise(self, selector);
}

} // namespace

void InstallFoundationDifferences() {
    originalInitWithBase64 =
        ReplaceMethod("NSData", objc::Selector<"initWithBase64EncodedString:options:">(), &InitWithBase64);
    ReplaceMethod("NSUserDefaults", objc::Selector<"stringForKey:">(), &StringForKey);
    ReplaceMethod("NSException", objc::Selector<"reason">(), &Reason);
    originalRaise = ReplaceMethod("NSException", objc::Selector<"raise">(), &Raise);
}

} // namespace sim
