#pragma once
// Every preference that the library keeps in the host's standard user defaults: the configuration, remembered state
// and the debug log. Nothing is registered as a default: a reader applies the default that stands here.
//
// The pages docs/user-guide/preferences*.md are made from this table.

#include "preferences/preference.hpp"

namespace corvel {

/// What every key begins with. Export, import and reset act on all keys that carry it and on no other key.
inline constexpr ns::Literal kKeyPrefix = "Corvel."_literal;

/// What is fainter than this cannot be found, and from 0.01 on takes no touches.
inline constexpr Range kUsableAlpha{0.05, 1};

// The matrix. The font's size is in points, before scaling; colours are written #RRGGBB. What is usable is far beyond
// the sliders, and short of what would exhaust the memory by its pictures.

inline constexpr FloatPreference kMatrixScale{"Corvel.config.matrixScale"_literal, 1.0, {0.5, 1.5}, {0.05, 20}};
inline constexpr FloatPreference kMatrixAlpha{"Corvel.config.matrixAlpha"_literal, 0.9, {0.1, 1.0}, kUsableAlpha};
inline constexpr FloatPreference kFontSize{"Corvel.config.fontSize"_literal, 11.0, {8, 20}, {1, 400}};
inline constexpr StringPreference kMatrixBackgroundColor{"Corvel.config.matrixBackgroundColor"_literal,
                                                         "#000000"_literal};
inline constexpr StringPreference kButtonBackgroundColor{"Corvel.config.buttonBgColor"_literal, "#333333"_literal};
inline constexpr StringPreference kButtonTextColor{"Corvel.config.buttonTextColor"_literal, "#FFFFFF"_literal};
/// Any number outside the presets, which end before the last, selects the custom grid.
inline constexpr IntegerPreference kGridPresetIndex{"Corvel.config.gridPresetIndex"_literal, 0, 8};
/// Absent or 0 counts as 4.
inline constexpr IntegerPreference kGridCustomColumns{"Corvel.config.gridCustomCols"_literal, 1, 12};
inline constexpr IntegerPreference kGridCustomRows{"Corvel.config.gridCustomRows"_literal, 1, 12};

// The float button and the capture button.

inline constexpr FloatPreference kFloatButtonAlpha{
    "Corvel.config.floatButtonAlpha"_literal, 1.0, {0.1, 1.0}, kUsableAlpha};
inline constexpr BoolPreference kFloatAutoSnap{"Corvel.config.floatAutoSnap"_literal};
inline constexpr PlacePreference kFloatButtonX{"Corvel.position.floatButton.x"_literal, 1, -40};
inline constexpr PlacePreference kFloatButtonY{"Corvel.position.floatButton.y"_literal, 0.45, 0};
inline constexpr BoolPreference kShowCaptureButton{"Corvel.config.showCaptureButton"_literal};
inline constexpr BoolPreference kAutoCaptureAfterSend{"Corvel.config.autoCaptureAfterSend"_literal};

// WeChat: its plugin manager writes the key, the library only reads it.

inline constexpr BoolPreference kWeChatFloatSwitch{"Corvel.wc.floatSwitch"_literal};

// The settings panel's folded sections. The style key governs no section; it is kept so that a configuration keeps
// carrying it.

inline constexpr BoolPreference kStyleSectionCollapsed{"Corvel.ui.section.style.collapsed"_literal, true};
inline constexpr BoolPreference kConfigSectionCollapsed{"Corvel.ui.section.config.collapsed"_literal, true};
inline constexpr BoolPreference kLatencySectionCollapsed{"Corvel.ui.section.latency.collapsed"_literal, true};

// Diagnostics. Only an imported configuration switches the log on: nothing in the library does.

inline constexpr BoolPreference kLogEnabled{"Corvel.debug.logEnabled"_literal};
inline constexpr StringPreference kLogBuffer{"Corvel.debug.logBuffer"_literal, ""_literal};
inline constexpr BoolPreference kDebugFeaturesEnabled{"Corvel.debug.featuresEnabled"_literal};

// Douyin's latency options, read once at load; the fast comment path is read at every send. Nothing acts on the
// pre-join delay: its switch is kept as a placeholder.

inline constexpr BoolPreference kStrictDanmakuBuffer{"Corvel.latency.strictDanmakuBuffer"_literal};
inline constexpr BoolPreference kDelayPreJoinBinding{"Corvel.latency.delayPreJoinBinding"_literal};
inline constexpr BoolPreference kFastCommentPath{"Corvel.latency.fastCommentPath"_literal};
inline constexpr BoolPreference kStreamDataFirst{"Corvel.latency.streamDataFirst"_literal};
inline constexpr BoolPreference kForceCachalot{"Corvel.latency.forceCachalot"_literal};
inline constexpr BoolPreference kPlayerOptimization{"Corvel.latency.playerOptimization"_literal};

/// Calls visit(preference) with each of the above, in their order. The slots' texts have a key each and no entry here.
template <class Visit> void VisitPreferences(Visit visit) {
    const auto all = [&](const auto &...preferences) { (visit(preferences), ...); };
    all(kMatrixScale, kMatrixAlpha, kFontSize, kMatrixBackgroundColor, kButtonBackgroundColor, kButtonTextColor,
        kGridPresetIndex, kGridCustomColumns, kGridCustomRows, kFloatButtonAlpha, kFloatAutoSnap, kFloatButtonX,
        kFloatButtonY, kShowCaptureButton, kAutoCaptureAfterSend, kWeChatFloatSwitch, kStyleSectionCollapsed,
        kConfigSectionCollapsed, kLatencySectionCollapsed, kLogEnabled, kLogBuffer, kDebugFeaturesEnabled,
        kStrictDanmakuBuffer, kDelayPreJoinBinding, kFastCommentPath, kStreamDataFirst, kForceCachalot,
        kPlayerOptimization);
}

} // namespace corvel
