// The fx object inside the VBScript engine: small scripts as users write them.
#include <gtest/gtest.h>

#include "FxDriver.h"
#include "ImagingTestSupport.h"
#include "platform/NativePath.h"
#include "vbscript/ScriptControl.h"
#include "vbscript/stdlib/StandardLibrary.h"

using testsupport::TempDir;

namespace {

struct ScriptRun {
    FxDriver fx;
    vbs::ScriptControl control;
    ScriptRun() {
        vbs::installStandardLibrary(control);
        control.setHost(&fx.host);
        control.addObject(u"fx", fx.fx);
    }
    bool run(const std::string& code) { return control.addCode(vbs::fromUtf8(code)); }
};

// Scripts write paths in the "\\" form.
std::string bs(const std::string& path) {
    return NativePath::toBackslash(path);
}

} // namespace

TEST(FxScripts, ResizeRenameAndSaveABatchPhoto) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("p.jpg"), 400, 300);
    ScriptRun s;
    ASSERT_TRUE(
        s.run("fx.filename = \"" + bs(dir.str("p.jpg")) +
              "\"\n"
              "fx.ResizePercent 50\n"
              "fx.SaveFileNameAddPrefix \"small_\"\n"
              "fx.SaveFileNameExtension \"png\"\n"
              "fx.SaveFile\n"
              "fx.MsgDisplay fx.ImagWidth & \"x\" & fx.IHeight & \" \" & fx.SaveFileName\n"))
        << vbs::toUtf8(s.control.error().description);
    ASSERT_EQ(s.fx.host.prompts.size(), 1u);
    EXPECT_EQ(vbs::toUtf8(s.fx.host.prompts[0]), "200x150 " + bs(dir.str("small_p.png")));
    vips::VImage out = vips::VImage::new_from_file(dir.str("small_p.png").c_str());
    EXPECT_EQ(out.width(), 200);
}

TEST(FxScripts, ErrorsReachTheScriptWithNumberAndLine) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("p.jpg"), 40, 30);
    ScriptRun s;
    EXPECT_FALSE(s.run("fx.filename = \"" + dir.str("p.jpg") + "\"\nfx.Brightness 40000\n"));
    EXPECT_EQ(s.control.error().number, 6);
    EXPECT_EQ(s.control.error().line, 2);

    ScriptRun t;
    ASSERT_TRUE(t.run("On Error Resume Next\n"
                      "fx.filename = \"" +
                      dir.str("missing.jpg") +
                      "\"\n"
                      "fx.MsgDisplay Err.Number & \" \" & fx.ImagError\n"));
    ASSERT_EQ(t.fx.host.prompts.size(), 1u);
    EXPECT_EQ(vbs::toUtf8(t.fx.host.prompts[0]), "20001 20001");

    ScriptRun u;
    EXPECT_FALSE(u.run("fx.filename = \"" + dir.str("p.jpg") + "\"\nfx.SaveFileName = \"" +
                       dir.str("nowhere\\x.jpg") + "\"\nfx.SaveFile\n"));
    EXPECT_EQ(u.control.error().number, 20005);
    EXPECT_NE(vbs::toUtf8(u.control.error().description).find("folder not found"),
              std::string::npos);
}
