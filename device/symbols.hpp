#pragma once
// The symbol table that a build keeps beside its library.

#include <cstdint>
#include <map>
#include <string>

namespace device {

/// Function names by address (relative to the image's base), from the symbol table of the Mach-O file at `path`, of
/// whatever type; empty when there is no such file or table.
std::map<std::uint64_t, std::string> ReadSymbols(const std::string &path);

} // namespace device
