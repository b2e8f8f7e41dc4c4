#include "startup/finder_switch.hpp"

#include "objc/guard.hpp"
#include "overlay/init_ui.hpp"
#include "overlay/state.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"
#include "startup/host_platform.hpp"

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
    return DetectHostPlatform() == HostPlatform::kFinder && ReadBoolPreference(keys::WeChatFloatSwitch());
}

void RegisterWeChatPluginSwitch() {
    if (DetectHostPlatform() != HostPlatform::kFinder) {
        return;
    }
    objc::Guard([] {
        const auto manager = PluginsManager::sharedInstance();
        if (manager.respondsToSelector(objc::Selector<"registerSwitchWithTitle:key:">())) {
            manager.registerSwitchWithTitle("Corvel"_ns, keys::WeChatFloatSwitch());
        }
    });
}

void RefreshFinderSwitch() {
    const bool on = IsFinderSwitchOn();
    if (on != Overlay().lastFinderSwitch) {
        Overlay().lastFinderSwitch = on;
        InitUI();
    }
}

} // namespace corvel
