// OLE date arithmetic: serials (days since 30 December 1899) to calendar parts and back.
#include "OleDate.h"

#include <cmath>
#include <cstdlib>
#include <string>

namespace vbs::lib {

namespace {

constexpr long long kSecondsPerDay = 86400;

long long floorDiv(long long a, long long b) {
    long long q = a / b;
    if ((a % b != 0) && ((a < 0) != (b < 0))) --q;
    return q;
}

long long floorMod(long long a, long long b) {
    return a - floorDiv(a, b) * b;
}

struct Civil {
    long long year;
    int month;
    int day;
};

// Howard Hinnant's days_from_civil / civil_from_days, shifted to the OLE epoch.
long long unixDaysFromCivil(long long y, int m, int d) {
    y -= m <= 2;
    const long long era = floorDiv(y, 400);
    const long long yoe = y - era * 400;
    const long long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const long long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

constexpr long long kOleEpochUnixDays = -25569; // 1899-12-30

Civil civilFromDays(long long oleDays) {
    const long long z = oleDays + kOleEpochUnixDays + 719468;
    const long long era = floorDiv(z, 146097);
    const long long doe = z - era * 146097;
    const long long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long long mp = (5 * doy + 2) / 153;
    const int d = int(doy - (153 * mp + 2) / 5 + 1);
    const int m = int(mp < 10 ? mp + 3 : mp - 9);
    return {yoe + era * 400 + (m <= 2), m, d};
}

// Whole seconds since the epoch on the linear scale, rounded as VBScript displays them.
long long totalSeconds(double serial) {
    return std::llround(serialToLinear(serial) * double(kSecondsPerDay));
}

double serialFromSeconds(long long seconds) {
    return linearToSerial(double(seconds) / double(kSecondsPerDay));
}

long long dayNumber(double serial) {
    return floorDiv(totalSeconds(serial), kSecondsPerDay);
}

std::optional<double> checked(double serial) {
    if (!inDateRange(serial)) return std::nullopt;
    return serial;
}

// First day of week 1 of the year under the given rule.
long long firstWeekStart(long long year, int firstDayOfWeek, int firstWeekOfYear) {
    const long long jan1 = daysFromCivil(year, 1, 1);
    const int offset = weekday(double(jan1), firstDayOfWeek) - 1;
    const long long start = jan1 - offset;
    switch (firstWeekOfYear) {
    case 2:
        return (7 - offset) >= 4 ? start : start + 7;
    case 3:
        return offset == 0 ? start : start + 7;
    default:
        return start;
    }
}

int normaliseFirstDay(int firstDayOfWeek) {
    return firstDayOfWeek == 0 ? 1 : firstDayOfWeek;
}

} // namespace

std::optional<Interval> parseInterval(std::u16string_view text) {
    std::u16string lower;
    for (char16_t c : text)
        lower += (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c;
    if (lower == u"yyyy") return Interval::Year;
    if (lower == u"q") return Interval::Quarter;
    if (lower == u"m") return Interval::Month;
    if (lower == u"y") return Interval::DayOfYear;
    if (lower == u"d") return Interval::Day;
    if (lower == u"w") return Interval::Weekday;
    if (lower == u"ww") return Interval::Week;
    if (lower == u"h") return Interval::Hour;
    if (lower == u"n") return Interval::Minute;
    if (lower == u"s") return Interval::Second;
    return std::nullopt;
}

long long daysFromCivil(long long year, int month, int day) {
    return unixDaysFromCivil(year, month, day) - kOleEpochUnixDays;
}

int daysInMonth(int year, int month) {
    static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month == 2 && ((year % 4 == 0 && year % 100 != 0) || year % 400 == 0)) return 29;
    return days[(month - 1) % 12];
}

bool isValidDate(int year, int month, int day) {
    return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
           day <= daysInMonth(year, month);
}

double serialToLinear(double serial) {
    const double day = std::trunc(serial);
    return day + std::fabs(serial - day);
}

double linearToSerial(double linear) {
    const double day = std::floor(linear);
    const double time = linear - day;
    return day >= 0 ? day + time : day - time;
}

bool inDateRange(double serial) {
    return serial >= kMinDateSerial - 0.9999999 && serial <= kMaxDateSerial;
}

DateParts toParts(double serial) {
    const long long seconds = totalSeconds(serial);
    const Civil c = civilFromDays(floorDiv(seconds, kSecondsPerDay));
    const long long inDay = floorMod(seconds, kSecondsPerDay);
    return {int(c.year), c.month, c.day, int(inDay / 3600), int(inDay / 60 % 60), int(inDay % 60)};
}

double fromParts(const DateParts& p) {
    const long long seconds = daysFromCivil(p.year, p.month, p.day) * kSecondsPerDay +
                              p.hour * 3600LL + p.minute * 60LL + p.second;
    return serialFromSeconds(seconds);
}

int weekday(double serial, int firstDayOfWeek) {
    const int sundayBased = int((floorMod(dayNumber(serial), 7) + 6) % 7) + 1;
    return (sundayBased - normaliseFirstDay(firstDayOfWeek) + 7) % 7 + 1;
}

int dayOfYear(double serial) {
    const long long day = dayNumber(serial);
    return int(day - daysFromCivil(civilFromDays(day).year, 1, 1)) + 1;
}

std::optional<double> dateSerial(long long year, long long month, long long day) {
    if (year >= 0 && year <= 29)
        year += 2000;
    else if (year >= 30 && year <= 99)
        year += 1900;
    const long long months = year * 12 + (month - 1);
    const long long y = floorDiv(months, 12);
    const int m = int(floorMod(months, 12)) + 1;
    if (y < 0 || y > 20000 || day < -4000000 || day > 4000000) return std::nullopt;
    return checked(double(daysFromCivil(y, m, 1) + day - 1));
}

std::optional<double> timeSerial(long long hour, long long minute, long long second) {
    const long long seconds = hour * 3600 + minute * 60 + second;
    return checked(serialFromSeconds(seconds));
}

std::optional<double> dateAdd(Interval interval, long long number, double serial) {
    long long months = 0;
    long long seconds = 0;
    switch (interval) {
    case Interval::Year:
        months = number * 12;
        break;
    case Interval::Quarter:
        months = number * 3;
        break;
    case Interval::Month:
        months = number;
        break;
    case Interval::DayOfYear:
    case Interval::Day:
    case Interval::Weekday:
        seconds = number * kSecondsPerDay;
        break;
    case Interval::Week:
        seconds = number * 7 * kSecondsPerDay;
        break;
    case Interval::Hour:
        seconds = number * 3600;
        break;
    case Interval::Minute:
        seconds = number * 60;
        break;
    case Interval::Second:
        seconds = number;
        break;
    }
    if (std::llabs(months) > 200000 || std::llabs(seconds) > 1000000LL * kSecondsPerDay)
        return std::nullopt;
    if (months == 0) return checked(serialFromSeconds(totalSeconds(serial) + seconds));
    // Whole months keep the day of the month, clipped to the end of a shorter month.
    DateParts p = toParts(serial);
    const long long total = p.year * 12LL + (p.month - 1) + months;
    p.year = int(floorDiv(total, 12));
    p.month = int(floorMod(total, 12)) + 1;
    if (p.year < 100 || p.year > 9999) return std::nullopt;
    if (p.day > daysInMonth(p.year, p.month)) p.day = daysInMonth(p.year, p.month);
    return checked(fromParts(p));
}

long long dateDiff(Interval interval, double serial1, double serial2, int firstDayOfWeek,
                   int /*firstWeekOfYear*/) {
    const DateParts a = toParts(serial1);
    const DateParts b = toParts(serial2);
    const long long s1 = totalSeconds(serial1);
    const long long s2 = totalSeconds(serial2);
    const long long d1 = floorDiv(s1, kSecondsPerDay);
    const long long d2 = floorDiv(s2, kSecondsPerDay);
    switch (interval) {
    case Interval::Year:
        return b.year - a.year;
    case Interval::Quarter:
        return (b.year * 4LL + (b.month - 1) / 3) - (a.year * 4LL + (a.month - 1) / 3);
    case Interval::Month:
        return (b.year * 12LL + b.month) - (a.year * 12LL + a.month);
    case Interval::DayOfYear:
    case Interval::Day:
        return d2 - d1;
    case Interval::Weekday:
        return (d2 - d1) / 7;
    case Interval::Week: {
        // Counts the first-days-of-week crossed, as a calendar would show them.
        const long long w1 = d1 - (weekday(serial1, firstDayOfWeek) - 1);
        const long long w2 = d2 - (weekday(serial2, firstDayOfWeek) - 1);
        return (w2 - w1) / 7;
    }
    case Interval::Hour:
        return floorDiv(s2, 3600) - floorDiv(s1, 3600);
    case Interval::Minute:
        return floorDiv(s2, 60) - floorDiv(s1, 60);
    case Interval::Second:
        return s2 - s1;
    }
    return 0;
}

int datePart(Interval interval, double serial, int firstDayOfWeek, int firstWeekOfYear) {
    const DateParts p = toParts(serial);
    switch (interval) {
    case Interval::Year:
        return p.year;
    case Interval::Quarter:
        return (p.month - 1) / 3 + 1;
    case Interval::Month:
        return p.month;
    case Interval::DayOfYear:
        return dayOfYear(serial);
    case Interval::Day:
        return p.day;
    case Interval::Weekday:
        return weekday(serial, firstDayOfWeek);
    case Interval::Week: {
        const long long day = dayNumber(serial);
        long long start = firstWeekStart(p.year, firstDayOfWeek, firstWeekOfYear);
        if (day < start) start = firstWeekStart(p.year - 1, firstDayOfWeek, firstWeekOfYear);
        return int((day - start) / 7) + 1;
    }
    case Interval::Hour:
        return p.hour;
    case Interval::Minute:
        return p.minute;
    case Interval::Second:
        return p.second;
    }
    return 0;
}

} // namespace vbs::lib
