#include "bare_settings.hpp"

#include "apple/uikit/scroll_view.hpp"
#include "apple/uikit/segmented_control.hpp"
#include "apple/uikit/slider.hpp"
#include "apple/uikit/switch.hpp"
#include "overlay/gesture_proxy.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"
#include "settings/settings_table.hpp"

#include <initializer_list>

namespace bench {
namespace {

constexpr double kWidth = 300;
constexpr double kMargin = 20;
constexpr double kRowWidth = 260;

ui::Label AddLabel(ui::View container, cg::Rect frame, ns::String text, ui::Font font, ui::Color color) {
    const auto label = ui::MakeView<ui::Label>(frame);
    label->setText(text);
    label->setFont(font);
    label->setTextColor(color);
    container.addSubview(label);
    return label;
}

ui::Button AddButton(ui::View container, cg::Rect frame, ns::String title, ui::Color color, objc::SEL action) {
    const auto button = ui::Button::buttonWithType(UIButtonTypeSystem);
    button.setFrame(frame);
    button.setTitle(title, UIControlStateNormal);
    button.setTitleColor(color, UIControlStateNormal);
    button.addTarget(corvel::ActionTarget(), action, UIControlEventTouchUpInside);
    container.addSubview(button);
    return button;
}

void AddSwitch(ui::View container, double &y, ns::String title) {
    AddLabel(container, {{kMargin, y}, {200, 30}}, title, ui::Font::systemFontOfSize(14), ui::Color::labelColor());
    const auto control = ui::MakeView<ui::Switch>({{230, y}, {50, 30}});
    control->setOn(false);
    control->addTarget(corvel::ActionTarget(), objc::Selector<"dm_sw:">(), UIControlEventValueChanged);
    container.addSubview(control);
    y += 45;
}

void AddSlider(ui::View container, double &y, ns::String title, corvel::Range range) {
    AddLabel(container, {{kMargin, y}, {kRowWidth, 20}}, title, ui::Font::systemFontOfSize(12),
             ui::Color::secondaryLabelColor());
    y += 22;
    const auto slider = ui::MakeView<ui::Slider>({{kMargin, y}, {kRowWidth, 20}});
    slider->setMinimumValue(static_cast<float>(range.least));
    slider->setMaximumValue(static_cast<float>(range.most));
    slider->setValue(static_cast<float>(range.middle()));
    slider->addTarget(corvel::ActionTarget(), objc::Selector<"dm_sl:">(), UIControlEventValueChanged);
    container.addSubview(slider);
    y += 35;
}

void AddColor(ui::View container, double &y, ns::String title) {
    AddLabel(container, {{kMargin, y}, {150, 30}}, title, ui::Font::systemFontOfSize(14), ui::Color::labelColor());
    const auto button =
        AddButton(container, {{180, y}, {100, 30}}, u"选择"_ns, ui::Color::whiteColor(), objc::Selector<"dm_clr:">());
    button.setBackgroundColor(ui::Color::colorWithRed(0.2, 0.2, 0.2, 1));
    button.layer().setCornerRadius(6);
    button.layer().setBorderWidth(1);
    button.layer().setBorderColor(ui::Color::grayColor().CGColor());
    y += 40;
}

void AddSegments(ui::View container, double y, long tag, std::initializer_list<ns::String> titles, long selected) {
    const auto items = ns::New<ns::MutableArray>();
    for (const ns::String title : titles) {
        items->addObject(title);
    }
    const auto control =
        objc::Ref<ui::SegmentedControl>::Adopt(ns::Alloc<ui::SegmentedControl>().initWithItems(items.get()));
    control->setFrame({{kMargin, y}, {kRowWidth, 30}});
    control->setTag(tag);
    control->setTitleTextAttributes(
        ns::Dictionary::dictionaryWithObject(ui::Font::systemFontOfSize(11), NSFontAttributeName),
        UIControlStateNormal);
    control->setSelectedSegmentIndex(selected);
    control->addTarget(corvel::ActionTarget(), objc::Selector<"dm_gc:">(), UIControlEventValueChanged);
    container.addSubview(control);
}

/// Wide buttons with actions, in their colours.
void AddWide(ui::View container, double &y, ns::String title, ui::Color color, objc::SEL action) {
    const ui::Button button =
        AddButton(container, {{kMargin, y}, {kRowWidth, 40}}, title, ui::Color::whiteColor(), action);
    button.setBackgroundColor(color);
    button.layer().setCornerRadius(8);
    y += 50;
}

double FillFixed(ui::View block) {
    double y = 10;
    for (const corvel::SwitchRow &row : corvel::kFixedSwitches) {
        AddSwitch(block, y, row.title);
    }
    AddLabel(block, {{kMargin, y}, {kRowWidth, 20}}, u"矩阵规模"_ns, ui::Font::systemFontOfSize(14),
             ui::Color::labelColor());
    AddSegments(block, y + 28, 7301, {"4"_ns, "12"_ns, "16"_ns, "20"_ns, "25"_ns}, 0);
    AddSegments(block, y + 66, 7302, {"36"_ns, "42"_ns, "48"_ns, u"自定义"_ns}, UISegmentedControlNoSegment);
    y += 108;
    for (const corvel::SliderRow &row : corvel::kSliders) {
        AddSlider(block, y, row.title, row.preference.slider());
    }
    for (const corvel::ColorRow &row : corvel::kColors) {
        AddColor(block, y, row.title);
    }
    return y;
}

double FillConfiguration(ui::View block) {
    double y = 5;
    AddWide(block, y, u"导出Corvel配置"_ns, ui::Color::systemGreenColor(), objc::Selector<"dm_exp">());
    AddWide(block, y, u"导入Corvel配置"_ns, ui::Color::systemGreenColor(), objc::Selector<"dm_imp">());
    AddWide(block, y, u"清除插件配置"_ns, ui::Color::systemRedColor(), objc::Selector<"dm_clear">());
    corvel::AddRecognizer<ui::LongPressGestureRecognizer>(block, objc::Selector<"dm_dlp:">());
    return 150;
}

double FillLatency(ui::View block) {
    double y = 5;
    for (const corvel::SwitchRow &row : corvel::kLatencySwitches) {
        AddSwitch(block, y, row.title);
    }
    AddLabel(block, {{kMargin, y}, {kRowWidth, 30}}, u"以上均为实验性功能，可能需要重启App生效"_ns,
             ui::Font::systemFontOfSize(10), ui::Color::secondaryLabelColor())
        .setNumberOfLines(0);
    return y + 30;
}

double FillFooter(ui::View block) {
    AddLabel(block, {{0, 65}, {kWidth, 20}}, "Corvel v1.1.1"_ns, ui::Font::systemFontOfSize(12),
             ui::Color::secondaryLabelColor())
        .setTextAlignment(NSTextAlignmentCenter);
    return 85;
}

/// A block at its place.
void AddBlock(ui::View container, double &y, double (*fill)(ui::View), bool folded = false) {
    const auto block = ui::MakeView<ui::View>({{0, y}, {kWidth, 0}});
    const double height = fill(block);
    block->setFrame({{0, y}, {kWidth, height}});
    if (folded) {
        block->setHidden(true);
        block->setAlpha(0);
    } else {
        y += height;
    }
    container.addSubview(block);
}

void AddHeader(ui::View container, double &y, ns::String title) {
    const ui::Button header =
        AddButton(container, {{12, y}, {276, 36}}, title, ui::Color::labelColor(), objc::Selector<"dm_tog:">());
    header.setBackgroundColor(ui::Color::systemGrayColor().colorWithAlphaComponent(0.08));
    header.layer().setCornerRadius(10);
    header.titleLabel().setFont(ui::Font::boldSystemFontOfSize(14));
    header.setContentHorizontalAlignment(UIControlContentHorizontalAlignmentLeft);
    header.setTitleEdgeInsets({.left = 8});
    y += 44;
}

} // namespace

objc::Ref<ui::VisualEffectView> AddBareSettings(bool unfolded) {
    const auto panel = objc::Ref<ui::VisualEffectView>::Adopt(ns::Alloc<ui::VisualEffectView>().initWithEffect(
        ui::BlurEffect::effectWithStyle(UIBlurEffectStyleSystemMaterial)));
    panel->setFrame({{45, 172}, {kWidth, 500}});
    panel->layer().setCornerRadius(14);
    panel->setClipsToBounds(true);
    corvel::AddRecognizer<ui::PanGestureRecognizer>(panel, objc::Selector<"dm_pM:">())
        .setDelegate(corvel::SharedGestureProxy());
    const auto tap = corvel::AddRecognizer<ui::TapGestureRecognizer>(panel, objc::Selector<"dm_bm">());
    tap.addTarget(corvel::ActionTarget(), objc::Selector<"dm_gt:">());
    tap.setCancelsTouchesInView(false);
    const ui::View content = panel->contentView();
    AddLabel(content, {{0, 0}, {kWidth, 45}}, u"设置中心"_ns, ui::Font::boldSystemFontOfSize(17),
             ui::Color::labelColor())
        .setTextAlignment(NSTextAlignmentCenter);
    AddButton(content, {{260, 5}, {35, 35}}, u"✕"_ns, ui::Color::redColor(), objc::Selector<"dm_cm">());
    const auto scrollView = ui::MakeView<ui::ScrollView>({{0, 45}, {kWidth, 455}});
    content.addSubview(scrollView);
    double y = 10;
    AddBlock(scrollView, y, &FillFixed);
    y += 10;
    AddHeader(scrollView, y, u"▶ 插件配置"_ns);
    AddBlock(scrollView, y, &FillConfiguration, true);
    AddHeader(scrollView, y, unfolded ? u"▼ 延迟优化(实验)"_ns : u"▶ 延迟优化(实验)"_ns);
    AddBlock(scrollView, y, &FillLatency, !unfolded);
    AddBlock(scrollView, y, &FillFooter);
    scrollView->setContentSize({kWidth, y + 20});
    const ui::Window window = corvel::Overlay().window;
    window.addSubview(panel);
    window.bringSubviewToFront(panel);
    window.bringSubviewToFront(corvel::Overlay().floatButton);
    return panel;
}

void SpringIn(ui::View panel) {
    const objc::Ref<ui::View> kept = panel;
    panel.setTransform(cg::AffineTransform::Scale(0.8, 0.8));
    panel.setAlpha(0);
    ui::View::animateWithDuration(0.3, 0, 0.7, 0.5, 0, objc::MakeBlock<void()>([=] {
                                      kept->setAlpha(1);
                                      kept->setTransform(cg::AffineTransform::Identity());
                                  }),
                                  nullptr);
}

} // namespace bench
