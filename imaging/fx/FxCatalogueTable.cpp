// The effect member table: every member's script arguments, ranges, defaults and description.
#include "imaging/fx/FxCatalogue.h"

namespace fx {

namespace {

constexpr double kColourMax = 0xFFFFFF;
// Positions and sizes are 32-bit: images may be far wider than 32767 pixels.
constexpr double kCoordMin = -2147483648.0;
constexpr double kCoordMax = 2147483647.0;

FxArgument ranged(std::string_view name, std::string_view type, double min, double max,
                  std::string_view meaning, std::string_view def = "") {
    return FxArgument{name, type, min, max, true, def, meaning};
}

FxArgument plain(std::string_view name, std::string_view type, std::string_view meaning,
                 std::string_view def = "") {
    return FxArgument{name, type, 0, 0, false, def, meaning};
}

FxArgument coord(std::string_view name, std::string_view meaning) {
    return ranged(name, "long", kCoordMin, kCoordMax, meaning);
}

FxArgument colour(std::string_view name, std::string_view meaning, std::string_view def = "") {
    return ranged(name, "colour", 0, kColourMax, meaning, def);
}

std::vector<FxMemberInfo> filters() {
    return {
        {"AutoContrast",
         "Filters",
         {},
         "Stretches the tones so the darkest and brightest 0.5% of pixels reach black and white; "
         "one curve for all channels, so colours keep their hue."},
        {"Blur", "Filters", {}, "Gaussian blur of about 3 pixels radius (sigma 1.5)."},
        {"Soften",
         "Filters",
         {ranged("strength", "integer", 1, 20,
                 "blur radius in pixels (sigma = (strength + 1) / 2)")},
         "Gaussian blur whose radius grows with strength: 1 is barely visible, 20 is strong."},
        {"Sharpen",
         "Filters",
         {ranged("amount", "integer", 0, 100,
                 "edge gain in percent of the maximum; 50 doubles "
                 "fine detail contrast, 0 leaves the image as it is")},
         "Unsharp mask in RGB over a 5x5 neighbourhood (sigma 1)."},
        {"MBlur",
         "Filters",
         {ranged("angle", "integer", -360, 360,
                 "direction of motion in degrees, "
                 "counter-clockwise from the horizontal"),
          ranged("distance", "integer", 1, 100, "length of the streak in pixels"),
          ranged("strength", "integer", 0, 100, "percent of the blurred image mixed in")},
         "Motion blur: each pixel is averaged along a line of the given angle and length."},
        {"Median", "Filters", {}, "3x3 median: removes speckles and salt-and-pepper noise."},
        {"Dilate", "Filters", {}, "3x3 maximum: bright areas grow, dark details shrink."},
        {"Erode", "Filters", {}, "3x3 minimum: dark areas grow, bright details shrink."},
        {"Diffuse",
         "Filters",
         {},
         "Scatters pixels randomly by about 1.5 pixels (frosted glass); repeatable."},
        {"Noise",
         "Filters",
         {ranged("amount", "integer", 0, 100,
                 "strength: standard deviation of the noise in "
                 "percent of a quarter of the full scale (100 = 64 levels of 255)"),
          ranged("kind", "integer", 0, 1, "0 = monochrome (same on every channel), 1 = colour")},
         "Adds Gaussian noise; repeatable for a given image size."},
        {"Emboss", "Filters", {}, "Grey relief of the image lit from the top left."},
        {"Equalize",
         "Filters",
         {},
         "Histogram equalisation of the brightness; one curve for all channels."},
        {"Outline",
         "Filters",
         {},
         "Traces edges: each channel's Laplacian edge strength as dark lines on white."},
        {"Posterize",
         "Filters",
         {ranged("levels", "integer", 2, 64, "number of tones kept per channel")},
         "Reduces each channel to the given number of evenly spaced tones."},
        {"Solarize",
         "Filters",
         {ranged("threshold", "integer", 0, 255, "tone (of 255) above which values are inverted")},
         "Inverts every channel value brighter than the threshold."},
        {"Mosaic",
         "Filters",
         {ranged("size", "integer", 2, 256, "block width and height in pixels")},
         "Pixelates: each size x size block takes its average colour."},
        {"Buttonize",
         "Filters",
         {ranged("width", "integer", 1, 1000,
                 "bevel width in pixels (at most half the shorter "
                 "side)"),
          ranged("direction", "integer", 0, 1, "0 = raised (light top and left), 1 = sunken"),
          ranged("intensity", "integer", 0, 100,
                 "percent towards white on the lit edges and "
                 "towards black on the shaded ones")},
         "Bevelled edge that makes the image look like a button."},
        {"Blend",
         "Filters",
         {ranged("percent", "integer", 0, 100,
                 "percent of the 3x3 neighbourhood average mixed "
                 "into each pixel")},
         "Blends each pixel with its eight neighbours: a light smoothing."},
        {"Matrix",
         "Filters",
         {plain("matrix", "9 integers", "the 3x3 kernel, row by row"),
          ranged("divisor", "integer", -32768, 32767, "the weighted sum is divided by it; not 0"),
          ranged("bias", "integer", -255, 255, "added after the division, in tones of 255")},
         "3x3 convolution: (sum of kernel x neighbourhood) / divisor + bias on each channel. "
         "Scripts give bias and divisor first: Matrix bias, divisor, m1, ..., m9."},
        {"ReplaceColors",
         "Filters",
         {colour("low", "lower corner of the colour box"),
          colour("high", "upper corner of the colour box"),
          colour("replacement", "colour given to matching pixels")},
         "Pixels whose red, green and blue each lie between those of low and high (inclusive) "
         "become the replacement colour."},
        {"Parabolic",
         "Filters",
         {ranged("amount", "integer", 0, 100, "percent of the parabolic curve mixed in")},
         "Parabolic tone curve 4v(1-v): mid-tones turn bright, both black and white turn dark."},
    };
}

std::vector<FxMemberInfo> distortions() {
    return {
        {"Swirl",
         "Distortions",
         {ranged("angle", "number", -3600, 3600,
                 "rotation at the centre in degrees; positive "
                 "turns counter-clockwise")},
         "Swirls the image round its centre; the turn fades to nothing at half the shorter side."},
        {"Twist",
         "Distortions",
         {ranged("angle", "integer", -360, 360, "turn at each block's centre in degrees"),
          ranged("size", "integer", 8, 1024, "block width and height in pixels")},
         "Cuts the image into size x size blocks and swirls each round its own centre."},
        {"Pinch",
         "Distortions",
         {ranged("amount", "integer", -100, 100,
                 "positive pinches the centre inwards, negative "
                 "bulges it out")},
         "Pinches or bulges the disc of half the shorter side round the centre."},
        {"Ripple",
         "Distortions",
         {ranged("amplitude", "integer", 0, 100, "largest displacement in pixels"),
          ranged("wavelength", "integer", 2, 1000, "distance between wave crests in pixels"),
          ranged("direction", "integer", 0, 2,
                 "0 = rows wave up and down, 1 = columns wave "
                 "left and right, 2 = rings round the centre")},
         "Sine-wave displacement of the image."},
        {"Perspective",
         "Distortions",
         {ranged("edge", "integer", 0, 3, "edge that recedes: 0 top, 1 bottom, 2 left, 3 right"),
          ranged("amount", "integer", 0, 90, "percent by which that edge is shortened")},
         "Tilts the image away from the viewer; uncovered corners take BackColor."},
        {"PWarp",
         "Distortions",
         {coord("x1", "new x of the top-left corner"), coord("y1", "new y of the top-left corner"),
          coord("x2", "new x of the top-right corner"),
          coord("y2", "new y of the top-right corner"),
          coord("x3", "new x of the bottom-right corner"),
          coord("y3", "new y of the bottom-right corner"),
          coord("x4", "new x of the bottom-left corner"),
          coord("y4", "new y of the bottom-left corner")},
         "Projective warp moving the four corners to the given points (a convex quadrilateral); "
         "the size stays, uncovered pixels take BackColor."},
    };
}

} // namespace

namespace {
std::vector<FxMemberInfo> drawingMembers();
} // namespace

const std::vector<FxMemberInfo>& effectCatalogue() {
    static const std::vector<FxMemberInfo> table = [] {
        std::vector<FxMemberInfo> all = filters();
        for (auto& m : distortions())
            all.push_back(std::move(m));
        for (auto& m : drawingMembers())
            all.push_back(std::move(m));
        return all;
    }();
    return table;
}

namespace {

std::vector<FxMemberInfo> drawingMembers() {
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
         "Draws a line, or a rectangle with box."},
        {"DrawCircle",
         "Drawing",
         {coord("x", "centre x"), coord("y", "centre y"),
          ranged("radius", "integer", 0, 32767, "horizontal radius in pixels"), pen,
          ranged("aspect", "number", 0.01, 100, "vertical radius / horizontal radius", "1")},
         "Draws a circle or an ellipse, filled with the fill style."},
        {"DrawArc",
         "Drawing",
         {coord("x1", "left of the ellipse's box"), coord("y1", "top of the box"),
          coord("x2", "right of the box"), coord("y2", "bottom of the box"),
          coord("start", "start angle in degrees, counter-clockwise from 3 o'clock"),
          coord("end", "end angle in degrees"), pen},
         "Draws the arc of the ellipse inscribed in the box from start to end angle."},
        {"DrawPie",
         "Drawing",
         {coord("x1", "left of the ellipse's box"), coord("y1", "top of the box"),
          coord("x2", "right of the box"), coord("y2", "bottom of the box"),
          coord("start", "start angle in degrees, counter-clockwise from 3 o'clock"),
          coord("end", "end angle in degrees"), pen},
         "Draws a pie slice (arc closed through the centre), filled with the fill style."},
        {"DrawRoundRect",
         "Drawing",
         {coord("x1", "left"), coord("y1", "top"), coord("x2", "right"), coord("y2", "bottom"),
          ranged("cornerWidth", "integer", 0, 32767, "width of the corner ellipse"),
          ranged("cornerHeight", "integer", 0, 32767, "height of the corner ellipse"), pen},
         "Draws a rectangle with rounded corners, filled with the fill style."},
        {"DrawCurve",
         "Drawing",
         {coord("x1", "start x"), coord("y1", "start y"), coord("x2", "first control x"),
          coord("y2", "first control y"), coord("x3", "second control x"),
          coord("y3", "second control y"), coord("x4", "end x"), coord("y4", "end y"), pen},
         "Draws a cubic Bezier curve."},
        {"DrawPolygon",
         "Drawing",
         {coord("x1", "first point x"), coord("y1", "first point y"), coord("x2", "second point x"),
          coord("y2", "second point y"),
          plain("x3 ... y6", "long", "up to four more points, in pairs", "none"), pen},
         "Draws a closed polygon of two to six points, filled with the fill style."},
        {"DrawText",
         "Drawing",
         {coord("x", "left of the text"), coord("y", "top of the text"),
          plain("text", "string", "the text; line breaks start new lines"), pen},
         "Draws anti-aliased text in the current Font."},
        {"Area",
         "Area and merge",
         {plain("enabled", "boolean", "True limits later effects to the rectangle"),
          ranged("x", "long", 0, kCoordMax, "left", "0"),
          ranged("y", "long", 0, kCoordMax, "top", "0"),
          ranged("width", "long", 0, kCoordMax, "width; 0 reaches the right edge", "0"),
          ranged("height", "long", 0, kCoordMax, "height; 0 reaches the bottom edge", "0")},
         "While enabled, effects (not drawing) change only the pixels inside the rectangle."},
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
         "opacity runs from low to high with the clipboard's brightness."},
        {"CaptureWindow",
         "Capture",
         {ranged("handle", "long", 0, 2147483647, "X11 window id; 0 captures the whole screen")},
         "Replaces the image with a capture of a window of the desktop (X11 displays)."},
    };
}

} // namespace

} // namespace fx
