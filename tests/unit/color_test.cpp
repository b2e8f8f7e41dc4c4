// UIColor: the system's colours, components, alpha, equality.

#include "apple/uikit/color.hpp"
#include "drawing_support.hpp"

#include <gtest/gtest.h>

namespace {

using namespace corvel::test;

class Colors : public Drawing {};

template <objc::FixedString Name> ui::Color Named() {
    return objc::SendClass<ui::Color, Name, ui::Color>();
}

TEST_F(Colors, SystemColoursFollowTheAppearance) {
    const ui::Color pink = ui::Color::systemPinkColor();
    EXPECT_EQ(Argb(pink), 0xFFFF2D55U);
    EXPECT_EQ(Argb(ui::Color::systemGreenColor()), 0xFF34C759U);
    EXPECT_EQ(Argb(ui::Color::systemOrangeColor()), 0xFFFF9500U);
    EXPECT_EQ(Argb(ui::Color::systemBlueColor()), 0xFF007AFFU);
    EXPECT_EQ(Argb(Named<"labelColor">()), 0xFF000000U);
    EXPECT_EQ(Argb(Named<"secondaryLabelColor">()), 0x993C3C43U);
    sim::SetDarkAppearance(true);
    EXPECT_EQ(Argb(pink), 0xFFFF375FU) << "the same object shows the other appearance";
    EXPECT_EQ(Argb(ui::Color::systemBlueColor()), 0xFF0A84FFU);
    EXPECT_EQ(Argb(Named<"labelColor">()), 0xFFFFFFFFU);
    EXPECT_EQ(Argb(ui::Color::redColor()), 0xFFFF0000U) << "plain colours have one appearance";
}

TEST_F(Colors, GreysHaveTwoComponentsAndOthersFour) {
    CGColor *grey = ui::Color::colorWithWhite(0.25, 0.5).CGColor();
    ASSERT_EQ(CGColorGetNumberOfComponents(grey), 2U);
    EXPECT_EQ(CGColorGetComponents(grey)[0], 0.25);
    EXPECT_EQ(CGColorGetComponents(grey)[1], 0.5);
    CGColor *color = ui::Color::colorWithRed(0.1, 0.2, 0.3, 0.4).CGColor();
    ASSERT_EQ(CGColorGetNumberOfComponents(color), 4U);
    EXPECT_EQ(CGColorGetComponents(color)[2], 0.3);
    EXPECT_EQ(CGColorGetComponents(color)[3], 0.4);
    EXPECT_EQ(CGColorGetNumberOfComponents(ui::Color::whiteColor().CGColor()), 2U);
    EXPECT_EQ(CGColorGetNumberOfComponents(ui::Color::redColor().CGColor()), 4U);
    EXPECT_EQ(CGColorGetNumberOfComponents(nullptr), 0U);
}

TEST_F(Colors, AlphaIsReplacedInBothAppearancesAndHeldInRange) {
    const ui::Color faint = ui::Color::systemBlueColor().colorWithAlphaComponent(0.2);
    EXPECT_EQ(Argb(faint), 0x33007AFFU);
    sim::SetDarkAppearance(true);
    EXPECT_EQ(Argb(faint), 0x330A84FFU);
    EXPECT_EQ(sim::RgbaOf(Rgb(0x123456).colorWithAlphaComponent(7)).a, 1);
    EXPECT_EQ(sim::RgbaOf(Rgb(0x123456).colorWithAlphaComponent(-1)).a, 0);
    EXPECT_EQ(sim::RgbaOf(Rgb(0x123456).colorWithAlphaComponent(kNaN)).a, 0);
    EXPECT_EQ(sim::RgbaOf(ui::Color{}), sim::Rgba{}) << "nil is clear";
}

TEST_F(Colors, AreEqualByValue) {
    const ui::Color red = ui::Color::colorWithRed(1, 0, 0, 1);
    EXPECT_TRUE(red.isEqual(ui::Color::redColor()));
    EXPECT_FALSE(red.isEqual(ui::Color::orangeColor()));
    EXPECT_FALSE(red.isEqual(red.colorWithAlphaComponent(0.5)));
    EXPECT_FALSE(ui::Color::whiteColor().isEqual(ui::Color::colorWithRed(1, 1, 1, 1))) << "another colour space";
    EXPECT_FALSE(red.isEqual("red"_ns));
    EXPECT_FALSE(red.isEqual(nullptr));
    double r = 0;
    double b = 0;
    EXPECT_TRUE((objc::Send<"getRed:green:blue:alpha:", bool>(
        ui::Color::colorWithWhite(0.25, 1), &r, static_cast<double *>(nullptr), &b, static_cast<double *>(nullptr))));
    EXPECT_EQ(r, 0.25);
    EXPECT_EQ(b, 0.25);
}

} // namespace
