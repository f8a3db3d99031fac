// Calendar arithmetic, date text (en-US) and date parsing.
#include "DateTime.h"
#include "Value.h"

#include <cmath>
#include <cstdio>
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

const char* const kMonths[12] = {"january", "february", "march", "april", "may", "june", "july",
    "august", "september", "october", "november", "december"};

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
    const DateParts p = splitOleDate(oleDate);
    const double days = std::trunc(oleDate);
    const bool hasTime = std::fabs(oleDate - days) * 86400.0 >= 0.5;
    char buf[64];
    std::string out;
    if (days != 0 || !hasTime) {
        if (days != 0 || oleDate == 0) {
            std::snprintf(buf, sizeof buf, "%d/%d/%d", p.month, p.day, p.year);
            out = buf;
        }
    }
    if (hasTime || (days == 0 && oleDate == 0)) {
        const int h12 = p.hour % 12 == 0 ? 12 : p.hour % 12;
        std::snprintf(buf, sizeof buf, "%d:%02d:%02d %s", h12, p.minute, p.second,
            p.hour < 12 ? "AM" : "PM");
        if (days == 0 && oleDate == 0)
            out.clear();
        if (!out.empty())
            out += ' ';
        out += buf;
    }
    return fromAscii(out);
}

namespace {

struct DateToken {
    enum Kind { Number, Month, AmPm, Sep, Colon } kind;
    int value;
    int digits = 0; // how a number was written: 1- and 2-digit years are windowed
};

const char* const kWeekdays[7] = {"sunday", "monday", "tuesday", "wednesday", "thursday", "friday",
    "saturday"};

bool isWeekdayName(const std::string& word)
{
    for (const char* name : kWeekdays)
        if (word.size() >= 3 && std::string(name).compare(0, word.size(), word) == 0)
            return true;
    return false;
}

int currentYear()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_year + 1900;
}

bool tokenizeDate(std::u16string_view t, std::vector<DateToken>& out)
{
    size_t i = 0;
    while (i < t.size()) {
        const char16_t c = t[i];
        if (c == ' ' || c == '\t' || c == ',') { ++i; continue; }
        if (c >= '0' && c <= '9') {
            int v = 0;
            size_t n = 0;
            while (i < t.size() && t[i] >= '0' && t[i] <= '9' && n < 9) {
                v = v * 10 + (t[i] - '0');
                ++i; ++n;
            }
            out.push_back({DateToken::Number, v, int(n)});
        } else if (c == '/' || c == '-' || c == '.') {
            out.push_back({DateToken::Sep, 0}); ++i;
        } else if (c == ':') {
            out.push_back({DateToken::Colon, 0}); ++i;
        } else if ((c | 0x20) >= 'a' && (c | 0x20) <= 'z') {
            std::string word;
            while (i < t.size() && t[i] < 0x80 && ((t[i] | 0x20) >= 'a' && (t[i] | 0x20) <= 'z'))
                word.push_back(char(t[i++] | 0x20));
            if (word == "am" || word == "pm" || word == "a" || word == "p") {
                out.push_back({DateToken::AmPm, word[0] == 'p' ? 1 : 0});
                continue;
            }
            if (isWeekdayName(word))
                continue; // "Thursday, January 2, 2003": the weekday adds nothing
            int month = 0;
            for (int m = 0; m < 12 && !month; ++m) {
                const std::string name = kMonths[m];
                if (word.size() >= 3 && name.compare(0, word.size(), word) == 0)
                    month = m + 1;
            }
            if (!month)
                return false;
            out.push_back({DateToken::Month, month});
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

} // namespace

bool Value::parseDate(std::u16string_view text, double& out)
{
    std::vector<DateToken> toks;
    if (!tokenizeDate(text, toks) || toks.empty())
        return false;
    // Split off the time: "h:m[:s] [AM|PM]" or "h AM".
    std::vector<int> timeNums;
    int ampm = -1;
    std::vector<DateToken> dateToks;
    for (size_t i = 0; i < toks.size(); ++i) {
        const bool startsTime = toks[i].kind == DateToken::Number
            && ((i + 1 < toks.size() && toks[i + 1].kind == DateToken::Colon)
                || (i + 1 < toks.size() && toks[i + 1].kind == DateToken::AmPm));
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
        if (toks[i].kind == DateToken::AmPm || toks[i].kind == DateToken::Colon)
            return false;
        dateToks.push_back(toks[i]);
    }
    double timePart = 0;
    if (!timeNums.empty()) {
        int h = timeNums[0];
        const int mi = timeNums.size() > 1 ? timeNums[1] : 0;
        const int s = timeNums.size() > 2 ? timeNums[2] : 0;
        if (ampm >= 0) {
            if (h < 1 || h > 12) return false;
            h = h % 12 + (ampm ? 12 : 0);
        }
        if (h > 23 || mi > 59 || s > 59) return false;
        timePart = makeOleTime(h, mi, s);
    }
    std::vector<DateToken> nums;
    int month = 0;
    for (const auto& t : dateToks) {
        if (t.kind == DateToken::Number) nums.push_back(t);
        else if (t.kind == DateToken::Month) { if (month) return false; month = t.value; }
    }
    if (dateToks.empty()) {
        if (timeNums.empty()) return false;
        out = timePart;
        return true;
    }
    int y, m, d;
    if (month) {
        m = month;
        if (nums.size() == 2) {
            // "January 2, 2026", "2 Jan 2026", "2026 Jan 2"
            if (nums[0].digits > 2) { y = nums[0].value; d = nums[1].value; }
            else { d = nums[0].value; y = fullYear(nums[1]); }
        } else if (nums.size() == 1) {
            // "March 2003" (a year: the first of the month) or "Dec 25" (a day of this year)
            if (nums[0].digits > 2 || nums[0].value > 31) { y = fullYear(nums[0]); d = 1; }
            else { d = nums[0].value; y = currentYear(); }
        } else {
            return false;
        }
    } else if (nums.size() == 3) {
        if (nums[0].digits > 2) { y = nums[0].value; m = nums[1].value; d = nums[2].value; } // y-m-d
        else {
            m = nums[0].value; d = nums[1].value; y = fullYear(nums[2]);                     // m/d/y
            if (!validDay(y, m, d) && validDay(y, d, m)) std::swap(m, d);                    // d/m/y
        }
    } else if (nums.size() == 2) {
        // "1/2": month and day of this year; "1/2026": the first of that month
        if (nums[1].digits > 2) { m = nums[0].value; d = 1; y = nums[1].value; }
        else { m = nums[0].value; d = nums[1].value; y = currentYear(); }
    } else {
        return false;
    }
    if (!validDay(y, m, d) || y > 9999 || y < 100)
        return false;
    out = combineOleDateTime(makeOleDate(y, m, d), timePart);
    return true;
}

} // namespace vbs
