#include "uikit/image.hpp"

#include "apple/uikit/view.hpp"
#include "render/album.hpp"
#include "render/surface.hpp"
#include "runtime/clock.hpp"
#include "runtime/exception.hpp"
#include "runtime/failures.hpp"
#include "runtime/library_deeds.hpp"
#include "runtime/native_class.hpp"
#include "runtime/variants.hpp"
#include "uikit/application.hpp"
#include "uikit/classes.hpp"
#include "uikit/view_renderer.hpp"

#include <cmath>
#include <cstdio>
#include <vector>

namespace sim {
namespace {

struct ImageState {
    Surface pixels;
    double scale = 1;
};

cg::Size SizeOf(const ImageState &image) {
    return image.pixels ? cg::Size{cairo_image_surface_get_width(image.pixels.get()) / image.scale,
                                   cairo_image_surface_get_height(image.pixels.get()) / image.scale}
                        : cg::Size{};
}

/// An open image context. One of an empty size has no surface.
struct ImageContext {
    Surface surface;
    Context context;
    double scale = 1;
};

std::vector<ImageContext> &OpenContexts() {
    static std::vector<ImageContext> contexts;
    return contexts;
}

constexpr double kLargestSide = 32'767; // pixels, the most that a surface can have

ImageContext MakeContext(cg::Size size, bool opaque, double scale) {
    const double width = std::ceil(size.width * scale);
    const double height = std::ceil(size.height * scale);
    if (!(width > 0 && height > 0 && width <= kLargestSide && height <= kLargestSide)) {
        return {};
    }
    Surface surface(cairo_image_surface_create(opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
                                               static_cast<int>(width), static_cast<int>(height)));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        return {};
    }
    Context context(cairo_create(surface.get()));
    cairo_scale(context.get(), scale, scale);
    return {std::move(surface), std::move(context), scale};
}

Surface CopyPixels(cairo_surface_t *surface) {
    Surface copy(cairo_image_surface_create(cairo_image_surface_get_format(surface),
                                            cairo_image_surface_get_width(surface),
                                            cairo_image_surface_get_height(surface)));
    const Context context(cairo_create(copy.get()));
    cairo_set_source_surface(context.get(), surface, 0, 0);
    cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
    cairo_paint(context.get());
    return copy;
}

/// Whether there is a context to draw into. The last argument makes no difference: views are always drawn from their
/// present state.
bool DrawViewHierarchy(ui::View self, cg::Rect rect, bool) {
    if (OpenContexts().empty() || !OpenContexts().back().context) {
        return false;
    }
    LayoutWindows();
    ViewRenderer(OpenContexts().back().context.get()).DrawInRect(self, rect);
    return true;
}

/// Calls a completion of the form image:didFinishSavingWithError:contextInfo: in a later turn.
void Complete(const objc::Ref<ns::Object> &target, objc::SEL completion, const objc::Ref<ui::Image> &image,
              const objc::Ref<ns::Object> &error, void *context) {
    clock::Schedule(0, [=] {
        using Completion = void (*)(objc::id, objc::SEL, ui::Image, ns::Object, void *);
        const objc::id receiver = target.get().pointer;
        reinterpret_cast<Completion>(objc_msg_lookup(receiver, completion))(receiver, completion, image, error.get(),
                                                                            context);
    });
}

} // namespace

void DefineImage() {
    auto image = Class<ImageState>("UIImage", "NSObject");
    image.Method<"size", &SizeOf>();
    image.ReadOnly<"scale", &ImageState::scale>();

    auto view = Class<>::Existing("UIView");
    view.Method<"drawViewHierarchyInRect:afterScreenUpdates:", &DrawViewHierarchy>();
}

std::size_t OpenImageContexts() {
    return OpenContexts().size();
}

cairo_surface_t *PixelsOf(ui::Image image) {
    return image ? StateOf<ImageState>(image).pixels.get() : nullptr;
}

} // namespace sim

namespace {

/// What the platform says to an app that may not write to the album.
struct AlbumError : objc::Object {
    using Object::Object;
    static constexpr const char *kClassName = "NSError";
};
constexpr long kAccessDenied = -3310;

} // namespace

extern "C" {

void UIGraphicsBeginImageContextWithOptions(cg::Size size, bool opaque, double scale) {
    if (!(size.width > 0 && size.height > 0) && sim::Otherwise(sim::Variant::kEmptyImageContext)) {
        char reason[128];
        std::snprintf(reason, sizeof reason,
                      "UIGraphicsBeginImageContext() failed to allocate: size={%g, %g}, scale=%g", size.width,
                      size.height, scale);
        sim::RaiseException("NSInternalInconsistencyException", reason);
    }
    sim::OpenContexts().push_back(sim::MakeContext(size, opaque, scale > 0 ? scale : sim::ScreenScale()));
}

objc::id UIGraphicsGetImageFromCurrentImageContext() {
    if (sim::OpenContexts().empty() || !sim::OpenContexts().back().surface) {
        return nullptr;
    }
    const sim::ImageContext &context = sim::OpenContexts().back();
    const auto image = ns::New<ui::Image>();
    auto &state = sim::StateOf<sim::ImageState>(image.get());
    state.pixels = sim::CopyPixels(context.surface.get());
    state.scale = context.scale;
    return sim::Autoreleased(image).pointer;
}

void UIGraphicsEndImageContext() {
    if (!sim::OpenContexts().empty()) {
        sim::OpenContexts().pop_back();
    }
}

void UIImageWriteToSavedPhotosAlbum(ui::Image image, ns::Object target, objc::SEL completion, void *context) {
    cairo_surface_t *pixels = sim::PixelsOf(image);
    if (pixels == nullptr) {
        return;
    }
    sim::NoteDeed("album", "write", nullptr);
    const objc::Ref<ns::Object> refusal =
        sim::Fails(sim::Failure::kAlbum)
            ? objc::Ref<ns::Object>(objc::SendClass<AlbumError, "errorWithDomain:code:userInfo:", ns::Object>(
                  "ALAssetsLibraryErrorDomain"_ns, kAccessDenied, ns::Dictionary{}))
            : objc::Ref<ns::Object>{};
    if (!refusal) {
        sim::SaveToAlbum(pixels, sim::StateOf<sim::ImageState>(image).scale);
    }
    if (target && completion != nullptr) {
        sim::Complete(target, completion, image, refusal, context);
    }
}
}
