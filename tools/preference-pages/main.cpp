// Makes the table of preferences in a page of the user guide from the library's own tables.
// usage: preference-pages en|zh FILE [--write]
// Without --write nothing is changed: a page whose table is stale ends with status 1.

#include "descriptions.hpp"
#include "preferences/preferences.hpp"
#include "runtime/autorelease.hpp"
#include "settings/settings_table.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace {

using namespace corvel;

constexpr const char *kBegin = "<!-- made by ./corvel pages -->\n";
constexpr const char *kEnd = "<!-- end -->\n";

bool english = true;

std::string In(const char *englishText, const char *chineseText) {
    return english ? englishText : chineseText;
}

std::string Text(ns::String string) {
    return string.UTF8String();
}

std::string Number(double value, const char *format = "%g") {
    char text[32];
    std::snprintf(text, sizeof(text), format, value);
    return text;
}

std::string Control(const char *englishName, const char *chineseName, ns::String title) {
    return english ? englishName + (" " + Text(title)) : chineseName + ("“" + Text(title) + "”");
}

// Which row of the settings panel edits a preference; empty when none does.

template <class Row, std::size_t N> const Row *RowFor(const Row (&rows)[N], const Preference &preference) {
    const auto *const found =
        std::find_if(rows, rows + N, [&](const Row &row) { return row.preference.Is(preference.key()); });
    return found != rows + N ? found : nullptr;
}

std::string ControlOf(const Preference & /*preference*/) {
    return {};
}
std::string ControlOf(const BoolPreference &preference) {
    const SwitchRow *row = RowFor(kFixedSwitches, preference);
    row = row != nullptr ? row : RowFor(kLatencySwitches, preference);
    return row != nullptr ? Control("switch", "开关", row->title) : "";
}
std::string ControlOf(const FloatPreference &preference) {
    const SliderRow *row = RowFor(kSliders, preference);
    if (row == nullptr) {
        return {};
    }
    const Range range = preference.slider();
    return Control("slider", "滑块", row->title) + In(", ", "，") + Number(range.least) + In(" to ", " 到 ") +
           Number(range.most);
}
std::string ControlOf(const StringPreference &preference) {
    const ColorRow *row = RowFor(kColors, preference);
    return row != nullptr ? Control("colour", "颜色", row->title) : "";
}

// Types and defaults.

std::string TypeOf(const BoolPreference & /*preference*/) {
    return In("bool", "布尔");
}
std::string TypeOf(const FloatPreference & /*preference*/) {
    return In("float", "浮点数");
}
std::string TypeOf(const PlacePreference & /*preference*/) {
    return In("float", "浮点数");
}
std::string TypeOf(const IntegerPreference & /*preference*/) {
    return In("integer", "整数");
}
std::string TypeOf(const StringPreference & /*preference*/) {
    return In("string", "字符串");
}

std::string DefaultOf(const BoolPreference &preference) {
    return preference.initial() ? "YES" : "NO";
}
std::string DefaultOf(const FloatPreference &preference) {
    return Number(preference.fallback(), "%.1f");
}
std::string DefaultOf(const PlacePreference &preference) {
    const bool horizontal = preference.Is(kFloatButtonX.key());
    std::string text = horizontal ? In("screen width", "屏幕宽度") : In("screen height", "屏幕高度");
    if (preference.share() != 1) {
        text += " × " + Number(preference.share());
    }
    if (preference.offset() != 0) {
        text += (preference.offset() < 0 ? " - " : " + ") + Number(std::abs(preference.offset()));
    }
    return text;
}
std::string DefaultOf(const IntegerPreference & /*preference*/) {
    return "0";
}
std::string DefaultOf(const StringPreference &preference) {
    const std::string text = Text(preference.fallback());
    return text.empty() ? In("empty", "空") : text;
}

std::string Row(const std::string &key, const std::string &type, const std::string &fallback,
                const std::string &meaning, const std::string &changedBy) {
    return "| `" + key + "` | " + type + " | " + fallback + " | " + meaning + " | " + changedBy + " |\n";
}

/// The table; empty when a preference has no description.
std::string Table() {
    std::string table =
        In("| Key | Type | Default | Meaning | Changed by |\n", "| 键 | 类型 | 默认值 | 含义 | 由谁修改 |\n");
    table += "|---|---|---|---|---|\n";
    bool complete = true;
    VisitPreferences([&](const auto &preference) {
        const std::string key = Text(preference.key());
        const auto *const found = std::find_if(std::begin(pages::kDescriptions), std::end(pages::kDescriptions),
                                               [&](const pages::Description &each) { return key == each.key; });
        if (found == std::end(pages::kDescriptions)) {
            std::fprintf(stderr, "preference-pages: no description of %s\n", key.c_str());
            complete = false;
            return;
        }
        std::string changedBy = ControlOf(preference);
        if (found->englishChangedBy != nullptr) {
            changedBy = In(found->englishChangedBy, found->chineseChangedBy);
        }
        table += Row(key, TypeOf(preference), DefaultOf(preference), In(found->english, found->chinese), changedBy);
    });
    table += Row("Corvel.slots.N", In("string", "字符串"), In("empty", "空"),
                 In("comment of the cell N, counted from 0 at the top left; an empty cell shows and sends its number, "
                    "counted from 1",
                    "第 N 格的弹幕，从左上角起由 0 计数；空格显示并发送它的序号，序号由 1 计数"),
                 In("a long press on the cell", "长按该格"));
    return complete ? table : "";
}

int Run(const std::string &path, bool write) {
    std::ifstream file(path);
    std::stringstream content;
    content << file.rdbuf();
    const std::string page = content.str();
    const std::size_t begin = page.find(kBegin);
    const std::size_t end = page.find(kEnd);
    if (!file || begin == std::string::npos || end == std::string::npos) {
        std::fprintf(stderr, "preference-pages: %s cannot be read or has no place for the table\n", path.c_str());
        return 2;
    }
    const std::string table = Table();
    if (table.empty()) {
        return 1;
    }
    const std::string fresh = page.substr(0, begin + std::strlen(kBegin)) + table + page.substr(end);
    if (write) {
        return std::ofstream(path) << fresh ? 0 : 2;
    }
    if (fresh != page) {
        std::fprintf(stderr, "preference-pages: the table in %s is stale; ./corvel pages makes it anew\n",
                     path.c_str());
        return 1;
    }
    return 0;
}

} // namespace

int main(int count, char **words) {
    const bool write = count == 4 && std::strcmp(words[3], "--write") == 0;
    const bool known = count >= 3 && (std::strcmp(words[1], "en") == 0 || std::strcmp(words[1], "zh") == 0);
    if (!known || count > 4 || (count == 4 && !write)) {
        std::fputs("usage: preference-pages en|zh FILE [--write]\n", stderr);
        return 2;
    }
    english = std::strcmp(words[1], "en") == 0;
    const sim::AutoreleasePool pool;
    return Run(words[2], write);
}
