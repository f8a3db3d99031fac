// The effects as scripts reach them: through the fx object's dispatch, with script values,
// into the imaging control and on to the effect functions.
#include "effects/clsVTEffects.h"
#include "imaging/ImagingControl.h"
#include "vbscript/ScriptError.h"
#include "vbscript/Text.h"

#include "FxTestSupport.h"

using namespace fxtest;
using vips::VImage;

namespace {

class FxObject {
public:
    FxObject()
        : control(std::make_shared<imaging::ImagingControl>()), fx(vbs::makeRef<clsVTEffects>()) {
        fx->Init(control);
    }
    vbs::Value run(std::u16string_view name, vbs::InvokeKind kind, std::vector<vbs::Value> args) {
        int id = fx->memberId(name);
        if (id < 0) throw std::runtime_error("no member");
        std::vector<vbs::Value*> refs;
        for (auto& a : args)
            refs.push_back(&a);
        return fx->invoke(id, kind, refs);
    }
    void call(std::u16string_view name, std::vector<vbs::Value> args = {}) {
        run(name, vbs::InvokeKind::Method, std::move(args));
    }
    void let(std::u16string_view name, vbs::Value value) {
        run(name, vbs::InvokeKind::PropertyLet, {std::move(value)});
    }
    // The script error a call raises: number and description.
    std::pair<int, std::string> errorOf(std::u16string_view name, std::vector<vbs::Value> args) {
        try {
            call(name, std::move(args));
        } catch (const vbs::ScriptError& e) {
            return {e.number, vbs::toUtf8(e.description)};
        }
        return {0, ""};
    }
    const VImage& image() { return control->image(); }

    std::shared_ptr<imaging::ImagingControl> control;
    vbs::Ref<clsVTEffects> fx;
};

vbs::Value I(int v) {
    return vbs::Value(int16_t(v));
}
vbs::Value L(int v) {
    return vbs::Value(int32_t(v));
}
vbs::Value B(bool v) {
    return vbs::Value(v);
}
vbs::Value S(const char* s) {
    return vbs::Value(vbs::fromUtf8(s));
}

} // namespace

TEST(FxObject, ScriptCallsReachTheEffects) {
    FxObject o;
    o.control->setImage(photo());
    o.call(u"Swirl", {I(180)});
    EXPECT_GT(maxDiff(o.image(), photo()), 20);
    o.control->setImage(photo());
    o.call(u"blur");
    EXPECT_LT(detailX(o.image()), detailX(photo()));
}

TEST(FxObject, MatrixScriptOrderIsBiasDivisorKernel) {
    FxObject o;
    o.control->setImage(flat(20, 10, 100, 100, 100));
    o.call(u"Matrix", {I(10), I(2), I(0), I(0), I(0), I(0), I(1), I(0), I(0), I(0), I(0)});
    EXPECT_EQ(o.image().avg(), 60);
}

TEST(FxObject, DrawingStateAndFontComeFromTheScript) {
    FxObject o;
    o.control->setImage(flat(200, 80, 128, 128, 128));
    o.let(u"DrawMode", I(6)); // invert
    o.let(u"DrawWidth", L(3));
    o.call(u"DrawLine", {I(10), I(40), I(190), I(40)});
    EXPECT_EQ(pixel(o.image(), 100, 40), (std::vector<double>{127, 127, 127}));
    o.let(u"DrawMode", I(13));
    o.call(u"Font", {S("DejaVu Sans"), L(30), B(false), B(true), B(false), B(false)});
    o.call(u"DrawText", {I(10), I(5), S("Wide"), L(0xFF0000)}); // blue
    VImage ink = o.image().crop(10, 5, 100, 35);
    EXPECT_EQ(ink.extract_band(2).max(), 255);
    EXPECT_LT(ink.extract_band(0).min(), 10);
}

TEST(FxObject, AreaMergeAndErrorsAsScriptsSeeThem) {
    FxObject o;
    o.control->setImage(photo());
    o.call(u"Area", {B(true), I(20), I(20), I(100), I(60)});
    o.call(u"Solarize", {I(0)});
    EXPECT_EQ(maxDiff(o.image().crop(0, 90, 240, 70), photo().crop(0, 90, 240, 70)), 0);
    o.call(u"Area", {B(false)});
    o.control->setImage(flat(40, 30, 200, 200, 200));
    o.call(u"Copy");
    o.control->setImage(flat(40, 30, 100, 100, 100));
    o.call(u"Merge", {B(true), I(0), I(0), B(false), L(0), I(50), I(50)});
    EXPECT_EQ(o.image().avg(), 150);
    auto [number, text] = o.errorOf(u"Posterize", {I(1)});
    EXPECT_EQ(number, 20008);
    EXPECT_NE(text.find("Posterize"), std::string::npos) << text;
    std::tie(number, text) = o.errorOf(u"PWarp", {I(0), I(0), I(0), I(0), I(0), I(0), I(0), I(0)});
    EXPECT_EQ(number, 20008);
    EXPECT_NE(text.find("convex quadrilateral"), std::string::npos) << text;
}
