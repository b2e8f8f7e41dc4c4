// The hooks that capture Douyin's comment fragment, its comment store and the room's identifier.

#include "adapters/douyin/adapter_state.hpp"
#include "adapters/douyin/room_identity_probe.hpp"
#include "adapters/installers.hpp"
#include "adapters/service_ready.hpp"
#include "diagnostics/debug_log.hpp"

namespace corvel::douyin {

[[clang::no_destroy]] constinit AdapterState state;

namespace {

/// Captures the fragment when it is another one than before, and says so under the format (old, new).
void SwitchFragment(ns::String format, CommentFragment fragment) {
    if (state.fragment.get() != fragment) {
        DebugLog(format, state.fragment.get().pointer, fragment.pointer);
        Capture(state.fragment, fragment);
    }
}

Word ComponentMount(objc::id self, objc::SEL selector) {
    const Word result = state.previous.componentMount(self, selector);
    const CommentFragment fragment{self};
    ++state.bindCount;
    SwitchFragment(u"[DY] 🔄 componentMount fragment %p → %p"_ns, fragment);

    objc::Ref<ns::String> roomId;
    if (const objc::Ref<CommentStore> store = ReadGuarded([&] { return objc::Ref<CommentStore>(StoreOf(fragment)); })) {
        Capture(state.store, store.get());
        roomId = ProbeRoomIdentity(store.get());
        if (roomId) {
            Capture(state.roomId, roomId.get());
        }
    }
    DebugLog(u"[DY] Fragment mounted %p roomId=%@ bindCount=%ld"_ns, self, roomId ? roomId.get() : "?"_ns,
             state.bindCount);
    PostDanmuServiceReady();
    return result;
}

/// A fragment at work that missed its mount hook (it was mounted before, or another one was meanwhile) is captured
/// here, before it goes on.
template <objc::FixedString Line, PreviousMethod &Previous, class... A>
Word SelfHeal(objc::id self, objc::SEL selector, A... arguments) {
    SwitchFragment(ns::String{objc::ConstantString<Line>()}, CommentFragment{self});
    return Previous(self, selector, arguments...);
}

Word StoreSetup(objc::id self, objc::SEL selector) {
    const Word result = state.previous.storeSetup(self, selector);
    const CommentStore store{self};
    ++state.bindCount;
    const objc::Ref<ns::String> found = ProbeRoomIdentity(store);
    const objc::Ref<ns::String> before = state.roomId;
    Capture(state.store, store);
    if (found) {
        Capture(state.roomId, found.get());
    }
    DebugLog(u"[DY] ✅ Store setup %p roomId=%@ (was: %@) bindCount=%ld"_ns, self,
             state.roomId ? state.roomId.get() : "?"_ns, before ? before.get() : "nil"_ns, state.bindCount);
    if (found && before && state.bindCount >= 2 && !ReadGuarded([&] { return found->isEqualToString(before); })) {
        DebugLog(u"[DY] 🔬 Possible pre-join: %@ → %@ (bindCount=%ld)"_ns, before, found, state.bindCount);
    }
    PostDanmuServiceReady();
    return result;
}

// A captured object can only come to its dealloc when the host has released it once too often. The reference that is
// ours on paper is gone with it, so it is dropped without another release.

Word FragmentDealloc(objc::id self, objc::SEL selector) {
    if (state.fragment.get().pointer == self) {
        DebugLog(u"[DY] 🔄 Fragment dealloc %p — clearing refs"_ns, self);
        state.fragment.Abandon();
    }
    return state.previous.fragmentDealloc(self, selector);
}

Word StoreDealloc(objc::id self, objc::SEL selector) {
    if (state.store.get().pointer == self) {
        DebugLog(u"[DY] 🔄 Store dealloc %p — clearing refs"_ns, self);
        state.store.Abandon();
    }
    return state.previous.storeDealloc(self, selector);
}

} // namespace
} // namespace corvel::douyin

void corvel::InstallDouyinHooks() {
    using namespace douyin;
    constexpr const char *kFragment = CommentFragment::kClassName;
    constexpr const char *kStore = CommentStore::kClassName;

    InstallMethodHooks({
        HookOf<"componentMount", state.previous.componentMount, &ComponentMount>(kFragment),
        HookOf<"sendComment:enterSource:requestSource:trackParams:completion:", state.previous.sendCommentFive,
               &SelfHeal<u"[DY] 🔄 self-heal (5p) fragment %p → %p", state.previous.sendCommentFive, Word, Word, Word,
                         Word, Word>>(kFragment),
        HookOf<
            "sendComment:commentContext:completion:", state.previous.sendCommentThree,
            &SelfHeal<u"[DY] 🔄 self-heal (3p) fragment %p → %p", state.previous.sendCommentThree, Word, Word, Word>>(
            kFragment),
        HookOf<"commentSucceedForComment:withFakeMessage:commentEnterSource:", state.previous.commentSucceed,
               &SelfHeal<u"[DY] 🔄 self-heal (succeed) fragment %p → %p", state.previous.commentSucceed, Word, Word,
                         Word>>(kFragment),
        HookOf<"commentBegan", state.previous.commentBegan,
               &SelfHeal<u"[DY] 🔄 self-heal (began) fragment %p → %p", state.previous.commentBegan>>(kFragment),
        HookOf<"dealloc", state.previous.fragmentDealloc, &FragmentDealloc>(kFragment),

        HookOf<"setup", state.previous.storeSetup, &StoreSetup>(kStore),
        HookOf<"dealloc", state.previous.storeDealloc, &StoreDealloc>(kStore),
    });
}
