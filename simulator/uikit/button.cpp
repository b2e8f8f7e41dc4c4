// UIButton: a title that depends on the control's state, in a label of its own.

#include "runtime/native_class.hpp"
#include "uikit/animation.hpp"
#include "uikit/classes.hpp"
#include "uikit/control.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <map>

namespace sim {
namespace {

using ui::Button;

constexpr double kCustomFontSize = 18;
constexpr double kSystemFontSize = 15;
/// What a finger on a system button leaves of its title, and how long (seconds) that takes to come back. Custom buttons
/// change by their own titles and colours only.
constexpr double kPressedAlpha = 0.2;
constexpr double kReturnTime = 0.25;

struct ButtonState {
    UIButtonType type = UIButtonTypeCustom;
    std::map<UIControlState, objc::Ref<ns::String>> titles;
    std::map<UIControlState, objc::Ref<ui::Color>> titleColors;
    objc::Ref<ui::Label> label; // made when first needed
    bool faded = false;         // while a finger is on a system button
    ui::EdgeInsets titleInsets;
    ui::EdgeInsets contentInsets;
};

ui::Color ColorFor(const ButtonState &button, UIControlState state) {
    if (const ui::Color color = ForState(button.titleColors, state)) {
        return color;
    }
    return button.type == UIButtonTypeCustom ? ui::Color::whiteColor() : ui::Color::systemBlueColor();
}

UIControlState PresentState(Button self) {
    return objc::Send<"state", UIControlState>(self);
}

/// Brings the label in line with the present state.
void UpdateLabel(Button self) {
    const auto &button = StateOf<ButtonState>(self);
    button.label->setText(ForState(button.titles, PresentState(self)));
    button.label->setTextColor(ColorFor(button, PresentState(self)));
    SetNeedsLayout(self);
}

ui::Label TitleLabel(Button self) {
    auto &button = StateOf<ButtonState>(self);
    if (!button.label) {
        button.label = ns::New<ui::Label>();
        const double size = button.type == UIButtonTypeCustom ? kCustomFontSize : kSystemFontSize;
        button.label->setFont(ui::Font::systemFontOfSize(size));
        button.label->setLineBreakMode(NSLineBreakByTruncatingMiddle);
        self.addSubview(button.label);
        UpdateLabel(self);
    }
    return button.label;
}

void DefineTitle(Class<ButtonState> &button) {
    button.Method<"titleLabel", &TitleLabel>();
    button.Method<"titleForState:">(
        [](const ButtonState &self, UIControlState state) { return ForState(self.titles, state); });
    button.Method<"setTitle:forState:">([](Button self, ns::String title, UIControlState state) {
        if (title) {
            StateOf<ButtonState>(self).titles[state] = CopyOf(title);
            self.titleLabel();
        } else {
            StateOf<ButtonState>(self).titles.erase(state);
        }
        UpdateLabel(self);
    });
    button.Method<"currentTitle">(
        [](Button self) { return ForState(StateOf<ButtonState>(self).titles, PresentState(self)); });
    button.Method<"titleColorForState:", &ColorFor>();
    button.Method<"setTitleColor:forState:">([](Button self, ui::Color color, UIControlState state) {
        if (color) {
            StateOf<ButtonState>(self).titleColors[state] = color;
        } else {
            StateOf<ButtonState>(self).titleColors.erase(state);
        }
        UpdateLabel(self);
    });
    button.Method<"currentTitleColor">(
        [](Button self) { return ColorFor(StateOf<ButtonState>(self), PresentState(self)); });
}

void FadeTitle(Button self, bool fades) {
    auto &button = StateOf<ButtonState>(self);
    if (button.type == UIButtonTypeCustom || button.faded == fades || !button.label) {
        return;
    }
    button.faded = fades;
    if (fades) {
        WithoutAnimation([&] { button.label->setAlpha(kPressedAlpha); });
    } else {
        Animate({.duration = kReturnTime, .options = UIViewAnimationOptionAllowUserInteraction},
                [&] { button.label->setAlpha(1); }, {});
    }
}

/// The states that the title depends on.
void DefineStates(Class<ButtonState> &button) {
    button.Method<"setHighlighted:">([](Button self, bool highlighted) {
        objc::SendSuper<"setHighlighted:", void>(ui::Control{self}, highlighted);
        UpdateLabel(self);
        FadeTitle(self, highlighted);
    });
    button.Method<"setEnabled:">([](Button self, bool enabled) {
        objc::SendSuper<"setEnabled:", void>(ui::Control{self}, enabled);
        UpdateLabel(self);
    });
    button.Method<"setSelected:">([](Button self, bool selected) {
        objc::SendSuper<"setSelected:", void>(ui::Control{self}, selected);
        UpdateLabel(self);
    });
}

// Layout.

cg::Rect Inset(cg::Rect rect, ui::EdgeInsets by) {
    return {
        {rect.origin.x + by.left, rect.origin.y + by.top},
        {std::max(rect.size.width - by.left - by.right, 0.0), std::max(rect.size.height - by.top - by.bottom, 0.0)}};
}

/// Where a length starts within a room: in its middle, at its start or at its end; `fill` takes the whole room.
struct Placement {
    double start;
    double length;
};

enum class Alignment { kCenter, kStart, kEnd, kFill };

Placement Place(double room, double length, Alignment alignment) {
    const double rest = room - std::min(length, room);
    switch (alignment) {
    case Alignment::kStart:
        return {0, room - rest};
    case Alignment::kEnd:
        return {rest, room - rest};
    case Alignment::kFill:
        return {0, room};
    default:
        return {rest / 2, room - rest};
    }
}

Alignment AlignmentOf(UIControlContentHorizontalAlignment alignment) {
    switch (alignment) {
    case UIControlContentHorizontalAlignmentLeft:
    case UIControlContentHorizontalAlignmentLeading:
        return Alignment::kStart;
    case UIControlContentHorizontalAlignmentRight:
    case UIControlContentHorizontalAlignmentTrailing:
        return Alignment::kEnd;
    case UIControlContentHorizontalAlignmentFill:
        return Alignment::kFill;
    default:
        return Alignment::kCenter;
    }
}

Alignment AlignmentOf(UIControlContentVerticalAlignment alignment) {
    switch (alignment) {
    case UIControlContentVerticalAlignmentTop:
        return Alignment::kStart;
    case UIControlContentVerticalAlignmentBottom:
        return Alignment::kEnd;
    case UIControlContentVerticalAlignmentFill:
        return Alignment::kFill;
    default:
        return Alignment::kCenter;
    }
}

cg::Rect TitleRect(Button self, cg::Rect content) {
    const auto &state = StateOf<ButtonState>(self);
    const cg::Rect room = Inset(content, state.titleInsets);
    const cg::Size fitted = state.label->sizeThatFits(room.size);
    const ControlState &control = ControlStateOf(self);
    const Placement across = Place(room.size.width, fitted.width, AlignmentOf(control.horizontalAlignment));
    const Placement down = Place(room.size.height, fitted.height, AlignmentOf(control.verticalAlignment));
    return {{room.origin.x + across.start, room.origin.y + down.start}, {across.length, down.length}};
}

void DefineLayout(Class<ButtonState> &button) {
    button.Property<"titleEdgeInsets", &ButtonState::titleInsets, &SetNeedsLayout>();
    button.Property<"contentEdgeInsets", &ButtonState::contentInsets, &SetNeedsLayout>();
    button.Method<"contentRectForBounds:">(
        [](const ButtonState &state, cg::Rect bounds) { return Inset(bounds, state.contentInsets); });
    button.Method<"titleRectForContentRect:", &TitleRect>();
    button.Method<"layoutSubviews">([](Button self) {
        if (const ui::Label label = StateOf<ButtonState>(self).label) {
            const auto content = objc::Send<"contentRectForBounds:", cg::Rect>(self, self.bounds());
            label.setFrame(objc::Send<"titleRectForContentRect:", cg::Rect>(self, content));
        }
    });
    button.Method<"sizeThatFits:">([](const ButtonState &state, cg::Size size) -> cg::Size {
        const cg::Size fitted = state.label->sizeThatFits(size);
        const ui::EdgeInsets by = state.contentInsets;
        return {fitted.width + by.left + by.right, fitted.height + by.top + by.bottom};
    });
}

} // namespace

void DefineButton() {
    auto button = Class<ButtonState>("UIButton", "UIControl");
    button.ClassMethod<"buttonWithType:">([](Button self, UIButtonType type) {
        // By the receiver, for a subclass makes its own kind.
        const auto made =
            objc::Ref<Button>::Adopt(objc::As<Button>(objc::Send<"alloc", Button>(self).initWithFrame({})));
        StateOf<ButtonState>(made).type = type;
        return made;
    });
    button.ReadOnly<"buttonType", &ButtonState::type>();
    DefineTitle(button);
    DefineStates(button);
    DefineLayout(button);
    button.Method<"gestureRecognizerShouldBegin:", &TapControlAllows>();
}

} // namespace sim
