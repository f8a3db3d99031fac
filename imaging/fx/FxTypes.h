// Plain state the control hands to the effects: colours, the drawing state, the processing area.
#pragma once

#include <cstdint>
#include <string>

namespace fx {

// Script colours are packed 0x00BBGGRR: red in the low byte, then green, then blue.
using Colour = std::int32_t;

inline int redOf(Colour c) {
    return c & 0xFF;
}
inline int greenOf(Colour c) {
    return (c >> 8) & 0xFF;
}
inline int blueOf(Colour c) {
    return (c >> 16) & 0xFF;
}
inline Colour makeColour(int r, int g, int b) {
    return r | (g << 8) | (b << 16);
}

// Raster operations of DrawMode: how the pen colour P combines with the pixel D under it.
enum class DrawModeCode {
    Blackness = 1,
    NotMergePen,
    MaskNotPen,
    NotCopyPen,
    MaskPenNot,
    Invert,
    XorPen,
    NotMaskPen,
    MaskPen,
    NotXorPen,
    Nop,
    MergeNotPen,
    CopyPen,
    MergePenNot,
    MergePen,
    Whiteness
};

// DrawFillStyle: how closed shapes are filled with DrawFillColor.
enum class FillStyleCode {
    Solid = 0,
    Transparent,
    HorizontalLine,
    VerticalLine,
    UpwardDiagonal,
    DownwardDiagonal,
    Cross,
    DiagonalCross
};

// DrawStyle: the outline's dash pattern; InsideSolid keeps a thick outline inside the shape.
enum class LineStyleCode { Solid = 0, Dash, Dot, DashDot, DashDotDot, Transparent, InsideSolid };

struct FontState {
    std::string name = "Sans";
    int size = 12; // points at 96 dots per inch
    bool italic = false;
    bool bold = false;
    bool underline = false;
    bool strikethrough = false;
};

// What DrawMode, DrawFillColor, DrawFillStyle, DrawStyle, DrawWidth and Font set on the control.
struct DrawState {
    int mode = static_cast<int>(DrawModeCode::CopyPen);
    Colour fillColor = 0;
    int fillStyle = static_cast<int>(FillStyleCode::Transparent);
    int style = static_cast<int>(LineStyleCode::Solid);
    int width = 1;
    FontState font;
};

struct Point {
    double x = 0;
    double y = 0;
};

// The processing area in image pixels (left, top, width, height).
struct AreaRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

} // namespace fx
