#pragma once
// Texts out of files that somebody else has made, as they may be printed.

#include <string>
#include <string_view>

namespace inspect {

/// The text in one line, with whatever could steer a terminal, or is no UTF-8, written in numbers. What is shown
/// already stays as it is.
std::string Shown(std::string_view text);

} // namespace inspect
