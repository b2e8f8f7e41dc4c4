#pragma once
// What the slot editor looks like, and how its controls find the editor that they belong to.

#include "apple/uikit/text_view.hpp"
#include "apple/uikit/view_controller.hpp"

namespace corvel {

/// On every control of an editor: its view controller.
inline constexpr objc::AssociationKey kEditorController{"dm_p"};
/// On the controls that save: the text view.
inline constexpr objc::AssociationKey kEditorTextView{"dm_tv"};
/// On the controls that save: the slot's index as a number.
inline constexpr objc::AssociationKey kEditorSlotIndex{"dm_idx"};

/// An editor that is built but not presented yet.
struct SlotEditor {
    objc::Ref<ui::ViewController> controller;
    objc::Ref<ui::View> box;
    objc::Ref<ui::TextView> textView;
};

/// Builds the editor of the slot with that index around the text.
SlotEditor BuildSlotEditor(int index, ns::String text);

/// Makes an editor that nobody presents any more, whoever took it away, let go of itself: its controls hold its
/// controller, which holds them. One that is presented still works on.
void UntieIfGone(ui::ViewController controller);

} // namespace corvel
