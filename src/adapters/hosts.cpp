#include "adapters/hosts.hpp"

#include "adapters/douyin/douyin.hpp"
#include "adapters/kuaishou/kuaishou.hpp"
#include "adapters/wechat/wechat.hpp"
#include "adapters/xiaohongshu/xiaohongshu.hpp"
#include "apple/foundation/bundle.hpp"

#include <algorithm>

namespace corvel {
namespace {

/// In the order of HostPlatform, which is also the order in which identifiers are tried.
constexpr HostApp kHosts[] = {
    {.name = "douyin"_literal,
     .identifierParts = {"Aweme"_literal},
     .color = &ui::Color::systemPinkColor,
     .isReady = &DY_IsReady,
     .send = &DY_SendMessage,
     .hooks = &DouyinHooks},
    {.name = "xhs"_literal,
     .identifierParts = {"xingin"_literal, "discover"_literal},
     .color = &ui::Color::systemGreenColor,
     .isReady = &XHS_IsReady,
     .send = &XHS_SendMessage,
     .hooks = &XiaohongshuHooks},
    {.name = "kuaishou"_literal,
     .identifierParts = {"jiangjia"_literal, "gif"_literal},
     .color = &ui::Color::systemOrangeColor,
     .isReady = &KS_IsReady,
     .send = &KS_SendMessage,
     .hooks = &KuaishouHooks},
    {.name = "finder"_literal,
     .identifierParts = {"tencent"_literal},
     .color = &ui::Color::systemBlueColor,
     .isReady = &FC_IsReady,
     .send = &FC_SendMessage,
     .hooks = &WeChatHooks},
};

/// A nil identifier contains nothing, and so does an empty part count for nothing.
bool Names(const HostApp &host, ns::String identifier) {
    return std::ranges::any_of(host.identifierParts,
                               [&](ns::String part) { return part && identifier.containsString(part); });
}

} // namespace

std::span<const HostApp> HostApps() {
    return kHosts;
}

HostPlatform HostOf(ns::String identifier) {
    for (const HostApp &host : kHosts) {
        if (Names(host, identifier)) {
            return static_cast<HostPlatform>(&host - kHosts);
        }
    }
    return HostPlatform::kDouyin; // an unknown host is treated as Douyin everywhere
}

HostPlatform DetectHostPlatform() {
    return HostOf(ns::Bundle::mainBundle().bundleIdentifier());
}

const HostApp &PresentHost() {
    return kHosts[static_cast<long>(DetectHostPlatform())];
}

} // namespace corvel
