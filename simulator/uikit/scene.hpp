#pragma once
// UIScene and UIWindowScene.

namespace sim {

void RegisterScene();

} // namespace sim
