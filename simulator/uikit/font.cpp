#include "uikit/font.hpp"

#include "runtime/native_class.hpp"
#include "uikit/classes.hpp"

#include <functional>

namespace sim {
namespace {

constexpr double kSemiboldWeight = 0.3; // UIFontWeightSemibold: from here on the bold face is nearer

objc::Ref<ui::Font> MakeFont(const FontFace &face) {
    objc::Ref<ui::Font> font = ns::New<ui::Font>();
    StateOf<FontFace>(font) = face;
    return font;
}

void DefineFonts(Class<FontFace> &font) {
    font.ClassMethod<"systemFontOfSize:">([](ui::Font, double size) { return MakeFont({size, false}); });
    font.ClassMethod<"boldSystemFontOfSize:">([](ui::Font, double size) { return MakeFont({size, true}); });
    font.ClassMethod<"systemFontOfSize:weight:">(
        [](ui::Font, double size, double weight) { return MakeFont({size, weight >= kSemiboldWeight}); });
    font.Method<"fontWithSize:">([](const FontFace &face, double size) { return MakeFont({size, face.bold}); });
}

void DefineSizes(Class<FontFace> &font) {
    font.ClassMethod<"labelFontSize">([](ui::Font) { return 17.0; });
    font.ClassMethod<"buttonFontSize">([](ui::Font) { return 18.0; });
    font.ClassMethod<"systemFontSize">([](ui::Font) { return 14.0; });
    font.ClassMethod<"smallSystemFontSize">([](ui::Font) { return 12.0; });
    font.ReadOnly<"pointSize", &FontFace::pointSize>();
    font.Method<"lineHeight">([](const FontFace &face) { return MetricsOf(face).lineHeight; });
    font.Method<"ascender">([](const FontFace &face) { return MetricsOf(face).ascender; });
    font.Method<"descender">([](const FontFace &face) { return MetricsOf(face).descender; });
    font.Method<"capHeight">([](const FontFace &face) { return MetricsOf(face).capHeight; });
    font.Method<"xHeight">([](const FontFace &face) { return MetricsOf(face).xHeight; });
    font.Method<"leading">([](const FontFace &) { return 0.0; });
}

} // namespace

void DefineFont() {
    auto font = Class<FontFace>("UIFont", "NSObject");
    DefineFonts(font);
    DefineSizes(font);
    font.Method<"fontName">([](const FontFace &face) { return face.bold ? ".SFUI-Semibold"_ns : ".SFUI-Regular"_ns; });
    font.Method<"familyName">([](const FontFace &) { return ".AppleSystemUIFont"_ns; });
    font.Method<"isEqual:">([](const FontFace &face, ns::Object other) {
        return other.isKindOfClass(objc::ClassOf<ui::Font>()) && face == StateOf<FontFace>(other);
    });
    font.Method<"hash">([](const FontFace &face) -> unsigned long { return std::hash<double>{}(face.pointSize); });
}

FontFace FaceOf(ui::Font font) {
    return font ? StateOf<FontFace>(font) : FontFace{};
}

ui::Font DefaultFont() {
    return ui::Font::systemFontOfSize(FontFace{}.pointSize);
}

} // namespace sim
