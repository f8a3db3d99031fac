// OLE date arithmetic: calendar conversion, DateSerial/TimeSerial, DateAdd, DateDiff, DatePart.
#include "OleDate.h"

#include <gtest/gtest.h>

using namespace vbs::lib;

namespace {

double day(int y, int m, int d) {
    return double(daysFromCivil(y, m, d));
}

double at(int y, int m, int d, int h, int n, int s = 0) {
    return fromParts(DateParts{y, m, d, h, n, s});
}

} // namespace

TEST(OleDate, KnownSerials) {
    EXPECT_EQ(day(1899, 12, 30), 0);
    EXPECT_EQ(day(1900, 1, 1), 2);
    EXPECT_EQ(day(2000, 1, 1), 36526);
    EXPECT_EQ(day(2003, 1, 2), 37623);
    EXPECT_EQ(day(100, 1, 1), kMinDateSerial);
    EXPECT_EQ(day(9999, 12, 31), 2958465);
}

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

TEST(OleDate, DateSerialNormalises) {
    struct Case {
        long long y, m, d;
        double expected;
    };
    const Case cases[] = {{2003, 14, 1, day(2004, 2, 1)},   {2003, 1, 0, day(2002, 12, 31)},
                          {2003, 0, 1, day(2002, 12, 1)},   {2003, -1, 1, day(2002, 11, 1)},
                          {2003, 2, 29, day(2003, 3, 1)},   {99, 1, 1, day(1999, 1, 1)},
                          {5, 1, 1, day(2005, 1, 1)},       {30, 6, 15, day(1930, 6, 15)},
                          {2004, 1, 366, day(2004, 12, 31)}};
    for (const Case& c : cases)
        EXPECT_EQ(dateSerial(c.y, c.m, c.d), c.expected) << c.y << c.m << c.d;
    EXPECT_FALSE(dateSerial(10000, 1, 1));
    EXPECT_FALSE(dateSerial(9999, 12, 32));
}

TEST(OleDate, TimeSerialNormalises) {
    EXPECT_DOUBLE_EQ(*timeSerial(12, 0, 0), 0.5);
    EXPECT_DOUBLE_EQ(*timeSerial(25, 0, 0), 1 + 1.0 / 24);
    EXPECT_DOUBLE_EQ(*timeSerial(0, 90, 0), 1.5 / 24);
    const DateParts p = toParts(*timeSerial(0, -1, 0)); // a minute before midnight, the day before
    EXPECT_EQ(p.day, 29);
    EXPECT_EQ(p.hour, 23);
    EXPECT_EQ(p.minute, 59);
}

TEST(OleDate, DateAddKeepsMonthEnds) {
    EXPECT_EQ(dateAdd(Interval::Month, 1, day(2003, 1, 31)), day(2003, 2, 28));
    EXPECT_EQ(dateAdd(Interval::Month, 1, day(2004, 1, 31)), day(2004, 2, 29));
    EXPECT_EQ(dateAdd(Interval::Month, -1, day(2003, 3, 31)), day(2003, 2, 28));
    EXPECT_EQ(dateAdd(Interval::Year, 1, day(2004, 2, 29)), day(2005, 2, 28));
    EXPECT_EQ(dateAdd(Interval::Quarter, 1, day(2003, 11, 30)), day(2004, 2, 29));
    EXPECT_EQ(dateAdd(Interval::Month, 13, day(2003, 12, 15)), day(2005, 1, 15));
}

TEST(OleDate, DateAddSmallIntervals) {
    EXPECT_EQ(dateAdd(Interval::Day, -1, day(2003, 1, 1)), day(2002, 12, 31));
    EXPECT_EQ(dateAdd(Interval::Week, 2, day(2003, 1, 1)), day(2003, 1, 15));
    EXPECT_EQ(dateAdd(Interval::Weekday, 3, day(2003, 1, 1)), day(2003, 1, 4));
    EXPECT_DOUBLE_EQ(*dateAdd(Interval::Hour, 25, day(2003, 1, 1)), at(2003, 1, 2, 1, 0));
    EXPECT_DOUBLE_EQ(*dateAdd(Interval::Minute, -1, day(2003, 1, 1)), at(2002, 12, 31, 23, 59));
    EXPECT_DOUBLE_EQ(*dateAdd(Interval::Second, 90, at(2003, 1, 1, 10, 0)),
                     at(2003, 1, 1, 10, 1, 30));
    // Crossing the epoch keeps the time of day counting forwards.
    EXPECT_DOUBLE_EQ(*dateAdd(Interval::Hour, -18, 0.5), -1.75);
    EXPECT_EQ(toParts(*dateAdd(Interval::Month, 1, at(2003, 1, 31, 10, 30))).hour, 10);
}

TEST(OleDate, DateAddOutOfRangeFails) {
    EXPECT_FALSE(dateAdd(Interval::Year, 1, day(9999, 12, 31)));
    EXPECT_FALSE(dateAdd(Interval::Day, -1, kMinDateSerial));
    EXPECT_FALSE(dateAdd(Interval::Year, 1000000000LL, 0));
}

TEST(OleDate, DateDiffCountsBoundaries) {
    EXPECT_EQ(dateDiff(Interval::Year, day(2002, 12, 31), day(2003, 1, 1)), 1);
    EXPECT_EQ(dateDiff(Interval::Quarter, day(2003, 3, 31), day(2003, 4, 1)), 1);
    EXPECT_EQ(dateDiff(Interval::Month, day(2003, 1, 31), day(2003, 2, 1)), 1);
    EXPECT_EQ(dateDiff(Interval::Month, day(2003, 2, 1), day(2003, 1, 31)), -1);
    EXPECT_EQ(dateDiff(Interval::Day, at(2003, 1, 1, 23, 0), at(2003, 1, 2, 1, 0)), 1);
    EXPECT_EQ(dateDiff(Interval::DayOfYear, day(2003, 1, 10), day(2003, 1, 1)), -9);
    EXPECT_EQ(dateDiff(Interval::Hour, at(2003, 1, 1, 10, 59), at(2003, 1, 1, 11, 0)), 1);
    EXPECT_EQ(dateDiff(Interval::Minute, at(2003, 1, 1, 10, 59, 59), at(2003, 1, 1, 11, 0)), 1);
    EXPECT_EQ(dateDiff(Interval::Second, 0, 1), 86400);
    EXPECT_EQ(dateDiff(Interval::Hour, -1.5, 0.5), 24); // noon 29 Dec to noon 30 Dec 1899
}

TEST(OleDate, DateDiffWeeks) {
    // 1 Jan 2003 was a Wednesday.
    EXPECT_EQ(dateDiff(Interval::Week, day(2003, 1, 1), day(2003, 1, 4)), 0);
    EXPECT_EQ(dateDiff(Interval::Week, day(2003, 1, 1), day(2003, 1, 5)), 1);
    EXPECT_EQ(dateDiff(Interval::Week, day(2003, 1, 1), day(2003, 1, 5), 2), 0);
    EXPECT_EQ(dateDiff(Interval::Week, day(2003, 1, 1), day(2003, 1, 6), 2), 1);
    EXPECT_EQ(dateDiff(Interval::Week, day(2003, 1, 5), day(2003, 1, 1)), -1);
    EXPECT_EQ(dateDiff(Interval::Weekday, day(2003, 1, 1), day(2003, 1, 7)), 0);
    EXPECT_EQ(dateDiff(Interval::Weekday, day(2003, 1, 1), day(2003, 1, 8)), 1);
    EXPECT_EQ(dateDiff(Interval::Weekday, day(2003, 1, 8), day(2003, 1, 1)), -1);
}

TEST(OleDate, DatePartWeekRules) {
    EXPECT_EQ(datePart(Interval::Week, day(2003, 1, 1)), 1);
    EXPECT_EQ(datePart(Interval::Week, day(2003, 1, 5)), 2);
    EXPECT_EQ(datePart(Interval::Week, day(2003, 12, 31)), 53);
    // 1 Jan 2005 was a Saturday: week 53 of 2004 under the four-day rule with Monday first.
    EXPECT_EQ(datePart(Interval::Week, day(2005, 1, 1), 2, 2), 53);
    EXPECT_EQ(datePart(Interval::Week, day(2005, 1, 3), 2, 2), 1);
    EXPECT_EQ(datePart(Interval::Week, day(2005, 1, 1), 1, 3), 52);
    EXPECT_EQ(datePart(Interval::Week, day(2005, 1, 2), 1, 3), 1);
    EXPECT_EQ(datePart(Interval::Week, day(2004, 1, 1), 2, 2), 1); // a Thursday
}

TEST(OleDate, DatePartFields) {
    const double t = at(2003, 8, 17, 14, 5, 9);
    EXPECT_EQ(datePart(Interval::Year, t), 2003);
    EXPECT_EQ(datePart(Interval::Quarter, t), 3);
    EXPECT_EQ(datePart(Interval::Month, t), 8);
    EXPECT_EQ(datePart(Interval::DayOfYear, t), 229);
    EXPECT_EQ(datePart(Interval::Day, t), 17);
    EXPECT_EQ(datePart(Interval::Weekday, t), 1);
    EXPECT_EQ(datePart(Interval::Weekday, t, 2), 7);
    EXPECT_EQ(datePart(Interval::Hour, t), 14);
    EXPECT_EQ(datePart(Interval::Minute, t), 5);
    EXPECT_EQ(datePart(Interval::Second, t), 9);
}

TEST(OleDate, IntervalNames) {
    EXPECT_EQ(parseInterval(u"YYYY"), Interval::Year);
    EXPECT_EQ(parseInterval(u"ww"), Interval::Week);
    EXPECT_EQ(parseInterval(u"n"), Interval::Minute);
    EXPECT_FALSE(parseInterval(u"x"));
    EXPECT_FALSE(parseInterval(u""));
}
