#pragma once
// The ways in which comments are sent, as tables: what each needs of the host's classes. A send function names its
// table beside what it does, and takes the methods that it calls from the rows' own declarations. `inspect` reads the
// tables to tell whether an app still has all of that; on the phone nothing reads them, and the linker drops them.

#include "objc/send.hpp"

#include <span>

namespace corvel {

/// The literal as a text that lasts.
template <objc::FixedString Text> inline constexpr const char *kStaticText = Text.data;

/// A method of the host's class that View stands for, with the types that it is called with. Calling it sends it.
template <class View, objc::FixedString Name, class Signature> struct HostMethod;

template <class View, objc::FixedString Name, class R, class... A> struct HostMethod<View, Name, R(A...)> {
    R operator()(View receiver, A... arguments) const {
        return objc::Send<Name, R>(receiver, arguments...);
    }
};

/// The method's selector.
template <class View, objc::FixedString Name, class Signature>
objc::SEL SelectorOf(HostMethod<View, Name, Signature> /*method*/) {
    return objc::Selector<Name>();
}

/// Something that a way to send needs of a class of the host's. Without some of them the next way is tried; without
/// the others the host is given a comment that has lost its text.
struct SendStep {
    enum class Kind : unsigned char {
        kMethod,     // it is called, with these types; else the next way is tried
        kKey,        // the text is set under it by key-value coding; else the next way is tried
        kCarrier,    // an object of the class carries the text; else it is lost
        kFill,       // it puts the text into the carrier, called with these types; else it is lost
        kCarrierKey, // the text is set in the carrier under it by key-value coding; one of several is enough, else it
                     // is lost
    };
    Kind kind;
    const char *className = nullptr; // nil: no step
    const char *name = nullptr;      // of the method or the key
    const char *types = nullptr;     // as method encodings have them, without offsets
};

/// The step that calls the method.
template <class View, objc::FixedString Name, class R, class... A>
constexpr SendStep Calls(HostMethod<View, Name, R(A...)>) {
    return {SendStep::Kind::kMethod, View::kClassName, kStaticText<Name>, objc::kMethodEncoding<R, A...>.data};
}

/// The step that sets the text under the key.
template <class View, objc::FixedString Key> constexpr SendStep Sets() {
    return {SendStep::Kind::kKey, View::kClassName, kStaticText<Key>};
}

/// The step that makes an object of the class to carry the text.
template <class View> constexpr SendStep CarriedBy() {
    return {SendStep::Kind::kCarrier, View::kClassName};
}

/// The step that puts the text into its carrier by the method.
template <class View, objc::FixedString Name, class R, class... A>
constexpr SendStep FilledBy(HostMethod<View, Name, R(A...)>) {
    return {SendStep::Kind::kFill, View::kClassName, kStaticText<Name>, objc::kMethodEncoding<R, A...>.data};
}

/// The step that puts the text into its carrier under the key.
template <class View, objc::FixedString Key> constexpr SendStep FilledUnder() {
    return {SendStep::Kind::kCarrierKey, View::kClassName, kStaticText<Key>};
}

/// A hook that brings us the object which a way to send goes through.
struct Holder {
    const char *className = nullptr; // nil: no holder
    const char *selector = nullptr;
    /// Where the hooked object is not itself the one: by which of its methods it names it; the second may be nil.
    const char *getters[2] = {};
    /// Or under which key.
    const char *key = nullptr;
};

/// The hook of that method, whose object is held.
template <class View, objc::FixedString Name> constexpr Holder HeldBy() {
    return {View::kClassName, kStaticText<Name>};
}

/// A way to send.
struct SendPath {
    const char *name;
    /// The class of the object that it goes through.
    const char *className;
    /// Any one of them is enough.
    Holder holders[8];
    /// Each of them is wanted.
    SendStep steps[4];
};

} // namespace corvel
