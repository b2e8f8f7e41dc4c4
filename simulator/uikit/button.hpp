#pragma once
// UIButton: a title that depends on the control's state, in a label of its own.

namespace sim {

void RegisterButton();

} // namespace sim
