// The core's date reading and rendering, which CDate, IsDate, DateValue and CStr share, against
// the library's calendar: the cases scripts meet.
#include "OleDate.h"
#include "vbscript/DateTime.h"
#include "vbscript/Locale.h"
#include "vbscript/Value.h"

#include <ctime>
#include <gtest/gtest.h>
#include <optional>

using namespace vbs::lib;

namespace {

double day(int y, int m, int d) {
    return double(daysFromCivil(y, m, d));
}

std::optional<double> parse(std::u16string_view text) {
    double out = 0;
    if (!vbs::Value::parseDate(text, out)) return std::nullopt;
    return out;
}

int thisYear() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_year + 1900;
}

} // namespace

TEST(CoreDates, ParsesDates) {
    struct Case {
        const char16_t* text;
        double expected;
    };
    const Case cases[] = {{u"1/2/2003", day(2003, 1, 2)},     {u"01/02/2003", day(2003, 1, 2)},
                          {u"1-2-2003", day(2003, 1, 2)},     {u"2003-01-02", day(2003, 1, 2)},
                          {u"2003/1/2", day(2003, 1, 2)},     {u"January 2, 2003", day(2003, 1, 2)},
                          {u"2 Jan 2003", day(2003, 1, 2)},   {u"jan 2 2003", day(2003, 1, 2)},
                          {u"Sept 9, 2003", day(2003, 9, 9)}, {u"1/2/03", day(2003, 1, 2)},
                          {u"1/2/30", day(1930, 1, 2)},       {u"13/1/2003", day(2003, 1, 13)},
                          {u"2/29/2004", day(2004, 2, 29)},   {u"  1/2/2003  ", day(2003, 1, 2)},
                          {u"12/31/9999", day(9999, 12, 31)}};
    for (const Case& c : cases) {
        auto serial = parse(c.text);
        if (!serial)
            ADD_FAILURE() << std::string(c.text,
                                         c.text + std::char_traits<char16_t>::length(c.text));
        else
            EXPECT_EQ(*serial, c.expected);
    }
}

TEST(CoreDates, ParsesTimes) {
    EXPECT_DOUBLE_EQ(*parse(u"10:30 PM"), 22.5 / 24);
    EXPECT_DOUBLE_EQ(*parse(u"22:30"), 22.5 / 24);
    EXPECT_DOUBLE_EQ(*parse(u"12:00 AM"), 0);
    EXPECT_DOUBLE_EQ(*parse(u"12:30 pm"), 12.5 / 24);
    EXPECT_DOUBLE_EQ(*parse(u"3 PM"), 15.0 / 24);
    EXPECT_DOUBLE_EQ(*parse(u"0:00:01"), 1.0 / 86400);
    EXPECT_DOUBLE_EQ(*parse(u"1/2/2003 10:30:15 AM"),
                     day(2003, 1, 2) + (10 * 3600 + 30 * 60 + 15) / 86400.0);
    EXPECT_DOUBLE_EQ(*parse(u"10:30 1/2/2003"), day(2003, 1, 2) + 10.5 / 24);
    EXPECT_DOUBLE_EQ(*parse(u"12/29/1899 6:00"), -1.25);
    EXPECT_DOUBLE_EQ(*parse(u"5:00"), 5.0 / 24);
}

TEST(CoreDates, RejectsNonDates) {
    for (const char16_t* text :
         {u"", u"   ", u"abc", u"1", u"2003", u"12.5.2003.1", u"2/30/2003", u"13/13/2003", u"25:00",
          u"10:60", u"13:00 PM", u"1:2:3:4", u"1/2/2003 PM", u"Monday", u"January", u"1/2/3/4",
          u"1/2/2003 x", u"$1/2/2003", u"12/31/10000"}) {
        EXPECT_FALSE(parse(text)) << std::string(text,
                                                 text + std::char_traits<char16_t>::length(text));
    }
}

// CStr of a date reads back as the same date in every locale SetLocale offers.
TEST(CoreDates, RoundTripsThroughText) {
    for (int32_t lcid : {1033, 2057, 1031, 1036, 1040, 1041, 3082}) {
        vbs::LocaleScope scope(vbs::findLocale(lcid));
        for (double serial : {day(1900, 3, 1) + 0.25, day(2024, 2, 29) + 0.999988, day(100, 1, 1),
                              day(1000, 1, 1), day(9999, 12, 31) + 0.5, -700.5, day(2003, 1, 12)}) {
            const auto back = parse(vbs::Value::formatDate(serial));
            ASSERT_TRUE(back) << lcid << " " << serial;
            EXPECT_NEAR(*back, serial, 1.0 / 86400) << lcid;
        }
    }
}

TEST(CoreDates, TextOfMidnightAndNegativeDates) {
    EXPECT_EQ(vbs::Value::formatDate(0), u"12:00:00 AM");
    EXPECT_EQ(vbs::Value::formatDate(-1.25), u"12/29/1899 6:00:00 AM");
}

TEST(CoreDates, CalendarsAgree) {
    // The core splits dates for CStr and Year/Month/...; the library does DateAdd and friends.
    for (double serial = -700000.3; serial < 2958465; serial += 3331.37) {
        const vbs::DateParts core = vbs::splitOleDate(serial);
        const DateParts lib = toParts(serial);
        ASSERT_EQ(core.year, lib.year) << serial;
        ASSERT_EQ(core.month, lib.month) << serial;
        ASSERT_EQ(core.day, lib.day) << serial;
        ASSERT_EQ(core.hour * 3600 + core.minute * 60 + core.second,
                  lib.hour * 3600 + lib.minute * 60 + lib.second)
            << serial;
        ASSERT_EQ(core.weekday, weekday(serial)) << serial;
    }
}

// FormatDateTime's long date, dates without a year or day, and three-digit years read back.
TEST(CoreDates, LongDateAndThreeDigitYears) {
    EXPECT_EQ(parse(u"Thursday, January 2, 2003"), day(2003, 1, 2));
    EXPECT_EQ(parse(u"1/1/100"), day(100, 1, 1));
    EXPECT_EQ(parse(u"March 2003"), day(2003, 3, 1));
    EXPECT_EQ(parse(u"1/2"), day(thisYear(), 1, 2)); // no year: this year
    EXPECT_EQ(parse(u"Dec 25"), day(thisYear(), 12, 25));
}
