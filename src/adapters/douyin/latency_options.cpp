// Douyin's latency options: getters of the host's live player are replaced so that every instance reports forced
// values. That happens once, soon after the host starts; what is forced stays forced until the host ends.

#include "adapters/installers.hpp"
#include "apple/dispatch/queue.hpp"
#include "apple/foundation/thread.hpp"
#include "diagnostics/debug_log.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"

namespace corvel {
namespace {

/// Time for the host to bring its player up.
constexpr double kApplyDelaySeconds = 3.0;

ns::String SelectorName(objc::SEL selector) {
    return ns::String::stringWithUTF8String(sel_getName(selector));
}

/// Makes a getter answer the value, in the class that defines it even if that is a superclass. Whether there is such
/// a getter.
template <class T> bool ForceGetter(objc::Class cls, objc::SEL selector, T value) {
    const objc::Method getter = class_getInstanceMethod(cls, selector);
    if (getter == nullptr) {
        return false;
    }
    auto answer = objc::MakeBlock<T(objc::id)>([value](objc::id) { return value; });
    method_setImplementation(getter, imp_implementationWithBlock(objc::Block<T(objc::id)>(answer).pointer));
    return true;
}

void ForceIntegerGetter(objc::Class cls, objc::SEL selector, std::int64_t value, ns::String label) {
    if (ForceGetter(cls, selector, value)) {
        DebugLog(u"[DY] ⚡ %@.%@ → %lld"_ns, label, SelectorName(selector), value);
    }
}

void ForceBoolGetter(objc::Class cls, objc::SEL selector, bool value = true) {
    if (ForceGetter(cls, selector, value)) {
        DebugLog(value ? u"[DY] ⚡ %@.%@ → forced YES"_ns : u"[DY] ⚡ %@.%@ → forced NO"_ns, "PlayerItemPrefs"_ns,
                 SelectorName(selector));
    }
}

template <objc::FixedString... Names> void ForceBoolGetters(objc::Class cls) {
    (ForceBoolGetter(cls, objc::Selector<Names>()), ...);
}

void ForceItemInteger(objc::Class items, objc::SEL selector, std::int64_t value) {
    ForceIntegerGetter(items, selector, value, "PlayerItemPrefs"_ns);
}

void ForceConfigurationInteger(objc::Class configuration, objc::SEL selector, std::int64_t value) {
    ForceIntegerGetter(configuration, selector, value, "VeLiveConfig"_ns);
}

/// Applies what is switched on to the classes that are there; a getter that the host lacks is skipped.
void ApplyLatencyHooks() {
    const objc::Class items = NSClassFromString("TVLPlayerItemPreferences"_ns);
    const objc::Class configuration = NSClassFromString("VeLivePlayerConfiguration"_ns);
    int count = 0;

    if (ReadBoolPreference(keys::StrictDanmakuBuffer())) {
        // Counts once for each of the two classes, so the sum below can come to five of four.
        if (items != nullptr) {
            ForceItemInteger(items, objc::Selector<"startPlayBufferWaitTime">(), 0);
            ForceItemInteger(items, objc::Selector<"finalUseFastOpenDuration">(), 0);
            ++count;
        }
        if (configuration != nullptr) {
            ForceConfigurationInteger(configuration, objc::Selector<"retryMaxCount">(), 1);
            ForceConfigurationInteger(configuration, objc::Selector<"retryIntervalTimeMs">(), 200);
            ForceConfigurationInteger(configuration, objc::Selector<"networkTimeoutMs">(), 3000);
            ++count;
        }
    }
    if (ReadBoolPreference(keys::ForceCachalot()) && items != nullptr) {
        ForceBoolGetters<"enableLiveIOSupprotQuic", "LSSSuggestQuic", "enablePreNodeSelection", "enableDNSIPReOrder",
                         "isLowLatencyFLV">(items);
        ++count;
    }
    if (ReadBoolPreference(keys::StreamDataFirst()) && items != nullptr) {
        ForceBoolGetters<"enableLiveIOOriginConfig", "enableLiveIODemuxerOriginConfig", "enableLiveIODemuxer",
                         "enableLiveIORtmVmtp", "enableRtmP2pAsyncLiveIOPrepare", "enableDtlsInRtmP2p",
                         "disableABRAlgorithm">(items);
        ++count;
    }
    if (ReadBoolPreference(keys::PlayerOptimization()) && items != nullptr) {
        ForceBoolGetters<"enableLatencyNetworkAdaptOnRetry", "enableLiveIOCheckNodeOptimizer">(items);
        ForceItemInteger(items, objc::Selector<"startPlayBufferWaitTime">(), 0);
        ForceBoolGetter(items, objc::Selector<"isSVCEnabled">(), false);
        ForceBoolGetters<"enableRetryWithAbrRes">(items);
        ++count;
    }
    DebugLog(u"[DY] ⚡ Latency hooks applied: %d/4 features (prefs=%@ veConfig=%@)"_ns, count,
             items != nullptr ? "YES"_ns : "MISSING"_ns, configuration != nullptr ? "YES"_ns : "MISSING"_ns);
}

} // namespace

void ScheduleLatencyHooks() {
    const bool wanted = ReadBoolPreference(keys::StrictDanmakuBuffer()) || ReadBoolPreference(keys::ForceCachalot()) ||
                        ReadBoolPreference(keys::StreamDataFirst()) || ReadBoolPreference(keys::PlayerOptimization());
    if (wanted) {
        dispatch::AsyncInBackground([] {
            ns::Thread::sleepForTimeInterval(kApplyDelaySeconds);
            dispatch::AsyncOnMain([] { ApplyLatencyHooks(); });
        });
    }
}

} // namespace corvel
