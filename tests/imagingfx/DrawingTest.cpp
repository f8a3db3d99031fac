// Drawing: shapes land where the coordinates say, with pen, fill style, dash, mode and font.
#include "imaging/fx/Drawing.h"

#include "FxTestSupport.h"

using namespace fxtest;
using vips::VImage;

namespace {

const fx::Colour kRed = fx::makeColour(255, 0, 0);
const fx::Colour kBlue = fx::makeColour(0, 0, 255);
const std::vector<double> kGrey{128, 128, 128};
const std::vector<double> kRedPixel{255, 0, 0};
const std::vector<double> kBluePixel{0, 0, 255};

VImage canvas() {
    return flat(100, 80, 128, 128, 128);
}

fx::DrawState solidFill(fx::Colour fill) {
    fx::DrawState st;
    st.fillStyle = int(fx::FillStyleCode::Solid);
    st.fillColor = fill;
    return st;
}

} // namespace

TEST(Drawing, LineBoxAndFilledBox) {
    fx::DrawState st;
    VImage line = fx::DrawLine(canvas(), st, 10, 10, 90, 10, kRed);
    EXPECT_EQ(pixel(line, 50, 10), kRedPixel);
    EXPECT_EQ(pixel(line, 50, 12), kGrey);
    EXPECT_EQ(pixel(line, 95, 10), kGrey);
    VImage box = fx::DrawLine(canvas(), st, 10, 10, 60, 50, kRed, true);
    EXPECT_EQ(pixel(box, 10, 30), kRedPixel); // left side
    EXPECT_EQ(pixel(box, 35, 50), kRedPixel); // bottom side
    EXPECT_EQ(pixel(box, 35, 30), kGrey);     // inside: the fill style is transparent
    VImage filled = fx::DrawLine(canvas(), st, 10, 10, 60, 50, kRed, true, true);
    EXPECT_EQ(pixel(filled, 35, 30), kRedPixel);
    EXPECT_EQ(pixel(filled, 70, 30), kGrey);
}

TEST(Drawing, OnThePhoto) {
    const VImage& p = photo();
    fx::DrawState st;
    st.width = 3;
    VImage out = fx::DrawLine(p, st, 0, 80, 239, 80, kBlue);
    EXPECT_EQ(pixel(out, 120, 80), kBluePixel);
    EXPECT_EQ(maxDiff(out.crop(0, 0, 240, 78), p.crop(0, 0, 240, 78)), 0);
    EXPECT_EQ(maxDiff(out.crop(0, 83, 240, 77), p.crop(0, 83, 240, 77)), 0);
}

TEST(Drawing, CircleOutlineAndFillStyle) {
    fx::DrawState wide;
    wide.width = 3; // a 1-pixel circle covers no pixel fully
    VImage outline = fx::DrawCircle(canvas(), wide, 50, 40, 30, kRed);
    EXPECT_EQ(pixel(outline, 80, 40), kRedPixel); // on the circle, 3 o'clock
    EXPECT_EQ(pixel(outline, 50, 40), kGrey);     // transparent fill
    EXPECT_EQ(pixel(outline, 95, 40), kGrey);
    VImage filled = fx::DrawCircle(canvas(), solidFill(kBlue), 50, 40, 30, kRed);
    EXPECT_EQ(pixel(filled, 50, 40), kBluePixel);
    VImage ellipse = fx::DrawCircle(canvas(), wide, 50, 40, 30, kRed, 0.5);
    EXPECT_EQ(pixel(ellipse, 50, 25), kRedPixel); // vertical radius 15
    EXPECT_EQ(pixel(ellipse, 50, 20), kGrey);
    expectBadArgument([] { fx::DrawCircle(canvas(), fx::DrawState{}, 5, 5, -1, 0); }, "DrawCircle",
                      "radius must be 0 to 32767");
    expectBadArgument([] { fx::DrawCircle(canvas(), fx::DrawState{}, 5, 5, 4, 0, 0); },
                      "DrawCircle", "aspect must be 0.01 to 100");
}

TEST(Drawing, ArcAndPieRunCounterClockwiseFromThreeOClock) {
    fx::DrawState st;
    st.width = 3;
    // The ellipse is the circle of radius 30 round (50, 40); 0 to 90 is the upper right quarter.
    VImage arc = fx::DrawArc(canvas(), st, 20, 10, 80, 70, 0, 90, kRed);
    EXPECT_EQ(pixel(arc, 71, 19), kRedPixel); // 45 degrees, above the centre
    EXPECT_EQ(pixel(arc, 29, 61), kGrey);     // 225 degrees: not on this arc
    EXPECT_EQ(pixel(arc, 50, 40), kGrey);
    VImage pie = fx::DrawPie(canvas(), solidFill(kBlue), 20, 10, 80, 70, 0, 90, kRed);
    EXPECT_EQ(pixel(pie, 60, 30), kBluePixel); // inside the slice
    EXPECT_EQ(pixel(pie, 40, 50), kGrey);      // opposite quarter
}

TEST(Drawing, RoundRectCutsItsCorners) {
    VImage out = fx::DrawRoundRect(canvas(), solidFill(kBlue), 10, 10, 90, 70, 30, 30, kRed);
    EXPECT_EQ(pixel(out, 10, 10), kGrey);      // corner rounded away
    EXPECT_EQ(pixel(out, 13, 13), kGrey);      // outside the corner's quarter circle
    EXPECT_EQ(pixel(out, 17, 17), kBluePixel); // inside it: the corner bulges outwards
    EXPECT_EQ(pixel(out, 83, 63), kBluePixel);
    EXPECT_EQ(pixel(out, 50, 10), kRedPixel); // straight part of the top edge
    EXPECT_EQ(pixel(out, 50, 40), kBluePixel);
    expectBadArgument([] { fx::DrawRoundRect(canvas(), fx::DrawState{}, 0, 0, 9, 9, -2, 3, 0); },
                      "DrawRoundRect", "cornerWidth must be 0 to 32767");
}

TEST(Drawing, CurvePassesThroughItsEnds) {
    fx::DrawState st;
    st.width = 3;
    VImage out = fx::DrawCurve(canvas(), st, {10, 70}, {10, 10}, {90, 10}, {90, 70}, kRed);
    EXPECT_EQ(pixel(out, 10, 68), kRedPixel);
    EXPECT_EQ(pixel(out, 50, 25), kRedPixel); // the curve's top: 3/4 of the way to the controls
    EXPECT_EQ(pixel(out, 50, 60), kGrey);
}

TEST(Drawing, PolygonTakesTwoToSixPoints) {
    VImage tri = fx::DrawPolygon(canvas(), solidFill(kBlue), {{10, 70}, {50, 10}, {90, 70}}, kRed);
    EXPECT_EQ(pixel(tri, 50, 50), kBluePixel);
    EXPECT_EQ(pixel(tri, 10, 10), kGrey);
    EXPECT_EQ(pixel(tri, 50, 70), kRedPixel);
    for (const int n : {1, 7}) {
        const std::vector<fx::Point> points(size_t(n), fx::Point{5, 5});
        expectBadArgument([&] { fx::DrawPolygon(canvas(), fx::DrawState{}, points, 0); },
                          "DrawPolygon", "2 to 6 points (got " + std::to_string(n) + ")");
    }
}

TEST(Drawing, DrawModesCombinePenAndPixel) {
    fx::DrawState st;
    st.width = 3;
    auto drawn = [&](int mode, fx::Colour pen) {
        st.mode = mode;
        return pixel(fx::DrawLine(canvas(), st, 10, 40, 90, 40, pen), 50, 40);
    };
    EXPECT_EQ(drawn(int(fx::DrawModeCode::Invert), kRed), (std::vector<double>{127, 127, 127}));
    EXPECT_EQ(drawn(int(fx::DrawModeCode::XorPen), 0xFFFFFF), (std::vector<double>{127, 127, 127}));
    EXPECT_EQ(drawn(int(fx::DrawModeCode::Nop), kRed), kGrey);
    EXPECT_EQ(drawn(int(fx::DrawModeCode::MaskPen), kRed), (std::vector<double>{128, 0, 0}));
    EXPECT_EQ(drawn(int(fx::DrawModeCode::Blackness), kRed), (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(drawn(int(fx::DrawModeCode::NotCopyPen), kRed), (std::vector<double>{0, 255, 255}));
}

TEST(Drawing, LineStylesAndHatchFills) {
    fx::DrawState st;
    st.style = int(fx::LineStyleCode::Dash);
    VImage dashed = fx::DrawLine(canvas(), st, 0, 40, 99, 40, kRed);
    VImage row = dashed.crop(0, 40, 100, 1).extract_band(1);
    EXPECT_EQ(row.min(), 0);   // pen pixels
    EXPECT_EQ(row.max(), 128); // gaps
    st.style = int(fx::LineStyleCode::Transparent);
    EXPECT_EQ(maxDiff(fx::DrawLine(canvas(), st, 0, 40, 99, 40, kRed), canvas()), 0);
    fx::DrawState hatch = solidFill(kBlue);
    hatch.fillStyle = int(fx::FillStyleCode::HorizontalLine);
    VImage lines = fx::DrawLine(canvas(), hatch, 10, 10, 90, 70, kRed, true);
    VImage column = lines.crop(50, 12, 1, 56).extract_band(2);
    EXPECT_EQ(column.max(), 255); // hatch lines
    EXPECT_EQ(column.min(), 128); // gaps between them
}

TEST(Drawing, StateIsChecked) {
    fx::DrawState st;
    st.mode = 0;
    expectBadArgument([&] { fx::DrawLine(canvas(), st, 0, 0, 5, 5); }, "DrawMode",
                      "mode must be 1 to 16 (got 0)");
    st = {};
    st.width = 0;
    expectBadArgument([&] { fx::DrawLine(canvas(), st, 0, 0, 5, 5); }, "DrawWidth", "width");
    st = {};
    st.fillStyle = 8;
    expectBadArgument([&] { fx::DrawLine(canvas(), st, 0, 0, 5, 5); }, "DrawFillStyle", "style");
    st = {};
    st.style = 7;
    expectBadArgument([&] { fx::DrawLine(canvas(), st, 0, 0, 5, 5); }, "DrawStyle", "style");
    expectBadArgument([] { fx::DrawLine(canvas(), fx::DrawState{}, 0, 0, 5, 5, -5); }, "DrawLine",
                      "color must be 0 to &HFFFFFF");
}

TEST(Drawing, OutsideTheImageChangesNothing) {
    VImage out = fx::DrawCircle(canvas(), solidFill(kBlue), -500, -500, 20, kRed);
    EXPECT_EQ(maxDiff(out, canvas()), 0);
}

TEST(Drawing, GreyAlphaAndSixteenBitImages) {
    VImage grey = flat(40, 30, 128);
    VImage g = fx::DrawLine(grey, fx::DrawState{}, 0, 10, 39, 10, 0xFFFFFF);
    EXPECT_EQ(g.bands(), 1);
    EXPECT_EQ(pixel(g, 20, 10)[0], 255);
    VImage rgba = canvas().bandjoin(VImage::black(100, 80)).copy_memory(); // fully transparent
    VImage a = fx::DrawLine(rgba, fx::DrawState{}, 0, 10, 99, 10, kRed);
    EXPECT_EQ(pixel(a, 50, 10), (std::vector<double>{255, 0, 0, 255}));
    EXPECT_EQ(pixel(a, 50, 20)[3], 0);
    VImage deep = (canvas().cast(VIPS_FORMAT_USHORT) * 257)
                      .cast(VIPS_FORMAT_USHORT)
                      .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_RGB16));
    VImage d = fx::DrawLine(deep, fx::DrawState{}, 0, 10, 99, 10, kRed);
    EXPECT_EQ(d.format(), VIPS_FORMAT_USHORT);
    EXPECT_EQ(pixel(d, 50, 10), (std::vector<double>{65535, 0, 0}));
}

TEST(Drawing, TextInkStaysInItsBoxAndFollowsTheFont) {
    VImage white = flat(200, 60, 255, 255, 255);
    fx::DrawState st;
    st.font = {"DejaVu Sans", 14, false, false, false, false};
    VImage text = fx::DrawText(white, st, 10, 10, "Hello", kRed);
    auto ink = [&](const VImage& v) { return (v.extract_band(1) < 128).avg(); };
    EXPECT_GT(ink(text), 0);
    EXPECT_EQ(maxDiff(text.crop(0, 45, 200, 15), white.crop(0, 45, 200, 15)), 0); // below
    EXPECT_EQ(maxDiff(text.crop(0, 0, 200, 8), white.crop(0, 0, 200, 8)), 0);     // above
    EXPECT_GE(text.extract_band(0).min(), 250); // red ink: the red channel stays (rounding aside)
    st.font.bold = true;
    EXPECT_GT(ink(fx::DrawText(white, st, 10, 10, "Hello", kRed)), ink(text) * 1.15);
    st.font.bold = false;
    st.font.underline = true;
    EXPECT_GT(ink(fx::DrawText(white, st, 10, 10, "Hello", kRed)), ink(text));
    EXPECT_EQ(maxDiff(fx::DrawText(white, st, 10, 10, "", kRed), white), 0);
    st.font.size = 0;
    expectBadArgument([&] { fx::DrawText(white, st, 1, 1, "x"); }, "Font",
                      "size must be 1 to 1000");
}
