// Filters and adjustments: each takes the current image and returns the changed image, same size.
// Ranges and meanings are in the effect table (FxFilterTable.cpp); out-of-range arguments
// throw FxError. Alpha is kept as it is; 16-bit images stay 16-bit.
#pragma once

#include <array>

#include <vips/vips8>

#include "imaging/fx/FxTypes.h"

namespace fx {

// Neighbourhood filters (Filters.cpp).
vips::VImage Blur(const vips::VImage& image);
vips::VImage Soften(const vips::VImage& image, int strength);
vips::VImage Sharpen(const vips::VImage& image, int amount);
vips::VImage MBlur(const vips::VImage& image, int angle, int distance, int strength);
vips::VImage Median(const vips::VImage& image);
vips::VImage Dilate(const vips::VImage& image);
vips::VImage Erode(const vips::VImage& image);
vips::VImage Diffuse(const vips::VImage& image);
vips::VImage Emboss(const vips::VImage& image);
vips::VImage Outline(const vips::VImage& image);
vips::VImage Blend(const vips::VImage& image, int percent);
// The control's argument order: kernel, divisor, bias (scripts give bias and divisor first).
vips::VImage Matrix(const vips::VImage& image, const std::array<int, 9>& kernel, int divisor,
                    int bias);

// Tone and colour adjustments and block effects (Adjustments.cpp).
vips::VImage AutoContrast(const vips::VImage& image);
vips::VImage Equalize(const vips::VImage& image);
vips::VImage Posterize(const vips::VImage& image, int levels);
vips::VImage Solarize(const vips::VImage& image, int threshold);
vips::VImage Parabolic(const vips::VImage& image, int amount);
vips::VImage ReplaceColors(const vips::VImage& image, Colour low, Colour high, Colour replacement);
vips::VImage Noise(const vips::VImage& image, int amount, int kind);
vips::VImage Mosaic(const vips::VImage& image, int size);
vips::VImage Buttonize(const vips::VImage& image, int width, int direction, int intensity);

} // namespace fx
