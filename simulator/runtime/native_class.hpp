#pragma once
// Objective-C classes written in C++: a method stands where it is declared, a plain property is one line, and each
// object carries a C++ structure, its state.

#include "objc/class_builder.hpp"
#include "runtime/method_body.hpp"
#include "runtime/object_state.hpp"

#include <span>
#include <string>
#include <vector>

namespace sim {

/// One method as the `api` listing prints it.
struct ApiRow {
    const char *className;
    char kind;
    const char *selectorName;
    const char *encoding;
};

/// An instance variable that a class is to have.
struct InstanceVariable {
    std::string name;
    std::string encoding;
    std::size_t size; // bytes, a power of two
};

/// Every method defined below so far, in order of definition.
std::vector<ApiRow> &ApiRows();

namespace detail {

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
objc::Class MakeClass(const char *name, const char *superclass, bool hasState,
                      std::span<const InstanceVariable> variables);
/// The class of that name; ends the process with a message when there is none.
objc::Class ExistingClass(const char *name);
/// Where the room for the state pointer is.
std::ptrdiff_t StateOffset(objc::Class cls);
/// Adds a method, or replaces the class's own one.
void SetMethod(objc::Class cls, objc::SEL selector, objc::IMP implementation, const char *encoding);

} // namespace detail

/// A class while it is being defined:
///
///     auto label = Class<LabelState>("UILabel", "UIView");
///     label.Property<"text", &LabelState::text>();
///     label.Method<"sizeThatFits:">([](ui::Label self, cg::Size size) -> cg::Size { ... });
///     label.Method<"drawTextInRect:", &DrawText>();
///
/// - Each instance, also of a subclass, carries a State (void: none). It is made with its default constructor at first
///   use and deleted when the object goes, before the superclass's part goes.
/// - A body is a closure without captures or a named function. First it takes the receiver, as a view or as a reference
///   to a state that the receiver carries; then the method's arguments. Their types give the method's encoding.
/// - An objc::Ref that a body returns reaches the caller autoreleased.
/// - A method that the class has already is replaced. Every method is listed in ApiRows.
template <class State = void> class Class {
  public:
    /// Ends the process with a message when the name is taken or the superclass missing.
    Class(const char *name, const char *superclass, std::span<const InstanceVariable> variables = {})
        : cls_(detail::MakeClass(name, superclass, !std::is_void_v<State>, variables)), listed_(name) {
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

    /// The same class, to define the optional methods of a protocol with: they are listed under the protocol's name.
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

    objc::Class pointer() const {
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

} // namespace sim
