#include "window/side_panel.hpp"

#include "hosts/record.hpp"
#include "script/expectation.hpp"
#include "uikit/application.hpp"
#include "uikit/drawing.hpp"
#include "uikit/orientation.hpp"
#include "uikit/view_geometry.hpp"
#include "window/host_events.hpp"
#include "window/panel_look.hpp"

#include <algorithm>
#include <cmath>

namespace sim::window {
namespace {

// Panel points.
constexpr double kMargin = 14;
constexpr double kGap = 6;
constexpr double kRowHeight = 28;
constexpr double kRowGap = 8;
constexpr double kLabelWidth = 72;
constexpr double kLineHeight = 20;
constexpr double kFootHeight = kRowGap + kLineHeight + kRowHeight + kLineHeight + kRowGap;

std::vector<std::string> Comments() {
    std::vector<std::string> texts;
    for (const hosts::Comment &comment : hosts::TheRecord().comments) {
        texts.push_back(std::to_string(texts.size() + 1) + ". " + script::PlainText(comment.text) + " (" +
                        script::PlainText(comment.path) + ")");
    }
    return texts;
}

std::string HoldName(Orientation orientation) {
    return orientation == Orientation::kPortrait         ? "portrait"
           : orientation == Orientation::kLandscapeLeft  ? "left"
           : orientation == Orientation::kLandscapeRight ? "right"
                                                         : "upside-down";
}

bool HasScreen(const char *name) {
    const auto models = ScreenModels();
    const auto model =
        std::ranges::find_if(models, [name](const ScreenModel &each) { return each.name == std::string_view(name); });
    const cg::Size size = ScreenSize();
    return model != models.end() && model->size.width == std::min(size.width, size.height) &&
           model->size.height == std::max(size.width, size.height);
}

} // namespace

SidePanel::SidePanel(LiveRun &run, const std::string &host, const Texts &texts, std::function<void()> save)
    : run_(run), texts_(texts), comments_(texts.comments, texts.noComments), log_(texts.log, texts.noLog) {
    const auto held = [](const char *name) { return [name] { return HoldName(HeldOrientation()) == name; }; };
    const auto screen = [](const char *name) { return [name] { return HasScreen(name); }; };
    AddRow(host, {{"enter", texts.enterRoom, [this] { run_.Do(EnterRoom(++rooms_)); }},
                  Line("leave", texts.leaveRoom, "host leave")});
    if (const std::vector<std::string> throwing = ThrowWhenSending(host); !throwing.empty()) {
        const auto misbehave = [this, throwing] {
            for (const std::string &line : throwing) {
                run_.Do(line);
            }
        };
        AddRow("", {{"throw", texts.sendingThrows, misbehave}, Line("calm", texts.calm, "host calm")});
    }
    AddRow(texts.held, {Line("portrait", texts.portrait, "rotate portrait", held("portrait")),
                        Line("left", texts.left, "rotate left", held("left")),
                        Line("right", texts.right, "rotate right", held("right"))});
    AddRow(texts.look, {Line("light", texts.light, "appearance light", [] { return !IsDarkAppearance(); }),
                        Line("dark", texts.dark, "appearance dark", [] { return IsDarkAppearance(); })});
    AddRow(texts.screen, {Line("small", texts.small, "screen small", screen("small")),
                          Line("classic", texts.classic, "screen classic", screen("classic")),
                          Line("usual", texts.usual, "screen usual", screen("usual")),
                          Line("large", texts.large, "screen large", screen("large"))});
    buttons_.push_back({"save", texts.save, std::move(save)});
}

PanelButton SidePanel::Line(const char *name, const char *title, const std::string &line,
                            std::function<bool()> isChosen) {
    return {name, title, [this, line] { run_.Do(line); }, std::move(isChosen)};
}

void SidePanel::AddRow(const std::string &label, std::vector<PanelButton> buttons) {
    rows_.push_back({label, buttons.size()});
    std::ranges::move(buttons, std::back_inserter(buttons_));
}

void SidePanel::Place(cg::Rect pixels, double scale) {
    pixels_ = pixels;
    scale_ = scale;
    LayOut();
    backgroundDue_ = true;
}

void SidePanel::LayOut() {
    const double width = pixels_.size.width / scale_;
    const double height = pixels_.size.height / scale_;
    const double right = width - kMargin;
    double y = kMargin;
    auto button = buttons_.begin();
    for (const Row &row : rows_) {
        const double left = kMargin + kLabelWidth;
        const auto count = static_cast<double>(row.count);
        const double each = (right - left - (count - 1) * kGap) / count;
        for (std::size_t i = 0; i < row.count; ++i, ++button) {
            button->frame = {{left + static_cast<double>(i) * (each + kGap), y}, {each, kRowHeight}};
        }
        y += kRowHeight + kRowGap;
    }
    foot_ = height - kFootHeight;
    const double lists = std::max(foot_ - y - kRowGap, 0.0);
    const double comments = std::floor(lists * 0.4);
    comments_.Place({{kMargin, y}, {right - kMargin, comments}});
    log_.Place({{kMargin, y + comments + kRowGap}, {right - kMargin, lists - comments - kRowGap}});
    buttons_.back().frame = {{kMargin, foot_ + kRowGap + kLineHeight}, {right - kMargin, kRowHeight}};
}

cg::Point SidePanel::InPanel(cg::Point pixel) const {
    return {(pixel.x - pixels_.origin.x) / scale_, (pixel.y - pixels_.origin.y) / scale_};
}

bool SidePanel::Holds(cg::Point pixel) const {
    return Contains(pixels_, pixel);
}

cg::Rect SidePanel::PixelsOf(const PanelButton &button) const {
    return {{pixels_.origin.x + button.frame.origin.x * scale_, pixels_.origin.y + button.frame.origin.y * scale_},
            {button.frame.size.width * scale_, button.frame.size.height * scale_}};
}

void SidePanel::Say(const std::string &message) {
    message_ = message;
}

void SidePanel::Refresh() {
    comments_.Show(Comments());
    std::vector<std::string> lines;
    for (const Fact &line : run_.Ask("log")) {
        lines.push_back(script::PlainText(line));
    }
    log_.Show(lines);
}

const PanelButton *SidePanel::ButtonAt(cg::Point pixel) const {
    const auto found = std::ranges::find_if(
        buttons_, [point = InPanel(pixel)](const PanelButton &button) { return Contains(button.frame, point); });
    return found != buttons_.end() ? &*found : nullptr;
}

void SidePanel::Press(cg::Point pixel) {
    const PanelButton *const button = ButtonAt(pixel);
    pressed_ = button != nullptr ? button->name : "";
}

void SidePanel::Release(cg::Point pixel) {
    const std::string pressed = std::exchange(pressed_, "");
    const PanelButton *const button = ButtonAt(pixel);
    if (button != nullptr && button->name == pressed) {
        button->act();
    }
}

void SidePanel::Scroll(cg::Point pixel, double lines) {
    for (ListBox *const list : {&comments_, &log_}) {
        if (Contains(list->frame(), InPanel(pixel))) {
            list->Scroll(lines);
        }
    }
}

/// Everything that the look of buttons and message depends on.
std::string SidePanel::ButtonsLook() const {
    std::string look = message_ + "\n" + pressed_ + "\n";
    for (const PanelButton &button : buttons_) {
        look += button.isChosen && button.isChosen() ? '1' : '0';
    }
    return look;
}

void SidePanel::Draw(cairo_t *context, std::vector<PixelRect> &drawn) {
    const auto add = [&](cg::Rect part) {
        const auto pixel = [&](double length) { return static_cast<int>(std::ceil(length * scale_)); };
        const int x = static_cast<int>(pixels_.origin.x + std::floor(part.origin.x * scale_));
        const int y = static_cast<int>(pixels_.origin.y + std::floor(part.origin.y * scale_));
        drawn.push_back({x, y, pixel(part.size.width) + 1, pixel(part.size.height) + 1});
    };
    const double width = pixels_.size.width / scale_;
    const double height = pixels_.size.height / scale_;
    cairo_save(context);
    cairo_rectangle(context, pixels_.origin.x, pixels_.origin.y, pixels_.size.width, pixels_.size.height);
    cairo_clip(context);
    cairo_translate(context, pixels_.origin.x, pixels_.origin.y);
    cairo_scale(context, scale_, scale_);
    const bool everything = std::exchange(backgroundDue_, false);
    if (everything) {
        SetPaint(context, kPanelColor);
        cairo_paint(context);
        add({{}, {width, height}});
    }
    const std::string look = ButtonsLook();
    if (everything || look != drawnLook_) {
        drawnLook_ = look;
        SetPaint(context, kPanelColor);
        cairo_rectangle(context, 0, 0, width, comments_.frame().origin.y);
        cairo_rectangle(context, 0, foot_, width, kFootHeight);
        cairo_fill(context);
        DrawButtons(context);
        DrawFoot(context);
        add({{}, {width, comments_.frame().origin.y}});
        add({{0, foot_}, {width, kFootHeight}});
    }
    for (ListBox *const list : {&comments_, &log_}) {
        if (everything || list->isStale()) {
            list->Draw(context);
            add(list->frame());
        }
    }
    cairo_restore(context);
}

void SidePanel::DrawButtons(cairo_t *context) const {
    for (const PanelButton &button : buttons_) {
        const bool chosen = button.isChosen && button.isChosen();
        SetPaint(context, button.name == pressed_ ? kPressedColor : chosen ? kChosenColor : kButtonColor);
        FillRounded(context, button.frame, 6);
        DrawText(context, button.title, kPanelFace, chosen ? kBoxColor : kTextColor, Grown(button.frame, -2), 0.5);
    }
    double y = kMargin;
    for (const Row &row : rows_) {
        DrawText(context, row.label, kTitleFace, kTextColor, {{kMargin, y}, {kLabelWidth - kGap, kRowHeight}});
        y += kRowHeight + kRowGap;
    }
}

void SidePanel::DrawFoot(cairo_t *context) const {
    const double width = pixels_.size.width / scale_ - 2 * kMargin;
    DrawText(context, message_, kSmallFace, kChosenColor, {{kMargin, foot_ + kRowGap / 2}, {width, kLineHeight}});
    DrawText(context, texts_.hint, kSmallFace, kPaleTextColor,
             {{kMargin, foot_ + kRowGap + kLineHeight + kRowHeight + 4}, {width, kLineHeight}});
}

} // namespace sim::window
