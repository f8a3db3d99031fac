// Colour operations: HSL and RGB adjustment, brightness, gamma, negative, colour separation.
#include <cmath>

#include "imaging/ImagingControl.h"
#include "imaging/ops/ImageHelpers.h"

namespace imaging {

using vips::VImage;

void colorDepthRun(ImagingControl& c, const OpArgs& a);

namespace {

using T = ParamType;

VImage adjustHsl(const VImage& in, const OpArgs& a, const OpContext&) {
    double hue = a.i(0), sat = a.i(1), lum = a.i(2);
    return onColour(in, [&](const VImage& rgb) {
        VImage lch = rgb.colourspace(VIPS_INTERPRETATION_LCH);
        lch = lch.linear({1.0, (100.0 + sat) / 100.0, 1.0}, {lum, 0.0, hue});
        return clampToUchar(lch.colourspace(VIPS_INTERPRETATION_sRGB));
    });
}

VImage adjustRgb(const VImage& in, const OpArgs& a, const OpContext&) {
    std::vector<double> v{double(a.i(1)), double(a.i(2)), double(a.i(3))};
    return onColour(in, [&](const VImage& rgb) {
        if (a.i(0) == 0)
            return clampToUchar(rgb.linear(
                {(100 + v[0]) / 100, (100 + v[1]) / 100, (100 + v[2]) / 100}, {0.0, 0.0, 0.0}));
        return clampToUchar(rgb.linear({1.0, 1.0, 1.0}, v));
    });
}

void adjustHslRun(ImagingControl& c, const OpArgs& a);
void adjustRgbRun(ImagingControl& c, const OpArgs& a);

VImage brightness(const VImage& in, const OpArgs& a, const OpContext&) {
    double offset = a.i(0) * 2.55;
    return onColour(in, [&](const VImage& rgb) { return clampToUchar(rgb + offset); });
}

VImage gamma(const VImage& in, const OpArgs& a, const OpContext&) {
    double g = a.d(0);
    return onColour(
        in, [&](const VImage& rgb) { return clampToUchar((rgb / 255.0).pow(1.0 / g) * 255.0); });
}

VImage negate(const VImage& in, const OpArgs&, const OpContext&) {
    return onColour(in, [](const VImage& rgb) { return rgb.invert(); });
}

void separation(ImagingControl& c, const OpArgs& a) {
    c.separate(a.i(0));
}

// clang-format off
constexpr ParamDef kHsl[] = {
    {"hue", T::Int, -180, 180, {}, "degrees added to the hue"},
    {"saturation", T::Int, -100, 100, {}, "percent change of the saturation; -100 = grey"},
    {"luminance", T::Int, -100, 100, {}, "added to the lightness (0 to 100 scale)"},
};
constexpr ParamDef kRgb[] = {
    {"type", T::Int, 0, 1, {}, "0 = red, green, blue are percent changes; 1 = they are added to the values"},
    {"red", T::Int, -255, 255, {}, "red change"},
    {"green", T::Int, -255, 255, {}, "green change"},
    {"blue", T::Int, -255, 255, {}, "blue change"},
};
constexpr ParamDef kBrightness[] = {{"amount", T::Int, -100, 100, {}, "percent of full scale added"}};
constexpr ParamDef kGamma[] = {{"gamma", T::Single, 0.05, 20, {}, "above 1 lightens the mid-tones, below 1 darkens them"}};
constexpr ParamDef kSeparation[] = {{"kind", T::Int, 0, 3, {}, "0 RGB, 1 HSL, 2 CMY, 3 CMYK; planes in that order"}};
constexpr ParamDef kDepth[] = {
    {"bits", T::Int, 1, 24, {}, "bits per pixel: 1, 4, 8, 16 or 24"},
    {"palette", T::Int, 0, 1, 0, "for 4 and 8 bits: 0 = adaptive colour palette, 1 = grey levels"},
    {"dither", T::Bool, 0, 0, 0, "spread the error over neighbouring pixels"},
};
// clang-format on

constexpr OperationDef kColor[] = {
    {"AdjustHSL", "shifts hue, saturation and lightness", kHsl, nullptr, adjustHslRun},
    {"AdjustRGB", "changes red, green and blue by percent or by offset", kRgb, nullptr,
     adjustRgbRun},
    {"Brightness", "lightens or darkens", kBrightness, brightness},
    {"Gamma", "gamma correction", kGamma, gamma},
    {"Negate", "negative image", {}, negate},
    {"ColorSeparation", "prepares the planes of a colour separation", kSeparation, nullptr,
     separation, OpWholeImage},
    {"ColorDepth", "reduces the colours to 1, 4, 8, 16 or 24 bits per pixel", kDepth, nullptr,
     colorDepthRun, OpWholeImage},
};

// The adjustments keep their arguments for the IPAdjust read-backs, then run as area-aware ops.
void adjustHslRun(ImagingControl& c, const OpArgs& a) {
    c.recordAdjust(0, a.i(0), a.i(1), a.i(2), false);
    c.applyWith(adjustHsl, a);
}

void adjustRgbRun(ImagingControl& c, const OpArgs& a) {
    c.recordAdjust(a.i(0), a.i(1), a.i(2), a.i(3), true);
    c.applyWith(adjustRgb, a);
}

} // namespace

std::span<const OperationDef> colorOperations() {
    return kColor;
}

} // namespace imaging
