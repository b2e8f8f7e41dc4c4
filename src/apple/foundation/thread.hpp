#pragma once
// NSThread.

#include "apple/foundation/object.hpp"

namespace ns {

struct Thread : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSThread";

    static bool isMainThread() {
        return objc::SendClass<Thread, "isMainThread", bool>();
    }
    /// Blocks the calling thread for the time in seconds.
    static void sleepForTimeInterval(double seconds) {
        objc::SendClass<Thread, "sleepForTimeInterval:", void>(seconds);
    }
};

} // namespace ns
