#pragma once
// The live room's identifier, which Douyin's classes carry under names that vary between its versions.

#include "apple/foundation/string.hpp"

namespace corvel::douyin {

/// The first plausible identifier (1 to 63 characters) that the object, its room model, its context or its inner
/// store gives under one of the known names; empty when there is none or the object is nil. Never raises, never logs.
objc::Ref<ns::String> ProbeRoomIdentity(ns::Object object);

} // namespace corvel::douyin
