#include "hosts/wechat/plugins.hpp"

#include "apple/foundation/user_defaults.hpp"
#include "apple/uikit/button.hpp"
#include "hosts/host_class.hpp"
#include "hosts/view_building.hpp"
#include "runtime/lasting.hpp"
#include "uikit/application.hpp"
#include "uikit/view_state.hpp"

#include <cairo.h>
#include <numbers>
#include <vector>

namespace sim::hosts::wechat {
namespace {

constexpr const char *kSwitchClass = "WCPluginSwitch";
constexpr double kSheetHeight = 250;
constexpr double kSheetRadius = 14;
constexpr double kRowHeight = 54;
constexpr double kMargin = 16;
using std::numbers::pi;

/// A switch that a plug-in registered.
struct Row {
    objc::Ref<ns::String> title;
    objc::Ref<ns::String> key;
};

struct Plugins {
    std::vector<Row> rows;
};

std::vector<Row> &Rows() {
    return Lasting<Plugins>().rows;
}

ns::Object SharedManager() {
    static const ns::Object shared = [] {
        TheObjects().Keep("plugins", MakeObject("WCPluginsMgr"));
        return TheObjects().Last("plugins").get();
    }();
    return shared;
}

// The switch on the page.

struct Switch : ui::Control {
    using ui::Control::Control;
    static constexpr const char *kClassName = kSwitchClass;
};

struct SwitchState {
    objc::Ref<ns::String> key;
};

bool IsOn(ui::View self) {
    return ns::UserDefaults::standardUserDefaults().boolForKey(StateOf<SwitchState>(self).key);
}

void Toggle(ui::View self) {
    const auto defaults = ns::UserDefaults::standardUserDefaults();
    defaults.setBool(!IsOn(self), StateOf<SwitchState>(self).key);
    defaults.synchronize();
}

void DrawSwitch(ui::View self, cairo_t *context) {
    const cg::Size size = self.bounds().size;
    const double radius = size.height / 2;
    const bool on = IsOn(self);
    if (on) {
        cairo_set_source_rgb(context, 0.03, 0.76, 0.38);
    } else {
        cairo_set_source_rgb(context, 0.88, 0.88, 0.90);
    }
    cairo_arc(context, radius, radius, radius, pi / 2, 3 * pi / 2);
    cairo_arc(context, size.width - radius, radius, radius, -pi / 2, pi / 2);
    cairo_fill(context);
    cairo_set_source_rgb(context, 1, 1, 1);
    cairo_arc(context, on ? size.width - radius : radius, radius, radius - 2, 0, 2 * pi);
    cairo_fill(context);
}

// The page.

void AddRow(ui::View sheet, double y, const Row &row) {
    const double width = sheet.bounds().size.width;
    const ui::View card = AddBox(sheet, Box(kMargin, y, width - 2 * kMargin, kRowHeight), ui::Color::whiteColor(), 10);
    AddLabel(card, Box(kMargin, 0, 200, kRowHeight), row.title, {.size = 16, .color = ui::Color::blackColor()});
    const auto control = AddNew<Switch>(card, Box(width - 3 * kMargin - 51, (kRowHeight - 31) / 2, 51, 31));
    StateOf<SwitchState>(control).key = row.key;
    control.addTarget(control, objc::Selector<"toggle">(), UIControlEventTouchUpInside);
}

} // namespace

void RegisterPlugins() {
    HostClass manager("NSObject", "WCBaseMgr", "WCPluginsMgr", "WCAccountMgr");
    manager.ClassMethod<"sharedInstance">([](ns::Object) { return SharedManager(); });
    manager.Method<"registerSwitchWithTitle:key:">(
        [](ns::Object, ns::String title, ns::String key) { Rows().push_back({title, key}); });

    auto control = Class<SwitchState>(kSwitchClass, "UIControl");
    control.Method<"toggle", &Toggle>();
    control.Method<"isOn", &IsOn>();
    RegisterDrawing(kSwitchClass, &DrawSwitch);
}

void PluginsPage::Open(ui::View parent) {
    Close();
    const cg::Size size = ScreenSize();
    sheet_ = AddBox(parent, Box(0, size.height - kSheetHeight, size.width, kSheetHeight + kSheetRadius),
                    ui::Color::colorWithRed(0.93, 0.93, 0.93, 1), kSheetRadius); // only the upper corners show
    AddLabel(sheet_, Box(kMargin, 10, 200, 36), u"插件"_ns,
             {.size = 17, .bold = true, .color = ui::Color::blackColor()});
    double y = 56;
    for (const Row &row : Rows()) {
        AddRow(sheet_, y, row);
        y += kRowHeight + 8;
    }
}

void PluginsPage::Close() {
    if (sheet_) {
        sheet_->removeFromSuperview();
        sheet_ = nullptr;
    }
}

} // namespace sim::hosts::wechat
