// Every writable format saved through the fx object and read back, the save options visible in
// the written files, multi-page files, and metadata carried over.
#include <gtest/gtest.h>

#include "FxDriver.h"
#include "ImagingTestSupport.h"
#include "imaging/io/Formats.h"

using testsupport::TempDir;
using namespace testsupport;

namespace {

struct FormatCase {
    const char* ext;
    int code;
    int bpp;           // bits per pixel read back
    const char* saver; // the libvips operation the format needs
};

// A real photo, brought down to a size every format holds (ICO: 256 at most).
void loadSmallPhoto(FxDriver& d) {
    d.load(samplePhoto());
    d.call(u"ResizeAspect", {L(240), L(240), vbs::Value(true)});
}

bool codecMissing(const std::string& description) {
    for (const char* hint :
         {"no encoder", "unsupported", "not supported", "No codec", "no decoder"})
        if (description.find(hint) != std::string::npos) return true;
    return false;
}

} // namespace

// A run on the small photo: each test saves it with its own options into a fresh folder.
class FxFormats : public ::testing::Test {
protected:
    void SetUp() override { loadSmallPhoto(d); }
    // Saves under name and returns the bytes written.
    std::string saved(const std::string& name) {
        d.saveAs(dir.str(name));
        return readFile(dir.str(name));
    }
    TempDir dir;
    FxDriver d;
};

class FxFormatRoundTrip : public FxFormats, public ::testing::WithParamInterface<FormatCase> {};

TEST_P(FxFormatRoundTrip, SavedAndReadBack) {
    const FormatCase& c = GetParam();
    if (!haveSaver(c.saver)) GTEST_SKIP() << c.saver << " is not in this libvips";
    int w = d.width(), h = d.height();
    std::string target = dir.str(std::string("photo.") + c.ext);
    int err = d.errorOf([&] { d.saveAs(target); });
    if (err && codecMissing(d.lastDescription)) GTEST_SKIP() << d.lastDescription;
    ASSERT_EQ(err, 0) << d.lastDescription;
    FxDriver back;
    back.load(target);
    EXPECT_EQ(back.width(), w);
    EXPECT_EQ(back.height(), h);
    EXPECT_EQ(back.get(u"IFormat").toLong(), c.code);
    EXPECT_EQ(back.get(u"IBPP").toLong(), c.bpp);
    EXPECT_EQ(back.get(u"NumPages", {S(target.c_str())}).toLong(), 1);
    EXPECT_EQ(dir.entries().size(), 1u);

    // The same format chosen by SaveFileType, whatever the name's extension says.
    std::string other = dir.str("by-code.out");
    d.let(u"SaveFileType", I(c.code));
    ASSERT_EQ(d.errorOf([&] { d.saveAs(other); }), 0) << d.lastDescription;
    FxDriver byCode;
    byCode.load(other);
    EXPECT_EQ(byCode.width(), w);
}

INSTANTIATE_TEST_SUITE_P(
    AllWritable, FxFormatRoundTrip,
    ::testing::Values(
        FormatCase{"bmp", 1, 24, "magicksave"}, FormatCase{"gif", 2, 8, "gifsave"},
        FormatCase{"jpg", 3, 24, "jpegsave"}, FormatCase{"tif", 4, 24, "tiffsave"},
        FormatCase{"png", 5, 24, "pngsave"}, FormatCase{"ppm", 6, 24, "ppmsave"},
        FormatCase{"pgm", 7, 8, "ppmsave"}, FormatCase{"pbm", 8, 1, "ppmsave"},
        FormatCase{"pcx", 9, 24, "magicksave"}, FormatCase{"dcx", 10, 24, "magicksave"},
        FormatCase{"tga", 11, 24, "magicksave"}, FormatCase{"ico", 12, 32, "magicksave"},
        FormatCase{"webp", 13, 24, "webpsave"}, FormatCase{"avif", 14, 24, "heifsave"}),
    [](const auto& info) { return std::string(info.param.ext); });

TEST_F(FxFormats, FormatsNothingHereWritesFailNamingTheFormat) {
    for (const char* name : {"x.pic", "x.ljp", "x.wmf"}) {
        EXPECT_EQ(d.errorOf([&] { d.saveAs(dir.str(name)); }), 20006) << name;
    }
    EXPECT_NE(d.lastDescription.find("WMF"), std::string::npos);
    writeFile(dir.str("old.pic"), "PIC-not-really");
    EXPECT_EQ(d.errorOf([&] { d.load(dir.str("old.pic")); }), 20007);
    EXPECT_NE(d.lastDescription.find("Pegasus PIC"), std::string::npos);
    // A lossless (process 3) JPEG frame header, under a .jpg name.
    writeFile(
        dir.str("scan.jpg"),
        std::string("\xFF\xD8\xFF\xC3\x00\x0B\x08\x00\x08\x00\x08\x01\x01\x11\x00\xFF\xD9", 17));
    EXPECT_EQ(d.errorOf([&] { d.load(dir.str("scan.jpg")); }), 20007);
    EXPECT_NE(d.lastDescription.find("lossless JPEG"), std::string::npos) << d.lastDescription;
    writeFile(dir.str("old.ljp"), "not a lossless JPEG either");
    EXPECT_EQ(d.errorOf([&] { d.load(dir.str("old.ljp")); }), 20007);
    EXPECT_NE(d.lastDescription.find("lossless JPEG"), std::string::npos);
    loadSmallPhoto(d); // a failed load leaves no image
    EXPECT_EQ(d.errorOf([&] { d.saveAs(dir.str("x.unknownext")); }), 20002);
    EXPECT_EQ(dir.entries().size(), 3u); // the three old files; nothing written
}

TEST_F(FxFormats, JpegOptionsShowInTheFile) {
    std::string plain = saved("plain.jpg");
    EXPECT_FALSE(jpegIsProgressive(plain));
    EXPECT_EQ(jpegLumaSampling(plain), 0x22);
    EXPECT_EQ(jpegComponents(plain), 3);

    d.let(u"SaveJPGProgressive", vbs::Value(true));
    d.let(u"SaveJPGSubSampling", I(1));
    std::string prog = saved("prog.jpg");
    EXPECT_TRUE(jpegIsProgressive(prog));
    EXPECT_EQ(jpegLumaSampling(prog), 0x11);

    d.let(u"SaveJPGGrayscale", vbs::Value(true));
    EXPECT_EQ(jpegComponents(saved("grey.jpg")), 1);

    d.let(u"SaveJPGGrayscale", vbs::Value(false));
    d.let(u"SaveJPGLumFactor", I(0));
    d.let(u"SaveJPGChromFactor", I(0));
    const size_t best = saved("best.jpg").size();
    d.let(u"SaveJPGLumFactor", I(70));
    d.let(u"SaveJPGChromFactor", I(70));
    EXPECT_GT(best, 2 * saved("small.jpg").size());
}

TEST_F(FxFormats, TiffCompressionTags) {
    // TIFF tag 259 values for our codes 0..7.
    const int tags[] = {1, 5, 8, 32773, 7, 50000, 50001, 4};
    for (int code = 0; code < 8; ++code) {
        d.let(u"SaveTIFCompression", I(code));
        std::string name = "c" + std::to_string(code) + ".tif";
        int err = d.errorOf([&] { d.saveAs(dir.str(name)); });
        if (err && codecMissing(d.lastDescription)) continue;
        ASSERT_EQ(err, 0) << code << ": " << d.lastDescription;
        int tag = tiffCompressionTag(readFile(dir.str(name)));
        EXPECT_TRUE(tag == tags[code] || (code == 2 && tag == 32946)) << code << " -> " << tag;
    }
}

TEST_F(FxFormats, PngGifAndNetpbmOptions) {
    for (auto [member, ext, interlaced] :
         {std::tuple{u"SavePNGInterlaced", "png", &pngInterlaced},
          std::tuple{u"SaveGIFInterlaced", "gif", &gifInterlaced}}) {
        EXPECT_FALSE(interlaced(saved(std::string("a.") + ext))) << ext;
        d.let(member, vbs::Value(true));
        EXPECT_TRUE(interlaced(saved(std::string("i.") + ext))) << ext;
    }
    for (auto [member, ext, raw, ascii] : {std::tuple{u"SavePBMType", "pbm", "P4", "P1"},
                                           std::tuple{u"SavePGMType", "pgm", "P5", "P2"},
                                           std::tuple{u"SavePPMType", "ppm", "P6", "P3"}}) {
        EXPECT_EQ(saved(std::string("raw.") + ext).substr(0, 2), raw);
        d.let(member, I(1));
        EXPECT_EQ(saved(std::string("ascii.") + ext).substr(0, 2), ascii);
        FxDriver back;
        back.load(dir.str(std::string("ascii.") + ext));
        EXPECT_EQ(back.width(), d.width());
    }
}

TEST_F(FxFormats, GifTransparentColour) {
    d.call(u"Crop", {I(0), I(0), I(40), I(40)});
    d.call(u"Brightness", {I(-100)}); // all black
    d.let(u"SaveGIFTransparent", vbs::Value(true));
    d.let(u"SaveGIFTColor", L(0));
    d.saveAs(dir.str("t.gif"));
    vips::VImage back = vips::VImage::new_from_file(dir.str("t.gif").c_str());
    ASSERT_TRUE(back.has_alpha());
    EXPECT_EQ(back[back.bands() - 1].max(), 0);
}

// Portrait and landscape photos, 8 and 16 bits, black and white: every page joins one TIFF as it
// is, and the pages already there stay byte for byte.
TEST_F(FxFormats, MultiPageTiffTakesPagesOfAnySize) {
    gradient(300, 200).pngsave(dir.str("land.png").c_str());
    (gradient(120, 180).cast(VIPS_FORMAT_USHORT) * 257)
        .cast(VIPS_FORMAT_USHORT)
        .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_RGB16))
        .pngsave(dir.str("port16.png").c_str());
    std::string tif = dir.str("book.tif");
    d.let(u"SaveMultiPage", vbs::Value(true));
    d.load(dir.str("land.png"));
    d.saveAs(tif);
    std::string firstPage = readFile(tif);
    d.load(dir.str("port16.png"));
    d.saveAs(tif);
    d.let(u"SaveTIFCompression", I(7)); // CCITT G4, black and white
    d.load(dir.str("land.png"));
    d.call(u"Crop", {L(0), L(0), L(50), L(40)});
    d.saveAs(tif);
    std::string book = readFile(tif);
    size_t changed = 0; // the link from the first page to the next one
    for (size_t k = 0; k < firstPage.size(); ++k)
        changed += book[k] != firstPage[k];
    EXPECT_LE(changed, 4u);
    EXPECT_EQ(d.get(u"NumPages", {S(tif.c_str())}).toLong(), 3);
    struct Page {
        int width, height, bpp;
    };
    const Page pages[] = {{300, 200, 24}, {120, 180, 48}, {50, 40, 1}};
    FxDriver reader;
    for (int k = 0; k < 3; ++k) {
        reader.let(u"PageNbr", I(k + 1));
        reader.load(tif);
        EXPECT_EQ(reader.width(), pages[k].width) << k;
        EXPECT_EQ(reader.height(), pages[k].height) << k;
        EXPECT_EQ(reader.get(u"IBPP").toLong(), pages[k].bpp) << k;
    }
    reader.let(u"PageNbr", I(4));
    EXPECT_EQ(reader.errorOf([&] { reader.load(tif); }), 20010);
    vips::VImage deep = vips::VImage::new_from_file(dir.str("port16.png").c_str());
    vips::VImage back = vips::VImage::tiffload(tif.c_str(), vips::VImage::option()->set("page", 1));
    EXPECT_EQ((back - deep).abs().max(), 0);
}

TEST_F(FxFormats, MetadataAndOrientationKept) {
    vips::VImage img = gradient(400, 300).icc_transform(
        "srgb", vips::VImage::option()->set("input_profile", "srgb")->set("embedded", false));
    img = img.copy();
    img.set(VIPS_META_ORIENTATION, 6);
    const std::string xmp =
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
        "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"/></x:xmpmeta>";
    vips_image_set_blob_copy(img.get_image(), VIPS_META_XMP_NAME, xmp.data(), xmp.size());
    img.jpegsave(dir.str("in.jpg").c_str());

    d.load(dir.str("in.jpg"));
    EXPECT_EQ(d.width(), 300); // upright
    d.call(u"ResizePercent", {I(50)});
    d.saveAs(dir.str("out.jpg"));
    d.saveAs(dir.str("out.tif"));
    d.saveAs(dir.str("out.png"));
    for (const char* name : {"out.jpg", "out.tif", "out.png"}) {
        vips::VImage out = vips::VImage::new_from_file(dir.str(name).c_str());
        EXPECT_EQ(out.width(), 150) << name;
        EXPECT_EQ(out.height(), 200) << name;
        EXPECT_NE(out.get_typeof(VIPS_META_ICC_NAME), 0u) << name;
        EXPECT_NE(out.get_typeof(VIPS_META_XMP_NAME), 0u) << name;
        if (std::string(name) != "out.tif") { // libvips writes no EXIF into TIFF
            EXPECT_NE(out.get_typeof(VIPS_META_EXIF_NAME), 0u) << name;
        }
        int orientation =
            out.get_typeof(VIPS_META_ORIENTATION) ? out.get_int(VIPS_META_ORIENTATION) : 1;
        EXPECT_EQ(orientation, 1) << name;
    }
}

TEST_F(FxFormats, MultiPageGifAndDcx) {
    d.let(u"SaveMultiPage", vbs::Value(true));
    for (const char* name : {"pages.gif", "pages.dcx"}) {
        std::string path = dir.str(name);
        d.saveAs(path);
        int err = d.errorOf([&] { d.saveAs(path); });
        ASSERT_EQ(err, 0) << name << ": " << d.lastDescription;
        EXPECT_EQ(d.get(u"NumPages", {S(path.c_str())}).toLong(), 2) << name;
        FxDriver reader;
        reader.let(u"PageNbr", I(3));
        EXPECT_EQ(reader.errorOf([&] { reader.load(path); }), 20010) << name;
    }
}

// 16-bit and float photos keep their depth where the format holds it, from a plain load and
// save and through the control's own tone operations; 8-bit formats get them scaled.
TEST_F(FxFormats, DepthIsKeptWhereTheFormatHoldsIt) {
    vips::VImage eight = gradient(64, 48);
    vips::VImage deep =
        (eight.cast(VIPS_FORMAT_USHORT) * 257 + 100)
            .cast(VIPS_FORMAT_USHORT)
            .copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_RGB16));
    deep.pngsave(dir.str("deep.png").c_str());
    deep.tiffsave(dir.str("deep.tif").c_str());
    deep.colourspace(VIPS_INTERPRETATION_GREY16).pngsave(dir.str("grey16.png").c_str());
    vips::VImage linear = eight.colourspace(VIPS_INTERPRETATION_scRGB);
    linear.tiffsave(dir.str("float.tif").c_str());
    auto read = [&](const char* name) {
        return vips::VImage::new_from_file(dir.str(name).c_str());
    };
    auto same = [](const vips::VImage& a, const vips::VImage& b) {
        return a.format() == b.format() && a.bands() == b.bands() && (a - b).abs().max() == 0;
    };
    for (const char* name : {"grey16.png", "deep.tif", "float.tif", "deep.png"}) {
        d.load(dir.str(name));
        std::string copy = std::string("copy-") + name;
        d.saveAs(dir.str(copy));
        EXPECT_TRUE(same(read(copy.c_str()), read(name))) << name;
    }
    d.saveAs(dir.str("deep.ppm")); // deep.png is loaded last above
    EXPECT_TRUE(same(read("deep.ppm"), read("deep.png")));
    d.load(dir.str("grey16.png"));
    d.saveAs(dir.str("grey16.pgm"));
    EXPECT_TRUE(same(read("grey16.pgm"), read("grey16.png")));
    d.load(dir.str("float.tif"));
    EXPECT_EQ(d.get(u"IBPP").toLong(), 96);
    d.load(dir.str("deep.png"));
    EXPECT_EQ(d.get(u"IBPP").toLong(), 48);
    d.saveAs(dir.str("flat.jpg"));
    EXPECT_NEAR(read("flat.jpg").avg(), eight.avg(), 3);
    d.call(u"Negate");
    d.call(u"Brightness", {I(0)});
    d.saveAs(dir.str("neg.png"));
    vips::VImage neg = read("neg.png");
    EXPECT_EQ(neg.format(), VIPS_FORMAT_USHORT);
    EXPECT_EQ((neg - (65535 - deep)).abs().max(), 0);
    d.let(u"SaveTIFCompression", I(4)); // JPEG in TIFF holds 8 bits
    d.saveAs(dir.str("jpeg.tif"));
    EXPECT_EQ(read("jpeg.tif").format(), VIPS_FORMAT_UCHAR);
}

TEST_F(FxFormats, GifTypeChoosesDithering) {
    gradient(256, 64).pngsave(dir.str("smooth.png").c_str());
    d.load(dir.str("smooth.png"));
    d.let(u"SaveGIFType", I(0));
    d.saveAs(dir.str("dithered.gif"));
    d.let(u"SaveGIFType", I(1));
    d.saveAs(dir.str("flat.gif"));
    // Neighbouring pixels differ far more often where the error was spread.
    auto changes = [&](const char* name) {
        vips::VImage g = vips::VImage::new_from_file(dir.str(name).c_str())[0];
        vips::VImage left = g.crop(0, 0, g.width() - 1, g.height());
        vips::VImage right = g.crop(1, 0, g.width() - 1, g.height());
        return (left != right).avg();
    };
    EXPECT_GT(changes("dithered.gif"), changes("flat.gif"));
}
