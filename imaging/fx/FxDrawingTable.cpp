// The effect table, drawing, drawing state, Area, Merge and CaptureWindow: each member's
// arguments, ranges, defaults, description and handler, declared once.
#include "imaging/fx/FxTableFamilies.h"
#include "imaging/fx/FxTableSupport.h"

namespace fx {

namespace {

using namespace table;

DrawState drawState(const imaging::OpContext& ctx) {
    const imaging::DrawState& d = ctx.draw;
    DrawState st;
    st.mode = d.drawMode;
    st.fillColor = d.drawFillColor;
    st.fillStyle = d.drawFillStyle;
    st.style = d.drawStyle;
    st.width = d.drawWidth;
    st.font = {d.font.name, d.font.size,      d.font.italic,
               d.font.bold, d.font.underline, d.font.strikethrough};
    return st;
}

FX_APPLY(drawLine,
         DrawLine(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.i(4), a.b(5), a.b(6)))
FX_APPLY(drawCircle, DrawCircle(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.d(4)))
FX_APPLY(drawArc,
         DrawArc(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.i(4), a.i(5), a.i(6)))
FX_APPLY(drawPie,
         DrawPie(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.i(4), a.i(5), a.i(6)))
FX_APPLY(drawRoundRect,
         DrawRoundRect(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.i(4), a.i(5), a.i(6)))
FX_APPLY(drawCurve,
         DrawCurve(in, drawState(ctx), point(a, 0), point(a, 2), point(a, 4), point(a, 6), a.i(8)))
FX_APPLY(drawText, DrawText(in, drawState(ctx), a.i(0), a.i(1), a.s(2), a.i(3)))

// Points 3 to 6 count when given, in pairs; the colour is the last argument.
vips::VImage drawPolygon(const vips::VImage& in, const imaging::OpArgs& a,
                         const imaging::OpContext& ctx) {
    std::vector<Point> points{point(a, 0), point(a, 2)};
    for (size_t k = 4; k < 12; k += 2) {
        if (a.given(k) != a.given(k + 1))
            imaging::fail(imaging::ErrorCode::ArgumentOutOfRange,
                          "DrawPolygon: points come in x, y pairs");
        if (a.given(k)) points.push_back(point(a, k));
    }
    return DrawPolygon(in, drawState(ctx), points, a.i(12));
}

void area(imaging::ImagingControl& c, const imaging::OpArgs& a) {
    imaging::AreaState& s = c.area();
    if (!a.b(0)) {
        s.enabled = false;
        return;
    }
    AreaRect r{a.i(1), a.i(2), a.i(3), a.i(4)};
    if (c.hasImage()) r = clipArea(r, c.image().width(), c.image().height());
    s = {true, r.x, r.y, r.width, r.height};
}

void merge(imaging::ImagingControl& c, const imaging::OpArgs& a) {
    if (!a.b(0)) return;
    const vips::VImage* clip = c.clipboardImage();
    if (!clip)
        imaging::fail(imaging::ErrorCode::NothingToPaste,
                      "Merge needs an image on the clipboard (use Copy)");
    MergeOptions o{a.i(1), a.i(2), a.b(3), a.i(4), a.i(5), a.i(6)};
    const imaging::AreaState& s = c.area();
    if (!s.enabled) {
        c.setImage(Merge(c.image(), *clip, o));
        return;
    }
    // With the processing area on, the area is the image the clipboard is merged into.
    c.setImage(applyInArea(c.image(), {s.x, s.y, s.width, s.height},
                           [&](const vips::VImage& part) { return Merge(part, *clip, o); }));
}

void captureWindow(imaging::ImagingControl& c, const imaging::OpArgs& a) {
    c.setImage(CaptureWindow(a.i(0)));
}

// Drawing takes image coordinates, so the processing area does not apply to it.
constexpr unsigned kDraw = imaging::OpWholeImage;

} // namespace

std::vector<FxMemberInfo> drawingEntries() {
    FxArgument pen = colour("color", "pen colour", "0 (black)");
    return {
        {"DrawMode",
         "Drawing state",
         {ranged("mode", "integer", 1, 16,
                 "1 black, 2 not merge pen, 3 mask not pen, 4 not copy "
                 "pen, 5 mask pen not, 6 invert, 7 xor pen, 8 not mask pen, 9 mask pen, 10 not xor "
                 "pen, 11 no-op, 12 merge not pen, 13 copy pen, 14 merge pen not, 15 merge pen, "
                 "16 white",
                 "13")},
         "How drawing combines the pen with the pixels under it (bitwise on each channel)."},
        {"DrawFillColor",
         "Drawing state",
         {colour("color", "fill colour", "0 (black)")},
         "Colour that fills closed shapes."},
        {"DrawFillStyle",
         "Drawing state",
         {ranged("style", "integer", 0, 7,
                 "0 solid, 1 transparent (no fill), 2 horizontal "
                 "lines, 3 vertical lines, 4 upward diagonals, 5 downward diagonals, 6 cross, "
                 "7 diagonal cross",
                 "1")},
         "How closed shapes (circle, pie, round rectangle, polygon, box) are filled."},
        {"DrawStyle",
         "Drawing state",
         {ranged("style", "integer", 0, 6,
                 "0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, "
                 "5 transparent (no outline), 6 inside solid",
                 "0")},
         "Dash pattern of lines and outlines."},
        {"DrawWidth",
         "Drawing state",
         {ranged("width", "long", 1, 32767, "pen width in pixels", "1")},
         "Width of lines and outlines."},
        {"Font",
         "Drawing state",
         {plain("name", "string", "font family; a missing family falls back to a similar one",
                "Sans"),
          ranged("size", "long", 1, 1000, "size in points at 96 dots per inch", "12"),
          plain("italic", "boolean", "italic", "False"), plain("bold", "boolean", "bold", "False"),
          plain("underline", "boolean", "underline", "False"),
          plain("strikethrough", "boolean", "strikethrough", "False")},
         "Font used by DrawText."},
        {"DrawLine",
         "Drawing",
         {coord("x1", "start x"), coord("y1", "start y"), coord("x2", "end x"),
          coord("y2", "end y"), pen,
          plain("box", "boolean", "True draws the rectangle with these corners", "False"),
          plain("fill", "boolean", "with box: True fills the rectangle with the pen colour",
                "False")},
         "Draws a line, or a rectangle with box.",
         mapped<drawLine>,
         nullptr,
         kDraw},
        {"DrawCircle",
         "Drawing",
         {coord("x", "centre x"), coord("y", "centre y"),
          ranged("radius", "integer", 0, 32767, "horizontal radius in pixels"), pen,
          ranged("aspect", "number", 0.01, 100, "vertical radius / horizontal radius", "1")},
         "Draws a circle or an ellipse, filled with the fill style.",
         mapped<drawCircle>,
         nullptr,
         kDraw},
        {"DrawArc",
         "Drawing",
         {coord("x1", "left of the ellipse's box"), coord("y1", "top of the box"),
          coord("x2", "right of the box"), coord("y2", "bottom of the box"),
          coord("start", "start angle in degrees, counter-clockwise from 3 o'clock"),
          coord("end", "end angle in degrees"), pen},
         "Draws the arc of the ellipse inscribed in the box from start to end angle.",
         mapped<drawArc>,
         nullptr,
         kDraw},
        {"DrawPie",
         "Drawing",
         {coord("x1", "left of the ellipse's box"), coord("y1", "top of the box"),
          coord("x2", "right of the box"), coord("y2", "bottom of the box"),
          coord("start", "start angle in degrees, counter-clockwise from 3 o'clock"),
          coord("end", "end angle in degrees"), pen},
         "Draws a pie slice (arc closed through the centre), filled with the fill style.",
         mapped<drawPie>,
         nullptr,
         kDraw},
        {"DrawRoundRect",
         "Drawing",
         {coord("x1", "left"), coord("y1", "top"), coord("x2", "right"), coord("y2", "bottom"),
          ranged("cornerWidth", "integer", 0, 32767, "width of the corner ellipse"),
          ranged("cornerHeight", "integer", 0, 32767, "height of the corner ellipse"), pen},
         "Draws a rectangle with rounded corners, filled with the fill style.",
         mapped<drawRoundRect>,
         nullptr,
         kDraw},
        {"DrawCurve",
         "Drawing",
         {coord("x1", "start x"), coord("y1", "start y"), coord("x2", "first control x"),
          coord("y2", "first control y"), coord("x3", "second control x"),
          coord("y3", "second control y"), coord("x4", "end x"), coord("y4", "end y"), pen},
         "Draws a cubic Bezier curve.",
         mapped<drawCurve>,
         nullptr,
         kDraw},
        {"DrawPolygon",
         "Drawing",
         {coord("x1", "first point x"), coord("y1", "first point y"), coord("x2", "second point x"),
          coord("y2", "second point y"),
          plain("x3 ... y6", "long", "up to four more points, in pairs", "none"), pen},
         "Draws a closed polygon of two to six points, filled with the fill style.",
         mapped<drawPolygon>,
         nullptr,
         kDraw},
        {"DrawText",
         "Drawing",
         {coord("x", "left of the text"), coord("y", "top of the text"),
          plain("text", "string", "the text; line breaks start new lines"), pen},
         "Draws anti-aliased text in the current Font.",
         mapped<drawText>,
         nullptr,
         kDraw},
        {"Area",
         "Area and merge",
         {plain("enabled", "boolean", "True limits later effects to the rectangle"),
          ranged("x", "long", 0, kCoordMax, "left", "0"),
          ranged("y", "long", 0, kCoordMax, "top", "0"),
          ranged("width", "long", 0, kCoordMax, "width; 0 reaches the right edge", "0"),
          ranged("height", "long", 0, kCoordMax, "height; 0 reaches the bottom edge", "0")},
         "While enabled, effects (not drawing) change only the pixels inside the rectangle.",
         nullptr,
         mappedRun<area>},
        {"Merge",
         "Area and merge",
         {plain("enabled", "boolean", "True merges the clipboard image now"),
          ranged("size", "integer", 0, 3,
                 "0 top-left at its own size, 1 stretched to the image, "
                 "2 centred, 3 tiled",
                 "0"),
          ranged("style", "integer", 0, 7,
                 "0 normal, 1 add, 2 subtract, 3 multiply, 4 screen, "
                 "5 darken, 6 lighten, 7 difference",
                 "0"),
          plain("transparent", "boolean", "True leaves pixels of the transparent colour out",
                "False"),
          colour("transparentColor", "clipboard colour that is left out", "0"),
          ranged("high", "integer", 0, 100, "opacity in percent where the clipboard is white",
                 "100"),
          ranged("low", "integer", 0, 100, "opacity in percent where the clipboard is black",
                 "100")},
         "Combines the clipboard image with the current one (with Area on: with the area); the "
         "opacity runs from low to high with the clipboard's brightness.",
         nullptr,
         mappedRun<merge>},
        {"CaptureWindow",
         "Capture",
         {ranged("handle", "long", 0, 2147483647, "X11 window id; 0 captures the whole screen")},
         "Replaces the image with a capture of a window of the desktop (X11 displays).",
         nullptr,
         mappedRun<captureWindow>},
    };
}

} // namespace fx
