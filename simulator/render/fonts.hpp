#pragma once
// The fonts of the simulated phone: one private configuration naming the families that the set-up installs, so that
// text looks and measures the same however many other fonts the machine has.

struct _PangoContext;
struct _PangoFont;
struct _PangoFontDescription;

namespace sim {

/// What UIFont knows of its face.
struct FontFace {
    double pointSize = 17;
    bool bold = false;
    friend bool operator==(const FontFace &, const FontFace &) = default;
};

/// Lengths of a face in points, as the phone's system font has them. Chinese and emoji share the line of the face
/// that they are set in, because the phone's fall-back fonts take over its line metrics.
struct FontMetrics {
    double ascender = 0;
    double descender = 0; // below the baseline: negative
    double lineHeight = 0;
    double capHeight = 0;
    double xHeight = 0;
};

/// The size at which a face is laid out: pointSize held within 1 to 300 points, 17 when it is no number.
double LayoutSize(const FontFace &face);

FontMetrics MetricsOf(const FontFace &face);

/// The one context in which text is laid out: unhinted, one unit a point, simplified Chinese.
_PangoContext *TextContext();

/// The description of a face, kept by this function.
const _PangoFontDescription *DescriptionOf(const FontFace &face);

/// How much further apart (points; closer when negative) the phone sets the letters of a face's tracked fonts.
double TrackingOf(const FontFace &face);

/// Whether the letters of a font take tracking: those of Latin do, Chinese and emoji do not.
bool IsTracked(_PangoFont *font);

} // namespace sim
