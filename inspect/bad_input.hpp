#pragma once
// What is said of input that cannot be judged.

#include "inspect/shown.hpp"

#include <stdexcept>

namespace inspect {

/// Thrown for input that cannot be judged; the text is one line that says which file and why.
struct BadInput : std::runtime_error {
    explicit BadInput(const std::string &text) : std::runtime_error(Shown(text)) {}
};

} // namespace inspect
