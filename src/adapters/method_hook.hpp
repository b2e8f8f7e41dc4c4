#pragma once
// Replacing methods of the host's classes.
//
// An adapter lists its hooks as rows, one a method:
//
//     After<CommentView, "didMoveToWindow", &Moved>()
//
// wraps -[MMLiveCommentView didMoveToWindow] in a replacement that calls the implementation which was in force before,
// exactly once, with exactly what it received, and then Moved(view). What the host's method itself throws passes
// through to the host's caller, as it would without the hook.

#include "apple/foundation/thread.hpp"
#include "objc/class_builder.hpp"
#include "objc/ref.hpp"

#include <string_view>
#include <type_traits>
#include <utility>

namespace corvel {

/// An argument or a result of a hooked method as it travels, in one general register: an object, a block, an integer,
/// a BOOL or nothing. Which one it is the host knows; handing the register on whole suits them all.
using Word = std::uintptr_t;

/// Replaces the method that instances of the class answer the selector with, and puts its implementation into the
/// slot. An inherited method is overridden in the class, so the ancestor and its other subclasses keep theirs.
/// Without the class (nil), or when no class of its chain defines the selector, nothing happens. Nor does it when the
/// method's declared types are not what the replacement carries: words, and a first argument that is an object where
/// the replacement uses it as one.
void InstallMethodHook(objc::Class cls, objc::SEL selector, objc::IMP replacement, objc::IMP *previousSlot,
                       bool usesFirstAsObject = false);

/// One row of an adapter's table of hooks.
struct MethodHook {
    const char *className;
    objc::SEL (*selector)();
    objc::IMP replacement;
    /// Remembers the implementation in force before. It stays empty when the hook could not be installed; then the
    /// replacement is never reached either.
    objc::IMP *previousSlot;
    bool usesFirstAsObject;
};

namespace detail {

/// How many arguments a selector takes: one behind each colon.
template <class Name> constexpr std::size_t ArgumentCount(const Name &name) {
    std::size_t count = 0;
    for (const char character : name.data) {
        count += character == ':' ? 1 : 0;
    }
    return count;
}

/// What a hook does besides calling the method: nothing.
inline constexpr auto kNothing = [](objc::Object) {};

/// Whether the body takes the method's first argument beside the receiver.
template <class View, auto Body> inline constexpr bool kTakesFirst = !std::is_invocable_v<decltype(Body), View>;

template <auto Body> inline constexpr bool kIsNothing = false;
template <> inline constexpr bool kIsNothing<kNothing> = true;

/// The method's first argument when it is wanted, else nil.
template <bool Wanted, class... A> objc::id FirstArgument([[maybe_unused]] A... arguments) {
    if constexpr (Wanted) {
        const Word words[] = {arguments...};
        return reinterpret_cast<objc::id>(words[0]);
    } else {
        return nullptr;
    }
}

/// Hands the body the receiver and, when it takes it, the first argument.
template <class View, auto Body> void Call(objc::id self, [[maybe_unused]] objc::id first) {
    if constexpr (kTakesFirst<View, Body>) {
        Body(View{self}, objc::Object{first});
    } else {
        Body(View{self});
    }
}

/// What a hook's bodies are called with, kept alive although the method itself may give it up. What is being
/// deallocated already cannot be kept.
class Kept {
  public:
    Kept(objc::id self, objc::id argument);
    Kept(const Kept &) = delete;
    Kept &operator=(const Kept &) = delete;
    ~Kept();

    /// Runs the bodies with both in a later turn of the main queue. Without a receiver nothing happens.
    void RunOnMain(void (*bodies)(objc::id self, objc::id argument));

  private:
    objc::Ref<ns::Object> self_;
    objc::Ref<ns::Object> argument_;
};

/// Runs the bodies of a hook on dealloc in a later turn of the main queue. The receiver is gone by then: they may look
/// at the pointer and at nothing behind it.
void RunOnMainAfterDealloc(void (*bodies)(objc::id self, objc::id argument), objc::id self);

template <class View, objc::FixedString Name, auto First, auto Then> struct Replacement {
    static inline constinit objc::IMP previous = nullptr;

    static constexpr bool kTakesFirstArgument = kTakesFirst<View, First> || kTakesFirst<View, Then>;

    static void Bodies(objc::id self, objc::id first) {
        Call<View, First>(self, first);
        Call<View, Then>(self, first);
    }

    template <class... A> static Word Run(objc::id self, objc::SEL selector, A... arguments) {
        const auto method = reinterpret_cast<Word (*)(objc::id, objc::SEL, A...)>(previous);
        if constexpr (kIsNothing<First> && kIsNothing<Then>) {
            return method(self, selector, arguments...);
        } else {
            const objc::id first = FirstArgument<kTakesFirstArgument>(arguments...);
            if (!ns::Thread::isMainThread()) {
                // All that is ours is the main thread's. The method is not kept waiting for that.
                if constexpr (std::string_view(Name.data) == "dealloc") {
                    RunOnMainAfterDealloc(&Bodies, self);
                    return method(self, selector, arguments...);
                } else {
                    Kept kept(self, first);
                    const Word result = method(self, selector, arguments...);
                    kept.RunOnMain(&Bodies);
                    return result;
                }
            }
            Call<View, First>(self, first);
            if constexpr (kIsNothing<Then>) {
                return method(self, selector, arguments...);
            } else {
                const Kept kept(self, first);
                const Word result = method(self, selector, arguments...);
                Call<View, Then>(self, first);
                return result;
            }
        }
    }
    template <std::size_t... I> static constexpr auto Function(std::index_sequence<I...>) {
        return &Run<std::enable_if_t<I + 1 != 0, Word>...>;
    }
};

} // namespace detail

/// The row that calls First(view), then the method that was in force, then Then(view); either may take the method's
/// first argument too, as an object. View stands for the hooked class.
template <class View, objc::FixedString Name, auto First, auto Then = detail::kNothing> MethodHook Around() {
    using Replacement = detail::Replacement<View, Name, First, Then>;
    constexpr auto kArguments = std::make_index_sequence<detail::ArgumentCount(Name)>{};
    return {View::kClassName, &objc::Selector<Name>, reinterpret_cast<objc::IMP>(Replacement::Function(kArguments)),
            &Replacement::previous, Replacement::kTakesFirstArgument};
}

/// The row whose method runs first.
template <class View, objc::FixedString Name, auto Then> MethodHook After() {
    return Around<View, Name, detail::kNothing, Then>();
}

/// The row whose method runs last.
template <class View, objc::FixedString Name, auto First> MethodHook Before() {
    return Around<View, Name, First>();
}

/// The row that wraps the method and changes nothing.
template <class View, objc::FixedString Name> MethodHook PassThrough() {
    return Around<View, Name, detail::kNothing>();
}

/// What is done with each row of a table of hooks. On the phone it is installed; the check of an app only reads it.
using HookVisitor = void (*)(const MethodHook &hook);

/// Installs the hook in the class that goes by the row's name.
inline void InstallHook(const MethodHook &hook) {
    InstallMethodHook(objc_getClass(hook.className), hook.selector(), hook.replacement, hook.previousSlot,
                      hook.usesFirstAsObject);
}

/// Visits the rows in the order of the table.
template <std::size_t N> void ForEachHook(HookVisitor visit, const MethodHook (&hooks)[N]) {
    for (const MethodHook &hook : hooks) {
        visit(hook);
    }
}

} // namespace corvel
