#include "hosts/invocation.hpp"

#include "hosts/blocks.hpp"
#include "hosts/objects.hpp"
#include "hosts/plan.hpp"
#include "hosts/record.hpp"
#include "objc/guard.hpp"
#include "script/values.hpp"

#include <algorithm>
#include <cstring>
#include <deque>
#include <ffi.h>

namespace sim::hosts {
namespace {

/// Room for any one argument or result.
union Slot {
    objc::id object;
    objc::SEL selector;
    long integer;
    unsigned char boolean;
    double real;
    float single;
    ffi_arg raw;
};

/// How scripts write the values of one type and how calls pass them.
struct Type {
    std::string_view codes; // of type encodings, `?` for a block
    ffi_type *ffi;
    void (*read)(Slot &slot, WordReader &words);
    Fact (*describe)(const Slot &result);
};

void ReadObjectOrBlock(Slot &slot, WordReader &words) {
    slot.object = words.Take("block") ? ReadBlock(words) : ReadObject(words).pointer;
}

void ReadBoolean(Slot &slot, WordReader &words) {
    slot.boolean = words.Take("true") ? 1 : 0;
    if (slot.boolean == 0) {
        words.Expect("false");
    }
}

void ReadInteger(Slot &slot, WordReader &words) {
    slot.integer = words.Integer("a whole number");
}

Fact DescribeInteger(const Slot &result) {
    return DescribeArgument(result.integer);
}

const Type kTypes[] = {
    {"v", &ffi_type_void, nullptr, [](const Slot &) { return Fact{}; }},
    {"@#", &ffi_type_pointer, &ReadObjectOrBlock,
     [](const Slot &result) { return DescribeArgument(ns::Object{result.object}); }},
    {"?", &ffi_type_pointer, &ReadObjectOrBlock, [](const Slot &result) { return NameOfBlock(result.object); }},
    {":", &ffi_type_pointer,
     [](Slot &slot, WordReader &words) { slot.selector = sel_registerName(words.Name("a selector").c_str()); },
     [](const Slot &result) { return Fact{Bare(sel_getName(result.selector))}; }},
    {"BcC", &ffi_type_uint8, &ReadBoolean,
     [](const Slot &result) { return DescribeArgument((result.raw & 0xFF) != 0); }},
    {"iI", &ffi_type_sint32, &ReadInteger, &DescribeInteger},
    {"qQlL", &ffi_type_sint64, &ReadInteger, &DescribeInteger},
    {"d", &ffi_type_double, [](Slot &slot, WordReader &words) { slot.real = words.Number("a number"); },
     [](const Slot &result) { return DescribeArgument(result.real); }},
    {"f", &ffi_type_float,
     [](Slot &slot, WordReader &words) { slot.single = static_cast<float>(words.Number("a number")); },
     [](const Slot &result) { return DescribeArgument(result.single); }},
};

/// The types of a method encoding: result, receiver, selector, arguments.
std::vector<const Type *> TypesOf(const char *encoding, const WordReader &words) {
    std::vector<const Type *> types;
    for (const char *at = encoding; *at != '\0'; ++at) {
        if (std::strchr("rnNoORV0123456789+-", *at) != nullptr) {
            continue;
        }
        at += at[0] == '@' && at[1] == '?' ? 1 : 0;
        const auto *const type = std::ranges::find_if(
            kTypes, [at](const Type &row) { return row.codes.find(*at) != std::string_view::npos; });
        if (type == std::end(kTypes)) {
            words.Fail(std::string("a script cannot pass or print a value of type ") + *at);
        }
        types.push_back(type);
    }
    return types;
}

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

/// What came of a call: what the method was told to throw, else what it answered; either may be empty.
struct Outcome {
    Fact threw;
    Fact result;
};

Outcome Perform(ns::Object receiver, const std::string &selector, WordReader &words) {
    const objc::SEL name = sel_registerName(selector.c_str());
    const objc::Method method = class_getInstanceMethod(objc::object_getClass(receiver.pointer), name);
    if (method == nullptr) {
        words.Fail(script::ClassName(receiver) + " has no method " + selector);
    }
    const std::vector<const Type *> types = TypesOf(method_getTypeEncoding(method), words);
    std::deque<Slot> slots(2);
    slots[0].object = receiver.pointer;
    slots[1].selector = name;
    for (const Type *type : std::span(types).subspan(3)) {
        type->read(slots.emplace_back(), words);
    }
    words.End();

    std::vector<ffi_type *> ffiTypes;
    std::vector<void *> values;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        ffiTypes.push_back(types[i + 1]->ffi);
        values.push_back(&slots[i]);
    }
    ffi_cif interface;
    ffi_prep_cif(&interface, FFI_DEFAULT_ABI, static_cast<unsigned>(ffiTypes.size()), types[0]->ffi, ffiTypes.data());

    Slot result{};
    const Fact threw = Watched(receiver, {selector}, [&] {
        ffi_call(&interface, objc_msg_lookup(receiver.pointer, name), &result, values.data());
    });
    return {threw, threw.empty() ? types[0]->describe(result) : Fact{}};
}

} // namespace

ns::Object ReadObject(WordReader &words) {
    return TheObjects().Sees(words) ? TheObjects().Read(words).get() : script::ReadValue(words);
}

Fact Invoke(ns::Object receiver, const std::string &selector, WordReader &arguments) {
    const Outcome outcome = Perform(receiver, selector, arguments);
    return outcome.threw.empty() ? outcome.result : outcome.threw;
}

Fact InvokeIfAnswered(ns::Object receiver, const std::string &selector, std::vector<Word> arguments) {
    if (!receiver.respondsToSelector(sel_registerName(selector.c_str()))) {
        return {};
    }
    WordReader words({"host event", 0}, arguments);
    return Perform(receiver, selector, words).threw;
}

Fact MoveView(ui::View view, ui::View parent) {
    return Watched(view, {"didMoveToSuperview", "didMoveToWindow"}, [&] {
        if (parent) {
            parent.addSubview(view);
        } else {
            view.removeFromSuperview();
        }
    });
}

} // namespace sim::hosts
