// Neighbourhood filters on the example photo: each changes detail the documented way.
#include "imaging/fx/Filters.h"

#include "FxTestSupport.h"

using namespace fxtest;
using vips::VImage;

TEST(Filters, BlurAndSoftenRemoveDetailAndKeepTheMean) {
    const VImage& in = photo();
    VImage blurred = fx::Blur(in);
    EXPECT_LT(detailX(blurred), detailX(in) * 0.8);
    EXPECT_NEAR(blurred.avg(), in.avg(), 1.0);
    double light = detailX(fx::Soften(in, 1)), strong = detailX(fx::Soften(in, 10));
    EXPECT_LT(light, detailX(in));
    EXPECT_LT(strong, light * 0.7);
    expectBadArgument([&] { fx::Soften(in, 0); }, "Soften", "strength must be 1 to 20 (got 0)");
}

TEST(Filters, SharpenAddsDetailInProportionToTheAmount) {
    const VImage& in = photo();
    EXPECT_EQ(maxDiff(fx::Sharpen(in, 0), in), 0);
    double some = detailX(fx::Sharpen(in, 30)), lots = detailX(fx::Sharpen(in, 100));
    EXPECT_GT(some, detailX(in) * 1.1);
    EXPECT_GT(lots, some);
    EXPECT_NEAR(fx::Sharpen(in, 50).avg(), in.avg(), 2.0);
    expectBadArgument([&] { fx::Sharpen(in, 101); }, "Sharpen", "amount must be 0 to 100");
}

TEST(Filters, MotionBlurSmearsAlongItsAngleOnly) {
    const VImage& in = photo();
    VImage horizontal = fx::MBlur(in, 0, 15, 100);
    EXPECT_LT(detailX(horizontal), detailX(in) * 0.5);
    // Vertical stripes: a vertical smear leaves them, a horizontal one greys them out.
    VImage stripes = ((VImage::xyz(64, 48).extract_band(0) % 8) < 4)
                         .ifthenelse(255, 0)
                         .cast(VIPS_FORMAT_UCHAR)
                         .copy_memory();
    EXPECT_EQ(maxDiff(fx::MBlur(stripes, 90, 15, 100), stripes), 0);
    EXPECT_EQ(maxDiff(fx::MBlur(stripes, -90, 15, 100), stripes), 0);
    EXPECT_GT(maxDiff(fx::MBlur(stripes, 0, 15, 100), stripes), 100);
    EXPECT_GT(maxDiff(fx::MBlur(stripes, 45, 15, 100), stripes), 100);
    EXPECT_EQ(maxDiff(fx::MBlur(in, 45, 20, 0), in), 0); // strength 0: nothing mixed in
    expectBadArgument([&] { fx::MBlur(in, 0, 0, 50); }, "MBlur", "distance must be 1 to 100");
    expectBadArgument([&] { fx::MBlur(in, 361, 5, 50); }, "MBlur", "angle must be -360 to 360");
    expectBadArgument([&] { fx::MBlur(in, 0, 5, 101); }, "MBlur", "strength must be 0 to 100");
}

TEST(Filters, MedianRemovesAnIsolatedSpeck) {
    // A fresh buffer: drawing works in place, and photo() is shared by the tests.
    VImage in = photo().copy().copy_memory();
    in.draw_rect({255, 255, 255}, 100, 120, 1, 1, VImage::option()->set("fill", true));
    VImage out = fx::Median(in);
    EXPECT_LT(pixel(out, 100, 120)[0], 250);
}

TEST(Filters, DilateBrightensAndErodeDarkensEveryPixel) {
    const VImage& in = photo();
    VImage dilated = fx::Dilate(in), eroded = fx::Erode(in);
    EXPECT_EQ((dilated >= in).min(), 255); // no pixel gets darker
    EXPECT_EQ((eroded <= in).min(), 255);
    EXPECT_GT(dilated.avg(), in.avg() + 2);
    EXPECT_LT(eroded.avg(), in.avg() - 2);
}

TEST(Filters, DiffuseScattersRepeatably) {
    const VImage& in = photo();
    VImage a = fx::Diffuse(in), b = fx::Diffuse(in);
    EXPECT_EQ(maxDiff(a, b), 0);
    EXPECT_GT((a.cast(VIPS_FORMAT_FLOAT) - in).abs().avg(), 2.0);
    EXPECT_NEAR(a.avg(), in.avg(), 2.0); // pixels move, tones stay
}

TEST(Filters, NoiseHasTheDocumentedStrengthAndKind) {
    VImage grey = flat(120, 80, 128, 128, 128);
    VImage mono = fx::Noise(grey, 50, 0);
    double sigma = (mono.cast(VIPS_FORMAT_FLOAT) - 128).extract_band(0).deviate();
    EXPECT_NEAR(sigma, 32, 4); // 50% of 64 levels
    EXPECT_EQ(maxDiff(mono.extract_band(0), mono.extract_band(1)), 0);
    VImage colour = fx::Noise(grey, 50, 1);
    EXPECT_GT(maxDiff(colour.extract_band(0), colour.extract_band(1)), 20);
    EXPECT_EQ(maxDiff(fx::Noise(grey, 0, 1), grey), 0);
    VImage noisy = fx::Noise(photo(), 50, 0);
    EXPECT_GT((noisy.cast(VIPS_FORMAT_FLOAT) - photo()).abs().avg(), 10);
    EXPECT_GT(detailX(noisy), detailX(photo()) * 2);
    expectBadArgument([&] { fx::Noise(grey, 101, 0); }, "Noise", "amount must be 0 to 100");
    expectBadArgument([&] { fx::Noise(grey, 10, 2); }, "Noise", "kind must be 0 to 1");
}

TEST(Filters, EmbossGivesGreyReliefAroundMidGrey) {
    VImage out = fx::Emboss(photo());
    EXPECT_EQ(maxDiff(out.extract_band(0), out.extract_band(2)), 0);
    EXPECT_EQ(fx::Emboss(flat(40, 30, 10, 200, 90)).avg(), 128); // no edges: all mid-grey
}

TEST(Filters, OutlineDrawsDarkEdgesOnWhite) {
    EXPECT_EQ(fx::Outline(flat(40, 30, 10, 200, 90)).min(), 255);
    VImage traced = fx::Outline(photo());
    EXPECT_GT(traced.avg(), 200); // mostly white paper
    EXPECT_LT(traced.min(), 60);  // with dark lines where the photo has edges
    VImage edge = flat(40, 30, 0, 0, 0).insert(flat(20, 30, 255, 255, 255), 20, 0);
    VImage out = fx::Outline(edge);
    EXPECT_LT(pixel(out, 20, 15)[0], 10);
    EXPECT_EQ(pixel(out, 5, 15)[0], 255);
}

TEST(Filters, BlendMixesWithTheNeighbourhood) {
    const VImage& in = photo();
    EXPECT_EQ(maxDiff(fx::Blend(in, 0), in), 0);
    double half = detailX(fx::Blend(in, 50)), full = detailX(fx::Blend(in, 100));
    EXPECT_LT(full, half);
    EXPECT_LT(half, detailX(in));
    expectBadArgument([&] { fx::Blend(in, 101); }, "Blend", "percent must be 0 to 100");
}

TEST(Filters, MatrixAppliesKernelDivisorAndBias) {
    const VImage& in = photo();
    EXPECT_EQ(maxDiff(fx::Matrix(in, {0, 0, 0, 0, 1, 0, 0, 0, 0}, 1, 0), in), 0);
    VImage grey = flat(30, 20, 100, 100, 100);
    EXPECT_EQ(fx::Matrix(grey, {1, 1, 1, 1, 1, 1, 1, 1, 1}, 9, 0).avg(), 100);
    EXPECT_EQ(fx::Matrix(grey, {0, 0, 0, 0, 1, 0, 0, 0, 0}, 2, 10).avg(), 60);
    EXPECT_EQ(fx::Matrix(grey, {0, 0, 0, 0, -1, 0, 0, 0, 0}, 1, 0).max(), 0); // clipped at black
    expectBadArgument([&] { fx::Matrix(in, {}, 0, 0); }, "Matrix", "divisor must not be 0");
    expectBadArgument([&] { fx::Matrix(in, {}, 1, 256); }, "Matrix", "bias must be -255 to 255");
}

TEST(Filters, TheSharedPhotoIsNotChangedByTheTests) {
    // Every effect returns a new image; the photo the tests share keeps its pixels.
    EXPECT_EQ(maxDiff(photo(), VImage::thumbnail(FX_TEST_PHOTO, 240)), 0);
}
