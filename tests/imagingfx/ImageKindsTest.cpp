// Every image effect on grey, RGBA and 16-bit images: size, bands and format stay, alpha stays
// for the filters, and libvips is never left to fail raw.
#include <functional>

#include "imaging/fx/Effects.h"

#include "FxTestSupport.h"

using namespace fxtest;
using vips::VImage;

namespace {

struct Case {
    const char* name;
    bool movesPixels; // distortions move alpha with the colour
    std::function<VImage(const VImage&)> run;
    bool putsColour = false; // draws, fills or merges a colour that is not a grey
};

std::vector<Case> cases() {
    fx::DrawState st;
    st.fillStyle = 0;
    return {
        {"AutoContrast", false, [](const VImage& i) { return fx::AutoContrast(i); }},
        {"Blur", false, [](const VImage& i) { return fx::Blur(i); }},
        {"Soften", false, [](const VImage& i) { return fx::Soften(i, 4); }},
        {"Sharpen", false, [](const VImage& i) { return fx::Sharpen(i, 60); }},
        {"MBlur", false, [](const VImage& i) { return fx::MBlur(i, 30, 9, 80); }},
        {"Median", false, [](const VImage& i) { return fx::Median(i); }},
        {"Dilate", false, [](const VImage& i) { return fx::Dilate(i); }},
        {"Erode", false, [](const VImage& i) { return fx::Erode(i); }},
        {"Diffuse", false, [](const VImage& i) { return fx::Diffuse(i); }},
        {"Noise", false, [](const VImage& i) { return fx::Noise(i, 20, 1); }},
        {"Emboss", false, [](const VImage& i) { return fx::Emboss(i); }},
        {"Equalize", false, [](const VImage& i) { return fx::Equalize(i); }},
        {"Outline", false, [](const VImage& i) { return fx::Outline(i); }},
        {"Posterize", false, [](const VImage& i) { return fx::Posterize(i, 5); }},
        {"Solarize", false, [](const VImage& i) { return fx::Solarize(i, 100); }},
        {"Mosaic", false, [](const VImage& i) { return fx::Mosaic(i, 9); }},
        {"Buttonize", false, [](const VImage& i) { return fx::Buttonize(i, 6, 0, 50); }},
        {"Blend", false, [](const VImage& i) { return fx::Blend(i, 70); }},
        {"Matrix", false,
         [](const VImage& i) {
             return fx::Matrix(i, {1, 2, 1, 2, 4, 2, 1, 2, 1}, 16, 0);
         }},
        {"ReplaceColors", false,
         [](const VImage& i) { return fx::ReplaceColors(i, 0, 0x808080, 0xFF); }, true},
        {"Parabolic", false, [](const VImage& i) { return fx::Parabolic(i, 70); }},
        {"Swirl", true, [](const VImage& i) { return fx::Swirl(i, 90); }},
        {"Twist", true, [](const VImage& i) { return fx::Twist(i, 45, 32); }},
        {"Pinch", true, [](const VImage& i) { return fx::Pinch(i, 50); }},
        {"Ripple", true, [](const VImage& i) { return fx::Ripple(i, 5, 30, 2); }},
        {"Perspective", true, [](const VImage& i) { return fx::Perspective(i, 2, 30); }},
        {"PWarp", true,
         [](const VImage& i) {
             return fx::PWarp(
                 i, {fx::Point{5, 5}, fx::Point{200, 0}, fx::Point{230, 150}, fx::Point{0, 140}});
         }},
        {"DrawPie", false,
         [st](const VImage& i) { return fx::DrawPie(i, st, 10, 10, 100, 100, 0, 120, 0xFF); },
         true},
        {"DrawText", false,
         [st](const VImage& i) { return fx::DrawText(i, st, 10, 10, "Text", 0xFF00); }, true},
        {"Merge", false, [](const VImage& i) { return fx::Merge(i, photo(), {}); }, true},
    };
}

void expectKindKept(const VImage& in, const VImage& out, const char* name) {
    EXPECT_EQ(out.width(), in.width()) << name;
    EXPECT_EQ(out.height(), in.height()) << name;
    EXPECT_EQ(out.bands(), in.bands()) << name;
    EXPECT_EQ(out.format(), in.format()) << name;
    EXPECT_EQ(out.interpretation(), in.interpretation()) << name;
}

} // namespace

// Grey stays grey, 8 or 16 bits, until a colour is drawn, filled or merged onto it: then the
// image becomes colour at its depth, and the colour shows.
TEST(ImageKinds, GreyImagesStayGreyUntilColourIsPutOnThem) {
    VImage grey = photo().colourspace(VIPS_INTERPRETATION_B_W).copy_memory();
    VImage grey16 = grey.colourspace(VIPS_INTERPRETATION_GREY16).copy_memory();
    for (const Case& c : cases()) {
        for (const VImage& in : {grey, grey16}) {
            VImage out = c.run(in);
            if (!c.putsColour) {
                expectKindKept(in, out, c.name);
                continue;
            }
            EXPECT_EQ(out.bands(), 3) << c.name;
            EXPECT_EQ(out.format(), in.format()) << c.name;
            VImage spread = (out[0] - out[1]).abs() + (out[1] - out[2]).abs();
            EXPECT_GT(spread.max(), 0.5 * (in.format() == VIPS_FORMAT_USHORT ? 65535 : 255))
                << c.name;
        }
    }
}

TEST(ImageKinds, AlphaIsKeptByFiltersAndMovedByDistortions) {
    VImage alpha =
        (VImage::xyz(240, 160).extract_band(0) > 120).ifthenelse(255, 128).cast(VIPS_FORMAT_UCHAR);
    VImage rgba = photo().bandjoin(alpha).copy_memory();
    for (const Case& c : cases()) {
        VImage out = c.run(rgba);
        expectKindKept(rgba, out, c.name);
        // Drawing makes what it draws opaque; the other filters leave alpha alone.
        bool draws = std::string(c.name).starts_with("Draw");
        if (!c.movesPixels) {
            EXPECT_EQ(maxDiff(out.extract_band(3), alpha), draws ? 127 : 0) << c.name;
        }
    }
}

TEST(ImageKinds, SixteenBitImagesStaySixteenBit) {
    VImage deep = (photo().cast(VIPS_FORMAT_USHORT) * 257)
                      .cast(VIPS_FORMAT_USHORT)
                      .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_RGB16))
                      .copy_memory();
    for (const Case& c : cases()) {
        VImage out = c.run(deep);
        expectKindKept(deep, out, c.name);
        EXPECT_GT(out.max(), 1000) << c.name; // still on the 16-bit scale
    }
    // A 16-bit Solarize threshold is scaled: 128 of 255 is 32896 of 65535.
    EXPECT_LE(fx::Solarize(deep, 128).max(), 32896);
}

TEST(ImageKinds, TinyImagesWork) {
    for (VImage tiny : {flat(1, 1, 10, 200, 30), flat(3, 2, 10, 200, 30)}) {
        for (const Case& c : cases()) {
            if (std::string(c.name) == "Buttonize")
                continue; // no bevel fits: the documented width error
            try {
                VImage out = c.run(tiny);
                expectKindKept(tiny, out, c.name);
                EXPECT_NO_THROW(out.avg()) << c.name;
            } catch (const std::exception& e) {
                ADD_FAILURE() << c.name << " on " << tiny.width() << "x" << tiny.height() << ": "
                              << e.what();
            }
        }
    }
}
