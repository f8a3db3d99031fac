// Small pixel helpers shared by the operation families.
#pragma once

#include <functional>

#include <vips/vips8>

#include "imaging/ops/PixelLayout.h"

namespace imaging {

// 8-bit sRGB (3 bands, alpha kept as a 4th) from any input.
vips::VImage toSrgb8WithAlpha(const vips::VImage& in);

// Applies fn to the colour bands at the image's own depth (see workingLayout) and puts the alpha
// band (if any) back unchanged. fn gets the value of full intensity (255 or 65535); its result is
// clipped to the range of the depth.
using ToneFn = std::function<vips::VImage(const vips::VImage& colour, double white)>;
vips::VImage onColour(const vips::VImage& in, const ToneFn& fn);

// Brings two images to one layout (depth, grey or colour, alpha), the richer of the two, so that
// one can be inserted into the other.
void matchLayouts(vips::VImage& a, vips::VImage& b);

// Background pixel values for the image's band layout from a &HBBGGRR colour.
std::vector<double> backgroundFor(const vips::VImage& in, int32_t color);

// Clamps to 0..255 and casts to 8-bit.
vips::VImage clampToUchar(const vips::VImage& in);

} // namespace imaging
