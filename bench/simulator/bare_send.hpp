#pragma once
// Messages as a compiler would send them: looked up and called.

#include "objc/runtime.hpp"

namespace bench {

template <class R = objc::id, class... A> R Send(objc::id receiver, const char *name, A... arguments) {
    const objc::SEL selector = sel_registerName(name);
    const auto method = reinterpret_cast<R (*)(objc::id, objc::SEL, A...)>(objc_msg_lookup(receiver, selector));
    return method(receiver, selector, arguments...);
}

inline objc::id ClassNamed(const char *name) {
    return reinterpret_cast<objc::id>(objc_getClass(name));
}

} // namespace bench
