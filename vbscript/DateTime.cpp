// Calendar arithmetic, date text and date reading in the active locale.
#include "DateTime.h"
#include "Locale.h"
#include "Value.h"

#include <cmath>
#include <ctime>
#include <vector>

namespace vbs {

namespace {

// Days since 1970-01-01 of a proleptic Gregorian date.
int64_t daysFromCivil(int64_t y, unsigned m, unsigned d)
{
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = unsigned(y - era * 400);
    const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + int64_t(doe) - 719468;
}

void civilFromDays(int64_t z, int& y, int& m, int& d)
{
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const unsigned doe = unsigned(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    d = int(doy - (153 * mp + 2) / 5 + 1);
    m = int(mp < 10 ? mp + 3 : mp - 9);
    y = int(int64_t(yoe) + era * 400 + (m <= 2));
}

const int64_t kOleEpoch = -25569; // 1899-12-30 in days since 1970-01-01

} // namespace

double makeOleDate(int year, int month, int day)
{
    int64_t y = year;
    int64_t m = int64_t(month) - 1;
    y += m >= 0 ? m / 12 : -((11 - m) / 12);
    m = ((m % 12) + 12) % 12;
    return double(daysFromCivil(y, unsigned(m + 1), 1) - kOleEpoch + (int64_t(day) - 1));
}

double makeOleTime(int hour, int minute, int second)
{
    return (double(hour) * 3600.0 + double(minute) * 60.0 + double(second)) / 86400.0;
}

double combineOleDateTime(double datePart, double timePart)
{
    return datePart < 0 ? datePart - timePart : datePart + timePart;
}

bool isValidOleDate(double oleDate)
{
    return oleDate >= -657434.0 && oleDate < 2958466.0;
}

DateParts splitOleDate(double oleDate)
{
    DateParts p;
    double days = std::trunc(oleDate);
    double frac = std::fabs(oleDate - days);
    int64_t secs = int64_t(std::llround(frac * 86400.0));
    if (secs >= 86400) {
        secs -= 86400;
        days += oleDate < 0 ? -1 : 1;
    }
    const int64_t z = int64_t(days) + kOleEpoch;
    civilFromDays(z, p.year, p.month, p.day);
    p.hour = int(secs / 3600);
    p.minute = int(secs / 60 % 60);
    p.second = int(secs % 60);
    p.weekday = int(((z % 7) + 7 + 4) % 7) + 1; // 1970-01-01 was a Thursday
    return p;
}

String Value::formatDate(double oleDate)
{
    return formatGeneralDate(oleDate, activeLocale());
}

namespace {

struct DateToken {
    enum Kind { Number, Month, AmPm, Sep, Colon } kind;
    int value;
    int digits = 0; // how a number was written: 1- and 2-digit years are windowed
};

enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

// The order of day, month and year in the locale's short date picture.
DateOrder dateOrder(const Locale& locale)
{
    for (char16_t c : locale.shortDate) {
        if (c == u'M') return DateOrder::MonthDayYear;
        if (c == u'd') return DateOrder::DayMonthYear;
        if (c == u'y') return DateOrder::YearMonthDay;
    }
    return DateOrder::MonthDayYear;
}

bool isLetter(char16_t c)
{
    return ((c | 0x20) >= 'a' && (c | 0x20) <= 'z') || (c >= 0xC0 && c != 0xD7 && c != 0xF7);
}

// A word names something when it is the name itself or, three letters or more, its start.
bool namesIt(const String& word, std::u16string_view name)
{
    const String folded = foldCase(name);
    if (word == folded)
        return true;
    return word.size() >= 3 && folded.size() >= word.size() && folded.compare(0, word.size(), word) == 0;
}

// 1..12 for a month name in English or in the locale's language, else 0.
int monthOf(const String& word, const Locale& locale)
{
    for (const Locale* l : {&englishUs(), &locale})
        for (int m = 0; m < 12; ++m)
            if (namesIt(word, l->months[size_t(m)]) || namesIt(word, l->monthsShort[size_t(m)]))
                return m + 1;
    return 0;
}

bool isDayName(const String& word, const Locale& locale)
{
    for (const Locale* l : {&englishUs(), &locale})
        for (int d = 0; d < 7; ++d)
            if (namesIt(word, l->days[size_t(d)]) || namesIt(word, l->daysShort[size_t(d)]))
                return true;
    return false;
}

// 0 for AM, 1 for PM, -1 for neither.
int amPmOf(const String& word, const Locale& locale)
{
    if (word == u"am" || word == u"a" || (!locale.am.empty() && word == foldCase(locale.am)))
        return 0;
    if (word == u"pm" || word == u"p" || (!locale.pm.empty() && word == foldCase(locale.pm)))
        return 1;
    return -1;
}

// The Japanese date marks for year, month and day separate the numbers.
bool isDateMark(char16_t c)
{
    return c == u'\u5E74' || c == u'\u6708' || c == u'\u65E5';
}

bool tokenizeDate(std::u16string_view t, const Locale& locale, std::vector<DateToken>& out)
{
    size_t i = 0;
    while (i < t.size()) {
        const char16_t c = t[i];
        if (c == ' ' || c == '\t' || c == ',' || c == 0xA0) { ++i; continue; }
        if (c >= '0' && c <= '9') {
            int v = 0;
            size_t n = 0;
            while (i < t.size() && t[i] >= '0' && t[i] <= '9' && n < 9) {
                v = v * 10 + (t[i] - '0');
                ++i; ++n;
            }
            out.push_back({DateToken::Number, v, int(n)});
        } else if (c == '/' || c == '-' || c == '.' || isDateMark(c)) {
            out.push_back({DateToken::Sep, 0}); ++i;
        } else if (c == ':') {
            out.push_back({DateToken::Colon, 0}); ++i;
        } else if (isLetter(c) || c >= 0x3000) {
            const size_t start = i;
            while (i < t.size() && (isLetter(t[i]) || (t[i] >= 0x3000 && !isDateMark(t[i]))))
                ++i;
            const String word = foldCase(t.substr(start, i - start));
            if (const int ampm = amPmOf(word, locale); ampm >= 0) {
                out.push_back({DateToken::AmPm, ampm});
                continue;
            }
            if (const int month = monthOf(word, locale)) {
                out.push_back({DateToken::Month, month});
                continue;
            }
            if (!isDayName(word, locale)) // "Thursday, January 2, 2003": the weekday adds nothing
                return false;
        } else {
            return false;
        }
    }
    return true;
}

bool validDay(int y, int m, int d)
{
    if (m < 1 || m > 12 || d < 1 || d > 31)
        return false;
    return splitOleDate(makeOleDate(y, m, d)).month == m;
}

// Years written with one or two digits are windowed to 1930-2029; others are taken as written.
int fullYear(const DateToken& t)
{
    if (t.digits > 2)
        return t.value;
    return t.value < 30 ? 2000 + t.value : 1900 + t.value;
}

int currentYear()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_year + 1900;
}

// Day, month and year from numbers only, in the locale's order; a first number of more than two
// digits is a year, and a date that cannot be read in that order is tried the other way round.
bool numericDate(const std::vector<DateToken>& nums, DateOrder order, int& y, int& m, int& d)
{
    if (nums.size() == 3) {
        if (nums[0].digits > 2 || (order == DateOrder::YearMonthDay && nums[2].digits <= 2)) {
            y = fullYear(nums[0]); m = nums[1].value; d = nums[2].value;
            return true;
        }
        // The year comes last: month and day in the locale's order (month first when its own
        // order puts the year first).
        y = fullYear(nums[2]);
        m = nums[0].value; d = nums[1].value;
        if (order == DateOrder::DayMonthYear)
            std::swap(m, d);
        if (!validDay(y, m, d) && validDay(y, d, m))
            std::swap(m, d);
        return true;
    }
    if (nums.size() == 2) {
        // "1/2": month and day of this year; "1/2026": the first of that month
        if (nums[1].digits > 2) { m = nums[0].value; d = 1; y = nums[1].value; return true; }
        m = nums[0].value; d = nums[1].value; y = currentYear();
        if (order == DateOrder::DayMonthYear)
            std::swap(m, d);
        return true;
    }
    return false;
}

// Day and year around a month name: "January 2, 2026", "2 Jan 2026", "2026 Jan 2", "March 2003"
// (the first of the month), "Dec 25" (a day of this year).
bool namedMonthDate(const std::vector<DateToken>& nums, int& y, int& d)
{
    if (nums.size() == 2) {
        if (nums[0].digits > 2) { y = nums[0].value; d = nums[1].value; }
        else { d = nums[0].value; y = fullYear(nums[1]); }
        return true;
    }
    if (nums.size() == 1) {
        if (nums[0].digits > 2 || nums[0].value > 31) { y = fullYear(nums[0]); d = 1; }
        else { d = nums[0].value; y = currentYear(); }
        return true;
    }
    return false;
}

// Splits off the time, "h:m[:s] [AM|PM]" or "h AM", as a fraction of a day; false when malformed.
bool takeTime(const std::vector<DateToken>& toks, std::vector<DateToken>& dateToks, bool& hasTime,
    double& timePart)
{
    std::vector<int> timeNums;
    int ampm = -1;
    for (size_t i = 0; i < toks.size(); ++i) {
        const bool startsTime = toks[i].kind == DateToken::Number && i + 1 < toks.size()
            && (toks[i + 1].kind == DateToken::Colon || toks[i + 1].kind == DateToken::AmPm);
        if (startsTime && timeNums.empty()) {
            timeNums.push_back(toks[i].value);
            while (i + 2 < toks.size() && toks[i + 1].kind == DateToken::Colon
                && toks[i + 2].kind == DateToken::Number) {
                timeNums.push_back(toks[i + 2].value);
                i += 2;
            }
            if (i + 1 < toks.size() && toks[i + 1].kind == DateToken::AmPm)
                ampm = toks[++i].value;
            if (timeNums.size() > 3)
                return false;
            continue;
        }
        if (toks[i].kind == DateToken::AmPm && timeNums.empty() && i + 1 < toks.size()
            && toks[i + 1].kind == DateToken::Number) {
            ampm = toks[i].value; // a designator written first (Japanese)
            continue;
        }
        if (toks[i].kind == DateToken::AmPm || toks[i].kind == DateToken::Colon)
            return false;
        dateToks.push_back(toks[i]);
    }
    hasTime = !timeNums.empty();
    timePart = 0;
    if (!hasTime)
        return true;
    int h = timeNums[0];
    const int mi = timeNums.size() > 1 ? timeNums[1] : 0;
    const int s = timeNums.size() > 2 ? timeNums[2] : 0;
    if (ampm >= 0) {
        if (h < 1 || h > 12) return false;
        h = h % 12 + (ampm ? 12 : 0);
    }
    if (h > 23 || mi > 59 || s > 59) return false;
    timePart = makeOleTime(h, mi, s);
    return true;
}

} // namespace

bool Value::parseDate(std::u16string_view text, double& out)
{
    return parseDate(text, out, activeLocale());
}

bool Value::parseDate(std::u16string_view text, double& out, const Locale& locale)
{
    std::vector<DateToken> toks;
    if (!tokenizeDate(text, locale, toks) || toks.empty())
        return false;
    std::vector<DateToken> dateToks;
    bool hasTime = false;
    double timePart = 0;
    if (!takeTime(toks, dateToks, hasTime, timePart))
        return false;
    std::vector<DateToken> nums;
    int month = 0;
    for (const auto& t : dateToks) {
        if (t.kind == DateToken::Number) nums.push_back(t);
        else if (t.kind == DateToken::Month) { if (month) return false; month = t.value; }
    }
    if (dateToks.empty()) {
        if (!hasTime) return false;
        out = timePart;
        return true;
    }
    int y, m = month, d;
    const bool read = month ? namedMonthDate(nums, y, d) : numericDate(nums, dateOrder(locale), y, m, d);
    if (!read || !validDay(y, m, d) || y > 9999 || y < 100)
        return false;
    out = combineOleDateTime(makeOleDate(y, m, d), timePart);
    return true;
}

} // namespace vbs
