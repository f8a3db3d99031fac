// Operators: the coercion and promotion matrix, Null rules and comparisons, as tables.
#include "vbscript/Operators.h"

#include <gtest/gtest.h>

using namespace vbs;

namespace {

struct Row {
    const char* what;
    Value got;
    VarType type;
    const char16_t* text;
};

int errorOf(auto&& fn)
{
    try {
        fn();
    } catch (const ScriptError& e) {
        return e.number;
    }
    return 0;
}

} // namespace

TEST(Operators, ArithmeticPromotion)
{
    const Value i16(int16_t(32767)), i32(int32_t(2147483647)), str(u"1"), e;
    const Row rows[] = {
        {"Integer+1 overflows to Long", ops::add(i16, Value(int16_t(1))), VarType::Long, u"32768"},
        {"Long+1 overflows to Double", ops::add(i32, Value(int16_t(1))), VarType::Double, u"2147483648"},
        {"string plus number", ops::add(str, Value(int16_t(2))), VarType::Double, u"3"},
        {"string plus string", ops::add(str, Value(u"2")), VarType::String, u"12"},
        {"string plus Empty", ops::add(Value(u"x"), e), VarType::String, u"x"},
        {"Empty plus Empty", ops::add(e, e), VarType::Integer, u"0"},
        {"Boolean plus Boolean", ops::add(Value(true), Value(true)), VarType::Integer, u"-2"},
        {"Byte times Byte", ops::mul(Value::fromByte(200), Value::fromByte(2)), VarType::Integer, u"400"},
        {"Single plus Long", ops::add(Value(1.5f), Value(int32_t(1))), VarType::Double, u"2.5"},
        {"Single plus Integer", ops::add(Value(1.5f), Value(int16_t(1))), VarType::Single, u"2.5"},
        {"Integer division", ops::div(Value(int16_t(4)), Value(int16_t(2))), VarType::Double, u"2"},
        {"\\ rounds operands", ops::intDiv(Value(7.5), Value(int16_t(2))), VarType::Long, u"4"},
        {"Mod keeps dividend sign", ops::mod(Value(int16_t(-7)), Value(int16_t(3))), VarType::Integer, u"-1"},
        {"negate -32768", ops::neg(Value(int16_t(-32768))), VarType::Long, u"32768"},
        {"concat number", ops::concat(Value(int16_t(1)), Value(2.5)), VarType::String, u"12.5"},
        {"Currency sum", ops::add(Value::fromCurrency(int64_t(15000)), Value(int16_t(1))), VarType::Currency, u"2.5"},
        {"Date plus 1", ops::add(Value::fromDate(1.0), Value(int16_t(1))), VarType::Date, u"1/1/1900"},
        {"Not Integer", ops::logicNot(Value(int16_t(5))), VarType::Integer, u"-6"},
        {"And of Booleans", ops::logicAnd(Value(true), Value(false)), VarType::Boolean, u"False"},
        {"Or of Integer and Long", ops::logicOr(Value(int16_t(1)), Value(int32_t(65536))), VarType::Long, u"65537"},
    };
    for (const auto& r : rows) {
        EXPECT_EQ(r.got.type(), r.type) << r.what;
        EXPECT_EQ(r.got.toString(), String(r.text)) << r.what;
    }
}

TEST(Operators, NullRules)
{
    const Value n = Value::null();
    EXPECT_TRUE(ops::add(n, Value(1)).isNull());
    EXPECT_TRUE(ops::concat(n, n).isNull());
    EXPECT_EQ(ops::concat(n, Value(u"x")).str(), u"x");
    EXPECT_FALSE(ops::logicAnd(n, Value(false)).rawBool());
    EXPECT_TRUE(ops::logicAnd(n, Value(true)).isNull());
    EXPECT_TRUE(ops::logicOr(n, Value(true)).rawBool());
    EXPECT_TRUE(ops::logicOr(n, Value(false)).isNull());
    EXPECT_TRUE(ops::logicNot(n).isNull());
    EXPECT_EQ(ops::compare(n, Value(1)), ops::kCompareNull);
}

TEST(Operators, StringNumberComparisonDependsOnLiteral)
{
    // Against a numeric literal the string becomes a number.
    EXPECT_EQ(ops::compare(Value(u"42"), Value(int16_t(42)), false, true), 0);
    EXPECT_EQ(ops::compare(Value(u"9"), Value(int16_t(10)), false, true), -1);
    // Text that is no number is not equal to the literal and sorts after it.
    EXPECT_EQ(ops::compare(Value(u"abc"), Value(int16_t(-5)), false, true), 1);
    EXPECT_EQ(ops::compare(Value(int16_t(5)), Value(u"abc"), true, false), -1);
    // Against a variable the number is compared as text: "10" < "9".
    EXPECT_EQ(ops::compare(Value(int16_t(10)), Value(u"9")), -1);
    EXPECT_EQ(ops::compare(Value(u"abc"), Value(int16_t(5))), 1);
    // Empty is "" against strings and 0 against numbers.
    EXPECT_EQ(ops::compare(Value(), Value(u"")), 0);
    EXPECT_EQ(ops::compare(Value(), Value(int16_t(0))), 0);
    EXPECT_EQ(ops::compare(Value(u"a"), Value(u"B")), 1); // binary comparison
}

TEST(Operators, ErrorsOfArithmetic)
{
    EXPECT_EQ(errorOf([] { ops::div(Value(1), Value(0)); }), 11);
    EXPECT_EQ(errorOf([] { ops::div(Value(0), Value(0)); }), 6);
    EXPECT_EQ(errorOf([] { ops::intDiv(Value(1), Value(0)); }), 11);
    EXPECT_EQ(errorOf([] { ops::mod(Value(1e12), Value(3)); }), 6);
    EXPECT_EQ(errorOf([] { ops::add(Value(u"x"), Value(1)); }), 13);
    EXPECT_EQ(errorOf([] { ops::same(Value(1), Value(1)); }), 424);
    EXPECT_EQ(errorOf([] { ops::add(Value(1e308), Value(1e308)); }), 6);
}
