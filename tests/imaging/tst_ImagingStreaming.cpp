// Resizing an untouched JPEG: it is decoded again at a reduced scale, streamed into the save in one
// pass, and stays as close to a full decode and resize as the eye can tell; everything else that
// reads the pixels afterwards still sees the same image.
#include <gtest/gtest.h>

#include "ImagingTestSupport.h"
#include "imaging/ImagingControl.h"

using namespace imaging;
using testsupport::TempDir;
using vips::VImage;

namespace {

VImage absDifference(const VImage& a, const VImage& b) {
    return (a.cast(VIPS_FORMAT_INT) - b.cast(VIPS_FORMAT_INT)).abs();
}

VImage readPixels(const std::string& path) {
    return VImage::new_from_file(path.c_str()).copy_memory();
}

void saveAs(ImagingControl& c, const std::string& path) {
    c.setProperty("SaveFileName", path);
    c.saveFile();
}

// A large JPEG, big.jpg, and a control to open it with.
class ImagingStreaming : public ::testing::Test {
protected:
    void SetUp() override { testsupport::writeJpeg(dir.str("big.jpg"), 2000, 1500); }
    // Opens big.jpg to be resized into width x height.
    void open(int width, int height) {
        c.setFileName(dir.str("big.jpg"));
        c.resizeTo(width, height, true);
    }
    TempDir dir;
    ImagingControl c;
};

} // namespace

TEST_F(ImagingStreaming, ResizeOfAnUntouchedJpegStaysCloseToAFullDecode) {
    c.setFileName(testsupport::samplePhoto()); // 1024 x 576
    c.resizeTo(256, 144, true);                // decoded at 1/4 scale
    EXPECT_TRUE(c.isStreamed());
    EXPECT_EQ(c.width(), 256);
    EXPECT_TRUE(c.isStreamed()); // asking the size decodes nothing
    saveAs(c, dir.str("small.png"));
    VImage full = VImage::new_from_file(testsupport::samplePhoto().c_str())
                      .resize(0.25, VImage::option()->set("kernel", VIPS_KERNEL_LANCZOS3));
    VImage diff = absDifference(readPixels(dir.str("small.png")), full);
    EXPECT_LT(diff.avg(), 1.0); // measured 0.42
    EXPECT_LT(diff.max(), 24);  // measured 10
}

TEST_F(ImagingStreaming, EveryReadAfterASaveSeesTheSamePixels) {
    c.setProperty("UndoEnabled", true);
    open(400, 300);
    saveAs(c, dir.str("a.png"));
    saveAs(c, dir.str("b.png")); // the pipeline read by the first save is built again
    VImage first = readPixels(dir.str("a.png"));
    EXPECT_EQ(absDifference(first, readPixels(dir.str("b.png"))).max(), 0);
    EXPECT_EQ(absDifference(first, c.image()).max(), 0);
    EXPECT_FALSE(c.isStreamed()); // image() keeps the result in memory
    c.invoke("Flip");
    EXPECT_EQ(absDifference(first.flip(VIPS_DIRECTION_VERTICAL), c.image()).max(), 0);
    c.invoke("Undo");
    EXPECT_EQ(absDifference(first, c.image()).max(), 0);
}

TEST_F(ImagingStreaming, OperationsOnAStreamedImageReadItInAnyOrder) {
    open(1200, 900); // no reduced scale, but still one top-to-bottom decode
    EXPECT_TRUE(c.isStreamed());
    std::vector<Arg> angle{90.0};
    c.invoke("Rotate", angle); // reads the image bottom to top
    EXPECT_EQ(c.width(), 900);
    saveAs(c, dir.str("turned.png"));
    VImage expected = testsupport::gradient(2000, 1500).resize(0.6).rot(VIPS_ANGLE_D90);
    EXPECT_LT(absDifference(readPixels(dir.str("turned.png")), expected).avg(), 3);
}

TEST_F(ImagingStreaming, DamageFoundWhileStreamingNamesThePhotoAndKeepsTheTarget) {
    std::string bytes = testsupport::readFile(dir.str("big.jpg"));
    // The scan names Huffman tables that were never defined: the header reads well, decoding
    // fails at its first row.
    size_t scan = bytes.find("\xFF\xDA");
    ASSERT_NE(scan, std::string::npos);
    bytes[scan + 6] = '\x33';
    testsupport::writeFile(dir.str("cut.jpg"), bytes);
    testsupport::writeFile(dir.str("out.jpg"), "previous");
    c.setFileName(dir.str("cut.jpg"));
    c.resizeTo(400, 300, true);
    c.setProperty("SaveFileName", dir.str("out.jpg"));
    const auto [code, message] = testsupport::imagingErrorOf([&] { c.saveFile(); });
    EXPECT_EQ(code, ErrorCode::DamagedImage);
    EXPECT_NE(message.find("cut.jpg"), std::string::npos) << message;
    EXPECT_EQ(testsupport::readFile(dir.str("out.jpg")), "previous");
    EXPECT_EQ(dir.entries().size(), 3u); // no temporary file left
    // Reading the pixels again reports the same damage, not a library state error.
    EXPECT_EQ(testsupport::imagingErrorOf([&] { c.invoke("Flip"); }).first,
              ErrorCode::DamagedImage);
}

TEST_F(ImagingStreaming, ATargetThatCannotBeWrittenIsNotBlamedOnThePhoto) {
    open(400, 300);
    c.setProperty("SaveFileName", dir.str("missing/out.jpg"));
    EXPECT_EQ(testsupport::imagingErrorOf([&] { c.saveFile(); }).first, ErrorCode::CannotWrite);
    saveAs(c, dir.str("out.png")); // the photo itself is fine
    EXPECT_EQ(VImage::new_from_file(dir.str("out.png").c_str()).width(), 400);
}

TEST_F(ImagingStreaming, SavingOverThePhotoItselfKeepsItsPixelsForLaterReads) {
    std::filesystem::copy_file(dir.path("big.jpg"), dir.path("copy.jpg"));
    ImagingControl other;
    other.setFileName(dir.str("copy.jpg"));
    other.resizeTo(400, 300, true);
    VImage expected = other.image();
    open(400, 300);
    ASSERT_TRUE(c.isStreamed());
    saveAs(c, dir.str("big.jpg"));
    EXPECT_EQ(VImage::new_from_file(dir.str("big.jpg").c_str()).width(), 400);
    EXPECT_EQ(absDifference(expected, c.image()).max(), 0); // not the re-encoded file
}
