#include "matrix/cell.hpp"

#include "apple/uikit/text_measuring.hpp"
#include "matrix/colors.hpp"
#include "matrix/matrix_look.hpp"
#include "matrix/slots.hpp"
#include "matrix/title_fitting.hpp"
#include "overlay/recognizers.hpp"
#include "preferences/preferences.hpp"

#include <limits>

namespace corvel {
namespace {

/// The tag of the dot that tells a shortened title.
constexpr long kMarkerTag = 8888;

void AddMarker(ui::View cell) {
    const auto marker = ui::MakeView<ui::View>({{0, 0}, {6, 6}});
    marker->setBackgroundColor(ui::Color::redColor());
    marker->layer().setCornerRadius(3);
    marker->setTag(kMarkerTag);
    marker->setHidden(true);
    cell.addSubview(marker);
}

/// Fits a text into a box of points: wrapped to its width, no higher than it.
TitleFit Fit(ns::String text, cg::Size box, ns::Dictionary attributes) {
    return FitTitle(text, [&](unsigned long length) {
        const ns::String prefix = length < text.length() ? text.substringToIndex(length) : text;
        constexpr double kUnlimited = std::numeric_limits<double>::max();
        const cg::Rect bounds =
            ui::BoundingRect(prefix, {box.width, kUnlimited},
                             NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingUsesFontLeading, attributes);
        return bounds.size.height <= box.height;
    });
}

/// Whether the cell shows this text already, fitted to this size and font: measuring is what a layout costs.
bool IsFitted(ui::Button cell, ns::String text, cg::Size size, ui::Font font) {
    const auto shown = objc::GetAssociated<ns::String>(cell, kFullText);
    return shown && cell.bounds().size == size && cell.titleLabel().font().pointSize() == font.pointSize() &&
           shown.isEqualToString(text);
}

} // namespace

CellStyle::CellStyle(double scale)
    : background_(ColorFromHex(kButtonBackgroundColor.Read(), kCellBackgroundAlpha)),
      titleColor_(ColorFromHex(kButtonTextColor.Read(), kCellTextAlpha)),
      titleFont_(ui::Font::systemFontOfSize(scale * kFontSize.Read())),
      attributes_(ns::Dictionary::dictionaryWithObject(titleFont_.get(), NSFontAttributeName)) {}

ui::Button AddCell(ui::View container, int index) {
    const auto cell = ui::Button::buttonWithType(UIButtonTypeCustom);
    cell.setTag(kCellTagBase + index);
    cell.layer().setCornerRadius(kCellCornerRadius);
    const ui::Label title = cell.titleLabel();
    title.setNumberOfLines(0);
    title.setLineBreakMode(NSLineBreakByWordWrapping);
    title.setTextAlignment(NSTextAlignmentCenter);
    cell.setContentHorizontalAlignment(UIControlContentHorizontalAlignmentCenter);
    cell.setContentVerticalAlignment(UIControlContentVerticalAlignmentCenter);
    cell.addTarget(ActionTarget(), objc::Selector<"dm_mT:">(), UIControlEventTouchUpInside);
    AddRecognizer<ui::LongPressGestureRecognizer>(cell, objc::Selector<"dm_mL:">());
    AddMarker(cell);
    container.addSubview(cell);
    return cell;
}

void UpdateCell(ui::Button cell, int index, const GridGeometry &geometry, const CellStyle &style) {
    const objc::Ref<ns::String> text = SlotDisplayText(index);
    const bool fitted = IsFitted(cell, text, geometry.cellSize(), style.titleFont());
    cell.setHidden(false);
    cell.setFrame(geometry.CellFrame(index));
    cell.setBackgroundColor(style.background());
    cell.setTitleColor(style.titleColor(), UIControlStateNormal);
    cell.titleLabel().setFont(style.titleFont());
    if (fitted) {
        return;
    }
    objc::SetAssociated(cell, kFullText, text);
    // The title carries no mark of its own where it is cut: the dot alone tells it.
    const TitleFit fit = Fit(text, geometry.TitleBox(), style.attributes());
    cell.setTitle(fit.length < text->length() ? text->substringToIndex(fit.length) : text.get(), UIControlStateNormal);
    const ui::View marker = cell.viewWithTag(kMarkerTag);
    marker.setFrame(geometry.MarkerFrame());
    marker.setHidden(!fit.shortened);
}

} // namespace corvel
