#pragma once
// Every key that the library keeps in the host's standard user defaults: the configuration, remembered state and the
// debug log. Nothing is registered as a default; each reader applies the default that stands beside the key.
//
// Each comment begins with the type and the default; docs/user-guide/preferences.md repeats them for users, and a unit
// test compares the two.

#include "apple/foundation/string.hpp"

namespace corvel::keys {

/// What every key begins with. Export, import and reset act on all keys that carry it and on no other key.
inline ns::String Prefix() {
    return "Corvel."_ns;
}

// The matrix.

/// Float, 1.0 (slider 0.5 to 1.5): scales the matrix and multiplies its font size.
inline ns::String MatrixScale() {
    return "Corvel.config.matrixScale"_ns;
}
/// Float, 0.9 (slider 0.1 to 1.0): alpha of the matrix panel.
inline ns::String MatrixAlpha() {
    return "Corvel.config.matrixAlpha"_ns;
}
/// Float, 11.0 (slider 8 to 20): size of the cell titles in points, before scaling.
inline ns::String FontSize() {
    return "Corvel.config.fontSize"_ns;
}
/// String, #000000 (form #RRGGBB): the panel's background, drawn with alpha 0.5.
inline ns::String MatrixBackgroundColor() {
    return "Corvel.config.matrixBackgroundColor"_ns;
}
/// String, #333333 (form #RRGGBB): the cells' background, drawn with alpha 0.6.
inline ns::String ButtonBackgroundColor() {
    return "Corvel.config.buttonBgColor"_ns;
}
/// String, #FFFFFF (form #RRGGBB): the cells' titles.
inline ns::String ButtonTextColor() {
    return "Corvel.config.buttonTextColor"_ns;
}
/// Integer, 0: 0 to 7 select a preset grid, anything else the custom one.
inline ns::String GridPresetIndex() {
    return "Corvel.config.gridPresetIndex"_ns;
}
/// Integer, 0 (read as 4, stored as 1 to 12): columns of the custom grid.
inline ns::String GridCustomColumns() {
    return "Corvel.config.gridCustomCols"_ns;
}
/// Integer, 0 (read as 4, stored as 1 to 12): rows of the custom grid.
inline ns::String GridCustomRows() {
    return "Corvel.config.gridCustomRows"_ns;
}

// The floating and the capture button.

/// Float, 1.0 (slider 0.1 to 1.0): alpha of both buttons.
inline ns::String FloatButtonAlpha() {
    return "Corvel.config.floatButtonAlpha"_ns;
}
/// Bool, NO: dock the floating button at the nearer side edge after a drag.
inline ns::String FloatAutoSnap() {
    return "Corvel.config.floatAutoSnap"_ns;
}
/// Float, screen width - 40: x of the floating button's centre, in points.
inline ns::String FloatButtonX() {
    return "Corvel.position.floatButton.x"_ns;
}
/// Float, screen height x 0.45: y of the floating button's centre, in points.
inline ns::String FloatButtonY() {
    return "Corvel.position.floatButton.y"_ns;
}
/// Bool, NO: show the capture button below the floating button.
inline ns::String ShowCaptureButton() {
    return "Corvel.config.showCaptureButton"_ns;
}
/// Bool, NO: capture the screen after every sent comment.
inline ns::String AutoCaptureAfterSend() {
    return "Corvel.config.autoCaptureAfterSend"_ns;
}

// WeChat.

/// Bool, NO: written by WeChat's plugin manager; YES hides the overlay there.
inline ns::String WeChatFloatSwitch() {
    return "Corvel.wc.floatSwitch"_ns;
}

// The settings panel's folded sections, each written YES by the panel when absent.

/// Bool, YES: governs no section, kept so that a configuration keeps carrying it.
inline ns::String StyleSectionCollapsed() {
    return "Corvel.ui.section.style.collapsed"_ns;
}
/// Bool, YES: the configuration section is folded.
inline ns::String ConfigSectionCollapsed() {
    return "Corvel.ui.section.config.collapsed"_ns;
}
/// Bool, YES: the latency section is folded.
inline ns::String LatencySectionCollapsed() {
    return "Corvel.ui.section.latency.collapsed"_ns;
}

// Diagnostics.

/// Bool, NO: log; written by the first log call, switched on by an imported configuration only.
inline ns::String LogEnabled() {
    return "Corvel.debug.logEnabled"_ns;
}
/// String, empty: the whole debug log, at most 40000 UTF-16 units.
inline ns::String LogBuffer() {
    return "Corvel.debug.logBuffer"_ns;
}
/// Bool, NO: the settings panel shows the rows for the debug log.
inline ns::String DebugFeaturesEnabled() {
    return "Corvel.debug.featuresEnabled"_ns;
}

// Douyin's latency options, read once at load unless told otherwise.

/// Bool, NO: forces the player's start-up buffering and retry numbers.
inline ns::String StrictDanmakuBuffer() {
    return "Corvel.latency.strictDanmakuBuffer"_ns;
}
/// Bool, NO: stored and shown only; nothing acts on it.
inline ns::String DelayPreJoinBinding() {
    return "Corvel.latency.delayPreJoinBinding"_ns;
}
/// Bool, NO: read at every Douyin send: a comment that goes through the fragment is marked as urgent.
inline ns::String FastCommentPath() {
    return "Corvel.latency.fastCommentPath"_ns;
}
/// Bool, NO: forces the stream-data pipeline on.
inline ns::String StreamDataFirst() {
    return "Corvel.latency.streamDataFirst"_ns;
}
/// Bool, NO: forces the transport selection on.
inline ns::String ForceCachalot() {
    return "Corvel.latency.forceCachalot"_ns;
}
/// Bool, NO: forces adaptive retries on and scalable video coding off.
inline ns::String PlayerOptimization() {
    return "Corvel.latency.playerOptimization"_ns;
}

} // namespace corvel::keys
