// Distortions: fixed points fixed, the documented regions moved, bad corners refused (sizes and
// bands kept: ImageKinds).
#include "imaging/fx/Distortions.h"

#include <cmath>
#include <numbers>

#include "FxTestSupport.h"

using namespace fxtest;
using vips::VImage;

TEST(Distortions, SwirlTurnsTheMiddleAndLeavesCornersAndCentre) {
    const VImage& in = photo(); // 240x160: the swirl reaches 80 pixels from the centre
    VImage out = fx::Swirl(in, 180);
    EXPECT_LE(maxDiff(out.crop(0, 0, 30, 30), in.crop(0, 0, 30, 30)), 1);
    EXPECT_LE(maxDiff(out.crop(210, 130, 30, 30), in.crop(210, 130, 30, 30)), 1);
    EXPECT_GT(
        (out.crop(90, 50, 60, 60).cast(VIPS_FORMAT_FLOAT) - in.crop(90, 50, 60, 60)).abs().avg(),
        5);
    EXPECT_LE(maxDiff(fx::Swirl(in, 0), in), 1);
    expectBadArgument([&] { fx::Swirl(in, 3601); }, "Swirl", "angle must be -3600 to 3600");
}

TEST(Distortions, PositiveSwirlTurnsCounterClockwise) {
    // A white dot 20 pixels right of the centre of a black 240x160 image (the swirl reaches 80
    // pixels): +90 degrees fades to 90 * (1 - 20/80)^2 = 50.6 there, so the dot moves up.
    VImage dot = flat(240, 160, 0, 0, 0).copy_memory();
    dot.draw_rect({255, 255, 255}, 138, 78, 3, 3, VImage::option()->set("fill", true));
    VImage out = fx::Swirl(dot, 90).extract_band(0);
    double turn = 90 * 0.75 * 0.75 * std::numbers::pi / 180;
    int x = int(std::lround(119.5 + 20 * std::cos(turn))),
        y = int(std::lround(79.5 - 20 * std::sin(turn)));
    EXPECT_GT(out.crop(x - 2, y - 2, 5, 5).max(), 200) << x << "," << y;
    EXPECT_LT(out.crop(138, 78, 3, 3).max(), 50); // no longer where it was
}

TEST(Distortions, TwistSwirlsEachBlock) {
    const VImage& in = photo();
    VImage out = fx::Twist(in, 90, 40);
    EXPECT_GT((out.cast(VIPS_FORMAT_FLOAT) - in).abs().avg(), 3);
    EXPECT_LE(maxDiff(fx::Twist(in, 0, 40), in), 1);
    expectBadArgument([&] { fx::Twist(in, 90, 7); }, "Twist", "size must be 8 to 1024");
    expectBadArgument([&] { fx::Twist(in, 361, 40); }, "Twist", "angle must be -360 to 360");
}

TEST(Distortions, PinchAndBulgeMoveTheDiscOnly) {
    const VImage& in = photo();
    VImage pinched = fx::Pinch(in, 80), bulged = fx::Pinch(in, -80);
    EXPECT_LE(maxDiff(pinched.crop(0, 0, 30, 30), in.crop(0, 0, 30, 30)), 1);
    auto ring = [](const VImage& v) { return v.crop(80, 40, 80, 80).cast(VIPS_FORMAT_FLOAT); };
    EXPECT_GT((ring(pinched) - ring(in)).abs().avg(), 3);
    EXPECT_GT((ring(pinched) - ring(bulged)).abs().avg(), 3);
    EXPECT_EQ(maxDiff(fx::Pinch(in, 0), in), 0);
    expectBadArgument([&] { fx::Pinch(in, 101); }, "Pinch", "amount must be -100 to 100");
}

TEST(Distortions, RippleDisplacesAcrossItsDirection) {
    VImage ramp = rampX(200, 100); // tones change along x only
    // Rows wave up and down: an image constant down each column does not change.
    EXPECT_LE(maxDiff(fx::Ripple(ramp, 10, 40, 0), ramp), 1);
    EXPECT_GT(maxDiff(fx::Ripple(ramp, 10, 40, 1), ramp), 8);
    EXPECT_GT(maxDiff(fx::Ripple(ramp, 10, 40, 2), ramp), 8);
    EXPECT_GT((fx::Ripple(photo(), 4, 30, 0).cast(VIPS_FORMAT_FLOAT) - photo()).abs().avg(), 3);
    expectBadArgument([&] { fx::Ripple(ramp, 10, 1, 0); }, "Ripple",
                      "wavelength must be 2 to 1000");
    expectBadArgument([&] { fx::Ripple(ramp, 10, 40, 3); }, "Ripple", "direction must be 0 to 2");
    expectBadArgument([&] { fx::Ripple(ramp, 101, 40, 0); }, "Ripple", "amplitude");
}

TEST(Distortions, PerspectiveNarrowsTheChosenEdge) {
    const VImage& in = photo();
    VImage top = fx::Perspective(in, 0, 40);
    EXPECT_EQ(pixel(top, 2, 1), (std::vector<double>{0, 0, 0})); // top corners uncovered
    EXPECT_EQ(pixel(top, 237, 1), (std::vector<double>{0, 0, 0}));
    EXPECT_LE(maxDiff(top.crop(0, 159, 240, 1), in.crop(0, 159, 240, 1)), 2); // bottom edge stays
    VImage right = fx::Perspective(in, 3, 40);
    EXPECT_EQ(pixel(right, 238, 1), (std::vector<double>{0, 0, 0}));
    EXPECT_LE(maxDiff(right.crop(0, 0, 1, 160), in.crop(0, 0, 1, 160)), 2);
    EXPECT_EQ(maxDiff(fx::Perspective(in, 1, 0), in), 0);
    // Uncovered corners take the background colour; with alpha they are transparent.
    VImage red = fx::Perspective(in, 0, 40, fx::makeColour(255, 0, 0));
    EXPECT_EQ(pixel(red, 2, 1), (std::vector<double>{255, 0, 0}));
    VImage rgba = in.bandjoin_const({255}).copy_memory();
    EXPECT_EQ(pixel(fx::Perspective(rgba, 0, 40, 0xFFFFFF), 2, 1)[3], 0);
    expectBadArgument([&] { fx::Perspective(in, 4, 10); }, "Perspective", "edge must be 0 to 3");
    expectBadArgument([&] { fx::Perspective(in, 0, 91); }, "Perspective", "amount must be 0 to 90");
}

TEST(Distortions, PWarpMovesTheCorners) {
    const VImage& in = photo();
    using P = fx::Point;
    VImage same = fx::PWarp(in, {P{0, 0}, P{239, 0}, P{239, 159}, P{0, 159}});
    EXPECT_LE(maxDiff(same, in), 1);
    // All four corners 10 pixels right: the image shifts right and black shows on the left.
    VImage shifted = fx::PWarp(in, {P{10, 0}, P{249, 0}, P{249, 159}, P{10, 159}});
    EXPECT_LE(maxDiff(shifted.crop(10, 0, 230, 160), in.crop(0, 0, 230, 160)), 1);
    EXPECT_EQ(shifted.crop(0, 0, 9, 160).max(), 0);
    // A crossed quadrilateral (top corners swapped), a point, a corner beyond 32 bits: refused.
    const std::pair<std::array<P, 4>, const char*> refused[] = {
        {{P{239, 0}, P{0, 0}, P{239, 159}, P{0, 159}}, "convex quadrilateral"},
        {{P{0, 0}, P{0, 0}, P{0, 0}, P{0, 0}}, "convex quadrilateral"},
        {{P{0, 0}, P{3e9, 0}, P{239, 159}, P{0, 159}},
         "x2 must be -2147483648 to 2147483647 (got 3000000000)"},
    };
    for (const auto& [corners, message] : refused)
        expectBadArgument([&] { fx::PWarp(in, corners); }, "PWarp", message);
}
