// Drawing canvas and raster-op compositing of what cairo drew onto the libvips image.
#include "imaging/fx/DrawComposite.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "imaging/fx/FxTypes.h"
#include "imaging/fx/PixelHelpers.h"

using vips::VImage;

namespace fx::detail {

Canvas::Canvas(const VImage& image, int drawMode, double left, double top, double right,
               double bottom) {
    m_left = std::max(0, int(std::floor(left)));
    m_top = std::max(0, int(std::floor(top)));
    int r = std::min(image.width(), int(std::ceil(right)));
    int b = std::min(image.height(), int(std::ceil(bottom)));
    m_width = r - m_left;
    m_height = b - m_top;
    if (empty()) return;
    m_surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, m_width, m_height);
    m_direct = drawMode == int(DrawModeCode::CopyPen) && image.format() == VIPS_FORMAT_UCHAR &&
               image.bands() == 3 && cairo_surface_status(m_surface) == CAIRO_STATUS_SUCCESS;
    if (m_direct) {
        // Cairo's ARGB32 is a native-endian word: bytes B, G, R, A on little-endian machines.
        VImage rgb = image.crop(m_left, m_top, m_width, m_height);
        VImage bgra =
            VImage::bandjoin({rgb.extract_band(2), rgb.extract_band(1), rgb.extract_band(0),
                              (rgb.extract_band(0) * 0 + 255).cast(VIPS_FORMAT_UCHAR)});
        size_t size = 0;
        std::unique_ptr<void, void (*)(void*)> bytes(bgra.write_to_memory(&size), g_free);
        unsigned char* data = cairo_image_surface_get_data(m_surface);
        int stride = cairo_image_surface_get_stride(m_surface);
        for (int y = 0; y < m_height; ++y)
            std::memcpy(data + size_t(y) * stride,
                        static_cast<unsigned char*>(bytes.get()) + size_t(y) * m_width * 4,
                        size_t(m_width) * 4);
        cairo_surface_mark_dirty(m_surface);
    }
    m_cr = cairo_create(m_surface);
    if (cairo_status(m_cr) != CAIRO_STATUS_SUCCESS)
        throw vips::VError(std::string("cairo: ") + cairo_status_to_string(cairo_status(m_cr)));
    // Pixel centres sit at integer coordinates, so a 1-pixel line along a row stays crisp.
    cairo_translate(m_cr, 0.5 - m_left, 0.5 - m_top);
}

Canvas::~Canvas() {
    if (m_cr) cairo_destroy(m_cr);
    if (m_surface) cairo_surface_destroy(m_surface);
}

namespace {

VImage bitNot(const VImage& v, double white) {
    return white - v;
}

// The sixteen binary raster operations on pixel D and pen P (bitwise on each channel).
VImage rasterOp(int mode, const VImage& d, const VImage& p, double white) {
    switch (static_cast<DrawModeCode>(mode)) {
    case DrawModeCode::Blackness:
        return d * 0;
    case DrawModeCode::NotMergePen:
        return bitNot(d | p, white);
    case DrawModeCode::MaskNotPen:
        return d & bitNot(p, white);
    case DrawModeCode::NotCopyPen:
        return bitNot(p, white);
    case DrawModeCode::MaskPenNot:
        return p & bitNot(d, white);
    case DrawModeCode::Invert:
        return bitNot(d, white);
    case DrawModeCode::XorPen:
        return d ^ p;
    case DrawModeCode::NotMaskPen:
        return bitNot(d & p, white);
    case DrawModeCode::MaskPen:
        return d & p;
    case DrawModeCode::NotXorPen:
        return bitNot(d ^ p, white);
    case DrawModeCode::Nop:
        return d;
    case DrawModeCode::MergeNotPen:
        return d | bitNot(p, white);
    case DrawModeCode::MergePenNot:
        return p | bitNot(d, white);
    case DrawModeCode::MergePen:
        return d | p;
    case DrawModeCode::Whiteness:
        return d * 0 + white;
    case DrawModeCode::CopyPen:
        break;
    }
    return p;
}

} // namespace

// The surface's pixels as a libvips image (B, G, R, A bands), copied out of cairo's memory.
VImage Canvas::surfacePixels() const {
    cairo_surface_flush(m_surface);
    int stride = cairo_image_surface_get_stride(m_surface);
    const unsigned char* data = cairo_image_surface_get_data(m_surface);
    return VImage::new_from_memory(const_cast<unsigned char*>(data), size_t(stride) * m_height,
                                   stride / 4, m_height, 4, VIPS_FORMAT_UCHAR)
        .crop(0, 0, m_width, m_height)
        .copy_memory();
}

VImage Canvas::compositeOnto(const VImage& image, int drawMode) const {
    if (empty()) return image;
    VImage bgra = surfacePixels();
    if (m_direct) {
        VImage rgb =
            VImage::bandjoin({bgra.extract_band(2), bgra.extract_band(1), bgra.extract_band(0)});
        return image.insert(
            rgb.copy(VImage::option()->set("interpretation", image.interpretation())), m_left,
            m_top);
    }
    VImage alpha = bgra.extract_band(3).cast(VIPS_FORMAT_FLOAT) / 255;
    VImage premultiplied =
        VImage::bandjoin({bgra.extract_band(2), bgra.extract_band(1), bgra.extract_band(0)});
    VImage rgb = (alpha > 0).ifthenelse(premultiplied / (alpha + 1e-9), 0.0);

    Planes planes = splitPlanes(image.crop(m_left, m_top, m_width, m_height));
    double k = planes.white / 255;
    VImage pen = planes.colour.bands() < 3 ? luminance(rgb) : rgb;
    pen = (pen * k).cast(planes.format);
    VImage d = planes.colour;
    VImage result = rasterOp(drawMode, d, pen, planes.white);
    VImage blended = d + (result - d) * alpha;
    if (planes.hasAlpha)
        planes.alpha = (planes.alpha + (planes.white - planes.alpha) * alpha).cast(planes.format);
    VImage patch = joinPlanes(planes, blended);
    return image.insert(patch.cast(image.format()), m_left, m_top);
}

} // namespace fx::detail
