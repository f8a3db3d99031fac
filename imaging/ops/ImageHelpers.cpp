// Small pixel helpers shared by the operation families.
#include "imaging/ops/ImageHelpers.h"

#include "imaging/Operation.h"

namespace imaging {

using vips::VImage;

VImage toSrgb8WithAlpha(const VImage& in) {
    VImage out = in;
    if (out.interpretation() != VIPS_INTERPRETATION_sRGB)
        out = out.colourspace(VIPS_INTERPRETATION_sRGB);
    if (out.format() != VIPS_FORMAT_UCHAR) out = out.cast(VIPS_FORMAT_UCHAR);
    return out;
}

VImage onColour(const VImage& in, const std::function<VImage(const VImage&)>& fn) {
    VImage rgb = toSrgb8WithAlpha(in);
    if (!rgb.has_alpha()) return fn(rgb);
    VImage colour = rgb.extract_band(0, VImage::option()->set("n", rgb.bands() - 1));
    return fn(colour).bandjoin(rgb.extract_band(rgb.bands() - 1));
}

std::vector<double> backgroundFor(const VImage& in, int32_t color) {
    Rgb c = unpackColor(color);
    bool grey = in.bands() <= 2;
    std::vector<double> bg = grey ? std::vector<double>{0.299 * c.r + 0.587 * c.g + 0.114 * c.b}
                                  : std::vector<double>{c.r, c.g, c.b};
    if (in.has_alpha()) bg.push_back(in.format() == VIPS_FORMAT_USHORT ? 65535 : 255);
    if (in.format() == VIPS_FORMAT_USHORT)
        for (size_t k = 0; k + (in.has_alpha() ? 1 : 0) < bg.size(); ++k)
            bg[k] *= 257;
    return bg;
}

VImage clampToUchar(const VImage& in) {
    return (in < 0).ifthenelse(0, (in > 255).ifthenelse(255, in)).cast(VIPS_FORMAT_UCHAR);
}

} // namespace imaging
