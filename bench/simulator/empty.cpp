// The least that a program on Foundation does: it starts, makes an autorelease pool, asks for the defaults, as every
// app does before its first line runs, and ends. The process's start alone is what costs.

#include "objc/runtime.hpp"

namespace {

objc::id Send(objc::id receiver, const char *name) {
    const objc::SEL selector = sel_registerName(name);
    return reinterpret_cast<objc::id (*)(objc::id, objc::SEL)>(objc_msg_lookup(receiver, selector))(receiver, selector);
}

objc::id ClassNamed(const char *name) {
    return reinterpret_cast<objc::id>(objc_getClass(name));
}

} // namespace

int main() {
    const objc::id pool = Send(Send(ClassNamed("NSAutoreleasePool"), "alloc"), "init");
    Send(ClassNamed("NSUserDefaults"), "standardUserDefaults");
    Send(pool, "release");
    return 0;
}
