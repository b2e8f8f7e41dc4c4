#pragma once
// What a bundle says of itself.

#include <string>

namespace inspect {

struct BundleInfo {
    std::string identifier;
    std::string executable;
};

/// Reads an Info.plist, in XML or binary. What it does not say stays empty. Throws BadInput, with the name, for bytes
/// that are no property list or say no executable.
BundleInfo ReadInfoPlist(const std::string &name, const std::string &bytes);

} // namespace inspect
