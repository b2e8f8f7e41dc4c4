#pragma once
// Which views take typing, and how the keyboard reaches what they edit.

#include "apple/uikit/view.hpp"
#include "uikit/editable_text.hpp"

namespace sim {

/// How wide (points) carets are drawn, and how much of the tint a selection has.
inline constexpr double kCaretWidth = 2;
inline constexpr double kSelectionAlpha = 0.2;

/// How one class of views is typed into.
struct TextInput {
    /// The text under edit; valid while the view lives.
    EditableText &(*text)(ui::View view);
    /// Called after the keyboard changed the text or what is selected.
    void (*edited)(ui::View view);
};

/// Makes instances of a class (by name) and of its subclasses take typing: the keyboard comes up for them.
void RegisterTextInput(const char *className, TextInput input);

/// How the view is typed into; null when it takes no typing or is nil.
const TextInput *TextInputOf(ui::Responder view);

/// The view that the keyboard types into: the first responder, when it takes typing; else nil.
ui::View EditedView();

// What the keyboard does to the view that it types into, which must be there.

void TypeText(ns::String text);
void TypeDelete();
void SelectText(ns::Range range);

} // namespace sim
