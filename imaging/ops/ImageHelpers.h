// Small pixel helpers shared by the operation families.
#pragma once

#include <functional>

#include <vips/vips8>

namespace imaging {

// 8-bit sRGB (3 bands, alpha kept as a 4th) from any input.
vips::VImage toSrgb8WithAlpha(const vips::VImage& in);

// Applies fn to the colour bands and puts the alpha band (if any) back unchanged.
vips::VImage onColour(const vips::VImage& in,
                      const std::function<vips::VImage(const vips::VImage&)>& fn);

// Background pixel values for the image's band layout from a &HBBGGRR colour.
std::vector<double> backgroundFor(const vips::VImage& in, int32_t color);

// Clamps to 0..255 and casts to 8-bit.
vips::VImage clampToUchar(const vips::VImage& in);

} // namespace imaging
