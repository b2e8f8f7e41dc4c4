#include "overlay/float_button.hpp"

#include "adapters/hosts.hpp"
#include "overlay/float_drag.hpp"
#include "overlay/float_place.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/round_button.hpp"
#include "overlay/state.hpp"
#include "preferences/preferences.hpp"

namespace corvel {
namespace {

void AddShadow(ca::Layer layer) {
    layer.setShadowColor(ui::Color::blackColor().CGColor());
    layer.setShadowOpacity(0.3F);
    layer.setShadowOffset({0, 2});
    layer.setShadowRadius(4);
}

/// The stored centre as it stands, even off the present screen.
cg::Point StoredCenter() {
    const cg::Size screen = ui::Screen::mainScreen().bounds().size;
    return {kFloatButtonX.Read(screen.width), kFloatButtonY.Read(screen.height)};
}

} // namespace

void BuildFloatButton() {
    const auto button = MakeRoundButton(u"弹"_ns, PresentHost().color(), objc::Selector<"dm_ftap">());
    AddShadow(button.layer());
    button.setTitleColor(ui::Color::whiteColor(), UIControlStateNormal);
    button.titleLabel().setFont(ui::Font::boldSystemFontOfSize(18));
    AddRecognizer<ui::LongPressGestureRecognizer>(button, objc::Selector<"dm_flp:">());
    AddDragRecognizer(button);
    button.setCenter(StoredCenter());
    Overlay().window->addSubview(button);
    Overlay().floatButton = button;
    KeepFloatPlace();
}

} // namespace corvel
