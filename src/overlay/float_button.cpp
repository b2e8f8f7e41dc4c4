#include "overlay/float_button.hpp"

#include "overlay/float_gestures.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"

namespace corvel {
namespace {

ui::Color HostColor(HostPlatform host) {
    switch (host) {
    case HostPlatform::kDouyin:
        return ui::Color::systemPinkColor();
    case HostPlatform::kXiaohongshu:
        return ui::Color::systemGreenColor();
    case HostPlatform::kKuaishou:
        return ui::Color::systemOrangeColor();
    case HostPlatform::kFinder:
        return ui::Color::systemBlueColor();
    }
    return {};
}

void AddShadow(ca::Layer layer) {
    layer.setShadowColor(ui::Color::blackColor().CGColor());
    layer.setShadowOpacity(0.3F);
    layer.setShadowOffset({0, 2});
    layer.setShadowRadius(4);
}

/// The stored centre as it stands, even off the present screen; by default at the right edge above the middle.
cg::Point StoredCenter() {
    const cg::Size screen = ui::Screen::mainScreen().bounds().size;
    return {ReadFloatPreference(keys::FloatButtonX(), screen.width - 40),
            ReadFloatPreference(keys::FloatButtonY(), screen.height * 0.45)};
}

} // namespace

void BuildFloatButton(HostPlatform host) {
    const auto button = ui::Button::buttonWithType(ui::ButtonType::kCustom);
    button.setBackgroundColor(HostColor(host));
    button.layer().setCornerRadius(25);
    AddShadow(button.layer());
    button.setTitle(u"弹"_ns, ui::kStateNormal);
    button.setTitleColor(ui::Color::whiteColor(), ui::kStateNormal);
    button.titleLabel().setFont(ui::Font::boldSystemFontOfSize(18));
    button.addTarget(ActionTarget(), objc::Selector<"dm_ftap">(), ui::kTouchUpInside);
    AddRecognizer<ui::LongPressGestureRecognizer>(button, objc::Selector<"dm_flp:">());
    AddDragRecognizer(button);
    button.setFrame({{0, 0}, {50, 50}});
    button.setCenter(StoredCenter());
    button.setAlpha(ReadFloatPreference(keys::FloatButtonAlpha(), 1.0));
    Overlay().window->addSubview(button);
    Overlay().floatButton = button;
}

} // namespace corvel
