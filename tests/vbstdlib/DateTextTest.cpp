// en-US date text: FormatDateTime's named formats and the names of months and days.
#include "DateText.h"

#include <gtest/gtest.h>

using namespace vbs::lib;

namespace {

double day(int y, int m, int d) {
    return double(daysFromCivil(y, m, d));
}

} // namespace

TEST(DateText, Formats) {
    const double d = day(2003, 1, 2);
    EXPECT_EQ(formatDate(d + 10.5 / 24), u"1/2/2003 10:30:00 AM");
    EXPECT_EQ(formatDate(d), u"1/2/2003");
    EXPECT_EQ(formatDate(0.5), u"12:00:00 PM");
    EXPECT_EQ(formatDate(0), u"12:00:00 AM");
    EXPECT_EQ(formatDate(d + 22.0 / 24 + 5.0 / 1440, DateFormat::ShortTime), u"22:05");
    EXPECT_EQ(formatDate(d + 13.0 / 24, DateFormat::LongTime), u"1:00:00 PM");
    EXPECT_EQ(formatDate(d + 0.75, DateFormat::ShortDate), u"1/2/2003");
    EXPECT_EQ(formatDate(d, DateFormat::LongDate), u"Thursday, January 2, 2003");
    EXPECT_EQ(formatDate(-1.25), u"12/29/1899 6:00:00 AM");
}

TEST(DateText, Names) {
    EXPECT_EQ(monthName(9), u"September");
    EXPECT_EQ(monthName(9, true), u"Sep");
    EXPECT_EQ(weekdayName(1), u"Sunday");
    EXPECT_EQ(weekdayName(7, true), u"Sat");
}
