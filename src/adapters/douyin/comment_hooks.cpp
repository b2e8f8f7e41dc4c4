// The hooks that hold Douyin's comment fragment, its comment store and the room's identifier.

#include "adapters/douyin/adapter_state.hpp"
#include "adapters/douyin/douyin.hpp"
#include "adapters/douyin/room_identity_probe.hpp"
#include "adapters/method_hook.hpp"
#include "adapters/service_ready.hpp"
#include "diagnostics/debug_log.hpp"

namespace corvel::douyin {

[[clang::no_destroy]] constinit AdapterState state;

namespace {

/// Holds the fragment when it is another one than before, and says so under the format (old, new).
void SwitchFragment(ns::String format, CommentFragment fragment) {
    if (state.fragment.get() != fragment) {
        DebugLog(format, state.fragment.get().pointer, fragment.pointer);
        Hold(state.fragment, fragment);
    }
}

void Mounted(CommentFragment fragment) {
    ++state.bindCount;
    SwitchFragment(u"[DY] 🔄 componentMount fragment %p → %p"_ns, fragment);

    objc::Ref<ns::String> roomId;
    if (const objc::Ref<CommentStore> store = ReadGuarded([&] { return objc::Ref<CommentStore>(StoreOf(fragment)); })) {
        Hold(state.store, store.get());
        roomId = ProbeRoomIdentity(store.get());
        if (roomId) {
            Hold(state.roomId, roomId.get());
        }
    }
    DebugLog(u"[DY] Fragment mounted %p roomId=%@ bindCount=%ld"_ns, fragment.pointer, roomId ? roomId.get() : "?"_ns,
             state.bindCount);
    PostDanmuServiceReady();
}

/// A fragment at work that missed its mount hook (it was mounted before, or another one was meanwhile) is held here,
/// before it goes on.
template <objc::FixedString Line> void SelfHeal(CommentFragment fragment) {
    SwitchFragment(ns::String{objc::ConstantString<Line>()}, fragment);
}

void StoreSetUp(CommentStore store) {
    ++state.bindCount;
    const objc::Ref<ns::String> found = ProbeRoomIdentity(store);
    const objc::Ref<ns::String> before = state.roomId;
    Hold(state.store, store);
    if (found) {
        Hold(state.roomId, found.get());
    }
    DebugLog(u"[DY] ✅ Store setup %p roomId=%@ (was: %@) bindCount=%ld"_ns, store.pointer,
             state.roomId ? state.roomId.get() : "?"_ns, before ? before.get() : "nil"_ns, state.bindCount);
    if (found && before && state.bindCount >= 2 && !ReadGuarded([&] { return found->isEqualToString(before); })) {
        DebugLog(u"[DY] 🔬 Possible pre-join: %@ → %@ (bindCount=%ld)"_ns, before, found, state.bindCount);
    }
    PostDanmuServiceReady();
}

// An object that we hold can only come to its dealloc when the host has released it once too often. The reference that
// is ours on paper is gone with it, so it is dropped without another release.

void FragmentGoes(CommentFragment fragment) {
    if (state.fragment.get() == fragment) {
        DebugLog(u"[DY] 🔄 Fragment dealloc %p — clearing refs"_ns, fragment.pointer);
        state.fragment.Abandon();
    }
}

void StoreGoes(CommentStore store) {
    if (state.store.get() == store) {
        DebugLog(u"[DY] 🔄 Store dealloc %p — clearing refs"_ns, store.pointer);
        state.store.Abandon();
    }
}

} // namespace
} // namespace corvel::douyin

std::span<const corvel::MethodHook> corvel::DouyinHooks() {
    using namespace douyin;
    static constexpr MethodHook kHooks[] = {
        After<CommentFragment, "componentMount", &Mounted>(),
        Before<CommentFragment, "sendComment:enterSource:requestSource:trackParams:completion:",
               &SelfHeal<u"[DY] 🔄 self-heal (5p) fragment %p → %p">>(),
        Before<CommentFragment,
               "sendComment:commentContext:completion:", &SelfHeal<u"[DY] 🔄 self-heal (3p) fragment %p → %p">>(),
        Before<CommentFragment, "commentSucceedForComment:withFakeMessage:commentEnterSource:",
               &SelfHeal<u"[DY] 🔄 self-heal (succeed) fragment %p → %p">>(),
        Before<CommentFragment, "commentBegan", &SelfHeal<u"[DY] 🔄 self-heal (began) fragment %p → %p">>(),
        Before<CommentFragment, "dealloc", &FragmentGoes>(),

        After<CommentStore, "setup", &StoreSetUp>(),
        Before<CommentStore, "dealloc", &StoreGoes>(),
    };
    return kHooks;
}
