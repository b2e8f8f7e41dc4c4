#include "driver/queries/view_properties.hpp"

#include "apple/uikit/label.hpp"
#include "driver/targets.hpp"
#include "runtime/native_class.hpp"
#include "script/values.hpp"
#include "uikit/color.hpp"
#include "uikit/font.hpp"
#include "uikit/view_geometry.hpp"

#include <array>
#include <cmath>
#include <cstdio>

namespace sim::driver {
namespace {

using script::Bare;
using script::Fact;
using script::WordReader;

Fact Numbers(std::initializer_list<double> numbers) {
    Fact fact;
    for (const double number : numbers) {
        fact.push_back(Bare(number));
    }
    return fact;
}

Fact Truth(bool value) {
    return {Bare(value ? "true" : "false")};
}

Fact DescribeRect(cg::Rect rect) {
    return Numbers({rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
}

/// A colour as #RRGGBB and its alpha.
Fact DescribeColor(ui::Color color) {
    if (!color) {
        return {Bare("none")};
    }
    const Rgba rgba = RgbaOf(color);
    std::array<char, 8> text{};
    const auto byte = [](double part) { return static_cast<unsigned>(std::lround(part * 255)) & 0xFF; };
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", byte(rgba.r), byte(rgba.g), byte(rgba.b));
    return {Bare(text.data()), Bare(rgba.a)};
}

/// Sends a getter that not every view has.
template <objc::FixedString Name, class R> R Get(ui::View view, const WordReader &words) {
    if (!view.respondsToSelector(objc::Selector<Name>())) {
        words.Fail(script::Render(DescribeView(view)) + " has no " + Name.data);
    }
    return objc::Send<Name, R>(view);
}

/// Properties that animations change; `presented` picks the values shown now.
struct Animated {
    const char *name;
    Fact (*describe)(const ViewValues &values);
};

constexpr Animated kAnimated[] = {
    {"frame", [](const ViewValues &values) { return DescribeRect(FrameOf(values)); }},
    {"bounds", [](const ViewValues &values) { return DescribeRect(values.bounds); }},
    {"center", [](const ViewValues &values) { return Numbers({values.center.x, values.center.y}); }},
    {"alpha", [](const ViewValues &values) { return Numbers({values.alpha}); }},
    {"background", [](const ViewValues &values) { return DescribeColor(values.backgroundColor); }},
    {"transform",
     [](const ViewValues &values) {
         const cg::AffineTransform &t = values.transform;
         return Numbers({t.a, t.b, t.c, t.d, t.tx, t.ty});
     }},
};

struct Property {
    const char *name;
    Fact (*describe)(ui::View view, WordReader &words);
};

const LayerState &Layer(ui::View view) {
    return StateOf<LayerState>(view.layer());
}

/// The label that shows a button's title, any other view itself.
ui::View TextHolder(ui::View view) {
    const objc::SEL titleLabel = objc::Selector<"titleLabel">();
    return view.respondsToSelector(titleLabel) ? objc::As<ui::View>(view.performSelector(titleLabel)) : view;
}

Fact DescribeShadow(ui::View view, WordReader &) {
    const LayerState &layer = Layer(view);
    Fact fact = Numbers({layer.shadowOpacity, layer.shadowOffset.width, layer.shadowOffset.height, layer.shadowRadius});
    const Fact color = DescribeColor(layer.shadowColor);
    fact.insert(fact.end(), color.begin(), color.end());
    return fact;
}

Fact DescribeFont(ui::View view, WordReader &words) {
    const FontFace face = FaceOf(Get<"font", ui::Font>(TextHolder(view), words));
    return {Bare(face.pointSize), Bare(face.bold ? "bold" : "regular")};
}

Fact DescribeKey(ui::View view, WordReader &words) {
    return script::DescribeValue(view.valueForKey(script::MakeString(words.Name("a key"))));
}

constexpr Property kProperties[] = {
    {"class", [](ui::View view, WordReader &) -> Fact { return {DescribeClass(view)}; }},
    {"title", [](ui::View view, WordReader &) -> Fact { return {script::Text(TextShown(view))}; }},
    {"text", [](ui::View view, WordReader &) -> Fact { return {script::Text(TextShown(view))}; }},
    {"tag", [](ui::View view, WordReader &) -> Fact { return {Bare(std::to_string(view.tag()))}; }},
    {"hidden", [](ui::View view, WordReader &) { return Truth(ViewStateOf(view).hidden); }},
    {"visible", [](ui::View view, WordReader &) { return Truth(IsVisible(view)); }},
    {"clips", [](ui::View view, WordReader &) { return Truth(ViewStateOf(view).clipsToBounds); }},
    {"radius", [](ui::View view, WordReader &) { return Numbers({Layer(view).cornerRadius}); }},
    {"zposition", [](ui::View view, WordReader &) { return Numbers({Layer(view).zPosition}); }},
    {"border",
     [](ui::View view, WordReader &) {
         Fact fact = Numbers({Layer(view).borderWidth});
         const Fact color = DescribeColor(Layer(view).borderColor);
         fact.insert(fact.end(), color.begin(), color.end());
         return fact;
     }},
    {"shadow", DescribeShadow},
    {"font", DescribeFont},
    {"color", [](ui::View view,
                 WordReader &words) { return DescribeColor(Get<"textColor", ui::Color>(TextHolder(view), words)); }},
    {"lines",
     [](ui::View view, WordReader &words) -> Fact {
         return {Bare(std::to_string(Get<"numberOfLines", long>(TextHolder(view), words)))};
     }},
    {"alignment",
     [](ui::View view, WordReader &words) -> Fact {
         return {Bare(std::to_string(Get<"textAlignment", long>(TextHolder(view), words)))};
     }},
    {"on", [](ui::View view, WordReader &words) { return Truth(Get<"isOn", bool>(view, words)); }},
    {"value", [](ui::View view, WordReader &words) { return Numbers({Get<"value", float>(view, words)}); }},
    {"minimum", [](ui::View view, WordReader &words) { return Numbers({Get<"minimumValue", float>(view, words)}); }},
    {"maximum", [](ui::View view, WordReader &words) { return Numbers({Get<"maximumValue", float>(view, words)}); }},
    {"selected",
     [](ui::View view, WordReader &words) -> Fact {
         return {Bare(std::to_string(Get<"selectedSegmentIndex", long>(view, words)))};
     }},
    {"superview", [](ui::View view, WordReader &) -> Fact { return DescribeView(view.superview()); }},
    {"key", DescribeKey},
};

} // namespace

Fact DescribeProperty(ui::View view, WordReader &words) {
    const bool presented = words.Take("presented");
    const std::string name = words.Name("a property");
    for (const Animated &property : kAnimated) {
        if (name == property.name) {
            return property.describe(presented ? PresentedValues(view) : ViewStateOf(view).model);
        }
    }
    for (const Property &property : kProperties) {
        if (name == property.name && !presented) {
            return property.describe(view, words);
        }
    }
    words.Fail(presented ? name + " is nothing that animations change" : "views have no property " + name);
}

} // namespace sim::driver
