// Colour reduction (ColorDepth) and colour separation planes.
#include <algorithm>
#include <cmath>
#include <vector>

#include "imaging/ImagingControl.h"
#include "imaging/ops/ImageHelpers.h"

namespace imaging {

using vips::VImage;

namespace {

VImage flatRgb(const VImage& in) {
    VImage rgb = toSrgb8WithAlpha(in);
    return rgb.has_alpha()
               ? rgb.flatten(VImage::option()->set("background", std::vector<double>{255}))
               : rgb;
}

VImage grey8(const VImage& in) {
    return flatRgb(in).colourspace(VIPS_INTERPRETATION_B_W).cast(VIPS_FORMAT_UCHAR);
}

// A 4 x 4 Bayer threshold map tiled over the image, values in [0, 1).
VImage bayer(const VImage& like) {
    static const std::vector<double> m{0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
    std::vector<double> values(m);
    VImage cell = VImage::new_matrix(4, 4, values.data(), static_cast<int>(values.size()));
    VImage map = (cell.cast(VIPS_FORMAT_DOUBLE) + 0.5) / 16.0;
    VImage tiled = map.replicate((like.width() + 3) / 4, (like.height() + 3) / 4);
    return tiled.crop(0, 0, like.width(), like.height());
}

// Keeps `levels` evenly spaced values per band, optionally with ordered dithering.
VImage posterizeBands(const VImage& in, const std::vector<double>& steps, bool dither) {
    VImage noise = dither ? bayer(in) : VImage::black(in.width(), in.height()) + 0.5;
    std::vector<VImage> bands;
    for (int b = 0; b < in.bands(); ++b) {
        double s = steps[std::min<size_t>(b, steps.size() - 1)];
        VImage band = in.extract_band(b);
        bands.push_back(
            clampToUchar((band / s + noise - 0.5).round(VIPS_OPERATION_ROUND_RINT) * s));
    }
    return VImage::bandjoin(bands);
}

// Error diffusion to black and white (Floyd-Steinberg).
VImage diffuseToBilevel(const VImage& grey) {
    VImage mem = grey.copy_memory();
    auto* data = static_cast<const unsigned char*>(mem.data());
    int w = mem.width(), h = mem.height();
    std::vector<float> err(data, data + static_cast<size_t>(w) * h);
    std::vector<unsigned char> out(err.size());
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            size_t k = static_cast<size_t>(y) * w + x;
            float v = err[k], q = v >= 128 ? 255.f : 0.f, e = v - q;
            out[k] = static_cast<unsigned char>(q);
            if (x + 1 < w) err[k + 1] += e * 7 / 16;
            if (y + 1 < h) {
                if (x > 0) err[k + w - 1] += e * 3 / 16;
                err[k + w] += e * 5 / 16;
                if (x + 1 < w) err[k + w + 1] += e * 1 / 16;
            }
        }
    void* owned = g_malloc(out.size());
    std::copy(out.begin(), out.end(), static_cast<unsigned char*>(owned));
    return VImage::new_from_memory_steal(owned, out.size(), w, h, 1, VIPS_FORMAT_UCHAR)
        .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W));
}

// An adaptive palette of 2^bits colours, chosen by libvips' quantiser (libimagequant).
VImage paletteReduce(const VImage& in, int bits, bool dither) {
    VipsBlob* blob = flatRgb(in).pngsave_buffer(VImage::option()
                                                    ->set("palette", true)
                                                    ->set("bitdepth", bits)
                                                    ->set("dither", dither ? 1.0 : 0.0)
                                                    ->set("compression", 1));
    size_t size = 0;
    const void* bytes = vips_blob_get(blob, &size);
    VImage reduced;
    try {
        reduced = VImage::new_from_buffer(bytes, size, "");
        reduced = toSrgb8WithAlpha(reduced).copy_memory();
    } catch (...) {
        vips_area_unref(VIPS_AREA(blob));
        throw;
    }
    vips_area_unref(VIPS_AREA(blob));
    return reduced.has_alpha() ? reduced.extract_band(0, VImage::option()->set("n", 3)) : reduced;
}

} // namespace

void colorDepthRun(ImagingControl& c, const OpArgs& a) {
    int bits = a.i(0), palette = a.i(1);
    bool dither = a.b(2);
    const VImage& in = c.image();
    VImage out;
    switch (bits) {
    case 24:
        out = flatRgb(in);
        break;
    case 16:
        out = posterizeBands(flatRgb(in), {8, 4, 8}, dither);
        break;
    case 8:
    case 4:
        out = palette == 1 ? posterizeBands(grey8(in), {bits == 8 ? 1.0 : 17.0}, dither)
                           : paletteReduce(in, bits, dither);
        break;
    case 1:
        out = dither ? diffuseToBilevel(grey8(in))
                     : (grey8(in) >= 128).ifthenelse(255, 0).cast(VIPS_FORMAT_UCHAR);
        break;
    default:
        fail(ErrorCode::ArgumentOutOfRange,
             "ColorDepth: bits = " + std::to_string(bits) + " (allowed 1, 4, 8, 16, 24)");
    }
    if (out.bands() == 1)
        out = out.copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W));
    c.setImage(out);
    c.setBitsPerPixel(bits, bits == 1 || palette == 1);
}

void ImagingControl::separate(int32_t kind) {
    VImage rgb = flatRgb(image()).cast(VIPS_FORMAT_FLOAT);
    VImage r = rgb[0], g = rgb[1], b = rgb[2];
    VImage mx = (r > g).ifthenelse(r, g), mn = (r < g).ifthenelse(r, g);
    mx = (mx > b).ifthenelse(mx, b);
    mn = (mn < b).ifthenelse(mn, b);
    std::vector<VImage> planes;
    if (kind == 0) {
        planes = {r, g, b};
    } else if (kind == 1) {
        VImage hue =
            flatRgb(image()).colourspace(VIPS_INTERPRETATION_HSV)[0].cast(VIPS_FORMAT_FLOAT);
        VImage light = (mx + mn) / 2;
        VImage spread = 255 - (light * 2 - 255).abs();
        VImage sat = (spread > 0).ifthenelse((mx - mn) * 255 / (spread + (spread == 0)), 0);
        planes = {hue, sat, light};
    } else if (kind == 2) {
        planes = {255 - r, 255 - g, 255 - b};
    } else {
        VImage k = 255 - mx, room = mx + (mx == 0);
        auto ink = [&](const VImage& ch) { return (mx > 0).ifthenelse((mx - ch) * 255 / room, 0); };
        planes = {ink(r), ink(g), ink(b), k};
    }
    m_planes.clear();
    for (const VImage& p : planes)
        m_planes.push_back(
            clampToUchar(p).copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_B_W)));
}

void ImagingControl::selectSeparatedPlane(int32_t plane) {
    if (plane < 0 || plane >= static_cast<int32_t>(m_planes.size()))
        fail(ErrorCode::ArgumentOutOfRange, "separated plane " + std::to_string(plane) +
                                                " (the separation has " +
                                                std::to_string(m_planes.size()) + " planes)");
    setImage(m_planes[plane]);
}

int32_t ImagingControl::uniqueColors() {
    VImage rgb = toSrgb8WithAlpha(image());
    if (rgb.has_alpha()) rgb = rgb.extract_band(0, VImage::option()->set("n", rgb.bands() - 1));
    VImage packed = rgb.bands() >= 3
                        ? rgb[0].cast(VIPS_FORMAT_UINT) | (rgb[1].cast(VIPS_FORMAT_UINT) << 8) |
                              (rgb[2].cast(VIPS_FORMAT_UINT) << 16)
                        : rgb[0].cast(VIPS_FORMAT_UINT);
    VImage mem = packed.cast(VIPS_FORMAT_UINT).copy_memory();
    auto* data = static_cast<const uint32_t*>(mem.data());
    size_t pixels = static_cast<size_t>(mem.width()) * mem.height();
    std::vector<bool> seen(1u << 24);
    int32_t count = 0;
    for (size_t k = 0; k < pixels; ++k)
        if (!seen[data[k] & 0xFFFFFF]) {
            seen[data[k] & 0xFFFFFF] = true;
            ++count;
        }
    return count;
}

} // namespace imaging
