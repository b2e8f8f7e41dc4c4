#include "settings/settings_content.hpp"

#include "overlay/recognizers.hpp"
#include "settings/grid_rows.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"
#include "settings/settings_rows.hpp"

namespace corvel {
namespace {

/// From the top of a section's content to its first row.
constexpr double kTopGap = 5;

struct ActionButton {
    ns::String title;
    ui::Color background;
    objc::SEL action;
    /// What a long press on the button runs; null for nothing.
    objc::SEL longPressAction = nullptr;
};

template <std::size_t N> void AddActionButtons(ui::View container, double &y, const ActionButton (&buttons)[N]) {
    for (const ActionButton &entry : buttons) {
        const ui::Button button = AddActionButton(container, y, entry.title, entry.background, entry.action);
        if (entry.longPressAction != nullptr) {
            AddRecognizer<ui::LongPressGestureRecognizer>(button, entry.longPressAction);
        }
        y += 50;
    }
}

} // namespace

double AddFixedRows(ui::View container) {
    const SettingsRow rows[] = {
        {&AddSwitchRow, u"发送后自动截图"_ns, keys::AutoCaptureAfterSend()},
        {&AddSwitchRow, u"显示独立截图按钮"_ns, keys::ShowCaptureButton()},
        {&AddSwitchRow, u"悬浮球自动吸附"_ns, keys::FloatAutoSnap()},
        {&AddGridRows, u"矩阵规模"_ns, keys::GridPresetIndex()},
        {&AddSliderRow, u"矩阵整体缩放"_ns, keys::MatrixScale(), 0.5, 1.5},
        {&AddSliderRow, u"整体透明度"_ns, keys::MatrixAlpha(), 0.1, 1.0},
        {&AddSliderRow, u"悬浮球透明度"_ns, keys::FloatButtonAlpha(), 0.1, 1.0},
        {&AddSliderRow, u"按钮文字大小"_ns, keys::FontSize(), 8, 20},
        {&AddColorRow, u"矩阵背景颜色"_ns, keys::MatrixBackgroundColor()},
        {&AddColorRow, u"按钮背景颜色"_ns, keys::ButtonBackgroundColor()},
        {&AddColorRow, u"文字显示颜色"_ns, keys::ButtonTextColor()},
    };
    double y = 10;
    AddRows(container, y, rows);
    return y;
}

double AddConfigurationButtons(ui::View container) {
    const ActionButton buttons[] = {
        {u"导出Corvel配置"_ns, ui::Color::systemGreenColor(), objc::Selector<"dm_exp">()},
        {u"导入Corvel配置"_ns, ui::Color::systemGreenColor(), objc::Selector<"dm_imp">()},
        {u"清除插件配置"_ns, ui::Color::systemRedColor(), objc::Selector<"dm_clear">(), objc::Selector<"dm_dlp:">()},
    };
    const ActionButton debugButtons[] = {
        {u"查看调试日志"_ns, ui::Color::systemGrayColor(), objc::Selector<"dm_log">()},
        {u"清除调试日志"_ns, ui::Color::systemGrayColor(), objc::Selector<"dm_clearLog">()},
    };
    const bool debug = ReadBoolPreference(keys::DebugFeaturesEnabled());
    double y = kTopGap;
    AddActionButtons(container, y, buttons);
    if (debug) {
        AddActionButtons(container, y, debugButtons);
    }
    return debug ? 250 : 150;
}

double AddLatencyRows(ui::View container) {
    const SettingsRow rows[] = {
        {&AddSwitchRow, u"严格弹幕缓冲"_ns, keys::StrictDanmakuBuffer()},
        {&AddSwitchRow, u"预连接绑定延迟"_ns, keys::DelayPreJoinBinding()},
        {&AddSwitchRow, u"弹幕快速通道"_ns, keys::FastCommentPath()},
        {&AddSwitchRow, u"流数据优先加载"_ns, keys::StreamDataFirst()},
        {&AddSwitchRow, u"强制Cachalot协议"_ns, keys::ForceCachalot()},
        {&AddSwitchRow, u"播放器低延迟优化"_ns, keys::PlayerOptimization()},
    };
    double y = kTopGap;
    AddRows(container, y, rows);
    const ui::Label note = AddLabel(container, {{kSettingsMargin, y}, {kSettingsRowWidth, 30}},
                                    u"以上均为实验性功能，可能需要重启App生效"_ns, ui::Font::systemFontOfSize(10),
                                    ui::Color::secondaryLabelColor());
    note.setNumberOfLines(0);
    return y + 30;
}

double AddFooter(ui::View container) {
    constexpr double kHeight = 85;
    const objc::ArgumentSlot arguments[] = {reinterpret_cast<objc::ArgumentSlot>(CORVEL_VERSION)};
    const ui::Label version =
        AddLabel(container, {{0, kHeight - 20}, {kSettingsWidth, 20}}, ns::Formatted("Corvel v%s"_ns, arguments),
                 ui::Font::systemFontOfSize(12), ui::Color::secondaryLabelColor());
    version.setTextAlignment(ui::TextAlignment::kCenter);
    return kHeight;
}

} // namespace corvel
