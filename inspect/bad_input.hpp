#pragma once
// What is said of input that cannot be judged.

#include <stdexcept>

namespace inspect {

/// Thrown for input that cannot be judged; the text is one line that says which file and why.
struct BadInput : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace inspect
