// Pixel layouts the control and its effects share: the depth an image is worked on at, and grey
// that becomes colour when a colour is put on it. Header-only: the effects library uses it too.
#pragma once

#include <cstdint>

#include <vips/vips8>

namespace imaging {

// One colour band (grey), alpha aside.
inline bool isGreyLayout(const vips::VImage& in) {
    return in.bands() - (in.has_alpha() ? 1 : 0) < 3;
}

// A 0x00BBGGRR colour with red, green and blue equal: put on a grey image, it keeps it grey.
inline bool isGreyColour(int32_t color) {
    int r = color & 0xFF, g = (color >> 8) & 0xFF, b = (color >> 16) & 0xFF;
    return r == g && g == b;
}

// The image as effects work on it: 8 or 16 bits a channel, grey or RGB. Depth is kept: other
// formats (float, 32-bit) become 16 bits, other colour spaces (CMYK, Lab) RGB.
inline vips::VImage workingLayout(const vips::VImage& in) {
    bool grey = isGreyLayout(in);
    VipsInterpretation want;
    if (in.format() == VIPS_FORMAT_UCHAR)
        want = grey ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB;
    else
        want = grey ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_RGB16;
    bool deep = in.format() == VIPS_FORMAT_USHORT;
    if (in.format() == VIPS_FORMAT_UCHAR || deep) {
        // Grey of any tag is taken as it is; colour is converted only from another space.
        if (grey || in.interpretation() == want) return in;
    }
    return in.colourspace(want);
}

// A grey image as colour at the same depth: its grey three times, alpha kept. Colour images are
// returned as they are.
inline vips::VImage greyToColour(const vips::VImage& in) {
    if (!isGreyLayout(in)) return in;
    vips::VImage grey = in.extract_band(0);
    vips::VImage out = vips::VImage::bandjoin({grey, grey, grey});
    if (in.has_alpha()) out = out.bandjoin(in.extract_band(in.bands() - 1));
    auto space =
        in.format() == VIPS_FORMAT_USHORT ? VIPS_INTERPRETATION_RGB16 : VIPS_INTERPRETATION_sRGB;
    return out.copy(vips::VImage::option()->set("interpretation", space));
}

} // namespace imaging
