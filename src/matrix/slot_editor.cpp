#include "matrix/slot_editor.hpp"

#include "apple/dispatch/queue.hpp"
#include "apple/foundation/notifications.hpp"
#include "apple/foundation/number.hpp"
#include "matrix/cell.hpp"
#include "matrix/keyboard_avoidance.hpp"
#include "matrix/matrix_panel.hpp"
#include "matrix/slot_editor_views.hpp"
#include "matrix/slots.hpp"
#include "overlay/haptic.hpp"
#include "overlay/presentation.hpp"
#include "preferences/stores.hpp"

namespace corvel {
namespace {

/// On an editor's view controller: the tokens of its keyboard observers.
constexpr objc::AssociationKey kShowObserver{"dm_ks"};
constexpr objc::AssociationKey kHideObserver{"dm_kh"};

/// Time for a dismissal to come to its end.
constexpr std::int64_t kDismissalNanoseconds = 1'000'000'000;

void RemoveObserver(ui::ViewController holder, const objc::AssociationKey &key) {
    if (const auto token = objc::GetAssociated<ns::Object>(holder, key)) {
        ns::NotificationCenter::defaultCenter().removeObserver(token);
    }
}

void DismissSlotEditor(ns::Object sender) {
    const auto controller = objc::GetAssociated<ui::ViewController>(sender, kEditorController);
    if (!controller) {
        return;
    }
    const objc::Ref<ui::ViewController> top = TopmostPresented(controller);
    // The tokens are looked for on what the topmost controller presents, which is nothing: no token is ever found and
    // the observers stay registered. They are wanted so, and harmless, since they hold the box weakly.
    const ui::ViewController holder = top->presentedViewController();
    RemoveObserver(holder, kShowObserver);
    RemoveObserver(holder, kHideObserver);
    top->dismissViewControllerAnimated(true, nullptr);
    // Later, for a controller of the app's may swallow the dismissal.
    dispatch::AfterOnMain(kDismissalNanoseconds,
                          [editor = objc::Ref<ui::ViewController>(controller)] { UntieIfGone(editor); });
}

void StoreSlot(int index, ns::String text) {
    StoreObject(SlotKey(index).get(), text.length() > 0 ? text : ns::String{});
    SynchronizeDefaults();
}

} // namespace

void HandleCellLongPress(objc::Class, objc::SEL, ui::GestureRecognizer recognizer) {
    if (recognizer.state() != UIGestureRecognizerStateBegan) {
        return;
    }
    PlayImpactHaptic();
    const int index = static_cast<int>(recognizer.view().tag() - kCellTagBase);
    const SlotEditor editor = BuildSlotEditor(index, SlotDisplayText(index));
    const KeyboardObservers observers = AvoidKeyboard(editor.box);
    objc::SetAssociated(editor.controller, kShowObserver, observers.willShow);
    objc::SetAssociated(editor.controller, kHideObserver, observers.willHide);
    PresentOnTop(editor.controller,
                 objc::MakeBlock<void()>([textView = editor.textView] { textView->becomeFirstResponder(); }));
    UntieIfGone(editor.controller); // there may have been nobody to present it
}

void HandleEditorSave(objc::Class, objc::SEL, ns::Object sender) {
    const auto textView = objc::GetAssociated<ui::TextView>(sender, kEditorTextView);
    const auto index = objc::GetAssociated<ns::Number>(sender, kEditorSlotIndex);
    StoreSlot(index.intValue(), textView.text());
    LayoutMatrix();
    DismissSlotEditor(sender);
}

void HandleEditorCancel(objc::Class, objc::SEL, ns::Object sender) {
    DismissSlotEditor(sender);
}

} // namespace corvel
