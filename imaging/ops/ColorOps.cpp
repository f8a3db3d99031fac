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
    return onColour(in, [&](const VImage& colour, double) {
        VImage lch = colour.colourspace(VIPS_INTERPRETATION_LCH);
        lch = lch.linear({1.0, (100.0 + sat) / 100.0, 1.0}, {lum, 0.0, hue});
        return lch.colourspace(colour.interpretation());
    });
}

VImage adjustRgb(const VImage& in, const OpArgs& a, const OpContext&) {
    std::vector<double> v{double(a.i(1)), double(a.i(2)), double(a.i(3))};
    // Unequal changes of red, green and blue colour a grey image.
    bool tinted = v[0] != v[1] || v[1] != v[2];
    return onColour(tinted ? greyToColour(in) : in, [&](const VImage& colour, double white) {
        std::vector<double> per(v.begin(), v.begin() + colour.bands());
        if (a.i(0) == 0) {
            for (double& p : per)
                p = (100 + p) / 100;
            return colour.linear(per, std::vector<double>(per.size(), 0.0));
        }
        for (double& p : per)
            p *= white / 255;
        return colour.linear(std::vector<double>(per.size(), 1.0), per);
    });
}

void adjustHslRun(ImagingControl& c, const OpArgs& a);
void adjustRgbRun(ImagingControl& c, const OpArgs& a);

VImage brightness(const VImage& in, const OpArgs& a, const OpContext&) {
    double percent = a.i(0);
    return onColour(
        in, [&](const VImage& colour, double white) { return colour + percent * white / 100; });
}

// Gamma n lightens the mid-tones for n from 2 to 20 (each tone v of 0..1 becomes v^(1/n));
// Gamma -n darkens them as much (v^n), undoing Gamma n; 0, 1 and -1 leave the image as it is.
double gammaOf(int32_t n) {
    return n >= 1 ? n : n <= -1 ? 1.0 / -n : 1.0;
}

VImage gamma(const VImage& in, const OpArgs& a, const OpContext&) {
    double g = gammaOf(a.i(0));
    if (g == 1) return in;
    return onColour(in, [&](const VImage& colour, double white) {
        return (colour / white).pow(1.0 / g) * white;
    });
}

VImage negate(const VImage& in, const OpArgs&, const OpContext&) {
    return onColour(in, [](const VImage& colour, double) { return colour.invert(); });
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
constexpr ParamDef kGamma[] = {{"gamma", T::Int, -20, 20, {}, "2 to 20 lighten the mid-tones (gamma 2 to 20: a tone v of 0 to 1 becomes v^(1/gamma)); -2 to -20 darken them (gamma 1/2 to 1/20), so Gamma -n undoes Gamma n; 0, 1 and -1 change nothing"}};
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
