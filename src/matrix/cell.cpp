#include "matrix/cell.hpp"

#include "apple/uikit/text_measuring.hpp"
#include "matrix/colors.hpp"
#include "matrix/matrix_look.hpp"
#include "matrix/slots.hpp"
#include "matrix/title_fitting.hpp"
#include "overlay/recognizers.hpp"
#include "preferences/preferences.hpp"

#include <algorithm>
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

/// How many UTF-16 units of a text are looked at for a title in a box. Units that take no room have no other end: marks
/// on one letter, joiners. Laying out a hundred thousand of them, which nobody can tell apart, would hold the app up.
unsigned long MostUnits(cg::Size box, double pointSize) {
    const double squares = std::max(box.width, 0.0) * std::max(box.height, 0.0) / (pointSize * pointSize);
    return kTitleUnitsAtLeast + static_cast<unsigned long>(squares * kTitleUnitsPerSquare);
}

/// Fits a text into a box of points: wrapped to its width, no higher than it.
TitleFit Fit(ns::String text, cg::Size box, const CellStyle &style) {
    const unsigned long most = MostUnits(box, style.titleFont().pointSize());
    const bool isCut = text.length() > most;
    const ns::String front = isCut ? text.substringToIndex(most) : text;
    double height = 0;
    const auto fits = [&](unsigned long length) {
        const ns::String prefix = length < front.length() ? front.substringToIndex(length) : front;
        constexpr double kUnlimited = std::numeric_limits<double>::max();
        height =
            ui::BoundingRect(prefix, {box.width, kUnlimited},
                             NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingUsesFontLeading, style.attributes())
                .size.height;
        return height <= box.height;
    };
    // As if all lines were full and equally high: as many lines as the box takes, of those that were measured.
    const auto guess = [&](unsigned long length) {
        const double lineHeight = style.titleFont().lineHeight();
        const double room = std::max(__builtin_floor(box.height / lineHeight), 0.0);
        const double units = static_cast<double>(length) * room / std::max(__builtin_round(height / lineHeight), 1.0);
        return std::max(static_cast<unsigned long>(units), 1UL);
    };
    const TitleFit fit = FitTitle(front, fits, guess);
    return {fit.length, fit.shortened || isCut};
}

/// Whether what the cell shows is fitted to this size and font: measuring is what a layout costs.
bool IsFitted(ui::Button cell, cg::Size size, ui::Font font) {
    return cell.bounds().size == size && cell.titleLabel().font().pointSize() == font.pointSize();
}

} // namespace

CellStyle::CellStyle(double scale)
    : background_(ColorFromHex(kButtonBackgroundColor.Read(), kCellBackgroundAlpha)),
      titleColor_(ColorFromHex(kButtonTextColor.Read(), kCellTextAlpha)),
      titleFont_(ui::Font::systemFontOfSize(scale * kFontSize.Read())),
      attributes_(ns::Dictionary::dictionaryWithObject(titleFont_.get(), NSFontAttributeName)) {}

bool operator==(const CellStyle &one, const CellStyle &other) {
    return one.background_->isEqual(other.background_) && one.titleColor_->isEqual(other.titleColor_) &&
           one.titleFont_->pointSize() == other.titleFont_->pointSize();
}

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

void UpdateCell(ui::Button cell, int index, const GridGeometry &geometry, const CellStyle &style, bool restyled) {
    const objc::Ref<ns::String> text = SlotDisplayText(index);
    const auto shown = objc::GetAssociated<ns::String>(cell, kFullText);
    const bool sameText = shown && shown.isEqualToString(text);
    if (sameText && !restyled) {
        return;
    }
    const bool fitted = sameText && IsFitted(cell, geometry.cellSize(), style.titleFont());
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
    const TitleFit fit = Fit(text, geometry.TitleBox(), style);
    cell.setTitle(fit.length < text->length() ? text->substringToIndex(fit.length) : text.get(), UIControlStateNormal);
    const ui::View marker = cell.viewWithTag(kMarkerTag);
    marker.setFrame(geometry.MarkerFrame());
    marker.setHidden(!fit.shortened);
}

} // namespace corvel
