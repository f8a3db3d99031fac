// The processing area (effects limited to a rectangle) and Merge (the clipboard image combined
// with the current one).
#pragma once

#include <functional>

#include <vips/vips8>

#include "imaging/fx/FxTypes.h"

namespace fx {

using Effect = std::function<vips::VImage(const vips::VImage&)>;

// The part of area that lies inside the image; a width or height of 0 reaches the image's edge.
// Throws FxError (member Area) for a negative corner or size, or a rectangle wholly outside.
AreaRect clipArea(const AreaRect& area, int imageWidth, int imageHeight);

// Runs effect on the area's pixels only and puts the result back; outside, nothing changes.
// The effect sees the area as an image of its own (a swirl turns round the area's centre).
vips::VImage applyInArea(const vips::VImage& image, const AreaRect& area, const Effect& effect);

enum class MergeSize { TopLeft = 0, Stretch, Centre, Tile };
enum class MergeStyle { Normal = 0, Add, Subtract, Multiply, Screen, Darken, Lighten, Difference };

struct MergeOptions {
    int size = int(MergeSize::TopLeft);
    int style = int(MergeStyle::Normal);
    bool transparent = false;
    Colour transparentColor = 0;
    int highPercent = 100; // opacity where the clipboard is white
    int lowPercent = 100;  // opacity where the clipboard is black
};

// Merge True with the clipboard image; the caller skips it for Merge False.
vips::VImage Merge(const vips::VImage& image, const vips::VImage& clipboard,
                   const MergeOptions& options);

} // namespace fx
