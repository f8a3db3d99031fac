// Drawing on the current image with the control's drawing state: anti-aliased shapes and text
// (cairo and pango), combined with the image by DrawMode. Colours are 0x00BBGGRR; a missing pen
// colour is black. Closed shapes are filled by DrawFillStyle with DrawFillColor, then outlined
// by DrawStyle and DrawWidth with the pen colour.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <vips/vips8>

#include "imaging/fx/FxTypes.h"

namespace fx {

// Throws FxError naming DrawMode, DrawFillColor, ... when a field is out of its range.
void checkDrawState(const DrawState& state);

// box draws the rectangle with corners (x1, y1) and (x2, y2); fill (with box) fills it with the
// pen colour instead of the fill style.
vips::VImage DrawLine(const vips::VImage& image, const DrawState& state, int x1, int y1, int x2,
                      int y2, Colour color = 0, bool box = false, bool fill = false);
vips::VImage DrawCircle(const vips::VImage& image, const DrawState& state, int x, int y, int radius,
                        Colour color = 0, double aspect = 1.0);
// Angles in degrees, counter-clockwise from 3 o'clock; the ellipse fills the box.
vips::VImage DrawArc(const vips::VImage& image, const DrawState& state, int x1, int y1, int x2,
                     int y2, int start, int end, Colour color = 0);
vips::VImage DrawPie(const vips::VImage& image, const DrawState& state, int x1, int y1, int x2,
                     int y2, int start, int end, Colour color = 0);
vips::VImage DrawRoundRect(const vips::VImage& image, const DrawState& state, int x1, int y1,
                           int x2, int y2, int cornerWidth, int cornerHeight, Colour color = 0);
// Cubic Bezier from p1 to p4 with control points p2 and p3.
vips::VImage DrawCurve(const vips::VImage& image, const DrawState& state, Point p1, Point p2,
                       Point p3, Point p4, Colour color = 0);
vips::VImage DrawPolygon(const vips::VImage& image, const DrawState& state,
                         const std::vector<Point>& points, Colour color = 0);
// Text (UTF-8, line breaks allowed) with its top-left corner at (x, y), in state.font.
vips::VImage DrawText(const vips::VImage& image, const DrawState& state, int x, int y,
                      const std::string& text, Colour color = 0);

} // namespace fx
