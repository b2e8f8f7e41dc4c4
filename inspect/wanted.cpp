#include "inspect/wanted.hpp"

#include "adapters/douyin/douyin.hpp"
#include "adapters/hosts.hpp"
#include "adapters/kuaishou/kuaishou.hpp"
#include "adapters/wechat/wechat.hpp"
#include "adapters/xiaohongshu/xiaohongshu.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/foreign_leaks.hpp"

namespace inspect {
namespace {

/// In the order of the library's hosts. They stand here and not in its rows, because the phone has no use for them.
constexpr std::span<const corvel::SendPath> (*kPaths[])() = {&corvel::DouyinSendPaths, &corvel::XiaohongshuSendPaths,
                                                             &corvel::KuaishouSendPaths, &corvel::WeChatSendPaths};

/// The hooks that the present visit has seen; a visitor has no place of its own for them.
std::vector<WantedHook> seen;

std::vector<WantedHook> HooksOf(const corvel::HostApp &host) {
    seen.clear();
    host.forEachHook([](const corvel::MethodHook &hook) {
        seen.push_back({.className = hook.className,
                        .selector = sel_getName(hook.selector()),
                        .usesFirstAsObject = hook.usesFirstAsObject});
    });
    return seen;
}

std::vector<WantedHost> ReadTables() {
    const sim::AutoreleasePool pool;
    const std::span<const corvel::HostApp> apps = corvel::HostApps();
    std::vector<WantedHost> hosts;
    hosts.reserve(apps.size());
    for (std::size_t i = 0; i < apps.size(); ++i) {
        hosts.push_back(
            {.name = ns::String(apps[i].name).UTF8String(), .hooks = HooksOf(apps[i]), .paths = kPaths[i]()});
    }
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
