// The effects reached through the imaging control by name, as the fx object calls them:
// every member registered, arguments checked and ordered, errors mapped, Area and Merge wired.
#include <algorithm>
#include <random>

#include "imaging/ImagingControl.h"
#include "imaging/fx/Effects.h"
#include "imaging/fx/FxOperations.h"

#include "FxTestSupport.h"

using namespace fxtest;
using imaging::Arg;
using imaging::ErrorCode;
using imaging::ImagingControl;
using imaging::ImagingError;
using imaging::Missing;
using vips::VImage;

namespace {

void invoke(ImagingControl& c, std::string_view op, const std::vector<Arg>& args = {}) {
    c.invoke(op, args);
}

std::vector<Arg> ints(std::initializer_list<int32_t> values) {
    return std::vector<Arg>(values.begin(), values.end());
}

void expectError(ImagingControl& c, std::string_view op, const std::vector<Arg>& args,
                 ErrorCode code, const std::string& fragment) {
    try {
        c.invoke(op, args);
        ADD_FAILURE() << op << " succeeded";
    } catch (const ImagingError& e) {
        EXPECT_EQ(e.code(), code) << e.what();
        EXPECT_NE(std::string(e.what()).find(fragment), std::string::npos) << e.what();
        EXPECT_EQ(c.lastError(), e.number());
    }
}

} // namespace

TEST(ControlOperations, EveryEffectMemberIsAnOperation) {
    for (const auto& m : fx::effectCatalogue()) {
        if (m.family == "Drawing state")
            continue; // DrawMode ... Font are properties of the control
        const imaging::OperationDef* op = imaging::findOperation(m.name);
        ASSERT_NE(op, nullptr) << m.name;
        EXPECT_EQ(op->description, m.description);
    }
    EXPECT_EQ(imaging::findOperation("Matrix")->params.size(), 11u);
    EXPECT_EQ(imaging::findOperation("DrawPolygon")->params.size(), 13u);
}

TEST(ControlOperations, EffectsChangeTheCurrentImage) {
    ImagingControl c;
    c.setImage(photo());
    invoke(c, "posterize", ints({2}));
    EXPECT_EQ(c.image().extract_band(0).hist_find().crop(1, 0, 254, 1).max(), 0);
    c.setImage(photo());
    invoke(c, "Swirl", ints({90}));
    EXPECT_GT(maxDiff(c.image(), photo()), 20);
    c.setImage(photo());
    invoke(c, "Blur");
    EXPECT_LT(detailX(c.image()), detailX(photo()));
}

TEST(ControlOperations, WarpsFillWithBackColor) {
    ImagingControl c;
    c.setImage(photo());
    c.setProperty("BackColor", int32_t(fx::makeColour(0, 0, 255)));
    invoke(c, "Perspective", ints({0, 50}));
    EXPECT_EQ(pixel(c.image(), 1, 1), (std::vector<double>{0, 0, 255}));
}

TEST(ControlOperations, MatrixTakesKernelThenDivisorThenBias) {
    ImagingControl c;
    c.setImage(flat(20, 10, 100, 100, 100));
    // The fx object passes the script's "Matrix 10, 2, 0,0,0, 0,1,0, 0,0,0" as kernel, 2, 10.
    invoke(c, "Matrix", ints({0, 0, 0, 0, 1, 0, 0, 0, 0, 2, 10}));
    EXPECT_EQ(c.image().avg(), 60);
}

TEST(ControlOperations, ErrorsBecomeImagingErrors) {
    ImagingControl c;
    c.setImage(photo());
    expectError(c, "Posterize", ints({1}), ErrorCode::ArgumentOutOfRange, "Posterize");
    // Each effect's own messages are checked with the effect (Filters, Adjustments, ...).
    expectError(c, "DrawPolygon", {0, 0, 10, 10, 20, Missing{}}, ErrorCode::ArgumentOutOfRange,
                "pairs");
    // What cannot be done here (a capture without a display) is a failed operation.
    const char* display = std::getenv("DISPLAY");
    std::string saved = display ? display : "";
    unsetenv("DISPLAY");
    expectError(c, "CaptureWindow", ints({0}), ErrorCode::ProcessingFailed,
                fx::captureSupported() ? "no X11 display" : "not available in this build");
    if (display) setenv("DISPLAY", saved.c_str(), 1);
}

TEST(ControlOperations, DrawingUsesTheControlsDrawState) {
    ImagingControl c;
    c.setImage(flat(100, 80, 128, 128, 128));
    c.drawState().drawFillStyle = 0;
    c.drawState().drawFillColor = fx::makeColour(0, 0, 255);
    c.drawState().drawWidth = 3;
    invoke(c, "DrawCircle", ints({50, 40, 20, 255}));
    EXPECT_EQ(pixel(c.image(), 50, 40), (std::vector<double>{0, 0, 255}));
    EXPECT_EQ(pixel(c.image(), 70, 40), (std::vector<double>{255, 0, 0}));
    invoke(c, "DrawPolygon",
           {10, 70, 30, 70, 20, 60, Missing{}, Missing{}, Missing{}, Missing{}, Missing{},
            Missing{}, int32_t(0xFFFFFF)});
    EXPECT_EQ(pixel(c.image(), 20, 68), (std::vector<double>{0, 0, 255}));
    invoke(c, "DrawText", {5, 5, std::string("Hi"), int32_t(0)});
    EXPECT_LT(c.image().crop(5, 5, 20, 20).min(), 60);
}

TEST(ControlOperations, AreaLimitsLaterEffects) {
    ImagingControl c;
    c.setImage(photo());
    invoke(c, "Area", {true, 20, 20, 100, 60});
    EXPECT_TRUE(c.area().enabled);
    invoke(c, "Solarize", ints({0}));
    EXPECT_EQ(maxDiff(c.image().crop(0, 90, 240, 70), photo().crop(0, 90, 240, 70)), 0);
    EXPECT_GT(maxDiff(c.image().crop(20, 20, 100, 60), photo().crop(20, 20, 100, 60)), 100);
    invoke(c, "Area", {false});
    EXPECT_FALSE(c.area().enabled);
    invoke(c, "Area", {true, 200});
    EXPECT_EQ(c.area().width, 40); // the rest of the width
    expectError(c, "Area", {true, 300, 0, 10, 10}, ErrorCode::ArgumentOutOfRange,
                "lies outside the 240x160 image");
}

TEST(ControlOperations, MergeCombinesTheClipboard) {
    ImagingControl c;
    c.setImage(flat(40, 30, 200, 200, 200));
    c.copyToClipboard();
    c.setImage(flat(40, 30, 100, 100, 100));
    invoke(c, "Merge", {false});
    EXPECT_EQ(c.image().avg(), 100);
    invoke(c, "Merge", {true, 0, 0, false, 0, 50, 50});
    EXPECT_EQ(c.image().avg(), 150);
    // With the area on, the clipboard's top left lands on the area's top left.
    c.setImage(flat(40, 30, 100, 100, 100));
    invoke(c, "Area", {true, 10, 10, 5, 5});
    invoke(c, "Merge", {true});
    EXPECT_EQ(c.image().crop(10, 10, 5, 5).avg(), 200);
    EXPECT_EQ(c.image().crop(0, 0, 40, 10).avg(), 100);
}

// Every effect operation with arguments at, inside and beyond the ends of their ranges: each
// call either works, keeping the size, or raises ImagingError; nothing else escapes.
TEST(ControlOperations, ArgumentsAtAndBeyondTheirRangesNeverEscapeRaw) {
    std::mt19937 random(7);
    const Arg text = std::string("Ab");
    ImagingControl c;
    c.setImage(photo().crop(0, 0, 48, 32).copy_memory());
    c.copyToClipboard();
    for (const imaging::OperationDef& op : imaging::fx::operationTable()) {
        if (op.name == "CaptureWindow") continue; // depends on the machine's display
        for (int round = 0; round < 25; ++round) {
            std::vector<Arg> args;
            for (const imaging::ParamDef& p : op.params) {
                double lo = std::max(p.min, -40000.0), hi = std::min(p.max, 40000.0);
                double pick[] = {lo, hi, lo + (hi - lo) * (random() % 1000) / 1000.0, lo - 1,
                                 hi + 1};
                double v = pick[random() % 5];
                if (p.type == imaging::ParamType::Bool)
                    args.emplace_back(std::in_place_type<bool>, random() % 2 == 0);
                else if (p.type == imaging::ParamType::String)
                    args.push_back(text);
                else if (p.type == imaging::ParamType::Double)
                    args.emplace_back(std::in_place_type<double>, v);
                else
                    args.emplace_back(std::in_place_type<int32_t>,
                                      int32_t(std::clamp(v, -2147483648.0, 2147483647.0)));
            }
            c.setImage(photo().crop(0, 0, 48, 32).copy_memory());
            c.area().enabled = false;
            try {
                c.invoke(op.name, args);
                EXPECT_EQ(c.image().width(), 48) << op.name;
                EXPECT_NO_THROW(c.image().avg()) << op.name;
            } catch (const ImagingError&) {
            } catch (const std::exception& e) {
                ADD_FAILURE() << op.name << ": " << e.what();
            }
        }
    }
}
