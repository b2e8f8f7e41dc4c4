#include "uikit/responder.hpp"

#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"
#include "uikit/keyboard.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/scoped_flag.hpp"
#include "uikit/text_input.hpp"
#include "uikit/view.hpp"

namespace sim {
namespace {

/// Not owned: a responder that is deallocated stops being the first one.
ui::Responder &First() {
    static ui::Responder first;
    return first;
}

/// While one first responder gives way to another, the keyboard waits for the second.
bool handingOver = false;

void SetFirst(ui::Responder responder) {
    First() = responder;
    if (!handingOver) {
        KeyboardFollows(responder);
    }
}

/// Takes the status from the first responder, if there is one; false when that refuses.
bool TakeFromFirst() {
    const ScopedFlag scope(handingOver);
    return !First() || (objc::Send<"canResignFirstResponder", bool>(First()) && First().resignFirstResponder());
}

bool BecomeFirstResponder(ui::Responder self) {
    if (First() == self) {
        return true;
    }
    if (!objc::Send<"canBecomeFirstResponder", bool>(self) || !TakeFromFirst()) {
        return false;
    }
    SetFirst(self);
    if (TextInputOf(self) != nullptr) {
        MakeKey(WindowOf(objc::As<ui::View>(self))); // one cannot type into a window that is not key
    }
    return true;
}

/// Touches that a responder does not handle go up the chain.
template <objc::FixedString Name> void DefinePassing(Class<> &responder) {
    responder.Method<Name>([](ui::Responder self, ns::Set touches, ui::Event event) {
        objc::Send<Name, void>(self.nextResponder(), touches, event);
    });
}

} // namespace

void DefineResponder() {
    auto responder = Class("UIResponder", "NSObject");
    responder.Method<"dealloc">([](ns::Object self) {
        if (First() == self) {
            SetFirst(nullptr);
        }
        objc::SendSuper<"dealloc", void>(self);
    });
    responder.Method<"nextResponder">([](ui::Responder) { return ui::Responder{}; });
    responder.Method<"canBecomeFirstResponder">([](ui::Responder) { return false; });
    responder.Method<"canResignFirstResponder">([](ui::Responder) { return true; });
    responder.Method<"isFirstResponder">([](ui::Responder self) { return First() == self; });
    responder.Method<"becomeFirstResponder", &BecomeFirstResponder>();
    responder.Method<"resignFirstResponder">([](ui::Responder self) {
        if (First() == self) {
            SetFirst(nullptr);
        }
        return true;
    });
    responder.Method<"inputAccessoryView">([](ui::Responder) { return ui::View{}; });
    DefinePassing<"touchesBegan:withEvent:">(responder);
    DefinePassing<"touchesMoved:withEvent:">(responder);
    DefinePassing<"touchesEnded:withEvent:">(responder);
    DefinePassing<"touchesCancelled:withEvent:">(responder);
}

ui::Responder FirstResponder() {
    return First();
}

} // namespace sim
