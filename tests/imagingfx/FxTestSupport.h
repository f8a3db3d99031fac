// Helpers of the effects tests: the downscaled example photo, synthetic images, statistics.
#pragma once

#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <vips/vips8>

#include "imaging/fx/FxError.h"

namespace fxtest {

// The example photo fitted into 240 pixels wide (240x160), in memory, sRGB uchar.
const vips::VImage& photo();
// A flat image of one colour (r, g, b), or one grey band when g < 0.
vips::VImage flat(int width, int height, double r, double g = -1, double b = -1);
// A horizontal ramp 0..255 across the width, three equal bands.
vips::VImage rampX(int width, int height);

// Largest absolute difference between two images over all pixels and bands.
double maxDiff(const vips::VImage& a, const vips::VImage& b);
// Mean absolute difference of horizontally (dx) or vertically (dy) adjacent pixels: fine detail.
double detailX(const vips::VImage& image);
double detailY(const vips::VImage& image);
std::vector<double> pixel(const vips::VImage& image, int x, int y);

// Expects call to throw FxError of kind BadArgument whose message contains every fragment.
void expectBadArgument(const std::function<void()>& call, const std::string& member,
                       const std::string& fragment);

} // namespace fxtest
