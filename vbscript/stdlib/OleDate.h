// OLE date arithmetic: serials (days since 30 December 1899) to calendar parts and back.
#pragma once

#include <optional>
#include <string_view>

namespace vbs::lib {

// The range VBScript accepts: 1 January 100 to 31 December 9999 (23:59:59).
inline constexpr double kMinDateSerial = -657434.0;
inline constexpr double kMaxDateSerial = 2958465.9999999;

struct DateParts {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

// "yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s" without regard to case.
std::optional<Interval> parseInterval(std::u16string_view text);

// Day count of a proleptic Gregorian date relative to 30 December 1899.
long long daysFromCivil(long long year, int month, int day);
bool isValidDate(int year, int month, int day);
int daysInMonth(int year, int month);

// Negative serials keep a positive time fraction ("-1.25" is 29 Dec 1899, 06:00), so arithmetic
// runs on a linear day count where time always moves forward.
double serialToLinear(double serial);
double linearToSerial(double linear);
bool inDateRange(double serial);

// Calendar parts of a serial; the time is rounded to the nearest second, as VBScript shows it.
DateParts toParts(double serial);
double fromParts(const DateParts& parts);

// Weekday 1..7 counted from firstDayOfWeek (1 = Sunday ... 7 = Saturday; 0 = system = Sunday).
int weekday(double serial, int firstDayOfWeek = 1);
int dayOfYear(double serial);

// DateSerial/TimeSerial normalisation; nullopt when the result leaves the date range.
// Years 0..29 mean 2000..2029 and 30..99 mean 1930..1999.
std::optional<double> dateSerial(long long year, long long month, long long day);
std::optional<double> timeSerial(long long hour, long long minute, long long second);

// number is whole (the caller truncates); nullopt when the result leaves the date range.
std::optional<double> dateAdd(Interval interval, long long number, double serial);
// firstWeekOfYear: 1 = week of 1 January, 2 = first week with four days, 3 = first full week
// (0 = system = 1).
long long dateDiff(Interval interval, double serial1, double serial2, int firstDayOfWeek = 1,
                   int firstWeekOfYear = 1);
int datePart(Interval interval, double serial, int firstDayOfWeek = 1, int firstWeekOfYear = 1);

} // namespace vbs::lib
