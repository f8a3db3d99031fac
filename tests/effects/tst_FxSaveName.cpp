// The fx members with logic: save-name rules, filename, and the resize rules.
#include <gtest/gtest.h>

#include "FxDriver.h"
#include "ImagingTestSupport.h"

using testsupport::TempDir;

namespace {

std::string withExtension(const char* name, const char* ext) {
    FxDriver d;
    d.let(u"SaveFileName", S(name));
    d.call(u"SaveFileNameExtension", {S(ext)});
    return d.str(u"SaveFileName");
}

std::string withPrefix(const char* name, const char* prefix, int times = 1) {
    FxDriver d;
    d.let(u"SaveFileName", S(name));
    for (int k = 0; k < times; ++k)
        d.call(u"SaveFileNameAddPrefix", {S(prefix)});
    return d.str(u"SaveFileName");
}

} // namespace

TEST(FxSaveName, ExtensionIsFoundAtTheFixedPositionsOnly) {
    EXPECT_EQ(withExtension("C:\\In\\p.jpg", "bmp"), "C:\\In\\p.bmp");
    EXPECT_EQ(withExtension("C:\\In\\p.tiff", "bmp"), "C:\\In\\p.bmp");
    EXPECT_EQ(withExtension("C:\\In\\p", "bmp"), "C:\\In\\p.bmp");
    EXPECT_EQ(withExtension("C:\\In\\p.jpeg2k", "bmp"), "C:\\In\\p.jpeg2k.bmp");
    EXPECT_EQ(withExtension("C:\\In\\p.jpg", ".png"), withExtension("C:\\In\\p.jpg", "png"));
    EXPECT_EQ(withExtension("C:\\In\\p.jpg", "b.mp"), "C:\\In\\p.bmp");
    EXPECT_EQ(withExtension("C:\\In\\p.jpg", ""), "C:\\In\\p.");
    EXPECT_EQ(withExtension("a.ab", "gif"), "a.gif");    // two letters: 3rd from the end
    EXPECT_EQ(withExtension("a.b", "gif"), "a.gif");     // one letter: 2nd from the end
    EXPECT_EQ(withExtension("a.abcde", "gif"), "a.gif"); // five letters: 6th from the end
    EXPECT_EQ(withExtension("C:\\d.x\\ab", "gif"),
              "C:\\d.gif"); // a folder dot at a tested position
}

TEST(FxSaveName, PrefixGoesBeforeTheNamePart) {
    EXPECT_EQ(withPrefix("p.jpg", "t_"), "\\t_p.jpg");
    EXPECT_EQ(withPrefix("C:\\In\\p.jpg", "t_"), "C:\\In\\t_p.jpg");
    EXPECT_EQ(withPrefix("C:\\In\\p.jpg", "t_", 2), "C:\\In\\t_t_p.jpg");
}

TEST(FxSaveName, LoadingSetsTheSaveNameAndSaveFileOverwritesTheSource) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("p.jpg"), 400, 300);
    FxDriver d;
    // A name written with "/" reads back in the "\" form, which the save-name rules split. A
    // blank after it, as a command-line value leaves, is dropped.
    d.load(dir.str("p.jpg") + " ");
    const std::string p = testsupport::backslashed(dir.str("p.jpg"));
    EXPECT_EQ(d.str(u"SaveFileName"), p);
    EXPECT_EQ(d.str(u"filename"), p);
    d.call(u"SaveFileNameAddPrefix", {S("t_")});
    EXPECT_EQ(d.str(u"SaveFileName"), testsupport::backslashed(dir.str("t_p.jpg")));
    d.call(u"SaveFile");
    EXPECT_TRUE(std::filesystem::exists(dir.path("t_p.jpg")));
    d.letPath(u"SaveFileName", p);
    d.call(u"Rotate", {I(90)});
    d.call(u"SaveFile"); // over the photo being read
    FxDriver again;
    again.load(dir.str("p.jpg"));
    EXPECT_EQ(again.width(), 300);
    EXPECT_EQ(again.height(), 400);
    EXPECT_EQ(dir.entries().size(), 2u); // no temporary file left behind
}

class FxResize : public ::testing::Test {
protected:
    void SetUp() override {
        testsupport::writeJpeg(dir.str("land.jpg"), 400, 300);
        testsupport::writeJpeg(dir.str("port.jpg"), 300, 400);
    }
    std::pair<int, int> after(const char* file, const std::u16string& member,
                              std::vector<vbs::Value> args) {
        FxDriver d;
        d.load(dir.str(file));
        d.call(member, std::move(args));
        return {d.width(), d.height()};
    }
    TempDir dir;
};

using Size = std::pair<int, int>;

// ResizePercent never enlarges; ResizeAspect fits the box, enlarging only when allowed.
TEST_F(FxResize, ResizeAspectFitsTheBox) {
    auto t = vbs::Value(true), f = vbs::Value(false);
    EXPECT_EQ(after("land.jpg", u"ResizePercent", {I(50)}), Size(200, 150));
    EXPECT_EQ(after("land.jpg", u"ResizePercent", {I(150)}), Size(400, 300));
    EXPECT_EQ(after("land.jpg", u"ResizeAspect", {L(200), L(200), t}), Size(200, 150));
    EXPECT_EQ(after("port.jpg", u"ResizeAspect", {L(200), L(200), t}), Size(150, 200));
    EXPECT_EQ(after("land.jpg", u"ResizeAspect", {L(800), L(800), t}), Size(800, 600));
    EXPECT_EQ(after("land.jpg", u"ResizeAspect", {L(800), L(800), f}), Size(400, 300));
    FxDriver d;
    EXPECT_EQ(d.errorOf([&] { d.call(u"ResizeAspect", {L(200), L(200)}); }), 450);
    // No image: the size reads 0 and the fit divides by it.
    EXPECT_EQ(d.width(), 0);
    EXPECT_EQ(d.errorOf([&] { d.call(u"ResizeAspect", {L(200), L(200), t}); }), 11);
    EXPECT_EQ(d.errorOf([&] { d.call(u"ResizePercent", {I(50)}); }), 11);
}
