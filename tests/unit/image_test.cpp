// What leaves the app: image contexts, the album, screenshots, haptics.

#include "apple/uikit/feedback.hpp"
#include "apple/uikit/image.hpp"
#include "apple/uikit/window.hpp"
#include "drawing_support.hpp"
#include "render/album.hpp"
#include "runtime/clock.hpp"
#include "uikit/application.hpp"
#include "uikit/haptics.hpp"
#include "uikit/image.hpp"
#include "uikit/screenshot.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

using namespace corvel::test;

class Images : public Drawing {};
class Haptics : public Drawing {};

/// A path that no other run of the tests uses.
std::filesystem::path TemporaryPath(const char *name) {
    return std::filesystem::temp_directory_path() / (std::string(name) + "-" + std::to_string(getpid()));
}

cg::Size SizeOf(ui::Image image) {
    return objc::Send<"size", cg::Size>(image);
}

TEST_F(Images, EmptyContextsGiveNone) {
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr) << "no context at all";
    UIGraphicsEndImageContext();
    for (const cg::Size size :
         {cg::Size{0, 0}, cg::Size{10, 0}, cg::Size{-5, 10}, cg::Size{kNaN, 10}, cg::Size{kUnlimited, kUnlimited}}) {
        UIGraphicsBeginImageContextWithOptions(size, false, 3);
        EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr) << size.width;
        EXPECT_FALSE(Box({{0, 0}, {10, 10}}, Rgb(0xFF0000))->drawViewHierarchyInRect({{0, 0}, {10, 10}}, true));
        UIGraphicsEndImageContext();
    }
}

TEST_F(Images, ViewsAreDrawnAtTheContextsScale) {
    const auto view = Box({{70, 70}, {20, 10}}, Rgb(0xFF0000));
    view->addSubview(Box({{10, 0}, {10, 10}}, Rgb(0x00FF00)));
    UIGraphicsBeginImageContextWithOptions({20, 10}, false, 3);
    UIGraphicsBeginImageContextWithOptions({5, 5}, false, 1); // contexts nest
    UIGraphicsEndImageContext();
    EXPECT_TRUE(view->drawViewHierarchyInRect({{0, 0}, {20, 10}}, true));
    const ui::Image image{UIGraphicsGetImageFromCurrentImageContext()};
    UIGraphicsEndImageContext();
    ASSERT_TRUE(image);
    EXPECT_EQ(SizeOf(image), (cg::Size{20, 10}));
    EXPECT_EQ((objc::Send<"scale", double>(image)), 3);
    cairo_surface_t *pixels = sim::PixelsOf(image);
    ASSERT_EQ(cairo_image_surface_get_width(pixels), 60);
    const auto *row = reinterpret_cast<const std::uint32_t *>(cairo_image_surface_get_data(pixels));
    EXPECT_EQ(row[0], kRed);
    EXPECT_EQ(row[29], kRed);
    EXPECT_EQ(row[30], kGreen);
    UIGraphicsBeginImageContextWithOptions({4, 4}, true, 0);
    EXPECT_EQ((objc::Send<"scale", double>(ui::Image{UIGraphicsGetImageFromCurrentImageContext()})), sim::ScreenScale())
        << "scale 0 is the screen's";
    UIGraphicsEndImageContext();
}

TEST_F(Images, TheAlbumKeepsWhatIsSaved) {
    const auto directory = TemporaryPath("corvel-unit-album");
    std::filesystem::remove_all(directory);
    sim::OpenAlbum(directory.string(), true);
    UIImageWriteToSavedPhotosAlbum(nullptr, nullptr, nullptr, nullptr);
    EXPECT_TRUE(sim::AlbumPictures().empty()) << "nil saves nothing";
    UIGraphicsBeginImageContextWithOptions({20, 10}, false, 2);
    const ui::Image image{UIGraphicsGetImageFromCurrentImageContext()};
    UIGraphicsEndImageContext();
    UIImageWriteToSavedPhotosAlbum(image, nullptr, nullptr, nullptr);
    UIImageWriteToSavedPhotosAlbum(image, nullptr, nullptr, nullptr);
    sim::OpenAlbum(directory.string(), false); // as the next process does
    ASSERT_EQ(sim::AlbumPictures().size(), 2U);
    const sim::AlbumPicture &saved = sim::AlbumPictures().back();
    EXPECT_EQ(saved.width, 20);
    EXPECT_EQ(saved.height, 10);
    EXPECT_EQ(saved.scale, 2);
    EXPECT_NE(saved.path, sim::AlbumPictures()[0].path);
    const sim::Surface file(cairo_image_surface_create_from_png(saved.path.c_str()));
    EXPECT_EQ(cairo_image_surface_get_width(file.get()), 40);
    std::filesystem::remove_all(directory);
}

struct Target : ns::Object {
    using ns::Object::Object;
    static constexpr const char *kClassName = "CorvelTestAlbumTarget";
};

bool completed = false;

void DidFinishSaving(objc::Object, objc::SEL, ui::Image image, ns::Object error, void *context) {
    completed = image && !error && context == &completed;
}

TEST_F(Images, SavingTellsItsTargetLater) {
    const objc::MethodEntry methods[] = {
        objc::MethodNamed<"image:didFinishSavingWithError:contextInfo:", &DidFinishSaving>()};
    ASSERT_NE(corvel::test::RegisterClass("CorvelTestAlbumTarget", "NSObject", methods), nullptr);
    UIGraphicsBeginImageContextWithOptions({4, 4}, false, 1);
    UIImageWriteToSavedPhotosAlbum(ui::Image{UIGraphicsGetImageFromCurrentImageContext()}, ns::New<Target>().get(),
                                   objc::Selector<"image:didFinishSavingWithError:contextInfo:">(), &completed);
    UIGraphicsEndImageContext();
    EXPECT_FALSE(completed);
    sim::clock::Drain();
    EXPECT_TRUE(completed);
}

TEST_F(Images, TheScreenShowsItsWindows) {
    const ui::WindowScene scene = sim::MakeWindowScene(UISceneActivationStateForegroundActive);
    const auto shown = objc::Ref<ui::Window>::Adopt(ns::Alloc<ui::Window>().initWithWindowScene(scene));
    shown->setFrame({{0, 0}, sim::ScreenSize()});
    shown->setWindowLevel(1e6);
    shown->setBackgroundColor(Rgb(0x0000FF));
    shown->addSubview(Box({{100, 100}, {50, 50}}, Rgb(0xFF0000)));
    shown->setHidden(false);
    const std::string path = TemporaryPath("corvel-unit-screen").string() + ".png";
    ASSERT_TRUE(sim::WriteScreenshot(path));
    const sim::Surface file(cairo_image_surface_create_from_png(path.c_str()));
    std::filesystem::remove(path);
    EXPECT_EQ(cairo_image_surface_get_width(file.get()), 2 * sim::ScreenSize().width);
    EXPECT_EQ(cairo_image_surface_get_height(file.get()), 2 * sim::ScreenSize().height);
    const auto at = [&](int x, int y) {
        const unsigned char *data = cairo_image_surface_get_data(file.get());
        return 0xFF000000 | reinterpret_cast<const std::uint32_t *>(
                                data + static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(file.get()))[x];
    };
    EXPECT_EQ(at(250, 250), kRed);
    EXPECT_EQ(at(10, 10), kBlue);
    EXPECT_EQ(at(390, 2 * 844 - 21), 0xFFFFFFFF) << "the home indicator, light over what is dark";
    shown->setBackgroundColor(Rgb(0xFFFF00));
    ASSERT_TRUE(sim::WriteScreenshot(path));
    const sim::Surface light(cairo_image_surface_create_from_png(path.c_str()));
    std::filesystem::remove(path);
    const auto *row = reinterpret_cast<const std::uint32_t *>(cairo_image_surface_get_data(light.get()) +
                                                              std::ptrdiff_t{2 * 844 - 21} *
                                                                  cairo_image_surface_get_stride(light.get()));
    EXPECT_EQ(row[390] & 0xFFFFFF, 0U) << "dark over what is light";
    EXPECT_FALSE(sim::WriteScreenshot("/no/such/directory/screen.png"));
    shown->setHidden(true);
    sim::DisconnectScene(scene);
}

TEST_F(Haptics, ImpactsAreRecordedWithTimeAndStyle) {
    const std::size_t before = sim::HapticImpacts().size();
    const auto generator = objc::Ref<ui::ImpactFeedbackGenerator>::Adopt(
        ns::Alloc<ui::ImpactFeedbackGenerator>().initWithStyle(UIImpactFeedbackStyleMedium));
    generator->prepare();
    EXPECT_EQ(sim::HapticImpacts().size(), before) << "nothing is felt yet";
    sim::clock::Advance(2);
    generator->impactOccurred();
    ASSERT_EQ(sim::HapticImpacts().size(), before + 1);
    EXPECT_EQ(sim::HapticImpacts().back().style, UIImpactFeedbackStyleMedium);
    EXPECT_EQ(sim::HapticImpacts().back().time, sim::clock::Now());
    EXPECT_TRUE(sim::HapticImpacts().back().prepared);
}

} // namespace
