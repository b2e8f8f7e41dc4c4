#include "runtime/bundle.hpp"

#include "apple/foundation/bundle.hpp"
#include "runtime/lasting.hpp"
#include "runtime/replace_method.hpp"

namespace sim {
namespace {

Original<ns::String, ns::Bundle> originalIdentifier = nullptr;

struct Identity {
    objc::Ref<ns::String> identifier;
};

ns::String BundleIdentifier(ns::Bundle self, objc::SEL selector) {
    if (self == ns::Bundle::mainBundle()) {
        return Lasting<Identity>().identifier;
    }
    return originalIdentifier(self, selector);
}

} // namespace

void SetBundleIdentifier(const char *identifier) {
    Lasting<Identity>().identifier =
        identifier != nullptr ? ns::String::stringWithUTF8String(identifier) : ns::String{};
}

void InstallBundleIdentity() {
    originalIdentifier = ReplaceMethod("NSBundle", objc::Selector<"bundleIdentifier">(), &BundleIdentifier);
}

} // namespace sim
