#include "render/fonts.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fontconfig/fontconfig.h>
#include <map>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>
#include <string>
#include <string_view>
#include <utility>

namespace sim {
namespace {

// Only these files are looked at, and of the collections in them only these families and, of the many weights of Latin,
// the two that are set: fonts are sorted anew for each size, by what each adds to those before it. Latin is Inter's:
// with the phone's tracking its words are as wide as the system font's to about one part in a hundred. Its contextual
// forms, which make arrows of "->", are not the phone's.
constexpr const char *kConfiguration = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts</dir>
  <dir>/usr/local/share/fonts</dir>
  <dir prefix="xdg">fonts</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <selectfont>
    <acceptfont><pattern><patelt name="family"><string>Inter</string></patelt>
      <patelt name="slant"><const>roman</const></patelt><patelt name="weight"><const>regular</const></patelt></pattern>
    </acceptfont>
    <acceptfont><pattern><patelt name="family"><string>Inter</string></patelt>
      <patelt name="slant"><const>roman</const></patelt><patelt name="weight"><const>demibold</const></patelt></pattern>
    </acceptfont>
    <acceptfont><pattern><patelt name="family"><string>Noto Sans CJK SC</string></patelt></pattern></acceptfont>
    <acceptfont><pattern><patelt name="family"><string>DejaVu Sans</string></patelt>
      <patelt name="slant"><const>roman</const></patelt><patelt name="width"><const>normal</const></patelt></pattern>
    </acceptfont>
    <acceptfont><pattern><patelt name="family"><string>Noto Color Emoji</string></patelt></pattern></acceptfont>
    <rejectfont><pattern></pattern></rejectfont>
  </selectfont>
  <alias binding="same"><family>emoji</family><prefer><family>Noto Color Emoji</family></prefer></alias>
  <!-- Antialiasing is cairo's to choose: set here, cairo draws no coloured pictures. -->
  <match target="font">
    <edit name="hinting" mode="assign"><bool>false</bool></edit>
    <edit name="hintstyle" mode="assign"><const>hintnone</const></edit>
    <edit name="autohint" mode="assign"><bool>false</bool></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit>
  </match>
  <match target="font">
    <test name="family"><string>Inter</string></test>
    <edit name="fontfeatures" mode="append"><string>calt off</string></edit>
  </match>
  <!-- Emoji come as pictures of one size: shrink them to the size asked for. -->
  <match target="font">
    <test name="outline"><bool>false</bool></test>
    <edit name="shrink" mode="assign">
      <divide><name target="pattern">pixelsize</name><name target="font">pixelsize</name></divide>
    </edit>
    <edit name="matrix" mode="assign">
      <times>
        <name>matrix</name>
        <matrix><name>shrink</name><double>0</double><double>0</double><name>shrink</name></matrix>
      </times>
    </edit>
    <edit name="size" mode="assign"><divide><name>size</name><name>shrink</name></divide></edit>
  </match>
</fontconfig>
)";

// In order of preference.
constexpr const char *kFamilies[] = {"Inter", "Noto Sans CJK SC", "DejaVu Sans", "Noto Color Emoji"};

// How much closer or wider (points) the phone sets Latin letters at each whole size from kFirstTracked on; larger
// sizes go on in proportion. https://developer.apple.com/design/human-interface-guidelines/typography
constexpr double kTracking[] = {0.24,  0.23,  0.21,  0.17,  0.12,  0.06,  0,    -0.08,
                                -0.15, -0.23, -0.31, -0.43, -0.44, -0.45, -0.45};
constexpr double kFirstTracked = 6;

// San Francisco's metrics for one point of size.
constexpr double kAscender = 0.9521484375;
constexpr double kDescender = -0.2412109375;
constexpr double kCapHeight = 0.70458984375;
constexpr double kXHeight = 0.5263671875;

bool HasFamily(FcConfig *config, const char *family) {
    FcPattern *pattern = FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, family, nullptr);
    FcObjectSet *wanted = FcObjectSetBuild(FC_FAMILY, nullptr);
    FcFontSet *found = FcFontList(config, pattern, wanted);
    const bool has = found != nullptr && found->nfont > 0;
    if (found != nullptr) {
        FcFontSetDestroy(found);
    }
    FcObjectSetDestroy(wanted);
    FcPatternDestroy(pattern);
    return has;
}

FcConfig *MakeConfiguration() {
    FcConfig *config = FcConfigCreate();
    const auto *text = reinterpret_cast<const FcChar8 *>(kConfiguration);
    if (FcConfigParseAndLoadFromMemory(config, text, FcTrue) == FcFalse || FcConfigBuildFonts(config) == FcFalse) {
        std::fprintf(stderr, "cannot load the simulator's font configuration\n");
        std::abort();
    }
    // Without one of them text would look and measure otherwise than everywhere else.
    for (const char *family : kFamilies) {
        if (!HasFamily(config, family)) {
            std::fprintf(stderr, "the font family %s, which the simulator draws with, is not installed\n", family);
            std::abort();
        }
    }
    return config;
}

PangoContext *MakeContext() {
    FcConfig *config = MakeConfiguration();
    FcConfigSetCurrent(config); // or Pango would load the machine's own besides
    PangoFontMap *map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), config);
    FcConfigDestroy(config); // the map and fontconfig hold their own references
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map), 72);
    PangoContext *context = pango_font_map_create_context(map);
    g_object_unref(map);
    cairo_font_options_t *options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    pango_context_set_language(context, pango_language_from_string("zh-cn"));
    pango_context_set_base_dir(context, PANGO_DIRECTION_LTR);
    return context;
}

} // namespace

double LayoutSize(const FontFace &face) {
    return std::isnan(face.pointSize) ? 17 : std::clamp(face.pointSize, 1.0, 300.0);
}

FontMetrics MetricsOf(const FontFace &face) {
    const double size = LayoutSize(face);
    return {kAscender * size, kDescender * size, (kAscender - kDescender) * size, kCapHeight * size, kXHeight * size};
}

PangoContext *TextContext() {
    static PangoContext *context = MakeContext();
    return context;
}

const PangoFontDescription *DescriptionOf(const FontFace &face) {
    static std::map<std::pair<double, bool>, PangoFontDescription *> descriptions;
    const double size = LayoutSize(face);
    PangoFontDescription *&description = descriptions[{size, face.bold}];
    if (description == nullptr) {
        std::string families;
        for (const char *family : kFamilies) {
            families += (families.empty() ? "" : ",") + std::string(family);
        }
        description = pango_font_description_new();
        pango_font_description_set_family(description, families.c_str());
        pango_font_description_set_weight(description, face.bold ? PANGO_WEIGHT_SEMIBOLD : PANGO_WEIGHT_NORMAL);
        pango_font_description_set_absolute_size(description, size * PANGO_SCALE);
    }
    return description;
}

bool IsTracked(PangoFont *font) {
    static std::map<PangoFont *, bool> known; // pango keeps the few fonts of the descriptions above
    const auto [entry, isNew] = known.try_emplace(font, false);
    if (isNew) {
        g_object_ref(font);
        PangoFontDescription *description = pango_font_describe(font);
        entry->second = std::string_view(pango_font_description_get_family(description)).starts_with(kFamilies[0]);
        pango_font_description_free(description);
    }
    return entry->second;
}

double TrackingOf(const FontFace &face) {
    constexpr auto kLast = static_cast<double>(std::size(kTracking) - 1);
    const double place = LayoutSize(face) - kFirstTracked;
    if (place >= kLast) {
        return kTracking[std::size(kTracking) - 1] * LayoutSize(face) / (kFirstTracked + kLast);
    }
    const double floor = std::floor(std::max(place, 0.0));
    const auto index = static_cast<std::size_t>(floor);
    return std::lerp(kTracking[index], kTracking[index + 1], std::max(place, 0.0) - floor);
}

} // namespace sim
