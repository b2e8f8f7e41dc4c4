#include "hosts/host.hpp"

#include "hosts/chained_calls.hpp"
#include "hosts/host_class.hpp"
#include "hosts/inventory.hpp"
#include "hosts/invocation.hpp"
#include "hosts/keyed.hpp"
#include "hosts/registered.hpp"
#include "hosts/worker.hpp"
#include "hosts/wrapped_method.hpp"
#include "script/values.hpp"

#include <algorithm>

namespace sim::hosts {
namespace {

Plan::Method ReadMethod(WordReader &words) {
    const std::string cls = words.Name("a class");
    return {cls, words.Name("a selector")};
}

/// throw [maybe] CLASS SELECTOR "REASON"
Plan::Method Throw(WordReader &words) {
    const bool maybe = words.Take("maybe");
    Plan::Method method = ReadMethod(words);
    ThePlan().PlanThrow(method, {words.QuotedText("the reason"), words.place(), maybe});
    return method;
}

/// refuse CLASS SELECTOR
Plan::Method Refuse(WordReader &words) {
    Plan::Method method = ReadMethod(words);
    ThePlan().refusing[method] = words.place();
    return method;
}

/// with class CLASS. A plain class, there before anything is injected.
void OwnClass(WordReader &words) {
    const std::string name = words.Name("a class");
    if (objc_getClass(name.c_str()) != nullptr) {
        words.Fail("there is a class " + name + " already");
    }
    Class(name.c_str(), "NSObject");
}

Invocation ReadInvocation(WordReader &words) {
    const objc::Ref<ns::Object> object = TheObjects().Read(words);
    const std::string selector = words.Name("a selector");
    return {object, selector, words};
}

/// OBJECT SELECTOR ARGUMENTS…
Fact CallMethod(WordReader &words) {
    Invocation invocation = ReadInvocation(words);
    return Invoke(invocation);
}

/// let SELECTOR call OBJECT SELECTOR ARGUMENTS…
Fact Let(WordReader &words) {
    const std::string selector = ReadSelector(words);
    words.Expect("call");
    ChainCall(selector, ReadInvocation(words));
    return {};
}

Answer AskCalls(WordReader &words) {
    const std::string selector = words.AtEnd() ? "" : words.Name("a selector");
    Answer answer;
    for (const Call &call : TheRecord().calls) {
        if (selector.empty() || call.selector == selector) {
            answer.push_back(call.fact);
        }
    }
    return answer;
}

constexpr const char *kQueries = "calls, alive, responds, call, methods, taps, classes or replaced";

/// Not by asking the object, whose class may have an answer of its own.
bool IsView(ns::Object object) {
    objc::Class cls = object ? objc::object_getClass(object.pointer) : nullptr;
    while (cls != nullptr && cls != objc::ClassOf<ui::View>()) {
        cls = class_getSuperclass(cls);
    }
    return cls != nullptr;
}

objc::Ref<ui::View> ReadView(WordReader &words) {
    const objc::Ref<ns::Object> object = TheObjects().Read(words);
    if (!IsView(object)) {
        words.Fail("that object is no view");
    }
    return objc::As<ui::View>(object.get());
}

} // namespace

Host::Host(LiveRoomLook look, std::span<const Kind> kinds) : kinds_(kinds), room_(std::move(look)) {
    On("throw", [](WordReader &words) -> Fact {
        CheckMethodOrKey(Throw(words), words.place());
        return {};
    });
    On("refuse", [](WordReader &words) -> Fact {
        CheckMethod(Refuse(words), words.place());
        return {};
    });
    On("call", &CallMethod);
    On("let", &Let);
    On("wrap", [](WordReader &words) -> Fact {
        WrapMethod(words);
        return {};
    });
    On("on", [](WordReader &words) {
        words.Expect("worker");
        return DoOnWorker(words);
    });
    On("move", [this](WordReader &words) { return Move(words); });
    On("calm", [](WordReader &) -> Fact {
        ThePlan().EndThrowing();
        ThePlan().refusing.clear();
        EndChainedCalls();
        return {};
    });
    On("new", [this](WordReader &words) {
        const std::string kind = words.Name("the kind of an object");
        if (std::ranges::find(kinds_, kind, &Kind::name) == kinds_.end()) {
            words.Fail("this host has no kind of object called " + kind);
        }
        return TheObjects().NameOf(Make(kind));
    });
    On("release", [](WordReader &words) -> Fact {
        TheObjects().LetGo(TheObjects().Read(words));
        return {};
    });
    On("overrelease", [](WordReader &words) -> Fact {
        // Not held here: the last release must be the one that takes the object apart.
        const ns::Object object = TheObjects().Read(words);
        ForgetEverywhere(object);
        TheObjects().ReleaseToDeath(object);
        return {};
    });
    On("leave", [this](WordReader &) -> Fact {
        Leave();
        return {};
    });
}

void Host::Register() {
    BeforeRegistration();
    RegisterClasses();
    for (const auto &[method, place] : ThePlan().wraps) {
        WordReader words(place, method);
        WrapMethod(words);
    }
    CheckSetUp();
    AfterRegistration();
}

void Host::Launch(ui::WindowScene scene) {
    room_.ShowLobby(scene);
    TheRecord().listeners.emplace_back(
        [this](const Comment &comment, std::size_t) { room_.AddComment(script::PlainText(comment.text)); });
}

objc::Ref<ns::Object> Host::Make(const std::string &kind) {
    const objc::Ref<ns::Object> object = MakeObject(std::ranges::find(kinds_, kind, &Kind::name)->className);
    if (object) {
        TheObjects().Keep(kind, object);
    }
    return object;
}

void Host::Leave() {
    for (const Kind &kind : kinds_) {
        const objc::Ref<ns::Object> object = kind.ofRoom ? TheObjects().Last(kind.name) : nullptr;
        if (object && IsView(object)) {
            MoveView(objc::As<ui::View>(object.get()), nullptr);
        }
        if (object) {
            TheObjects().LetGo(object);
        }
    }
    room_.Leave();
}

void Host::Shape(WordReader &words) {
    Plan &plan = ThePlan();
    if (words.Take("without")) {
        if (words.Take("class")) {
            plan.lackedClasses[words.Name("a class")] = words.place();
        } else {
            words.Expect("method");
            plan.lackedMethods[ReadMethod(words)] = words.place();
        }
    } else if (words.Take("with")) {
        if (words.Take("class")) {
            OwnClass(words);
        } else {
            words.Expect("method");
            plan.extraMethods[ReadMethod(words)] = words.place();
        }
    } else if (words.Take("throw")) {
        Throw(words);
    } else if (words.Take("refuse")) {
        Refuse(words);
    } else if (words.Take("wrap")) {
        const Plan::Method method = ReadMethod(words);
        plan.wraps.push_back({{Bare(method.first), Bare(method.second)}, words.place()});
    } else if (words.Take("superclass")) {
        const std::string name = words.Name("a class");
        plan.superclasses[name] = {words.Name("its superclass"), words.place()};
    } else if (words.Take("types")) {
        const Plan::Method method = ReadMethod(words);
        plan.shapes[method] = {words.Name("a type encoding"), words.place()};
    } else if (words.Sees("accessor") || words.Sees("ivar")) {
        const bool accessor = words.Next("").text == "accessor";
        const std::string cls = words.Name("a class");
        const std::string name = words.Name("the name of the property");
        plan.properties.push_back({cls, name, words.Name("a type"), accessor, words.place()});
    } else {
        words.Expect("inherits");
        plan.inheritedMethods[ReadMethod(words)] = words.place();
    }
}

Fact Host::Move(WordReader &words) {
    const objc::Ref<ui::View> view = ReadView(words);
    words.Expect("to");
    objc::Ref<ui::View> parent;
    if (words.Take("screen")) {
        parent = room_.screen();
    } else if (!words.Take("nowhere")) {
        parent = ReadView(words);
    }
    return MoveView(view, parent.get());
}

Fact Host::Event(WordReader &words) {
    const std::string name = words.Name("an event");
    const auto event = events_.find(name);
    if (event == events_.end()) {
        words.Fail("this host has no event " + name);
    }
    return event->second(words);
}

Answer Host::Query(WordReader &words) {
    const std::string name = words.Name(kQueries);
    if (name == "calls") {
        return AskCalls(words);
    }
    if (name == "alive") {
        return {{Bare(TheObjects().ReadWhetherAlive(words))}};
    }
    if (name == "responds") {
        const objc::Ref<ns::Object> object = TheObjects().Read(words);
        return {{Bare(object->respondsToSelector(sel_registerName(words.Name("a selector").c_str())))}};
    }
    if (name == "call") {
        return {CallMethod(words)};
    }
    if (name == "methods") {
        Answer answer;
        for (const auto &[method, optional] : TheInventory().methods) {
            answer.push_back({Bare(method.first), Bare(method.second)});
            if (optional) {
                answer.back().push_back(Bare("perhaps"));
            }
        }
        return answer;
    }
    if (name == "taps") {
        return {{Bare(LiveRoom::Taps())}};
    }
    if (name == "classes") {
        return RegisteredClasses();
    }
    if (name == "replaced") {
        return ReplacedMethods();
    }
    words.Fail("expected " + std::string(kQueries) + ", not " + name);
}

} // namespace sim::hosts
