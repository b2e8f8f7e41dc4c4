// What is on the screen.

#include "driver/subjects/subjects.hpp"
#include "driver/targets.hpp"
#include "driver/view_properties.hpp"
#include "driver/view_tree.hpp"
#include "uikit/application.hpp"
#include "uikit/view_state.hpp"

namespace sim::driver {
namespace {

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

/// shown TARGET [PROPERTY]: what a view that comes and goes looks like while it can be seen.
Answer AskShown(Session &, WordReader &words) {
    const ui::View view = ReadView(words);
    const double alpha = view ? PresentedValues(view).alpha : 0;
    if (view && words.Take("alpha")) { // which tells also how far it has gone
        return {{Bare(alpha)}};
    }
    if (alpha <= kVisibleAlpha) {
        words.Rest();
        return {};
    }
    if (words.AtEnd()) {
        return {{script::Text(TextShown(view)), Bare("alpha"), Bare(alpha)}};
    }
    return {DescribeProperty(view, words)};
}

constexpr Query kQueries[] = {
    {"views", &AskViews}, {"view", &AskView}, {"all", &AskAll},
    {"order", &AskOrder}, {"hit", &AskHit},   {"shown", &AskShown},
};

} // namespace

constinit const Subject kViews{{}, kQueries};

} // namespace sim::driver
