#include "hosts/douyin/classes.hpp"

#include "apple/foundation/number.hpp"
#include "hosts/keyed.hpp"

namespace sim::hosts::douyin {
namespace {

using Completion = objc::Block<void()>;

// What a comment context holds, in the order in which facts show it.
constexpr const char *kContextKeys[] = {"content", "plainText", "roomId", "identifier", "isUrgent", "priority"};

struct Root : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = kRootClass;
};

Fact DescribeContext(ns::Object context) {
    if (!context) {
        return {Bare("nil")};
    }
    Fact fact;
    for (const char *key : kContextKeys) {
        if (ValuesOf(context).contains(key)) {
            fact.push_back(Bare(key));
            Append(fact, DescribeArgument(ValueUnder(context, key)));
        }
    }
    return fact;
}

void Receive(const char *path, ns::Object receiver, ns::Object text, ns::Object context) {
    const ns::Object room = context ? ValueUnder(context, "roomId") : ns::Object{};
    ReceiveComment(path, receiver, text, room, DescribeContext(context));
}

// Starts above every class that may hold this method, its own or inherited.
constexpr auto kDealloc = [](ns::Object self) { objc::SendSuper<"dealloc", void>(objc::As<Root>(self)); };

void RegisterFragments() {
    HostClass fragment(kRootClass, "HTSLiveComponent", "HTSLiveCommentFragment", "HTSLiveGiftFragment");
    fragment.Method<"componentMount">(kItself);
    fragment.Method<"sendComment:enterSource:requestSource:trackParams:completion:">(
        [](ns::Object self, ns::Object text, long, long, ns::Object, Completion completion) {
            Receive("input", self, text, nullptr);
            return completion;
        });
    fragment.Method<"sendComment:commentContext:completion:">(
        [](ns::Object self, ns::Object text, ns::Object context, Completion) {
            Receive("fragment", self, text, context);
        });
    fragment.Method<"commentSucceedForComment:withFakeMessage:commentEnterSource:">(
        [](ns::Object, ns::Object, ns::Object, long enterSource) { return enterSource; });
    fragment.Method<"commentBegan">(kItself);
    fragment.Method<"store">(kGet<"store">);
    fragment.OptionalMethod<"commentStore">(kGet<"commentStore">);
    fragment.Method<"dealloc">(kDealloc);
}

void RegisterStores() {
    HostClass store(kRootClass, "HTSLiveBaseStore", "HTSLiveCommentStore", "HTSLiveGiftStore");
    store.Method<"setup">(kItself);
    store.Method<"sendCommentWithCommentContext:completion:">([](ns::Object self, ns::Object context, Completion) {
        Receive("store", self, context ? ValueUnder(context, "content") : ns::Object{}, context);
    });
    store.Method<"context">(kGet<"context">);
    store.OptionalMethod<"store">(kGet<"store">);
    store.OptionalMethod<"commentStore">(kGet<"commentStore">);
    store.Method<"dealloc">(kDealloc);
}

void RegisterContext() {
    HostClass context(kRootClass, "IESLiveContext", "IESLiveCommentContext", "IESLiveGiftContext");
    context.Method<"setContent:">(kSet<"content">);
    context.Method<"setPlainText:">(kSet<"plainText">);
    context.Method<"setRoomId:">(kSet<"roomId">);
    context.Method<"setIdentifier:">(kSet<"identifier">);
    context.Method<"setIsUrgent:">(
        [](ns::Object self, bool urgent) { kSet<"isUrgent">(self, ns::Number::numberWithBool(urgent)); });
    context.Method<"setPriority:">([](ns::Object self, long priority) {
        kSet<"priority">(self, ns::Number::numberWithInt(static_cast<int>(priority)));
    });
}

// What the player's getters answer in the app as it is.
template <long Value> constexpr auto kInteger = [](ns::Object) { return Value; };
constexpr auto kNo = [](ns::Object) { return false; };
constexpr auto kYes = [](ns::Object) { return true; };

void RegisterPlayer() {
    HostClass preferences("NSObject", "TVLPlayerPreferences", "TVLPlayerItemPreferences",
                          "TVLPlayerPreloadPreferences");
    preferences.Method<"startPlayBufferWaitTime">(kInteger<300>);
    preferences.Method<"finalUseFastOpenDuration">(kInteger<500>);
    preferences.Method<"enableLiveIOSupprotQuic">(kNo);
    preferences.Method<"LSSSuggestQuic">(kNo);
    preferences.Method<"enablePreNodeSelection">(kNo);
    preferences.Method<"enableDNSIPReOrder">(kNo);
    preferences.OptionalMethod<"isLowLatencyFLV">(kNo);
    preferences.Method<"enableLiveIOOriginConfig">(kNo);
    preferences.Method<"enableLiveIODemuxerOriginConfig">(kNo);
    preferences.Method<"enableLiveIODemuxer">(kNo);
    preferences.Method<"enableLiveIORtmVmtp">(kNo);
    preferences.Method<"enableRtmP2pAsyncLiveIOPrepare">(kNo);
    preferences.Method<"enableDtlsInRtmP2p">(kNo);
    preferences.Method<"disableABRAlgorithm">(kNo);
    preferences.Method<"enableLatencyNetworkAdaptOnRetry">(kNo);
    preferences.Method<"enableLiveIOCheckNodeOptimizer">(kNo);
    preferences.Method<"enableRetryWithAbrRes">(kNo);
    preferences.Method<"isSVCEnabled">(kYes);
    HostClass configuration("NSObject", "VeLiveConfiguration", "VeLivePlayerConfiguration",
                            "VeLivePusherConfiguration");
    configuration.Method<"retryMaxCount">(kInteger<5>);
    configuration.Method<"retryIntervalTimeMs">(kInteger<1000>);
    configuration.Method<"networkTimeoutMs">(kInteger<8000>);
}

} // namespace

void RegisterClasses() {
    RegisterKeyedRoot(kRootClass, "NSObject");
    RegisterFragments();
    RegisterStores();
    RegisterContext();
    MakePlannedClass("IESLiveRoomModel", kRootClass);
    MakePlannedClass("IESLiveRoomInfo", kRootClass);
    RegisterPlayer();
}

} // namespace sim::hosts::douyin
