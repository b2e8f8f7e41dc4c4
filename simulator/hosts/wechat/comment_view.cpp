#include "hosts/wechat/comment_view.hpp"

#include "apple/uikit/view.hpp"
#include "hosts/host_class.hpp"

namespace sim::hosts::wechat {
namespace {

struct CommentViewState {
    objc::Ref<ns::Object> taskId;
};

void Nothing(ui::View, objc::SEL) {}

ui::View Window(ui::View self, objc::SEL) {
    return objc::SendSuper<"window", ui::View>(self);
}

ns::Object TaskId(ui::View self, objc::SEL) {
    return StateOf<CommentViewState>(self).taskId;
}

void SetTaskId(ui::View self, objc::SEL, ns::Object taskId) {
    StateOf<CommentViewState>(self).taskId = objc::Ref<ns::Object>(taskId);
}

bool DidCommitText(ui::View self, objc::SEL, ns::Object text) {
    ReceiveComment("view", self, text);
    return true;
}

} // namespace

void RegisterCommentView() {
    const HostMethod methods[] = {
        Method<"didMoveToWindow", &Nothing>(), OptionalMethod<"window", &Window>(),        Method<"taskId", &TaskId>(),
        Method<"setTaskId:", &SetTaskId>(),    Method<"didCommitText:", &DidCommitText>(),
    };
    RegisterClassWithState<CommentViewState>("MMLiveRootView", "UIView", {});
    RegisterFamily({"MMLiveRootView", "MMLiveInputView", "MMLiveCommentView", "MMLiveSearchView"}, methods);
}

} // namespace sim::hosts::wechat
