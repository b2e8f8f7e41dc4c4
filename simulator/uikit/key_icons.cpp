#include "uikit/key_icons.hpp"

#include <cairo.h>
#include <initializer_list>
#include <numbers>

namespace sim {
namespace {

constexpr double kWhole = 2 * std::numbers::pi;

/// Lines from place to place, in points from the picture's middle.
void AddLines(cairo_t *context, std::initializer_list<cg::Point> places) {
    cairo_new_sub_path(context);
    for (const cg::Point place : places) {
        cairo_line_to(context, place.x, place.y);
    }
}

void AddOval(cairo_t *context, cg::Point middle, double width, double height) {
    cairo_save(context);
    cairo_translate(context, middle.x, middle.y);
    cairo_scale(context, width / 2, height / 2);
    cairo_new_sub_path(context);
    cairo_arc(context, 0, 0, 1, 0, kWhole);
    cairo_restore(context);
}

void AddShift(cairo_t *context) {
    AddLines(context, {{0, -9}, {9, 0.5}, {4, 0.5}, {4, 8}, {-4, 8}, {-4, 0.5}, {-9, 0.5}});
    cairo_close_path(context);
}

void AddDelete(cairo_t *context) {
    AddLines(context, {{-11, 0}, {-4.5, -7.5}, {10, -7.5}, {10, 7.5}, {-4.5, 7.5}});
    cairo_close_path(context);
    AddLines(context, {{-0.5, -3}, {5.5, 3}});
    AddLines(context, {{5.5, -3}, {-0.5, 3}});
}

void AddFace(cairo_t *context) {
    AddOval(context, {0, 0}, 20, 20);
    AddOval(context, {-3.4, -2.6}, 1, 2);
    AddOval(context, {3.4, -2.6}, 1, 2);
    cairo_new_sub_path(context);
    cairo_arc(context, 0, 1, 5, 0.15 * std::numbers::pi, 0.85 * std::numbers::pi);
}

void AddGlobe(cairo_t *context) {
    AddOval(context, {0, 0}, 22, 22);
    AddOval(context, {0, 0}, 10, 22);
    AddLines(context, {{-11, 0}, {11, 0}});
    AddLines(context, {{0, -11}, {0, 11}});
    AddLines(context, {{-9.3, -5.8}, {9.3, -5.8}});
    AddLines(context, {{-9.3, 5.8}, {9.3, 5.8}});
}

void AddMicrophone(cairo_t *context) {
    cairo_new_sub_path(context);
    cairo_arc(context, 0, -7, 4, std::numbers::pi, kWhole);
    cairo_arc(context, 0, 1, 4, 0, std::numbers::pi);
    cairo_close_path(context);
    cairo_new_sub_path(context);
    cairo_arc(context, 0, 1, 7.5, 0, std::numbers::pi);
    AddLines(context, {{0, 8.5}, {0, 12}});
    AddLines(context, {{-4, 12}, {4, 12}});
}

} // namespace

void DrawKeyIcon(cairo_t *context, cg::Rect rect, KeyIcon icon) {
    constexpr double kLine = 1.6;
    cairo_save(context);
    cairo_translate(context, rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2);
    cairo_new_path(context);
    switch (icon) {
    case KeyIcon::kShift:
        AddShift(context);
        break;
    case KeyIcon::kDelete:
        AddDelete(context);
        break;
    case KeyIcon::kFace:
        AddFace(context);
        break;
    case KeyIcon::kGlobe:
        AddGlobe(context);
        break;
    case KeyIcon::kMicrophone:
        AddMicrophone(context);
        break;
    case KeyIcon::kMore:
        AddLines(context, {{-7, -3}, {0, 4}, {7, -3}});
        break;
    }
    cairo_set_line_width(context, kLine);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_stroke(context);
    cairo_restore(context);
}

} // namespace sim
