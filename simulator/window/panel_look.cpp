#include "window/panel_look.hpp"

#include "script/text.hpp"
#include "uikit/drawing.hpp"

namespace sim::window {

void DrawText(_cairo *context, const std::string &text, const FontFace &face, Rgba color, cg::Rect box,
              double alignment) {
    const FontMetrics metrics = MetricsOf(face);
    const double baseline = box.origin.y + (box.size.height - metrics.lineHeight) / 2 + metrics.ascender;
    SetPaint(context, color);
    DrawLine(context, script::ToUtf16(text).value_or(u"\uFFFD"), face,
             {box.origin.x, baseline, box.size.width, alignment}, Truncation::kTail);
}

} // namespace sim::window
