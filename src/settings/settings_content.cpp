#include "settings/settings_content.hpp"

#include "overlay/recognizers.hpp"
#include "settings/grid_rows.hpp"
#include "settings/settings_rows.hpp"

namespace corvel {
namespace {

/// From the top of a section's content to its first row.
constexpr double kTopGap = 5;

/// A wide button that runs a handler.
ui::Button AddActionButton(Column &column, ns::String title, ui::Color background, objc::SEL action) {
    const auto button = AddSystemButton(column.container, {{kSettingsMargin, column.y}, {kSettingsRowWidth, 40}}, title,
                                        ui::Color::whiteColor(), action);
    button.setBackgroundColor(background);
    button.layer().setCornerRadius(8);
    column.y += 50;
    return button;
}

} // namespace

double AddFixedRows(ui::View container) {
    Column column{.container = container, .y = 10};
    AddRows(column, kFixedSwitches);
    AddGridRows(column);
    AddRows(column, kSliders);
    AddRows(column, kColors);
    return column.y;
}

double AddConfigurationButtons(ui::View container) {
    Column column{.container = container, .y = kTopGap};
    AddActionButton(column, u"导出Corvel配置"_ns, ui::Color::systemGreenColor(), objc::Selector<"dm_exp">());
    AddActionButton(column, u"导入Corvel配置"_ns, ui::Color::systemGreenColor(), objc::Selector<"dm_imp">());
    const ui::Button reset =
        AddActionButton(column, u"清除插件配置"_ns, ui::Color::systemRedColor(), objc::Selector<"dm_clear">());
    AddRecognizer<ui::LongPressGestureRecognizer>(reset, objc::Selector<"dm_dlp:">());
    if (!kDebugFeaturesEnabled.Read()) {
        return 150;
    }
    AddActionButton(column, u"查看调试日志"_ns, ui::Color::systemGrayColor(), objc::Selector<"dm_log">());
    AddActionButton(column, u"清除调试日志"_ns, ui::Color::systemGrayColor(), objc::Selector<"dm_clearLog">());
    return 250;
}

double AddLatencyRows(ui::View container) {
    Column column{.container = container, .y = kTopGap};
    AddRows(column, kLatencySwitches);
    const ui::Label note = AddLabel(container, {{kSettingsMargin, column.y}, {kSettingsRowWidth, 30}},
                                    u"以上均为实验性功能，可能需要重启App生效"_ns, ui::Font::systemFontOfSize(10),
                                    ui::Color::secondaryLabelColor());
    note.setNumberOfLines(0);
    return column.y + 30;
}

double AddFooter(ui::View container) {
    constexpr double kHeight = 85;
    const objc::ArgumentSlot arguments[] = {reinterpret_cast<objc::ArgumentSlot>(CORVEL_VERSION)};
    const ui::Label version =
        AddLabel(container, {{0, kHeight - 20}, {kSettingsWidth, 20}}, ns::Formatted("Corvel v%s"_ns, arguments),
                 ui::Font::systemFontOfSize(12), ui::Color::secondaryLabelColor());
    version.setTextAlignment(NSTextAlignmentCenter);
    return kHeight;
}

} // namespace corvel
