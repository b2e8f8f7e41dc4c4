#include "uikit/font.hpp"

#include "runtime/autorelease.hpp"
#include "runtime/native_class.hpp"

#include <functional>

namespace sim {
namespace {

constexpr double kSemiboldWeight = 0.3; // UIFontWeightSemibold: from here on the bold face is nearer

FontFace &StateOfFont(ui::Font font) {
    return StateOf<FontFace>(font);
}

ui::Font MakeFont(const FontFace &face) {
    const objc::Ref<ui::Font> font = ns::New<ui::Font>();
    StateOfFont(font) = face;
    return Autoreleased(font);
}

ui::Font SystemFontOfSize(objc::Object, objc::SEL, double size) {
    return MakeFont({size, false});
}

ui::Font BoldSystemFontOfSize(objc::Object, objc::SEL, double size) {
    return MakeFont({size, true});
}

ui::Font SystemFontOfSizeWeight(objc::Object, objc::SEL, double size, double weight) {
    return MakeFont({size, weight >= kSemiboldWeight});
}

template <double Size> double StandardSize(objc::Object, objc::SEL) {
    return Size;
}

ui::Font FontWithSize(ui::Font self, objc::SEL, double size) {
    return MakeFont({size, StateOfFont(self).bold});
}

double PointSize(ui::Font self, objc::SEL) {
    return StateOfFont(self).pointSize;
}

template <double FontMetrics::*Metric> double MetricOf(ui::Font self, objc::SEL) {
    return MetricsOf(StateOfFont(self)).*Metric;
}

double Leading(ui::Font, objc::SEL) {
    return 0;
}

ns::String FontName(ui::Font self, objc::SEL) {
    return StateOfFont(self).bold ? ".SFUI-Semibold"_ns : ".SFUI-Regular"_ns;
}

ns::String FamilyName(ui::Font, objc::SEL) {
    return ".AppleSystemUIFont"_ns;
}

bool IsEqual(ui::Font self, objc::SEL, ns::Object other) {
    return other && other.isKindOfClass(objc::ClassOf<ui::Font>()) &&
           StateOfFont(self) == StateOfFont(ui::Font{other.pointer});
}

unsigned long Hash(ui::Font self, objc::SEL) {
    return std::hash<double>{}(StateOfFont(self).pointSize);
}

} // namespace

void RegisterFont() {
    const objc::MethodEntry instanceMethods[] = {
        objc::MethodNamed<"fontWithSize:", &FontWithSize>(),
        objc::MethodNamed<"pointSize", &PointSize>(),
        objc::MethodNamed<"lineHeight", &MetricOf<&FontMetrics::lineHeight>>(),
        objc::MethodNamed<"ascender", &MetricOf<&FontMetrics::ascender>>(),
        objc::MethodNamed<"descender", &MetricOf<&FontMetrics::descender>>(),
        objc::MethodNamed<"capHeight", &MetricOf<&FontMetrics::capHeight>>(),
        objc::MethodNamed<"xHeight", &MetricOf<&FontMetrics::xHeight>>(),
        objc::MethodNamed<"leading", &Leading>(),
        objc::MethodNamed<"fontName", &FontName>(),
        objc::MethodNamed<"familyName", &FamilyName>(),
        objc::MethodNamed<"isEqual:", &IsEqual>(),
        objc::MethodNamed<"hash", &Hash>(),
    };
    const objc::MethodEntry classMethods[] = {
        objc::MethodNamed<"systemFontOfSize:", &SystemFontOfSize>(),
        objc::MethodNamed<"boldSystemFontOfSize:", &BoldSystemFontOfSize>(),
        objc::MethodNamed<"systemFontOfSize:weight:", &SystemFontOfSizeWeight>(),
        objc::MethodNamed<"labelFontSize", &StandardSize<17.0>>(),
        objc::MethodNamed<"buttonFontSize", &StandardSize<18.0>>(),
        objc::MethodNamed<"systemFontSize", &StandardSize<14.0>>(),
        objc::MethodNamed<"smallSystemFontSize", &StandardSize<12.0>>(),
    };
    RegisterClassWithState<FontFace>("UIFont", "NSObject", instanceMethods, classMethods);
}

FontFace FaceOf(ui::Font font) {
    return font ? StateOfFont(font) : FontFace{};
}

} // namespace sim
