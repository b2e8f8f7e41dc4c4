#pragma once
// The rows of the settings panel that edit one preference each. A new row is a new line here.

#include "overlay/capture_button.hpp"
#include "preferences/preferences.hpp"

namespace corvel {

struct SwitchRow {
    ns::Literal title;
    const BoolPreference &preference;
    /// Brings what depends on the switch up to date; null when everybody reads it at the moment of use.
    void (*changed)() = nullptr;
};

struct SliderRow {
    ns::Literal title;
    const FloatPreference &preference;
};

struct ColorRow {
    ns::Literal title;
    const StringPreference &preference;
};

inline constexpr SwitchRow kFixedSwitches[] = {
    {u"发送后自动截图"_literal, kAutoCaptureAfterSend},
    {u"显示独立截图按钮"_literal, kShowCaptureButton, &RebuildCaptureButton},
    {u"悬浮球自动吸附"_literal, kFloatAutoSnap},
};

inline constexpr SliderRow kSliders[] = {
    {u"矩阵整体缩放"_literal, kMatrixScale},
    {u"整体透明度"_literal, kMatrixAlpha},
    {u"悬浮球透明度"_literal, kFloatButtonAlpha},
    {u"按钮文字大小"_literal, kFontSize},
};

inline constexpr ColorRow kColors[] = {
    {u"矩阵背景颜色"_literal, kMatrixBackgroundColor},
    {u"按钮背景颜色"_literal, kButtonBackgroundColor},
    {u"文字显示颜色"_literal, kButtonTextColor},
};

inline constexpr SwitchRow kLatencySwitches[] = {
    {u"严格弹幕缓冲"_literal, kStrictDanmakuBuffer}, {u"预连接绑定延迟"_literal, kDelayPreJoinBinding},
    {u"弹幕快速通道"_literal, kFastCommentPath},     {u"流数据优先加载"_literal, kStreamDataFirst},
    {u"强制Cachalot协议"_literal, kForceCachalot},   {u"播放器低延迟优化"_literal, kPlayerOptimization},
};

} // namespace corvel
