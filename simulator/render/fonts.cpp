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
#include <utility>

namespace sim {
namespace {

// Only these files are looked at, and of the collections in them only these families. Latin comes from the Chinese
// font too: its proportions are close to those of the phone's system font, and both scripts then fit together.
constexpr const char *kConfiguration = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts</dir>
  <dir>/usr/local/share/fonts</dir>
  <dir prefix="xdg">fonts</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <selectfont>
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

constexpr const char *kFamilies[] = {"Noto Sans CJK SC", "DejaVu Sans", "Noto Color Emoji"}; // in order of preference

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
        pango_font_description_set_weight(description, face.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
        pango_font_description_set_absolute_size(description, size * PANGO_SCALE);
    }
    return description;
}

} // namespace sim
