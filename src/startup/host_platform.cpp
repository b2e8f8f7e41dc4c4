#include "startup/host_platform.hpp"

#include "apple/foundation/bundle.hpp"

namespace corvel {

HostPlatform DetectHostPlatform() {
    // A nil identifier contains nothing. The order counts where an identifier holds more than one of these.
    const ns::String identifier = ns::Bundle::mainBundle().bundleIdentifier();
    if (identifier.containsString("Aweme"_ns)) {
        return HostPlatform::kDouyin;
    }
    if (identifier.containsString("xingin"_ns) || identifier.containsString("discover"_ns)) {
        return HostPlatform::kXiaohongshu;
    }
    if (identifier.containsString("jiangjia"_ns) || identifier.containsString("gif"_ns)) {
        return HostPlatform::kKuaishou;
    }
    if (identifier.containsString("tencent"_ns)) {
        return HostPlatform::kFinder;
    }
    return HostPlatform::kDouyin; // an unknown host is treated as Douyin everywhere
}

ns::String HostPlatformName(HostPlatform platform) {
    switch (platform) {
    case HostPlatform::kDouyin:
        return "douyin"_ns;
    case HostPlatform::kXiaohongshu:
        return "xhs"_ns;
    case HostPlatform::kKuaishou:
        return "kuaishou"_ns;
    case HostPlatform::kFinder:
        return "finder"_ns;
    }
    return {};
}

} // namespace corvel
