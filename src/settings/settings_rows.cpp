#include "settings/settings_rows.hpp"

#include "apple/uikit/slider.hpp"
#include "apple/uikit/switch.hpp"
#include "matrix/colors.hpp"
#include "overlay/action_target.hpp"
#include "settings/color_components.hpp"
#include "settings/preferences.hpp"

namespace corvel {
namespace {

/// Makes a control edit the row's preference and adds it.
void AddControl(ui::View container, ui::Control control, const SettingsRow &row, objc::SEL action) {
    objc::SetAssociated(control, kRowPreferenceKey, row.key);
    control.addTarget(ActionTarget(), action, ui::kValueChanged);
    container.addSubview(control);
}

} // namespace

void AddSwitchRow(ui::View container, double &y, const SettingsRow &row) {
    AddLabel(container, {{kSettingsMargin, y}, {200, 30}}, row.title, ui::Font::systemFontOfSize(14),
             ui::Color::labelColor());
    const auto control = MakeView<ui::Switch>({{230, y}, {50, 30}});
    control->setOn(ReadBoolPreference(row.key));
    AddControl(container, control.get(), row, objc::Selector<"dm_sw:">());
    y += 45;
}

void AddSliderRow(ui::View container, double &y, const SettingsRow &row) {
    AddLabel(container, {{kSettingsMargin, y}, {kSettingsRowWidth, 20}}, row.title, ui::Font::systemFontOfSize(12),
             ui::Color::secondaryLabelColor());
    y += 22;
    const auto slider = MakeView<ui::Slider>({{kSettingsMargin, y}, {kSettingsRowWidth, 20}});
    slider->setMinimumValue(static_cast<float>(row.minimum));
    slider->setMaximumValue(static_cast<float>(row.maximum));
    // With nothing stored a slider stands in the middle, whatever the matrix uses then: that is wanted.
    slider->setValue(static_cast<float>(ReadFloatPreference(row.key, (row.minimum + row.maximum) / 2)));
    AddControl(container, slider.get(), row, objc::Selector<"dm_sl:">());
    y += 35;
}

void AddColorRow(ui::View container, double &y, const SettingsRow &row) {
    AddLabel(container, {{kSettingsMargin, y}, {150, 30}}, row.title, ui::Font::systemFontOfSize(14),
             ui::Color::labelColor());
    const ui::Color color = ReadColorPreference(row.key, "#333333"_ns, 1.0);
    // The user's colour may be any: the title takes the one of the two that stands out from it.
    const ui::Color titleColor = IsBright(color) ? ui::Color::blackColor() : ui::Color::whiteColor();
    const auto button =
        AddSystemButton(container, {{180, y}, {100, 30}}, u"选择"_ns, titleColor, objc::Selector<"dm_clr:">());
    button.setBackgroundColor(color);
    button.layer().setCornerRadius(6);
    button.layer().setBorderWidth(1);
    button.layer().setBorderColor(ui::Color::grayColor().CGColor());
    objc::SetAssociated(button, kRowPreferenceKey, row.key);
    y += 40;
}

ui::Button AddActionButton(ui::View container, double y, ns::String title, ui::Color background, objc::SEL action) {
    const auto button = AddSystemButton(container, {{kSettingsMargin, y}, {kSettingsRowWidth, 40}}, title,
                                        ui::Color::whiteColor(), action);
    button.setBackgroundColor(background);
    button.layer().setCornerRadius(8);
    return button;
}

} // namespace corvel
