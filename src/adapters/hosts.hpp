#pragma once
// The host apps: what the library knows of each stands in one row of hosts.cpp, and in the app's own folder.

#include "adapters/method_hook.hpp"
#include "apple/foundation/string.hpp"
#include "apple/uikit/color.hpp"

#include <span>

namespace corvel {

/// The numbers are those of the rows.
enum class HostPlatform : long { kDouyin = 0, kXiaohongshu = 1, kKuaishou = 2, kWeChat = 3 };

struct HostApp {
    /// The name that log lines use.
    ns::Literal name;
    /// What the app's bundle identifier contains; the second may be empty.
    ns::Literal identifierParts[2];
    /// The float button's.
    ui::Color (*color)();
    /// Whether a comment object is held through which comments can be sent. Main thread.
    bool (*isReady)();
    /// Sends the text (a string; nil or empty sends "额") as a live comment. The outcome goes to the debug log only,
    /// and no exception of the host passes. Main thread, like the host methods that give us those objects.
    void (*send)(objc::id text);
    /// The hooks of the app's classes, in their order. All are installed in every host: a class that the host lacks
    /// leaves its hooks uninstalled.
    std::span<const MethodHook> (*hooks)();
};

/// All rows, by number.
std::span<const HostApp> HostApps();

/// Tells the host by its bundle's identifier; an unknown one, and nil, count as Douyin.
HostPlatform HostOf(ns::String identifier);

/// The host that this process is, by the main bundle's identifier. Never cached.
HostPlatform DetectHostPlatform();

/// The row of the host that this process is.
const HostApp &PresentHost();

} // namespace corvel
