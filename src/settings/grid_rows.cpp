#include "settings/grid_rows.hpp"

#include "apple/foundation/user_defaults.hpp"
#include "matrix/panel.hpp"
#include "overlay/action_target.hpp"
#include "settings/preference_keys.hpp"
#include "settings/preferences.hpp"
#include "settings/settings_panel.hpp"

#include <algorithm>

namespace corvel {
namespace {

constexpr long kFirstControlTag = 7301;
constexpr long kSecondControlTag = 7302;
constexpr long kCustomBlockTag = 7310;

/// The preset that the second control begins with.
constexpr long kSecondControlStart = 5;
constexpr long kCustomPreset = 8;

template <std::size_t N>
ui::SegmentedControl AddSegments(ui::View container, double y, long tag, const ns::String (&titles)[N], long selected) {
    const auto items = ns::New<ns::MutableArray>();
    for (const ns::String title : titles) {
        items->addObject(title);
    }
    const auto control =
        objc::Ref<ui::SegmentedControl>::Adopt(ns::Alloc<ui::SegmentedControl>().initWithItems(items.get()));
    control->setFrame({{kSettingsMargin, y}, {kSettingsRowWidth, 30}});
    control->setTag(tag);
    control->setTitleTextAttributes(
        ns::Dictionary::dictionaryWithObject(ui::Font::systemFontOfSize(11), NSFontAttributeName), ui::kStateNormal);
    control->setSelectedSegmentIndex(selected);
    control->addTarget(ActionTarget(), objc::Selector<"dm_gc:">(), ui::kValueChanged);
    container.addSubview(control);
    return control;
}

void ShowNumber(ui::TextField field, long number) {
    const objc::ArgumentSlot arguments[] = {static_cast<objc::ArgumentSlot>(number)};
    field.setText(ns::Formatted("%ld"_ns, arguments));
}

void AddField(ui::View block, double x, ns::String placeholder, ns::String key) {
    const auto field = MakeView<ui::TextField>({{x, 26}, {125, 34}});
    field->setPlaceholder(placeholder);
    ShowNumber(field, ReadIntegerPreference(key));
    objc::As<ui::TextInputTraits>(field.get()).setKeyboardType(ui::KeyboardType::kNumberPad);
    field->setBorderStyle(ui::TextBorderStyle::kRoundedRect);
    objc::SetAssociated(field, kRowPreferenceKey, key);
    field->addTarget(ActionTarget(), objc::Selector<"dm_gi:">(), ui::kEditingDidEnd);
    block.addSubview(field);
}

void AddCustomBlock(ui::View container, double &y) {
    const auto block = MakeView<ui::View>({{0, y}, {kSettingsWidth, 60}});
    block->setTag(kCustomBlockTag);
    AddLabel(block, {{kSettingsMargin, 0}, {kSettingsRowWidth, 20}}, u"自定义行列(1~12)"_ns,
             ui::Font::systemFontOfSize(12), ui::Color::secondaryLabelColor());
    AddField(block, 20, u"列数"_ns, keys::GridCustomColumns());
    AddField(block, 155, u"行数"_ns, keys::GridCustomRows());
    container.addSubview(block);
    y += 70;
}

} // namespace

void AddGridRows(ui::View container, double &y, const SettingsRow &row) {
    const long stored = ReadIntegerPreference(row.key);
    // Beyond the last preset the first is shown, although the matrix draws its custom grid then: that is wanted. What
    // is below all presets shows none.
    const long preset = stored > kCustomPreset ? 0 : std::max(stored, ui::kNoSegment);
    const bool second = preset >= kSecondControlStart;
    AddLabel(container, {{kSettingsMargin, y}, {kSettingsRowWidth, 20}}, row.title, ui::Font::systemFontOfSize(14),
             ui::Color::labelColor());
    y += 28;
    AddSegments(container, y, kFirstControlTag, {"4"_ns, "12"_ns, "16"_ns, "20"_ns, "25"_ns},
                second ? ui::kNoSegment : preset);
    y += 38;
    AddSegments(container, y, kSecondControlTag, {"36"_ns, "42"_ns, "48"_ns, u"自定义"_ns},
                second ? preset - kSecondControlStart : ui::kNoSegment);
    y += 42;
    if (stored == kCustomPreset) {
        AddCustomBlock(container, y);
    }
}

void HandleGridChoice(objc::Class, objc::SEL, ui::SegmentedControl control) {
    const ui::View row = control.superview();
    const auto first = objc::As<ui::SegmentedControl>(row.viewWithTag(kFirstControlTag));
    const auto second = objc::As<ui::SegmentedControl>(row.viewWithTag(kSecondControlTag));
    long preset = 0;
    if (control.tag() == kFirstControlTag) {
        second.setSelectedSegmentIndex(ui::kNoSegment);
        preset = first.selectedSegmentIndex();
    } else {
        first.setSelectedSegmentIndex(ui::kNoSegment);
        preset = second.selectedSegmentIndex() + kSecondControlStart;
    }
    const auto store = ns::UserDefaults::standardUserDefaults();
    store.setInteger(preset, keys::GridPresetIndex());
    store.synchronize();
    LayoutMatrix();
    RebuildSettingsPanel(); // the custom block comes or goes
}

void HandleGridField(objc::Class, objc::SEL, ui::TextField field) {
    const auto key = objc::GetAssociated<ns::String>(field, kRowPreferenceKey);
    if (!key) {
        return;
    }
    const long number = std::clamp(field.text().integerValue(), 1L, 12L);
    ShowNumber(field, number);
    const auto store = ns::UserDefaults::standardUserDefaults();
    store.setInteger(number, key);
    store.synchronize();
    if (ReadIntegerPreference(keys::GridPresetIndex()) == kCustomPreset) {
        LayoutMatrix();
    }
}

} // namespace corvel
