#include "inspect/wanted.hpp"

#include "adapters/douyin/douyin.hpp"
#include "adapters/hosts.hpp"
#include "adapters/kuaishou/kuaishou.hpp"
#include "adapters/wechat/wechat.hpp"
#include "adapters/xiaohongshu/xiaohongshu.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/foreign_leaks.hpp"

#include <algorithm>

namespace inspect {
namespace {

/// In the order of the library's hosts. They stand here and not in its rows, because the phone has no use for them.
constexpr std::span<const corvel::SendPath> (*kPaths[])() = {&corvel::DouyinSendPaths, &corvel::XiaohongshuSendPaths,
                                                             &corvel::KuaishouSendPaths, &corvel::WeChatSendPaths};

std::vector<WantedHook> HooksOf(const corvel::HostApp &host) {
    std::vector<WantedHook> hooks;
    for (const corvel::MethodHook &hook : host.hooks()) {
        hooks.push_back({.className = hook.className,
                         .selector = sel_getName(hook.selector()),
                         .usesFirstAsObject = hook.usesFirstAsObject});
    }
    return hooks;
}

/// The latency options, an entry for each switch, whose getters may stand in several rows.
std::vector<WantedOption> DouyinOptions() {
    std::vector<WantedOption> options;
    for (const corvel::LatencyOption &row : corvel::LatencyOptions()) {
        const std::string key = row.preference.key().UTF8String();
        auto option = std::ranges::find(options, key, &WantedOption::key);
        if (option == options.end()) {
            option = options.insert(option, {.key = key, .getters = {}});
        }
        for (const corvel::ForcedGetter &forced : row.getters) {
            if (forced.selector) {
                option->getters.push_back({.className = ns::String(row.player.name).UTF8String(),
                                           .selector = sel_getName(forced.selector()),
                                           .forced = &forced});
            }
        }
    }
    return options;
}

std::vector<WantedHost> ReadTables() {
    const sim::AutoreleasePool pool;
    const std::span<const corvel::HostApp> apps = corvel::HostApps();
    std::vector<WantedHost> hosts;
    hosts.reserve(apps.size());
    for (std::size_t i = 0; i < apps.size(); ++i) {
        hosts.push_back({.name = ns::String(apps[i].name).UTF8String(),
                         .hooks = HooksOf(apps[i]),
                         .paths = kPaths[i](),
                         .options = {}});
    }
    hosts[static_cast<std::size_t>(corvel::HostPlatform::kDouyin)].options = DouyinOptions();
    return hosts;
}

} // namespace

const std::vector<WantedHost> &WantedHosts() {
    static const std::vector<WantedHost> hosts = ReadTables();
    return hosts;
}

std::size_t HostWithIdentifier(const std::string &identifier) {
    const sim::AutoreleasePool pool;
    const sim::ForeignLeaks search; // what GNUstep makes once, at its first search in a text, and keeps
    return static_cast<std::size_t>(corvel::HostOf(ns::String::stringWithUTF8String(identifier.c_str())));
}

} // namespace inspect
