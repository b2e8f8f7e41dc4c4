#pragma once
// The command line of the window.

#include "driver/options.hpp"

#include <string>
#include <vector>

namespace sim::window {

struct WindowOptions {
    driver::Options phone;      // what the simulator's options say; the state is always named
    std::string first;          // a script that is carried out before the user comes; empty: none
    std::string screen;         // a screen's name or "WIDTH HEIGHT"; empty: the usual one
    double scale = 0;           // pixels a point; 0: what the computer's screen has room for
    std::string save;           // where the script goes; empty: the first free name in the working directory
    bool countsFrames = false;  // says at the end how many frames were due and drawn
    bool checksDrawing = false; // holds every frame against a picture drawn anew
    bool tellsPlaces = false;   // says where phone and buttons are, for programs that steer the window
};

/// Reads the command line; throws driver::UsageError.
WindowOptions ReadOptions(int count, char **words);

} // namespace sim::window
