// Distortions: each computes, for every output pixel, where to sample the input (a coordinate
// map) and resamples with libvips' mapim. The size stays; alpha moves with the colour.
#pragma once

#include <array>

#include <vips/vips8>

#include "imaging/fx/FxTypes.h"

namespace fx {

vips::VImage Swirl(const vips::VImage& image, double angle);
vips::VImage Twist(const vips::VImage& image, int angle, int size);
vips::VImage Pinch(const vips::VImage& image, int amount);
vips::VImage Ripple(const vips::VImage& image, int amplitude, int wavelength, int direction);
// Uncovered pixels take the background colour (the control's BackColor), transparent where the
// image has alpha.
vips::VImage Perspective(const vips::VImage& image, int edge, int amount, Colour background = 0);
// corners: new positions of top-left, top-right, bottom-right, bottom-left, in that order.
vips::VImage PWarp(const vips::VImage& image, const std::array<Point, 4>& corners,
                   Colour background = 0);

} // namespace fx
