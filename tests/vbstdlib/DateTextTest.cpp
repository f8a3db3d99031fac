// en-US date text: what CDate/IsDate accept and how dates are shown.
#include "DateText.h"

#include <gtest/gtest.h>

using namespace vbs::lib;

namespace {

double day(int y, int m, int d) { return double(daysFromCivil(y, m, d)); }

} // namespace

TEST(DateText, ParsesDates) {
    struct Case { const char16_t* text; double expected; };
    const Case cases[] = {
        {u"1/2/2003", day(2003, 1, 2)},         {u"01/02/2003", day(2003, 1, 2)},
        {u"1-2-2003", day(2003, 1, 2)},         {u"2003-01-02", day(2003, 1, 2)},
        {u"2003/1/2", day(2003, 1, 2)},         {u"January 2, 2003", day(2003, 1, 2)},
        {u"2 Jan 2003", day(2003, 1, 2)},       {u"jan 2 2003", day(2003, 1, 2)},
        {u"Thursday, January 2, 2003", day(2003, 1, 2)},
        {u"Sept 9, 2003", day(2003, 9, 9)},     {u"1/2/03", day(2003, 1, 2)},
        {u"1/2/30", day(1930, 1, 2)},           {u"13/1/2003", day(2003, 1, 13)},
        {u"2/29/2004", day(2004, 2, 29)},       {u"March 2003", day(2003, 3, 1)},
        {u"  1/2/2003  ", day(2003, 1, 2)},     {u"1/2", day(2026, 1, 2)},
        {u"Dec 25", day(2026, 12, 25)},         {u"12/31/9999", day(9999, 12, 31)}};
    for (const Case& c : cases) {
        auto serial = parseDate(c.text, 2026);
        ASSERT_TRUE(serial) << std::string(c.text, c.text + std::char_traits<char16_t>::length(c.text));
        EXPECT_EQ(*serial, c.expected);
    }
}

TEST(DateText, ParsesTimes) {
    EXPECT_DOUBLE_EQ(*parseDate(u"10:30 PM", 2026), 22.5 / 24);
    EXPECT_DOUBLE_EQ(*parseDate(u"22:30", 2026), 22.5 / 24);
    EXPECT_DOUBLE_EQ(*parseDate(u"12:00 AM", 2026), 0);
    EXPECT_DOUBLE_EQ(*parseDate(u"12:30 pm", 2026), 12.5 / 24);
    EXPECT_DOUBLE_EQ(*parseDate(u"3 PM", 2026), 15.0 / 24);
    EXPECT_DOUBLE_EQ(*parseDate(u"0:00:01", 2026), 1.0 / 86400);
    EXPECT_DOUBLE_EQ(*parseDate(u"1/2/2003 10:30:15 AM", 2026),
                     day(2003, 1, 2) + (10 * 3600 + 30 * 60 + 15) / 86400.0);
    EXPECT_DOUBLE_EQ(*parseDate(u"10:30 1/2/2003", 2026), day(2003, 1, 2) + 10.5 / 24);
    EXPECT_DOUBLE_EQ(*parseDate(u"12/29/1899 6:00", 2026), -1.25);
    auto detailed = parseDateDetailed(u"5:00", 2026);
    ASSERT_TRUE(detailed);
    EXPECT_FALSE(detailed->hasDate);
    EXPECT_TRUE(detailed->hasTime);
}

TEST(DateText, RejectsNonDates) {
    for (const char16_t* text :
         {u"", u"   ", u"abc", u"1", u"2003", u"12.5.2003.1", u"2/30/2003", u"13/13/2003",
          u"25:00", u"10:60", u"13:00 PM", u"1:2:3:4", u"1/2/2003 PM", u"Monday",
          u"January", u"1/2/3/4", u"1/2/2003 x", u"$1/2/2003", u"12/31/10000"}) {
        EXPECT_FALSE(parseDate(text, 2026))
            << std::string(text, text + std::char_traits<char16_t>::length(text));
    }
}

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

TEST(DateText, RoundTripsThroughText) {
    for (double serial : {day(1900, 3, 1) + 0.25, day(2024, 2, 29) + 0.999988, day(100, 1, 1),
                          day(9999, 12, 31) + 0.5, -700.5}) {
        const auto back = parseDate(formatDate(serial), 2026);
        ASSERT_TRUE(back) << serial;
        EXPECT_NEAR(*back, serial, 1.0 / 86400);
    }
}

TEST(DateText, Names) {
    EXPECT_EQ(monthName(9), u"September");
    EXPECT_EQ(monthName(9, true), u"Sep");
    EXPECT_EQ(weekdayName(1), u"Sunday");
    EXPECT_EQ(weekdayName(7, true), u"Sat");
}
