#include "hosts/host.hpp"

#include "hosts/host_class.hpp"
#include "hosts/invocation.hpp"
#include "script/values.hpp"

#include <algorithm>

namespace sim::hosts {
namespace {

using script::Answer;
using script::Bare;
using script::Fact;
using script::WordReader;

Plan::Method ReadMethod(WordReader &words) {
    const std::string cls = words.Name("a class");
    return {cls, words.Name("a selector")};
}

/// throw CLASS SELECTOR "REASON", refuse CLASS SELECTOR; false when the words are neither.
bool TakeMisbehaviour(WordReader &words) {
    if (words.Take("throw")) {
        const Plan::Method method = ReadMethod(words);
        ThePlan().Throw(method, words.QuotedText("the reason"));
        return true;
    }
    if (words.Take("refuse")) {
        ThePlan().Refuse(ReadMethod(words));
        return true;
    }
    return false;
}

/// A single word field of a comment, or what its context holds under a key.
Fact CommentField(const Comment &comment, WordReader &words) {
    if (words.AtEnd()) {
        return DescribeComment(comment);
    }
    const std::string field = words.Name("text, room, path, object or context");
    if (field == "text") {
        return comment.text;
    }
    if (field == "room") {
        return comment.room;
    }
    if (field == "path") {
        return {Bare(comment.path)};
    }
    if (field == "object") {
        return comment.object;
    }
    if (field == "context") {
        return comment.context;
    }
    words.Fail("a comment has no " + field);
}

Answer CommentAnswer(WordReader &words) {
    const std::vector<Comment> &comments = TheRecord().comments();
    const long number =
        words.Take("last") ? static_cast<long>(comments.size()) : words.Integer("the number of a comment, or last");
    if (number < 1 || number > static_cast<long>(comments.size())) {
        words.Rest();
        return {};
    }
    return {CommentField(comments[static_cast<std::size_t>(number - 1)], words)};
}

Answer CallsAnswer(WordReader &words) {
    const std::string selector = words.AtEnd() ? "" : words.Name("a selector");
    Answer answer;
    for (const Call &call : TheRecord().calls()) {
        if (selector.empty() || call.selector == selector) {
            answer.push_back(DescribeCall(call));
        }
    }
    return answer;
}

Fact Truth(bool value) {
    return {Bare(value ? "true" : "false")};
}

} // namespace

const char *ClassOf(std::span<const Kind> kinds, const std::string &kind) {
    const auto found = std::ranges::find(kinds, kind, &Kind::name);
    return found != kinds.end() ? found->className : nullptr;
}

void Host::Launch(ui::WindowScene scene) {
    room_.ShowLobby(scene, Look());
    TheRecord().Listen([this](const Comment &comment, int) { room_.AddComment(script::PlainText(comment.text)); });
}

ns::Object Host::Make(const std::string &kind) {
    const objc::Ref<ns::Object> object = MakeObject(ClassOfKind(kind));
    if (object) {
        TheObjects().Keep(kind, object);
    }
    return object;
}

void Host::Shape(WordReader &words) {
    if (words.Take("without")) {
        if (words.Take("class")) {
            ThePlan().LackClass(words.Name("a class"));
        } else {
            words.Expect("method");
            ThePlan().LackMethod(ReadMethod(words));
        }
    } else if (words.Take("with")) {
        words.Expect("method");
        ThePlan().HaveMethod(ReadMethod(words));
    } else if (!TakeMisbehaviour(words)) {
        words.Expect("inherits");
        ThePlan().InheritMethod(ReadMethod(words));
    }
    words.End();
}

Fact Host::Move(WordReader &words) {
    const auto readView = [&words] {
        const objc::Ref<ns::Object> object = TheObjects().Read(words);
        if (!object->isKindOfClass(objc_getClass(ui::View::kClassName))) {
            words.Fail("that object is no view");
        }
        return objc::Ref<ui::View>(objc::As<ui::View>(object.get()));
    };
    const objc::Ref<ui::View> view = readView();
    words.Expect("to");
    objc::Ref<ui::View> parent;
    if (words.Take("screen")) {
        parent = room_.screen();
    } else if (!words.Take("nowhere")) {
        parent = readView();
    }
    words.End();
    return MoveView(view, parent.get());
}

Fact Host::Event(WordReader &words) {
    if (TakeMisbehaviour(words)) {
        words.End();
        return {};
    }
    if (words.Take("calm")) {
        words.End();
        ThePlan().StopThrowing();
        ThePlan().StopRefusing();
        return {};
    }
    if (words.Take("move")) {
        return Move(words);
    }
    if (words.Take("new")) {
        const std::string kind = words.Name("the kind of an object");
        words.End();
        if (ClassOfKind(kind) == nullptr) {
            words.Fail("this host has no kind of object called " + kind);
        }
        return TheObjects().NameOf(Make(kind));
    }
    if (words.Take("release")) {
        TheObjects().LetGo(TheObjects().Read(words));
        words.End();
        return {};
    }
    if (words.Take("overrelease")) {
        // Not held here: the last release must be the one that takes the object apart.
        const ns::Object object = TheObjects().Read(words);
        words.End();
        TheObjects().ReleaseToDeath(object);
        return {};
    }
    if (words.Take("call")) {
        const objc::Ref<ns::Object> object = TheObjects().Read(words);
        const std::string selector = words.Name("a selector");
        return Invoke(object, selector, words);
    }
    Fact fact;
    if (!OwnEvent(words, fact)) {
        words.Fail("this host has no event " + words.Next("an event").text);
    }
    words.End();
    return fact;
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): what there is to ask belongs to the host that runs
Answer Host::Query(WordReader &words) {
    if (words.Take("comments")) {
        Answer answer;
        for (const Comment &comment : TheRecord().comments()) {
            answer.push_back(DescribeComment(comment));
        }
        return answer;
    }
    if (words.Take("comment")) {
        return CommentAnswer(words);
    }
    if (words.Take("calls")) {
        return CallsAnswer(words);
    }
    if (words.Take("alive")) {
        return {Truth(TheObjects().ReadWhetherAlive(words))};
    }
    if (words.Take("responds")) {
        const objc::Ref<ns::Object> object = TheObjects().Read(words);
        return {Truth(object->respondsToSelector(sel_registerName(words.Name("a selector").c_str())))};
    }
    if (words.Take("call")) {
        const objc::Ref<ns::Object> object = TheObjects().Read(words);
        const std::string selector = words.Name("a selector");
        return {Invoke(object, selector, words)};
    }
    if (words.Take("taps")) {
        return {{Bare(std::to_string(LiveRoom::Taps()))}};
    }
    words.Fail("expected comments, comment, calls, alive, responds, call or taps");
}

} // namespace sim::hosts
