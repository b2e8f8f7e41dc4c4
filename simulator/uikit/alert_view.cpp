#include "uikit/alert_view.hpp"

#include "apple/uikit/button.hpp"
#include "apple/uikit/effects.hpp"
#include "apple/uikit/scroll_view.hpp"
#include "runtime/native_class.hpp"
#include "uikit/alert_controller.hpp"
#include "uikit/classes.hpp"
#include "uikit/color.hpp"
#include "uikit/control.hpp"
#include "uikit/drawing.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace sim {
namespace {

using ui::AlertAction;

constexpr double kCardWidth = 270;
constexpr double kCardRadius = 14;
constexpr double kSideMargin = 16;
constexpr double kTopMargin = 20;
constexpr double kTextGap = 4;
constexpr double kButtonHeight = 44;
constexpr double kButtonSize = 17;
constexpr double kTitleSize = 17;
constexpr double kMessageSize = 13;
constexpr double kHairline = 0.5;
/// Free space (points) above and below the card.
constexpr double kFree = 60;
/// The least height (points) that the texts keep, however many buttons there are.
constexpr double kLeastText = 66;
constexpr double kLightDimming = 0.2;
constexpr double kDarkDimming = 0.48;

struct AlertView : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "_UIAlertControllerView";
};

struct ActionView : ui::Button {
    using ui::Button::Button;
    static constexpr const char *kClassName = "_UIAlertControllerActionView";
};

struct AlertViewState {
    ui::AlertController alert; // not owned: it owns this view
    objc::Ref<ui::VisualEffectView> card;
    objc::Ref<ui::ScrollView> texts;
    objc::Ref<ui::Label> title;
    objc::Ref<ui::Label> message;
    std::vector<objc::Ref<ActionView>> buttons;
    std::vector<objc::Ref<ui::View>> lines;
};

struct ActionViewState {
    objc::Ref<AlertAction> action;
    ui::View alertView; // not owned: it owns this view
};

objc::Ref<ui::Label> MakeText(ui::Font font) {
    auto label = ns::New<ui::Label>();
    label->setFont(font);
    label->setTextAlignment(NSTextAlignmentCenter);
    label->setNumberOfLines(0);
    return label;
}

void Build(AlertView self) {
    auto &state = StateOf<AlertViewState>(self);
    state.card = objc::Ref<ui::VisualEffectView>::Adopt(ns::Alloc<ui::VisualEffectView>().initWithEffect(
        ui::BlurEffect::effectWithStyle(UIBlurEffectStyleSystemChromeMaterial)));
    state.card->layer().setCornerRadius(kCardRadius);
    LayerStateOf(state.card->layer()).corners = Corners::kContinuous;
    state.card->setClipsToBounds(true);
    state.texts = ns::New<ui::ScrollView>();
    state.title = MakeText(ui::Font::boldSystemFontOfSize(kTitleSize));
    state.message = MakeText(ui::Font::systemFontOfSize(kMessageSize));
    state.texts->addSubview(state.title);
    state.texts->addSubview(state.message);
    state.card->contentView().addSubview(state.texts);
    self.addSubview(state.card);
}

bool IsBold(ui::AlertController alert, AlertAction action) {
    const AlertAction preferred = AlertStateOf(alert).preferred;
    return preferred ? action == preferred : AlertActionStateOf(action).style == UIAlertActionStyleCancel;
}

void AddButton(ui::View view, ui::AlertController alert, AlertAction action) {
    auto &state = StateOf<AlertViewState>(view);
    const auto button = objc::SendClass<ActionView, "buttonWithType:", ActionView>(UIButtonTypeCustom);
    StateOf<ActionViewState>(button) = {action, view};
    AlertActionStateOf(action).view = view;
    button.setTitle(AlertActionStateOf(action).title, UIControlStateNormal);
    button.titleLabel().setFont(IsBold(alert, action) ? ui::Font::boldSystemFontOfSize(kButtonSize)
                                                      : ui::Font::systemFontOfSize(kButtonSize));
    button.addTarget(button, objc::Selector<"_pressed:">(), UIControlEventTouchUpInside);
    state.card->contentView().addSubview(button);
    state.buttons.emplace_back(button);
}

void ShowState(ActionView button) {
    const AlertActionState &action = AlertActionStateOf(StateOf<ActionViewState>(button).action);
    const ui::Color color = !action.enabled                                 ? ui::Color::systemGrayColor()
                            : action.style == UIAlertActionStyleDestructive ? ui::Color::systemRedColor()
                                                                            : ui::Color::systemBlueColor();
    button.setTitleColor(color, UIControlStateNormal);
    objc::Send<"setEnabled:", void>(ui::Control{button}, action.enabled);
}

// Layout.

double PlaceText(ui::Label label, double y, double width) {
    const double height = label.text().length() > 0 ? label.sizeThatFits({width, 0}).height : 0;
    label.setFrame({{kSideMargin, y}, {width, height}});
    return height;
}

/// Places title and message; the result is the height of both with their margins.
double PlaceTexts(const AlertViewState &state) {
    const double width = kCardWidth - 2 * kSideMargin;
    double y = kTopMargin;
    const double title = PlaceText(state.title, y, width);
    y += title > 0 ? title + kTextGap : 0;
    y += PlaceText(state.message, y, width);
    return y + kTopMargin;
}

bool FitInOneRow(const AlertViewState &state) {
    return state.buttons.size() == 2 && std::ranges::all_of(state.buttons, [](const objc::Ref<ActionView> &button) {
               return button->sizeThatFits({}).width <= kCardWidth / 2 - kSideMargin;
           });
}

/// The buttons in the order in which they are shown: in a row the cancelling one comes first, in a column last.
std::vector<ActionView> InOrder(const AlertViewState &state, bool row) {
    std::vector<ActionView> order(state.buttons.begin(), state.buttons.end());
    const auto cancelling = std::ranges::find_if(order, [](ActionView button) {
        return AlertActionStateOf(StateOf<ActionViewState>(button).action).style == UIAlertActionStyleCancel;
    });
    if (cancelling != order.end()) {
        const ActionView button = *cancelling;
        order.erase(cancelling);
        order.insert(row ? order.begin() : order.end(), button);
    }
    return order;
}

void AddLine(AlertViewState &state, cg::Rect frame) {
    const auto line = ui::MakeView<ui::View>(frame);
    line->setBackgroundColor(ui::Color::separatorColor());
    state.card->contentView().addSubview(line);
    state.lines.push_back(line);
}

void PlaceButtons(AlertViewState &state, double top, bool row) {
    for (const objc::Ref<ui::View> &line : state.lines) {
        line->removeFromSuperview();
    }
    state.lines.clear();
    const double width = row ? kCardWidth / 2 : kCardWidth;
    cg::Point place{0, top};
    for (const ActionView button : InOrder(state, row)) {
        ShowState(button);
        button.setFrame({place, {width, kButtonHeight}});
        if (place.x > 0) {
            AddLine(state, {{place.x, place.y}, {kHairline, kButtonHeight}});
        } else {
            AddLine(state, {place, {kCardWidth, kHairline}});
        }
        place = row ? cg::Point{place.x + width, place.y} : cg::Point{0, place.y + kButtonHeight};
    }
}

void LayoutCard(AlertView self) {
    auto &state = StateOf<AlertViewState>(self);
    const cg::Size size = self.bounds().size;
    const bool row = FitInOneRow(state);
    const double rows = state.buttons.empty() ? 0 : row ? 1 : static_cast<double>(state.buttons.size());
    const double buttons = rows * kButtonHeight;
    const double whole = PlaceTexts(state);
    const double texts = std::min(whole, std::max(size.height - 2 * kFree - buttons, kLeastText));
    const cg::Size card{kCardWidth, texts + buttons};
    state.card->setFrame({{(size.width - card.width) / 2, (size.height - card.height) / 2}, card});
    state.texts->setFrame({{}, {kCardWidth, texts}});
    state.texts->setContentSize({kCardWidth, whole});
    PlaceButtons(state, texts, row);
}

void DrawDimming(ui::View view, cairo_t *context) {
    const cg::Size size = PresentedValues(view).bounds.size;
    cairo_set_source_rgba(context, 0, 0, 0, IsDarkAppearance() ? kDarkDimming : kLightDimming);
    cairo_rectangle(context, 0, 0, size.width, size.height);
    cairo_fill(context);
}

/// A button under a finger is shaded as a whole, its title stays.
void DrawAction(ui::View view, cairo_t *context) {
    if (ControlStateOf(objc::As<ui::Control>(view)).highlighted) {
        SetPaint(context, IsDarkAppearance() ? Rgba{1, 1, 1, 0.1} : Rgba{0, 0, 0, 0.08});
        FillRounded(context, {{0, 0}, PresentedValues(view).bounds.size}, 0);
    }
}

} // namespace

void DefineAlertView() {
    auto button = Class<ActionViewState>(ActionView::kClassName, "UIButton");
    button.Method<"_pressed:">([](const ActionViewState &state, ActionView) {
        if (const ui::AlertController alert = StateOf<AlertViewState>(state.alertView).alert) {
            ChooseAlertAction(alert, state.action);
        }
    });

    auto view = Class<AlertViewState>(AlertView::kClassName, "UIView");
    view.Method<"layoutSubviews", &LayoutCard>();
    RegisterDrawing(AlertView::kClassName, &DrawDimming);
    RegisterDrawing(ActionView::kClassName, &DrawAction);
}

objc::Ref<ui::View> MakeAlertView() {
    const auto view = ns::New<AlertView>();
    Build(view);
    return {view.get()};
}

void FillAlertView(ui::View view, ui::AlertController alert) {
    auto &state = StateOf<AlertViewState>(view);
    state.alert = alert;
    state.title->setText(objc::Send<"title", ns::String>(alert));
    state.message->setText(AlertStateOf(alert).message);
    for (const objc::Ref<ActionView> &button : state.buttons) {
        button->removeFromSuperview();
    }
    state.buttons.clear();
    for (const objc::Ref<AlertAction> &action : AlertStateOf(alert).actions) {
        AddButton(view, alert, action);
    }
    SetNeedsLayout(view);
}

void ForgetAlert(ui::View view) {
    StateOf<AlertViewState>(view).alert = nullptr;
}

} // namespace sim
