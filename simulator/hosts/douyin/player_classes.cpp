#include "hosts/douyin/player_classes.hpp"

#include "hosts/host_class.hpp"

namespace sim::hosts::douyin {
namespace {

template <long Value> long Integer(ns::Object, objc::SEL) {
    return Value;
}

template <bool Value> bool Truth(ns::Object, objc::SEL) {
    return Value;
}

} // namespace

void RegisterPlayerClasses() {
    const HostMethod preferences[] = {
        Method<"startPlayBufferWaitTime", &Integer<300>>(),
        Method<"finalUseFastOpenDuration", &Integer<500>>(),
        Method<"enableLiveIOSupprotQuic", &Truth<false>>(),
        Method<"LSSSuggestQuic", &Truth<false>>(),
        Method<"enablePreNodeSelection", &Truth<false>>(),
        Method<"enableDNSIPReOrder", &Truth<false>>(),
        OptionalMethod<"isLowLatencyFLV", &Truth<false>>(),
        Method<"enableLiveIOOriginConfig", &Truth<false>>(),
        Method<"enableLiveIODemuxerOriginConfig", &Truth<false>>(),
        Method<"enableLiveIODemuxer", &Truth<false>>(),
        Method<"enableLiveIORtmVmtp", &Truth<false>>(),
        Method<"enableRtmP2pAsyncLiveIOPrepare", &Truth<false>>(),
        Method<"enableDtlsInRtmP2p", &Truth<false>>(),
        Method<"disableABRAlgorithm", &Truth<false>>(),
        Method<"enableLatencyNetworkAdaptOnRetry", &Truth<false>>(),
        Method<"enableLiveIOCheckNodeOptimizer", &Truth<false>>(),
        Method<"enableRetryWithAbrRes", &Truth<false>>(),
        Method<"isSVCEnabled", &Truth<true>>(),
    };
    RegisterFamily({"NSObject", "TVLPlayerPreferences", "TVLPlayerItemPreferences", "TVLPlayerPreloadPreferences"},
                   preferences);
    const HostMethod configuration[] = {
        Method<"retryMaxCount", &Integer<5>>(),
        Method<"retryIntervalTimeMs", &Integer<1000>>(),
        Method<"networkTimeoutMs", &Integer<8000>>(),
    };
    RegisterFamily({"NSObject", "VeLiveConfiguration", "VeLivePlayerConfiguration", "VeLivePusherConfiguration"},
                   configuration);
}

} // namespace sim::hosts::douyin
