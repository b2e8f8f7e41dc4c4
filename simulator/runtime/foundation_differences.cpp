#include "runtime/foundation_differences.hpp"

#include "apple/foundation/number.hpp"
#include "apple/foundation/user_defaults.hpp"
#include "runtime/base64.hpp"
#include "runtime/replace_method.hpp"

namespace sim {
namespace {

// The phone gives a stored number as text; the desktop gives nil for anything but a string.
ns::String StringForKey(ns::UserDefaults self, objc::SEL, ns::String key) {
    const ns::Object value = self.objectForKey(key);
    if (value && value.isKindOfClass(objc::ClassOf<ns::Number>())) {
        return objc::Send<"stringValue", ns::String>(objc::As<ns::Number>(value));
    }
    return value && value.isKindOfClass(objc::ClassOf<ns::String>()) ? objc::As<ns::String>(value) : ns::String{};
}

// An exception made without a reason has none on the phone; the desktop makes one up.
ns::String Reason(ns::Object self, objc::SEL) {
    static const std::ptrdiff_t offset =
        ivar_getOffset(class_getInstanceVariable(objc_getClass("NSException"), "_e_reason"));
    return ns::String{*reinterpret_cast<objc::id *>(reinterpret_cast<char *>(self.pointer) + offset)};
}

objc::IMP originalRaise = nullptr;

// The phone's runtime holds an exception until it has been caught. The desktop's does not: an autoreleased one would
// die with the first pool that it unwinds, so the last one raised is held here.
void Raise(ns::Object self, objc::SEL selector) {
    static auto &inFlight = *new objc::Ref<ns::Object>;
    inFlight = self;
    reinterpret_cast<void (*)(ns::Object, objc::SEL)>(originalRaise)(self, selector);
}

} // namespace

void InstallFoundationDifferences() {
    InstallBase64();
    ReplaceMethod("NSUserDefaults", objc::Selector<"stringForKey:">(), &StringForKey);
    ReplaceMethod("NSException", objc::Selector<"reason">(), &Reason);
    originalRaise = ReplaceMethod("NSException", objc::Selector<"raise">(), &Raise);
}

} // namespace sim
