#pragma once
// The calls that change classes. What they cost is the desk's own: its runtime builds whole dispatch tables where the
// phone's fills caches, and takes a hundred times as long as everything else of a load. They are counted by number
// instead of by instructions, and the tables are built before anything else counts.

#include "marks.hpp"

#include "objc/runtime.hpp"
#include "runtime/method_caches.hpp"

#include <string>

namespace bench {

/// How many of these calls have been made.
inline int classChanges = 0;

/// Instructions do not count while it lives.
class Uncounted {
  public:
    Uncounted() {
        ++classChanges;
        Set(kPause);
    }
    Uncounted(const Uncounted &) = delete;
    Uncounted &operator=(const Uncounted &) = delete;
    ~Uncounted() {
        sim::BuildTables();
        Set(kResume);
    }
};

template <auto Function> struct Change;
template <class R, class... A, R (*Function)(A...)> struct Change<Function> {
    static R Make(A... arguments) {
        const Uncounted call;
        return Function(arguments...);
    }
};

inline constexpr auto kAllocateClass = &Change<&objc_allocateClassPair>::Make;
inline constexpr auto kRegisterClass = &Change<&objc_registerClassPair>::Make;
inline constexpr auto kAddMethod = &Change<&class_addMethod>::Make;
inline constexpr auto kAddProtocol = &Change<&class_addProtocol>::Make;
inline constexpr auto kSetImplementation = &Change<&method_setImplementation>::Make;

/// What an image's import of such a function is bound to; null for all other imports.
inline void *ClassChange(const std::string &symbol) {
    return symbol == "_objc_allocateClassPair"     ? reinterpret_cast<void *>(kAllocateClass)
           : symbol == "_objc_registerClassPair"   ? reinterpret_cast<void *>(kRegisterClass)
           : symbol == "_class_addMethod"          ? reinterpret_cast<void *>(kAddMethod)
           : symbol == "_class_addProtocol"        ? reinterpret_cast<void *>(kAddProtocol)
           : symbol == "_method_setImplementation" ? reinterpret_cast<void *>(kSetImplementation)
                                                   : nullptr;
}

} // namespace bench
