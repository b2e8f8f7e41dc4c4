#pragma once
// Objective-C classes written in C++: a method stands where it is declared, a plain property is one line, and each
// object carries a C++ structure, its state.

#include "apple/foundation/string.hpp"
#include "objc/class_builder.hpp"
#include "runtime/autorelease.hpp"

#include <span>
#include <vector>

namespace sim {

/// One method as the `api` listing prints it.
struct ApiRow {
    const char *className;
    char kind;
    const char *selectorName;
    const char *encoding;
};

/// Every method defined below so far, in order of definition.
std::vector<ApiRow> &ApiRows();

/// A copy that the caller owns; empty for nil.
template <objc::Handle T> objc::Ref<T> CopyOf(T object) {
    return objc::Ref<T>::Adopt(objc::Send<"copy", T>(object));
}

namespace detail {

/// Where the state pointer of one class lies within its instances, and the class that added it.
template <class State> struct StateSlot {
    static inline objc::Class cls = nullptr;
    static inline std::ptrdiff_t offset = 0;
};

/// Ends the process: nil has no state.
[[noreturn]] void StopForNil();

template <class State> State *&StatePointer(objc::id object) {
    if (object == nullptr) {
        StopForNil();
    }
    return *reinterpret_cast<State **>(reinterpret_cast<char *>(object) + StateSlot<State>::offset);
}

} // namespace detail

/// The state that the class defined with State keeps in this object. The object must be of that class.
template <class State> State &StateOf(objc::Object object) {
    State *&state = detail::StatePointer<State>(object.pointer);
    if (state == nullptr) {
        state = new State();
    }
    return *state;
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

/// Deletes an object's state and goes on with the superclass's dealloc.
template <class State> void DeleteState(objc::Object self, objc::SEL dealloc) {
    State *&state = StatePointer<State>(self.pointer);
    delete state; // what goes with it may still ask for the state
    state = nullptr;
    objc::Super super{self.pointer, class_getSuperclass(StateSlot<State>::cls)};
    reinterpret_cast<void (*)(objc::Object, objc::SEL)>(objc_msg_lookup_super(&super, dealloc))(self, dealloc);
}

template <class State, class Body> void DeallocAfter(objc::Object self, objc::SEL dealloc) {
    Implementation<Body>::Call(self, dealloc);
    DeleteState<State>(self, dealloc);
}

/// A new class pair, registered; with the room for a state pointer if it is to have one.
objc::Class MakeClass(const char *name, const char *superclass, bool hasState);
/// The class of that name; ends the process with a message when there is none.
objc::Class ExistingClass(const char *name);
/// Where the room for the state pointer is.
std::ptrdiff_t StateOffset(objc::Class cls);
/// Adds a method, or replaces the class's own one.
void SetMethod(objc::Class cls, objc::SEL selector, objc::IMP implementation, const char *encoding);

} // namespace detail

/// A class being defined, under its superclass, which must exist:
///
///     auto label = Class<LabelState>("UILabel", "UIView");
///     label.Property<"text", &LabelState::text>();
///     label.Method<"sizeThatFits:">([](ui::Label self, cg::Size size) -> cg::Size { ... });
///
/// Each instance, also of subclasses, carries a State (none: void), made with its default constructor at first use and
/// deleted in the object's dealloc before the superclass's part goes. A body takes the receiver first, as a view or as
/// a reference to a state that it carries, then the method's arguments; the encoding follows from their types. An
/// objc::Ref that it returns reaches the caller autoreleased. Named functions take the place of closures as in
/// Method<"sizeThatFits:", &SizeThatFits>(). Every method is listed.
template <class State = void> class Class {
  public:
    /// Ends the process with a message when the name is taken or the superclass missing.
    Class(const char *name, const char *superclass)
        : cls_(detail::MakeClass(name, superclass, !std::is_void_v<State>)), listed_(name) {
        if constexpr (!std::is_void_v<State>) {
            detail::StateSlot<State>::cls = cls_;
            detail::StateSlot<State>::offset = detail::StateOffset(cls_);
            const auto dealloc = reinterpret_cast<objc::IMP>(&detail::DeleteState<State>);
            detail::SetMethod(cls_, objc::Selector<"dealloc">(), dealloc, "v@:");
        }
    }

    /// A class that others defined, to be given more methods. Ends the process with a message when it is missing.
    static Class Existing(const char *name) {
        return Class(detail::ExistingClass(name), name);
    }

    /// The same class; what is defined through the result is listed under a protocol, which declares it for the class.
    Class Adopting(const char *protocol) const {
        return Class(cls_, protocol);
    }

    template <objc::FixedString Name, class Body> void Method(Body) {
        Add<Name, Body>('-');
    }
    template <objc::FixedString Name, auto Function> void Method() {
        Add<Name, detail::Named<Function>>('-');
    }

    template <objc::FixedString Name, class Body> void ClassMethod(Body) {
        Add<Name, Body>('+');
    }
    template <objc::FixedString Name, auto Function> void ClassMethod() {
        Add<Name, detail::Named<Function>>('+');
    }

    /// A getter of a member of the state.
    template <objc::FixedString Getter, auto Member> void ReadOnly() {
        Add<Getter, typename detail::Access<Member>::Get>('-');
    }
    /// A getter and its setter: text and setText:, isHidden and setHidden:.
    template <objc::FixedString Getter, auto Member> void Property() {
        ReadOnly<Getter, Member>();
        Add<SetterName<Getter>(), typename detail::Access<Member>::Set>('-');
    }
    /// The same with what is to be done after each change, to the receiver or to its state.
    template <objc::FixedString Getter, auto Member, class Changed> void Property(Changed) {
        ReadOnly<Getter, Member>();
        Add<SetterName<Getter>(), typename detail::Access<Member>::template SetAndTell<Changed>>('-');
    }
    template <objc::FixedString Getter, auto Member, auto Changed> void Property() {
        Property<Getter, Member>(detail::Named<Changed>{});
    }
    /// A getter and its setter, with what the getter answers for nil.
    template <objc::FixedString Getter, auto Member, auto Default> void PropertyOr() {
        Add<Getter, typename detail::Access<Member>::template GetOr<detail::Named<Default>>>('-');
        Add<SetterName<Getter>(), typename detail::Access<Member>::Set>('-');
    }

    /// What is done when an object goes, before its state goes.
    template <class Body> void Dealloc(Body) {
        Set('-', objc::Selector<"dealloc">(), reinterpret_cast<objc::IMP>(&detail::DeallocAfter<State, Body>), "v@:");
    }
    template <auto Function> void Dealloc() {
        Dealloc(detail::Named<Function>{});
    }

    /// Methods from tables. The result is the class itself.
    objc::Class Add(std::span<const objc::MethodEntry> instanceMethods,
                    std::span<const objc::MethodEntry> classMethods) {
        for (const objc::MethodEntry &method : instanceMethods) {
            Set('-', method.selector(), method.implementation, method.encoding);
        }
        for (const objc::MethodEntry &method : classMethods) {
            Set('+', method.selector(), method.implementation, method.encoding);
        }
        return cls_;
    }

  private:
    Class(objc::Class cls, const char *listed) : cls_(cls), listed_(listed) {}

    template <objc::FixedString Name, class Body> void Add(char kind) {
        using Function = detail::Implementation<Body>;
        Set(kind, objc::Selector<Name>(), reinterpret_cast<objc::IMP>(&Function::Call), Function::kEncoding);
    }

    void Set(char kind, objc::SEL selector, objc::IMP implementation, const char *encoding) {
        detail::SetMethod(kind == '+' ? objc::MetaclassOf(cls_) : cls_, selector, implementation, encoding);
        ApiRows().push_back({listed_, kind, sel_getName(selector), encoding});
    }

    objc::Class cls_;
    const char *listed_;
};

/// Defines a class with methods from tables, for whoever puts them together at run time.
objc::Class RegisterClass(const char *name, const char *superclass, std::span<const objc::MethodEntry> instanceMethods,
                          std::span<const objc::MethodEntry> classMethods = {});

/// The same for a class whose instances carry a State.
template <class State>
objc::Class RegisterClassWithState(const char *name, const char *superclass,
                                   std::span<const objc::MethodEntry> instanceMethods,
                                   std::span<const objc::MethodEntry> classMethods = {}) {
    return Class<State>(name, superclass).Add(instanceMethods, classMethods);
}

} // namespace sim
