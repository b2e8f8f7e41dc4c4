#include "settings/grid_rows.hpp"

#include "apple/uikit/scroll_view.hpp"
#include "matrix/matrix_panel.hpp"
#include "overlay/action_target.hpp"
#include "overlay/done_bar.hpp"
#include "overlay/panel.hpp"
#include "settings/settings_panel.hpp"
#include "settings/settings_rows.hpp"

#include <algorithm>

namespace corvel {
namespace {

constexpr long kFirstControlTag = 7301;
constexpr long kSecondControlTag = 7302;
constexpr long kCustomBlockTag = 7310;

/// The preset that the second control begins with.
constexpr long kSecondControlStart = 5;
constexpr long kCustomPreset = kGridPresetIndex.most();

struct FieldRow {
    ns::Literal placeholder;
    const IntegerPreference &preference;
    double x; // points
};
constexpr FieldRow kFields[] = {
    {u"列数"_literal, kGridCustomColumns, 20},
    {u"行数"_literal, kGridCustomRows, 155},
};

template <std::size_t N> void AddSegments(Column &column, long tag, const ns::String (&titles)[N], long selected) {
    const auto items = ns::New<ns::MutableArray>();
    for (const ns::String title : titles) {
        items->addObject(title);
    }
    const auto control =
        objc::Ref<ui::SegmentedControl>::Adopt(ns::Alloc<ui::SegmentedControl>().initWithItems(items.get()));
    control->setFrame({{kSettingsMargin, column.y}, {kSettingsRowWidth, 30}});
    control->setTag(tag);
    control->setTitleTextAttributes(
        ns::Dictionary::dictionaryWithObject(ui::Font::systemFontOfSize(11), NSFontAttributeName),
        UIControlStateNormal);
    control->setSelectedSegmentIndex(selected);
    control->addTarget(ActionTarget(), objc::Selector<"dm_gc:">(), UIControlEventValueChanged);
    column.container.addSubview(control);
}

void ShowNumber(ui::TextField field, long number) {
    const objc::ArgumentSlot arguments[] = {static_cast<objc::ArgumentSlot>(number)};
    field.setText(ns::Formatted("%ld"_ns, arguments));
}

void AddField(ui::View block, const FieldRow &row) {
    const auto field = ui::MakeView<ui::TextField>({{row.x, 26}, {125, 34}});
    field->setPlaceholder(row.placeholder);
    ShowNumber(field, row.preference.Read());
    objc::As<ui::TextInputTraits>(field.get()).setKeyboardType(UIKeyboardTypeNumberPad);
    // The number pad has no key that ends editing.
    field->setInputAccessoryView(MakeDoneBar(objc::Selector<"dm_gd">()).toolbar);
    field->setBorderStyle(UITextBorderStyleRoundedRect);
    objc::SetAssociated(field, kRowPreferenceKey, row.preference.key());
    field->addTarget(ActionTarget(), objc::Selector<"dm_gb:">(), UIControlEventEditingDidBegin);
    field->addTarget(ActionTarget(), objc::Selector<"dm_gi:">(), UIControlEventEditingDidEnd);
    block.addSubview(field);
}

void AddCustomBlock(Column &column) {
    const auto block = ui::MakeView<ui::View>({{0, column.y}, {kSettingsWidth, 60}});
    block->setTag(kCustomBlockTag);
    AddLabel(block, {{kSettingsMargin, 0}, {kSettingsRowWidth, 20}}, u"自定义行列(1~12)"_ns,
             ui::Font::systemFontOfSize(12), ui::Color::secondaryLabelColor());
    for (const FieldRow &row : kFields) {
        AddField(block, row);
    }
    column.container.addSubview(block);
    column.y += 70;
}

} // namespace

void AddGridRows(Column &column) {
    const long stored = kGridPresetIndex.Read();
    // Beyond the last preset the first is shown, although the matrix draws its custom grid then: that is wanted. What
    // is below all presets shows none.
    const long preset = stored > kCustomPreset ? 0 : std::max(stored, UISegmentedControlNoSegment);
    const bool second = preset >= kSecondControlStart;
    AddLabel(column.container, {{kSettingsMargin, column.y}, {kSettingsRowWidth, 20}}, u"矩阵规模"_ns,
             ui::Font::systemFontOfSize(14), ui::Color::labelColor());
    column.y += 28;
    AddSegments(column, kFirstControlTag, {"4"_ns, "12"_ns, "16"_ns, "20"_ns, "25"_ns},
                second ? UISegmentedControlNoSegment : preset);
    column.y += 38;
    AddSegments(column, kSecondControlTag, {"36"_ns, "42"_ns, "48"_ns, u"自定义"_ns},
                second ? preset - kSecondControlStart : UISegmentedControlNoSegment);
    column.y += 42;
    if (stored == kCustomPreset) {
        AddCustomBlock(column);
    }
}

void HandleGridChoice(objc::Class, objc::SEL, ui::SegmentedControl control) {
    const ui::View row = control.superview();
    const auto first = objc::As<ui::SegmentedControl>(row.viewWithTag(kFirstControlTag));
    const auto second = objc::As<ui::SegmentedControl>(row.viewWithTag(kSecondControlTag));
    long preset = 0;
    if (control.tag() == kFirstControlTag) {
        second.setSelectedSegmentIndex(UISegmentedControlNoSegment);
        preset = first.selectedSegmentIndex();
    } else {
        first.setSelectedSegmentIndex(UISegmentedControlNoSegment);
        preset = second.selectedSegmentIndex() + kSecondControlStart;
    }
    kGridPresetIndex.Write(preset);
    LayoutMatrix();
    RebuildSettingsPanel(); // the custom block comes or goes
}

void HandleGridFieldBegan(objc::Class, objc::SEL, ui::TextField field) {
    const ui::View block = field.superview();
    const auto scrollView = objc::As<ui::ScrollView>(SettingsPanel().content());
    scrollView.setContentOffset({0, block.superview().frame().origin.y + block.frame().origin.y});
}

void HandleGridField(objc::Class, objc::SEL, ui::TextField field) {
    const FieldRow *row = RowOf(kFields, field);
    if (row == nullptr) {
        return;
    }
    const long number = row->preference.Clamped(field.text().integerValue());
    ShowNumber(field, number);
    row->preference.Write(number);
    if (kGridPresetIndex.Read() == kCustomPreset) {
        LayoutMatrix();
    }
}

void HandleGridDone(objc::Class, objc::SEL) {
    SettingsPanel().view().endEditing(true);
}

void HandleTapBesideFields(objc::Class, objc::SEL, ui::GestureRecognizer recognizer) {
    const ui::View panel = recognizer.view();
    const ui::View touched = panel.hitTest(recognizer.locationInView(panel), nullptr);
    if (!touched.Is<ui::TextField>()) {
        panel.endEditing(true);
    }
}

} // namespace corvel
