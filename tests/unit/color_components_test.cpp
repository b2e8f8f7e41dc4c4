// A colour as the text that is stored.

#include "drawing_support.hpp"
#include "matrix/colors.hpp"
#include "settings/color_components.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using namespace corvel::test;

class ColorComponents : public Drawing {};

std::string Hex(ui::Color color) {
    return corvel::HexText(color)->UTF8String();
}

TEST_F(ColorComponents, AreWrittenInUpperCaseAndRounded) {
    EXPECT_EQ(Hex(ui::Color::colorWithRed(1, 0.5, 0, 1)), "#FF8000");
    EXPECT_EQ(Hex(ui::Color::colorWithRed(0.04, 0.6666, 0.8, 0.2)), "#0AAACC");
    EXPECT_EQ(Hex(ui::Color::colorWithRed(1.4 / 255, 1.6 / 255, 254.4 / 255, 0)), "#0102FE");
}

TEST_F(ColorComponents, ComeBackFromTheText) {
    const auto again = [](ns::String text) { return Hex(corvel::ColorFromHex(text, 0.5)); };
    EXPECT_EQ(again("#FF8000"_ns), "#FF8000");
    EXPECT_EQ(again("0aaacc"_ns), "#0AAACC");
    EXPECT_EQ(again("red"_ns), "#000000");
    for (const ns::String nothing : {ns::String{}, ""_ns}) {
        const ui::Color black = corvel::ColorFromHex(nothing, 0.5);
        EXPECT_EQ(Hex(black), "#000000");
        const unsigned long last = CGColorGetNumberOfComponents(black.CGColor()) - 1;
        EXPECT_EQ(CGColorGetComponents(black.CGColor())[last], 1) << "opaque, whatever alpha is asked for";
    }
}

TEST_F(ColorComponents, OfAGreyAreAllTheSame) {
    EXPECT_EQ(Hex(ui::Color::colorWithWhite(0.5, 0.1)), "#808080");
    EXPECT_EQ(Hex(ui::Color::blackColor()), "#000000");
}

TEST_F(ColorComponents, OfNothingAreWhite) {
    EXPECT_EQ(Hex(nullptr), "#FFFFFF");
}

TEST_F(ColorComponents, OutsideTheGamutKeepTheFixedForm) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const ui::Color color :
         {ui::Color::colorWithRed(-0.3, 1.2, 0.5, 1), ui::Color::colorWithRed(nan, 1e300, 0, 1)}) {
        const std::string text = Hex(color);
        EXPECT_EQ(text.size(), 7U) << text;
        EXPECT_EQ(text.substr(0, 5), "#00FF") << text;
    }
}

TEST_F(ColorComponents, TellBrightFromDark) {
    EXPECT_TRUE(corvel::IsBright(ui::Color::whiteColor()));
    EXPECT_TRUE(corvel::IsBright(ui::Color::colorWithRed(0, 1, 0, 1)));
    EXPECT_FALSE(corvel::IsBright(ui::Color::colorWithRed(0, 0, 1, 1)));
    EXPECT_FALSE(corvel::IsBright(ui::Color::colorWithRed(0.2, 0.2, 0.2, 1)));
}

} // namespace
