// Sending a comment through Xiaohongshu's decorate view, its comment bar or its messaging engine.

#include "adapters/host_access.hpp"
#include "adapters/send_paths.hpp"
#include "adapters/xiaohongshu/adapter_state.hpp"
#include "adapters/xiaohongshu/xiaohongshu.hpp"
#include "apple/foundation/number.hpp"

namespace corvel::xiaohongshu {
namespace {

constexpr SendPath kPaths[] = {
    {.name = "decorate",
     .className = DecorateView::kClassName,
     .holders = {HeldBy<DecorateView, "didMoveToSuperview">(),
                 {.className = CommentBar::kClassName,
                  .selector = "attachToViewController:hideWhenNotFirstResponder:",
                  .getters = {"delegate"}}},
     .steps = {Calls(kSendChat)}},
    {.name = "bar",
     .className = CommentBar::kClassName,
     .holders = {HeldBy<CommentBar, "didMoveToWindow">(),
                 HeldBy<CommentBar, "attachToViewController:hideWhenNotFirstResponder:">()},
     .steps = {Sets<CommentBar, "text">(), Calls(kPressSend)}},
    {.name = "engine",
     .className = ImEngine::kClassName,
     .holders = {HeldBy<ImEngine, "joinWithGroupId:callback:">(), HeldBy<ImEngine, "joinWithGroupId:role:callback:">()},
     .steps = {Makes<ImMessage>(), MayCall(kInitMessage), Calls(kPostMessage)}},
};

/// Types the text into the bar and presses its button; false when it has none to press.
bool SendViaBar(CommentBar bar, ns::String text) {
    const objc::SEL clearInput = objc::Selector<"clearInput">();
    PerformIfPresent(bar, clearInput);
    bar.setValue(text, "text"_ns);
    const objc::SEL press = SelectorOf(kPressSend);
    if (!bar.respondsToSelector(press)) {
        return false;
    }
    bar.performSelector(press, nullptr);
    PerformIfPresent(bar, clearInput);
    return true;
}

void SendViaEngine(ImEngine engine, ns::String text) {
    const objc::Ref<ns::Object> groupId = state.groupId; // the room's by now: an earlier way may have changed it
    if (!groupId || objc::ClassOf<ImMessage>() == nullptr) {
        return;
    }
    auto message = ns::Alloc<ImMessage>();
    // A message class without this initialiser gets its message sent as allocated; the engine decides what to make of
    // it.
    if (message.respondsToSelector(SelectorOf(kInitMessage))) {
        const auto content = ns::New<ns::MutableDictionary>();
        content->setObject(text, "content"_ns);
        content->setObject(ns::Number::numberWithInt(0), "type"_ns);
        message = kInitMessage(message, 0, groupId.get(), 0, content.get());
    }
    kPostMessage(engine, objc::Ref<ImMessage>::Adopt(message).get(), nullptr, nullptr);
}

void Send(ns::String text) {
    LogSendLine(u"[XHS] send=\"%@\" dv=%@ cb=%@"_ns, text, HeldMark(state.decorateView), HeldMark(state.commentBar));
    SendByFirstOf(kPaths,
                  Through(state.decorateView, u"[XHS] ❌ %@"_ns, [&](DecorateView view) { kSendChat(view, text); }),
                  Through(state.commentBar, u"[XHS] ❌ %@"_ns, [&](CommentBar bar) { return SendViaBar(bar, text); }),
                  Through(state.imEngine, nullptr, [&](ImEngine engine) { SendViaEngine(engine, text); }));
}

} // namespace
} // namespace corvel::xiaohongshu

std::span<const corvel::SendPath> corvel::XiaohongshuSendPaths() {
    return xiaohongshu::kPaths;
}

bool XHS_IsReady() {
    using corvel::xiaohongshu::state;
    return state.decorateView || state.commentBar;
}

void XHS_SendMessage(objc::id text) {
    corvel::RunSend(text, &corvel::xiaohongshu::Send);
}
