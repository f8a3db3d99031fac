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

VImage onColour(const VImage& in, const ToneFn& fn) {
    VImage work = workingLayout(in);
    double white = work.format() == VIPS_FORMAT_USHORT ? 65535 : 255;
    bool alpha = work.has_alpha();
    VImage colour =
        alpha ? work.extract_band(0, VImage::option()->set("n", work.bands() - 1)) : work;
    // cast clips to the range of the format.
    VImage out = fn(colour, white).cast(work.format());
    if (alpha) out = out.bandjoin(work.extract_band(work.bands() - 1));
    return out.copy(VImage::option()->set("interpretation", work.interpretation()));
}

void matchLayouts(VImage& a, VImage& b) {
    a = workingLayout(a);
    b = workingLayout(b);
    // 8 bits go up to 16, alpha too: 255 becomes 65535.
    auto deepen = [](const VImage& v) {
        if (v.format() == VIPS_FORMAT_USHORT) return v;
        auto space = isGreyLayout(v) ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_RGB16;
        return (v.cast(VIPS_FORMAT_USHORT) * 257)
            .cast(VIPS_FORMAT_USHORT)
            .copy(VImage::option()->set("interpretation", space));
    };
    if (a.format() != b.format()) {
        a = deepen(a);
        b = deepen(b);
    }
    if (isGreyLayout(a) != isGreyLayout(b)) {
        a = greyToColour(a);
        b = greyToColour(b);
    }
    double opaque = a.format() == VIPS_FORMAT_USHORT ? 65535 : 255;
    if (a.has_alpha() != b.has_alpha()) {
        VImage& plain = a.has_alpha() ? b : a;
        plain = plain.bandjoin_const({opaque});
    }
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
