#pragma once
// The panel beside the phone: what can be done to app and phone, what the app received, what the library wrote down.

#include "render/surface.hpp"
#include "window/list_box.hpp"
#include "window/live_run.hpp"
#include "window/texts.hpp"

#include <functional>
#include <string>
#include <vector>

namespace sim::window {

/// The room that the panel needs, in its own points.
inline constexpr double kPanelWidth = 360;
inline constexpr double kLeastPanelHeight = 540;

struct PanelButton {
    std::string name; // for programs that steer the window: the same in every language
    std::string title;
    std::function<void()> act;
    std::function<bool()> isChosen = {}; // empty for one that never looks chosen
    cg::Rect frame = {};                 // panel points
};

class SidePanel {
  public:
    /// `save` is what the button at the bottom does.
    SidePanel(LiveRun &run, const std::string &host, const Texts &texts, std::function<void()> save);

    /// Its place from now on: window pixels, and pixels a panel point.
    void Place(cg::Rect pixels, double scale);

    /// A point of the window in the panel's own points; frames of buttons are in these.
    cg::Point InPanel(cg::Point pixel) const;
    bool Holds(cg::Point pixel) const;
    /// Pixels a panel point.
    double scale() const {
        return scale_;
    }

    /// Shows a line above the button at the bottom.
    void Say(const std::string &message);

    /// Looks what app and library have to show by now.
    void Refresh();

    /// Draws what looks different into the window's picture (pixels) and adds the pixels that it drew.
    void Draw(cairo_t *context, std::vector<PixelRect> &drawn);

    /// The mouse at a point of the window: pressed, let go, or its wheel turned by so many lines (up is above zero).
    void Press(cg::Point pixel);
    void Release(cg::Point pixel);
    void Scroll(cg::Point pixel, double lines);

    const std::vector<PanelButton> &buttons() const {
        return buttons_;
    }
    /// Where a button is in the window, pixels.
    cg::Rect PixelsOf(const PanelButton &button) const;

  private:
    struct Row {
        std::string label; // may be empty
        std::size_t count; // of buttons, which share the width
    };

    PanelButton Line(const char *name, const char *title, const std::string &line, std::function<bool()> isChosen = {});
    void AddRow(const std::string &label, std::vector<PanelButton> buttons);
    void LayOut();
    const PanelButton *ButtonAt(cg::Point pixel) const;
    std::string ButtonsLook() const;
    void DrawButtons(cairo_t *context) const;
    void DrawFoot(cairo_t *context) const;

    LiveRun &run_;
    const Texts &texts_;
    cg::Rect pixels_;
    double scale_ = 1;
    int rooms_ = 0; // entered so far
    std::vector<Row> rows_;
    std::vector<PanelButton> buttons_; // row by row
    std::string pressed_;              // the name of the button on which the mouse was pressed
    std::string message_;
    ListBox comments_;
    ListBox log_;
    double foot_ = 0;       // where the part below the lists begins
    std::string drawnLook_; // of the buttons
    bool backgroundDue_ = true;
};

} // namespace sim::window
