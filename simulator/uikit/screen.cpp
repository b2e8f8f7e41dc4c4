#include "uikit/screen.hpp"

#include "runtime/lasting.hpp"
#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/classes.hpp"

namespace sim {
namespace {

struct Metrics {
    cg::Size size{390, 844};
    double scale = 3;
};

Metrics &MainMetrics() {
    static Metrics metrics;
    return metrics;
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

void SetScreen(cg::Size size, double scale) {
    MainMetrics() = {size, scale};
}

cg::Size ScreenSize() {
    return MainMetrics().size;
}

double ScreenScale() {
    return MainMetrics().scale;
}

ui::Screen MainScreen() {
    return Lasting<Main>().screen;
}

} // namespace sim
