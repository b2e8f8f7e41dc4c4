#pragma once
// Every subject of the command language, each in the file of its name.

#include "driver/language.hpp"

namespace sim::driver {

extern const Subject kApp;
extern const Subject kFacts;
extern const Subject kPasteboard;
extern const Subject kPhone;
extern const Subject kPreferences;
extern const Subject kPresentations;
extern const Subject kScenes;
extern const Subject kScreen;
extern const Subject kScrolling;
extern const Subject kTouches;
extern const Subject kTyping;
extern const Subject kViews;
extern const Subject kWear;

} // namespace sim::driver
