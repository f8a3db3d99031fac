// The image operations of this control through fx: geometry, colour, colour depth, separation,
// clipboard and undo, with pixel checks.
#include <gtest/gtest.h>

#include "FxDriver.h"
#include "ImagingTestSupport.h"

using testsupport::TempDir;
using vips::VImage;

class FxOps : public ::testing::Test {
protected:
    void SetUp() override {
        testsupport::writeJpeg(dir.str("g.jpg"), 64, 48);
        d.load(dir.str("g.jpg"));
    }
    const VImage& image() { return d.control->image(); }
    TempDir dir;
    FxDriver d;
};

TEST_F(FxOps, RotateTakesAnyAngle) {
    d.call(u"Rotate", {I(450)});
    EXPECT_EQ(d.width(), 48);
    d.call(u"Rotate", {I(-90)});
    EXPECT_EQ(d.width(), 64);
}

TEST_F(FxOps, CroppingAndTiling) {
    d.call(u"Crop", {I(10), I(5), I(20), I(30)});
    EXPECT_EQ(d.width(), 20);
    EXPECT_EQ(d.height(), 30);
    d.call(u"Tile", {I(2), I(3)});
    EXPECT_EQ(d.width(), 40);
    EXPECT_EQ(d.height(), 90);
    d.call(u"CropBorder", {vbs::Value(5.0f), I(0)});
    EXPECT_EQ(d.width(), 30);
    d.call(u"CropBorder", {vbs::Value(10.0f), I(1)});
    EXPECT_EQ(d.width(), 24);
    EXPECT_EQ(d.height(), 64);
    EXPECT_EQ(d.errorOf([&] { d.call(u"Crop", {I(500), I(500), I(10), I(10)}); }), 20008);
    EXPECT_EQ(d.errorOf([&] { d.call(u"CropBorder", {vbs::Value(60.0f), I(1)}); }), 20008);
    EXPECT_EQ(d.errorOf([&] { d.call(u"CropBorder", {vbs::Value(12.0f), I(0)}); }), 20008);
    EXPECT_NE(d.lastDescription.find("wider than half"), std::string::npos) << d.lastDescription;
}

TEST_F(FxOps, AutoCropRemovesAUniformBorder) {
    VImage framed = testsupport::gradient(40, 30).embed(
        7, 5, 60, 50, VImage::option()->set("extend", VIPS_EXTEND_WHITE));
    framed.pngsave(dir.str("framed.png").c_str());
    d.load(dir.str("framed.png"));
    d.call(u"AutoCrop", {vbs::Value(5.0f)});
    EXPECT_NEAR(d.width(), 40, 1);
    EXPECT_NEAR(d.height(), 30, 1);
    d.load(dir.str("framed.png"));
    d.call(u"AutoCrop", {vbs::Value(5.0f), L(0xFFFFFF), L(2)});
    EXPECT_NEAR(d.width(), 44, 1);
}

TEST_F(FxOps, ColourAdjustmentsAndTheirReadBacks) {
    double before = image().avg();
    d.call(u"Brightness", {I(20)});
    EXPECT_GT(image().avg(), before + 30);
    d.call(u"AdjustHSL", {I(30), I(-100), I(0)});
    EXPECT_LE((image()[0].cast(VIPS_FORMAT_INT) - image()[2].cast(VIPS_FORMAT_INT)).abs().max(), 2);
    EXPECT_EQ(d.get(u"IPAdjustHue").toLong(), 30);
    EXPECT_EQ(d.get(u"IPAdjustSat").toLong(), -100);
    d.call(u"AdjustRGB", {I(0), I(-100), I(0), I(0)});
    EXPECT_EQ(image()[0].max(), 0);
    EXPECT_EQ(d.get(u"IPAdjustType").toLong(), 0);
    EXPECT_EQ(d.get(u"IPAdjustRed").toLong(), -100);
    EXPECT_EQ(d.errorOf([&] { d.call(u"AdjustRGB", {I(3), I(0), I(0), I(0)}); }), 20008);
}

// Gamma n lightens the mid-tones, Gamma -n darkens them and undoes Gamma n.
TEST_F(FxOps, GammaBelowAndAboveOne) {
    VImage original = image().copy_memory();
    d.call(u"Gamma", {I(2)});
    d.call(u"Gamma", {I(-2)});
    EXPECT_LE((image().cast(VIPS_FORMAT_INT) - original.cast(VIPS_FORMAT_INT)).abs().max(), 2);
    // A tone of 64 of 255 (0.25) becomes 0.5 under gamma 2, 0.0625 under gamma 1/2.
    VImage grey = VImage::black(8, 8) + 64;
    grey.cast(VIPS_FORMAT_UCHAR).pngsave(dir.str("g64.png").c_str());
    for (auto [n, tone] : {std::pair{2, 128.0}, {-2, 16.0}, {1, 64.0}, {0, 64.0}}) {
        d.load(dir.str("g64.png"));
        d.call(u"Gamma", {I(n)});
        EXPECT_NEAR(image().avg(), tone, 1) << n;
    }
    EXPECT_EQ(d.errorOf([&] { d.call(u"Gamma", {I(21)}); }), 20008);
    EXPECT_NE(d.lastDescription.find("(allowed -20 to 20)"), std::string::npos);
}

// A colour drawn or filled onto a greyscale photo shows in colour: the photo becomes colour at
// its depth. Grey drawn on it keeps it grey. (Text and Merge on grey: ImageKinds, imagingfx.)
TEST_F(FxOps, ColourOnAGreyPhotoShowsInColour) {
    testsupport::gradient(200, 120)
        .colourspace(VIPS_INTERPRETATION_B_W)
        .jpegsave(dir.str("grey.jpg").c_str());
    auto isRed = [](const std::vector<double>& px) {
        return px[0] > 200 && px[1] < 60 && px[2] < 60;
    };
    d.load(dir.str("grey.jpg"));
    d.call(u"DrawLine", {I(10), I(10), I(190), I(10), L(0x808080)});
    d.saveAs(dir.str("grey.png"));
    EXPECT_EQ(VImage::new_from_file(dir.str("grey.png").c_str()).bands(), 1); // grey stays grey
    d.call(u"DrawWidth", {L(3)});
    d.call(u"DrawLine", {I(10), I(20), I(190), I(20), L(0x0000FF)});
    d.saveAs(dir.str("drawn.jpg"));
    VImage drawn = VImage::new_from_file(dir.str("drawn.jpg").c_str());
    ASSERT_EQ(drawn.bands(), 3);
    EXPECT_TRUE(isRed(drawn.getpoint(100, 20)));
    EXPECT_LT(std::abs(drawn.getpoint(100, 100)[0] - drawn.getpoint(100, 100)[2]), 8);

    d.load(dir.str("grey.jpg"));
    d.call(u"Colorize", {L(0x0000FF)}); // tints the black-and-white photo red
    EXPECT_EQ(image().bands(), 3);
    EXPECT_EQ(image()[0].min(), 255);

    d.load(dir.str("grey.jpg"));
    d.let(u"BackColor", L(0x0000FF));
    d.call(u"Rotate", {I(30)}); // any angle: the corners it uncovers take BackColor
    EXPECT_GT(d.width(), 200);
    EXPECT_TRUE(isRed(image().getpoint(0, 0)));
}

TEST_F(FxOps, ColorizeGreysThenAddsTheColour) {
    d.call(u"Colorize", {L(255)});
    EXPECT_EQ(image()[0].min(), 255);
    EXPECT_LE((image()[1].cast(VIPS_FORMAT_INT) - image()[2].cast(VIPS_FORMAT_INT)).abs().max(), 2);
}

TEST_F(FxOps, ColorDepthLimitsColoursAndBitsPerPixel) {
    struct Case {
        int bits, palette;
        bool dither;
        int maxColours;
    };
    for (Case c : {Case{1, 0, false, 2}, Case{1, 0, true, 2}, Case{4, 0, false, 16},
                   Case{4, 1, true, 16}, Case{8, 0, true, 256}, Case{8, 1, false, 256},
                   Case{16, 0, false, 65536}, Case{24, 0, false, 1 << 24}}) {
        d.load(dir.str("g.jpg"));
        d.call(u"ColorDepth", {I(c.bits), I(c.palette), vbs::Value(c.dither)});
        EXPECT_EQ(d.get(u"IBPP").toLong(), c.bits) << c.bits;
        EXPECT_LE(d.get(u"UniqueColors").toLong(), c.maxColours) << c.bits << " " << c.palette;
        EXPECT_GE(d.get(u"UniqueColors").toLong(), 2) << c.bits;
    }
    d.load(dir.str("g.jpg"));
    d.call(u"ColorDepth", {I(8), I(0), I(0)});
    d.saveAs(dir.str("pal.png"));
    d.saveAs(dir.str("pal.bmp"));
    FxDriver back;
    back.load(dir.str("pal.png"));
    EXPECT_EQ(back.get(u"IBPP").toLong(), 8);
    d.call(u"ColorDepth", {I(1), I(0), I(1)});
    d.saveAs(dir.str("bw.png"));
    d.saveAs(dir.str("bw.tif"));
    back.load(dir.str("bw.png"));
    EXPECT_EQ(back.get(u"IBPP").toLong(), 1);
    EXPECT_EQ(d.errorOf([&] { d.call(u"ColorDepth", {I(7), I(0), I(0)}); }), 20008);
}

TEST_F(FxOps, ColorSeparationPlanes) {
    VImage original = image().copy_memory();
    d.call(u"ColorSeparation", {I(13)});
    d.call(u"ColorSeparation", {I(-1)});
    EXPECT_EQ((image().cast(VIPS_FORMAT_INT) - original.cast(VIPS_FORMAT_INT)).abs().max(), 0);
    d.call(u"ColorSeparation", {I(0)});
    EXPECT_EQ(image().bands(), 1);
    EXPECT_EQ((image().cast(VIPS_FORMAT_INT) - original[0].cast(VIPS_FORMAT_INT)).abs().max(), 0);
    d.load(dir.str("g.jpg"));
    d.call(u"ColorSeparation", {I(7)}); // CMY, magenta
    EXPECT_EQ((image().cast(VIPS_FORMAT_INT) + original[1].cast(VIPS_FORMAT_INT) - 255).abs().max(),
              0);
    d.load(dir.str("g.jpg"));
    d.call(u"ColorSeparation", {I(12)}); // CMYK, black
    auto px = original.getpoint(5, 5);
    double k = 255 - std::max({px[0], px[1], px[2]});
    EXPECT_NEAR(image().getpoint(5, 5)[0], k, 1);
}

TEST_F(FxOps, CopyPasteUndo) {
    EXPECT_EQ(d.errorOf([&] { d.call(u"Paste"); }), 20012); // nothing copied yet
    d.call(u"Undo"); // nothing to undo yet: nothing happens
    EXPECT_EQ(d.width(), 64);
    d.call(u"Copy");
    d.call(u"Resample", {I(8), I(8)});
    EXPECT_EQ(d.width(), 8);
    d.call(u"Undo");
    EXPECT_EQ(d.width(), 64);
    d.call(u"Undo");
    EXPECT_EQ(d.width(), 64);
    EXPECT_EQ(d.get(u"ImagError").toLong(), 0);
    d.call(u"Resize", {I(10), I(10)});
    d.call(u"Paste");
    EXPECT_EQ(d.width(), 64);
    EXPECT_EQ(d.height(), 48);
    d.call(u"PICResize", {I(32), I(24)});
    EXPECT_EQ(d.width(), 32);
}

// Sizes are 32-bit: a panorama far wider than 32767 pixels loads, reports its size, resizes and
// crops; only the pixel limit bounds a side.
TEST(FxLargeImages, APanoramaWiderThan32767Pixels) {
    TempDir dir;
    // Tone rises along x: 0 at the left edge, 250 at x = 40000.
    VImage ramp = (VImage::xyz(40000, 2000)[0] * (250.0 / 40000)).cast(VIPS_FORMAT_UCHAR);
    ramp.pngsave(dir.str("pano.png").c_str(), VImage::option()->set("compression", 1));
    FxDriver d;
    d.load(dir.str("pano.png"));
    EXPECT_EQ(d.get(u"ImagWidth").toLong(), 40000);
    EXPECT_EQ(d.get(u"ImagHeight").toLong(), 2000);
    d.call(u"Resize", {L(32768), L(1600)});
    EXPECT_EQ(d.width(), 32768);
    d.call(u"ResizeAspect", {L(36000), L(36000), vbs::Value(false)});
    EXPECT_EQ(d.width(), 32768); // already fits
    d.call(u"Crop", {L(30000), L(100), L(2768), L(1000)});
    EXPECT_EQ(d.width(), 2768);
    EXPECT_EQ(d.height(), 1000);
    d.saveAs(dir.str("part.png"));
    VImage part = VImage::new_from_file(dir.str("part.png").c_str());
    EXPECT_NEAR(part.getpoint(0, 0)[0], 250.0 * 30000 / 32768, 1.5);
    d.call(u"ResizePercent", {I(50)});
    EXPECT_EQ(d.width(), 1384);
    EXPECT_EQ(d.errorOf([&] { d.call(u"Resize", {L(250000001), L(1)}); }), 20008);
    EXPECT_NE(d.lastDescription.find("(allowed 1 to 250000000)"), std::string::npos)
        << d.lastDescription;
}
