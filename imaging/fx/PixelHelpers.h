// Shared plumbing of the effects: colour planes apart from alpha, tone scale, colours as ink.
#pragma once

#include <initializer_list>
#include <vector>

#include <vips/vips8>

#include "imaging/fx/FxError.h"
#include "imaging/fx/FxTypes.h"

namespace fx::detail {

// An image taken apart for an effect: colour bands (1 grey or 3 RGB) and the alpha band if any.
// Formats other than 8 and 16 bits per channel are brought to 16 bits first.
struct Planes {
    vips::VImage colour;
    vips::VImage alpha;
    bool hasAlpha = false;
    VipsBandFormat format = VIPS_FORMAT_UCHAR;
    VipsInterpretation interpretation = VIPS_INTERPRETATION_sRGB;
    double white = 255; // the value of full intensity: 255 or 65535
};

Planes splitPlanes(const vips::VImage& image);
// Casts the new colour bands back to the original format (clipping), rejoins alpha.
vips::VImage joinPlanes(const Planes& planes, const vips::VImage& colour);

// Runs an effect on the colour bands only, alpha untouched, under the libvips error guard.
template <class F>
vips::VImage onColour(const char* member, const vips::VImage& image, F&& effect) {
    return guarded(member, [&] {
        Planes p = splitPlanes(image);
        return joinPlanes(p, effect(p.colour, p.white));
    });
}

// The image ready to take these colours: a grey image becomes colour (at its depth) when one of
// them is not a grey; otherwise it is returned as it is.
vips::VImage withColours(const vips::VImage& image, std::initializer_list<Colour> colours);

// The colour as one value per colour band at the given tone scale (grey: its luminance).
std::vector<double> colourInk(Colour colour, int bands, double white);

// Rec. 601 luminance of the colour bands, one float band.
vips::VImage luminance(const vips::VImage& colour);

// Applies lut (lut[i] for tone i, 0..white) to every band; values are clipped to 0..white.
vips::VImage applyLut(const vips::VImage& colour, const std::vector<double>& lut, double white);

// a + (b - a) * t, in float.
vips::VImage mix(const vips::VImage& a, const vips::VImage& b, double t);

// The integer mask libvips convolves with; values are rounded.
vips::VImage integerMask(int width, int height, const std::vector<double>& values, double scale,
                         double offset = 0);

// Gaussian noise (mean 0) of the given size and band count, repeatable for a seed. Built from a
// tile of at most 1024x1024 repeated: libvips' gaussnoise sums twelve random numbers a pixel,
// too slow for 12-megapixel photos, and white noise repeating every 1024 pixels is not seen.
vips::VImage noiseField(int width, int height, int bands, double sigma, int seed);

// Resamples image at (sx, sy) for every output pixel (float coordinate images). With edgeCopy a
// position outside the image takes the nearest edge pixel; otherwise it shows the background
// colour (transparent where the image has alpha), and a grey image becomes colour for a colour
// background.
vips::VImage remap(const vips::VImage& image, const vips::VImage& sx, const vips::VImage& sy,
                   const char* interpolator, bool edgeCopy, Colour background = 0);

} // namespace fx::detail
