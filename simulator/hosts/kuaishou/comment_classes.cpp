#include "hosts/kuaishou/comment_classes.hpp"

#include "hosts/host_class.hpp"

namespace sim::hosts::kuaishou {
namespace {

using Completion = objc::Block<void()>;

ns::Object BindTarget(ns::Object, objc::SEL, ns::Object target) {
    return target;
}

void Comment(ns::Object self, objc::SEL, ns::Object text) {
    ReceiveComment("bar", self, text);
}

void CommentWithCompletion(ns::Object self, objc::SEL, ns::Object text, Completion completion) {
    ReceiveComment("service", self, text);
}

bool ComponentDidAppear(ns::Object, objc::SEL, bool animated) {
    return animated;
}

void SendComment(ns::Object self, objc::SEL, ns::Object text, long source) {
    ReceiveComment("preview", self, text, nullptr, {script::Bare("source"), script::Bare(std::to_string(source))});
}

/// Every service has the base's onCreate; a build may give one its own, which does not call the base's.
void RegisterServices() {
    constexpr const char *kBase = "KwaiLiveBaseService";
    const HostMethod base[] = {Method<"onCreate", &Itself>()};
    RegisterFamily({"NSObject", "KwaiLiveBaseComponent", kBase, "KwaiLiveBaseTool"}, base);
    // A build without the base has its services stand on what the base stood on.
    const char *const root = ThePlan().LacksClass(kBase) ? "KwaiLiveBaseComponent" : kBase;

    const HostMethod bar[] = {
        OptionalMethod<"onCreate", &Itself>(),
        Method<"bindTarget:", &BindTarget>(),
        Method<"comment:", &Comment>(),
    };
    RegisterFamily({root, "KSSLiveBarService", "KSSLiveCommentBarService", "KSSLiveGiftBarService"}, bar);

    const HostMethod service[] = {
        OptionalMethod<"onCreate", &Itself>(),
        Method<"comment:completion:", &CommentWithCompletion>(),
    };
    RegisterFamily({root, "KSLiveRoomService", "KSLiveCommentService", "KSLiveGiftService"}, service);
}

void RegisterPreviewComponent() {
    const HostMethod preview[] = {
        Method<"componentDidLoad", &Itself>(),
        Method<"componentDidAppear:", &ComponentDidAppear>(),
        Method<"sendComment:source:", &SendComment>(),
    };
    RegisterFamily(
        {"NSObject", "KSLivePreviewComponent", "KSLivePreviewSendCommentComponent", "KSLivePreviewLikeComponent"},
        preview);
}

} // namespace

void RegisterCommentClasses() {
    RegisterServices();
    RegisterPreviewComponent();
}

} // namespace sim::hosts::kuaishou
