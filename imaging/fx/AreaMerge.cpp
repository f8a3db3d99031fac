// Area: an effect on a rectangle composited back; Merge: clipboard and image combined.
#include "imaging/fx/AreaMerge.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "imaging/fx/FxCatalogue.h"
#include "imaging/fx/FxError.h"
#include "imaging/fx/PixelHelpers.h"
#include "imaging/ops/PixelLayout.h"

using vips::VImage;

namespace fx {

AreaRect clipArea(const AreaRect& area, int imageWidth, int imageHeight) {
    checkArgument("Area", "x", area.x);
    checkArgument("Area", "y", area.y);
    checkArgument("Area", "width", area.width);
    checkArgument("Area", "height", area.height);
    int right = area.width == 0 ? imageWidth : std::min(imageWidth, area.x + area.width);
    int bottom = area.height == 0 ? imageHeight : std::min(imageHeight, area.y + area.height);
    if (area.x >= imageWidth || area.y >= imageHeight)
        throwBadArgument("Area", "the rectangle at (" + std::to_string(area.x) + ", " +
                                     std::to_string(area.y) + ") lies outside the " +
                                     std::to_string(imageWidth) + "x" +
                                     std::to_string(imageHeight) + " image");
    return {area.x, area.y, right - area.x, bottom - area.y};
}

VImage applyInArea(const VImage& image, const AreaRect& area, const Effect& effect) {
    AreaRect r = clipArea(area, image.width(), image.height());
    VImage inside = guarded("Area", [&] { return image.crop(r.x, r.y, r.width, r.height); });
    VImage changed = effect(inside);
    if (changed.width() != r.width || changed.height() != r.height)
        throwBadArgument("Area", "this operation changes the image size and cannot be limited "
                                 "to the area");
    return guarded("Area", [&] {
        VImage patch = changed;
        // Colour put on a grey area makes the whole image colour.
        VImage base = imaging::isGreyLayout(image) && !imaging::isGreyLayout(patch)
                          ? imaging::greyToColour(image)
                          : image;
        if (patch.bands() != base.bands() || patch.format() != base.format())
            patch = patch.cast(base.format());
        return base.insert(patch, r.x, r.y);
    });
}

namespace {

// The clipboard image with the current image's colour bands and tone scale, placed by the size
// rule on a canvas of the current image's size, with its coverage (0 where it is absent).
struct Placed {
    VImage colour;
    VImage coverage;
};

Placed placeClipboard(const VImage& clipboard, const detail::Planes& target, int size) {
    // Placed in its own 8- or 16-bit format (resizing there is the fast path of libvips), with
    // its alpha, or full opacity, as the last band; embedding adds zero opacity around it.
    detail::Planes clip = detail::splitPlanes(clipboard);
    VImage both =
        clip.hasAlpha ? clip.colour.bandjoin(clip.alpha) : clip.colour.bandjoin_const({clip.white});
    int w = target.colour.width(), h = target.colour.height();
    switch (static_cast<MergeSize>(size)) {
    case MergeSize::Stretch:
        if (both.width() != w || both.height() != h)
            both = both.resize(double(w) / both.width(),
                               VImage::option()->set("vscale", double(h) / both.height()));
        both = both.embed(0, 0, w, h, VImage::option()->set("extend", VIPS_EXTEND_COPY));
        break;
    case MergeSize::Centre:
        both = both.embed((w - both.width()) / 2, (h - both.height()) / 2, w, h);
        break;
    case MergeSize::Tile:
        both = both.replicate((w + both.width() - 1) / both.width(),
                              (h + both.height() - 1) / both.height())
                   .crop(0, 0, w, h);
        break;
    case MergeSize::TopLeft:
        both = both.embed(0, 0, w, h);
        break;
    }
    int have = both.bands() - 1, want = target.colour.bands();
    VImage colour = both.extract_band(0, VImage::option()->set("n", have)).cast(VIPS_FORMAT_FLOAT) *
                    (target.white / clip.white);
    if (have < want)
        colour = VImage::bandjoin({colour, colour, colour});
    else if (have > want)
        colour = detail::luminance(colour);
    return {colour, both.extract_band(have).cast(VIPS_FORMAT_FLOAT) / clip.white};
}

VImage combine(MergeStyle style, const VImage& d, const VImage& c, double white) {
    switch (style) {
    case MergeStyle::Add:
        return d + c;
    case MergeStyle::Subtract:
        return d - c;
    case MergeStyle::Multiply:
        return d * c / white;
    case MergeStyle::Screen:
        return white - (white - d) * (white - c) / white;
    case MergeStyle::Darken:
        return (d < c).ifthenelse(d, c);
    case MergeStyle::Lighten:
        return (d > c).ifthenelse(d, c);
    case MergeStyle::Difference:
        return (d - c).abs();
    case MergeStyle::Normal:
        break;
    }
    return c;
}

} // namespace

VImage Merge(const VImage& image, const VImage& clipboard, const MergeOptions& o) {
    checkArgument("Merge", "size", o.size);
    checkArgument("Merge", "style", o.style);
    checkArgument("Merge", "transparentColor", o.transparentColor);
    checkArgument("Merge", "high", o.highPercent);
    checkArgument("Merge", "low", o.lowPercent);
    // A colour clipboard makes a grey image colour.
    VImage target = imaging::isGreyLayout(clipboard) ? image : imaging::greyToColour(image);
    return detail::onColour("Merge", target, [&](const VImage& d, double white) {
        detail::Planes target{d, {}, false, d.format(), d.interpretation(), white};
        Placed clip = placeClipboard(clipboard, target, o.size);
        double low = o.lowPercent / 100.0, high = o.highPercent / 100.0;
        VImage opacity =
            (detail::luminance(clip.colour) / white * (high - low) + low) * clip.coverage;
        if (o.transparent) {
            std::vector<double> key = detail::colourInk(o.transparentColor, d.bands(), white);
            VImage rounded = clip.colour.round(VIPS_OPERATION_ROUND_RINT);
            opacity = (rounded == key).bandand().ifthenelse(0.0, opacity);
        }
        VImage result = combine(static_cast<MergeStyle>(o.style), d.cast(VIPS_FORMAT_FLOAT),
                                clip.colour, white);
        return d + (result - d) * opacity;
    });
}

} // namespace fx
