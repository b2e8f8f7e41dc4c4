#include "adapters/wechat/plugin_switch.hpp"

#include "adapters/hosts.hpp"
#include "objc/guard.hpp"
#include "preferences/preferences.hpp"

namespace corvel {
namespace {

/// WeChat's registry of plugins, which only a WeChat with a plugin manager has.
struct PluginsManager : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "WCPluginsMgr";

    static PluginsManager sharedInstance() {
        return objc::SendClass<PluginsManager, "sharedInstance", PluginsManager>();
    }
    void registerSwitchWithTitle(ns::String title, ns::String key) const {
        objc::Send<"registerSwitchWithTitle:key:", void>(*this, title, key);
    }
};

} // namespace

bool IsFinderSwitchOn() {
    return DetectHostPlatform() == HostPlatform::kWeChat && kWeChatFloatSwitch.Read();
}

void RegisterWeChatPluginSwitch() {
    if (DetectHostPlatform() != HostPlatform::kWeChat) {
        return;
    }
    objc::Guard([] {
        const auto manager = PluginsManager::sharedInstance();
        if (manager.respondsToSelector(objc::Selector<"registerSwitchWithTitle:key:">())) {
            manager.registerSwitchWithTitle("Corvel"_ns, kWeChatFloatSwitch.key());
        }
    });
}

} // namespace corvel
