#include "runtime/exception_reasons.hpp"

#include "apple/foundation/string.hpp"
#include "runtime/exception.hpp"
#include "runtime/replace_method.hpp"

#include <cstdio>

extern "C" {
/// Gives the function that forwards a message which the receiver has no method for.
extern objc::IMP (*__objc_msg_forward2)(objc::id receiver, objc::SEL selector);
}

namespace sim {
namespace {

std::string Pointer(ns::Object object) {
    char text[24];
    std::snprintf(text, sizeof text, "%p", static_cast<const void *>(object.pointer));
    return text;
}

bool IsClass(ns::Object object) {
    return class_isMetaClass(objc::object_getClass(object.pointer)) != 0;
}

/// "<Class 0x…>"
std::string Named(ns::Object object) {
    return std::string("<") + class_getName(objc::object_getClass(object.pointer)) + " " + Pointer(object) + ">";
}

void DoesNotRecognize(ns::Object self, objc::SEL, objc::SEL unknown) {
    const bool isClass = IsClass(self);
    RaiseException("NSInvalidArgumentException", std::string(isClass ? "+[" : "-[") +
                                                     class_getName(objc::object_getClass(self.pointer)) + " " +
                                                     sel_getName(unknown) + "]: unrecognized selector sent to " +
                                                     (isClass ? "class " : "instance ") + Pointer(self));
}

[[noreturn]] void RaiseForKey(ns::Object self, const char *method, ns::String key) {
    const char *name = key ? key.UTF8String() : "(null)";
    RaiseException("NSUnknownKeyException", "[" + Named(self) + " " + method +
                                                "]: this class is not key value coding-compliant for the key " + name +
                                                ".");
}

ns::Object ValueForUndefinedKey(ns::Object self, objc::SEL, ns::String key) {
    RaiseForKey(self, "valueForUndefinedKey:", key);
}

void SetValueForUndefinedKey(ns::Object self, objc::SEL, ns::Object, ns::String key) {
    RaiseForKey(self, "setValue:forUndefinedKey:", key);
}

objc::IMP (*originalForward)(objc::id, objc::SEL) = nullptr;

// Foundation has words of its own for a message whose types nobody knows; on the phone that is not recognized either.
objc::IMP Forward(objc::id receiver, objc::SEL selector) {
    const ns::Object object{receiver};
    if (object.isKindOfClass(objc::ClassOf<ns::Object>()) &&
        !objc::Send<"methodSignatureForSelector:", ns::Object>(object, selector)) {
        objc::Send<"doesNotRecognizeSelector:", void>(object, selector);
    }
    return originalForward(receiver, selector);
}

} // namespace

void InstallExceptionReasons() {
    ReplaceMethod("NSObject", objc::Selector<"doesNotRecognizeSelector:">(), &DoesNotRecognize);
    ReplaceClassMethod("NSObject", objc::Selector<"doesNotRecognizeSelector:">(), &DoesNotRecognize);
    ReplaceMethod("NSObject", objc::Selector<"valueForUndefinedKey:">(), &ValueForUndefinedKey);
    ReplaceMethod("NSObject", objc::Selector<"setValue:forUndefinedKey:">(), &SetValueForUndefinedKey);
    originalForward = __objc_msg_forward2;
    __objc_msg_forward2 = &Forward;
}

} // namespace sim
