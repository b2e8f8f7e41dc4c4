#include "driver/view_properties.hpp"

#include "apple/uikit/button.hpp"
#include "objc/encoding_compare.hpp"
#include "runtime/native_class.hpp"
#include "script/values.hpp"
#include "uikit/font.hpp"
#include "uikit/scene_state.hpp"
#include "uikit/view_geometry.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace sim::driver {
namespace {

Fact Describe(cg::Point point) {
    return {Bare(point.x), Bare(point.y)};
}

/// A colour as #RRGGBB and its alpha.
Fact Describe(ui::Color color) {
    const Rgba rgba = RgbaOf(color);
    return color ? Fact{Bare(Hex(rgba)), Bare(rgba.a)} : Fact{Bare("none")};
}

Fact Describe(const cg::AffineTransform &t) {
    return {Bare(t.a), Bare(t.b), Bare(t.c), Bare(t.d), Bare(t.tx), Bare(t.ty)};
}

Fact Describe(ui::Font font) {
    const FontFace face = FaceOf(font);
    return {Bare(face.pointSize), Bare(face.bold ? "bold" : "regular")};
}

/// A number or a truth.
template <class T>
    requires std::is_arithmetic_v<T>
Fact Describe(T value) {
    return {Bare(value)};
}

Fact Joined(Fact fact, const Fact &more) {
    Append(fact, more);
    return fact;
}

/// Whether a view has the getter with that result. A view of the app's may have one of that name and another type.
template <objc::FixedString Name, class R> bool Has(ui::View view) {
    const objc::Method method = class_getInstanceMethod(objc::object_getClass(view.pointer), objc::Selector<Name>());
    return method != nullptr &&
           objc::SameEncoding(objc::kMethodEncoding<R>.data, method_getTypeEncoding(method), objc::Integers::kExact);
}

/// A getter that not every view has; empty for a view without it.
template <objc::FixedString Name, class R> Fact Get(ui::View view) {
    return Has<Name, R>(view) ? Describe(objc::Send<Name, R>(view)) : Fact{};
}

/// The same for what a button has through the label of its title.
template <objc::FixedString Name, class R> Fact GetOfText(ui::View view) {
    const objc::SEL titleLabel = objc::Selector<"titleLabel">();
    return Get<Name, R>(view.respondsToSelector(titleLabel) ? objc::As<ui::View>(view.performSelector(titleLabel))
                                                            : view);
}

/// What a view's layer keeps. Asking does not make one.
const LayerState &Layer(ui::View view) {
    static const LayerState untouched;
    const ca::Layer layer = ViewStateOf(view).layer;
    return layer ? LayerStateOf(layer) : untouched;
}

/// A property that animations change.
struct Animated {
    const char *name;
    Fact (*describe)(const ViewValues &values);
};

constexpr Animated kAnimated[] = {
    {"frame", [](const ViewValues &values) { return DescribeRect(FrameOf(values)); }},
    {"bounds", [](const ViewValues &values) { return DescribeRect(values.bounds); }},
    {"center", [](const ViewValues &values) { return Describe(values.center); }},
    {"alpha", [](const ViewValues &values) { return Describe(values.alpha); }},
    {"background", [](const ViewValues &values) { return Describe(values.backgroundColor.get()); }},
    {"transform", [](const ViewValues &values) { return Describe(values.transform); }},
};

struct Property {
    const char *name;
    Fact (*describe)(ui::View view);
};

constexpr Property kProperties[] = {
    {"class", [](ui::View view) -> Fact { return {DescribeClass(view)}; }},
    {"title", [](ui::View view) -> Fact { return {script::Text(TextShown(view))}; }},
    {"text", [](ui::View view) -> Fact { return {script::Text(TextShown(view))}; }},
    {"tag", [](ui::View view) { return Describe(view.tag()); }},
    {"hidden", [](ui::View view) { return Describe(ViewStateOf(view).hidden); }},
    {"visible", [](ui::View view) { return Describe(IsVisible(view)); }},
    {"clips", [](ui::View view) { return Describe(ViewStateOf(view).clipsToBounds); }},
    {"radius", [](ui::View view) { return Describe(Layer(view).cornerRadius); }},
    {"zposition", [](ui::View view) { return Describe(Layer(view).zPosition); }},
    {"border",
     [](ui::View view) { return Joined({Bare(Layer(view).borderWidth)}, Describe(Layer(view).borderColor.get())); }},
    {"shadow",
     [](ui::View view) {
         const LayerState &layer = Layer(view);
         return Joined({Bare(layer.shadowOpacity), Bare(layer.shadowOffset.width), Bare(layer.shadowOffset.height),
                        Bare(layer.shadowRadius)},
                       Describe(layer.shadowColor.get()));
     }},
    {"font", &GetOfText<"font", ui::Font>},
    {"color", &GetOfText<"textColor", ui::Color>},
    {"lines", &GetOfText<"numberOfLines", long>},
    {"alignment", &GetOfText<"textAlignment", long>},
    {"on", &Get<"isOn", bool>},
    {"value", &Get<"value", float>},
    {"minimum", &Get<"minimumValue", float>},
    {"maximum", &Get<"maximumValue", float>},
    {"selected", &Get<"selectedSegmentIndex", long>},
    {"superview", [](ui::View view) { return DescribeView(view.superview()); }},
};

} // namespace

bool IsKind(ui::View view, const char *className) {
    const objc::Class cls = objc_getClass(className);
    return cls != nullptr && view.isKindOfClass(cls);
}

bool IsShown(ui::View view) {
    const ViewState &state = ViewStateOf(view);
    return !state.hidden && state.model.alpha > kVisibleAlpha;
}

bool IsVisible(ui::View view) {
    if (!view || !IsShown(view)) {
        return false;
    }
    const ui::View superview = view.superview();
    return superview ? IsVisible(superview) : IsKind(view, "UIWindow") && IsOnScreen(objc::As<ui::Window>(view));
}

std::string TextShown(ui::View view) {
    if (IsKind(view, "UIButton")) {
        return script::TextOf(objc::As<ui::Button>(view).titleForState(UIControlStateNormal));
    }
    if (!Has<"text", ns::String>(view)) {
        return {};
    }
    const auto text = objc::Send<"text", ns::Object>(view); // the app's own views may keep anything under that name
    return text.Is<ns::String>() ? script::TextOf(objc::As<ns::String>(text)) : std::string();
}

Word DescribeClass(ui::View view) {
    return Bare(script::ClassName(view));
}

Fact DescribeView(ui::View view) {
    if (!view) {
        return {Bare("nothing")};
    }
    Fact fact{DescribeClass(view)};
    if (const std::string text = TextShown(view); !text.empty()) {
        fact.push_back(script::Text(text));
    }
    return fact;
}

Fact DescribeRect(cg::Rect rect) {
    return {Bare(rect.origin.x), Bare(rect.origin.y), Bare(rect.size.width), Bare(rect.size.height)};
}

std::string Hex(const Rgba &color) {
    std::array<char, 8> text{};
    const auto byte = [](double part) { return static_cast<unsigned>(std::lround(part * 255)) & 0xFF; };
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", byte(color.r), byte(color.g), byte(color.b));
    return text.data();
}

bool IsProperty(const std::string &name) {
    return std::ranges::find(kAnimated, name, &Animated::name) != std::end(kAnimated) ||
           std::ranges::find(kProperties, name, &Property::name) != std::end(kProperties);
}

Fact PropertyNamed(ui::View view, const std::string &name) {
    for (const Animated &property : kAnimated) {
        if (name == property.name) {
            return property.describe(ViewStateOf(view).model);
        }
    }
    for (const Property &property : kProperties) {
        if (name == property.name) {
            return property.describe(view);
        }
    }
    return {};
}

Fact DescribeProperty(ui::View view, WordReader &words) {
    if (words.Take("key")) {
        return script::DescribeValue(view.valueForKey(script::MakeString(words.Name("a key"))));
    }
    const bool presented = words.Take("presented");
    const std::string name = words.Name("a property");
    if (presented) {
        const auto *const found = std::ranges::find(kAnimated, name, &Animated::name);
        if (found == std::end(kAnimated)) {
            words.Fail(name + " is nothing that animations change");
        }
        return found->describe(PresentedValues(view));
    }
    if (!IsProperty(name)) {
        words.Fail("views have no property " + name);
    }
    Fact fact = PropertyNamed(view, name);
    if (fact.empty()) {
        words.Fail(script::Render(DescribeView(view)) + " has no " + name);
    }
    return fact;
}

} // namespace sim::driver
