// Tone curves, colour replacement and block effects on the example photo and synthetic images.
#include "imaging/fx/Filters.h"

#include "FxTestSupport.h"

using namespace fxtest;
using vips::VImage;

namespace {
// The photo squeezed into tones 64..191, for the contrast tests.
VImage dull() {
    return (photo() * 0.5 + 64).cast(VIPS_FORMAT_UCHAR).copy_memory();
}

// Number of distinct values in band 0.
int distinctTones(const VImage& image) {
    VImage hist = image.extract_band(0).hist_find();
    return int((hist > 0).avg() / 255 * hist.width() + 0.5);
}
} // namespace

TEST(Adjustments, AutoContrastStretchesToFullRange) {
    VImage in = dull();
    VImage out = fx::AutoContrast(in);
    EXPECT_LT(out.min(), 10);
    EXPECT_GT(out.max(), 245);
    EXPECT_GT(out.deviate(), in.deviate() * 1.5);
    VImage plain = flat(20, 20, 90, 90, 90);
    EXPECT_EQ(maxDiff(fx::AutoContrast(plain), plain), 0); // nothing to stretch
}

TEST(Adjustments, EqualizeSpreadsTheTones) {
    VImage in = dull();
    VImage out = fx::Equalize(in);
    EXPECT_GT(out.deviate(), in.deviate() * 1.3);
    EXPECT_GT(out.max(), 250);
    VImage plain = flat(20, 20, 90, 90, 90);
    EXPECT_EQ(maxDiff(fx::Equalize(plain), plain), 0);
}

TEST(Adjustments, PosterizeKeepsTheGivenNumberOfTones) {
    VImage out = fx::Posterize(rampX(256, 4), 4);
    EXPECT_EQ(distinctTones(out), 4);
    EXPECT_EQ(pixel(out, 0, 0)[0], 0);
    EXPECT_EQ(pixel(out, 100, 0)[0], 85);
    EXPECT_EQ(pixel(out, 255, 0)[0], 255);
    EXPECT_EQ(distinctTones(fx::Posterize(rampX(256, 4), 64)), 64);
    EXPECT_LE(distinctTones(fx::Posterize(photo(), 3)), 3);
    expectBadArgument([] { fx::Posterize(photo(), 1); }, "Posterize", "levels must be 2 to 64");
}

TEST(Adjustments, SolarizeInvertsAboveTheThreshold) {
    VImage out = fx::Solarize(rampX(256, 2), 128);
    EXPECT_EQ(pixel(out, 100, 0)[0], 100);
    EXPECT_EQ(pixel(out, 128, 0)[0], 128);
    EXPECT_EQ(pixel(out, 200, 0)[0], 55);
    EXPECT_LE(fx::Solarize(photo(), 128).max(), 128);
    expectBadArgument([] { fx::Solarize(photo(), 256); }, "Solarize", "threshold must be 0 to 255");
}

TEST(Adjustments, ParabolicBrightensMidTonesAndDarkensTheEnds) {
    VImage out = fx::Parabolic(rampX(256, 2), 100);
    EXPECT_EQ(pixel(out, 0, 0)[0], 0);
    EXPECT_GE(pixel(out, 128, 0)[0], 254);
    EXPECT_LE(pixel(out, 255, 0)[0], 1);
    VImage half = fx::Parabolic(rampX(256, 2), 50);
    EXPECT_NEAR(pixel(half, 255, 0)[0], 128, 1);
    EXPECT_EQ(maxDiff(fx::Parabolic(photo(), 0), photo()), 0);
    expectBadArgument([] { fx::Parabolic(photo(), 101); }, "Parabolic", "amount must be 0 to 100");
}

TEST(Adjustments, ReplaceColorsChangesOnlyTheColourBox) {
    VImage in = flat(20, 10, 200, 30, 30).insert(flat(10, 10, 30, 30, 200), 10, 0);
    // Reds from (150, 0, 0) to (255, 60, 60) become green; the blue half is outside the box.
    VImage out = fx::ReplaceColors(in, fx::makeColour(150, 0, 0), fx::makeColour(255, 60, 60),
                                   fx::makeColour(0, 255, 0));
    EXPECT_EQ(pixel(out, 2, 2), (std::vector<double>{0, 255, 0}));
    EXPECT_EQ(pixel(out, 15, 2), (std::vector<double>{30, 30, 200}));
    // On the photo: the blue sky (red 80+, green 100+, blue 120+) turns red, the dark ground stays.
    VImage sky = fx::ReplaceColors(photo(), fx::makeColour(80, 100, 120), 0xFFFFFF, 0xFF);
    EXPECT_EQ(pixel(sky, 5, 5), (std::vector<double>{255, 0, 0}));
    EXPECT_EQ(pixel(sky, 20, 150), pixel(photo(), 20, 150));
    VImage same = fx::ReplaceColors(photo(), 0x010101, 0x000000, 0xFF); // empty box
    EXPECT_EQ(maxDiff(same, photo()), 0);
    expectBadArgument([] { fx::ReplaceColors(photo(), -1, 0, 0); }, "ReplaceColors",
                      "low must be 0 to &HFFFFFF (got &HFFFFFFFF)");
    expectBadArgument([] { fx::ReplaceColors(photo(), 0, 0, 0x1000000); }, "ReplaceColors",
                      "replacement must be 0 to &HFFFFFF");
}

TEST(Adjustments, MosaicMakesUniformBlocks) {
    const VImage& in = photo();
    VImage out = fx::Mosaic(in, 16);
    for (int b = 0; b < 3; ++b)
        EXPECT_EQ(out.crop(16, 32, 16, 16).extract_band(b).deviate(), 0);
    EXPECT_GT(out.crop(0, 0, 32, 16).deviate(), 0); // two blocks differ
    // The last column of blocks is cut short (240 is not a multiple of 7) but still uniform.
    VImage odd = fx::Mosaic(in, 7);
    EXPECT_EQ(odd.crop(238, 0, 2, 7).extract_band(1).deviate(), 0);
    expectBadArgument([&] { fx::Mosaic(in, 1); }, "Mosaic", "size must be 2 to 256");
}

TEST(Adjustments, ButtonizeLightensTopLeftAndDarkensBottomRight) {
    VImage in = flat(60, 40, 100, 100, 100);
    VImage raised = fx::Buttonize(in, 5, 0, 50);
    EXPECT_GT(pixel(raised, 30, 1)[0], 150);      // top edge lit
    EXPECT_GT(pixel(raised, 1, 20)[0], 150);      // left edge lit
    EXPECT_LT(pixel(raised, 30, 38)[0], 60);      // bottom edge shaded
    EXPECT_LT(pixel(raised, 58, 20)[0], 60);      // right edge shaded
    EXPECT_EQ(pixel(raised, 30, 20)[0], 100);     // middle untouched
    VImage widest = fx::Buttonize(in, 20, 0, 50); // the bevels meet in the middle
    EXPECT_GT(pixel(widest, 30, 19)[0], 150);
    EXPECT_LT(pixel(widest, 30, 20)[0], 60);
    VImage sunken = fx::Buttonize(in, 5, 1, 50);
    EXPECT_LT(pixel(sunken, 30, 1)[0], 60);
    EXPECT_GT(pixel(sunken, 30, 38)[0], 150);
    const VImage& p = photo();
    VImage button = fx::Buttonize(p, 8, 0, 40);
    EXPECT_GT(button.crop(0, 0, 240, 8).avg(), p.crop(0, 0, 240, 8).avg() + 20);
    EXPECT_LT(button.crop(0, 152, 240, 8).avg(), p.crop(0, 152, 240, 8).avg() * 0.7);
    EXPECT_EQ(maxDiff(button.crop(8, 8, 224, 144), p.crop(8, 8, 224, 144)), 0);
    expectBadArgument([&] { fx::Buttonize(in, 21, 0, 50); }, "Buttonize",
                      "width must be at most half the shorter side");
    expectBadArgument([&] { fx::Buttonize(in, 5, 2, 50); }, "Buttonize",
                      "direction must be 0 to 1");
    expectBadArgument([&] { fx::Buttonize(in, 5, 0, 101); }, "Buttonize", "intensity");
}
