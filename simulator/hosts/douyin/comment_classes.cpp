#include "hosts/douyin/comment_classes.hpp"

#include "apple/foundation/number.hpp"
#include "hosts/keyed.hpp"

namespace sim::hosts::douyin {
namespace {

using Completion = objc::Block<void()>;
using script::Fact;

// What a comment context holds, in the order in which facts show it.
constexpr const char *kContextKeys[] = {"content", "plainText", "roomId", "identifier", "isUrgent", "priority"};

struct Root : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = kRootClass;
};

Fact DescribeContext(ns::Object context) {
    if (!context) {
        return {script::Bare("nil")};
    }
    Fact fact;
    for (const char *key : kContextKeys) {
        const auto &values = ValuesOf(context);
        const auto found = values.find(key);
        if (found != values.end()) {
            const Fact value = DescribeArgument(found->second);
            fact.push_back(script::Bare(key));
            fact.insert(fact.end(), value.begin(), value.end());
        }
    }
    return fact;
}

void Receive(const char *path, ns::Object receiver, ns::Object text, ns::Object context) {
    TheRecord().Add(Comment{.path = path,
                            .object = TheObjects().NameOf(receiver),
                            .text = DescribeArgument(text),
                            .room = DescribeArgument(context ? ValueUnder(context, "roomId") : ns::Object{}),
                            .context = DescribeContext(context)});
}

// Starts above every class that may hold this method, its own or inherited.
void Dealloc(ns::Object self, objc::SEL) {
    objc::SendSuper<"dealloc", void>(objc::As<Root>(self));
}

Completion SendFromInput(ns::Object self, objc::SEL, ns::Object text, long enterSource, long requestSource,
                         ns::Object trackParams, Completion completion) {
    Receive("input", self, text, nullptr);
    return completion;
}

void SendWithContext(ns::Object self, objc::SEL, ns::Object text, ns::Object context, Completion completion) {
    Receive("fragment", self, text, context);
}

long CommentSucceeded(ns::Object, objc::SEL, ns::Object comment, ns::Object fakeMessage, long enterSource) {
    return enterSource;
}

void SendThroughStore(ns::Object self, objc::SEL, ns::Object context, Completion completion) {
    Receive("store", self, context ? ValueUnder(context, "content") : ns::Object{}, context);
}

void SetIsUrgent(ns::Object self, objc::SEL, bool urgent) {
    ValuesOf(self)["isUrgent"] = objc::Ref<ns::Object>(ns::Number::numberWithBool(urgent));
}

void SetPriority(ns::Object self, objc::SEL, long priority) {
    ValuesOf(self)["priority"] = objc::Ref<ns::Object>(ns::Number::numberWithInt(static_cast<int>(priority)));
}

void RegisterFragments() {
    const HostMethod methods[] = {
        Method<"componentMount", &Itself>(),
        Method<"sendComment:enterSource:requestSource:trackParams:completion:", &SendFromInput>(),
        Method<"sendComment:commentContext:completion:", &SendWithContext>(),
        Method<"commentSucceedForComment:withFakeMessage:commentEnterSource:", &CommentSucceeded>(),
        Method<"commentBegan", &Itself>(),
        Method<"store", &GetKey<"store">>(),
        OptionalMethod<"commentStore", &GetKey<"commentStore">>(),
        Method<"dealloc", &Dealloc>(),
    };
    RegisterFamily({kRootClass, "HTSLiveComponent", "HTSLiveCommentFragment", "HTSLiveGiftFragment"}, methods);
}

void RegisterStores() {
    const HostMethod methods[] = {
        Method<"setup", &Itself>(),
        Method<"sendCommentWithCommentContext:completion:", &SendThroughStore>(),
        Method<"context", &GetKey<"context">>(),
        OptionalMethod<"store", &GetKey<"store">>(),
        OptionalMethod<"commentStore", &GetKey<"commentStore">>(),
        Method<"dealloc", &Dealloc>(),
    };
    RegisterFamily({kRootClass, "HTSLiveBaseStore", "HTSLiveCommentStore", "HTSLiveGiftStore"}, methods);
}

void RegisterContext() {
    const HostMethod methods[] = {
        Method<"setContent:", &SetKey<"content">>(), Method<"setPlainText:", &SetKey<"plainText">>(),
        Method<"setRoomId:", &SetKey<"roomId">>(),   Method<"setIdentifier:", &SetKey<"identifier">>(),
        Method<"setIsUrgent:", &SetIsUrgent>(),      Method<"setPriority:", &SetPriority>(),
    };
    RegisterFamily({kRootClass, "IESLiveContext", "IESLiveCommentContext", "IESLiveGiftContext"}, methods);
}

} // namespace

void RegisterCommentClasses() {
    RegisterKeyedRoot(kRootClass);
    RegisterFragments();
    RegisterStores();
    RegisterContext();
    RegisterClass("IESLiveRoomModel", kRootClass, {});
    RegisterClass("IESLiveRoomInfo", kRootClass, {});
}

} // namespace sim::hosts::douyin
