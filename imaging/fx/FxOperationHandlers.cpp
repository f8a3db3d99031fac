// Handlers of the effect operations: checked arguments in, effect called, FxError mapped to the
// control's ImagingError. Argument indices follow the operation's parameters (the effect table,
// with Matrix's kernel and DrawPolygon's extra points spread out).
#include "imaging/fx/FxOperationHandlers.h"

#include <array>

#include "imaging/ImagingControl.h"
#include "imaging/fx/Effects.h"

namespace imaging::fx {

namespace {

using vips::VImage;

[[noreturn]] void rethrow(const ::fx::FxError& e) {
    fail(e.kind() == ::fx::FxErrorKind::BadArgument ? ErrorCode::ArgumentOutOfRange
                                                    : ErrorCode::ProcessingFailed,
         e.what());
}

template <ApplyFn F> VImage mapped(const VImage& in, const OpArgs& a, const OpContext& ctx) {
    try {
        return F(in, a, ctx);
    } catch (const ::fx::FxError& e) {
        rethrow(e);
    }
}

template <RunFn F> void mappedRun(ImagingControl& c, const OpArgs& a) {
    try {
        F(c, a);
    } catch (const ::fx::FxError& e) {
        rethrow(e);
    }
}

::fx::DrawState drawState(const OpContext& ctx) {
    const DrawState& d = ctx.draw;
    ::fx::DrawState st;
    st.mode = d.drawMode;
    st.fillColor = d.drawFillColor;
    st.fillStyle = d.drawFillStyle;
    st.style = d.drawStyle;
    st.width = d.drawWidth;
    st.font = {d.font.name, d.font.size,      d.font.italic,
               d.font.bold, d.font.underline, d.font.strikethrough};
    return st;
}

::fx::Point point(const OpArgs& a, size_t k) {
    return {double(a.i(k)), double(a.i(k + 1))};
}

#define FX_APPLY(name, call)                                                                       \
    VImage name(const VImage& in, const OpArgs& a, const OpContext& ctx) {                         \
        (void)a;                                                                                   \
        (void)ctx;                                                                                 \
        return call;                                                                               \
    }

FX_APPLY(autoContrast, ::fx::AutoContrast(in))
FX_APPLY(blur, ::fx::Blur(in))
FX_APPLY(soften, ::fx::Soften(in, a.i(0)))
FX_APPLY(sharpen, ::fx::Sharpen(in, a.i(0)))
FX_APPLY(mBlur, ::fx::MBlur(in, a.i(0), a.i(1), a.i(2)))
FX_APPLY(median, ::fx::Median(in))
FX_APPLY(dilate, ::fx::Dilate(in))
FX_APPLY(erode, ::fx::Erode(in))
FX_APPLY(diffuse, ::fx::Diffuse(in))
FX_APPLY(noise, ::fx::Noise(in, a.i(0), a.i(1)))
FX_APPLY(emboss, ::fx::Emboss(in))
FX_APPLY(equalize, ::fx::Equalize(in))
FX_APPLY(outline, ::fx::Outline(in))
FX_APPLY(posterize, ::fx::Posterize(in, a.i(0)))
FX_APPLY(solarize, ::fx::Solarize(in, a.i(0)))
FX_APPLY(mosaic, ::fx::Mosaic(in, a.i(0)))
FX_APPLY(buttonize, ::fx::Buttonize(in, a.i(0), a.i(1), a.i(2)))
FX_APPLY(blend, ::fx::Blend(in, a.i(0)))
FX_APPLY(replaceColors, ::fx::ReplaceColors(in, a.i(0), a.i(1), a.i(2)))
FX_APPLY(parabolic, ::fx::Parabolic(in, a.i(0)))
FX_APPLY(swirl, ::fx::Swirl(in, a.d(0)))
FX_APPLY(twist, ::fx::Twist(in, a.i(0), a.i(1)))
FX_APPLY(pinch, ::fx::Pinch(in, a.i(0)))
FX_APPLY(ripple, ::fx::Ripple(in, a.i(0), a.i(1), a.i(2)))
FX_APPLY(perspective, ::fx::Perspective(in, a.i(0), a.i(1), ctx.backColor))
FX_APPLY(pWarp,
         ::fx::PWarp(in, {point(a, 0), point(a, 2), point(a, 4), point(a, 6)}, ctx.backColor))
FX_APPLY(drawLine,
         ::fx::DrawLine(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.i(4), a.b(5), a.b(6)))
FX_APPLY(drawCircle, ::fx::DrawCircle(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.d(4)))
FX_APPLY(drawArc,
         ::fx::DrawArc(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.i(4), a.i(5), a.i(6)))
FX_APPLY(drawPie,
         ::fx::DrawPie(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3), a.i(4), a.i(5), a.i(6)))
FX_APPLY(drawRoundRect, ::fx::DrawRoundRect(in, drawState(ctx), a.i(0), a.i(1), a.i(2), a.i(3),
                                            a.i(4), a.i(5), a.i(6)))
FX_APPLY(drawCurve, ::fx::DrawCurve(in, drawState(ctx), point(a, 0), point(a, 2), point(a, 4),
                                    point(a, 6), a.i(8)))
FX_APPLY(drawText, ::fx::DrawText(in, drawState(ctx), a.i(0), a.i(1), a.s(2), a.i(3)))

#undef FX_APPLY

// Script order: bias, divisor, m1..m9; the fx object hands them on as m1..m9, divisor, bias.
VImage matrix(const VImage& in, const OpArgs& a, const OpContext&) {
    std::array<int, 9> kernel;
    for (size_t k = 0; k < 9; ++k)
        kernel[k] = a.i(k);
    return ::fx::Matrix(in, kernel, a.i(9), a.i(10));
}

// Points 3 to 6 count when given, in pairs; the colour is the last argument.
VImage drawPolygon(const VImage& in, const OpArgs& a, const OpContext& ctx) {
    std::vector<::fx::Point> points{point(a, 0), point(a, 2)};
    for (size_t k = 4; k < 12; k += 2) {
        if (a.given(k) != a.given(k + 1))
            fail(ErrorCode::ArgumentOutOfRange, "DrawPolygon: points come in x, y pairs");
        if (a.given(k)) points.push_back(point(a, k));
    }
    return ::fx::DrawPolygon(in, drawState(ctx), points, a.i(12));
}

void area(ImagingControl& c, const OpArgs& a) {
    AreaState& s = c.area();
    if (!a.b(0)) {
        s.enabled = false;
        return;
    }
    ::fx::AreaRect r{a.i(1), a.i(2), a.i(3), a.i(4)};
    if (c.hasImage()) r = ::fx::clipArea(r, c.image().width(), c.image().height());
    s = {true, r.x, r.y, r.width, r.height};
}

void merge(ImagingControl& c, const OpArgs& a) {
    if (!a.b(0)) return;
    const VImage* clip = c.clipboardImage();
    if (!clip) fail(ErrorCode::NothingToPaste, "Merge needs an image on the clipboard (use Copy)");
    ::fx::MergeOptions o{a.i(1), a.i(2), a.b(3), a.i(4), a.i(5), a.i(6)};
    const AreaState& s = c.area();
    if (!s.enabled) {
        c.setImage(::fx::Merge(c.image(), *clip, o));
        return;
    }
    // With the processing area on, the area is the image the clipboard is merged into.
    c.setImage(::fx::applyInArea(c.image(), {s.x, s.y, s.width, s.height},
                                 [&](const VImage& part) { return ::fx::Merge(part, *clip, o); }));
}

void captureWindow(ImagingControl& c, const OpArgs& a) {
    c.setImage(::fx::CaptureWindow(a.i(0)));
}

// Drawing takes image coordinates, so the processing area does not apply to it.
constexpr unsigned kDraw = OpWholeImage;

const HandlerDef kHandlers[] = {
    {"AutoContrast", mapped<autoContrast>},
    {"Blur", mapped<blur>},
    {"Soften", mapped<soften>},
    {"Sharpen", mapped<sharpen>},
    {"MBlur", mapped<mBlur>},
    {"Median", mapped<median>},
    {"Dilate", mapped<dilate>},
    {"Erode", mapped<erode>},
    {"Diffuse", mapped<diffuse>},
    {"Noise", mapped<noise>},
    {"Emboss", mapped<emboss>},
    {"Equalize", mapped<equalize>},
    {"Outline", mapped<outline>},
    {"Posterize", mapped<posterize>},
    {"Solarize", mapped<solarize>},
    {"Mosaic", mapped<mosaic>},
    {"Buttonize", mapped<buttonize>},
    {"Blend", mapped<blend>},
    {"Matrix", mapped<matrix>},
    {"ReplaceColors", mapped<replaceColors>},
    {"Parabolic", mapped<parabolic>},
    {"Swirl", mapped<swirl>},
    {"Twist", mapped<twist>},
    {"Pinch", mapped<pinch>},
    {"Ripple", mapped<ripple>},
    {"Perspective", mapped<perspective>},
    {"PWarp", mapped<pWarp>},
    {"DrawLine", mapped<drawLine>, nullptr, kDraw},
    {"DrawCircle", mapped<drawCircle>, nullptr, kDraw},
    {"DrawArc", mapped<drawArc>, nullptr, kDraw},
    {"DrawPie", mapped<drawPie>, nullptr, kDraw},
    {"DrawRoundRect", mapped<drawRoundRect>, nullptr, kDraw},
    {"DrawCurve", mapped<drawCurve>, nullptr, kDraw},
    {"DrawPolygon", mapped<drawPolygon>, nullptr, kDraw},
    {"DrawText", mapped<drawText>, nullptr, kDraw},
    {"Area", nullptr, mappedRun<area>},
    {"Merge", nullptr, mappedRun<merge>},
    {"CaptureWindow", nullptr, mappedRun<captureWindow>},
};

} // namespace

std::span<const HandlerDef> handlers() {
    return kHandlers;
}

} // namespace imaging::fx
