// Swirl, twist, pinch, ripple and projective warps as coordinate maps resampled by mapim.
#include "imaging/fx/Distortions.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "imaging/fx/FxCatalogue.h"
#include "imaging/fx/FxError.h"
#include "imaging/fx/PixelHelpers.h"

using vips::VImage;

namespace fx {

namespace {

// Pixel coordinates relative to a centre, as float images.
struct Offsets {
    VImage dx, dy;
};

Offsets offsetsFrom(const VImage& image, double cx, double cy) {
    VImage xy = VImage::xyz(image.width(), image.height()).cast(VIPS_FORMAT_FLOAT);
    return {xy.extract_band(0) - cx, xy.extract_band(1) - cy};
}

// The square round the centred disc that Swirl and Pinch move; outside it nothing changes, so
// only this window is resampled (a quarter of a 4:3 photo is spared).
struct Window {
    int left, top, width, height;
    double cx, cy, limit;

    static Window aroundDisc(const VImage& image) {
        Window w;
        w.cx = (image.width() - 1) / 2.0;
        w.cy = (image.height() - 1) / 2.0;
        w.limit = std::min(image.width(), image.height()) / 2.0;
        w.left = std::max(0, int(std::floor(w.cx - w.limit)));
        w.top = std::max(0, int(std::floor(w.cy - w.limit)));
        w.width = std::min(image.width(), int(std::ceil(w.cx + w.limit)) + 1) - w.left;
        w.height = std::min(image.height(), int(std::ceil(w.cy + w.limit)) + 1) - w.top;
        return w;
    }
    Offsets offsets() const {
        VImage xy = VImage::xyz(width, height).cast(VIPS_FORMAT_FLOAT);
        return {xy.extract_band(0) + (left - cx), xy.extract_band(1) + (top - cy)};
    }
};

VImage radius(const Offsets& o) {
    return (o.dx * o.dx + o.dy * o.dy).pow(0.5);
}

VImage resample(const VImage& image, const VImage& sx, const VImage& sy, bool edgeCopy,
                Colour background = 0) {
    return detail::remap(image, sx, sy, "bilinear", edgeCopy, background);
}

// The offsets turned by angle degrees at the centre, the turn fading to none at limit.
Offsets swirled(const Offsets& o, double angle, double limit) {
    VImage r = radius(o);
    VImage fade = (r < limit).ifthenelse(1 - r / limit, 0.0);
    VImage theta = fade * fade * angle;
    VImage c = theta.cos(), s = theta.sin();
    return {o.dx * c - o.dy * s, o.dx * s + o.dy * c};
}

// Solves the projective transform taking each of to[i] to from[i] (8 unknowns); false when the
// points are degenerate.
bool solveHomography(const std::array<Point, 4>& to, const std::array<Point, 4>& from,
                     double h[8]) {
    double a[8][9] = {};
    for (int i = 0; i < 4; ++i) {
        double u = to[i].x, v = to[i].y, x = from[i].x, y = from[i].y;
        double rowX[9] = {u, v, 1, 0, 0, 0, -u * x, -v * x, x};
        double rowY[9] = {0, 0, 0, u, v, 1, -u * y, -v * y, y};
        std::copy(rowX, rowX + 9, a[2 * i]);
        std::copy(rowY, rowY + 9, a[2 * i + 1]);
    }
    for (int col = 0; col < 8; ++col) {
        int pivot = col;
        for (int r = col + 1; r < 8; ++r)
            if (std::abs(a[r][col]) > std::abs(a[pivot][col])) pivot = r;
        if (std::abs(a[pivot][col]) < 1e-9) return false;
        std::swap(a[col], a[pivot]);
        for (int r = 0; r < 8; ++r) {
            if (r == col) continue;
            double f = a[r][col] / a[col][col];
            for (int k = col; k < 9; ++k)
                a[r][k] -= f * a[col][k];
        }
    }
    for (int i = 0; i < 8; ++i)
        h[i] = a[i][8] / a[i][i];
    return true;
}

bool convex(const std::array<Point, 4>& p) {
    int positive = 0, negative = 0;
    for (int i = 0; i < 4; ++i) {
        const Point &a = p[i], &b = p[(i + 1) % 4], &c = p[(i + 2) % 4];
        double z = (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
        positive += z > 0;
        negative += z < 0;
    }
    return positive == 4 || negative == 4;
}

VImage warp(const char* member, const VImage& image, const std::array<Point, 4>& corners,
            Colour background) {
    if (image.width() < 2 || image.height() < 2) return image; // no area to warp
    double w = image.width() - 1, h = image.height() - 1;
    std::array<Point, 4> source{Point{0, 0}, Point{w, 0}, Point{w, h}, Point{0, h}};
    double m[8];
    if (!convex(corners) || !solveHomography(corners, source, m))
        throwBadArgument(member, "the corners must form a convex quadrilateral, given in the "
                                 "order top-left, top-right, bottom-right, bottom-left");
    return guarded(member, [&] {
        Offsets o = offsetsFrom(image, 0, 0);
        VImage den = o.dx * m[6] + o.dy * m[7] + 1;
        // Points behind the viewer (den <= 0) map far outside, so they show the background.
        VImage safe = (den > 1e-6).ifthenelse(den, 1e-6);
        VImage sx = (den > 1e-6).ifthenelse((o.dx * m[0] + o.dy * m[1] + m[2]) / safe, -1e6);
        VImage sy = (o.dx * m[3] + o.dy * m[4] + m[5]) / safe;
        return resample(image, sx, sy, false, background);
    });
}

} // namespace

VImage Swirl(const VImage& image, double angle) {
    checkArgument("Swirl", "angle", angle);
    return guarded("Swirl", [&] {
        Window w = Window::aroundDisc(image);
        Offsets t = swirled(w.offsets(), angle, w.limit);
        return image.insert(resample(image, t.dx + w.cx, t.dy + w.cy, true), w.left, w.top);
    });
}

VImage Twist(const VImage& image, int angle, int size) {
    checkArgument("Twist", "angle", angle);
    checkArgument("Twist", "size", size);
    return guarded("Twist", [&] {
        VImage xy = VImage::xyz(image.width(), image.height());
        double half = (size - 1) / 2.0;
        VImage local = (xy % size).cast(VIPS_FORMAT_FLOAT) - half;
        VImage centre = xy.cast(VIPS_FORMAT_FLOAT) - local;
        Offsets t = swirled({local.extract_band(0), local.extract_band(1)}, angle, size / 2.0);
        return resample(image, centre.extract_band(0) + t.dx, centre.extract_band(1) + t.dy, true);
    });
}

VImage Pinch(const VImage& image, int amount) {
    checkArgument("Pinch", "amount", amount);
    if (amount == 0) return image;
    return guarded("Pinch", [&] {
        Window w = Window::aroundDisc(image);
        double limit = w.limit;
        Offsets o = w.offsets();
        VImage r = radius(o);
        // sin(90 r / limit) runs from 0 at the centre to 1 at the rim: a power above 1 of its
        // inverse pulls samples from further out (pinch), below 1 from nearer (bulge).
        VImage scale = ((r / limit * 90).sin() + 1e-6).pow(-amount / 100.0);
        VImage f = (r < limit).ifthenelse(scale, 1.0);
        return image.insert(resample(image, o.dx * f + w.cx, o.dy * f + w.cy, true), w.left, w.top);
    });
}

VImage Ripple(const VImage& image, int amplitude, int wavelength, int direction) {
    checkArgument("Ripple", "amplitude", amplitude);
    checkArgument("Ripple", "wavelength", wavelength);
    checkArgument("Ripple", "direction", direction);
    if (amplitude == 0) return image;
    return guarded("Ripple", [&] {
        double cx = (image.width() - 1) / 2.0, cy = (image.height() - 1) / 2.0;
        Offsets o = offsetsFrom(image, cx, cy);
        VImage x = o.dx + cx, y = o.dy + cy;
        double perPixel = 360.0 / wavelength;
        if (direction == 0) return resample(image, x, y + (x * perPixel).sin() * amplitude, true);
        if (direction == 1) return resample(image, x + (y * perPixel).sin() * amplitude, y, true);
        VImage r = radius(o) + 1e-6;
        VImage push = (r * perPixel).sin() * amplitude / r;
        return resample(image, x + o.dx * push, y + o.dy * push, true);
    });
}

VImage Perspective(const VImage& image, int edge, int amount, Colour background) {
    checkArgument("Perspective", "edge", edge);
    checkArgument("Perspective", "amount", amount);
    if (amount == 0) return image;
    double w = image.width() - 1, h = image.height() - 1;
    double sx = amount / 100.0 * w / 2, sy = amount / 100.0 * h / 2;
    std::array<Point, 4> c{Point{0, 0}, Point{w, 0}, Point{w, h}, Point{0, h}};
    switch (edge) {
    case 0:
        c[0].x += sx;
        c[1].x -= sx;
        break;
    case 1:
        c[3].x += sx;
        c[2].x -= sx;
        break;
    case 2:
        c[0].y += sy;
        c[3].y -= sy;
        break;
    default:
        c[1].y += sy;
        c[2].y -= sy;
        break;
    }
    return warp("Perspective", image, c, background);
}

VImage PWarp(const VImage& image, const std::array<Point, 4>& corners, Colour background) {
    static const char* names[8] = {"x1", "y1", "x2", "y2", "x3", "y3", "x4", "y4"};
    for (int i = 0; i < 4; ++i) {
        checkArgument("PWarp", names[2 * i], corners[i].x);
        checkArgument("PWarp", names[2 * i + 1], corners[i].y);
    }
    return warp("PWarp", image, corners, background);
}

} // namespace fx
