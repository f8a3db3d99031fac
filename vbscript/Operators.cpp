// VBScript's operators: Integer -> Long -> Double promotion on overflow, Null propagation,
// bitwise logic on numbers, and the literal-dependent string/number comparison.
#include "Operators.h"

#include <cmath>
#include <limits>

namespace vbs::ops {

namespace {

// Arithmetic rank of a number after toNumber(): Empty and Boolean count as Integer.
enum Rank { RByte = 1, RInteger = 2, RLong = 3, RSingle = 4, RDouble = 5, RCurrency = 6, RDate = 7 };

Rank rankOf(const Value& v)
{
    switch (v.type()) {
    case VarType::Byte: return RByte;
    case VarType::Empty: case VarType::Boolean: case VarType::Integer: return RInteger;
    case VarType::Long: return RLong;
    case VarType::Single: return RSingle;
    case VarType::Currency: return RCurrency;
    case VarType::Date: return RDate;
    default: return RDouble;
    }
}

int64_t intOf(const Value& v)
{
    switch (v.type()) {
    case VarType::Byte: return v.rawByte();
    case VarType::Integer: return v.rawInteger();
    case VarType::Long: return v.rawLong();
    case VarType::Boolean: return v.rawBool() ? -1 : 0;
    default: return 0;
    }
}

// An integer result in the narrowest type from `rank` upward that holds it.
Value fitInteger(int64_t r, Rank rank)
{
    if (rank == RByte && r >= 0 && r <= 255)
        return Value::fromByte(uint8_t(r));
    if (rank <= RInteger && r >= -32768 && r <= 32767)
        return Value(int16_t(r));
    if (r >= std::numeric_limits<int32_t>::min() && r <= std::numeric_limits<int32_t>::max())
        return Value(int32_t(r));
    return Value(double(r));
}

Value fitSingle(double d)
{
    if (std::isfinite(d) && std::fabs(d) > 3.402823466e38)
        return Value(d);
    return Value(float(d));
}

Value checkedDouble(double d)
{
    if (!std::isfinite(d))
        raise(ErrorCode::Overflow);
    return Value(d);
}

Value checkedDate(double d)
{
    if (!(d >= -657434.0 && d < 2958466.0))
        raise(ErrorCode::Overflow);
    return Value::fromDate(d);
}

enum class Arith { Add, Sub, Mul };

Value arith(Arith op, const Value& a0, const Value& b0)
{
    if (a0.isNull() || b0.isNull())
        return Value::null();
    const Value a = a0.toNumber(), b = b0.toNumber();
    if (a.isNull() || b.isNull())
        return Value::null();
    const Rank ra = rankOf(a), rb = rankOf(b);
    Rank r = ra > rb ? ra : rb;
    if (r <= RLong) {
        const int64_t x = intOf(a), y = intOf(b);
        const int64_t v = op == Arith::Add ? x + y : op == Arith::Sub ? x - y : x * y;
        return fitInteger(v, r);
    }
    if (r == RDate) {
        const double d = op == Arith::Add ? a.toDouble() + b.toDouble()
            : op == Arith::Sub ? a.toDouble() - b.toDouble() : a.toDouble() * b.toDouble();
        if (op == Arith::Mul || (op == Arith::Sub && ra == RDate && rb == RDate))
            return checkedDouble(d);
        return checkedDate(d);
    }
    if (r == RCurrency) {
        const double d = op == Arith::Add ? a.toDouble() + b.toDouble()
            : op == Arith::Sub ? a.toDouble() - b.toDouble() : a.toDouble() * b.toDouble();
        return Value::fromCurrency(d);
    }
    const double x = a.toDouble(), y = b.toDouble();
    const double d = op == Arith::Add ? x + y : op == Arith::Sub ? x - y : x * y;
    // Single with Long (or wider integers) goes to Double.
    if (r == RSingle && (ra != RLong && rb != RLong))
        return fitSingle(d);
    return checkedDouble(d);
}

// \ and Mod, on the operands rounded to whole numbers. The result starts from the wider
// operand's type up to Integer (two Bytes give a Byte), from Long for anything wider.
Value integerDivision(bool remainder, const Value& a0, const Value& b0)
{
    if (a0.isNull() || b0.isNull())
        return Value::null();
    const Value a = a0.toNumber(), b = b0.toNumber();
    const Rank r = std::max(rankOf(a), rankOf(b));
    const int64_t x = a.toLong(), y = b.toLong();
    if (y == 0)
        raise(ErrorCode::DivisionByZero);
    return fitInteger(remainder ? x % y : x / y, r <= RInteger ? r : RLong);
}

} // namespace

Value add(const Value& a, const Value& b)
{
    if (a.isString() && b.isString()) {
        if (a.str().size() + b.str().size() > kMaxStringLength)
            raise(ErrorCode::OutOfStringSpace);
        String s = a.str();
        s += b.str();
        return Value(std::move(s));
    }
    if (a.isString() && b.isEmpty())
        return a;
    if (b.isString() && a.isEmpty())
        return b;
    return arith(Arith::Add, a, b);
}

Value sub(const Value& a, const Value& b) { return arith(Arith::Sub, a, b); }
Value mul(const Value& a, const Value& b) { return arith(Arith::Mul, a, b); }

Value div(const Value& a0, const Value& b0)
{
    if (a0.isNull() || b0.isNull())
        return Value::null();
    const Value a = a0.toNumber(), b = b0.toNumber();
    const double x = a.toDouble(), y = b.toDouble();
    if (y == 0)
        raise(x == 0 ? ErrorCode::Overflow : ErrorCode::DivisionByZero);
    const double d = x / y;
    const Rank ra = rankOf(a), rb = rankOf(b);
    if ((ra == RSingle || rb == RSingle) && ra != RDouble && rb != RDouble && ra != RLong && rb != RLong
        && ra != RCurrency && rb != RCurrency)
        return fitSingle(d);
    return checkedDouble(d);
}

Value intDiv(const Value& a, const Value& b) { return integerDivision(false, a, b); }
Value mod(const Value& a, const Value& b) { return integerDivision(true, a, b); }

Value pow(const Value& a0, const Value& b0)
{
    if (a0.isNull() || b0.isNull())
        return Value::null();
    const double x = a0.toNumber().toDouble(), y = b0.toNumber().toDouble();
    if (x == 0 && y < 0)
        raise(ErrorCode::DivisionByZero);
    const double d = std::pow(x, y);
    if (std::isnan(d))
        raise(ErrorCode::InvalidProcedureCall);
    return checkedDouble(d);
}

Value neg(const Value& a0)
{
    if (a0.isNull())
        return Value::null();
    const Value a = a0.toNumber();
    switch (a.type()) {
    case VarType::Byte: return Value(int16_t(-int(a.rawByte())));
    case VarType::Empty: return Value(int16_t(0));
    case VarType::Boolean: return Value(int16_t(a.rawBool() ? 1 : 0));
    case VarType::Integer: return fitInteger(-int64_t(a.rawInteger()), RInteger);
    case VarType::Long: return fitInteger(-int64_t(a.rawLong()), RLong);
    case VarType::Single: return Value(-a.rawSingle());
    case VarType::Currency: return Value::fromCurrency(-a.rawCurrency());
    case VarType::Date: return checkedDate(-a.rawDate());
    default: return Value(-a.toDouble());
    }
}

Value concat(const Value& a, const Value& b)
{
    if (a.isNull() && b.isNull())
        return Value::null();
    String s = a.isNull() ? String() : a.toString();
    if (!b.isNull()) {
        if (b.isString()) {
            if (s.size() + b.str().size() > kMaxStringLength)
                raise(ErrorCode::OutOfStringSpace);
            s += b.str();
        } else {
            s += b.toString();
        }
    }
    return Value(std::move(s));
}

namespace {

bool isBoolish(const Value& v)
{
    return v.type() == VarType::Boolean;
}

enum class Logic { And, Or, Xor, Eqv, Imp };

int64_t logicInt(Logic op, int64_t x, int64_t y)
{
    switch (op) {
    case Logic::And: return x & y;
    case Logic::Or: return x | y;
    case Logic::Xor: return x ^ y;
    case Logic::Eqv: return ~(x ^ y);
    default: return ~x | y;
    }
}

// An operand of Not, And, Or, ...: an object's default value, and text that reads as True or
// False (not as a number) as that Boolean.
Value logicOperand(const Value& v0)
{
    const Value v = v0.isObject() ? v0.defaultValue() : v0;
    double d;
    bool b;
    if (v.isString() && !Value::parseNumber(v.str(), d) && Value::parseBoolean(v.str(), b))
        return Value(b);
    return v;
}

Value logic(Logic op, const Value& a0, const Value& b0)
{
    const Value a = logicOperand(a0);
    const Value b = logicOperand(b0);
    if (a.isNull() || b.isNull()) {
        // Null is "unknown": the result is known only when the other side decides it.
        const Value& other = a.isNull() ? b : a;
        if (other.isNull())
            return Value::null();
        const Value n = other.toNumber();
        const int64_t v = n.type() == VarType::Boolean ? (n.rawBool() ? -1 : 0) : n.toLong();
        const bool boolResult = n.type() == VarType::Boolean;
        auto result = [&](int64_t r) {
            return boolResult ? Value(r != 0) : fitInteger(r, std::max(rankOf(n), RInteger) <= RInteger ? RInteger : RLong);
        };
        switch (op) {
        case Logic::And: return v == 0 ? result(0) : Value::null();
        case Logic::Or: return v == -1 ? result(-1) : Value::null();
        case Logic::Imp:
            if (a.isNull())
                return v == -1 ? result(-1) : Value::null();
            return v == 0 ? result(-1) : Value::null();
        default: return Value::null();
        }
    }
    if (isBoolish(a) && isBoolish(b))
        return Value(logicInt(op, a.rawBool() ? -1 : 0, b.rawBool() ? -1 : 0) != 0);
    const Value na = a.toNumber(), nb = b.toNumber();
    const Rank r = std::max(rankOf(na), rankOf(nb));
    const int64_t x = na.toLong(), y = nb.toLong();
    const int64_t v = logicInt(op, x, y);
    if (r == RByte)
        return Value::fromByte(uint8_t(v)); // bitwise on two Bytes stays in 8 bits
    if (r <= RInteger)
        return Value(int16_t(v));
    return Value(int32_t(v));
}

} // namespace

Value logicNot(const Value& a0)
{
    const Value a = logicOperand(a0);
    switch (a.type()) {
    case VarType::Null: return Value::null();
    case VarType::Boolean: return Value(!a.rawBool());
    case VarType::Empty: return Value(int16_t(-1));
    case VarType::Byte: return Value::fromByte(uint8_t(~a.rawByte()));
    case VarType::Integer: return Value(int16_t(~a.rawInteger()));
    default: return Value(int32_t(~a.toNumber().toLong()));
    }
}

Value logicAnd(const Value& a, const Value& b) { return logic(Logic::And, a, b); }
Value logicOr(const Value& a, const Value& b) { return logic(Logic::Or, a, b); }
Value logicXor(const Value& a, const Value& b) { return logic(Logic::Xor, a, b); }
Value logicEqv(const Value& a, const Value& b) { return logic(Logic::Eqv, a, b); }
Value logicImp(const Value& a, const Value& b) { return logic(Logic::Imp, a, b); }

namespace {

int cmpNum(double x, double y)
{
    return x < y ? -1 : x > y ? 1 : 0;
}

int cmpText(const String& x, const String& y)
{
    const int c = x.compare(y);
    return c < 0 ? -1 : c > 0 ? 1 : 0;
}

} // namespace

int compare(const Value& a0, const Value& b0, bool aLiteral, bool bLiteral)
{
    const Value& a = a0.isObject() ? a0.defaultValue() : a0;
    const Value& b = b0.isObject() ? b0.defaultValue() : b0;
    if (a.isNull() || b.isNull())
        return kCompareNull;
    const bool as = a.isString(), bs = b.isString();
    if (as && bs)
        return cmpText(a.str(), b.str());
    if (as || bs) {
        const Value& s = as ? a : b;
        const Value& n = as ? b : a;
        const bool numLiteral = as ? bLiteral : aLiteral;
        if (n.isEmpty())
            return as ? cmpText(s.str(), String()) : cmpText(String(), s.str());
        double d;
        if (numLiteral && Value::parseNumber(s.str(), d)) {
            const int c = cmpNum(d, n.toDouble());
            return as ? c : -c;
        }
        if (numLiteral) {
            // Text that reads as no number is not equal to a number literal, and sorts after
            // it ("abc" = -5 is False, not an error).
            return as ? 1 : -1;
        }
        const int c = cmpText(s.str(), n.toString());
        return as ? c : -c;
    }
    if (a.isArray() || b.isArray() || a.type() == VarType::Error || b.type() == VarType::Error)
        raise(ErrorCode::TypeMismatch);
    const VarType ta = a.type(), tb = b.type();
    if ((ta == VarType::Integer || ta == VarType::Long) && (tb == VarType::Integer || tb == VarType::Long)) {
        const int64_t x = intOf(a), y = intOf(b);
        return x < y ? -1 : x > y ? 1 : 0;
    }
    if (ta == VarType::Currency && tb == VarType::Currency)
        return a.rawCurrency() < b.rawCurrency() ? -1 : a.rawCurrency() > b.rawCurrency() ? 1 : 0;
    return cmpNum(a.toDouble(), b.toDouble());
}

bool same(const Value& a, const Value& b)
{
    if (!a.isObject() || !b.isObject())
        raise(ErrorCode::ObjectRequired);
    return a.object() == b.object();
}

} // namespace vbs::ops
