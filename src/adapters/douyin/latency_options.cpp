// Douyin's latency options: getters of the host's live player are replaced so that every instance reports forced
// values. That happens once, soon after the host starts; what is forced stays forced until the host ends.

#include "adapters/douyin/latency_options.hpp"

#include "adapters/douyin/douyin.hpp"
#include "adapters/method_types.hpp"
#include "apple/dispatch/queue.hpp"
#include "apple/foundation/thread.hpp"
#include "diagnostics/debug_log.hpp"

#include <algorithm>
#include <span>

namespace corvel {
namespace {

/// Time for the host to bring its player up.
constexpr double kApplyDelaySeconds = 3.0;

constexpr PlayerClass kItems{"TVLPlayerItemPreferences"_literal, "PlayerItemPrefs"_literal};
constexpr PlayerClass kConfiguration{"VeLivePlayerConfiguration"_literal, "VeLiveConfig"_literal};

template <objc::FixedString Name> constexpr ForcedGetter Integer(std::int64_t value) {
    return {objc::SelectorLiteral::Of<Name>(), ForcedGetter::Kind::kInteger, value};
}
template <objc::FixedString Name> constexpr ForcedGetter Bool(bool value) {
    return {objc::SelectorLiteral::Of<Name>(), ForcedGetter::Kind::kBool, value ? 1 : 0};
}

/// In the order in which they are applied. The first switch has a row for each of the two classes, so the features that
/// the log counts can come to five of four. That is wanted.
constexpr LatencyOption kOptions[] = {
    {kStrictDanmakuBuffer, kItems, {Integer<"startPlayBufferWaitTime">(0), Integer<"finalUseFastOpenDuration">(0)}},
    {kStrictDanmakuBuffer,
     kConfiguration,
     {Integer<"retryMaxCount">(1), Integer<"retryIntervalTimeMs">(200), Integer<"networkTimeoutMs">(3000)}},
    {kForceCachalot,
     kItems,
     {Bool<"enableLiveIOSupprotQuic">(true), Bool<"LSSSuggestQuic">(true), Bool<"enablePreNodeSelection">(true),
      Bool<"enableDNSIPReOrder">(true), Bool<"isLowLatencyFLV">(true)}},
    {kStreamDataFirst,
     kItems,
     {Bool<"enableLiveIOOriginConfig">(true), Bool<"enableLiveIODemuxerOriginConfig">(true),
      Bool<"enableLiveIODemuxer">(true), Bool<"enableLiveIORtmVmtp">(true),
      Bool<"enableRtmP2pAsyncLiveIOPrepare">(true), Bool<"enableDtlsInRtmP2p">(true),
      Bool<"disableABRAlgorithm">(true)}},
    {kPlayerOptimization,
     kItems,
     {Bool<"enableLatencyNetworkAdaptOnRetry">(true), Bool<"enableLiveIOCheckNodeOptimizer">(true),
      Integer<"startPlayBufferWaitTime">(0), Bool<"isSVCEnabled">(false), Bool<"enableRetryWithAbrRes">(true)}},
};

/// Makes a getter answer the value, in the class that defines it even if that is a superclass.
template <class T> void ForceGetter(objc::Method getter, T value) {
    auto answer = objc::MakeBlock<T(objc::id)>([value](objc::id) { return value; });
    method_setImplementation(getter, imp_implementationWithBlock(objc::Block<T(objc::id)>(answer).pointer));
}

/// Forces one getter and says so; one that the host lacks, or declares with a result of another kind, is skipped.
void Force(objc::Class cls, ns::String label, const ForcedGetter &forced) {
    const objc::Method getter = class_getInstanceMethod(cls, forced.selector());
    if (getter == nullptr || !CanForce(forced, method_getTypeEncoding(getter))) {
        return;
    }
    const ns::String name = ns::String::stringWithUTF8String(sel_getName(forced.selector()));
    if (forced.kind == ForcedGetter::Kind::kInteger) {
        ForceGetter<std::int64_t>(getter, forced.value);
        DebugLog(u"[DY] ⚡ %@.%@ → %lld"_ns, label, name, forced.value);
    } else {
        ForceGetter<bool>(getter, forced.value != 0);
        DebugLog(forced.value != 0 ? u"[DY] ⚡ %@.%@ → forced YES"_ns : u"[DY] ⚡ %@.%@ → forced NO"_ns, label, name);
    }
}

ns::String PresenceMark(const PlayerClass &player) {
    return NSClassFromString(player.name) != nullptr ? "YES"_ns : "MISSING"_ns;
}

/// Applies what is switched on to the classes that are there.
void ApplyLatencyHooks() {
    int count = 0;
    for (const LatencyOption &option : kOptions) {
        const objc::Class cls = NSClassFromString(option.player.name);
        if (cls == nullptr || !option.preference.Read()) {
            continue;
        }
        for (const ForcedGetter &forced : option.getters) {
            if (forced.selector) {
                Force(cls, option.player.label, forced);
            }
        }
        ++count;
    }
    DebugLog(u"[DY] ⚡ Latency hooks applied: %d/4 features (prefs=%@ veConfig=%@)"_ns, count, PresenceMark(kItems),
             PresenceMark(kConfiguration));
}

} // namespace

bool CanForce(const ForcedGetter &forced, const char *types) {
    return forced.kind == ForcedGetter::Kind::kInteger ? IsIntegerGetter(types) : IsBoolGetter(types);
}

std::span<const LatencyOption> LatencyOptions() {
    return kOptions;
}

void ScheduleLatencyHooks() {
    // The first two rows share a switch; each is asked for once.
    const bool wanted = std::ranges::any_of(std::span(kOptions).subspan<1>(),
                                            [](const LatencyOption &option) { return option.preference.Read(); });
    if (wanted) {
        dispatch::AsyncInBackground([] {
            ns::Thread::sleepForTimeInterval(kApplyDelaySeconds);
            dispatch::AsyncOnMain([] { ApplyLatencyHooks(); });
        });
    }
}

} // namespace corvel
