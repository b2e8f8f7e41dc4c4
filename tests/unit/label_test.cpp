// UILabel: fitting and drawing text.

#include "apple/uikit/label.hpp"
#include "drawing_support.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using namespace corvel::test;

class Labels : public Drawing {};

objc::Ref<ui::Label> MakeLabel(cg::Rect frame, ns::String text, double size = 12) {
    objc::Ref<ui::Label> label = ui::MakeView<ui::Label>(frame);
    label->setText(text);
    label->setFont(ui::Font::systemFontOfSize(size));
    return label;
}

TEST_F(Labels, DefaultsAreThePlatforms) {
    const auto label = ui::MakeView<ui::Label>({});
    EXPECT_FALSE((objc::Send<"isUserInteractionEnabled", bool>(label.get())));
    EXPECT_EQ((objc::Send<"numberOfLines", long>(label.get())), 1);
    EXPECT_EQ((objc::Send<"lineBreakMode", long>(label.get())), 4);
    EXPECT_EQ((objc::Send<"textAlignment", long>(label.get())), 4);
    EXPECT_EQ((objc::Send<"pointSize", double>(objc::Send<"font", ui::Font>(label.get()))), 17);
    EXPECT_EQ(Argb(objc::Send<"textColor", ui::Color>(label.get())), 0xFF000000U);
    EXPECT_EQ(label->text(), ns::String{});
    EXPECT_EQ(label->sizeThatFits({100, 100}), cg::Size{});
}

TEST_F(Labels, FitTheirText) {
    const auto label = MakeLabel({}, u"已导出"_ns);
    const cg::Size one = label->sizeThatFits({350, kUnlimited});
    EXPECT_NEAR(one.width, 36, 1);
    EXPECT_NEAR(one.height, LineHeight(12), 0.34);
    EXPECT_DOUBLE_EQ(one.height * 3, std::round(one.height * 3)) << "whole pixels";
    const std::u16string text(40, u'弹');
    label->setText(StringOf(text));
    EXPECT_NEAR(label->sizeThatFits({120.5, kUnlimited}).width, 480, 1) << "one line takes what it needs";
    label->setNumberOfLines(2);
    const cg::Size two = label->sizeThatFits({120.5, kUnlimited});
    EXPECT_NEAR(two.width, 120, 0.5);
    EXPECT_NEAR(two.height, 2 * LineHeight(12), 0.34);
    label->setNumberOfLines(0);
    EXPECT_NEAR(label->sizeThatFits({120.5, kUnlimited}).height, 4 * LineHeight(12), 0.34);
}

bool IsWhite(std::uint32_t pixel) {
    return (pixel & 0xFFFFFF) > 0xC0C0C0 && pixel >> 24 > 0xC0;
}

TEST_F(Labels, TextIsDrawnInTheMiddleOfItsHeightAndWhereAligned) {
    const auto label = MakeLabel({{0, 0}, {200, 100}}, u"口"_ns, 20);
    label->setBackgroundColor(Rgb(0));
    label->setTextColor(Rgb(0xFFFFFF));
    const sim::PixelRect left = Picture(label, 200, 100).Where(IsWhite);
    ASSERT_FALSE(left.IsEmpty());
    EXPECT_LT(left.x + left.width, 22);
    EXPECT_NEAR(left.y + left.height / 2.0, 50, 3);
    label->setTextAlignment(NSTextAlignmentCenter);
    const sim::PixelRect centered = Picture(label, 200, 100).Where(IsWhite);
    EXPECT_NEAR(centered.x + centered.width / 2.0, 100, 2);
    EXPECT_EQ(centered.height, left.height);
    label->setText(nullptr);
    EXPECT_TRUE(Picture(label, 200, 100).Where(IsWhite).IsEmpty());
}

TEST_F(Labels, TextThatDoesNotFitStaysInside) {
    const auto label = MakeLabel({{10, 10}, {100, 20}}, StringOf(std::u16string(40, u'口')), 15);
    label->setTextColor(Rgb(0xFFFFFF));
    const Picture shortened(label, 140, 80);
    const sim::PixelRect ink = shortened.Where(IsWhite);
    EXPECT_GE(ink.x, 10);
    EXPECT_LE(ink.x + ink.width, 110);
    EXPECT_LE(ink.y + ink.height, 30);
    // The last em holds an ellipsis: little ink, where clipping would show another character.
    const auto inkFrom = [](const Picture &picture, int x) {
        int count = 0;
        for (int y = 0; y < picture.Height(); ++y) {
            for (int i = x; i < picture.Width(); ++i) {
                count += picture.AlphaAt(i, y) > 128 ? 1 : 0;
            }
        }
        return count;
    };
    label->setLineBreakMode(NSLineBreakByClipping);
    const Picture clipped(label, 140, 80);
    EXPECT_LT(inkFrom(shortened, 90), inkFrom(clipped, 90) / 2);
    EXPECT_GT(inkFrom(shortened, 85), 0);
}

TEST_F(Labels, LineLimitHoldsInWrappingLabels) {
    const auto label = MakeLabel({{0, 0}, {100, 100}}, StringOf(std::u16string(40, u'口')), 15);
    label->setTextColor(Rgb(0xFFFFFF));
    label->setLineBreakMode(NSLineBreakByWordWrapping);
    label->setNumberOfLines(2);
    const int two = Picture(label, 100, 100).Where(IsWhite).height;
    label->setNumberOfLines(0);
    const int all = Picture(label, 100, 100).Where(IsWhite).height;
    EXPECT_NEAR(two, 2 * LineHeight(15), 6);
    EXPECT_NEAR(all, 5 * LineHeight(15), 12) << "as many lines as the height takes";
}

TEST_F(Labels, EmojiAreInColour) {
    const auto label = MakeLabel({{0, 0}, {40, 40}}, u"❤️"_ns, 24);
    const sim::PixelRect red = Picture(label, 40, 40).Where([](std::uint32_t pixel) {
        return (pixel >> 16 & 0xFF) > 150 && (pixel & 0xFF) < 100 && pixel >> 24 > 200;
    });
    EXPECT_GT(red.width, 10);
    EXPECT_GT(red.height, 10);
}

} // namespace
