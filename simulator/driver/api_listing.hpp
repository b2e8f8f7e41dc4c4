#pragma once
// The listing of everything that the UIKit subset implements.

namespace sim {

/// Prints class, kind (+ or -), selector and type encoding of every registered method, tab-separated, one a line.
void PrintApi();

} // namespace sim
