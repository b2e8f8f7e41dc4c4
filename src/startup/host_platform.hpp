#pragma once
// Which host application the library is running in.

#include "apple/foundation/string.hpp"

namespace corvel {

enum class HostPlatform : long { kDouyin = 0, kXiaohongshu = 1, kKuaishou = 2, kFinder = 3 };

/// Tells the host by substrings of the main bundle's identifier; an unknown one counts as Douyin. Never cached.
HostPlatform DetectHostPlatform();

/// The name that log lines use: "douyin", "xhs", "kuaishou", "finder".
ns::String HostPlatformName(HostPlatform platform);

} // namespace corvel
