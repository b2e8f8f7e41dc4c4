// What is on the screen.

#include "apple/uikit/label.hpp"
#include "apple/uikit/window.hpp"
#include "driver/queries/queries.hpp"
#include "driver/queries/view_properties.hpp"
#include "driver/targets.hpp"
#include "driver/view_tree.hpp"
#include "runtime/native_class.hpp"
#include "uikit/application.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/view_state.hpp"

namespace sim::driver {
namespace {

using script::Answer;
using script::Bare;
using script::Fact;
using script::WordReader;

void Append(Fact &fact, const Fact &more) {
    fact.insert(fact.end(), more.begin(), more.end());
}

std::string StateName(long state) {
    switch (state) {
    case -1:
        return "unattached";
    case 0:
        return "active";
    case 1:
        return "inactive";
    case 2:
        return "background";
    default:
        return std::to_string(state);
    }
}

/// The one label that floats above everything else of its window.
ui::View FindToast(ui::View view) {
    constexpr double kToastPosition = 9999;
    const ViewState &state = ViewStateOf(view);
    if (state.layer && StateOf<LayerState>(state.layer).zPosition == kToastPosition) {
        return view;
    }
    for (const objc::Ref<ui::View> &child : state.subviews) {
        if (const ui::View toast = FindToast(child)) {
            return toast;
        }
    }
    return nullptr;
}

} // namespace

Answer AskViews(Session &, WordReader &words) {
    const bool hiddenToo = words.Take("hidden");
    const ui::View root = words.AtEnd() ? ui::View{} : ReadView(words);
    Answer answer;
    for (const std::string &line : ViewTree(root, hiddenToo)) {
        answer.push_back({Bare(line)});
    }
    return answer;
}

Answer AskView(Session &, WordReader &words) {
    WordReader before = words;
    const ui::View view = ReadView(words);
    if (words.AtEnd()) {
        return view ? Answer{DescribeView(view)} : Answer{};
    }
    if (!view) {
        words.Fail("there is no " + script::Render(before.Rest()));
    }
    return {DescribeProperty(view, words)};
}

Answer AskAll(Session &, WordReader &words) {
    Answer answer;
    for (const ui::View view : ReadViews(words)) {
        answer.push_back(DescribeView(view));
    }
    return answer;
}

Answer AskOrder(Session &, WordReader &words) {
    const ui::View view = ReadView(words);
    Answer answer;
    if (view) {
        for (const objc::Ref<ui::View> &child : ViewStateOf(view).subviews) {
            answer.push_back(DescribeView(child));
        }
    }
    return answer;
}

Answer AskHit(Session &, WordReader &words) {
    const ui::View view = HitTestScreen(ReadTarget(words).point);
    return view ? Answer{DescribeView(view)} : Answer{};
}

Answer AskToast(Session &, WordReader &words) {
    constexpr double kVisibleAlpha = 0.01;
    ui::View toast;
    for (const ui::Window window : WindowsOf(nullptr)) {
        if (const ui::View found = FindToast(window)) {
            toast = found;
        }
    }
    if (!toast) {
        words.Rest();
        return {};
    }
    const double alpha = PresentedValues(toast).alpha;
    if (words.Take("alpha")) {
        return {{Bare(alpha)}};
    }
    if (alpha <= kVisibleAlpha) {
        words.Rest();
        return {};
    }
    if (!words.AtEnd()) {
        return {DescribeProperty(toast, words)};
    }
    return {{script::Text(TextShown(toast)), Bare("alpha"), Bare(alpha)}};
}

Answer AskWindows(Session &, WordReader &) {
    Answer answer;
    for (const ui::Window window : WindowsOf(nullptr)) {
        Fact fact{DescribeClass(window), Bare("level"), Bare(WindowStateOf(window).level)};
        Append(fact, {Bare(ViewStateOf(window).hidden ? "hidden" : "visible")});
        if (window.isKeyWindow()) {
            fact.push_back(Bare("key"));
        }
        answer.push_back(std::move(fact));
    }
    return answer;
}

Answer AskScenes(Session &, WordReader &) {
    Answer answer;
    for (const ui::WindowScene scene : ConnectedScenes()) {
        answer.push_back({Bare(StateName(SceneStateOf(scene).activationState)), Bare("key")});
        Append(answer.back(), DescribeView(KeyWindowOf(scene)));
    }
    return answer;
}

} // namespace sim::driver
