// Number text: Round's halves and the en-US Format functions (Hex and Oct: the conversion script;
// the Format functions as a script calls them: the formatting script).
#include "NumberText.h"

#include <gtest/gtest.h>

using namespace vbs::lib;

TEST(NumberText, RoundHalvesToEven) {
    struct Case {
        double value;
        int digits;
        double expected;
    };
    const Case cases[] = {{2.5, 0, 2},       {3.5, 0, 4},         {-2.5, 0, -2},
                          {0.5, 0, 0},       {1.5, 0, 2},         {2.675, 2, 2.68},
                          {2.665, 2, 2.66},  {1.2345, 3, 1.234},  {1.2355, 3, 1.236},
                          {-1.005, 2, -1.0}, {123.456, 1, 123.5}, {0.000123, 3, 0},
                          {99.95, 1, 100.0}, {1e20, 2, 1e20},     {5.0, 10, 5.0}};
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(roundToDigits(c.value, c.digits), c.expected)
            << c.value << " " << c.digits;
}

TEST(NumberText, FormatNumberOptions) {
    EXPECT_EQ(formatNumber(1234567.891), u"1,234,567.89");
    EXPECT_EQ(formatNumber(1234567.891, {-1, -2, -2, 0}), u"1234567.89");
    EXPECT_EQ(formatNumber(0.5, {2, -1}), u"0.50");
    EXPECT_EQ(formatNumber(-0.5), u"-0.50");
    EXPECT_EQ(formatNumber(-0.5, {2, 0, -1}), u"(.50)");
    EXPECT_EQ(formatNumber(2.5, {0}), u"3"); // the Format functions round halves up
    EXPECT_EQ(formatNumber(1.005, {2}), u"1.01");
    EXPECT_EQ(formatNumber(-0.001, {2}), u"0.00");
    EXPECT_EQ(formatNumber(999.995), u"1,000.00");
    EXPECT_EQ(formatNumber(0, {0}), u"0");
    EXPECT_EQ(formatNumber(123, {4}), u"123.0000");
    EXPECT_EQ(formatNumber(100), u"100.00");
    EXPECT_EQ(formatNumber(-1234.5, {1}), u"-1,234.5");
}

TEST(NumberText, FormatCurrencyAndPercent) {
    EXPECT_EQ(formatCurrency(1234.5), u"$1,234.50");
    EXPECT_EQ(formatCurrency(-1234.5), u"($1,234.50)");
    EXPECT_EQ(formatCurrency(0.25, {2, 0}), u"$.25");
    EXPECT_EQ(formatPercent(0.125), u"12.50%");
    EXPECT_EQ(formatPercent(-0.5, {0}), u"-50%");
    EXPECT_EQ(formatPercent(-0.5, {0, -2, -1}), u"(50%)");
    EXPECT_EQ(formatPercent(12.3456, {1}), u"1,234.6%");
}
