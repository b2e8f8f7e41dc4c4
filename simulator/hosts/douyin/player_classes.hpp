#pragma once
// The preferences of Douyin's live player: getters with the values that the app itself would give.

namespace sim::hosts::douyin {

void RegisterPlayerClasses();

} // namespace sim::hosts::douyin
