// The desktop's message lookup: every send is held against the method that it
// reaches, so a wrong declaration stops at once instead of shifting arguments.
#if !defined(__APPLE__)

#include "objc/encoding_compare.hpp"
#include "objc/send.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>

namespace objc::detail {
namespace {

#if defined(CORVEL_TRACES_SENDS)
void Trace(SendSite &site) {
    site.traced = true;
    const char *path = std::getenv("CORVEL_SEND_TRACE");
    if (path == nullptr) {
        return;
    }
    // Appended line by line: several runs may share one file.
    if (std::FILE *file = std::fopen(path, "a")) {
        std::fprintf(file, "%s\t%c\t%s\t%s\n", site.className, site.kind, site.selectorName, site.encoding);
        std::fclose(file);
    }
}
#else
void Trace(SendSite &site) {
    site.traced = true;
}
#endif

/// Foundation's own declarations are the desktop's, whose integers differ; whatever is registered at run time is
/// written as the phone has it.
Integers IntegersOf(const char *encoding) {
    Dl_info place;
    const bool foundations =
        dladdr(encoding, &place) != 0 && std::strstr(place.dli_fname, "libgnustep-base") != nullptr;
    return foundations ? Integers::kLoose : Integers::kExact;
}

void Check(SendSite &site, Class cls, SEL selector) {
    if (!site.traced) {
        Trace(site);
    }
    if (site.checkedClass == cls) {
        return;
    }
    // A class without the method forwards the message or raises; there is nothing to compare then.
    if (Method method = class_getInstanceMethod(cls, selector)) {
        const char *found = method_getTypeEncoding(method);
        if (!SameEncoding(site.encoding, found, IntegersOf(found))) {
            std::fprintf(stderr, "send of %c[%s %s] as %s reaches a method of %s declared %s\n", site.kind,
                         site.className, site.selectorName, site.encoding, class_getName(cls), found);
            std::abort();
        }
    }
    site.checkedClass = cls;
}

} // namespace

IMP Lookup(SendSite &site, id receiver, SEL selector) {
    Check(site, object_getClass(receiver), selector);
    return objc_msg_lookup(receiver, selector);
}

IMP LookupSuper(SendSite &site, Super super, SEL selector) {
    Check(site, super.superclass, selector);
    return objc_msg_lookup_super(&super, selector);
}

} // namespace objc::detail
#endif
