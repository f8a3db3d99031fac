// The imaging control through its C++ API: loading, orientation, shrink-on-load, operation
// invariants, argument checks, long chains and the error state (undo and the clipboard: effects
// FxOps).
#include <gtest/gtest.h>

#include "ImagingTestSupport.h"
#include "imaging/ImagingControl.h"
#include "imaging/io/ImageIo.h"
#include "platform/Interrupt.h"

using namespace imaging;
using testsupport::TempDir;
using vips::VImage;

namespace {

int32_t intProp(ImagingControl& c, const char* name) {
    return std::get<int32_t>(c.property(name));
}

double maxDifference(const VImage& a, const VImage& b) {
    return (a.cast(VIPS_FORMAT_INT) - b.cast(VIPS_FORMAT_INT)).abs().max();
}

void run(ImagingControl& c, const char* op, std::vector<Arg> args = {}) {
    c.invoke(op, args);
}

} // namespace

TEST(ImagingControl, LoadsARealPhotoWithItsInformation) {
    ImagingControl c;
    c.setFileName(testsupport::samplePhoto());
    EXPECT_EQ(intProp(c, "ImagWidth"), 1024);
    EXPECT_EQ(intProp(c, "IHeight"), 576);
    EXPECT_EQ(intProp(c, "IFileSize"),
              static_cast<int32_t>(std::filesystem::file_size(testsupport::samplePhoto())));
    EXPECT_GT(intProp(c, "UniqueColors"), 1000);
}

TEST(ImagingControl, AppliesExifOrientationOnLoad) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("r6.jpg"), 400, 300, 6);
    testsupport::writeJpeg(dir.str("r3.jpg"), 400, 300, 3);
    ImagingControl c;
    c.setFileName(dir.str("r6.jpg"));
    EXPECT_EQ(intProp(c, "ImagWidth"), 300);
    EXPECT_EQ(intProp(c, "ImagHeight"), 400);
    c.setFileName(dir.str("r3.jpg"));
    auto topLeft = c.image().getpoint(2, 2);
    EXPECT_GT(topLeft[0],
              200); // the stored bottom-right corner (red and green high) is now top-left
    EXPECT_GT(topLeft[1], 200);
}

TEST(ImagingControl, ShrinkOnLoadPicksTheLargestScaleAboveTheTarget) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("big.jpg"), 2000, 1500);
    testsupport::writeJpeg(dir.str("turned.jpg"), 2000, 1500, 6);
    LoadResult big = loadImage(dir.str("big.jpg"), 0);
    Reopened shrunk = reopenForResize(big.source, 2000, 1500, 400, 300);
    EXPECT_EQ(shrunk.image.width(), 500); // 1/4 scale; 1/8 would give 250, below 400
    EXPECT_EQ(shrunk.shrink, 4);
    EXPECT_TRUE(shrunk.sequential);
    Reopened full = reopenForResize(big.source, 2000, 1500, 1200, 900);
    EXPECT_EQ(full.shrink, 1); // no reduced scale, but still one top-to-bottom read
    EXPECT_EQ(full.image.width(), 2000);
    LoadResult turned = loadImage(dir.str("turned.jpg"), 0);
    Reopened upright = reopenForResize(turned.source, 1500, 2000, 300, 400);
    EXPECT_EQ(upright.image.width(), 375);
    EXPECT_EQ(upright.image.height(), 500);
    EXPECT_FALSE(upright.sequential);
    EXPECT_TRUE(reopenForResize(turned.source, 1500, 2000, 1200, 1600).image.is_null());

    ImagingControl c;
    c.setFileName(dir.str("turned.jpg"));
    c.resizeTo(300, 400, true);
    EXPECT_EQ(c.image().width(), 300);
    EXPECT_EQ(c.image().height(), 400);
    EXPECT_LT(
        maxDifference(c.image(), testsupport::gradient(2000, 1500).rot(VIPS_ANGLE_D90).resize(0.2)),
        40);
}

TEST(ImagingControl, GeometryInvariants) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("g.jpg"), 64, 48);
    ImagingControl c;
    c.setFileName(dir.str("g.jpg"));
    VImage original = c.image().copy_memory();
    for (int k = 0; k < 4; ++k)
        run(c, "Rotate", {90.0});
    EXPECT_EQ(maxDifference(c.image(), original), 0);
    run(c, "Flip");
    run(c, "Flip");
    EXPECT_EQ(maxDifference(c.image(), original), 0);
    run(c, "Flip");
    run(c, "Mirror");
    VImage turned = c.image().copy_memory();
    run(c, "Rotate", {-180.0});
    run(c, "Rotate", {0.0});
    EXPECT_EQ(maxDifference(turned.rot(VIPS_ANGLE_D180), original), 0);
    run(c, "Negate");
    run(c, "Negate");
    EXPECT_EQ(maxDifference(c.image(), original), 0);
}

TEST(ImagingControl, ChecksArgumentsAgainstTheDeclaration) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("a.jpg"), 40, 30);
    ImagingControl c;
    c.setFileName(dir.str("a.jpg"));
    const auto [code, message] = testsupport::imagingErrorOf([&] { run(c, "Rotate", {40000.0}); });
    EXPECT_EQ(code, ErrorCode::ArgumentOutOfRange);
    EXPECT_NE(message.find("angle"), std::string::npos);
    EXPECT_EQ(c.lastError(), 20008);
    EXPECT_THROW(run(c, "Crop", {int32_t(1)}), ImagingError);
    EXPECT_THROW(run(c, "Resize", {int32_t(1), int32_t(2), int32_t(3)}), ImagingError);
    run(c, "Resize", {int32_t(20), int32_t(15)});
    EXPECT_EQ(c.lastError(), 0);
    EXPECT_EQ(testsupport::imagingErrorOf([&] { run(c, "Levitate"); }),
              std::pair(ErrorCode::ActionNotSupported,
                        std::string("Object doesn't support this action: 'Levitate'")));
    EXPECT_THROW(c.setProperty("SaveJPGLumFactor", int32_t(500)), ImagingError);
    EXPECT_THROW(c.setProperty("IBPP", int32_t(8)), ImagingError);
    EXPECT_THROW(c.property("NoSuchProperty"), ImagingError);
}

// However long the chain of operations (it is kept in memory every few steps), the result is the
// chain's, and Undo steps back one operation.
TEST(ImagingControl, LongChainsOfOperations) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("c.jpg"), 64, 48);
    ImagingControl c;
    c.setProperty("UndoEnabled", true);
    c.setFileName(dir.str("c.jpg"));
    VImage original = c.image().copy_memory();
    for (int k = 0; k < 43; ++k)
        run(c, k % 2 ? "Mirror" : "Flip");
    VImage mirrored = original.flip(VIPS_DIRECTION_HORIZONTAL);
    EXPECT_EQ(maxDifference(c.image(), mirrored), 0); // 22 flips and 21 mirrors
    run(c, "Undo");
    EXPECT_EQ(maxDifference(c.image(), mirrored.flip(VIPS_DIRECTION_VERTICAL)), 0);
}

TEST(ImagingControl, NoImageIsAClearError) {
    ImagingControl c;
    EXPECT_EQ(testsupport::imagingErrorOf([&] { run(c, "Flip"); }).first, ErrorCode::NoImage);
    EXPECT_THROW(c.saveFile(), ImagingError);
}

TEST(ImagingControl, AreaAwareOperationsTouchOnlyTheProcessingArea) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("a.jpg"), 64, 48);
    ImagingControl c;
    c.setFileName(dir.str("a.jpg"));
    VImage original = c.image().copy_memory();
    c.area() = AreaState{true, 10, 8, 20, 16};
    run(c, "Negate");
    EXPECT_EQ(maxDifference(c.image().crop(10, 8, 20, 16), original.crop(10, 8, 20, 16).invert()),
              0);
    EXPECT_EQ(maxDifference(c.image().crop(0, 0, 64, 8), original.crop(0, 0, 64, 8)), 0);
    EXPECT_EQ(maxDifference(c.image().crop(40, 0, 24, 48), original.crop(40, 0, 24, 48)), 0);
    // A grey plane inside a colour image: the area goes back as colour.
    run(c, "AdjustHSL", {int32_t(0), int32_t(-100), int32_t(0)});
    EXPECT_EQ(c.image().bands(), 3);
    // Geometry ignores the area.
    run(c, "Rotate", {90.0});
    EXPECT_EQ(c.image().width(), 48);
    EXPECT_EQ(c.property("IPAreaWidth"), Arg(int32_t(20)));
}

TEST(ImagingControl, ASaveRegistersItsTemporaryFileOnlyWhileWriting) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("p.jpg"), 400, 300);
    ImagingControl c;
    c.setFileName(dir.str("p.jpg"));
    c.setProperty("SaveFileName", dir.str("out.jpg"));
    c.saveFile();
    EXPECT_EQ(Interrupt::registeredTempFiles(), 0);
    c.setProperty("SaveFileName", dir.str("big.ico")); // ICO holds at most 256 x 256 pixels
    EXPECT_THROW(c.saveFile(), ImagingError);
    EXPECT_EQ(Interrupt::registeredTempFiles(), 0);
    EXPECT_EQ(dir.entries().size(), 2u); // the photo and out.jpg, no temporary file
}
