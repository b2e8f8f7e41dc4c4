#pragma once
// Choosing the grid's size in the settings panel: the presets on two segmented controls, the custom size in two fields.

#include "apple/uikit/gesture_recognizer.hpp"
#include "apple/uikit/segmented_control.hpp"
#include "apple/uikit/text_field.hpp"
#include "settings/settings_views.hpp"

namespace corvel {

/// Adds the title, the two segmented controls, and for the custom grid the fields of its size; moves y below them.
void AddGridRows(Column &column);

/// `dm_gc:`: a segment of either control was chosen. Stores the preset and rebuilds the matrix and the settings panel.
void HandleGridChoice(objc::Class, objc::SEL, ui::SegmentedControl control);

/// `dm_gb:`: a field is being edited. Scrolls its row to the top of the panel, where no keyboard covers it on the
/// smallest screen either.
void HandleGridFieldBegan(objc::Class, objc::SEL, ui::TextField field);

/// `dm_gi:`: a field was left. Keeps its number within 1 to 12, in the field as in the store.
void HandleGridField(objc::Class, objc::SEL, ui::TextField field);

/// `dm_gd`: "完成" above the number pad. Ends editing.
void HandleGridDone(objc::Class, objc::SEL);

/// `dm_gt:`: a tap on the settings panel. Ends editing unless it hit a text field.
void HandleTapBesideFields(objc::Class, objc::SEL, ui::GestureRecognizer recognizer);

} // namespace corvel
