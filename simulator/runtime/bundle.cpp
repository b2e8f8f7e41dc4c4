#include "runtime/bundle.hpp"

#include "apple/foundation/bundle.hpp"
#include "runtime/replace_method.hpp"

namespace sim {
namespace {

objc::IMP originalIdentifier = nullptr;

/// Never destroyed: the bundle answers until the very end of the process.
objc::Ref<ns::String> &Identifier() {
    static auto &identifier = *new objc::Ref<ns::String>;
    return identifier;
}

ns::String BundleIdentifier(ns::Bundle self, objc::SEL selector) {
    if (self == ns::Bundle::mainBundle()) {
        return Identifier();
    }
    return reinterpret_cast<ns::String (*)(ns::Bundle, objc::SEL)>(originalIdentifier)(self, selector);
}

} // namespace

void SetBundleIdentifier(const char *identifier) {
    Identifier() = identifier != nullptr ? ns::String::stringWithUTF8String(identifier) : ns::String{};
}

void InstallBundleIdentity() {
    originalIdentifier = ReplaceMethod("NSBundle", objc::Selector<"bundleIdentifier">(), &BundleIdentifier);
}

} // namespace sim
