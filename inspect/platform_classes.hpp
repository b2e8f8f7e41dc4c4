#pragma once
// The few classes of the system that the host apps' own descend from, with those methods of theirs that we look for.

#include <span>
#include <string_view>

namespace inspect {

struct PlatformMethod {
    std::string_view className;
    std::string_view selector;
    std::string_view types;
};

/// The superclass of a class of the system; empty for the root, which all that are not known here are taken to descend
/// from.
std::string_view PlatformSuperclass(std::string_view className);

/// Whether the class of the system is known here.
bool IsPlatformClass(std::string_view className);

std::span<const PlatformMethod> PlatformMethods();

} // namespace inspect
