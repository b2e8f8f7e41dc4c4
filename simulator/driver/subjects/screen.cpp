// The screen: its size, the way it is held, its status bar.

#include "driver/subjects/subjects.hpp"
#include "uikit/application.hpp"
#include "uikit/orientation.hpp"
#include "uikit/status_bar.hpp"

#include <algorithm>

namespace sim::driver {
namespace {

/// By UIInterfaceOrientation, from portrait on.
constexpr const char *kOrientations[] = {"portrait", "upside-down", "right", "left"};

const char *NameOf(Orientation orientation) {
    return kOrientations[static_cast<long>(orientation) - static_cast<long>(Orientation::kPortrait)];
}

/// NAME | WIDTH HEIGHT
ScreenModel ReadScreen(WordReader &words) {
    if (words.SeesNumber()) {
        const double width = words.Number("the width");
        const cg::Size size{width, words.Number("the height")};
        constexpr double kLeast = 200;
        constexpr double kMost = 2000;
        if (!(size.width >= kLeast && size.height >= size.width && size.height <= kMost)) {
            words.Fail("no phone has such a screen: it stands upright, from 200 to 2000 points");
        }
        return ScreenOfSize(size);
    }
    const std::string name = words.Name("a screen's name, or its width and height");
    std::string known;
    for (const ScreenModel &model : ScreenModels()) {
        if (name == model.name) {
            return model;
        }
        known += std::string(known.empty() ? "" : ", ") + model.name;
    }
    words.Fail("unknown screen " + name + "; screens are " + known + ", or a width and a height");
}

void DoScreen(Session &, WordReader &words) {
    const ScreenModel model = ReadScreen(words);
    words.End();
    ChangeScreen(model);
}

void DoRotate(Session &, WordReader &words) {
    const std::string name = words.Name("portrait, left, right or upside-down");
    const auto *const found = std::ranges::find(kOrientations, name);
    if (found == std::end(kOrientations)) {
        words.Fail("expected portrait, left, right or upside-down, not " + name);
    }
    words.End();
    HoldPhone(
        static_cast<Orientation>(static_cast<long>(Orientation::kPortrait) + (found - std::begin(kOrientations))));
}

/// screen [size|scale|orientation|held|safe]
Answer AskScreen(Session &, WordReader &words) {
    const cg::Size size = ScreenSize();
    const ui::EdgeInsets safe = ScreenSafeArea();
    const Fact place{Bare(size.width), Bare(size.height)};
    const Fact safeArea{Bare(safe.top), Bare(safe.left), Bare(safe.bottom), Bare(safe.right)};
    if (words.Take("size")) {
        return {place};
    }
    if (words.Take("scale")) {
        return {{Bare(ScreenScale())}};
    }
    if (words.Take("orientation")) {
        return {{Bare(NameOf(InterfaceOrientation()))}};
    }
    if (words.Take("held")) {
        return {{Bare(NameOf(HeldOrientation()))}};
    }
    if (words.Take("safe")) {
        return {safeArea};
    }
    Fact all = place;
    Append(all, Fact{Bare(NameOf(InterfaceOrientation())), Bare("safe")});
    Append(all, safeArea);
    return {all};
}

Answer AskStatusBar(Session &, WordReader &) {
    constexpr const char *kLooks[] = {"hidden", "light", "dark"};
    return {{Bare(kLooks[static_cast<int>(PresentStatusBar())])}};
}

constexpr Command kCommands[] = {{"screen", &DoScreen, When::kBeforeLaunchToo}, {"rotate", &DoRotate}};
constexpr Query kQueries[] = {{"screen", &AskScreen}, {"statusbar", &AskStatusBar}};

} // namespace

constinit const Subject kScreen{kCommands, kQueries};

} // namespace sim::driver
