#pragma once
// What a UIView keeps: model values set through its methods, presented values while an animation runs.

#include "apple/uikit/gesture_recognizer.hpp"
#include "objc/ref.hpp"
#include "uikit/animation.hpp"
#include "uikit/drawing.hpp"

#include <cstdint>
#include <vector>

struct _cairo;

namespace sim {

/// The animatable values of a view, as UIKit's own properties have them.
struct ViewValues {
    cg::Point center;
    cg::Rect bounds;
    cg::AffineTransform transform;
    double alpha = 1;
    objc::Ref<ui::Color> backgroundColor;
};

struct ViewState {
    ViewValues model;
    bool hidden = false;
    bool clipsToBounds = false;
    bool userInteractionEnabled = true;
    bool multipleTouchEnabled = false;
    bool needsLayout = true;
    bool autoresizesSubviews = true;
    unsigned long autoresizingMask = 0; // UIViewAutoresizing
    long tag = 0;
    ui::View superview;                        // not owned, as in UIKit
    std::vector<objc::Ref<ui::View>> subviews; // back to front
    std::vector<objc::Ref<ui::GestureRecognizer>> recognizers;
    objc::Ref<ca::Layer> layer;            // made at first use
    ui::Responder controller;              // not owned; the view controller whose view this is
    std::vector<ViewAnimation> animations; // running or waiting for their delay
};

struct LayerState {
    double cornerRadius = 0;
    Corners corners = Corners::kCircular;
    double zPosition = 0;
    double borderWidth = 0;
    double shadowRadius = 3;
    float shadowOpacity = 0;
    cg::Size shadowOffset{0, -3};
    objc::Ref<ui::Color> shadowColor; // nil is opaque black, here and below
    objc::Ref<ui::Color> borderColor;
};

/// The state of a view; the view must not be nil.
ViewState &ViewStateOf(ui::View view);

/// The state of a layer; the layer must not be nil.
LayerState &LayerStateOf(ca::Layer layer);

/// Sets a view's model values, starting an animation of what changes when an animation block is running.
/// Raises CALayerInvalidGeometry when a length is not finite.
void SetViewValues(ui::View view, const ViewValues &values);

/// The values that the view shows at the present moment of the clock: the model's, or those of running animations.
ViewValues PresentedValues(ui::View view);

/// Draws a view's own content (not background, border, subviews) with the origin at its bounds' origin, in points.
using DrawContent = void (*)(ui::View view, _cairo *context);

/// A fingerprint of all that a view's drawing depends on, but for its presented size and the appearance.
using DrawnFrom = std::uint64_t (*)(ui::View view);

/// How a class's own content is drawn. What it is drawn from may be missing: then only the drawing itself shows whether
/// it has changed.
struct Drawing {
    DrawContent draw = nullptr;
    DrawnFrom from = nullptr;
};

/// Sets how instances of a class (by name) and of its subclasses draw their content.
void RegisterDrawing(const char *className, DrawContent draw, DrawnFrom from = nullptr);

/// How the view's nearest class that has a drawing draws; empty when the view draws nothing of its own.
Drawing DrawingOf(ui::View view);

} // namespace sim
