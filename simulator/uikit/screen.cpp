#include "uikit/screen.hpp"

#include "runtime/native_class.hpp"
#include "uikit/application.hpp"

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

ui::Screen MainScreenMethod(ui::Screen, objc::SEL) {
    return MainScreen();
}

cg::Rect Bounds(ui::Screen, objc::SEL) {
    return {{}, ScreenSize()};
}

double Scale(ui::Screen, objc::SEL) {
    return ScreenScale();
}

ui::CoordinateSpace CoordinateSpace(ui::Screen self, objc::SEL) {
    return ui::CoordinateSpace{self.pointer};
}

} // namespace

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
    static const auto &screen = *new objc::Ref<ui::Screen>(ns::New<ui::Screen>());
    return screen;
}

void RegisterScreen() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"bounds", &Bounds>(),
        objc::MethodNamed<"scale", &Scale>(),
        objc::MethodNamed<"coordinateSpace", &CoordinateSpace>(),
    };
    const objc::MethodEntry classMethods[] = {
        objc::MethodNamed<"mainScreen", &MainScreenMethod>(),
    };
    RegisterClass("UIScreen", "NSObject", methods, classMethods);
}

} // namespace sim
