// The effect table, filters and distortions: each member's arguments, ranges, defaults,
// description and handler, declared once.
#include "imaging/fx/FxTableFamilies.h"
#include "imaging/fx/FxTableSupport.h"

#include <array>

namespace fx {

namespace {

using namespace table;

FX_APPLY(autoContrast, AutoContrast(in))
FX_APPLY(blur, Blur(in))
FX_APPLY(soften, Soften(in, a.i(0)))
FX_APPLY(sharpen, Sharpen(in, a.i(0)))
FX_APPLY(mBlur, MBlur(in, a.i(0), a.i(1), a.i(2)))
FX_APPLY(median, Median(in))
FX_APPLY(dilate, Dilate(in))
FX_APPLY(erode, Erode(in))
FX_APPLY(diffuse, Diffuse(in))
FX_APPLY(noise, Noise(in, a.i(0), a.i(1)))
FX_APPLY(emboss, Emboss(in))
FX_APPLY(equalize, Equalize(in))
FX_APPLY(outline, Outline(in))
FX_APPLY(posterize, Posterize(in, a.i(0)))
FX_APPLY(solarize, Solarize(in, a.i(0)))
FX_APPLY(mosaic, Mosaic(in, a.i(0)))
FX_APPLY(buttonize, Buttonize(in, a.i(0), a.i(1), a.i(2)))
FX_APPLY(blend, Blend(in, a.i(0)))
FX_APPLY(replaceColors, ReplaceColors(in, a.i(0), a.i(1), a.i(2)))
FX_APPLY(parabolic, Parabolic(in, a.i(0)))
FX_APPLY(swirl, Swirl(in, a.d(0)))
FX_APPLY(twist, Twist(in, a.i(0), a.i(1)))
FX_APPLY(pinch, Pinch(in, a.i(0)))
FX_APPLY(ripple, Ripple(in, a.i(0), a.i(1), a.i(2)))
FX_APPLY(perspective, Perspective(in, a.i(0), a.i(1), ctx.backColor))
FX_APPLY(pWarp, PWarp(in, {point(a, 0), point(a, 2), point(a, 4), point(a, 6)}, ctx.backColor))

// Script order: bias, divisor, m1..m9; the fx object hands them on as m1..m9, divisor, bias.
vips::VImage matrix(const vips::VImage& in, const imaging::OpArgs& a, const imaging::OpContext&) {
    std::array<int, 9> kernel;
    for (size_t k = 0; k < 9; ++k)
        kernel[k] = a.i(k);
    return Matrix(in, kernel, a.i(9), a.i(10));
}

} // namespace

std::vector<FxMemberInfo> filterEntries() {
    return {
        {"AutoContrast",
         "Filters",
         {},
         "Stretches the tones so the darkest and brightest 0.5% of pixels reach black and white; "
         "one curve for all channels, so colours keep their hue.",
         mapped<autoContrast>},
        {"Blur",
         "Filters",
         {},
         "Gaussian blur of about 3 pixels radius (sigma 1.5).",
         mapped<blur>},
        {"Soften",
         "Filters",
         {ranged("strength", "integer", 1, 20,
                 "blur radius in pixels (sigma = (strength + 1) / 2)")},
         "Gaussian blur whose radius grows with strength: 1 is barely visible, 20 is strong.",
         mapped<soften>},
        {"Sharpen",
         "Filters",
         {ranged("amount", "integer", 0, 100,
                 "edge gain in percent of the maximum; 50 doubles "
                 "fine detail contrast, 0 leaves the image as it is")},
         "Unsharp mask in RGB over a 5x5 neighbourhood (sigma 1).",
         mapped<sharpen>},
        {"MBlur",
         "Filters",
         {ranged("angle", "integer", -360, 360,
                 "direction of motion in degrees, "
                 "counter-clockwise from the horizontal"),
          ranged("distance", "integer", 1, 100, "length of the streak in pixels"),
          ranged("strength", "integer", 0, 100, "percent of the blurred image mixed in")},
         "Motion blur: each pixel is averaged along a line of the given angle and length.",
         mapped<mBlur>},
        {"Median",
         "Filters",
         {},
         "3x3 median: removes speckles and salt-and-pepper noise.",
         mapped<median>},
        {"Dilate",
         "Filters",
         {},
         "3x3 maximum: bright areas grow, dark details shrink.",
         mapped<dilate>},
        {"Erode",
         "Filters",
         {},
         "3x3 minimum: dark areas grow, bright details shrink.",
         mapped<erode>},
        {"Diffuse",
         "Filters",
         {},
         "Scatters pixels randomly by about 1.5 pixels (frosted glass); repeatable.",
         mapped<diffuse>},
        {"Noise",
         "Filters",
         {ranged("amount", "integer", 0, 100,
                 "strength: standard deviation of the noise in "
                 "percent of a quarter of the full scale (100 = 64 levels of 255)"),
          ranged("kind", "integer", 0, 1, "0 = monochrome (same on every channel), 1 = colour")},
         "Adds Gaussian noise; repeatable for a given image size.",
         mapped<noise>},
        {"Emboss",
         "Filters",
         {},
         "Grey relief of the image lit from the top left.",
         mapped<emboss>},
        {"Equalize",
         "Filters",
         {},
         "Histogram equalisation of the brightness; one curve for all channels.",
         mapped<equalize>},
        {"Outline",
         "Filters",
         {},
         "Traces edges: each channel's Laplacian edge strength as dark lines on white.",
         mapped<outline>},
        {"Posterize",
         "Filters",
         {ranged("levels", "integer", 2, 64, "number of tones kept per channel")},
         "Reduces each channel to the given number of evenly spaced tones.",
         mapped<posterize>},
        {"Solarize",
         "Filters",
         {ranged("threshold", "integer", 0, 255, "tone (of 255) above which values are inverted")},
         "Inverts every channel value brighter than the threshold.",
         mapped<solarize>},
        {"Mosaic",
         "Filters",
         {ranged("size", "integer", 2, 256, "block width and height in pixels")},
         "Pixelates: each size x size block takes its average colour.",
         mapped<mosaic>},
        {"Buttonize",
         "Filters",
         {ranged("width", "integer", 1, 1000,
                 "bevel width in pixels (at most half the shorter "
                 "side)"),
          ranged("direction", "integer", 0, 1, "0 = raised (light top and left), 1 = sunken"),
          ranged("intensity", "integer", 0, 100,
                 "percent towards white on the lit edges and "
                 "towards black on the shaded ones")},
         "Bevelled edge that makes the image look like a button.",
         mapped<buttonize>},
        {"Blend",
         "Filters",
         {ranged("percent", "integer", 0, 100,
                 "percent of the 3x3 neighbourhood average mixed "
                 "into each pixel")},
         "Blends each pixel with its eight neighbours: a light smoothing.",
         mapped<blend>},
        {"Matrix",
         "Filters",
         {plain("matrix", "9 integers", "the 3x3 kernel, row by row"),
          ranged("divisor", "integer", -32768, 32767, "the weighted sum is divided by it; not 0"),
          ranged("bias", "integer", -255, 255, "added after the division, in tones of 255")},
         "3x3 convolution: (sum of kernel x neighbourhood) / divisor + bias on each channel. "
         "Scripts give bias and divisor first: Matrix bias, divisor, m1, ..., m9.",
         mapped<matrix>},
        {"ReplaceColors",
         "Filters",
         {colour("low", "lower corner of the colour box"),
          colour("high", "upper corner of the colour box"),
          colour("replacement", "colour given to matching pixels")},
         "Pixels whose red, green and blue each lie between those of low and high (inclusive) "
         "become the replacement colour.",
         mapped<replaceColors>},
        {"Parabolic",
         "Filters",
         {ranged("amount", "integer", 0, 100, "percent of the parabolic curve mixed in")},
         "Parabolic tone curve 4v(1-v): mid-tones turn bright, both black and white turn dark.",
         mapped<parabolic>},
    };
}

std::vector<FxMemberInfo> distortionEntries() {
    return {
        {"Swirl",
         "Distortions",
         {ranged("angle", "number", -3600, 3600,
                 "rotation at the centre in degrees; positive "
                 "turns counter-clockwise")},
         "Swirls the image round its centre; the turn fades to nothing at half the shorter side.",
         mapped<swirl>},
        {"Twist",
         "Distortions",
         {ranged("angle", "integer", -360, 360, "turn at each block's centre in degrees"),
          ranged("size", "integer", 8, 1024, "block width and height in pixels")},
         "Cuts the image into size x size blocks and swirls each round its own centre.",
         mapped<twist>},
        {"Pinch",
         "Distortions",
         {ranged("amount", "integer", -100, 100,
                 "positive pinches the centre inwards, negative "
                 "bulges it out")},
         "Pinches or bulges the disc of half the shorter side round the centre.",
         mapped<pinch>},
        {"Ripple",
         "Distortions",
         {ranged("amplitude", "integer", 0, 100, "largest displacement in pixels"),
          ranged("wavelength", "integer", 2, 1000, "distance between wave crests in pixels"),
          ranged("direction", "integer", 0, 2,
                 "0 = rows wave up and down, 1 = columns wave "
                 "left and right, 2 = rings round the centre")},
         "Sine-wave displacement of the image.",
         mapped<ripple>},
        {"Perspective",
         "Distortions",
         {ranged("edge", "integer", 0, 3, "edge that recedes: 0 top, 1 bottom, 2 left, 3 right"),
          ranged("amount", "integer", 0, 90, "percent by which that edge is shortened")},
         "Tilts the image away from the viewer; uncovered corners take BackColor.",
         mapped<perspective>},
        {"PWarp",
         "Distortions",
         {coord("x1", "new x of the top-left corner"), coord("y1", "new y of the top-left corner"),
          coord("x2", "new x of the top-right corner"),
          coord("y2", "new y of the top-right corner"),
          coord("x3", "new x of the bottom-right corner"),
          coord("y3", "new y of the bottom-right corner"),
          coord("x4", "new x of the bottom-left corner"),
          coord("y4", "new y of the bottom-left corner")},
         "Projective warp moving the four corners to the given points (a convex quadrilateral); "
         "the size stays, uncovered pixels take BackColor.",
         mapped<pWarp>},
    };
}

} // namespace fx
