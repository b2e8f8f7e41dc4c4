#include "runtime/replace_method.hpp"

#include "objc/class_builder.hpp"
#include "objc/encoding_compare.hpp"
#include "runtime/method_caches.hpp"

#include <cstdio>
#include <cstdlib>

namespace sim::detail {

objc::IMP ReplaceChecked(const char *className, objc::SEL selector, objc::IMP replacement, const char *encoding,
                         bool classMethod) {
    objc::Class cls = objc_getClass(className);
    if (cls != nullptr && classMethod) {
        cls = objc::MetaclassOf(cls);
    }
    const objc::Method method = cls != nullptr ? class_getInstanceMethod(cls, selector) : nullptr;
    if (method == nullptr) {
        std::fprintf(stderr, "cannot replace missing method %c[%s %s]\n", classMethod ? '+' : '-', className,
                     sel_getName(selector));
        std::abort();
    }
    if (!objc::SameEncoding(encoding, method_getTypeEncoding(method), objc::Integers::kLoose)) {
        std::fprintf(stderr, "cannot replace %c[%s %s] declared %s by a function of type %s\n", classMethod ? '+' : '-',
                     className, sel_getName(selector), method_getTypeEncoding(method), encoding);
        std::abort();
    }
    const objc::IMP original = method_getImplementation(method);
    // Adding fails exactly where the class has a method of its own.
    if (!class_addMethod(cls, selector, replacement, encoding)) {
        SetImplementation(cls, method, replacement);
    }
    return original;
}

} // namespace sim::detail
