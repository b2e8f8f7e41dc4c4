// The least that a program on Foundation does: it starts, makes an autorelease pool, asks for the defaults, as every
// app does before its first line runs, and ends. The process's start alone is what costs.

#include "simulator/bare_send.hpp"

int main() {
    using namespace bench;
    const objc::id pool = Send(Send(ClassNamed("NSAutoreleasePool"), "alloc"), "init");
    Send(ClassNamed("NSUserDefaults"), "standardUserDefaults");
    Send<void>(pool, "release");
    return 0;
}
