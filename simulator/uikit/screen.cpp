#include "uikit/screen.hpp"

#include "runtime/lasting.hpp"
#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/classes.hpp"

namespace sim {
namespace {

struct Present {
    ScreenModel model = UsualScreen();
    Orientation orientation = Orientation::kPortrait;
};

Present &ThePresent() {
    static Present present;
    return present;
}

struct Main {
    objc::Ref<ui::Screen> screen = ns::New<ui::Screen>();
};

} // namespace

void DefineScreen() {
    auto screen = Class("UIScreen", "NSObject");
    screen.ClassMethod<"mainScreen">([](ui::Screen) { return MainScreen(); });
    screen.Method<"bounds">([](ui::Screen) { return cg::Rect{{}, ScreenSize()}; });
    screen.Method<"scale">([](ui::Screen) { return ScreenScale(); });
    screen.Method<"coordinateSpace">([](ui::Screen self) { return self; });
}

void SetScreen(const ScreenModel &model) {
    ThePresent().model = model;
}

Orientation InterfaceOrientation() {
    return ThePresent().orientation;
}

void SetInterfaceOrientation(Orientation orientation) {
    ThePresent().orientation = orientation;
}

bool IsLandscape() {
    const Orientation orientation = InterfaceOrientation();
    return orientation == Orientation::kLandscapeLeft || orientation == Orientation::kLandscapeRight;
}

cg::Size ScreenSize() {
    const cg::Size upright = ThePresent().model.size;
    return IsLandscape() ? cg::Size{upright.height, upright.width} : upright;
}

double ScreenScale() {
    return ThePresent().model.scale;
}

ui::EdgeInsets ScreenSafeArea() {
    const ScreenModel &model = ThePresent().model;
    return IsLandscape() ? model.lying : model.upright;
}

KeyHeights ScreenKeyHeights() {
    const ScreenModel &model = ThePresent().model;
    return IsLandscape() ? model.lyingKeys : model.uprightKeys;
}

ui::Screen MainScreen() {
    return Lasting<Main>().screen;
}

} // namespace sim
