#pragma once
// A titled box of texts, the latest at its end.

#include "apple/coregraphics/geometry.hpp"

#include <string>
#include <vector>

struct _cairo;

namespace sim::window {

class ListBox {
  public:
    /// `none` stands in the box while it holds nothing.
    ListBox(const char *title, const char *none) : title_(title), none_(none) {}

    /// Where it lies, title and all; panel points.
    void Place(cg::Rect frame);
    const cg::Rect &frame() const {
        return frame_;
    }

    /// What it holds from now on (UTF-8). It goes on showing its end, unless it is scrolled away from it.
    void Show(const std::vector<std::string> &texts);

    /// Scrolls by so many lines; up is above zero.
    void Scroll(double lines);

    /// Whether it looks different from when it was drawn last.
    bool isStale() const {
        return stale_;
    }
    void Draw(_cairo *context);

  private:
    void Wrap();
    std::size_t LinesThatFit() const;

    const char *title_;
    const char *none_;
    cg::Rect frame_;
    std::vector<std::string> texts_;
    std::vector<std::u16string> lines_; // as wrapped
    double scrolled_ = 0;               // lines up from the end
    bool stale_ = true;
};

} // namespace sim::window
