// The sample calls of every effect member.
#include "EffectSamples.h"

#include <algorithm>

#include "imaging/fx/Effects.h"

using vips::VImage;

namespace {

// Coordinates as fractions of the image, so a sample draws the same on any size.
struct Frame {
    int w, h;
    int x(double f) const { return int(f * w); }
    int y(double f) const { return int(f * h); }
    int pen() const { return std::max(1, w / 150); }
};

fx::DrawState drawState(const VImage& in, int fillStyle = 1) {
    fx::DrawState st;
    st.width = Frame{in.width(), in.height()}.pen();
    st.fillStyle = fillStyle;
    st.fillColor = fx::makeColour(255, 220, 0);
    return st;
}

std::vector<EffectSample> filterSamples() {
    return {
        {"AutoContrast", "AutoContrast", [](const VImage& i) { return fx::AutoContrast(i); }},
        {"Blur", "Blur", [](const VImage& i) { return fx::Blur(i); }},
        {"Soften", "Soften 8", [](const VImage& i) { return fx::Soften(i, 8); }},
        {"Sharpen", "Sharpen 100", [](const VImage& i) { return fx::Sharpen(i, 100); }},
        {"MBlur", "MBlur 30, 40, 100", [](const VImage& i) { return fx::MBlur(i, 30, 40, 100); }},
        {"Median", "Median", [](const VImage& i) { return fx::Median(i); }},
        {"Dilate", "Dilate", [](const VImage& i) { return fx::Dilate(i); }},
        {"Erode", "Erode", [](const VImage& i) { return fx::Erode(i); }},
        {"Diffuse", "Diffuse", [](const VImage& i) { return fx::Diffuse(i); }},
        {"Noise", "Noise 40, 1", [](const VImage& i) { return fx::Noise(i, 40, 1); }},
        {"Emboss", "Emboss", [](const VImage& i) { return fx::Emboss(i); }},
        {"Equalize", "Equalize", [](const VImage& i) { return fx::Equalize(i); }},
        {"Outline", "Outline", [](const VImage& i) { return fx::Outline(i); }},
        {"Posterize", "Posterize 4", [](const VImage& i) { return fx::Posterize(i, 4); }},
        {"Solarize", "Solarize 128", [](const VImage& i) { return fx::Solarize(i, 128); }},
        {"Mosaic", "Mosaic 12", [](const VImage& i) { return fx::Mosaic(i, 12); }},
        {"Buttonize", "Buttonize width/24, 0, 60",
         [](const VImage& i) { return fx::Buttonize(i, std::max(1, i.width() / 24), 0, 60); }},
        {"Blend", "Blend 100", [](const VImage& i) { return fx::Blend(i, 100); }},
        {"Matrix", "Matrix 0, 1, edge kernel",
         [](const VImage& i) {
             return fx::Matrix(i, {0, -1, 0, -1, 5, -1, 0, -1, 0}, 1, 0);
         }},
        {"ReplaceColors", "ReplaceColors sky to red",
         [](const VImage& i) {
             return fx::ReplaceColors(i, fx::makeColour(90, 120, 150),
                                      fx::makeColour(255, 255, 255), fx::makeColour(255, 0, 0));
         }},
        {"Parabolic", "Parabolic 100", [](const VImage& i) { return fx::Parabolic(i, 100); }},
    };
}

std::vector<EffectSample> distortionSamples() {
    return {
        {"Swirl", "Swirl 180", [](const VImage& i) { return fx::Swirl(i, 180); }},
        {"Twist", "Twist 90, width/4",
         [](const VImage& i) { return fx::Twist(i, 90, std::max(8, i.width() / 4)); }},
        {"Pinch", "Pinch 60", [](const VImage& i) { return fx::Pinch(i, 60); }},
        {"Ripple", "Ripple width/40, width/6, 0",
         [](const VImage& i) {
             return fx::Ripple(i, std::max(1, i.width() / 40), std::max(2, i.width() / 6), 0);
         }},
        {"Perspective", "Perspective 0, 40",
         [](const VImage& i) { return fx::Perspective(i, 0, 40); }},
        {"PWarp", "PWarp corners moved",
         [](const VImage& i) {
             Frame f{i.width(), i.height()};
             return fx::PWarp(i, {fx::Point{double(f.x(0.1)), double(f.y(0.05))},
                                  fx::Point{double(f.x(0.95)), double(f.y(0.2))},
                                  fx::Point{double(f.x(0.8)), double(f.y(0.95))},
                                  fx::Point{double(f.x(0.0)), double(f.y(0.8))}});
         }},
    };
}

std::vector<EffectSample> drawingSamples() {
    const fx::Colour red = fx::makeColour(230, 20, 20);
    return {
        {"DrawLine", "DrawLine + box",
         [red](const VImage& i) {
             Frame f{i.width(), i.height()};
             fx::DrawState st = drawState(i);
             VImage out = fx::DrawLine(i, st, f.x(0.05), f.y(0.9), f.x(0.95), f.y(0.1), red);
             st.style = int(fx::LineStyleCode::Dash);
             return fx::DrawLine(out, st, f.x(0.2), f.y(0.2), f.x(0.5), f.y(0.6), 0xFFFFFF, true);
         }},
        {"DrawCircle", "DrawCircle, solid fill",
         [red](const VImage& i) {
             Frame f{i.width(), i.height()};
             return fx::DrawCircle(i, drawState(i, 0), f.x(0.5), f.y(0.5), f.y(0.35), red, 0.8);
         }},
        {"DrawArc", "DrawArc 0 to 270",
         [red](const VImage& i) {
             Frame f{i.width(), i.height()};
             return fx::DrawArc(i, drawState(i), f.x(0.2), f.y(0.1), f.x(0.8), f.y(0.9), 0, 270,
                                red);
         }},
        {"DrawPie", "DrawPie 30 to 300, hatch",
         [red](const VImage& i) {
             Frame f{i.width(), i.height()};
             return fx::DrawPie(i, drawState(i, 6), f.x(0.2), f.y(0.1), f.x(0.8), f.y(0.9), 30, 300,
                                red);
         }},
        {"DrawRoundRect", "DrawRoundRect, xor mode",
         [red](const VImage& i) {
             Frame f{i.width(), i.height()};
             fx::DrawState st = drawState(i, 0);
             st.mode = int(fx::DrawModeCode::XorPen);
             st.fillColor = 0xFFFFFF;
             return fx::DrawRoundRect(i, st, f.x(0.15), f.y(0.15), f.x(0.85), f.y(0.85), f.x(0.2),
                                      f.x(0.2), red);
         }},
        {"DrawCurve", "DrawCurve",
         [red](const VImage& i) {
             Frame f{i.width(), i.height()};
             fx::DrawState st = drawState(i);
             st.width *= 2;
             auto p = [&](double a, double b) { return fx::Point{double(f.x(a)), double(f.y(b))}; };
             return fx::DrawCurve(i, st, p(0.05, 0.9), p(0.2, -0.3), p(0.8, 1.3), p(0.95, 0.1),
                                  red);
         }},
        {"DrawPolygon", "DrawPolygon 5 points",
         [red](const VImage& i) {
             Frame f{i.width(), i.height()};
             auto p = [&](double a, double b) { return fx::Point{double(f.x(a)), double(f.y(b))}; };
             return fx::DrawPolygon(
                 i, drawState(i, 4),
                 {p(0.5, 0.05), p(0.9, 0.4), p(0.75, 0.95), p(0.25, 0.95), p(0.1, 0.4)}, red);
         }},
        {"DrawText", "DrawText, bold underline",
         [](const VImage& i) {
             Frame f{i.width(), i.height()};
             fx::DrawState st = drawState(i);
             st.font = {"DejaVu Sans", std::max(6, i.height() / 12), false, true, true, false};
             return fx::DrawText(i, st, f.x(0.05), f.y(0.35), "Vantorel\nfx.DrawText", 0xFFFFFF);
         }},
    };
}

} // namespace

std::vector<EffectSample> effectSamples(const VImage& clipboard) {
    std::vector<EffectSample> all = filterSamples();
    for (auto& s : distortionSamples())
        all.push_back(std::move(s));
    for (auto& s : drawingSamples())
        all.push_back(std::move(s));
    all.push_back({"Area", "Area + Swirl 360", [](const VImage& i) {
                       fx::AreaRect r{i.width() / 4, i.height() / 4, i.width() / 2, i.height() / 2};
                       return fx::applyInArea(i, r,
                                              [](const VImage& a) { return fx::Swirl(a, 360); });
                   }});
    auto merge = [clipboard](int size, int high, int low) {
        return [=](const VImage& i) {
            fx::MergeOptions o;
            o.size = size;
            o.highPercent = high;
            o.lowPercent = low;
            return fx::Merge(i, clipboard, o);
        };
    };
    all.push_back({"Merge", "Merge centred, 100..70%", merge(int(fx::MergeSize::Centre), 100, 70)});
    all.push_back(
        {"Merge", "Merge stretched, 60..20%", merge(int(fx::MergeSize::Stretch), 60, 20)});
    return all;
}
