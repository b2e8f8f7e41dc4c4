#include "hosts/invocation.hpp"

#include "hosts/objects.hpp"
#include "hosts/plan.hpp"
#include "objc/guard.hpp"
#include "script/values.hpp"

#include <algorithm>
#include <span>

namespace sim::hosts {
namespace {

/// Runs work that calls these methods of the object; what one of them was told to throw is the answer, any other
/// exception is nothing that the host expects.
template <class Work>
Fact Watched(ns::Object receiver, std::initializer_list<std::string> selectors, const Work &work) {
    std::vector<std::string> planned;
    for (const std::string &selector : selectors) {
        if (const auto *reason = ThePlan().ReasonToThrow(objc::object_getClass(receiver.pointer), selector)) {
            planned.push_back(*reason);
        }
    }
    std::string raised;
    const objc::Ref<ns::Object> alive(receiver);
    const bool returned =
        objc::Guard(work, [&raised](objc::Object reason) { raised = script::TextOf(objc::As<ns::String>(reason)); });
    if (returned) {
        return {};
    }
    if (std::ranges::find(planned, raised) == planned.end()) {
        throw ReachedHost(raised);
    }
    return {Bare("threw"), script::Text(raised)};
}

} // namespace

ns::Object ReadObject(WordReader &words) {
    return TheObjects().Sees(words) ? TheObjects().Read(words).get() : script::ReadValue(words);
}

Invocation::Invocation(ns::Object receiver, const std::string &selector, WordReader &arguments)
    : selector_(selector), receiver_(receiver) {
    const objc::Method method =
        class_getInstanceMethod(objc::object_getClass(receiver.pointer), sel_registerName(selector.c_str()));
    if (method == nullptr) {
        arguments.Fail(script::ClassName(receiver) + " has no method " + selector);
    }
    types_ = TypesOf(method_getTypeEncoding(method), arguments.place());
    for (const Type *type : std::span(types_).subspan(3)) {
        Slot &slot = arguments_.emplace_back();
        type->read(slot, arguments);
        if (type->codes.starts_with('@')) {
            held_.emplace_back(ns::Object{slot.object});
        }
    }
    arguments.End();
}

Fact Invocation::Send() {
    const objc::Ref<ns::Object> alive = receiver();
    if (!alive) {
        return {};
    }
    objc::id self = alive.get().pointer;
    objc::SEL selector = sel_registerName(selector_.c_str());
    std::vector<ffi_type *> ffiTypes;
    std::vector<void *> values{&self, static_cast<void *>(&selector)};
    for (const Type *type : std::span(types_).subspan(1)) {
        ffiTypes.push_back(type->ffi);
    }
    for (Slot &slot : arguments_) {
        values.push_back(&slot);
    }
    ffi_cif interface;
    ffi_prep_cif(&interface, FFI_DEFAULT_ABI, static_cast<unsigned>(ffiTypes.size()), types_[0]->ffi, ffiTypes.data());
    Slot result{};
    ffi_call(&interface, objc_msg_lookup(self, selector), &result, values.data());
    return types_[0]->describe(result);
}

Fact Invoke(Invocation &invocation) {
    Fact result;
    Fact threw = Watched(invocation.receiver(), {invocation.selector()}, [&] { result = invocation.Send(); });
    return threw.empty() ? result : threw;
}

Fact InvokeIfAnswered(ns::Object receiver, const std::string &selector, std::vector<Word> arguments) {
    // Not by asking the object, whose class may have an answer of its own.
    if (!receiver || class_getInstanceMethod(objc::object_getClass(receiver.pointer),
                                             sel_registerName(selector.c_str())) == nullptr) {
        return {};
    }
    WordReader words({"host event", 0}, arguments);
    Invocation invocation(receiver, selector, words);
    return Watched(receiver, {selector}, [&] { invocation.Send(); });
}

Fact MoveView(ui::View view, ui::View parent) {
    const objc::Ref<ui::View> keep = parent;
    return Watched(view, {"didMoveToSuperview", "didMoveToWindow"}, [&] {
        if (parent) {
            parent.addSubview(view);
        } else {
            view.removeFromSuperview();
        }
    });
}

} // namespace sim::hosts
