// The window's picture of the phone: what is drawn anew, what is put together from kept parts, and that it is always
// what drawing everything would give.

#include "window/phone_picture.hpp"

#include "apple/uikit/effects.hpp"
#include "apple/uikit/label.hpp"
#include "apple/uikit/window.hpp"
#include "drawing_support.hpp"
#include "runtime/clock.hpp"
#include "uikit/application.hpp"
#include "uikit/view.hpp"

#include <functional>

namespace {

using namespace corvel::test;

/// A room with a label, over it a blurred panel with a label, over that a button; drawn in two sizes.
class PhonePictures : public Drawing, public testing::WithParamInterface<double> {
  protected:
    PhonePictures() {
        window->setHidden(false);
        window->setBackgroundColor(Rgb(0x203060));
        window->addSubview(Box({{40, 200}, {200, 300}}, Rgb(0xE0A040)));
        room->setText(u"主播：欢迎来到直播间"_ns);
        room->setTextColor(Rgb(0xFFFFFF));
        window->addSubview(room);
        const ui::BlurEffect effect = ui::BlurEffect::effectWithStyle(UIBlurEffectStyleDark);
        panel = objc::Ref<ui::VisualEffectView>::Adopt(ns::Alloc<ui::VisualEffectView>().initWithEffect(effect));
        panel->setFrame({{50, 150}, {220.5, 180.25}});
        panel->setAlpha(0.9);
        panel->setClipsToBounds(true);
        panel->layer().setCornerRadius(16);
        const ui::View content = panel->contentView();
        content.setBackgroundColor(ui::Color::colorWithWhite(0, 0.4));
        title->setText("Corvel"_ns);
        title->setTextColor(Rgb(0xFFFFFF));
        content.addSubview(title);
        window->addSubview(panel);
        button->layer().setCornerRadius(25);
        window->addSubview(button);
        picture.SetScale(GetParam());
        Changed();
    }
    ~PhonePictures() noexcept override {
        window->setHidden(true);
        sim::clock::Advance(1);
    }

    /// The smallest rectangle around what the next update draws, in points.
    cg::Rect Changed(bool codeRan = true) {
        sim::LayoutWindows();
        const sim::window::Region region = picture.Update(codeRan);
        cairo_rectangle_int_t box;
        cairo_region_get_extents(region.get(), &box);
        EXPECT_TRUE(picture.IsTrue());
        const double scale = GetParam();
        return {{box.x / scale, box.y / scale}, {box.width / scale, box.height / scale}};
    }
    void Move(double x, double y) {
        const cg::Point center = panel->center();
        panel->setCenter({center.x + x, center.y + y});
    }
    /// Draws the panel along until it is put together from kept parts.
    void Drag() {
        for (int i = 0; i < 3; ++i) {
            Move(3, 2);
            Changed();
        }
        EXPECT_TRUE(IsKept());
    }
    /// Whether a move of the panel touches no more than the panel: to be drawn it needs all that comes into its blur.
    bool IsKept() {
        Move(2, 1);
        return Changed().size.width < 230;
    }

    objc::Ref<ui::Window> window = ui::MakeView<ui::Window>({{0, 0}, {390, 844}});
    objc::Ref<ui::Label> room = ui::MakeView<ui::Label>({{60, 260}, {300, 24}});
    objc::Ref<ui::VisualEffectView> panel;
    objc::Ref<ui::Label> title = ui::MakeView<ui::Label>({{10, 8}, {120, 20}});
    objc::Ref<ui::View> button = Box({{230, 220}, {50, 50}}, Rgb(0xFF2D55));
    sim::window::PhonePicture picture;
};

INSTANTIATE_TEST_SUITE_P(Scales, PhonePictures, testing::Values(1.0, 2.0, 1.37));

TEST_P(PhonePictures, NothingIsDrawnWhileNothingChanges) {
    EXPECT_EQ(Changed(false).size.width, 0);
    EXPECT_EQ(Changed().size.width, 0);
    title->setText(u"又"_ns);
    EXPECT_GT(Changed().size.width, 0);
}

TEST_P(PhonePictures, AMovingPanelIsKeptWherePixelsAreWhole) {
    const bool whole = GetParam() == std::round(GetParam());
    for (int i = 0; i < 3; ++i) {
        Move(3, 2);
        Changed();
    }
    EXPECT_EQ(IsKept(), whole);
    Move(0.3, 0); // not by whole pixels
    EXPECT_GT(Changed().size.width, 230);
}

TEST_P(PhonePictures, AKeptPanelIsDrawnWhenItRests) {
    if (GetParam() != std::round(GetParam())) {
        return;
    }
    Drag();
    EXPECT_GT(Changed(false).size.width, 230) << "its roundings are made good";
    EXPECT_EQ(Changed(false).size.width, 0);
    EXPECT_TRUE(IsKept()) << "nothing has changed meanwhile but its place";
}

TEST_P(PhonePictures, WhatChangesUnderOrInOrOverAKeptPanelIsSeen) {
    if (GetParam() != 1) {
        return; // more pixels show nothing else, and take long
    }
    const objc::Ref<ui::View> more = Box({{100, 250}, {20, 30}}, Rgb(0x00FF00));
    const std::function<void()> changes[] = {
        [&] { room->setText(u"别的话"_ns); },
        [&] { window->setBackgroundColor(Rgb(0x602030)); },
        [&] { title->setText("Corvel!"_ns); },
        [&] { title->setFrame({{30, 40}, {120, 20}}); },
        [&] { panel->setAlpha(0.5); },
        [&] { panel->layer().setCornerRadius(60); },
        [&] { panel->setFrame({panel->frame().origin, {200, 150}}); },
        [&] { button->setCenter({200, 250}); },
        [&] { objc::Send<"insertSubview:atIndex:", void>(window.get(), more.get(), 1L); },
        [&] { window->bringSubviewToFront(more); },
        [&] { more->removeFromSuperview(); },
        [&] { window->bringSubviewToFront(panel); },
        [&] { sim::SetDarkAppearance(true); },
    };
    for (const std::function<void()> &change : changes) {
        Drag();
        Move(1, -8);
        change(); // in the same frame as a move
        Changed();
        Drag();
        Move(-14, 1);
        Changed();
        Changed(false);
    }
    Drag();
    panel->setHidden(true);
    EXPECT_GT(Changed().size.width, 0);
}

} // namespace
