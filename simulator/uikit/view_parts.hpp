#pragma once
// UIView's definition in parts: each subject's methods stand in a file of their own.

#include "runtime/native_class.hpp"
#include "uikit/view_state.hpp"

namespace sim {

using ViewClass = Class<ViewState>;

void DefineViewTree(ViewClass &view);
void DefineViewLayout(ViewClass &view);
void DefineViewTouches(ViewClass &view);
void DefineViewAnimation(ViewClass &view);

} // namespace sim
