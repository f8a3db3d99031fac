// Dates as en-US text: FormatDateTime's named formats and the month and weekday names.
#include "DateText.h"

#include <array>

namespace vbs::lib {

namespace {

const std::array<const char16_t*, 12> kMonths = {
    u"January", u"February", u"March",     u"April",   u"May",      u"June",
    u"July",    u"August",   u"September", u"October", u"November", u"December"};
const std::array<const char16_t*, 7> kWeekdays = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                  u"Thursday", u"Friday", u"Saturday"};

std::u16string number(int value, int width = 1) {
    std::u16string digits;
    do {
        digits.insert(digits.begin(), char16_t(u'0' + value % 10));
        value /= 10;
    } while (value > 0);
    while (int(digits.size()) < width)
        digits.insert(digits.begin(), u'0');
    return digits;
}

std::u16string shortDate(const DateParts& p) {
    return number(p.month) + u"/" + number(p.day) + u"/" + number(p.year);
}

std::u16string longTime(const DateParts& p) {
    const int hour12 = p.hour % 12 == 0 ? 12 : p.hour % 12;
    return number(hour12) + u":" + number(p.minute, 2) + u":" + number(p.second, 2) +
           (p.hour < 12 ? u" AM" : u" PM");
}

} // namespace

std::u16string formatDate(double serial, DateFormat format) {
    const DateParts p = toParts(serial);
    switch (format) {
    case DateFormat::LongDate:
        return weekdayName(weekday(serial)) + u", " + monthName(p.month) + u" " + number(p.day) +
               u", " + number(p.year);
    case DateFormat::ShortDate:
        return shortDate(p);
    case DateFormat::LongTime:
        return longTime(p);
    case DateFormat::ShortTime:
        return number(p.hour, 2) + u":" + number(p.minute, 2);
    case DateFormat::General:
        break;
    }
    const bool noDate = p.year == 1899 && p.month == 12 && p.day == 30;
    const bool noTime = p.hour == 0 && p.minute == 0 && p.second == 0;
    if (noDate) return longTime(p);
    if (noTime) return shortDate(p);
    return shortDate(p) + u" " + longTime(p);
}

std::u16string monthName(int month, bool abbreviate) {
    std::u16string name = kMonths[(month - 1) % 12];
    return abbreviate ? name.substr(0, 3) : name;
}

std::u16string weekdayName(int day, bool abbreviate) {
    std::u16string name = kWeekdays[(day - 1) % 7];
    return abbreviate ? name.substr(0, 3) : name;
}

} // namespace vbs::lib
