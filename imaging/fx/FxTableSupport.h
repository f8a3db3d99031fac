// Shorthands for the effect table's family files: argument declarations, and the wrapping that
// turns an effect's FxError into the imaging control's ImagingError.
#pragma once

#include "imaging/ImagingControl.h"
#include "imaging/ImagingError.h"
#include "imaging/fx/Effects.h"

namespace fx::table {

constexpr double kColourMax = 0xFFFFFF;
// Positions and sizes are 32-bit: images may be far wider than 32767 pixels.
constexpr double kCoordMin = -2147483648.0;
constexpr double kCoordMax = 2147483647.0;

inline FxArgument ranged(std::string_view name, std::string_view type, double min, double max,
                         std::string_view meaning, std::string_view def = "") {
    return FxArgument{name, type, min, max, true, def, meaning};
}

inline FxArgument plain(std::string_view name, std::string_view type, std::string_view meaning,
                        std::string_view def = "") {
    return FxArgument{name, type, 0, 0, false, def, meaning};
}

inline FxArgument coord(std::string_view name, std::string_view meaning) {
    return ranged(name, "long", kCoordMin, kCoordMax, meaning);
}

inline FxArgument colour(std::string_view name, std::string_view meaning,
                         std::string_view def = "") {
    return ranged(name, "colour", 0, kColourMax, meaning, def);
}

[[noreturn]] inline void rethrow(const FxError& e) {
    imaging::fail(e.kind() == FxErrorKind::BadArgument ? imaging::ErrorCode::ArgumentOutOfRange
                                                       : imaging::ErrorCode::ProcessingFailed,
                  e.what());
}

// Handlers receive the operation's checked arguments; argument indices follow the operation's
// parameters (Matrix's kernel and DrawPolygon's extra points spread out, see FxOperations.cpp).
template <imaging::ApplyFn F>
vips::VImage mapped(const vips::VImage& in, const imaging::OpArgs& a,
                    const imaging::OpContext& ctx) {
    try {
        return F(in, a, ctx);
    } catch (const FxError& e) {
        rethrow(e);
    }
}

template <imaging::RunFn F> void mappedRun(imaging::ImagingControl& c, const imaging::OpArgs& a) {
    try {
        F(c, a);
    } catch (const FxError& e) {
        rethrow(e);
    }
}

inline Point point(const imaging::OpArgs& a, size_t k) {
    return {double(a.i(k)), double(a.i(k + 1))};
}

} // namespace fx::table

// An image handler in one line: the effect call on `in` with the arguments `a` and context `ctx`.
#define FX_APPLY(name, call)                                                                       \
    vips::VImage name(const vips::VImage& in, const imaging::OpArgs& a,                            \
                      const imaging::OpContext& ctx) {                                             \
        (void)a;                                                                                   \
        (void)ctx;                                                                                 \
        return call;                                                                               \
    }
