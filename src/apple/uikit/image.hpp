#pragma once
// UIImage, image contexts and the photo album.

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/object.hpp"

namespace ui {

struct Image : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "UIImage";
};

} // namespace ui

extern "C" {
/// Opens a bitmap context of the size (points) at the scale (pixels per point) and makes it current.
void UIGraphicsBeginImageContextWithOptions(cg::Size size, bool opaque, double scale);
/// The current bitmap context's picture; nil when there is no context or it is empty.
objc::id UIGraphicsGetImageFromCurrentImageContext();
void UIGraphicsEndImageContext();
/// Saves the picture to the user's photo album; target, selector and context of the completion may be nil.
void UIImageWriteToSavedPhotosAlbum(ui::Image image, ns::Object target, objc::SEL completion, void *context);
}
