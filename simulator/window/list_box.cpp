#include "window/list_box.hpp"

#include "script/text.hpp"
#include "uikit/drawing.hpp"
#include "window/panel_look.hpp"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <optional>

namespace sim::window {
namespace {

constexpr double kTitleHeight = 22;
constexpr double kInset = 8;
constexpr double kLineHeight = 16;
constexpr std::size_t kMostTexts = 400; // nobody scrolls back farther

cg::Rect BoxIn(cg::Rect frame) {
    return {{frame.origin.x, frame.origin.y + kTitleHeight},
            {frame.size.width, std::max(frame.size.height - kTitleHeight, 0.0)}};
}

} // namespace

void ListBox::Place(cg::Rect frame) {
    const bool otherWidth = frame.size.width != frame_.size.width;
    frame_ = frame;
    stale_ = true;
    if (otherWidth) {
        Wrap();
    }
    Scroll(0);
}

void ListBox::Show(const std::vector<std::string> &texts) {
    if (texts != texts_) {
        texts_ = texts;
        stale_ = true;
        Wrap();
        Scroll(0);
    }
}

void ListBox::Scroll(double lines) {
    const double most = static_cast<double>(lines_.size()) - static_cast<double>(LinesThatFit());
    const double scrolled = std::clamp(scrolled_ + lines, 0.0, std::max(most, 0.0));
    stale_ = stale_ || scrolled != scrolled_;
    scrolled_ = scrolled;
}

void ListBox::Wrap() {
    const LineStyle style{kSmallFace, Wrapping::kCharacter, frame_.size.width - 2 * kInset};
    const std::size_t before = lines_.size();
    lines_.clear();
    const std::size_t first = texts_.size() > kMostTexts ? texts_.size() - kMostTexts : 0;
    for (std::size_t i = first; i < texts_.size(); ++i) {
        const std::u16string units = script::ToUtf16(texts_[i]).value_or(u"\uFFFD");
        for (const TextLine &line : BreakLines(units, style)) {
            lines_.push_back(units.substr(line.start, line.end - line.start));
        }
    }
    if (scrolled_ > 0) { // what is being read stays where it is
        scrolled_ += static_cast<double>(lines_.size()) - static_cast<double>(before);
    }
}

std::size_t ListBox::LinesThatFit() const {
    return static_cast<std::size_t>(std::max(std::floor((BoxIn(frame_).size.height - kInset) / kLineHeight), 0.0));
}

void ListBox::Draw(cairo_t *context) {
    stale_ = false;
    const cg::Rect box = BoxIn(frame_);
    cairo_save(context);
    cairo_rectangle(context, frame_.origin.x, frame_.origin.y, frame_.size.width, frame_.size.height);
    cairo_clip(context);
    SetPaint(context, kPanelColor);
    cairo_paint(context);
    DrawText(context, title_, kTitleFace, kTextColor, {frame_.origin, {frame_.size.width, kTitleHeight}});
    SetPaint(context, kBoxColor);
    FillRounded(context, box, 6);
    const std::size_t fit = LinesThatFit();
    const std::size_t end = lines_.size() - std::min(static_cast<std::size_t>(scrolled_), lines_.size());
    const std::size_t start = end > fit ? end - fit : 0;
    cg::Rect line{{box.origin.x + kInset, box.origin.y + kInset / 2}, {box.size.width - 2 * kInset, kLineHeight}};
    if (lines_.empty() && fit > 0) {
        DrawText(context, none_, kSmallFace, kPaleTextColor, line);
    }
    for (std::size_t i = start; i < end; ++i) {
        DrawText(context, script::ToUtf8(lines_[i]), kSmallFace, kTextColor, line);
        line.origin.y += kLineHeight;
    }
    cairo_restore(context);
}

} // namespace sim::window
