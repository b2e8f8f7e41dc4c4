// Sending a comment through Douyin's comment store or, failing that, its comment fragment.

#include "adapters/douyin/adapter_state.hpp"
#include "adapters/douyin/douyin.hpp"
#include "adapters/douyin/room_identity_probe.hpp"
#include "adapters/send_paths.hpp"
#include "apple/foundation/number.hpp"
#include "preferences/preferences.hpp"

namespace corvel::douyin {
namespace {

/// The hook of a method of the fragment, which knows its store too.
template <objc::FixedString Name> constexpr Holder StoreBehind() {
    return {CommentFragment::kClassName, kStaticText<Name>, {"store", "commentStore"}};
}

constexpr SendPath kPaths[] = {
    {.name = "store",
     .className = CommentStore::kClassName,
     .holders = {StoreBehind<"componentMount">(),
                 StoreBehind<"sendComment:enterSource:requestSource:trackParams:completion:">(),
                 StoreBehind<"sendComment:commentContext:completion:">(),
                 StoreBehind<"commentSucceedForComment:withFakeMessage:commentEnterSource:">(),
                 StoreBehind<"commentBegan">(), HeldBy<CommentStore, "setup">()},
     .steps = {Makes<CommentContext>(), Calls(kSendByStore)}},
    {.name = "fragment",
     .className = CommentFragment::kClassName,
     .holders = {HeldBy<CommentFragment, "componentMount">(),
                 HeldBy<CommentFragment, "sendComment:enterSource:requestSource:trackParams:completion:">(),
                 HeldBy<CommentFragment, "sendComment:commentContext:completion:">(),
                 HeldBy<CommentFragment, "commentSucceedForComment:withFakeMessage:commentEnterSource:">(),
                 HeldBy<CommentFragment, "commentBegan">()},
     .steps = {Calls(kSendByFragment)}},
};

/// Where a comment goes: a store (perhaps none) and the identifier of its room (perhaps unknown).
struct Target {
    objc::Ref<CommentStore> store;
    objc::Ref<ns::String> roomId;
};

/// The held fragment's present store comes before the held one, with what it says of its room even if that is nothing.
/// The held references stay as they are.
Target ChooseTarget(CommentFragment fragment) {
    if (const auto store = ReadGuarded([&] { return objc::Ref<CommentStore>(StoreOf(fragment)); })) {
        return {.store = store, .roomId = ProbeRoomIdentity(store.get())};
    }
    if (state.store) {
        return {.store = state.store, .roomId = state.roomId};
    }
    return {};
}

/// A new context; empty while the host lacks its class.
objc::Ref<CommentContext> NewContext() {
    return objc::Ref<CommentContext>::Adopt(ns::Alloc<CommentContext>().init());
}

/// Sets one value of a context; a key that it does not know is skipped.
void SetOrSkip(CommentContext context, ns::String key, ns::Object value) {
    objc::Guard([&] { context.setValue(value, key); });
}

void FillContext(CommentContext context, ns::String text, ns::String roomId) {
    SetOrSkip(context, "content"_ns, text);
    SetOrSkip(context, "plainText"_ns, text);
    if (roomId) {
        SetOrSkip(context, "roomId"_ns, roomId);
        SetOrSkip(context, "identifier"_ns, roomId);
    }
}

bool SendViaStore(CommentStore store, ns::String text, ns::String roomId) {
    objc::Ref<CommentContext> context = objc::As<CommentContext>(PerformIfAnswered(store, objc::Selector<"context">()));
    if (!context) {
        context = NewContext();
    }
    FillContext(context, text, roomId);

    const objc::SEL send = SelectorOf(kSendByStore);
    if (!store.respondsToSelector(send)) {
        return false;
    }
    store.performSelector(send, context.get(), nullptr);
    DebugLog(u"[DY] ✅ sent via store"_ns);
    return true;
}

bool SendViaFragment(CommentFragment fragment, ns::String text, ns::String roomId) {
    const objc::Ref<CommentContext> context = NewContext();
    FillContext(context, text, roomId);
    // Urgency is asked for on this path only.
    if (context && kFastCommentPath.Read()) {
        SetOrSkip(context, "isUrgent"_ns, ns::Number::numberWithBool(true));
        SetOrSkip(context, "priority"_ns, ns::Number::numberWithInt(0));
    }
    if (!fragment.respondsToSelector(SelectorOf(kSendByFragment))) {
        return false;
    }
    kSendByFragment(fragment, text, context.get(), nullptr);
    DebugLog(u"[DY] ✅ sent via fragment"_ns);
    return true;
}

void Send(ns::String text) {
    const objc::Ref<CommentFragment> fragment = state.fragment; // kept: the send may put another one in its place
    const Target target = ChooseTarget(fragment);
    LogSendLine(u"[DY] send=\"%@\" store=%p frag=%p roomId=%@ bindCount=%ld"_ns, text, target.store.get().pointer,
                fragment.get().pointer, target.roomId ? target.roomId.get() : "nil"_ns, state.bindCount);
    const bool sent =
        SendByFirstOf(kPaths,
                      Through(target.store, u"[DY] ❌ store: %@"_ns,
                              [&](CommentStore store) { return SendViaStore(store, text, target.roomId); }),
                      Through(fragment, u"[DY] ❌ fragment: %@"_ns,
                              [&](CommentFragment present) { return SendViaFragment(present, text, target.roomId); }));
    if (!sent) {
        DebugLog(u"[DY] ❌ No store or fragment available"_ns);
    }
}

} // namespace
} // namespace corvel::douyin

std::span<const corvel::SendPath> corvel::DouyinSendPaths() {
    return douyin::kPaths;
}

bool DY_IsReady() {
    using corvel::douyin::state;
    return state.store || state.fragment;
}

void DY_SendMessage(objc::id text) {
    corvel::RunSend(text, &corvel::douyin::Send);
}
