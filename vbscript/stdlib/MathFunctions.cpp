// Maths builtins: Fix, Int, Round, Abs, Sgn, Sqr, Exp, Log, Sin, Cos, Tan, Atn, Rnd.
#include "Families.h"
#include "LibSupport.h"
#include "NumberText.h"

#include <cmath>

namespace vbs::lib {

namespace {

// A whole-number result in the argument's own subtype (Int(2.7) is a Double, Int(2) an
// Integer), widening where the value no longer fits.
Value sameKind(const Value& v, double r) {
    switch (v.type()) {
    case VarType::Empty:
    case VarType::Boolean:
    case VarType::Integer:
        if (r >= -32768 && r <= 32767) return Value(int16_t(r));
        [[fallthrough]];
    case VarType::Long:
        if (r >= -2147483648.0 && r <= 2147483647.0) return Value(int32_t(r));
        return Value(r);
    case VarType::Byte:
        return r >= 0 && r <= 255 ? Value::fromByte(uint8_t(r)) : Value(int16_t(r));
    case VarType::Single:
        return Value(float(r));
    case VarType::Currency:
        return Value::fromCurrency(r);
    case VarType::Date:
        return Value::fromDate(r);
    default:
        return Value(r);
    }
}

// Applies f to a number and keeps its subtype; Null gives Null.
template <class F> Value wholeNumber(const Value& arg, F f) {
    const Value v = plain(arg).toNumber();
    if (v.isNull()) return Value::null();
    if (v.type() == VarType::Currency) {
        return Value::fromCurrency(
            int64_t(std::llround(f(double(v.rawCurrency()) / 10000.0) * 10000.0)));
    }
    return sameKind(v, f(v.toDouble()));
}

Value fnFix(CallContext&, Args a) {
    return wholeNumber(*a[0], [](double d) { return std::trunc(d); });
}

Value fnInt(CallContext&, Args a) {
    return wholeNumber(*a[0], [](double d) { return std::floor(d); });
}

Value fnAbs(CallContext&, Args a) {
    return wholeNumber(*a[0], [](double d) { return std::fabs(d); });
}

Value fnRound(CallContext&, Args a) {
    const long digits = longArg(a, 1, 0);
    if (digits < 0) invalidCall();
    const Value v = plain(*a[0]).toNumber();
    if (v.isNull()) return Value::null();
    switch (v.type()) {
    case VarType::Empty:
        return Value(int16_t(0));
    case VarType::Boolean: // a Boolean stays one
        return v;
    case VarType::Integer:
    case VarType::Long:
    case VarType::Byte:
        return v;
    case VarType::Single:
        return Value(float(roundToDigits(double(v.rawSingle()), int(digits))));
    case VarType::Currency: {
        if (digits >= 4) return v;
        const double unit = std::pow(10.0, 4 - double(digits));
        return Value::fromCurrency(int64_t(std::nearbyint(double(v.rawCurrency()) / unit) * unit));
    }
    default:
        return sameKind(v.type() == VarType::Date ? v : Value(0.0),
                        roundToDigits(v.toDouble(), int(digits)));
    }
}

Value fnSgn(CallContext&, Args a) {
    const Value v = plain(*a[0]);
    if (v.isNull()) return Value::null();
    const double d = v.toDouble();
    return Value(int16_t(d > 0 ? 1 : d < 0 ? -1 : 0));
}

// A Double function of one argument: Null gives Null, a result out of range is 6 Overflow.
template <double (*F)(double)> Value real(Args a, bool (*valid)(double) = nullptr) {
    const Value v = plain(*a[0]);
    if (v.isNull()) return Value::null();
    const double d = v.toDouble();
    if (valid && !valid(d)) invalidCall();
    const double r = F(d);
    if (std::isinf(r)) raise(ErrorCode::Overflow);
    return Value(r);
}

double sqrtOf(double d) {
    return std::sqrt(d);
}
double expOf(double d) {
    return std::exp(d);
}
double logOf(double d) {
    return std::log(d);
}
double sinOf(double d) {
    return std::sin(d);
}
double cosOf(double d) {
    return std::cos(d);
}
double tanOf(double d) {
    return std::tan(d);
}
double atnOf(double d) {
    return std::atan(d);
}

Value fnSqr(CallContext&, Args a) {
    return real<sqrtOf>(a, [](double d) { return d >= 0; });
}
Value fnExp(CallContext&, Args a) {
    return real<expOf>(a);
}
Value fnLog(CallContext&, Args a) {
    return real<logOf>(a, [](double d) { return d > 0; });
}
Value fnSin(CallContext&, Args a) {
    return real<sinOf>(a);
}
Value fnCos(CallContext&, Args a) {
    return real<cosOf>(a);
}
Value fnTan(CallContext&, Args a) {
    return real<tanOf>(a);
}
Value fnAtn(CallContext&, Args a) {
    return real<atnOf>(a);
}

Value fnRnd(CallContext& ctx, Args a) {
    return Value(given(a, 0) ? ctx.random().rnd(a[0]->toDouble()) : ctx.random().rnd());
}

const BuiltinDef kMathFunctions[] = {
    {u"Fix", 1, 1, fnFix}, {u"Int", 1, 1, fnInt}, {u"Round", 1, 2, fnRound}, {u"Abs", 1, 1, fnAbs},
    {u"Sgn", 1, 1, fnSgn}, {u"Sqr", 1, 1, fnSqr}, {u"Exp", 1, 1, fnExp},     {u"Log", 1, 1, fnLog},
    {u"Sin", 1, 1, fnSin}, {u"Cos", 1, 1, fnCos}, {u"Tan", 1, 1, fnTan},     {u"Atn", 1, 1, fnAtn},
    {u"Rnd", 0, 1, fnRnd},
};

} // namespace

void registerMathFunctions(ScriptControl& control) {
    control.registerBuiltins(kMathFunctions);
}

} // namespace vbs::lib
