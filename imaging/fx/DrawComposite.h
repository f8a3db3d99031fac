// A cairo canvas over a box of the image, and its compositing back with the DrawMode raster op.
#pragma once

#include <cairo.h>

#include <vips/vips8>

namespace fx::detail {

class Canvas {
public:
    // Covers the box [left, right) x [top, bottom) in image pixels, clipped to the image.
    // Drawing uses image coordinates; integer coordinates address pixel centres. With the copy
    // pen on an 8-bit RGB image cairo paints straight onto a copy of the pixels (the fast path);
    // otherwise it paints on a transparent layer that compositeOnto combines by the raster op.
    Canvas(const vips::VImage& image, int drawMode, double left, double top, double right,
           double bottom);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    bool empty() const { return m_width <= 0 || m_height <= 0; }
    cairo_t* cr() const { return m_cr; }

    // The image with what was drawn combined into it by the raster op (DrawMode 1 to 16);
    // anti-aliased edges blend the op's result with the pixel in proportion to coverage.
    vips::VImage compositeOnto(const vips::VImage& image, int drawMode) const;

private:
    vips::VImage surfacePixels() const;

    int m_left = 0, m_top = 0, m_width = 0, m_height = 0;
    bool m_direct = false;
    cairo_surface_t* m_surface = nullptr;
    cairo_t* m_cr = nullptr;
};

} // namespace fx::detail
