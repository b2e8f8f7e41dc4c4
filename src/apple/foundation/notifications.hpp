#pragma once
// NSNotificationCenter and the main operation queue.

#include "apple/foundation/collections.hpp"
#include "apple/foundation/string.hpp"
#include "objc/block.hpp"

namespace ns {

struct OperationQueue : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSOperationQueue";

    static OperationQueue mainQueue() {
        return objc::SendClass<OperationQueue, "mainQueue", OperationQueue>();
    }
};

struct Notification : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSNotification";

    Dictionary userInfo() const {
        return objc::Send<"userInfo", Dictionary>(*this);
    }
};

struct NotificationCenter : Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSNotificationCenter";

    static NotificationCenter defaultCenter() {
        return objc::SendClass<NotificationCenter, "defaultCenter", NotificationCenter>();
    }
    Object addObserverForName(String name, Object object, OperationQueue queue,
                              objc::Block<void(Notification)> block) const {
        return objc::Send<"addObserverForName:object:queue:usingBlock:", Object>(*this, name, object, queue, block);
    }
    void removeObserver(Object observer) const {
        objc::Send<"removeObserver:", void>(*this, observer);
    }
    void postNotificationName(String name, Object object) const {
        objc::Send<"postNotificationName:object:", void>(*this, name, object);
    }
};

} // namespace ns
