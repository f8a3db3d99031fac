// Tone curves, colour replacement, noise and block effects (mosaic, bevelled button edge).
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numeric>

#include "imaging/fx/Filters.h"
#include "imaging/fx/FxCatalogue.h"
#include "imaging/fx/PixelHelpers.h"

using vips::VImage;

namespace fx {

using detail::applyLut;
using detail::onColour;

namespace {

// Histogram of the image's brightness, one count per tone 0..white.
std::vector<double> brightnessHistogram(const VImage& colour) {
    VImage hist = detail::luminance(colour).cast(colour.format()).hist_find();
    size_t size = 0;
    std::unique_ptr<void, void (*)(void*)> data(
        hist.cast(VIPS_FORMAT_DOUBLE).write_to_memory(&size), g_free);
    const double* counts = static_cast<const double*>(data.get());
    return std::vector<double>(counts, counts + size / sizeof(double));
}

// The tone below which the given fraction of the pixels lies.
int percentile(const std::vector<double>& hist, double total, double fraction) {
    double sum = 0;
    for (size_t i = 0; i < hist.size(); ++i) {
        sum += hist[i];
        if (sum > total * fraction) return int(i);
    }
    return int(hist.size()) - 1;
}

template <class F> std::vector<double> makeLut(double white, F&& curve) {
    std::vector<double> lut(size_t(white) + 1);
    for (size_t v = 0; v < lut.size(); ++v)
        lut[v] = curve(double(v));
    return lut;
}

VImage lesser(const VImage& a, const VImage& b) {
    return (a < b).ifthenelse(a, b);
}

// The bevel of Buttonize: a pixel nearer the top or left edge than the bottom or right one, and
// within the width, is lit; one nearer the bottom or right is shaded (swapped when sunken).
struct Bevel {
    int w, h, width;
    bool sunken;
    double k, white;

    VImage strip(const VImage& c, int left, int top, int sw, int sh) const {
        VImage part = c.crop(left, top, sw, sh);
        VImage xy = VImage::xyz(sw, sh);
        VImage x = xy.extract_band(0) + left, y = xy.extract_band(1) + top;
        VImage nearTopLeft = lesser(x, y);
        VImage nearBottomRight = lesser((w - 1) - x, (h - 1) - y);
        VImage lit = (nearTopLeft < width) & (nearTopLeft <= nearBottomRight);
        VImage shaded = (nearBottomRight < width) & (nearBottomRight < nearTopLeft);
        if (sunken) std::swap(lit, shaded);
        VImage lighter = part + (white - part) * k;
        VImage darker = part * (1 - k);
        return lit.ifthenelse(lighter, shaded.ifthenelse(darker, part)).cast(c.format());
    }
};

} // namespace

VImage AutoContrast(const VImage& image) {
    return onColour("AutoContrast", image, [](const VImage& c, double white) {
        std::vector<double> hist = brightnessHistogram(c);
        double total = double(c.width()) * c.height();
        int lo = percentile(hist, total, 0.005), hi = percentile(hist, total, 0.995);
        if (hi <= lo) return c; // a flat image has no contrast to stretch
        double gain = white / (hi - lo);
        return applyLut(c, makeLut(white, [&](double v) { return (v - lo) * gain; }), white);
    });
}

VImage Equalize(const VImage& image) {
    return onColour("Equalize", image, [](const VImage& c, double white) {
        std::vector<double> hist = brightnessHistogram(c);
        std::vector<double> cdf(hist.size());
        std::partial_sum(hist.begin(), hist.end(), cdf.begin());
        double first = *std::find_if(cdf.begin(), cdf.end(), [](double v) { return v > 0; });
        double span = cdf.back() - first;
        if (span <= 0) return c;
        return applyLut(
            c,
            makeLut(white,
                    [&](double v) { return white * std::max(0.0, cdf[size_t(v)] - first) / span; }),
            white);
    });
}

VImage Posterize(const VImage& image, int levels) {
    checkArgument("Posterize", "levels", levels);
    return onColour("Posterize", image, [&](const VImage& c, double white) {
        return applyLut(c,
                        makeLut(white,
                                [&](double v) {
                                    double step = std::min(double(levels - 1),
                                                           std::floor(v * levels / (white + 1)));
                                    return step * white / (levels - 1);
                                }),
                        white);
    });
}

VImage Solarize(const VImage& image, int threshold) {
    checkArgument("Solarize", "threshold", threshold);
    return onColour("Solarize", image, [&](const VImage& c, double white) {
        double t = threshold * white / 255;
        return applyLut(c, makeLut(white, [&](double v) { return v > t ? white - v : v; }), white);
    });
}

VImage Parabolic(const VImage& image, int amount) {
    checkArgument("Parabolic", "amount", amount);
    return onColour("Parabolic", image, [&](const VImage& c, double white) {
        double k = amount / 100.0;
        return applyLut(c,
                        makeLut(white,
                                [&](double v) {
                                    double x = v / white;
                                    return v + (4 * x * (1 - x) * white - v) * k;
                                }),
                        white);
    });
}

VImage ReplaceColors(const VImage& image, Colour low, Colour high, Colour replacement) {
    checkArgument("ReplaceColors", "low", low);
    checkArgument("ReplaceColors", "high", high);
    checkArgument("ReplaceColors", "replacement", replacement);
    // A colour replacement makes a grey image colour.
    VImage target = detail::withColours(image, {replacement});
    return onColour("ReplaceColors", target, [&](const VImage& c, double white) {
        int bands = c.bands();
        VImage inside = (c >= detail::colourInk(low, bands, white)).bandand() &
                        (c <= detail::colourInk(high, bands, white)).bandand();
        return inside.ifthenelse(detail::colourInk(replacement, bands, white), c);
    });
}

VImage Noise(const VImage& image, int amount, int kind) {
    checkArgument("Noise", "amount", amount);
    checkArgument("Noise", "kind", kind);
    if (amount == 0) return image;
    return onColour("Noise", image, [&](const VImage& c, double white) {
        double sigma = amount / 100.0 * 64 * white / 255;
        // Monochrome noise is one band added to every channel.
        return c + detail::noiseField(c.width(), c.height(), kind == 1 ? c.bands() : 1, sigma, 101);
    });
}

VImage Mosaic(const VImage& image, int size) {
    checkArgument("Mosaic", "size", size);
    return onColour("Mosaic", image, [&](const VImage& c, double) {
        int w = c.width(), h = c.height();
        int paddedW = (w + size - 1) / size * size, paddedH = (h + size - 1) / size * size;
        VImage padded =
            c.embed(0, 0, paddedW, paddedH, VImage::option()->set("extend", VIPS_EXTEND_COPY));
        return padded.shrink(size, size).zoom(size, size).crop(0, 0, w, h);
    });
}

VImage Buttonize(const VImage& image, int width, int direction, int intensity) {
    checkArgument("Buttonize", "width", width);
    checkArgument("Buttonize", "direction", direction);
    checkArgument("Buttonize", "intensity", intensity);
    if (width > std::min(image.width(), image.height()) / 2)
        throwBadArgument("Buttonize",
                         "width must be at most half the shorter side (" +
                             std::to_string(std::min(image.width(), image.height()) / 2) +
                             " pixels here, got " + std::to_string(width) + ")");
    return onColour("Buttonize", image, [&](const VImage& c, double white) {
        // Only the four border strips change; the middle is left as it is.
        int w = c.width(), h = c.height();
        Bevel bevel{w, h, width, direction == 1, intensity / 100.0, white};
        VImage out = c.insert(bevel.strip(c, 0, 0, w, width), 0, 0)
                         .insert(bevel.strip(c, 0, h - width, w, width), 0, h - width);
        int middle = h - 2 * width;
        if (middle > 0)
            out = out.insert(bevel.strip(c, 0, width, width, middle), 0, width)
                      .insert(bevel.strip(c, w - width, width, width, middle), w - width, width);
        return out;
    });
}

} // namespace fx
