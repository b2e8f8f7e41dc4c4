#pragma once
// CALayer, as far as a view's looks need it. Each view has one, without sublayers of its own.

namespace sim {

void RegisterLayer();

} // namespace sim
