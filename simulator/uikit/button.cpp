#include "uikit/button.hpp"

#include "apple/uikit/edge_insets.hpp"
#include "runtime/native_class.hpp"
#include "uikit/control.hpp"
#include "uikit/view.hpp"

#include <algorithm>
#include <map>

namespace sim {
namespace {

using ui::Button;

/// UIButtonType.
constexpr long kCustomType = 0;
/// NSLineBreakByTruncatingMiddle.
constexpr auto kTruncateMiddle = static_cast<ui::LineBreakMode>(5);
constexpr double kCustomFontSize = 18;
constexpr double kSystemFontSize = 15;

struct ButtonState {
    long type = kCustomType;
    std::map<unsigned long, objc::Ref<ns::String>> titles;
    std::map<unsigned long, objc::Ref<ui::Color>> titleColors;
    objc::Ref<ui::Label> label; // made when first needed
    ui::EdgeInsets titleInsets;
    ui::EdgeInsets contentInsets;
};

ButtonState &StateOfButton(Button self) {
    return StateOf<ButtonState>(self);
}

unsigned long ControlStateBits(Button self) {
    return objc::Send<"state", unsigned long>(self);
}

/// What is set for the state, else what is set for the normal state, else nil.
template <class T> T ForState(const std::map<unsigned long, objc::Ref<T>> &values, unsigned long state) {
    auto found = values.find(state);
    if (found == values.end()) {
        found = values.find(ui::kStateNormal);
    }
    return found == values.end() ? T{} : found->second.get();
}

ui::Color ColorForState(Button self, unsigned long state) {
    if (const ui::Color color = ForState(StateOfButton(self).titleColors, state)) {
        return color;
    }
    return StateOfButton(self).type == kCustomType ? ui::Color::whiteColor() : ui::Color::systemBlueColor();
}

/// Brings the label in line with the present state.
void UpdateLabel(Button self) {
    if (const ui::Label label = StateOfButton(self).label) {
        const unsigned long state = ControlStateBits(self);
        label.setText(ForState(StateOfButton(self).titles, state));
        label.setTextColor(ColorForState(self, state));
    }
    SetNeedsLayout(self);
}

ui::Label TitleLabel(Button self, objc::SEL) {
    ButtonState &state = StateOfButton(self);
    if (!state.label) {
        state.label = ns::New<ui::Label>();
        state.label->setFont(ui::Font::systemFontOfSize(state.type == kCustomType ? kCustomFontSize : kSystemFontSize));
        state.label->setLineBreakMode(kTruncateMiddle);
        self.addSubview(state.label);
        UpdateLabel(self);
    }
    return state.label;
}

Button ButtonWithType(Button self, objc::SEL, long type) {
    const Button made{objc::Send<"alloc", Button>(self).initWithFrame({}).pointer};
    StateOfButton(made).type = type;
    return objc::Send<"autorelease", Button>(made);
}

long ButtonType(Button self, objc::SEL) {
    return StateOfButton(self).type;
}

ns::String TitleForState(Button self, objc::SEL, unsigned long state) {
    return ForState(StateOfButton(self).titles, state);
}

void SetTitle(Button self, objc::SEL, ns::String title, unsigned long state) {
    if (title) {
        StateOfButton(self).titles[state] = objc::Ref<ns::String>::Adopt(objc::Send<"copy", ns::String>(title));
        self.titleLabel();
    } else {
        StateOfButton(self).titles.erase(state);
    }
    UpdateLabel(self);
}

ns::String CurrentTitle(Button self, objc::SEL) {
    return ForState(StateOfButton(self).titles, ControlStateBits(self));
}

ui::Color TitleColorForState(Button self, objc::SEL, unsigned long state) {
    return ColorForState(self, state);
}

void SetTitleColor(Button self, objc::SEL, ui::Color color, unsigned long state) {
    if (color) {
        StateOfButton(self).titleColors[state] = color;
    } else {
        StateOfButton(self).titleColors.erase(state);
    }
    UpdateLabel(self);
}

ui::Color CurrentTitleColor(Button self, objc::SEL) {
    return ColorForState(self, ControlStateBits(self));
}

ui::EdgeInsets TitleEdgeInsets(Button self, objc::SEL) {
    return StateOfButton(self).titleInsets;
}

void SetTitleEdgeInsets(Button self, objc::SEL, ui::EdgeInsets insets) {
    StateOfButton(self).titleInsets = insets;
    SetNeedsLayout(self);
}

ui::EdgeInsets ContentEdgeInsets(Button self, objc::SEL) {
    return StateOfButton(self).contentInsets;
}

void SetContentEdgeInsets(Button self, objc::SEL, ui::EdgeInsets insets) {
    StateOfButton(self).contentInsets = insets;
    SetNeedsLayout(self);
}

void SetHighlighted(Button self, objc::SEL, bool highlighted) {
    objc::SendSuper<"setHighlighted:", void>(ui::Control{self.pointer}, highlighted);
    UpdateLabel(self);
}

void SetEnabled(Button self, objc::SEL, bool enabled) {
    objc::SendSuper<"setEnabled:", void>(ui::Control{self.pointer}, enabled);
    UpdateLabel(self);
}

void SetSelected(Button self, objc::SEL, bool selected) {
    objc::SendSuper<"setSelected:", void>(ui::Control{self.pointer}, selected);
    UpdateLabel(self);
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

/// UIControlContentHorizontalAlignment: 0 centre, 1 left, 2 right, 3 fill, 4 leading, 5 trailing; the vertical one ends
/// with 3 and means top and bottom.
Alignment AlignmentOf(long contentAlignment) {
    switch (contentAlignment) {
    case 1:
    case 4:
        return Alignment::kStart;
    case 2:
    case 5:
        return Alignment::kEnd;
    case 3:
        return Alignment::kFill;
    default:
        return Alignment::kCenter;
    }
}

cg::Rect ContentRectForBounds(Button self, objc::SEL, cg::Rect bounds) {
    return Inset(bounds, StateOfButton(self).contentInsets);
}

cg::Rect TitleRectForContentRect(Button self, objc::SEL, cg::Rect content) {
    const ButtonState &state = StateOfButton(self);
    const cg::Rect room = Inset(content, state.titleInsets);
    const cg::Size fitted = state.label->sizeThatFits(room.size);
    const ControlState &control = ControlStateOf(self);
    const Placement across = Place(room.size.width, fitted.width, AlignmentOf(control.horizontalAlignment));
    const Placement down = Place(room.size.height, fitted.height, AlignmentOf(control.verticalAlignment));
    return {{room.origin.x + across.start, room.origin.y + down.start}, {across.length, down.length}};
}

void LayoutSubviews(Button self, objc::SEL) {
    const ui::Label label = StateOfButton(self).label;
    if (label) {
        const cg::Rect content = objc::Send<"contentRectForBounds:", cg::Rect>(self, self.bounds());
        label.setFrame(objc::Send<"titleRectForContentRect:", cg::Rect>(self, content));
    }
}

cg::Size SizeThatFits(Button self, objc::SEL, cg::Size size) {
    const ButtonState &state = StateOfButton(self);
    const cg::Size fitted = state.label ? state.label->sizeThatFits(size) : cg::Size{};
    const ui::EdgeInsets by = state.contentInsets;
    return {fitted.width + by.left + by.right, fitted.height + by.top + by.bottom};
}

bool GestureRecognizerShouldBegin(Button self, objc::SEL, ui::GestureRecognizer recognizer) {
    return TapControlAllows(self, recognizer);
}

} // namespace

void RegisterButton() {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"buttonType", &ButtonType>(),
        objc::MethodNamed<"titleLabel", &TitleLabel>(),
        objc::MethodNamed<"titleForState:", &TitleForState>(),
        objc::MethodNamed<"setTitle:forState:", &SetTitle>(),
        objc::MethodNamed<"currentTitle", &CurrentTitle>(),
        objc::MethodNamed<"titleColorForState:", &TitleColorForState>(),
        objc::MethodNamed<"setTitleColor:forState:", &SetTitleColor>(),
        objc::MethodNamed<"currentTitleColor", &CurrentTitleColor>(),
        objc::MethodNamed<"titleEdgeInsets", &TitleEdgeInsets>(),
        objc::MethodNamed<"setTitleEdgeInsets:", &SetTitleEdgeInsets>(),
        objc::MethodNamed<"contentEdgeInsets", &ContentEdgeInsets>(),
        objc::MethodNamed<"setContentEdgeInsets:", &SetContentEdgeInsets>(),
        objc::MethodNamed<"setHighlighted:", &SetHighlighted>(),
        objc::MethodNamed<"setEnabled:", &SetEnabled>(),
        objc::MethodNamed<"setSelected:", &SetSelected>(),
        objc::MethodNamed<"contentRectForBounds:", &ContentRectForBounds>(),
        objc::MethodNamed<"titleRectForContentRect:", &TitleRectForContentRect>(),
        objc::MethodNamed<"layoutSubviews", &LayoutSubviews>(),
        objc::MethodNamed<"sizeThatFits:", &SizeThatFits>(),
        objc::MethodNamed<"gestureRecognizerShouldBegin:", &GestureRecognizerShouldBegin>(),
    };
    const objc::MethodEntry classMethods[] = {
        objc::MethodNamed<"buttonWithType:", &ButtonWithType>(),
    };
    RegisterClassWithState<ButtonState>("UIButton", "UIControl", methods, classMethods);
}

} // namespace sim
