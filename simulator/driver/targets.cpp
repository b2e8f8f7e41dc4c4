#include "driver/targets.hpp"

#include "apple/uikit/segmented_control.hpp"
#include "apple/uikit/window.hpp"
#include "driver/presented.hpp"
#include "driver/view_properties.hpp"
#include "script/values.hpp"
#include "script/vocabulary.hpp"
#include "uikit/application.hpp"
#include "uikit/view.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

namespace sim::driver {
namespace {

struct Found {
    ui::View view;
    std::optional<cg::Point> within = std::nullopt; // a place in the view's own coordinates instead of its middle
};

/// Adds what the target means at this view: the view, something beside it, or nothing.
using Test = std::function<void(ui::View view, std::vector<Found> &found)>;

/// Does something with each view, the front-most window first, a view before its subviews.
void WalkScreen(bool hiddenToo, const std::function<void(ui::View)> &visit) {
    const std::function<void(ui::View)> walk = [&](ui::View view) {
        if (hiddenToo || IsShown(view)) {
            visit(view);
            for (const objc::Ref<ui::View> &child : ViewStateOf(view).subviews) {
                walk(child);
            }
        }
    };
    for (const ui::Window window : hiddenToo ? WindowsOf(nullptr) : WindowsFrontToBack()) {
        walk(window);
    }
}

/// A segment has no view of its own.
void AddSegments(ui::View view, const std::string &text, std::vector<Found> &found) {
    if (!IsKind(view, ui::SegmentedControl::kClassName)) {
        return;
    }
    const auto segments = objc::As<ui::SegmentedControl>(view);
    const cg::Rect bounds = view.bounds();
    const auto count = objc::Send<"numberOfSegments", unsigned long>(segments);
    for (unsigned long i = 0; i < count; ++i) {
        if (script::TextOf(objc::Send<"titleForSegmentAtIndex:", ns::String>(segments, i)) == text) {
            const double width = bounds.size.width / static_cast<double>(count);
            found.push_back({view, cg::Point{bounds.origin.x + (width * (static_cast<double>(i) + 0.5)),
                                             bounds.origin.y + (bounds.size.height / 2)}});
        }
    }
}

void AddText(ui::View view, const std::string &text, std::vector<Found> &found) {
    // A control's own label repeats its title; the control is what is meant.
    if (!found.empty() && IsDescendant(view, found.back().view)) {
        return;
    }
    if (TextShown(view) == text) {
        found.push_back({view});
    } else {
        AddSegments(view, text, found);
    }
}

bool Shows(ui::View view, const char *className, const std::string &text) {
    return IsKind(view, className) && TextShown(view) == text;
}

/// The view itself when it is of the class and shows the text.
template <objc::FixedString ClassName> ui::View Itself(ui::View view, const std::string &text) {
    return Shows(view, ClassName.data, text) ? view : ui::View{};
}

/// The control of a class that is nearest in height to a label, in the same superview: its middle is less than `up`
/// points above the label's and less than `down` below it.
ui::View ControlNear(ui::View label, const char *className, double up, double down) {
    ui::View nearest;
    double smallest = std::max(up, down);
    for (const objc::Ref<ui::View> &other : ViewStateOf(label.superview()).subviews) {
        const double below = other->center().y - label.center().y;
        if (IsKind(other, className) && IsShown(other) && below > -up && below < down && std::abs(below) < smallest) {
            nearest = other;
            smallest = std::abs(below);
        }
    }
    return nearest;
}

/// The control in the row of the label with this text, or right below it.
template <objc::FixedString ClassName> ui::View ControlOfRow(ui::View view, const std::string &text) {
    constexpr double kRowReach = 40; // points from the label's middle to the control's
    return Shows(view, "UILabel", text) ? ControlNear(view, ClassName.data, view.frame().size.height / 2, kRowReach)
                                        : ui::View{};
}

/// A word that a text follows, and the view that they mean when the search comes by a view; nil when they mean none.
struct TextTarget {
    const char *word;
    ui::View (*find)(ui::View view, const std::string &text);
};

constexpr TextTarget kTextTargets[] = {
    {"label", &Itself<"UILabel">},
    {"button", &Itself<"UIButton">},
    {"beside",
     [](ui::View view, const std::string &text) {
         const double height = view.frame().size.height;
         return Shows(view, "UILabel", text) ? ControlNear(view, "UIControl", height, height) : ui::View{};
     }},
    {"switch", &ControlOfRow<"UISwitch">},
    {"slider", &ControlOfRow<"UISlider">},
    {"field", // by its placeholder, which it keeps when a text hides it
     [](ui::View view, const std::string &text) {
         const bool meant =
             IsKind(view, "UITextField") && script::TextOf(objc::Send<"placeholder", ns::String>(view)) == text;
         return meant ? view : ui::View{};
     }},
    {"alert", // in the front-most one
     [](ui::View view, const std::string &text) {
         const std::vector<ui::AlertController> alerts = PresentedAlerts();
         return !alerts.empty() && IsDescendant(view, alerts.back().view()) ? Itself<"UIButton">(view, text)
                                                                            : ui::View{};
     }},
};

template <class Predicate> Test Where(const Predicate &holds) {
    return [holds](ui::View view, std::vector<Found> &found) {
        if (holds(view)) {
            found.push_back({view});
        }
    };
}

struct Description {
    Test test;
    std::optional<long> number; // which one of several, from 1
};

Test TextTest(const TextTarget &target, WordReader &words) {
    const std::string text = words.QuotedText(std::string("the text of ") + target.word);
    return [&target, text](ui::View view, std::vector<Found> &found) {
        if (const ui::View meant = target.find(view, text)) {
            found.push_back({meant});
        }
    };
}

Test TagTest(WordReader &words) {
    long tag = words.Integer("a tag");
    if (words.Take("+")) {
        tag += words.Integer("how much more");
    }
    return Where([tag](ui::View view) { return view.tag() == tag; });
}

Test PropertyTest(WordReader &words) {
    const std::string name = words.Name("a property");
    if (!IsProperty(name)) {
        words.Fail("views have no property " + name);
    }
    const Fact value{words.Next("its value")};
    return Where([name, value](ui::View view) { return PropertyNamed(view, name) == value; });
}

/// A target in the simulator's own words.
Description ReadOwnDescription(WordReader &words) {
    Description what;
    const auto *const target =
        std::ranges::find_if(kTextTargets, [&words](const TextTarget &row) { return words.Take(row.word); });
    if (target != std::end(kTextTargets)) {
        what.test = TextTest(*target, words);
    } else if (words.SeesText()) {
        const std::string text = words.QuotedText("a text");
        what.test = [text](ui::View view, std::vector<Found> &found) { AddText(view, text, found); };
    } else if (words.Take("segment")) {
        const std::string text = words.QuotedText("the segment's title");
        what.test = [text](ui::View view, std::vector<Found> &found) { AddSegments(view, text, found); };
    } else if (words.Take("tag")) {
        what.test = TagTest(words);
    } else if (words.Take("with")) {
        what.test = PropertyTest(words);
    } else if (words.Take("class")) {
        const std::string name = words.Name("a class");
        what.test = Where([name](ui::View view) { return script::ClassName(view) == name; });
        if (words.SeesNumber()) {
            what.number = words.Integer("which of several");
        }
    } else {
        std::string known;
        for (const TextTarget &row : kTextTargets) {
            known += std::string(row.word) + ", ";
        }
        words.Fail("expected a target: \"TEXT\", " + known + "segment, tag, with, class or at");
    }
    return what;
}

Description ReadDescription(WordReader &words) {
    const std::optional<std::vector<Word>> meaning = script::TheVocabulary().Take("target", words);
    if (!meaning) {
        return ReadOwnDescription(words);
    }
    WordReader meant(words.place(), *meaning);
    Description what = ReadOwnDescription(meant);
    meant.End();
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
    return std::ranges::any_of(containers,
                               [view](const Found &container) { return IsDescendant(view, container.view); });
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
                   script::Render(std::vector{Bare(center.x), Bare(center.y)}) + ";";
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

Target ReadTarget(WordReader &words) {
    WordReader before = words;
    const Target target = ReadTargetAnywhere(words);
    if (ScrolledOutOf(target)) {
        words.Fail(script::Render(before.Rest()) + " is scrolled out of sight; scroll it into view first");
    }
    if (!Contains({{}, ScreenSize()}, target.point)) {
        const std::string place = script::Render(std::vector{Bare(target.point.x), Bare(target.point.y)});
        words.Fail("a finger cannot reach " + place + ", outside the screen");
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
    const bool isOnScreen = Contains({{}, ScreenSize()}, target.point); // of a scroll view that goes on beyond it
    for (ui::View view = target.view; view; view = view.superview()) {
        if (IsKind(view, "UIScrollView") && view != target.view &&
            !(isOnScreen && Contains(view.bounds(), FromScreen(view, target.point)))) {
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
