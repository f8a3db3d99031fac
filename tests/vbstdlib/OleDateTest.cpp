// OLE date serials: calendar conversion, parts, rounding, weekdays and interval names. DateSerial,
// TimeSerial, DateAdd, DateDiff and DatePart are checked by the golden date scripts.
#include "OleDate.h"

#include <gtest/gtest.h>

using namespace vbs::lib;

namespace {

double day(int y, int m, int d) {
    return double(daysFromCivil(y, m, d));
}

} // namespace

TEST(OleDate, PartsRoundTripIncludingNegativeSerials) {
    const DateParts p = toParts(-1.25); // the day before the epoch's eve, 6 in the morning
    EXPECT_EQ(p.year, 1899);
    EXPECT_EQ(p.month, 12);
    EXPECT_EQ(p.day, 29);
    EXPECT_EQ(p.hour, 6);
    EXPECT_DOUBLE_EQ(fromParts(p), -1.25);
    for (double serial : {-657434.5, -1.75, 0.0, 0.999988, 36526.5, 2958465.25}) {
        const DateParts q = toParts(serial);
        EXPECT_NEAR(fromParts(q), serial, 1.0 / 86400) << serial;
    }
}

TEST(OleDate, TimeRoundsToTheNearestSecond) {
    const DateParts p = toParts(day(2003, 1, 2) + (86400 - 0.4) / 86400.0);
    EXPECT_EQ(p.day, 3);
    EXPECT_EQ(p.hour, 0);
    EXPECT_EQ(toParts(0.5 + 0.6 / 86400).second, 1);
}

TEST(OleDate, Weekday) {
    EXPECT_EQ(weekday(day(2000, 1, 1)), 7); // a Saturday
    EXPECT_EQ(weekday(day(2003, 1, 5)), 1); // a Sunday
    EXPECT_EQ(weekday(day(2003, 1, 5), 2), 7);
    EXPECT_EQ(weekday(day(2003, 1, 6), 2), 1);
    EXPECT_EQ(weekday(day(2003, 1, 6), 0), 2);
    EXPECT_EQ(weekday(-1.25), 6); // 29 Dec 1899 was a Friday
}

TEST(OleDate, IntervalNames) {
    EXPECT_EQ(parseInterval(u"YYYY"), Interval::Year);
    EXPECT_EQ(parseInterval(u"ww"), Interval::Week);
    EXPECT_EQ(parseInterval(u"n"), Interval::Minute);
    EXPECT_FALSE(parseInterval(u"x"));
    EXPECT_FALSE(parseInterval(u""));
}
