// What fingers do to controls of their own kind: sliders and the keyboard.

#include "driver/commands/commands.hpp"
#include "driver/queries/queries.hpp"
#include "driver/queries/view_properties.hpp"
#include "driver/targets.hpp"
#include "runtime/clock.hpp"
#include "script/text.hpp"
#include "uikit/keyboard.hpp"
#include "uikit/text_input.hpp"
#include "uikit/touch.hpp"
#include "uikit/view_geometry.hpp"

#include <limits>

namespace sim::driver {
namespace {

using script::Bare;
using script::WordReader;

struct Slider : ui::View {
    using ui::View::View;
    static constexpr const char *kClassName = "UISlider";

    float value() const {
        return objc::Send<"value", float>(*this);
    }
    /// The middle of the thumb as it stands at a value, on the screen.
    cg::Point ThumbAt(float at) const {
        const auto track = objc::Send<"trackRectForBounds:", cg::Rect>(*this, bounds());
        const auto thumb = objc::Send<"thumbRectForBounds:trackRect:value:", cg::Rect>(*this, bounds(), track, at);
        return ToScreen(*this, {thumb.origin.x + (thumb.size.width / 2), thumb.origin.y + (thumb.size.height / 2)});
    }
};

void CheckEditing(const WordReader &words) {
    if (!EditedView()) {
        words.Fail("no text is being edited");
    }
}

constexpr ns::Range kWholeText{0, std::numeric_limits<unsigned long>::max()};

unsigned long ReadUnits(WordReader &words, const char *what) {
    const long units = words.Integer(what);
    if (units < 0) {
        words.Fail("a text has no units before its first");
    }
    return static_cast<unsigned long>(units);
}

/// Points or seconds.
double ReadLength(WordReader &words, const char *what) {
    const double length = words.Number(what);
    if (!(length >= 0 && length <= 1e4)) {
        words.Fail("the keyboard cannot do that");
    }
    return length;
}

/// One key a character: a pair of surrogates is one key.
std::vector<std::u16string> Keys(const std::u16string &units) {
    std::vector<std::u16string> keys;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const bool pair = units[i] >= 0xD800 && units[i] < 0xDC00 && i + 1 < units.size();
        keys.push_back(units.substr(i, pair ? 2 : 1));
        i += pair ? 1 : 0;
    }
    return keys;
}

} // namespace

void DoSlide(Session &, WordReader &words) {
    constexpr TouchId kFinger = 1;
    constexpr int kSteps = 10;
    const auto slider = objc::As<Slider>(ReadTarget(words).view);
    words.Expect("to");
    const auto value = static_cast<float>(words.Number("the value"));
    words.End();
    if (!slider || !slider.isKindOfClass(objc_getClass(Slider::kClassName))) {
        words.Fail("that is no slider");
    }
    const cg::Point start = slider.ThumbAt(slider.value());
    const cg::Point end = slider.ThumbAt(value);
    touch::Began(kFinger, start);
    clock::Drain();
    for (int i = 1; i <= kSteps; ++i) {
        touch::Moved(kFinger, {start.x + ((end.x - start.x) * i / kSteps), start.y});
        clock::Drain();
    }
    touch::Ended(kFinger, {end.x, start.y});
    clock::Drain();
    Say({Bare("slide"), Bare("to"), Bare(static_cast<double>(slider.value()))});
}

void DoType(Session &, WordReader &words) {
    const std::u16string units = script::ToUtf16(words.QuotedText("what to type")).value_or(u"");
    words.End();
    for (const std::u16string &key : Keys(units)) {
        CheckEditing(words); // a key may have ended it
        TypeText(ns::String::stringWithCharacters(key.data(), key.size()));
        clock::Drain();
    }
}

void DoErase(Session &, WordReader &words) {
    const bool all = words.Take("all");
    const long count = all ? 1 : words.Integer("the number of characters, or all");
    words.End();
    CheckEditing(words);
    if (all) {
        SelectText(kWholeText);
    }
    for (long i = 0; i < count; ++i) {
        CheckEditing(words);
        TypeDelete();
        clock::Drain();
    }
}

/// select all|FROM LENGTH
void DoSelect(Session &, WordReader &words) {
    ns::Range range = kWholeText;
    if (!words.Take("all")) {
        range.location = ReadUnits(words, "where it begins");
        range.length = ReadUnits(words, "how long it is");
    }
    words.End();
    CheckEditing(words);
    SelectText(range);
}

/// keyboard height POINTS | duration SECONDS | hide
void DoKeyboard(Session &session, WordReader &words) {
    if (words.Take("height")) {
        SetKeyboardHeight(ReadLength(words, "points"));
    } else if (words.Take("duration")) {
        SetKeyboardDuration(ReadLength(words, "seconds"));
    } else {
        words.Expect("hide");
        words.End();
        if (!session.launched) {
            words.Fail("there is no keyboard yet");
        }
        CheckEditing(words);
        objc::Send<"resignFirstResponder", bool>(ui::Responder{EditedView()});
    }
}

script::Answer AskKeyboard(Session &, WordReader &) {
    const std::optional<cg::Rect> frame = KeyboardFrame();
    if (!frame) {
        return {};
    }
    return {{Bare(frame->origin.x), Bare(frame->origin.y), Bare(frame->size.width), Bare(frame->size.height)}};
}

script::Answer AskEditing(Session &, WordReader &words) {
    const ui::View view = EditedView();
    if (!view) {
        words.Rest();
        return {};
    }
    if (words.Take("selection")) {
        const ns::Range selection = TextInputOf(view)->text(view).selection();
        return {{Bare(static_cast<double>(selection.location)), Bare(static_cast<double>(selection.length))}};
    }
    if (!words.AtEnd()) {
        return {DescribeProperty(view, words)};
    }
    return {DescribeView(view)};
}

} // namespace sim::driver
