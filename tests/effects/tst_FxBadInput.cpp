// Broken, missing and mislabelled files, impossible saves: each a clear error with ImagError set,
// and no target file damaged or left half-written. Also the loaders of every readable format.
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "FxDriver.h"
#include "ImagingTestSupport.h"

using testsupport::TempDir;
using namespace testsupport;

namespace {

// Loads a file and returns the script error number (0 on success).
int loadError(FxDriver& d, const std::string& path) {
    return d.errorOf([&] { d.load(path); });
}

} // namespace

TEST(FxBadInput, BrokenAndMislabelledFiles) {
    TempDir dir;
    std::string photo = readFile(samplePhoto());
    writeFile(dir.str("cut.jpg"), photo.substr(0, photo.size() / 2));
    writeFile(dir.str("notes.jpg"), "These are my holiday notes, not a photo.\n");
    writeFile(dir.str("empty.png"), "");
    writeFile(dir.str("huge.png"), pngHeaderOnly(50000, 50000));
    FxDriver d;
    EXPECT_EQ(loadError(d, dir.str("cut.jpg")), 20003);
    EXPECT_EQ(d.get(u"ImagError").toLong(), 20003);
    EXPECT_NE(d.lastDescription.find("cut.jpg"), std::string::npos);
    EXPECT_EQ(loadError(d, dir.str("notes.jpg")), 20002);
    EXPECT_EQ(loadError(d, dir.str("empty.png")), 20003);
    EXPECT_NE(d.lastDescription.find("empty"), std::string::npos);
    EXPECT_EQ(loadError(d, dir.str("huge.png")), 20004);
    EXPECT_NE(d.lastDescription.find("50000 x 50000"), std::string::npos);
    EXPECT_EQ(loadError(d, dir.str("missing.jpg")), 20001);

    // After a failed load no earlier photo is left to be saved under the new name.
    gradient(30, 20).pngsave(dir.str("good.png").c_str());
    d.load(dir.str("good.png"));
    EXPECT_EQ(loadError(d, dir.str("cut.jpg")), 20003);
    EXPECT_EQ(d.width(), 0);
    EXPECT_EQ(d.errorOf([&] { d.saveAs(dir.str("out.png")); }), 20009);
    EXPECT_FALSE(std::filesystem::exists(dir.path("out.png")));

    // A photo with the wrong extension is recognised by its content.
    gradient(30, 20).pngsave(dir.str("really-png.jpg").c_str());
    EXPECT_EQ(loadError(d, dir.str("really-png.jpg")), 0);
    EXPECT_EQ(d.get(u"IFormat").toLong(), 5);
    EXPECT_EQ(d.get(u"ImagError").toLong(), 0);
}

TEST(FxBadInput, FailedSavesLeaveTargetsUntouched) {
    TempDir dir;
    FxDriver d;
    d.load(samplePhoto());
    EXPECT_EQ(d.errorOf([&] { d.saveAs(dir.str("no-such-folder\\out.jpg")); }), 20005);
    EXPECT_TRUE(dir.entries().empty());

    writeFile(dir.str("locked.jpg"), "old contents");
    ::chmod(dir.str("locked.jpg").c_str(), 0444);
    EXPECT_EQ(d.errorOf([&] { d.saveAs(dir.str("locked.jpg")); }), 20005);
    EXPECT_NE(d.lastDescription.find("read-only"), std::string::npos);
    EXPECT_EQ(readFile(dir.str("locked.jpg")), "old contents");

    // The encoder fails half-way (an icon of 1024 pixels): the old icon stays as it was.
    writeFile(dir.str("old.ico"), "old icon");
    EXPECT_NE(d.errorOf([&] { d.saveAs(dir.str("old.ico")); }), 0);
    EXPECT_EQ(d.get(u"ImagError").toLong(), 20006);
    EXPECT_EQ(readFile(dir.str("old.ico")), "old icon");
    EXPECT_EQ(dir.entries().size(), 2u); // no temporary file left

    EXPECT_EQ(d.errorOf([&] { d.saveAs(""); }), 20005);
}

TEST(FxBadInput, ATruncatedPngIsReportedAsDamagedWhenItsPixelsAreRead) {
    TempDir dir;
    vips::VImage::new_from_file(samplePhoto().c_str()).pngsave(dir.str("full.png").c_str());
    std::string png = readFile(dir.str("full.png"));
    writeFile(dir.str("cut.png"), png.substr(0, png.size() / 3));
    writeFile(dir.str("out.jpg"), "previous");
    FxDriver d;
    int err = d.errorOf([&] {
        d.load(dir.str("cut.png"));
        d.saveAs(dir.str("out.jpg"));
    });
    EXPECT_EQ(err, 20003);
    EXPECT_NE(d.lastDescription.find("cut.png"), std::string::npos) << d.lastDescription;
    EXPECT_EQ(readFile(dir.str("out.jpg")), "previous");
    EXPECT_EQ(dir.entries().size(), 3u);
}

TEST(FxBadInput, RunLengthEncodedBitmapLoads) {
    TempDir dir;
    writeFile(dir.str("strip.rle"), rle8Bitmap());
    FxDriver d;
    ASSERT_EQ(loadError(d, dir.str("strip.rle")), 0) << d.lastDescription;
    EXPECT_EQ(d.get(u"IFormat").toLong(), 17);
    EXPECT_EQ(d.width(), 6);
    EXPECT_EQ(d.height(), 2);
    auto top = d.control->image().getpoint(0, 0), bottom = d.control->image().getpoint(0, 1);
    EXPECT_EQ(top[0], 255);
    EXPECT_EQ(top[2], 0);
    EXPECT_EQ(bottom[2], 255);
    EXPECT_EQ(bottom[0], 0);
}

struct LoadCase {
    const char* name;
    int code;
    int width = 48, height = 32;
};

class FxLoadFormats : public ::testing::TestWithParam<LoadCase> {};

// Files written here by libvips (and its ImageMagick bridge) under the extensions of the image
// filter and the modern formats that no save writes, then loaded through fx.filename; a metafile
// (made here byte by byte) through ImageMagick. The formats a save writes are read back by
// FxFormatRoundTrip; RLE by RunLengthEncodedBitmapLoads.
TEST_P(FxLoadFormats, LoadsByContent) {
    const LoadCase& c = GetParam();
    TempDir dir;
    std::string path = dir.str(c.name);
    vips::VImage img = gradient(48, 32);
    std::string ext = std::string(c.name).substr(std::string(c.name).find('.') + 1);
    try {
        if (ext == "wmf")
            writeFile(path, wmfFile());
        else if (ext == "dib")
            img.magicksave(path.c_str(), vips::VImage::option()->set("format", "BMP"));
        else if (ext == "jif")
            img.jpegsave(path.c_str());
        else if (ext == "heic")
            img.heifsave(path.c_str(), vips::VImage::option()->set(
                                           "compression", VIPS_FOREIGN_HEIF_COMPRESSION_HEVC));
        else
            img.write_to_file(path.c_str());
    } catch (const vips::VError& e) {
        GTEST_SKIP() << "cannot write a test " << ext << " here: " << e.what();
    }
    FxDriver d;
    const int err = loadError(d, path);
    if (err && d.lastDescription.find("delegate") != std::string::npos)
        GTEST_SKIP() << d.lastDescription;
    ASSERT_EQ(err, 0) << d.lastDescription;
    EXPECT_EQ(d.width(), c.width);
    EXPECT_EQ(d.height(), c.height);
    EXPECT_EQ(d.get(u"IFormat").toLong(), c.code);
}

INSTANTIATE_TEST_SUITE_P(ImageFilterAndModern, FxLoadFormats,
                         ::testing::Values(LoadCase{"a.dib", 1}, LoadCase{"a.jpeg", 3},
                                           LoadCase{"a.jif", 3}, LoadCase{"a.tiff", 4},
                                           LoadCase{"a.heic", 18}, LoadCase{"a.jxl", 19},
                                           LoadCase{"a.wmf", 15, 72, 36}), // 1 x 0.5 inch
                         [](const auto& info) {
                             std::string n = info.param.name;
                             return n.substr(2);
                         });
