// Area (an effect limited to a rectangle) and Merge (clipboard combined with the image).
#include "imaging/fx/AreaMerge.h"
#include "imaging/fx/Distortions.h"
#include "imaging/fx/Filters.h"

#include "FxTestSupport.h"

using namespace fxtest;
using vips::VImage;

namespace {
VImage invert(const VImage& v) {
    return fx::Solarize(v, 0);
}
} // namespace

TEST(Area, EffectChangesInsideAndNothingOutside) {
    const VImage& in = photo();
    fx::AreaRect r{40, 30, 100, 60};
    VImage out = fx::applyInArea(in, r, invert);
    ASSERT_EQ(out.width(), in.width());
    EXPECT_EQ(maxDiff(out.crop(40, 30, 100, 60), invert(in.crop(40, 30, 100, 60))), 0);
    // The outside, as four strips round the area, is untouched.
    EXPECT_EQ(maxDiff(out.crop(0, 0, 240, 30), in.crop(0, 0, 240, 30)), 0);
    EXPECT_EQ(maxDiff(out.crop(0, 90, 240, 70), in.crop(0, 90, 240, 70)), 0);
    EXPECT_EQ(maxDiff(out.crop(0, 30, 40, 60), in.crop(0, 30, 40, 60)), 0);
    EXPECT_EQ(maxDiff(out.crop(140, 30, 100, 60), in.crop(140, 30, 100, 60)), 0);
    // A swirl turns round the area's own centre and stays inside it.
    VImage swirled = fx::applyInArea(in, r, [](const VImage& v) { return fx::Swirl(v, 270); });
    EXPECT_EQ(maxDiff(swirled.crop(0, 0, 240, 30), in.crop(0, 0, 240, 30)), 0);
    EXPECT_GT(maxDiff(swirled.crop(40, 30, 100, 60), in.crop(40, 30, 100, 60)), 20);
}

TEST(Area, RectangleIsClippedOrRefused) {
    const VImage& in = photo();
    VImage out = fx::applyInArea(in, {200, 140, 500, 500}, invert);
    EXPECT_EQ(maxDiff(out.crop(200, 140, 40, 20), invert(in.crop(200, 140, 40, 20))), 0);
    EXPECT_EQ(maxDiff(out.crop(0, 0, 200, 160), in.crop(0, 0, 200, 160)), 0);
    fx::AreaRect clipped = fx::clipArea({200, 140, 500, 500}, 240, 160);
    EXPECT_EQ(clipped.width, 40);
    EXPECT_EQ(clipped.height, 20);
    fx::AreaRect toEdges = fx::clipArea({40, 30, 0, 0}, 240, 160);
    EXPECT_EQ(toEdges.width, 200);
    EXPECT_EQ(toEdges.height, 130);
    const std::pair<fx::AreaRect, const char*> refused[] = {
        {{240, 0, 10, 10}, "lies outside the 240x160 image"},
        {{0, 0, -1, 10}, "width must be 0 to 2147483647"},
        {{-1, 0, 5, 10}, "x must be"},
    };
    for (const auto& [rect, message] : refused)
        expectBadArgument([&] { fx::applyInArea(in, rect, invert); }, "Area", message);
    expectBadArgument(
        [&] {
            fx::applyInArea(in, {0, 0, 50, 50}, [](const VImage& v) { return v.crop(0, 0, 5, 5); });
        },
        "Area", "changes the image size");
}

TEST(Merge, NormalStyleMixesByTheHighAndLowOpacity) {
    VImage image = flat(60, 40, 100, 100, 100);
    VImage white = flat(60, 40, 255, 255, 255), black = flat(60, 40, 0, 0, 0);
    fx::MergeOptions o;
    EXPECT_EQ(maxDiff(fx::Merge(image, white, o), white), 0); // 100%: the clipboard replaces
    o.highPercent = 50;
    o.lowPercent = 10;
    EXPECT_NEAR(pixel(fx::Merge(image, white, o), 5, 5)[0], 177.5, 1); // white: 50%
    EXPECT_NEAR(pixel(fx::Merge(image, black, o), 5, 5)[0], 90, 1);    // black: 10%
    o.highPercent = 101;
    expectBadArgument([&] { fx::Merge(image, white, o); }, "Merge", "high must be 0 to 100");
}

TEST(Merge, SizeRulesPlaceTheClipboard) {
    VImage image = flat(60, 40, 100, 100, 100);
    VImage clip = flat(20, 10, 250, 0, 0);
    fx::MergeOptions o;
    VImage topLeft = fx::Merge(image, clip, o);
    EXPECT_EQ(pixel(topLeft, 5, 5)[0], 250);
    EXPECT_EQ(pixel(topLeft, 30, 20)[0], 100);
    o.size = int(fx::MergeSize::Centre);
    VImage centred = fx::Merge(image, clip, o);
    EXPECT_EQ(pixel(centred, 30, 20)[0], 250);
    EXPECT_EQ(pixel(centred, 5, 5)[0], 100);
    o.size = int(fx::MergeSize::Stretch);
    EXPECT_EQ(fx::Merge(image, clip, o).extract_band(0).min(), 250);
    o.size = int(fx::MergeSize::Tile);
    VImage tiled = fx::Merge(image, clip.insert(flat(1, 1, 0, 0, 250), 3, 3), o);
    EXPECT_EQ(pixel(tiled, 43, 13)[2], 250); // the marked pixel repeats every 20 x 10
    o.size = 4;
    expectBadArgument([&] { fx::Merge(image, clip, o); }, "Merge", "size must be 0 to 3");
}

TEST(Merge, StylesAndTransparentColour) {
    VImage image = photo();
    VImage clip = photo().flip(VIPS_DIRECTION_HORIZONTAL).copy_memory();
    fx::MergeOptions o;
    auto merged = [&](fx::MergeStyle s) {
        o.style = int(s);
        return fx::Merge(image, clip, o).cast(VIPS_FORMAT_FLOAT);
    };
    VImage darker = merged(fx::MergeStyle::Darken), lighter = merged(fx::MergeStyle::Lighten);
    EXPECT_EQ((darker <= image).min(), 255);
    EXPECT_EQ((darker <= clip).min(), 255);
    EXPECT_EQ((lighter >= image).min(), 255);
    EXPECT_EQ(maxDiff(fx::Merge(image, image, o), image), 0); // lighten with itself
    o.style = int(fx::MergeStyle::Difference);
    EXPECT_EQ(fx::Merge(image, image, o).max(), 0);
    o.style = int(fx::MergeStyle::Multiply);
    EXPECT_EQ(maxDiff(fx::Merge(image, flat(240, 160, 255, 255, 255), o), image), 0);
    o.style = 8;
    expectBadArgument([&] { fx::Merge(image, clip, o); }, "Merge", "style must be 0 to 7");
    // Pixels of the transparent colour keep the current image.
    fx::MergeOptions keyed;
    keyed.transparent = true;
    keyed.transparentColor = fx::makeColour(0, 255, 0);
    VImage key = flat(240, 160, 0, 255, 0).insert(flat(100, 160, 10, 20, 30), 0, 0);
    VImage out = fx::Merge(image, key, keyed);
    EXPECT_EQ(maxDiff(out.crop(100, 0, 140, 160), image.crop(100, 0, 140, 160)), 0);
    EXPECT_EQ(pixel(out, 50, 50), (std::vector<double>{10, 20, 30}));
}

TEST(Merge, GreyAndAlphaClipboards) {
    VImage image = flat(30, 20, 100, 100, 100);
    VImage out = fx::Merge(image, flat(30, 20, 200), {});
    EXPECT_EQ(pixel(out, 3, 3), (std::vector<double>{200, 200, 200}));
    // A clipboard with alpha 0 leaves the image as it is.
    VImage clear = flat(30, 20, 0, 0, 0).bandjoin(VImage::black(30, 20).cast(VIPS_FORMAT_UCHAR));
    EXPECT_EQ(maxDiff(fx::Merge(image, clear, {}), image), 0);
}
