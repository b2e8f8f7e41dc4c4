#pragma once
// The scrolled part of the settings panel: a fixed block, sections that fold, a footer, one under the other.

#include "apple/uikit/button.hpp"
#include "apple/uikit/scroll_view.hpp"

namespace corvel {

/// Writes YES for every fold state that is not stored yet, so that a fresh panel shows all sections folded.
void StoreMissingFoldStates();

/// Fills the panel's scroll view. The panel keeps the parts: they go when it goes, whoever removes it.
void AddSettingsContent(ui::View panel, ui::ScrollView scrollView);

/// Places the fixed block, the sections as folded or open as their keys say, and the footer of the present panel, and
/// gives the scroll view their height. Nothing without a panel.
void LayoutSettingsSections();

/// `dm_tog:`: folds or opens the section of the tapped header.
void HandleSectionHeader(objc::Class, objc::SEL, ui::Button header);

} // namespace corvel
