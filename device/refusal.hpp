#pragma once
// Why an image cannot be loaded, in one line.

#include <stdexcept>

namespace device {

/// Thrown wherever the loader meets something damaged, foreign or unknown. Nothing of the image has run by then.
struct Refusal : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace device
