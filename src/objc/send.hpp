#pragma once
// Typed message sends. A view's method names its own class, the selector, the
// result and the arguments once; nothing is cast at the place of the call.

#include "objc/encoding.hpp"
#include "objc/object.hpp"
#include "objc/runtime.hpp"
#include "objc/selector.hpp"

namespace objc {

/// The class that a view stands for, looked up by name once it exists; nil while the process lacks it.
template <Handle View> Class ClassOf() {
    static constinit Class cls = nullptr;
    if (cls == nullptr) {
        cls = objc_getClass(View::kClassName);
    }
    return cls;
}

namespace detail {

/// What one send says of itself: checked against the method that it reaches, and traced.
struct SendSite {
    const char *className;
    char kind;
    const char *selectorName;
    const char *encoding;
    Class checkedClass = nullptr;
    bool traced = false;
};

/// The implementation that answers a send of this site to this receiver (never nil). Desktop builds
/// compare encodings first and end the process with both printed when they disagree.
IMP Lookup(SendSite &site, id receiver, SEL selector);
/// The same for a send that starts at a superclass.
IMP LookupSuper(SendSite &site, Super super, SEL selector);

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): a cache, one a send site
template <Handle View, char Kind, FixedString Name, class R, class... A>
inline constinit SendSite sendSite{View::kClassName, Kind, Name.data, kMethodEncoding<R, A...>.data};

template <Handle View, char Kind, FixedString Name, class R, class... A> R SendTo(id receiver, A... arguments) {
#if defined(__APPLE__)
    if constexpr (std::is_class_v<R>) {
        if constexpr (sizeof(R) > 2 * sizeof(id)) { // a result in memory is not zeroed for nil as registers are
            if (receiver == nullptr) {
                return R{};
            }
        }
    }
    return reinterpret_cast<R (*)(id, SEL, A...)>(objc_msgSend)(receiver, Selector<Name>(), arguments...);
#else
    if (receiver == nullptr) {
        return R();
    }
    const SEL selector = Selector<Name>();
    const IMP implementation = Lookup(sendSite<View, Kind, Name, R, A...>, receiver, selector);
    return reinterpret_cast<R (*)(id, SEL, A...)>(implementation)(receiver, selector, arguments...);
#endif
}

} // namespace detail

/// Sends the instance method Name of the class that View stands for. A nil receiver gives a zero result.
template <FixedString Name, class R, Handle View, class... A> R Send(View receiver, A... arguments) {
    return detail::SendTo<View, '-', Name, R, A...>(receiver.pointer, arguments...);
}

/// Sends the class method Name to View's class. While the class is missing the result is zero.
template <Handle View, FixedString Name, class R, class... A> R SendClass(A... arguments) {
    return detail::SendTo<View, '+', Name, R, A...>(AsObject(ClassOf<View>()), arguments...);
}

/// Sends Name to the receiver as its superclass implements it; View stands for that superclass.
template <FixedString Name, class R, Handle View, class... A> R SendSuper(View receiver, A... arguments) {
    const Super super{receiver.pointer, ClassOf<View>()};
    const SEL selector = Selector<Name>();
#if defined(__APPLE__)
    return reinterpret_cast<R (*)(const Super *, SEL, A...)>(objc_msgSendSuper)(&super, selector, arguments...);
#else
    const IMP implementation = detail::LookupSuper(detail::sendSite<View, '-', Name, R, A...>, super, selector);
    return reinterpret_cast<R (*)(id, SEL, A...)>(implementation)(super.receiver, selector, arguments...);
#endif
}

} // namespace objc
