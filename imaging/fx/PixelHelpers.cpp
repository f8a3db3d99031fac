// Shared plumbing of the effects.
#include "imaging/fx/PixelHelpers.h"

#include <algorithm>
#include <cmath>

#include "imaging/ops/PixelLayout.h"

using vips::VImage;

namespace fx::detail {

Planes splitPlanes(const VImage& image) {
    Planes p;
    p.interpretation = image.interpretation();
    VImage in = image;
    if (in.format() != VIPS_FORMAT_UCHAR && in.format() != VIPS_FORMAT_USHORT)
        in = imaging::workingLayout(in);
    p.format = in.format();
    p.white = p.format == VIPS_FORMAT_USHORT ? 65535 : 255;
    p.hasAlpha = in.has_alpha();
    if (p.hasAlpha) {
        p.colour = in.extract_band(0, VImage::option()->set("n", in.bands() - 1));
        p.alpha = in.extract_band(in.bands() - 1);
    } else {
        p.colour = in;
    }
    return p;
}

VImage joinPlanes(const Planes& p, const VImage& colour) {
    VImage out = colour.format() == p.format ? colour : colour.cast(p.format);
    if (p.hasAlpha) out = out.bandjoin(p.alpha);
    return out.copy(VImage::option()->set("interpretation", p.interpretation));
}

VImage withColours(const VImage& image, std::initializer_list<Colour> colours) {
    for (Colour c : colours)
        if (!imaging::isGreyColour(c)) return imaging::greyToColour(image);
    return image;
}

std::vector<double> colourInk(Colour c, int bands, double white) {
    double k = white / 255.0;
    if (bands < 3)
        return std::vector<double>(bands,
                                   k * (0.299 * redOf(c) + 0.587 * greenOf(c) + 0.114 * blueOf(c)));
    std::vector<double> ink{k * redOf(c), k * greenOf(c), k * blueOf(c)};
    ink.resize(bands, 0);
    return ink;
}

VImage luminance(const VImage& colour) {
    if (colour.bands() < 3) return colour.extract_band(0).cast(VIPS_FORMAT_FLOAT);
    double weights[] = {0.299, 0.587, 0.114};
    VImage matrix = VImage::new_matrix(3, 1, weights, 3);
    return colour.extract_band(0, VImage::option()->set("n", 3)).recomb(matrix);
}

VImage applyLut(const VImage& colour, const std::vector<double>& lut, double white) {
    std::vector<double> clipped(lut.size());
    std::transform(lut.begin(), lut.end(), clipped.begin(),
                   [white](double v) { return std::clamp(std::round(v), 0.0, white); });
    VImage table = VImage::new_matrix(static_cast<int>(clipped.size()), 1, clipped.data(),
                                      static_cast<int>(clipped.size()));
    return colour.maplut(table.cast(colour.format()));
}

VImage mix(const VImage& a, const VImage& b, double t) {
    if (t <= 0) return a;
    if (t >= 1) return b;
    return a * (1 - t) + b * t;
}

VImage integerMask(int width, int height, const std::vector<double>& values, double scale,
                   double offset) {
    std::vector<double> rounded(values.size());
    std::transform(values.begin(), values.end(), rounded.begin(),
                   [](double v) { return std::round(v); });
    VImage mask =
        VImage::new_matrix(width, height, rounded.data(), static_cast<int>(rounded.size()));
    mask.set("scale", scale);
    mask.set("offset", offset);
    return mask;
}

VImage noiseField(int width, int height, int bands, double sigma, int seed) {
    int tw = std::min(width, 1024), th = std::min(height, 1024);
    VImage tile;
    for (int b = 0; b < bands; ++b) {
        VImage band = VImage::gaussnoise(
            tw, th, VImage::option()->set("sigma", sigma)->set("mean", 0.0)->set("seed", seed + b));
        tile = b == 0 ? band : tile.bandjoin(band);
    }
    tile = tile.copy_memory();
    return tile.replicate((width + tw - 1) / tw, (height + th - 1) / th).crop(0, 0, width, height);
}

namespace {
VImage clamped(const VImage& v, double high) {
    VImage low = (v < 0).ifthenelse(0.0, v);
    return (low > high).ifthenelse(high, low);
}
} // namespace

VImage remap(const VImage& image, const VImage& sx, const VImage& sy, const char* interpolator,
             bool edgeCopy, Colour background) {
    // mapim shows the background for positions outside the image whatever its extend says, so
    // edge copying is done by clamping the positions.
    VImage map = edgeCopy ? clamped(sx, image.width() - 1).bandjoin(clamped(sy, image.height() - 1))
                          : sx.bandjoin(sy);
    auto* options =
        VImage::option()->set("interpolate", vips::VInterpolate::new_from_name(interpolator));
    if (edgeCopy) return image.mapim(map, options);
    // A colour in the uncovered corners makes a grey image colour.
    VImage source = withColours(image, {background});
    Planes p = splitPlanes(source);
    std::vector<double> ink = colourInk(background, p.colour.bands(), p.white);
    if (p.hasAlpha) ink.push_back(0);
    return source.mapim(map, options->set("background", ink));
}

} // namespace fx::detail
