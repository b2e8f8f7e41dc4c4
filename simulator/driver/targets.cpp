#include "driver/targets.hpp"

#include "apple/uikit/label.hpp"
#include "apple/uikit/window.hpp"
#include "driver/presented.hpp"
#include "script/values.hpp"
#include "uikit/application.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

namespace sim::driver {
namespace {

using script::WordReader;

constexpr long kFirstCellTag = 1000;
constexpr double kVisibleAlpha = 0.01;

/// A segment of a segmented control, which has no view of its own.
struct Segments : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "UISegmentedControl";

    unsigned long numberOfSegments() const {
        return objc::Send<"numberOfSegments", unsigned long>(*this);
    }
    ns::String titleForSegmentAtIndex(unsigned long index) const {
        return objc::Send<"titleForSegmentAtIndex:", ns::String>(*this, index);
    }
};

struct Found {
    ui::View view;
    std::optional<cg::Point> within; // a place in the view's own coordinates instead of its middle
};

using Test = std::function<void(ui::View, std::vector<Found> &)>;

bool IsKind(ui::View view, const char *className) {
    const objc::Class cls = objc_getClass(className);
    return cls != nullptr && view.isKindOfClass(cls);
}

bool Shown(ui::View view) {
    const ViewState &state = ViewStateOf(view);
    return !state.hidden && state.model.alpha > kVisibleAlpha;
}

void Walk(ui::View view, bool hiddenToo, const std::function<void(ui::View)> &visit) {
    if (!hiddenToo && !Shown(view)) {
        return;
    }
    visit(view);
    for (const objc::Ref<ui::View> &child : ViewStateOf(view).subviews) {
        Walk(child, hiddenToo, visit);
    }
}

void WalkScreen(bool hiddenToo, const std::function<void(ui::View)> &visit) {
    const std::vector<ui::Window> windows = hiddenToo ? WindowsOf(nullptr) : WindowsFrontToBack();
    for (const ui::Window window : windows) {
        Walk(window, hiddenToo, visit);
    }
}

void AddSegments(ui::View view, const std::string &text, std::vector<Found> &found) {
    const auto segments = objc::As<Segments>(view);
    const cg::Rect bounds = view.bounds();
    const unsigned long count = segments.numberOfSegments();
    for (unsigned long i = 0; i < count; ++i) {
        if (script::TextOf(segments.titleForSegmentAtIndex(i)) == text) {
            const double width = bounds.size.width / static_cast<double>(count);
            found.push_back({view, cg::Point{bounds.origin.x + (width * (static_cast<double>(i) + 0.5)),
                                             bounds.origin.y + (bounds.size.height / 2)}});
        }
    }
}

Test TextTest(const std::string &text) {
    return [text](ui::View view, std::vector<Found> &found) {
        // A control's own label repeats its title; the control is what is meant.
        const bool inside = !found.empty() && objc::Send<"isDescendantOfView:", bool>(view, found.back().view);
        if (inside) {
            return;
        }
        if (TextShown(view) == text) {
            found.push_back({view, std::nullopt});
        } else if (IsKind(view, "UISegmentedControl")) {
            AddSegments(view, text, found);
        }
    };
}

Test LabelTest(const std::string &text) {
    return [text](ui::View view, std::vector<Found> &found) {
        if (IsKind(view, "UILabel") && TextShown(view) == text) {
            found.push_back({view, std::nullopt});
        }
    };
}

Test TagTest(long tag) {
    return [tag](ui::View view, std::vector<Found> &found) {
        if (view.tag() == tag) {
            found.push_back({view, std::nullopt});
        }
    };
}

Test ClassTest(const std::string &name) {
    return [name](ui::View view, std::vector<Found> &found) {
        if (name == class_getName(objc::object_getClass(view.pointer))) {
            found.push_back({view, std::nullopt});
        }
    };
}

/// The button with this title in the front-most alert.
Test AlertTest(const std::string &title) {
    const std::vector<ui::AlertController> alerts = PresentedAlerts();
    const ui::View alert = alerts.empty() ? ui::View{} : alerts.back().view();
    return [title, alert](ui::View view, std::vector<Found> &found) {
        if (IsKind(view, "UIButton") && TextShown(view) == title && IsDescendant(view, alert)) {
            found.push_back({view, std::nullopt});
        }
    };
}

/// The control whose middle is on the height of the label with this text, in the same superview.
Test BesideTest(const std::string &text) {
    return [text](ui::View view, std::vector<Found> &found) {
        if (!IsKind(view, "UILabel") || TextShown(view) != text) {
            return;
        }
        const cg::Rect row = view.frame();
        ui::View nearest;
        double smallest = row.size.height;
        for (const objc::Ref<ui::View> &other : ViewStateOf(view.superview()).subviews) {
            const double distance = std::abs(other->center().y - view.center().y);
            if (IsKind(other, "UIControl") && Shown(other) && distance < smallest) {
                nearest = other;
                smallest = distance;
            }
        }
        if (nearest) {
            found.push_back({nearest, std::nullopt});
        }
    };
}

/// The control of a class that belongs to the label with this text: in the same superview, on the label's height or
/// right below it.
Test RowTest(const std::string &text, const char *className) {
    return [text, className](ui::View view, std::vector<Found> &found) {
        constexpr double kRowReach = 40; // points from the label's middle to the control's
        if (!IsKind(view, "UILabel") || TextShown(view) != text) {
            return;
        }
        ui::View nearest;
        double smallest = kRowReach;
        for (const objc::Ref<ui::View> &other : ViewStateOf(view.superview()).subviews) {
            const double below = other->center().y - view.center().y;
            const bool reached = below > -view.frame().size.height / 2 && std::abs(below) < smallest;
            if (IsKind(other, className) && Shown(other) && reached) {
                nearest = other;
                smallest = std::abs(below);
            }
        }
        if (nearest) {
            found.push_back({nearest, std::nullopt});
        }
    };
}

Test ButtonTest(const std::string &text) {
    return [text](ui::View view, std::vector<Found> &found) {
        if (IsKind(view, "UIButton") && TextShown(view) == text) {
            found.push_back({view, std::nullopt});
        }
    };
}

Test SegmentTest(const std::string &text) {
    return [text](ui::View view, std::vector<Found> &found) {
        if (IsKind(view, "UISegmentedControl")) {
            AddSegments(view, text, found);
        }
    };
}

/// Fields by their placeholders, which they keep when a text hides them.
Test FieldTest(const std::string &placeholder) {
    return [placeholder](ui::View view, std::vector<Found> &found) {
        if (IsKind(view, "UITextField") && script::TextOf(objc::Send<"placeholder", ns::String>(view)) == placeholder) {
            found.push_back({view, std::nullopt});
        }
    };
}

struct Description {
    Test test;
    std::optional<long> number; // which one of several, from 1
};

Description ReadDescription(WordReader &words) {
    Description what;
    if (words.SeesText()) {
        what.test = TextTest(words.QuotedText("a text"));
    } else if (words.Take("label")) {
        what.test = LabelTest(words.QuotedText("the label's text"));
    } else if (words.Take("beside")) {
        what.test = BesideTest(words.QuotedText("the label's text"));
    } else if (words.Take("button")) {
        what.test = ButtonTest(words.QuotedText("the button's title"));
    } else if (words.Take("switch")) {
        what.test = RowTest(words.QuotedText("the row's title"), "UISwitch");
    } else if (words.Take("slider")) {
        what.test = RowTest(words.QuotedText("the row's title"), "UISlider");
    } else if (words.Take("segment")) {
        what.test = SegmentTest(words.QuotedText("the segment's title"));
    } else if (words.Take("field")) {
        what.test = FieldTest(words.QuotedText("the field's placeholder"));
    } else if (words.Take("cell")) {
        what.test = TagTest(kFirstCellTag + words.Integer("the cell's number"));
    } else if (words.Take("tag")) {
        what.test = TagTest(words.Integer("a tag"));
    } else if (words.Take("alert")) {
        what.test = AlertTest(words.QuotedText("the title of an alert's button"));
    } else if (words.Take("class")) {
        what.test = ClassTest(words.Name("a class"));
        if (words.SeesNumber()) {
            what.number = words.Integer("which of several");
        }
    } else {
        words.Fail("expected a target: \"TEXT\", label, button, beside, switch, slider, segment, field, cell, tag, "
                   "alert, class or at");
    }
    return what;
}

std::vector<Found> Search(const Description &what, bool hiddenToo) {
    std::vector<Found> found;
    WalkScreen(hiddenToo, [&](ui::View view) { what.test(view, found); });
    if (what.number) {
        const auto index = static_cast<std::size_t>(*what.number - 1);
        return index < found.size() ? std::vector{found[index]} : std::vector<Found>{};
    }
    return found;
}

bool LiesIn(ui::View view, const std::vector<Found> &containers) {
    return std::ranges::any_of(containers, [view](const Found &container) {
        return objc::Send<"isDescendantOfView:", bool>(view, container.view);
    });
}

/// Reads a target and searches visible views, hidden ones too when that is wanted and no visible one is meant.
std::vector<Found> ReadFound(WordReader &words, bool hiddenAsWell) {
    const Description what = ReadDescription(words);
    std::vector<Found> containers;
    const bool within = words.Take("in");
    if (within) {
        containers = ReadFound(words, hiddenAsWell);
    }
    const auto search = [&](bool hiddenToo) {
        std::vector<Found> found = Search(what, hiddenToo);
        if (within) {
            std::erase_if(found, [&](const Found &one) { return !LiesIn(one.view, containers); });
        }
        return found;
    };
    const std::vector<Found> found = search(false);
    return found.empty() && hiddenAsWell ? search(true) : found;
}

void CheckOne(const std::vector<Found> &found, const WordReader &words) {
    if (found.size() < 2) {
        return;
    }
    std::string message = std::to_string(found.size()) + " views are meant:";
    for (const Found &one : found) {
        const cg::Point center = ToScreen(one.view, {0, 0});
        message += " " + script::Render(DescribeView(one.view)) + " at " +
                   script::Render(std::vector{script::Bare(center.x), script::Bare(center.y)}) + ";";
    }
    message.back() = '.';
    words.Fail(message);
}

/// The middle of what the view shows at this moment, on the screen.
cg::Point PresentedPoint(const Found &found) {
    const cg::Rect bounds = PresentedValues(found.view).bounds;
    cg::Point point = found.within.value_or(
        cg::Point{bounds.origin.x + (bounds.size.width / 2), bounds.origin.y + (bounds.size.height / 2)});
    for (ui::View view = found.view; view; view = view.superview()) {
        point = ToSuperview(PresentedValues(view), point);
    }
    return point;
}

} // namespace

bool IsVisible(ui::View view) {
    ui::View top;
    for (ui::View at = view; at; at = at.superview()) {
        if (!Shown(at)) {
            return false;
        }
        top = at;
    }
    return top && IsKind(top, "UIWindow");
}

std::string TextShown(ui::View view) {
    if (IsKind(view, "UIButton")) {
        return script::TextOf(objc::Send<"titleForState:", ns::String>(view, 0UL));
    }
    if (view.respondsToSelector(objc::Selector<"text">())) {
        return script::TextOf(objc::Send<"text", ns::String>(view));
    }
    return {};
}

script::Word DescribeClass(ui::View view) {
    return script::Bare(class_getName(objc::object_getClass(view.pointer)));
}

std::vector<script::Word> DescribeView(ui::View view) {
    if (!view) {
        return {script::Bare("nothing")};
    }
    std::vector<script::Word> words{DescribeClass(view)};
    if (const std::string text = TextShown(view); !text.empty()) {
        words.push_back(script::Text(text));
    }
    return words;
}

Target ReadTarget(WordReader &words) {
    WordReader before = words;
    const Target target = ReadTargetAnywhere(words);
    if (ScrolledOutOf(target)) {
        words.Fail(script::Render(before.Rest()) + " is scrolled out of sight; scroll it into view first");
    }
    return target;
}

Target ReadTargetAnywhere(WordReader &words) {
    if (words.Take("at")) {
        const double x = words.Number("x");
        return {{x, words.Number("y")}, nullptr};
    }
    WordReader before = words;
    const std::vector<Found> found = ReadFound(words, false);
    if (found.empty()) {
        words.Fail("nothing visible is " + script::Render(before.Rest()));
    }
    CheckOne(found, words);
    return {PresentedPoint(found.front()), found.front().view};
}

ui::View ScrolledOutOf(const Target &target) {
    for (ui::View view = target.view; view; view = view.superview()) {
        if (IsKind(view, "UIScrollView") && view != target.view &&
            !Contains(view.bounds(), FromScreen(view, target.point))) {
            return view;
        }
    }
    return {};
}

ui::View ReadView(WordReader &words) {
    const std::vector<Found> found = ReadFound(words, true);
    CheckOne(found, words);
    return found.empty() ? ui::View{} : found.front().view;
}

std::vector<ui::View> ReadViews(WordReader &words) {
    std::vector<ui::View> views;
    for (const Found &found : ReadFound(words, false)) {
        views.push_back(found.view);
    }
    return views;
}

} // namespace sim::driver
