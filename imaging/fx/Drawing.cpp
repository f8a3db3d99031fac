// Shapes: lines and boxes, circles and ellipses, arcs, pies, round rectangles, curves, polygons.
#include "imaging/fx/Drawing.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include "imaging/fx/DrawComposite.h"
#include "imaging/fx/DrawShared.h"
#include "imaging/fx/FxCatalogue.h"
#include "imaging/fx/FxError.h"
#include "imaging/fx/PixelHelpers.h"

using vips::VImage;

namespace fx {

using detail::Canvas;

namespace detail {

void setCairoColour(cairo_t* cr, Colour c) {
    cairo_set_source_rgb(cr, redOf(c) / 255.0, greenOf(c) / 255.0, blueOf(c) / 255.0);
}

} // namespace detail

namespace {

struct Box {
    double left, top, right, bottom;
};

Box boxOf(const std::vector<Point>& points) {
    Box b{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const Point& p : points) {
        b.left = std::min(b.left, p.x);
        b.top = std::min(b.top, p.y);
        b.right = std::max(b.right, p.x);
        b.bottom = std::max(b.bottom, p.y);
    }
    return b;
}

// An 8x8 tile of hatch lines in the fill colour, repeated over the shape.
cairo_pattern_t* hatchPattern(FillStyleCode style, Colour colour) {
    cairo_surface_t* tile = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 8, 8);
    cairo_t* cr = cairo_create(tile);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    detail::setCairoColour(cr, colour);
    cairo_set_line_width(cr, 1);
    bool horizontal = style == FillStyleCode::HorizontalLine || style == FillStyleCode::Cross;
    bool vertical = style == FillStyleCode::VerticalLine || style == FillStyleCode::Cross;
    bool up = style == FillStyleCode::UpwardDiagonal || style == FillStyleCode::DiagonalCross;
    bool down = style == FillStyleCode::DownwardDiagonal || style == FillStyleCode::DiagonalCross;
    if (horizontal) {
        cairo_move_to(cr, 0, 3.5);
        cairo_line_to(cr, 8, 3.5);
    }
    if (vertical) {
        cairo_move_to(cr, 3.5, 0);
        cairo_line_to(cr, 3.5, 8);
    }
    if (up) {
        cairo_move_to(cr, -1, 9);
        cairo_line_to(cr, 9, -1);
    }
    if (down) {
        cairo_move_to(cr, -1, -1);
        cairo_line_to(cr, 9, 9);
    }
    cairo_stroke(cr);
    cairo_destroy(cr);
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(tile);
    cairo_surface_destroy(tile);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_REPEAT);
    // Whole tile pixels, not a blend of two rows: the user space is half a pixel off the grid.
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_NEAREST);
    return pattern;
}

void setFill(cairo_t* cr, const DrawState& st) {
    auto style = static_cast<FillStyleCode>(st.fillStyle);
    if (style == FillStyleCode::Solid) {
        detail::setCairoColour(cr, st.fillColor);
        return;
    }
    cairo_pattern_t* pattern = hatchPattern(style, st.fillColor);
    cairo_set_source(cr, pattern);
    cairo_pattern_destroy(pattern);
}

void setLineStyle(cairo_t* cr, const DrawState& st) {
    double w = st.width;
    cairo_set_line_width(cr, w);
    std::vector<double> dashes;
    switch (static_cast<LineStyleCode>(st.style)) {
    case LineStyleCode::Dash:
        dashes = {4 * w, 2 * w};
        break;
    case LineStyleCode::Dot:
        dashes = {w, w};
        break;
    case LineStyleCode::DashDot:
        dashes = {4 * w, 2 * w, w, 2 * w};
        break;
    case LineStyleCode::DashDotDot:
        dashes = {4 * w, 2 * w, w, 2 * w, w, 2 * w};
        break;
    default:
        break;
    }
    cairo_set_dash(cr, dashes.data(), int(dashes.size()), 0);
}

using PathBuilder = std::function<void(cairo_t*)>;

// Builds the path, fills it (closed shapes, by the fill style or with solidFill), outlines it,
// and composites the result with the draw mode.
VImage render(const char* member, const VImage& image, const DrawState& st, Box b, Colour pen,
              bool closed, const PathBuilder& path, std::optional<Colour> solidFill = {}) {
    checkDrawState(st);
    checkArgument(member, "color", pen);
    bool fills = solidFill || (closed && st.fillStyle != int(FillStyleCode::Transparent));
    bool outlines = st.style != int(LineStyleCode::Transparent);
    return guarded(member, [&] {
        VImage target = detail::withColours(
            image, {outlines ? pen : 0, fills ? solidFill.value_or(st.fillColor) : 0});
        double pad = st.width / 2.0 + 2;
        Canvas canvas(target, st.mode, b.left - pad, b.top - pad, b.right + pad + 1,
                      b.bottom + pad + 1);
        if (canvas.empty()) return image;
        cairo_t* cr = canvas.cr();
        path(cr);
        if (fills) {
            if (solidFill)
                detail::setCairoColour(cr, *solidFill);
            else
                setFill(cr, st);
            cairo_fill_preserve(cr);
        }
        if (outlines) {
            setLineStyle(cr, st);
            detail::setCairoColour(cr, pen);
            if (closed && st.style == int(LineStyleCode::InsideSolid)) {
                // Only the inner half of a doubled pen is kept: the outline stays inside.
                cairo_clip_preserve(cr);
                cairo_set_line_width(cr, 2.0 * st.width);
            }
            cairo_stroke(cr);
        }
        cairo_new_path(cr);
        return canvas.compositeOnto(target, st.mode);
    });
}

// Adds an elliptical arc to the path; angles in degrees counter-clockwise as seen on screen.
void ellipseArc(cairo_t* cr, double cx, double cy, double rx, double ry, double start, double end) {
    if (rx <= 0 || ry <= 0) {
        cairo_line_to(cr, cx, cy);
        return;
    }
    cairo_save(cr);
    cairo_translate(cr, cx, cy);
    cairo_scale(cr, rx, ry);
    double toRad = std::numbers::pi / 180;
    cairo_arc_negative(cr, 0, 0, 1, -start * toRad, -end * toRad);
    cairo_restore(cr);
}

Box ellipseBox(int x1, int y1, int x2, int y2) {
    return {double(std::min(x1, x2)), double(std::min(y1, y2)), double(std::max(x1, x2)),
            double(std::max(y1, y2))};
}

} // namespace

void checkDrawState(const DrawState& st) {
    checkArgument("DrawMode", "mode", st.mode);
    checkArgument("DrawFillColor", "color", st.fillColor);
    checkArgument("DrawFillStyle", "style", st.fillStyle);
    checkArgument("DrawStyle", "style", st.style);
    checkArgument("DrawWidth", "width", st.width);
    checkArgument("Font", "size", st.font.size);
}

VImage DrawLine(const VImage& image, const DrawState& st, int x1, int y1, int x2, int y2,
                Colour color, bool box, bool fill) {
    Box b = ellipseBox(x1, y1, x2, y2);
    if (!box)
        return render("DrawLine", image, st, b, color, false, [&](cairo_t* cr) {
            cairo_move_to(cr, x1, y1);
            cairo_line_to(cr, x2, y2);
        });
    std::optional<Colour> solid = fill ? std::optional<Colour>(color) : std::nullopt;
    return render(
        "DrawLine", image, st, b, color, true,
        [&](cairo_t* cr) {
            cairo_rectangle(cr, b.left, b.top, b.right - b.left, b.bottom - b.top);
        },
        solid);
}

VImage DrawCircle(const VImage& image, const DrawState& st, int x, int y, int radius, Colour color,
                  double aspect) {
    checkArgument("DrawCircle", "radius", radius);
    checkArgument("DrawCircle", "aspect", aspect);
    double ry = radius * aspect;
    Box b{x - double(radius), y - ry, x + double(radius), y + ry};
    return render("DrawCircle", image, st, b, color, true, [&](cairo_t* cr) {
        cairo_new_sub_path(cr);
        ellipseArc(cr, x, y, radius, ry, 0, 360);
        cairo_close_path(cr);
    });
}

VImage DrawArc(const VImage& image, const DrawState& st, int x1, int y1, int x2, int y2, int start,
               int end, Colour color) {
    Box b = ellipseBox(x1, y1, x2, y2);
    return render("DrawArc", image, st, b, color, false, [&](cairo_t* cr) {
        cairo_new_sub_path(cr);
        ellipseArc(cr, (b.left + b.right) / 2, (b.top + b.bottom) / 2, (b.right - b.left) / 2,
                   (b.bottom - b.top) / 2, start, end);
    });
}

VImage DrawPie(const VImage& image, const DrawState& st, int x1, int y1, int x2, int y2, int start,
               int end, Colour color) {
    Box b = ellipseBox(x1, y1, x2, y2);
    return render("DrawPie", image, st, b, color, true, [&](cairo_t* cr) {
        double cx = (b.left + b.right) / 2, cy = (b.top + b.bottom) / 2;
        cairo_move_to(cr, cx, cy);
        ellipseArc(cr, cx, cy, (b.right - b.left) / 2, (b.bottom - b.top) / 2, start, end);
        cairo_close_path(cr);
    });
}

VImage DrawRoundRect(const VImage& image, const DrawState& st, int x1, int y1, int x2, int y2,
                     int cornerWidth, int cornerHeight, Colour color) {
    checkArgument("DrawRoundRect", "cornerWidth", cornerWidth);
    checkArgument("DrawRoundRect", "cornerHeight", cornerHeight);
    Box b = ellipseBox(x1, y1, x2, y2);
    double rx = std::min(cornerWidth / 2.0, (b.right - b.left) / 2);
    double ry = std::min(cornerHeight / 2.0, (b.bottom - b.top) / 2);
    return render("DrawRoundRect", image, st, b, color, true, [&](cairo_t* cr) {
        // Corners clockwise on screen from the top right, each a quarter of the corner ellipse.
        const double corners[4][2] = {{b.right - rx, b.top + ry},
                                      {b.right - rx, b.bottom - ry},
                                      {b.left + rx, b.bottom - ry},
                                      {b.left + rx, b.top + ry}};
        cairo_new_sub_path(cr);
        for (int k = 0; k < 4; ++k) {
            double from = (k - 1) * std::numbers::pi / 2;
            if (rx <= 0 || ry <= 0) {
                cairo_line_to(cr, corners[k][0], corners[k][1]);
                continue;
            }
            cairo_save(cr);
            cairo_translate(cr, corners[k][0], corners[k][1]);
            cairo_scale(cr, rx, ry);
            cairo_arc(cr, 0, 0, 1, from, from + std::numbers::pi / 2);
            cairo_restore(cr);
        }
        cairo_close_path(cr);
    });
}

VImage DrawCurve(const VImage& image, const DrawState& st, Point p1, Point p2, Point p3, Point p4,
                 Colour color) {
    return render("DrawCurve", image, st, boxOf({p1, p2, p3, p4}), color, false, [&](cairo_t* cr) {
        cairo_move_to(cr, p1.x, p1.y);
        cairo_curve_to(cr, p2.x, p2.y, p3.x, p3.y, p4.x, p4.y);
    });
}

VImage DrawPolygon(const VImage& image, const DrawState& st, const std::vector<Point>& points,
                   Colour color) {
    if (points.size() < 2 || points.size() > 6)
        throwBadArgument("DrawPolygon", "a polygon takes 2 to 6 points (got " +
                                            std::to_string(points.size()) + ")");
    return render("DrawPolygon", image, st, boxOf(points), color, true, [&](cairo_t* cr) {
        cairo_move_to(cr, points[0].x, points[0].y);
        for (size_t i = 1; i < points.size(); ++i)
            cairo_line_to(cr, points[i].x, points[i].y);
        cairo_close_path(cr);
    });
}

} // namespace fx
