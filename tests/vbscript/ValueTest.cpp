// Value: subtypes, conversions, number and date text, parsing.
#include "vbscript/DateTime.h"
#include "vbscript/Value.h"

#include <gtest/gtest.h>

using namespace vbs;

namespace {

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

TEST(Value, IsSixteenBytesAndDefaultsToEmpty)
{
    EXPECT_EQ(sizeof(Value), 16u);
    Value v;
    EXPECT_TRUE(v.isEmpty());
    EXPECT_EQ(v.type(), VarType::Empty);
    EXPECT_EQ(Value::null().type(), VarType::Null);
    EXPECT_TRUE(Value::missing().isMissing());
    EXPECT_EQ(Value::missing().rawError(), int32_t(0x80020004u));
    EXPECT_EQ(Value(int16_t(1)).type(), VarType::Integer);
    EXPECT_EQ(Value(1).type(), VarType::Long);
    EXPECT_EQ(Value(u"x").type(), VarType::String);
    EXPECT_TRUE(Value::nothing().isNothing());
}

struct IntCase {
    Value in;
    int16_t out;
    int error;
};

TEST(Value, ToIntegerRoundsHalfEvenAndChecksRange)
{
    const IntCase cases[] = {
        {Value(2.5), 2, 0}, {Value(3.5), 4, 0}, {Value(-2.5), -2, 0}, {Value(1.4999), 1, 0},
        {Value(u" 12 "), 12, 0}, {Value(u"&H1F"), 31, 0}, {Value(true), -1, 0},
        {Value(), 0, 0}, {Value(32767.4), 32767, 0}, {Value(32767.5), 0, 6},
        {Value(u"abc"), 0, 13}, {Value::null(), 0, 94}, {Value(70000), 0, 6},
        {Value::fromCurrency(int64_t(25000)), 2, 0},
    };
    for (const auto& c : cases) {
        int16_t got = 0;
        const int err = errorOf([&] { got = c.in.toInteger(); });
        EXPECT_EQ(err, c.error) << toUtf8(c.in.isString() ? c.in.str() : u"");
        if (!c.error) {
            EXPECT_EQ(got, c.out);
        }
    }
}

TEST(Value, ToBoolean)
{
    EXPECT_TRUE(Value(u"true").toBoolean());
    EXPECT_FALSE(Value(u"False").toBoolean());
    EXPECT_TRUE(Value(u"2").toBoolean());
    EXPECT_FALSE(Value().toBoolean());
    EXPECT_EQ(errorOf([] { Value(u"yes").toBoolean(); }), 13);
    EXPECT_EQ(errorOf([] { Value::null().toBoolean(); }), 94);
}

TEST(Value, DoubleText)
{
    const std::pair<double, const char16_t*> cases[] = {
        {0.1 + 0.2, u"0.3"}, {1e20, u"1E+20"}, {1.5e-7, u"1.5E-07"}, {100.0, u"100"},
        {-2.5, u"-2.5"}, {123456789012345.0, u"123456789012345"}, {1e15, u"1E+15"},
        {0.0001, u"0.0001"}, {1.0 / 3.0, u"0.333333333333333"}, {0.0, u"0"},
        {2.0 / 3.0, u"0.666666666666667"}, {1e-5, u"1E-05"}, {1.5e-6, u"1.5E-06"},
        {1.23e-300, u"1.23E-300"}, {1234567890123456.0, u"1.23456789012346E+15"},
    };
    for (const auto& [d, text] : cases)
        EXPECT_EQ(Value(d).toString(), String(text)) << d;
    EXPECT_EQ(Value(1.1f).toString(), u"1.1");
    EXPECT_EQ(Value::fromCurrency(int64_t(15000)).toString(), u"1.5");
    EXPECT_EQ(Value::fromCurrency(int64_t(-30000)).toString(), u"-3");
    EXPECT_EQ(Value(true).toString(), u"True");
}

TEST(Value, ParseNumber)
{
    const std::pair<const char16_t*, double> good[] = {
        {u" 12 ", 12}, {u"&H1F", 31}, {u"1e3", 1000}, {u"-1.5", -1.5}, {u"1,000", 1000},
        {u"&HFFFF", -1}, {u"&O17", 15}, {u".5", 0.5}, {u"+3", 3}, {u"$5", 5},
    };
    for (const auto& [text, d] : good) {
        double got = 0;
        EXPECT_TRUE(Value::parseNumber(text, got)) << toUtf8(text);
        EXPECT_DOUBLE_EQ(got, d) << toUtf8(text);
    }
    for (const char16_t* bad : {u"", u"  ", u"abc", u"1e", u"1.2.3", u"&H", u"12a", u"&HG"}) {
        double got;
        EXPECT_FALSE(Value::parseNumber(bad, got)) << toUtf8(bad);
    }
}

TEST(Value, DateTextAndParsing)
{
    const double d = combineOleDateTime(makeOleDate(2026, 1, 2), makeOleTime(15, 4, 5));
    EXPECT_EQ(Value::fromDate(d).toString(), u"1/2/2026 3:04:05 PM");
    EXPECT_EQ(Value::fromDate(makeOleDate(2026, 1, 2)).toString(), u"1/2/2026");
    EXPECT_EQ(Value::fromDate(makeOleTime(0, 30, 0)).toString(), u"12:30:00 AM");
    EXPECT_EQ(Value::fromDate(0).toString(), u"12:00:00 AM");
    EXPECT_EQ(makeOleDate(1900, 1, 1), 2.0);
    EXPECT_EQ(makeOleDate(2026, 13, 1), makeOleDate(2027, 1, 1));
    const DateParts p = splitOleDate(d);
    EXPECT_EQ(p.year, 2026);
    EXPECT_EQ(p.weekday, 6); // a Friday
    // Reading dates back is checked with the library's calendar (vbstdlib CoreDates).
    double got = 0;
    EXPECT_TRUE(Value::parseDate(u"1/2/2026 3:04:05 PM", got));
    EXPECT_DOUBLE_EQ(got, d);
}
