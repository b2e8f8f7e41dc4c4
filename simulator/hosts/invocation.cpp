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

using script::Bare;
using script::Fact;
using script::WordReader;

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

struct Type {
    char code;
    bool block;
    ffi_type *ffi;
};

ffi_type *FfiTypeOf(char code) {
    switch (code) {
    case 'v':
        return &ffi_type_void;
    case 'B':
    case 'c':
    case 'C':
        return &ffi_type_uint8;
    case 'i':
    case 'I':
        return &ffi_type_sint32;
    case 'q':
    case 'Q':
    case 'l':
    case 'L':
        return &ffi_type_sint64;
    case 'd':
        return &ffi_type_double;
    case 'f':
        return &ffi_type_float;
    case '@':
    case '#':
    case ':':
        return &ffi_type_pointer;
    default:
        return nullptr;
    }
}

/// The types of a method encoding: result, receiver, selector, arguments.
std::vector<Type> TypesOf(const char *encoding, const WordReader &words) {
    std::vector<Type> types;
    for (const char *at = encoding; *at != '\0'; ++at) {
        if (std::strchr("rnNoORV0123456789+-", *at) != nullptr) {
            continue;
        }
        const Type type{*at, at[0] == '@' && at[1] == '?', FfiTypeOf(*at)};
        if (type.ffi == nullptr) {
            words.Fail(std::string("a script cannot pass or print a value of type ") + *at);
        }
        at += type.block ? 1 : 0;
        types.push_back(type);
    }
    return types;
}

ns::Object ReadObject(WordReader &words) {
    return TheObjects().Sees(words) ? TheObjects().Read(words).get() : script::ReadValue(words);
}

Slot ReadArgument(const Type &type, WordReader &words) {
    Slot slot{};
    switch (type.code) {
    case '@':
    case '#':
        slot.object = words.Take("block") ? ReadBlock(words) : ReadObject(words).pointer;
        break;
    case ':':
        slot.selector = sel_registerName(words.Name("a selector").c_str());
        break;
    case 'd':
        slot.real = words.Number("a number");
        break;
    case 'f':
        slot.single = static_cast<float>(words.Number("a number"));
        break;
    case 'B':
    case 'c':
    case 'C':
        if (words.Take("true")) {
            slot.boolean = 1;
        } else {
            words.Expect("false");
        }
        break;
    default:
        slot.integer = words.Integer("a whole number");
    }
    return slot;
}

Fact DescribeResult(const Type &type, const Slot &result) {
    switch (type.code) {
    case 'v':
        return {};
    case '@':
        return type.block ? NameOfBlock(result.object) : DescribeArgument(ns::Object{result.object});
    case 'd':
        return DescribeArgument(result.real);
    case 'f':
        return DescribeArgument(static_cast<double>(result.single));
    case 'B':
    case 'c':
    case 'C':
        return DescribeArgument((result.raw & 0xFF) != 0);
    default:
        return DescribeArgument(result.integer);
    }
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
    const objc::Class cls = objc::object_getClass(receiver.pointer);
    const objc::Method method = class_getInstanceMethod(cls, name);
    if (method == nullptr) {
        words.Fail(std::string(class_getName(cls)) + " has no method " + selector);
    }
    const std::vector<Type> types = TypesOf(method_getTypeEncoding(method), words);
    std::deque<Slot> slots(2);
    slots[0].object = receiver.pointer;
    slots[1].selector = name;
    for (std::size_t i = 3; i < types.size(); ++i) {
        slots.push_back(ReadArgument(types[i], words));
    }
    words.End();

    std::vector<ffi_type *> ffiTypes;
    std::vector<void *> values;
    for (std::size_t i = 1; i < types.size(); ++i) {
        ffiTypes.push_back(types[i].ffi);
        values.push_back(&slots[i - 1]);
    }
    ffi_cif interface;
    ffi_prep_cif(&interface, FFI_DEFAULT_ABI, static_cast<unsigned>(ffiTypes.size()), types[0].ffi, ffiTypes.data());

    Slot result{};
    const Fact threw = Watched(receiver, {selector}, [&] {
        ffi_call(&interface, objc_msg_lookup(receiver.pointer, name), &result, values.data());
    });
    return {threw, threw.empty() ? DescribeResult(types[0], result) : Fact{}};
}

} // namespace

Fact Invoke(ns::Object receiver, const std::string &selector, WordReader &arguments) {
    const Outcome outcome = Perform(receiver, selector, arguments);
    return outcome.threw.empty() ? outcome.result : outcome.threw;
}

Fact InvokeIfAnswered(ns::Object receiver, const std::string &selector, std::vector<script::Word> arguments) {
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
