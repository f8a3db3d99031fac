// Helpers of the effects tests.
#include "FxTestSupport.h"

#include <cmath>
#include <mutex>

using vips::VImage;

namespace fxtest {

namespace {
void startVips() {
    static std::once_flag once;
    std::call_once(once, [] {
        if (VIPS_INIT("imagingfx_tests")) throw std::runtime_error("libvips failed to start");
    });
}
} // namespace

const VImage& photo() {
    startVips();
    static const VImage small = VImage::thumbnail(FX_TEST_PHOTO, 240).copy_memory();
    return small;
}

VImage flat(int width, int height, double r, double g, double b) {
    startVips();
    VImage base = VImage::black(width, height);
    VImage out = g < 0 ? base + r : (base + std::vector<double>{r, g, b});
    return out.cast(VIPS_FORMAT_UCHAR)
        .copy(VImage::option()->set("interpretation",
                                    g < 0 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB))
        .copy_memory();
}

VImage rampX(int width, int height) {
    startVips();
    VImage x = VImage::xyz(width, height).extract_band(0) * (255.0 / (width - 1));
    VImage grey = x.cast(VIPS_FORMAT_UCHAR);
    return VImage::bandjoin({grey, grey, grey})
        .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB))
        .copy_memory();
}

double maxDiff(const VImage& a, const VImage& b) {
    return (a.cast(VIPS_FORMAT_FLOAT) - b.cast(VIPS_FORMAT_FLOAT)).abs().max();
}

double detailX(const VImage& image) {
    VImage f = image.cast(VIPS_FORMAT_FLOAT);
    int w = f.width(), h = f.height();
    return (f.crop(1, 0, w - 1, h) - f.crop(0, 0, w - 1, h)).abs().avg();
}

double detailY(const VImage& image) {
    VImage f = image.cast(VIPS_FORMAT_FLOAT);
    int w = f.width(), h = f.height();
    return (f.crop(0, 1, w, h - 1) - f.crop(0, 0, w, h - 1)).abs().avg();
}

std::vector<double> pixel(const VImage& image, int x, int y) {
    return image.getpoint(x, y);
}

void expectBadArgument(const std::function<void()>& call, const std::string& member,
                       const std::string& fragment) {
    try {
        call();
        ADD_FAILURE() << member << ": expected an error mentioning \"" << fragment << "\"";
    } catch (const fx::FxError& e) {
        EXPECT_EQ(e.kind(), fx::FxErrorKind::BadArgument) << e.what();
        EXPECT_EQ(e.member(), member) << e.what();
        EXPECT_NE(std::string(e.what()).find(fragment), std::string::npos) << e.what();
    }
}

} // namespace fxtest
