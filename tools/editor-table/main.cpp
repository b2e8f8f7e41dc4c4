// Writes what the grid page must know of the library, as JSON: preferences, the grid's numbers and look, the toasts.
// usage: editor-table > FILE

#include "../preference-pages/descriptions.hpp"
#include "matrix/grid_geometry.hpp"
#include "matrix/matrix_look.hpp"
#include "matrix/slots.hpp"
#include "preferences/preferences.hpp"
#include "runtime/autorelease.hpp"
#include "settings/settings_table.hpp"
#include "settings/transfer.hpp"
#include "settings/zlib_codec.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>

namespace {

using namespace corvel;
using Json = nlohmann::ordered_json;

std::string Text(ns::String string) {
    return string.UTF8String();
}

Json Pair(Range range) {
    return {range.least, range.most};
}

/// Says which row of a table edits the preference, if one does.
template <class Row, std::size_t N>
void AddRow(Json &entry, const char *group, const Row (&rows)[N], const Preference &preference) {
    const auto *const row =
        std::find_if(rows, rows + N, [&](const Row &each) { return each.preference.Is(preference.key()); });
    if (row != rows + N) {
        entry["group"] = group;
        entry["position"] = row - rows;
        entry["row"]["zh"] = Text(row->title);
    }
}

void Describe(Json &entry, const BoolPreference &preference) {
    entry["type"] = "bool";
    entry["default"] = false; // an absent one reads NO, whatever the panel stores first
    AddRow(entry, "switches", kFixedSwitches, preference);
    AddRow(entry, "latency", kLatencySwitches, preference);
}
void Describe(Json &entry, const FloatPreference &preference) {
    entry["type"] = "float";
    entry["default"] = preference.fallback();
    entry["slider"] = Pair(preference.slider());
    entry["usable"] = Pair(preference.usable());
    AddRow(entry, "sliders", kSliders, preference);
}
void Describe(Json &entry, const PlacePreference & /*preference*/) {
    entry["type"] = "float";
}
void Describe(Json &entry, const IntegerPreference &preference) {
    entry["type"] = "integer";
    entry["default"] = 0;
    entry["range"] = {preference.least(), preference.most()};
}
void Describe(Json &entry, const StringPreference &preference) {
    entry["type"] = "string";
    entry["default"] = Text(preference.fallback());
    AddRow(entry, "colors", kColors, preference);
}

template <class Entry, std::size_t N> const Entry *EntryOf(const Entry (&entries)[N], const std::string &key) {
    const auto *const found = std::find_if(entries, entries + N, [&](const Entry &each) { return key == each.key; });
    return found != entries + N ? found : nullptr;
}

/// Every preference in the table's order. False when the guide lacks a text for one.
bool AddPreferences(Json &table) {
    bool complete = true;
    const auto missing = [&](const char *what, const std::string &key) {
        std::fprintf(stderr, "editor-table: no %s of %s\n", what, key.c_str());
        complete = false;
    };
    VisitPreferences([&](const auto &preference) {
        const std::string key = Text(preference.key());
        Json entry;
        entry["key"] = key;
        Describe(entry, preference);
        if (const auto *const description = EntryOf(pages::kDescriptions, key)) {
            entry["text"] = {{"en", description->english}, {"zh", description->chinese}};
        } else {
            missing("description", key);
        }
        if (entry.contains("row")) {
            if (const auto *const title = EntryOf(pages::kEnglishTitles, key)) {
                entry["row"]["en"] = title->title;
            } else {
                missing("English title", key);
            }
        }
        table["preferences"].push_back(entry);
    });
    return complete;
}

Json Frame(cg::Rect frame) {
    return {{"x", frame.origin.x}, {"y", frame.origin.y}, {"width", frame.size.width}, {"height", frame.size.height}};
}

/// The numbers that the grid's arithmetic rests on, read off its results at scale 1.
Json Grid() {
    Json grid;
    for (const GridSize preset : kGridPresets) {
        grid["presets"].push_back({preset.columns, preset.rows});
    }
    grid["presetKey"] = Text(kGridPresetIndex.key());
    grid["columnsKey"] = Text(kGridCustomColumns.key());
    grid["rowsKey"] = Text(kGridCustomRows.key());
    grid["unsetNumber"] = kUnsetCustomNumber;
    grid["mostColumns"] = kGridCustomColumns.most();
    grid["mostRows"] = kGridCustomRows.most();
    const GridGeometry one({1, 1}, 1);
    const cg::Rect cell = one.CellFrame(0);
    grid["panelWidth"] = one.panelSize().width;
    grid["spacing"] = one.spacing();
    grid["headerHeight"] = cell.origin.y - one.spacing();
    grid["cellHeightByWidth"] = cell.size.height / cell.size.width;
    grid["titleFrame"] = Frame(one.TitleFrame());
    grid["markerSize"] = one.MarkerFrame().size.width;
    grid["markerTop"] = one.MarkerFrame().origin.y;
    grid["markerFromRight"] = cell.size.width - one.MarkerFrame().origin.x;
    grid["textInset"] = cell.size.width - one.TitleBox().width;
    return grid;
}

Json Look() {
    return {
        {"title", Text(kMatrixTitle)},
        {"titleSize", kMatrixTitleSize},
        {"titleAlpha", kMatrixTitleAlpha},
        {"panelCornerRadius", kPanelCornerRadius},
        {"cellCornerRadius", kCellCornerRadius},
        {"backgroundAlpha", kMatrixBackgroundAlpha},
        {"cellAlpha", kCellBackgroundAlpha},
        {"textAlpha", kCellTextAlpha},
        {"titleUnitsAtLeast", kTitleUnitsAtLeast},
        {"titleUnitsPerSquare", kTitleUnitsPerSquare},
        {"scaleKey", Text(kMatrixScale.key())},
        {"alphaKey", Text(kMatrixAlpha.key())},
        {"fontSizeKey", Text(kFontSize.key())},
        {"backgroundKey", Text(kMatrixBackgroundColor.key())},
        {"cellKey", Text(kButtonBackgroundColor.key())},
        {"textKey", Text(kButtonTextColor.key())},
    };
}

} // namespace

int main() {
    const sim::AutoreleasePool pool;
    Json table;
    table["version"] = CORVEL_VERSION;
    table["prefix"] = Text(kKeyPrefix);
    const std::string firstSlot = Text(SlotKey(0));
    table["slotPrefix"] = firstSlot.substr(0, firstSlot.size() - 1);
    table["largestText"] = kLargestText;
    table["hidesInWeChatKey"] = Text(kWeChatFloatSwitch.key());
    table["logKey"] = Text(kLogBuffer.key());
    table["logEnabledKey"] = Text(kLogEnabled.key());
    table["toasts"] = {{"imported", Text(kImportedToast)},
                       {"unreadable", Text(kUnreadableToast)},
                       {"nothingCopied", Text(kNothingCopiedToast)}};
    table["grid"] = Grid();
    table["look"] = Look();
    if (!AddPreferences(table)) {
        return 1;
    }
    std::puts(table.dump(1).c_str());
    return 0;
}
