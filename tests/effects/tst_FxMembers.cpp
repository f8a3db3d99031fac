// The fx member table and dispatch: order and coverage, kinds, argument conversions and errors.
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "FxDriver.h"
#include "ImagingTestSupport.h"
#include "effects/FxConvert.h"

using testsupport::TempDir;

namespace {

// The fixed dispatch order; a name ending in "+" takes two entries (read, then write).
const char* const kOrder =
    "Init Colorize ResizePercent ResizeAspect PrinterTop+ PrinterWidth+ PageNbr+ BackColor+ "
    "SavePNGInterlaced+ SavePPMType+ SaveTIFCompression+ PrinterhDC+ PrinterHeight+ PrinterLeft+ "
    "SaveJPGProgressive+ SaveJPGSubSampling+ SaveLJPCompMethod+ SaveLJPCompType+ "
    "SaveLJPPrediction+ SaveMultiPage+ SaveGIFType+ SaveJPGGrayscale+ SaveJPGLumFactor+ "
    "SaveJPGChromFactor+ SaveFileName+ SaveFileNameAddPrefix SaveFileNameExtension "
    "SaveGIFInterlaced+ SaveGIFTColor+ SaveGIFTransparent+ Font PICPassword SaveFile Copy Paste "
    "Undo MsgDisplay filename+ SaveFileType+ AutoContrast Blur Diffuse Dilate Emboss Equalize "
    "Erode Flip Median Mirror Negate Outline Brightness Blend Buttonize AdjustHSL DrawText "
    "AdjustRGB ColorDepth Crop AutoCrop Matrix Mosaic Posterize ReplaceColors Sharpen Rotate "
    "Soften Solarize Resample Resize Swirl Twist CropBorder Tile MBlur Ripple DrawCircle "
    "DrawCurve DrawPolygon DrawPie DrawLine DrawRoundRect DrawArc Area Merge PWarp CaptureWindow "
    "DrawMode DrawFillColor DrawFillStyle Gamma DrawStyle DrawWidth Noise Parabolic Perspective "
    "PICResize Pinch Picture UniqueColors NumPages IBPP IFileSize IFormat IHeight ImagError "
    "ImagHeight ImagWidth IPAdjustBlue IPAdjustGreen IPAdjustRed IPAdjustHue IPAdjustLum "
    "IPAdjustSat IPAdjustType IPArea IPAreaHeight IPAreaWidth IPAreaX IPAreaY hWnd SavePBMType+ "
    "SavePGMType+ ColorSeparation";

} // namespace

TEST(FxMembers, TableHoldsThe152EntriesInOrder) {
    std::vector<std::pair<std::string, bool>> expected;
    std::istringstream words(kOrder);
    for (std::string entry; words >> entry;) {
        bool rw = entry.back() == '+';
        expected.emplace_back(rw ? entry.substr(0, entry.size() - 1) : entry, rw);
    }
    auto table = fx::memberTable();
    ASSERT_EQ(table.size(), 152u);
    std::set<std::u16string> names;
    size_t k = 0;
    for (const auto& [name, rw] : expected) {
        ASSERT_LT(k, table.size());
        EXPECT_EQ(vbs::toUtf8(table[k].name), name) << "entry " << k;
        names.insert(std::u16string(table[k].name));
        if (rw) {
            EXPECT_EQ(table[k].kind, fx::MemberKind::Get) << name;
            ASSERT_LT(k + 1, table.size());
            EXPECT_EQ(vbs::toUtf8(table[k + 1].name), name);
            EXPECT_EQ(table[k + 1].kind, fx::MemberKind::Let) << name;
            k += 2;
        } else {
            k += 1;
        }
    }
    EXPECT_EQ(k, 152u);
    EXPECT_EQ(names.size(), 124u);
    for (const auto& m : table) {
        EXPECT_FALSE(m.description.empty()) << vbs::toUtf8(m.name);
        if (m.kind == fx::MemberKind::Get) {
            EXPECT_NE(m.result, '-') << vbs::toUtf8(m.name);
        }
    }
}

TEST(FxMembers, NamesAreCaseInsensitive) {
    FxDriver d;
    EXPECT_EQ(d.fx->memberId(u"savefilename"), d.fx->memberId(u"SaveFileName"));
    EXPECT_EQ(d.fx->memberId(u"FILENAME"), d.fx->memberId(u"filename"));
    EXPECT_EQ(d.fx->memberId(u"NoSuchMember"), -1);
    d.let(u"savefilename", S("x.jpg"));
    EXPECT_EQ(d.str(u"SAVEFILENAME"), "x.jpg");
}

TEST(FxMembers, ArgumentConversionsAndTheirErrors) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("a.jpg"), 40, 30);
    FxDriver d;
    d.load(dir.str("a.jpg"));
    EXPECT_EQ(d.errorOf([&] { d.call(u"Brightness", {L(40000)}); }), 6);
    EXPECT_EQ(d.errorOf([&] { d.call(u"Rotate", {vbs::Value(40000.0)}); }), 6);
    EXPECT_EQ(d.errorOf([&] { d.let(u"SaveJPGLumFactor", L(40000)); }), 6);
    EXPECT_EQ(d.errorOf([&] { d.call(u"Brightness", {S("abc")}); }), 13);
    EXPECT_EQ(d.errorOf([&] { d.call(u"Resize", {I(10)}); }), 450);
    EXPECT_EQ(d.errorOf([&] { d.call(u"Resize", {I(10), vbs::Value::missing()}); }), 449);
    EXPECT_EQ(d.errorOf([&] { d.let(u"IBPP", I(8)); }), 450);
    EXPECT_EQ(d.errorOf([&] { d.call(u"Resize", {S("20"), vbs::Value(15.4)}); }), 0);
    EXPECT_EQ(d.width(), 20);
    EXPECT_EQ(d.height(), 15);
    // A set-only member may be written as a one-argument statement too.
    d.call(u"DrawWidth", {L(3)});
    EXPECT_EQ(d.control->drawState().drawWidth, 3);
    d.let(u"DrawFillColor", vbs::Value(255.0));
    EXPECT_EQ(d.control->drawState().drawFillColor, 255);
    d.let(u"DrawMode", I(6));
    EXPECT_EQ(d.control->drawState().drawMode, 6);
}

// Every plain method has its operation now (PlainMethodsMatchTheControlsOperations); the
// control's 445 for one it lacks reaches the script naming the member.
TEST(FxMembers, UnimplementedMembersRaise445NamingTheMember) {
    try {
        fx::raiseFromImaging(
            imaging::ImagingError(imaging::ErrorCode::ActionNotSupported, "'Blur'"), u"Blur");
        FAIL();
    } catch (const vbs::ScriptError& e) {
        EXPECT_EQ(e.number, 445);
        EXPECT_EQ(vbs::toUtf8(e.description), "Object doesn't support this action: 'Blur'");
        EXPECT_EQ(e.source, u"fx.Blur");
    }
}

// Before Init every member reports the missing control (91).
TEST(FxMembers, InitThroughTheDispatchTakesAControlObject) {
    auto control = std::make_shared<imaging::ImagingControl>();
    auto fx = vbs::makeRef<clsVTEffects>();
    std::vector<vbs::Value*> none;
    try {
        fx->invoke(fx->memberId(u"Flip"), vbs::InvokeKind::Method, none);
        FAIL();
    } catch (const vbs::ScriptError& e) {
        EXPECT_EQ(e.number, 91);
    }
    vbs::Value ref(vbs::makeRef<clsImagingControlRef>(control));
    std::vector<vbs::Value*> args{&ref};
    fx->invoke(fx->memberId(u"Init"), vbs::InvokeKind::Method, args);
    EXPECT_EQ(std::get<bool>(control->property("UndoEnabled")), true);
    vbs::Value notAControl(int32_t(5));
    std::vector<vbs::Value*> bad{&notAControl};
    EXPECT_THROW(fx->invoke(fx->memberId(u"Init"), vbs::InvokeKind::Method, bad), vbs::ScriptError);
}

TEST(FxMembers, MsgDisplayShowsAnInfoBox) {
    FxDriver d;
    d.call(u"MsgDisplay", {S("Done: 3 photos")});
    ASSERT_EQ(d.host.titles.size(), 1u);
    EXPECT_EQ(d.host.titles[0], u"Info");
    EXPECT_EQ(d.host.prompts[0], u"Done: 3 photos");
    EXPECT_EQ(d.host.lastButtons, 64); // OK button, information icon
}

TEST(FxMembers, PictureAndStoredProperties) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("a.jpg"), 40, 30);
    FxDriver d;
    d.load(dir.str("a.jpg"));
    vbs::Value pic = d.get(u"Picture");
    vbs::Dispatch* p = pic.toDispatch();
    std::vector<vbs::Value*> none;
    EXPECT_EQ(p->invoke(p->memberId(u"Width"), vbs::InvokeKind::PropertyGet, none).toLong(), 40);
    for (const char16_t* name :
         {u"PrinterTop", u"PrinterWidth", u"PrinterhDC", u"PrinterHeight", u"PrinterLeft"}) {
        d.let(name, L(1440));
        EXPECT_EQ(d.get(name).toLong(), 1440);
    }
    d.let(u"PICPassword", S("secret"));
    EXPECT_EQ(d.get(u"hWnd").toLong(), 0);
    EXPECT_EQ(d.get(u"IPArea").toBoolean(), false);
    EXPECT_EQ(d.get(u"IBPP").type(), vbs::VarType::Integer);
    EXPECT_EQ(d.get(u"SaveJPGProgressive").type(), vbs::VarType::Boolean);
    d.call(u"Font", {S("DejaVu Sans"), L(20), vbs::Value(true), vbs::Value(false), vbs::Value(true),
                     vbs::Value(false)});
    const auto& font = d.control->drawState().font;
    EXPECT_EQ(font.name, "DejaVu Sans");
    EXPECT_EQ(font.size, 20);
    EXPECT_TRUE(font.italic);
    EXPECT_FALSE(font.bold);
    EXPECT_TRUE(font.underline);
    EXPECT_FALSE(font.strikethrough);
}

namespace {

// Records the control operations a member calls, with their arguments as integers.
struct CallLog {
    std::vector<std::pair<std::string, std::vector<int>>> calls;
    void attach(imaging::ImagingControl& c) {
        c.setInvokeObserver([this](std::string_view name, std::span<const imaging::Arg> args) {
            std::vector<int> values;
            for (const auto& a : args)
                values.push_back(std::holds_alternative<int32_t>(a) ? std::get<int32_t>(a) : -9999);
            calls.emplace_back(std::string(name), values);
        });
    }
};

} // namespace

TEST(FxMembers, MembersWithLogicCallTheControlInTheRequiredOrder) {
    TempDir dir;
    testsupport::writeJpeg(dir.str("a.jpg"), 400, 300);
    FxDriver d;
    d.load(dir.str("a.jpg"));
    CallLog log;
    log.attach(*d.control);
    d.errorOf([&] {
        d.call(u"Matrix",
               {I(1), I(2), I(11), I(12), I(13), I(14), I(15), I(16), I(17), I(18), I(19)});
    });
    ASSERT_GE(log.calls.size(), 1u);
    EXPECT_EQ(log.calls[0].first, "Matrix");
    EXPECT_EQ(log.calls[0].second, (std::vector<int>{11, 12, 13, 14, 15, 16, 17, 18, 19, 2, 1}));

    log.calls.clear();
    d.call(u"Colorize", {L(0x00FF8040)}); // red 0x40, green 0x80, blue 0xFF
    ASSERT_EQ(log.calls.size(), 2u);
    EXPECT_EQ(log.calls[0], (std::pair<std::string, std::vector<int>>{"AdjustHSL", {0, -100, 0}}));
    EXPECT_EQ(log.calls[1],
              (std::pair<std::string, std::vector<int>>{"AdjustRGB", {1, 0x40, 0x80, 0xFF}}));

    log.calls.clear();
    d.call(u"ResizeAspect", {L(500), L(200), vbs::Value(false)});
    ASSERT_EQ(log.calls.size(), 1u);
    EXPECT_EQ(log.calls[0], (std::pair<std::string, std::vector<int>>{"PICResize", {267, 200}}));

    log.calls.clear();
    d.call(u"ColorSeparation", {I(12)});
    ASSERT_EQ(log.calls.size(), 1u);
    EXPECT_EQ(log.calls[0], (std::pair<std::string, std::vector<int>>{"ColorSeparation", {3}}));
}

TEST(FxMembers, PlainMethodsMatchTheControlsOperations) {
    for (const auto& m : fx::memberTable()) {
        if (m.kind != fx::MemberKind::Method || m.handler) continue;
        const imaging::OperationDef* op = imaging::findOperation(vbs::toUtf8(m.name));
        ASSERT_NE(op, nullptr) << vbs::toUtf8(m.name);
        EXPECT_EQ(op->params.size(), m.args.size()) << vbs::toUtf8(m.name);
        EXPECT_EQ(fx::description(m), op->description);
    }
    auto find = [](std::u16string_view name) {
        for (const auto& m : fx::memberTable())
            if (m.name == name) return &m;
        return static_cast<const fx::MemberDef*>(nullptr);
    };
    EXPECT_EQ(fx::argumentNames(*find(u"Resize")), "width, height");
    EXPECT_EQ(fx::argumentNames(*find(u"AutoCrop")), "tolerance, [color], [margin]");
    EXPECT_EQ(fx::argumentNames(*find(u"ResizeAspect")), "maxWidth, maxHeight, allowEnlarge");
}
