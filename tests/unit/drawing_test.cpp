// How views are drawn, and what blur effects make of what lies behind them.

#include "apple/uikit/effects.hpp"
#include "apple/uikit/window.hpp"
#include "drawing_support.hpp"
#include "objc/guard.hpp"
#include "runtime/clock.hpp"
#include "runtime/native_class.hpp"
#include "uikit/view_state.hpp"

#include <gtest/gtest.h>

namespace {

using namespace corvel::test;

class Views : public Drawing {};
class Effects : public Drawing {};

TEST_F(Views, BackgroundFillsTheFrame) {
    const Picture picture(Box({{10, 20}, {30, 15}}, Rgb(0xFF0000)), 60, 60);
    EXPECT_EQ(picture.At(10, 20), kRed);
    EXPECT_EQ(picture.At(39, 34), kRed);
    const sim::PixelRect painted = picture.Painted();
    EXPECT_EQ(painted.x, 10);
    EXPECT_EQ(painted.y, 20);
    EXPECT_EQ(painted.width, 30);
    EXPECT_EQ(painted.height, 15);
}

TEST_F(Views, AlphaAppliesToTheViewAndItsSubviewsAsOnePicture) {
    const auto parent = Box({{0, 0}, {40, 40}}, Rgb(0xFF0000));
    parent->addSubview(Box({{10, 10}, {20, 20}}, Rgb(0x00FF00)));
    parent->setAlpha(0.5);
    const Picture picture(parent, 40, 40);
    EXPECT_EQ(picture.At(2, 2), 0x80800000U);
    EXPECT_EQ(picture.At(20, 20), 0x80008000U) << "the red does not shine through the green";
    parent->setAlpha(0);
    EXPECT_TRUE(Picture(parent, 40, 40).Painted().IsEmpty());
}

TEST_F(Views, HiddenViewsAreNotDrawn) {
    const auto parent = Box({{0, 0}, {40, 40}}, Rgb(0xFF0000));
    const auto child = Box({{10, 10}, {20, 20}}, Rgb(0x00FF00));
    parent->addSubview(child);
    EXPECT_EQ(Picture(parent, 40, 40).At(20, 20), kGreen);
    child->setHidden(true);
    EXPECT_EQ(Picture(parent, 40, 40).At(20, 20), kRed);
}

TEST_F(Views, CornersAreRound) {
    const auto box = Box({{0, 0}, {50, 50}}, Rgb(0xFF0000));
    box->layer().setCornerRadius(25);
    const Picture circle(box, 50, 50);
    EXPECT_EQ(circle.At(25, 25), kRed);
    EXPECT_EQ(circle.At(1, 25), kRed);
    EXPECT_EQ(circle.AlphaAt(3, 3), 0);
    EXPECT_EQ(circle.AlphaAt(46, 46), 0);
    box->layer().setCornerRadius(1000);
    EXPECT_EQ(Picture(box, 50, 50).At(25, 25), kRed) << "a radius beyond half the side is half the side";
}

TEST_F(Views, ContinuousCornersBeginEarlier) {
    const auto box = Box({{0, 0}, {400, 400}}, Rgb(0xFF0000));
    box->layer().setCornerRadius(100);
    const Picture circular(box, 400, 400);
    objc::Send<"setCornerCurve:", void>(box->layer(), "continuous"_ns);
    const Picture continuous(box, 400, 400);
    EXPECT_EQ(circular.At(105, 0), kRed);
    EXPECT_LT(continuous.AlphaAt(105, 0), 128);
    EXPECT_LT(continuous.AlphaAt(0, 294), 128) << "at every corner";
    EXPECT_EQ(continuous.At(160, 0), kRed);
    EXPECT_EQ(continuous.AlphaAt(27, 27), 0);
    EXPECT_EQ(continuous.At(33, 33), kRed);
    // Where the sides have no room for that, the corners are circular.
    box->layer().setCornerRadius(200);
    EXPECT_EQ(Picture(box, 400, 400).AlphaAt(60, 60), Picture(box, 400, 400).AlphaAt(339, 339));
    EXPECT_EQ(Picture(box, 400, 400).At(200, 0), kRed);
    objc::Send<"setCornerCurve:", void>(box->layer(), "circular"_ns);
    box->layer().setCornerRadius(100);
    EXPECT_EQ(Picture(box, 400, 400).At(105, 0), kRed);
}

TEST_F(Views, OnlyClippingViewsCutTheirSubviews) {
    const auto parent = Box({{0, 0}, {40, 40}}, Rgb(0xFF0000));
    parent->layer().setCornerRadius(20);
    parent->addSubview(Box({{-10, -10}, {70, 30}}, Rgb(0x00FF00)));
    const Picture open(parent, 80, 80);
    EXPECT_EQ(open.At(55, 10), kGreen);
    EXPECT_EQ(open.At(1, 1), kGreen);
    parent->setClipsToBounds(true);
    const Picture clipped(parent, 80, 80);
    EXPECT_EQ(clipped.AlphaAt(55, 10), 0);
    EXPECT_EQ(clipped.AlphaAt(1, 1), 0) << "the round corner cuts too";
    EXPECT_EQ(clipped.At(20, 10), kGreen);
}

TEST_F(Views, TransformsActAboutTheCentre) {
    const auto box = Box({{20, 20}, {40, 20}}, Rgb(0xFF0000));
    box->setTransform(cg::AffineTransform::Scale(0.5, 0.5));
    const sim::PixelRect half = Picture(box, 80, 80).Painted();
    EXPECT_EQ(half.x, 30);
    EXPECT_EQ(half.y, 25);
    EXPECT_EQ(half.width, 20);
    EXPECT_EQ(half.height, 10);
    box->setTransform({0, 1, -1, 0, 0, 0}); // a quarter turn
    const Picture turned(box, 80, 80);
    EXPECT_EQ(turned.At(40, 12), kRed);
    EXPECT_EQ(turned.AlphaAt(22, 30), 0);
    box->setTransform({0, 0, 0, 0, 0, 0});
    EXPECT_TRUE(Picture(box, 80, 80).Painted().IsEmpty()) << "squeezed to nothing, harmlessly";
}

TEST_F(Views, ZPositionComesBeforeOrder) {
    const auto parent = Box({{0, 0}, {20, 20}}, Rgb(0));
    const auto first = Box({{0, 0}, {20, 20}}, Rgb(0xFF0000));
    parent->addSubview(first);
    parent->addSubview(Box({{0, 0}, {20, 20}}, Rgb(0x00FF00)));
    parent->addSubview(Box({{0, 0}, {20, 20}}, Rgb(0x0000FF)));
    EXPECT_EQ(Picture(parent, 20, 20).At(10, 10), kBlue);
    first->layer().setZPosition(9999);
    EXPECT_EQ(Picture(parent, 20, 20).At(10, 10), kRed);
    first->layer().setZPosition(kNaN);
    EXPECT_EQ(Picture(parent, 20, 20).At(10, 10), kBlue);
}

TEST_F(Views, BordersLieInsideAndAboveSubviews) {
    const auto box = Box({{10, 10}, {40, 40}}, Rgb(0xFF0000));
    box->addSubview(Box({{0, 0}, {40, 40}}, Rgb(0x00FF00)));
    auto &layer = sim::StateOf<sim::LayerState>(box->layer());
    layer.borderWidth = 3;
    layer.borderColor = Rgb(0x0000FF);
    const Picture picture(box, 60, 60);
    EXPECT_EQ(picture.At(10, 30), kBlue);
    EXPECT_EQ(picture.At(12, 30), kBlue);
    EXPECT_EQ(picture.At(13, 30), kGreen);
    EXPECT_EQ(picture.AlphaAt(9, 30), 0);
    layer.borderColor = nullptr;
    EXPECT_EQ(Picture(box, 60, 60).At(10, 30), 0xFF000000U) << "black unless told otherwise";
}

TEST_F(Views, ShadowsAreSoftAndLieBelow) {
    const auto box = Box({{40, 40}, {40, 40}}, Rgb(0xFF0000));
    box->layer().setShadowOpacity(1);
    box->layer().setShadowRadius(6);
    box->layer().setShadowOffset({0, 10});
    const Picture picture(box, 130, 130);
    EXPECT_EQ(picture.At(60, 60), kRed);
    EXPECT_GT(picture.AlphaAt(60, 84), 128);
    EXPECT_GT(picture.AlphaAt(60, 84), picture.AlphaAt(60, 92));
    EXPECT_GT(picture.AlphaAt(60, 92), picture.AlphaAt(60, 100));
    EXPECT_GT(picture.AlphaAt(60, 100), 0);
    EXPECT_EQ(picture.AlphaAt(60, 120), 0);
    EXPECT_GT(picture.AlphaAt(60, 84), picture.AlphaAt(60, 36)) << "moved down";
    box->layer().setShadowOpacity(0.3F);
    EXPECT_NEAR(Picture(box, 130, 130).AlphaAt(60, 92), 0.3 * picture.AlphaAt(60, 92), 2);
    box->setClipsToBounds(true);
    EXPECT_EQ(Picture(box, 130, 130).AlphaAt(60, 84), 0) << "clipped off";
}

TEST_F(Views, GroupsHoldAllThatIsDrawnInThem) {
    const auto box = Box({{40, 40}, {20, 20}}, Rgb(0xFF0000));
    const auto child = Box({{30, -30}, {20, 20}}, Rgb(0x00FF00));
    child->setTransform(cg::AffineTransform::Scale(2, 2));
    child->layer().setShadowOpacity(1);
    child->layer().setShadowOffset({0, -25});
    child->layer().setShadowRadius(0);
    box->addSubview(child);
    box->setAlpha(0.5);
    const Picture picture(box, 130, 130);
    EXPECT_EQ(picture.At(62, 2), 0x80008000U) << "far outside, and scaled";
    box->setTransform({0, 1, -1, 0, 0, 0}); // a quarter turn about (50, 50)
    EXPECT_EQ(Picture(box, 130, 130).At(97, 62), 0x80008000U);
    child->layer().setShadowOffset({kNaN, 0});
    EXPECT_EQ(Picture(box, 130, 130).At(97, 62), 0x80008000U);
}

TEST_F(Views, RunningAnimationsShowWhatTheyHaveReached) {
    const auto window = ui::MakeView<ui::Window>({{0, 0}, {100, 40}});
    const auto box = Box({{0, 0}, {20, 20}}, Rgb(0xFF0000));
    window->setHidden(false);
    window->addSubview(box);
    const objc::Ref<ui::View> moved = box;
    ui::View::animateWithDuration(1, objc::MakeBlock<void()>([moved] { moved->setCenter({90, 10}); }));
    EXPECT_EQ(Picture(window, 100, 40).At(10, 10), kRed);
    sim::clock::Advance(0.5);
    const Picture midway(window, 100, 40);
    EXPECT_EQ(midway.AlphaAt(5, 10), 0);
    EXPECT_EQ(midway.At(50, 10), kRed);
    sim::clock::Advance(1);
    EXPECT_EQ(Picture(window, 100, 40).At(90, 10), kRed);
    window->setHidden(true);
}

objc::Ref<ui::VisualEffectView> MakeBlur(UIBlurEffectStyle style, cg::Rect frame) {
    const ui::BlurEffect effect = ui::BlurEffect::effectWithStyle(style);
    auto view = objc::Ref<ui::VisualEffectView>::Adopt(ns::Alloc<ui::VisualEffectView>().initWithEffect(effect));
    view->setFrame(frame);
    return view;
}

int BrightnessAt(const Picture &picture, int x, int y) {
    return static_cast<int>(picture.At(x, y) >> 8 & 0xFF);
}

TEST_F(Effects, WhatLiesBehindIsBlurredAndTinted) {
    const auto ground = Box({{0, 0}, {200, 100}}, Rgb(0));
    ground->addSubview(Box({{100, 0}, {100, 100}}, Rgb(0xFFFFFF)));
    ground->addSubview(MakeBlur(UIBlurEffectStyleDark, {{20, 20}, {160, 60}}));
    const Picture picture(ground, 200, 100);
    EXPECT_EQ(picture.At(5, 50), 0xFF000000U) << "outside all is sharp";
    EXPECT_EQ(picture.At(195, 50), 0xFFFFFFFFU);
    const int dark = BrightnessAt(picture, 30, 50);
    const int middle = BrightnessAt(picture, 100, 50);
    const int light = BrightnessAt(picture, 170, 50);
    EXPECT_LT(dark + 10, middle) << "the edge has become a slope";
    EXPECT_LT(middle + 10, light);
    EXPECT_NEAR(middle, (dark + light) / 2.0, 6);
    EXPECT_LT(light, 130) << "under the dark tint";
    EXPECT_GT(dark, 15);
}

TEST_F(Effects, TheSystemMaterialFollowsTheAppearance) {
    const auto ground = Box({{0, 0}, {100, 100}}, Rgb(0x808080));
    ground->addSubview(MakeBlur(UIBlurEffectStyleSystemMaterial, {{0, 0}, {100, 100}}));
    EXPECT_GT(BrightnessAt(Picture(ground, 100, 100), 50, 50), 200);
    sim::SetDarkAppearance(true);
    EXPECT_LT(BrightnessAt(Picture(ground, 100, 100), 50, 50), 80);
}

TEST_F(Effects, ThickerMaterialsShowLessOfWhatIsBehind) {
    const auto colorfulness = [](UIBlurEffectStyle style) {
        const auto ground = Box({{0, 0}, {100, 100}}, Rgb(0x702090));
        ground->addSubview(MakeBlur(style, {{0, 0}, {100, 100}}));
        const std::uint32_t pixel = Picture(ground, 100, 100).At(50, 50);
        return static_cast<int>(pixel & 0xFF) - static_cast<int>(pixel >> 8 & 0xFF);
    };
    for (const bool dark : {false, true}) {
        sim::SetDarkAppearance(dark);
        const int thin = colorfulness(UIBlurEffectStyleSystemUltraThinMaterial);
        const int usual = colorfulness(UIBlurEffectStyleSystemMaterial);
        EXPECT_GT(thin, usual + 10);
        EXPECT_GT(usual, 0) << "but a little";
        EXPECT_LT(usual, 45);
    }
}

TEST_F(Effects, ABlurAtTheEdgeGoesOnWithIt) {
    const auto ground = Box({{0, 0}, {100, 100}}, Rgb(0xFFFFFF));
    ground->addSubview(MakeBlur(UIBlurEffectStyleDark, {{-50, -50}, {300, 300}}));
    const Picture picture(ground, 100, 100);
    EXPECT_EQ(picture.At(0, 0), picture.At(50, 50));
    EXPECT_EQ(picture.At(99, 99), picture.At(50, 50));
    ground->addSubview(MakeBlur(UIBlurEffectStyleDark, {{500, 500}, {30, 30}})); // out of sight, harmlessly
    EXPECT_EQ(Picture(ground, 100, 100).At(50, 50), picture.At(50, 50));
}

TEST_F(Effects, BlurSeesThroughAlphaGroups) {
    const auto ground = Box({{0, 0}, {100, 100}}, Rgb(0xFFFFFF));
    const auto blur = MakeBlur(UIBlurEffectStyleDark, {{0, 0}, {100, 100}});
    ground->addSubview(blur);
    const int opaque = BrightnessAt(Picture(ground, 100, 100), 50, 50);
    blur->setAlpha(0.5);
    EXPECT_NEAR(BrightnessAt(Picture(ground, 100, 100), 50, 50), (opaque + 255) / 2.0, 3);
}

TEST_F(Effects, ContentViewFillsTheView) {
    const auto blur = MakeBlur(UIBlurEffectStyleDark, {{10, 10}, {100, 50}});
    const ui::View content = blur->contentView();
    EXPECT_EQ(content.frame(), (cg::Rect{{0, 0}, {100, 50}}));
    EXPECT_EQ(content.superview(), blur.get());
    blur->setFrame({{30, 30}, {70, 90}});
    EXPECT_EQ(content.frame(), (cg::Rect{{0, 0}, {70, 90}}));
    EXPECT_FALSE(objc::Guard([&] { blur->addSubview(ui::MakeView<ui::View>({})); }))
        << "only the content view takes subviews";
    content.addSubview(ui::MakeView<ui::View>({}));
    EXPECT_EQ(content.subviews().count(), 1U);
}

} // namespace
