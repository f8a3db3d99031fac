// Geometry operations: resizing, cropping, rotating, flipping, tiling.
#include <algorithm>
#include <cmath>

#include "imaging/ImagingControl.h"
#include "imaging/io/ImageIo.h"
#include "imaging/ops/ImageHelpers.h"

namespace imaging {

using vips::VImage;

namespace {

using T = ParamType;

void resize(ImagingControl& c, const OpArgs& a) {
    c.resizeTo(a.i(0), a.i(1), true);
}
void resample(ImagingControl& c, const OpArgs& a) {
    c.resizeTo(a.i(0), a.i(1), false);
}

VImage cropClipped(const VImage& in, int64_t x, int64_t y, int64_t w, int64_t h,
                   std::string_view op) {
    int x0 = int(std::clamp<int64_t>(x, 0, in.width()));
    int y0 = int(std::clamp<int64_t>(y, 0, in.height()));
    int x1 = int(std::clamp<int64_t>(x + w, 0, in.width()));
    int y1 = int(std::clamp<int64_t>(y + h, 0, in.height()));
    if (x1 <= x0 || y1 <= y0)
        fail(ErrorCode::ArgumentOutOfRange, std::string(op) + ": the rectangle lies outside the " +
                                                std::to_string(in.width()) + " x " +
                                                std::to_string(in.height()) + " image");
    return in.crop(x0, y0, x1 - x0, y1 - y0);
}

VImage crop(const VImage& in, const OpArgs& a, const OpContext&) {
    return cropClipped(in, a.i(0), a.i(1), a.i(2), a.i(3), "Crop");
}

VImage autoCrop(const VImage& in, const OpArgs& a, const OpContext&) {
    VImage flat = toSrgb8WithAlpha(in);
    if (flat.has_alpha()) flat = flat.flatten();
    std::vector<double> bg = a.i(1) < 0 ? flat.getpoint(0, 0) : backgroundFor(flat, a.i(1));
    int top = 0, width = 0, height = 0;
    int left = flat.find_trim(
        &top, &width, &height,
        VImage::option()->set("threshold", a.d(0) * 2.55 + 0.5)->set("background", bg));
    if (width <= 0 || height <= 0) return in; // all one colour: nothing to keep apart
    int64_t m = a.i(2);
    return cropClipped(in, left - m, top - m, width + 2 * m, height + 2 * m, "AutoCrop");
}

VImage cropBorder(const VImage& in, const OpArgs& a, const OpContext&) {
    double amount = a.d(0);
    int dx = static_cast<int>(std::lround(a.i(1) == 1 ? in.width() * amount / 100 : amount));
    int dy = static_cast<int>(std::lround(a.i(1) == 1 ? in.height() * amount / 100 : amount));
    if (2 * dx >= in.width() || 2 * dy >= in.height())
        fail(ErrorCode::ArgumentOutOfRange, "CropBorder: the border is wider than half the image");
    return in.crop(dx, dy, in.width() - 2 * dx, in.height() - 2 * dy);
}

VImage rotate(const VImage& in, const OpArgs& a, const OpContext& ctx) {
    double angle = std::fmod(a.d(0), 360.0);
    if (angle < 0) angle += 360.0;
    if (angle == 0) return in;
    if (angle == 90) return in.rot(VIPS_ANGLE_D90);
    if (angle == 180) return in.rot(VIPS_ANGLE_D180);
    if (angle == 270) return in.rot(VIPS_ANGLE_D270);
    // A colour in the corners makes a grey photo colour.
    VImage src = isGreyColour(ctx.backColor) ? in : greyToColour(in);
    return src.rotate(angle,
                      VImage::option()->set("background", backgroundFor(src, ctx.backColor)));
}

VImage flip(const VImage& in, const OpArgs&, const OpContext&) {
    return in.flip(VIPS_DIRECTION_VERTICAL);
}
VImage mirror(const VImage& in, const OpArgs&, const OpContext&) {
    return in.flip(VIPS_DIRECTION_HORIZONTAL);
}

VImage tile(const VImage& in, const OpArgs& a, const OpContext&) {
    // Checked before libvips sees a width it may not represent.
    checkPixelLimit("Tile", int64_t(in.width()) * a.i(0), int64_t(in.height()) * a.i(1));
    return in.replicate(a.i(0), a.i(1));
}

// A side is bounded only by the pixel limit (width x height at most kMaxPixels).
constexpr double kSide = kMaxPixels;
constexpr double kLongMin = -2147483648.0, kLongMax = 2147483647.0;

// clang-format off
constexpr ParamDef kSize[] = {
    {"width", T::Long, 1, kSide, {}, "new width in pixels"},
    {"height", T::Long, 1, kSide, {}, "new height in pixels"},
};
constexpr ParamDef kCrop[] = {
    {"x", T::Long, kLongMin, kLongMax, {}, "left edge"},
    {"y", T::Long, kLongMin, kLongMax, {}, "top edge"},
    {"width", T::Long, 1, kLongMax, {}, "width kept"},
    {"height", T::Long, 1, kLongMax, {}, "height kept"},
};
constexpr ParamDef kAutoCrop[] = {
    {"tolerance", T::Single, 0, 100, {}, "how far (percent) a border pixel may differ from the border colour"},
    {"color", T::Color, -1, 0xFFFFFF, -1, "border colour &HBBGGRR; -1 = the top-left pixel"},
    {"margin", T::Long, 0, 65535, 0, "pixels of border kept on each side"},
};
constexpr ParamDef kCropBorder[] = {
    {"amount", T::Single, 0, 65535, {}, "width of the border removed from every side"},
    {"units", T::Int, 0, 1, 0, "0 = pixels, 1 = percent of the width and height"},
};
constexpr ParamDef kRotate[] = {
    {"angle", T::Double, -32768, 32767, {}, "degrees clockwise, any angle; uncovered corners take BackColor"},
};
constexpr ParamDef kTile[] = {
    {"columns", T::Int, 1, 256, {}, "copies across"},
    {"rows", T::Int, 1, 256, {}, "copies down"},
};

constexpr OperationDef kGeometry[] = {
    {"Resize", "resizes to width x height with a smooth (Lanczos) filter; JPEG photos are decoded at a reduced scale when that is enough", kSize, nullptr, resize, OpWholeImage},
    {"Resample", "resizes to width x height by nearest neighbour (keeps hard pixel edges)", kSize, nullptr, resample, OpWholeImage},
    {"PICResize", "resizes to width x height like Resize; used by ResizeAspect and ResizePercent", kSize, nullptr, resize, OpWholeImage},
    {"Crop", "keeps the rectangle x, y, width, height (clipped to the image)", kCrop, crop, nullptr, OpWholeImage},
    {"AutoCrop", "removes a uniform border", kAutoCrop, autoCrop, nullptr, OpWholeImage},
    {"CropBorder", "removes a border of the same width from every side", kCropBorder, cropBorder, nullptr, OpWholeImage},
    {"Rotate", "rotates by any angle, enlarging the canvas", kRotate, rotate, nullptr, OpWholeImage},
    {"Flip", "turns the image upside down (top to bottom)", {}, flip, nullptr, OpNone},
    {"Mirror", "mirrors the image left to right", {}, mirror, nullptr, OpNone},
    {"Tile", "repeats the image columns x rows times", kTile, tile, nullptr, OpWholeImage},
};
// clang-format on

} // namespace

std::span<const OperationDef> geometryOperations() {
    return kGeometry;
}

} // namespace imaging
