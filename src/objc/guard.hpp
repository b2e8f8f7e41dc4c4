#pragma once
// The one place where the platform's exceptions are caught.

#include "objc/object.hpp"

#include <type_traits>

extern "C" {
/// Runs body(context); true when it returned. When it raises an NSException, caught(context, reason) is called
/// with the exception's reason (may be nil) and the result is false. Anything else that is thrown passes through.
bool CorvelRunGuarded(void (*body)(void *), void (*caught)(void *, objc::id), void *context);
}

namespace objc {

/// Calls body(); when it raises an NSException, calls caught(Object reason) instead of letting it pass.
/// Returns whether body returned normally.
template <class Body, class Caught> bool Guard(Body &&body, Caught &&caught) {
    struct Pair {
        std::remove_reference_t<Body> *body;
        std::remove_reference_t<Caught> *caught;
    } pair{&body, &caught};
    return CorvelRunGuarded([](void *context) { (*static_cast<Pair *>(context)->body)(); },
                            [](void *context, id reason) { (*static_cast<Pair *>(context)->caught)(Object{reason}); },
                            &pair);
}

/// The same where nobody wants the reason.
template <class Body> bool Guard(Body &&body) {
    return Guard(body, [](Object) {});
}

} // namespace objc
