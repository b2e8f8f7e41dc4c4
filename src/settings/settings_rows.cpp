#include "settings/settings_rows.hpp"

#include "matrix/colors.hpp"
#include "matrix/matrix_panel.hpp"
#include "overlay/action_target.hpp"
#include "settings/color_components.hpp"

namespace corvel {
namespace {

/// Makes a control edit the preference and adds it.
void AddControl(ui::View container, ui::Control control, const Preference &preference, objc::SEL action) {
    objc::SetAssociated(control, kRowPreferenceKey, preference.key());
    control.addTarget(ActionTarget(), action, UIControlEventValueChanged);
    container.addSubview(control);
}

} // namespace

void AddRow(Column &column, const SwitchRow &row) {
    AddLabel(column.container, {{kSettingsMargin, column.y}, {200, 30}}, row.title, ui::Font::systemFontOfSize(14),
             ui::Color::labelColor());
    const auto control = ui::MakeView<ui::Switch>({{230, column.y}, {50, 30}});
    control->setOn(row.preference.Read());
    AddControl(column.container, control.get(), row.preference, objc::Selector<"dm_sw:">());
    column.y += 45;
}

void AddRow(Column &column, const SliderRow &row) {
    AddLabel(column.container, {{kSettingsMargin, column.y}, {kSettingsRowWidth, 20}}, row.title,
             ui::Font::systemFontOfSize(12), ui::Color::secondaryLabelColor());
    column.y += 22;
    const auto slider = ui::MakeView<ui::Slider>({{kSettingsMargin, column.y}, {kSettingsRowWidth, 20}});
    const Range range = row.preference.slider();
    slider->setMinimumValue(static_cast<float>(range.least));
    slider->setMaximumValue(static_cast<float>(range.most));
    slider->setValue(static_cast<float>(row.preference.ReadForSlider()));
    AddControl(column.container, slider.get(), row.preference, objc::Selector<"dm_sl:">());
    column.y += 35;
}

void AddRow(Column &column, const ColorRow &row) {
    AddLabel(column.container, {{kSettingsMargin, column.y}, {150, 30}}, row.title, ui::Font::systemFontOfSize(14),
             ui::Color::labelColor());
    // With nothing stored all three show the colour of the cells, whatever the matrix uses then: that is wanted.
    const ui::Color color =
        ColorFromHex(ReadStringPreference(row.preference.key(), kButtonBackgroundColor.fallback()), 1.0);
    // The user's colour may be any: the title takes the one of the two that stands out from it.
    const ui::Color titleColor = IsBright(color) ? ui::Color::blackColor() : ui::Color::whiteColor();
    const auto button = AddSystemButton(column.container, {{180, column.y}, {100, 30}}, u"选择"_ns, titleColor,
                                        objc::Selector<"dm_clr:">());
    button.setBackgroundColor(color);
    button.layer().setCornerRadius(6);
    button.layer().setBorderWidth(1);
    button.layer().setBorderColor(ui::Color::grayColor().CGColor());
    objc::SetAssociated(button, kRowPreferenceKey, row.preference.key());
    column.y += 40;
}

void HandleSwitchChange(objc::Class, objc::SEL, ui::Switch control) {
    const SwitchRow *row = RowOf(kFixedSwitches, control);
    row = row != nullptr ? row : RowOf(kLatencySwitches, control);
    if (row == nullptr) {
        return;
    }
    row->preference.Write(control.isOn());
    if (row->changed != nullptr) {
        row->changed();
    }
}

void HandleSliderChange(objc::Class, objc::SEL, ui::Slider slider) {
    if (const SliderRow *row = RowOf(kSliders, slider)) {
        row->preference.Write(slider.value());
        LayoutMatrix();
    }
}

} // namespace corvel
