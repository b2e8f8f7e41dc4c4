#pragma once
// Methods written as C++ functions: how the runtime calls them, and what a property reads and writes.

#include "apple/foundation/string.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/object_state.hpp"

#include <concepts>
#include <type_traits>

namespace sim {

/// A copy that the caller owns; empty for nil.
template <objc::Handle T> objc::Ref<T> CopyOf(T object) {
    return objc::Ref<T>::Adopt(objc::Send<"copy", T>(object));
}

/// How a property of an object reads and writes a member of its state: numbers and structures are stored, as are views
/// of objects that are not owned.
template <class Member> struct Stored {
    using Value = Member;
    static Value Read(const Member &member) {
        return member;
    }
    static void Write(Member &member, Value value) {
        member = value;
    }
};

/// A string is copied, any other object retained.
template <class T> struct Stored<objc::Ref<T>> {
    using Value = T;
    static Value Read(const objc::Ref<T> &member) {
        return member;
    }
    static void Write(objc::Ref<T> &member, Value value) {
        if constexpr (std::derived_from<T, ns::String>) {
            member = CopyOf(value);
        } else {
            member = value;
        }
    }
};

/// The selector of the setter that goes with a getter: setText: with text, setHidden: with isHidden.
template <objc::FixedString Getter> constexpr auto SetterName() {
    constexpr auto isCapital = [](char letter) { return letter >= 'A' && letter <= 'Z'; };
    constexpr bool asks =
        Getter.size() > 2 && Getter.data[0] == 'i' && Getter.data[1] == 's' && isCapital(Getter.data[2]);
    constexpr std::size_t skipped = asks ? 2 : 0;
    objc::FixedString<char, Getter.size() - skipped + sizeof "set:"> name{};
    name.data[0] = 's';
    name.data[1] = 'e';
    name.data[2] = 't';
    for (std::size_t i = skipped; i < Getter.size(); ++i) {
        name.data[3 + i - skipped] = Getter.data[i];
    }
    if (!isCapital(name.data[3])) {
        name.data[3] = static_cast<char>(name.data[3] - 'a' + 'A');
    }
    name.data[3 + Getter.size() - skipped] = ':';
    return name;
}

namespace detail {

/// What the first parameter of a body stands for: the receiver, or the state in it.
template <class First> decltype(auto) Receiver(objc::Object self) {
    if constexpr (std::is_reference_v<First>) {
        return StateOf<std::remove_cvref_t<First>>(self);
    } else {
        return objc::As<First>(self);
    }
}

/// What the caller gets of a body's result: an object that the body owns comes autoreleased.
template <class R> struct Returned {
    using Type = R;
};
template <class T> struct Returned<objc::Ref<T>> {
    using Type = T;
};

/// The function behind a method, made from its body's type: a closure without captures is made anew at each call. The
/// selector, which no body asks for, ends here.
template <class Body, class Signature = decltype(&Body::operator())> struct Implementation;

template <class Body, class R, class First, class... A> struct Implementation<Body, R (Body::*)(First, A...) const> {
    using Result = typename Returned<R>::Type;
    static Result Call(objc::Object self, objc::SEL, A... arguments) {
        if constexpr (std::is_same_v<Result, R>) {
            return Body{}(Receiver<First>(self), arguments...);
        } else {
            return Autoreleased(Body{}(Receiver<First>(self), arguments...));
        }
    }
    static constexpr const char *kEncoding = objc::kMethodEncoding<Result, A...>.data;
};

/// A named function as a body.
template <auto Function> struct Named;
template <class R, class... A, R (*Function)(A...)> struct Named<Function> {
    R operator()(A... arguments) const {
        return Function(arguments...);
    }
};

/// The bodies of a property's methods.
template <auto Member> struct Access;
template <class State, class M, M State::*Member> struct Access<Member> {
    using Value = typename Stored<M>::Value;
    struct Get {
        Value operator()(const State &state) const {
            return Stored<M>::Read(state.*Member);
        }
    };
    template <class Default> struct GetOr {
        Value operator()(const State &state) const {
            const Value value = Stored<M>::Read(state.*Member);
            return value ? value : Default{}();
        }
    };
    struct Set {
        void operator()(State &state, Value value) const {
            Stored<M>::Write(state.*Member, value);
        }
    };
    template <class Changed> struct SetAndTell {
        void operator()(objc::Object self, Value value) const {
            Stored<M>::Write(StateOf<State>(self).*Member, value);
            Implementation<Changed>::Call(self, nullptr);
        }
    };
};

} // namespace detail
} // namespace sim
