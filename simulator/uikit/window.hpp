#pragma once
// UIWindow.

namespace sim {

void RegisterWindow();

} // namespace sim
