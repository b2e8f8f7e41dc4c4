// The desktop's message lookup: every send is held against the method that it
// reaches, so a wrong declaration stops at once instead of shifting arguments.
#if !defined(__APPLE__)

#include "objc/encoding_compare.hpp"
#include "objc/send.hpp"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <link.h>

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

/// Where a file lies in memory.
struct Extent {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
};

/// Foundation's. It is linked, so that it lies at one place from the start to the end.
Extent FindFoundation() {
    Extent extent;
    dl_iterate_phdr(
        [](dl_phdr_info *file, std::size_t, void *found) {
            if (std::strstr(file->dlpi_name, "libgnustep-base") == nullptr) {
                return 0;
            }
            auto &whole = *static_cast<Extent *>(found);
            for (int i = 0; i < file->dlpi_phnum; ++i) {
                const auto &part = file->dlpi_phdr[i];
                if (part.p_type == PT_LOAD) { // in the order of their addresses
                    whole.begin = whole.end == 0 ? file->dlpi_addr + part.p_vaddr : whole.begin;
                    whole.end = file->dlpi_addr + part.p_vaddr + part.p_memsz;
                }
            }
            return 1;
        },
        &extent);
    return extent;
}

/// Foundation's own declarations are the desktop's, whose integers differ; whatever is registered at run time is
/// written as the phone has it.
Integers IntegersOf(const char *encoding) {
    static const Extent foundation = FindFoundation();
    const auto address = reinterpret_cast<std::uintptr_t>(encoding);
    return address >= foundation.begin && address < foundation.end ? Integers::kLoose : Integers::kExact;
}

/// One word for a site and a class that it has met: their addresses, mixed by an odd factor so that no two pairs share
/// it.
std::uintptr_t KeyOf(const SendSite &site, Class cls) {
    constexpr std::uintptr_t kOdd = 0x9e3779b97f4a7c15;
    return reinterpret_cast<std::uintptr_t>(&site) + (reinterpret_cast<std::uintptr_t>(cls) * kOdd);
}

/// Where the pairs that have been checked are remembered; one that another has taken the place of is checked again.
std::atomic<std::uintptr_t> &EntryOf(const SendSite &site, Class cls) {
    constexpr unsigned kBits = 13;
    static std::atomic<std::uintptr_t> checked[std::size_t{1} << kBits];
    return checked[(KeyOf(site, cls) * 0xff51afd7ed558ccd) >> (64 - kBits)];
}

void Check(SendSite &site, Class cls, SEL selector) {
    if (!site.traced) {
        Trace(site);
    }
    if (site.checkedClass == cls) {
        return;
    }
    // One site may meet many classes in turn: a view's method those of all views.
    std::atomic<std::uintptr_t> &entry = EntryOf(site, cls);
    const std::uintptr_t key = KeyOf(site, cls);
    if (entry.load(std::memory_order_relaxed) == key) {
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
    entry.store(key, std::memory_order_relaxed);
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
