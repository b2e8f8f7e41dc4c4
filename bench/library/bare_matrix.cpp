#include "bare_matrix.hpp"

#include "apple/uikit/feedback.hpp"
#include "apple/uikit/text_measuring.hpp"
#include "configuration.hpp"
#include "matrix/cell.hpp"
#include "overlay/recognizers.hpp"
#include "overlay/state.hpp"

#include <limits>

namespace bench {
namespace {

constexpr double kFontSize = 11;
constexpr long kMarkerTag = 8888;

/// What all cells share; made once in a layout.
struct Look {
    explicit Look(double scale)
        : font(ui::Font::systemFontOfSize(scale * kFontSize)),
          attributes(ns::Dictionary::dictionaryWithObject(font, NSFontAttributeName)),
          background(ui::Color::colorWithRed(0.2, 0.2, 0.2, 0.6)), titleColor(ui::Color::colorWithRed(1, 1, 1, 1)) {}

    ui::Font font;
    ns::Dictionary attributes;
    ui::Color background;
    ui::Color titleColor;
};

double Measure(ns::String text, cg::Size box, const Look &look) {
    constexpr double kUnlimited = std::numeric_limits<double>::max();
    return ui::BoundingRect(text, {box.width, kUnlimited},
                            NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingUsesFontLeading, look.attributes)
        .size.height;
}

void SetLook(ui::Button cell, int index, const MatrixModel &model, const Look &look) {
    cell.setHidden(false);
    cell.setFrame(model.geometry.CellFrame(index));
    cell.setBackgroundColor(look.background);
    cell.setTitleColor(look.titleColor, UIControlStateNormal);
    cell.titleLabel().setFont(look.font);
}

void SetText(ui::Button cell, ui::View marker, int index, const MatrixModel &model, const Look &look) {
    const ns::String text = model.texts[static_cast<std::size_t>(index)];
    const ns::String title = model.titles[static_cast<std::size_t>(index)];
    objc::SetAssociated(cell, corvel::kFullText, text);
    Measure(text, model.geometry.TitleBox(), look);
    cell.setTitle(title, UIControlStateNormal);
    marker.setFrame(model.geometry.MarkerFrame());
    marker.setHidden(title.length() == text.length());
}

ui::Button AddBareCell(ui::View container, int index, const MatrixModel &model, const Look &look) {
    const auto cell = ui::Button::buttonWithType(UIButtonTypeCustom);
    cell.setTag(corvel::kCellTagBase + index);
    cell.layer().setCornerRadius(8);
    const ui::Label title = cell.titleLabel();
    title.setNumberOfLines(0);
    title.setLineBreakMode(NSLineBreakByWordWrapping);
    title.setTextAlignment(NSTextAlignmentCenter);
    cell.setContentHorizontalAlignment(UIControlContentHorizontalAlignmentCenter);
    cell.setContentVerticalAlignment(UIControlContentVerticalAlignmentCenter);
    cell.addTarget(corvel::ActionTarget(), objc::Selector<"dm_mT:">(), UIControlEventTouchUpInside);
    corvel::AddRecognizer<ui::LongPressGestureRecognizer>(cell, objc::Selector<"dm_mL:">());
    const auto marker = ui::MakeView<ui::View>({{0, 0}, {6, 6}});
    marker->setBackgroundColor(ui::Color::redColor());
    marker->layer().setCornerRadius(3);
    marker->setTag(kMarkerTag);
    cell.addSubview(marker);
    container.addSubview(cell);
    SetLook(cell, index, model, look);
    SetText(cell, marker, index, model, look);
    return cell;
}

/// The longest prefix that fits, found the slow way.
objc::Ref<ns::String> TitleOf(ns::String text, cg::Size box, const Look &look) {
    unsigned long length = text.length() < 256 ? text.length() : 256;
    while (length > 1 && Measure(text.substringToIndex(length), box, look) > box.height) {
        --length;
    }
    return length == text.length() ? text : text.substringToIndex(length);
}

} // namespace

MatrixModel::MatrixModel(int columns, int rows, unsigned long units, double factor)
    : grid{columns, rows}, scale(factor), geometry(grid, scale) {
    const Look look(scale);
    for (int index = 0; index < grid.count(); ++index) {
        texts.push_back(SlotText(index, units));
        titles.push_back(TitleOf(texts.back(), geometry.TitleBox(), look));
    }
}

void SetBarePanel(ui::View panel, ui::View content, ui::Label title, const MatrixModel &model) {
    const auto effect = objc::As<ui::VisualEffectView>(panel);
    panel.setAlpha(0.9);
    corvel::Overlay().floatButton->setAlpha(1);
    effect.contentView().setBackgroundColor(ui::Color::colorWithRed(0, 0, 0, 0.5));
    panel.setFrame({panel.frame().origin, model.geometry.panelSize()});
    content.setFrame({{0, 0}, model.geometry.panelSize()});
    title.setFrame(model.geometry.TitleFrame());
    title.setTextColor(ui::Color::colorWithWhite(1, 0.6));
    title.setFont(ui::Font::boldSystemFontOfSize(13 * model.scale));
}

std::vector<ui::Button> AddBareCells(ui::View container, const MatrixModel &model) {
    const Look look(model.scale);
    std::vector<ui::Button> cells;
    for (int index = 0; index < model.grid.count(); ++index) {
        cells.push_back(AddBareCell(container, index, model, look));
    }
    return cells;
}

void SetBareCells(const std::vector<ui::Button> &cells, const MatrixModel &model) {
    const Look look(model.scale);
    for (int index = 0; index < model.grid.count(); ++index) {
        SetLook(cells[static_cast<std::size_t>(index)], index, model, look);
    }
}

objc::Ref<ui::VisualEffectView> OpenBareMatrix(const MatrixModel &model) {
    const auto haptic = objc::Ref<ui::ImpactFeedbackGenerator>::Adopt(
        ns::Alloc<ui::ImpactFeedbackGenerator>().initWithStyle(UIImpactFeedbackStyleMedium));
    haptic->prepare();
    haptic->impactOccurred();
    const auto panel = objc::Ref<ui::VisualEffectView>::Adopt(
        ns::Alloc<ui::VisualEffectView>().initWithEffect(ui::BlurEffect::effectWithStyle(UIBlurEffectStyleDark)));
    panel->setFrame({{50, 150}, {310, 350}});
    panel->layer().setCornerRadius(18);
    panel->setClipsToBounds(true);
    corvel::AddRecognizer<ui::PanGestureRecognizer>(panel, objc::Selector<"dm_pM:">());
    corvel::AddRecognizer<ui::TapGestureRecognizer>(panel, objc::Selector<"dm_bM">()).setCancelsTouchesInView(false);
    const auto content = ui::MakeView<ui::View>(panel->bounds());
    panel->contentView().addSubview(content);
    const auto title = ui::MakeView<ui::Label>({{0, 8}, {310, 20}});
    title->setTag(kTitleTag);
    title->setText("Corvel"_ns);
    title->setTextAlignment(NSTextAlignmentCenter);
    content->addSubview(title);
    const ui::Window window = corvel::Overlay().window;
    window.addSubview(panel);
    SetBarePanel(panel, content, title, model);
    AddBareCells(content, model);
    panel->setTransform(cg::AffineTransform::Scale(0.9, 0.9));
    panel->setAlpha(0);
    ui::View::animateWithDuration(0.25, 0, 0.7, 0.5, 0, objc::MakeBlock<void()>([=] {
                                      panel->setAlpha(0.9);
                                      panel->setTransform(cg::AffineTransform::Identity());
                                  }),
                                  nullptr);
    window.bringSubviewToFront(panel);
    window.bringSubviewToFront(corvel::Overlay().floatButton);
    return panel;
}

} // namespace bench
