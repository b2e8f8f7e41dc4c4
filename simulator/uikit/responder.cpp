#include "uikit/responder.hpp"

#include "runtime/native_class.hpp"
#include "uikit/keyboard.hpp"

#include <utility>

namespace sim {
namespace {

/// Not owned: a responder that dies stops being the first one.
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

/// Whether the first responder, if any, gave way.
bool TakeFromFirst() {
    class HandingOver {
      public:
        HandingOver() : before_(std::exchange(handingOver, true)) {}
        HandingOver(const HandingOver &) = delete;
        HandingOver &operator=(const HandingOver &) = delete;
        ~HandingOver() {
            handingOver = before_;
        }

      private:
        bool before_;
    };
    const HandingOver scope;
    return !First() ||
           (objc::Send<"canResignFirstResponder", bool>(First()) && objc::Send<"resignFirstResponder", bool>(First()));
}

void Dealloc(ui::Responder self, objc::SEL) {
    if (First() == self) {
        SetFirst(nullptr);
    }
    objc::SendSuper<"dealloc", void>(ns::Object{self});
}

ui::Responder NextResponder(ui::Responder, objc::SEL) {
    return {};
}

bool CanBecomeFirstResponder(ui::Responder, objc::SEL) {
    return false;
}

bool CanResignFirstResponder(ui::Responder, objc::SEL) {
    return true;
}

bool IsFirstResponder(ui::Responder self, objc::SEL) {
    return First() == self;
}

bool BecomeFirstResponder(ui::Responder self, objc::SEL) {
    if (First() == self) {
        return true;
    }
    if (!objc::Send<"canBecomeFirstResponder", bool>(self)) {
        return false;
    }
    if (!TakeFromFirst()) {
        return false;
    }
    SetFirst(self);
    return true;
}

bool ResignFirstResponder(ui::Responder self, objc::SEL) {
    if (First() == self) {
        SetFirst(nullptr);
    }
    return true;
}

ui::View InputAccessoryView(ui::Responder, objc::SEL) {
    return {};
}

// Touches that a responder does not handle go up the chain.

ui::Responder Next(ui::Responder self) {
    return objc::Send<"nextResponder", ui::Responder>(self);
}

void TouchesBegan(ui::Responder self, objc::SEL, ns::Set touches, ui::Event event) {
    objc::Send<"touchesBegan:withEvent:", void>(Next(self), touches, event);
}

void TouchesMoved(ui::Responder self, objc::SEL, ns::Set touches, ui::Event event) {
    objc::Send<"touchesMoved:withEvent:", void>(Next(self), touches, event);
}

void TouchesEnded(ui::Responder self, objc::SEL, ns::Set touches, ui::Event event) {
    objc::Send<"touchesEnded:withEvent:", void>(Next(self), touches, event);
}

void TouchesCancelled(ui::Responder self, objc::SEL, ns::Set touches, ui::Event event) {
    objc::Send<"touchesCancelled:withEvent:", void>(Next(self), touches, event);
}

} // namespace

ui::Responder FirstResponder() {
    return First();
}

void RegisterResponder() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"dealloc", &Dealloc>(),
        objc::MethodNamed<"nextResponder", &NextResponder>(),
        objc::MethodNamed<"canBecomeFirstResponder", &CanBecomeFirstResponder>(),
        objc::MethodNamed<"canResignFirstResponder", &CanResignFirstResponder>(),
        objc::MethodNamed<"isFirstResponder", &IsFirstResponder>(),
        objc::MethodNamed<"becomeFirstResponder", &BecomeFirstResponder>(),
        objc::MethodNamed<"resignFirstResponder", &ResignFirstResponder>(),
        objc::MethodNamed<"inputAccessoryView", &InputAccessoryView>(),
        objc::MethodNamed<"touchesBegan:withEvent:", &TouchesBegan>(),
        objc::MethodNamed<"touchesMoved:withEvent:", &TouchesMoved>(),
        objc::MethodNamed<"touchesEnded:withEvent:", &TouchesEnded>(),
        objc::MethodNamed<"touchesCancelled:withEvent:", &TouchesCancelled>(),
    };
    RegisterClass("UIResponder", "NSObject", methods);
}

} // namespace sim
