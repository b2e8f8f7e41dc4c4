#pragma once
// The matrix panel: opening and closing, laying out. Main thread only.

#include "objc/runtime.hpp"

namespace corvel {

class Panel;

Panel &MatrixPanel();

/// Builds or re-lays out everything in the matrix panel from the stored settings and texts. Nothing while it is closed.
void LayoutMatrix();

/// `dm_ftap`: closes every open panel, or opens the matrix when there was none.
void HandleFloatTap(objc::Class, objc::SEL);

/// `dm_bM`: brings the matrix panel to the front, under the float buttons.
void HandlePanelTap(objc::Class, objc::SEL);

} // namespace corvel
