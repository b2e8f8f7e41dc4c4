// A colour as the text that is stored.

#include "drawing_support.hpp"
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
