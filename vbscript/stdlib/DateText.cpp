// Dates as en-US text: parsing for CDate/DateValue/TimeValue/IsDate and the standard formats.
#include "DateText.h"

#include <array>
#include <cmath>
#include <vector>

namespace vbs::lib {

namespace {

const std::array<const char16_t*, 12> kMonths = {
    u"January", u"February", u"March",     u"April",   u"May",      u"June",
    u"July",    u"August",   u"September", u"October", u"November", u"December"};
const std::array<const char16_t*, 7> kWeekdays = {u"Sunday",   u"Monday", u"Tuesday",
                                                  u"Wednesday", u"Thursday", u"Friday",
                                                  u"Saturday"};

char16_t lower(char16_t c) { return (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c; }

bool equalsNoCase(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (lower(a[i]) != lower(b[i])) return false;
    return true;
}

// A full name or any abbreviation of at least three letters ("Sep", "Sept").
bool matchesName(std::u16string_view word, std::u16string_view name) {
    return word.size() >= 3 && word.size() <= name.size() &&
           equalsNoCase(word, name.substr(0, word.size()));
}

enum class TokenKind { Number, Month, Weekday, Am, Pm };

struct Token {
    TokenKind kind;
    int value = 0;
    int digits = 0;
    char16_t separatorAfter = 0;
};

std::optional<Token> classifyWord(std::u16string_view word) {
    if (equalsNoCase(word, u"am") || equalsNoCase(word, u"a")) return Token{TokenKind::Am};
    if (equalsNoCase(word, u"pm") || equalsNoCase(word, u"p")) return Token{TokenKind::Pm};
    for (int i = 0; i < 12; ++i)
        if (matchesName(word, kMonths[i])) return Token{TokenKind::Month, i + 1};
    for (int i = 0; i < 7; ++i)
        if (matchesName(word, kWeekdays[i])) return Token{TokenKind::Weekday, i + 1};
    return std::nullopt;
}

bool isSeparator(char16_t c) {
    return c == u'/' || c == u'-' || c == u'.' || c == u',' || c == u':';
}

std::optional<std::vector<Token>> tokenize(std::u16string_view text) {
    std::vector<Token> tokens;
    size_t i = 0;
    while (i < text.size()) {
        const char16_t c = text[i];
        if (c == u' ' || c == u'\t') {
            ++i;
        } else if (c >= u'0' && c <= u'9') {
            Token t{TokenKind::Number};
            while (i < text.size() && text[i] >= u'0' && text[i] <= u'9') {
                if (t.digits++ > 6) return std::nullopt;
                t.value = t.value * 10 + (text[i++] - u'0');
            }
            tokens.push_back(t);
        } else if (lower(c) >= u'a' && lower(c) <= u'z') {
            const size_t start = i;
            while (i < text.size() && lower(text[i]) >= u'a' && lower(text[i]) <= u'z') ++i;
            auto t = classifyWord(text.substr(start, i - start));
            if (!t) return std::nullopt;
            tokens.push_back(*t);
        } else if (isSeparator(c)) {
            if (tokens.empty() || tokens.back().separatorAfter != 0) return std::nullopt;
            tokens.back().separatorAfter = c;
            ++i;
        } else {
            return std::nullopt;
        }
    }
    return tokens;
}

int expandYear(const Token& t) {
    if (t.digits <= 2) return t.value < 30 ? 2000 + t.value : 1900 + t.value;
    return t.value;
}

struct TimeOfDay {
    bool present = false;
    int hour = 0, minute = 0, second = 0;
};

// Takes "h:mm[:ss] [AM|PM]" or "h AM|PM" out of the token list.
std::optional<TimeOfDay> extractTime(std::vector<Token>& tokens) {
    TimeOfDay time;
    size_t start = tokens.size();
    for (size_t i = 0; i < tokens.size(); ++i) {
        const bool colon = tokens[i].kind == TokenKind::Number && tokens[i].separatorAfter == u':';
        const bool ampm = i + 1 < tokens.size() && tokens[i].kind == TokenKind::Number &&
                          (tokens[i + 1].kind == TokenKind::Am || tokens[i + 1].kind == TokenKind::Pm);
        if (colon || ampm) { start = i; break; }
    }
    if (start == tokens.size()) {
        for (const Token& t : tokens)
            if (t.kind == TokenKind::Am || t.kind == TokenKind::Pm) return std::nullopt;
        return time;
    }
    int parts[3] = {0, 0, 0};
    size_t i = start;
    int count = 0;
    while (i < tokens.size() && tokens[i].kind == TokenKind::Number && count < 3) {
        parts[count++] = tokens[i].value;
        if (tokens[i++].separatorAfter != u':') break;
    }
    if (tokens[i - 1].separatorAfter == u':' ) return std::nullopt;
    if (parts[1] > 59 || parts[2] > 59) return std::nullopt;
    int hour = parts[0];
    if (i < tokens.size() && (tokens[i].kind == TokenKind::Am || tokens[i].kind == TokenKind::Pm)) {
        if (hour > 12) return std::nullopt;
        if (hour == 12) hour = 0;
        if (tokens[i].kind == TokenKind::Pm) hour += 12;
        ++i;
    } else if (hour > 23) {
        return std::nullopt;
    }
    tokens.erase(tokens.begin() + long(start), tokens.begin() + long(i));
    for (const Token& t : tokens)
        if (t.kind == TokenKind::Am || t.kind == TokenKind::Pm) return std::nullopt;
    time = {true, hour, parts[1], parts[2]};
    return time;
}

std::optional<DateParts> dateWithMonthName(int month, const std::vector<Token>& numbers,
                                           int currentYear) {
    DateParts p;
    p.month = month;
    if (numbers.size() == 1) {
        const Token& n = numbers[0];
        if (n.digits >= 3 || n.value > 31) {
            p.year = expandYear(n);
            p.day = 1;
        } else {
            p.year = currentYear;
            p.day = n.value;
        }
    } else if (numbers.size() == 2) {
        const bool yearFirst = numbers[0].digits >= 3 || numbers[0].value > 31;
        p.year = expandYear(numbers[yearFirst ? 0 : 1]);
        p.day = numbers[yearFirst ? 1 : 0].value;
    } else {
        return std::nullopt;
    }
    return p;
}

std::optional<DateParts> numericDate(const std::vector<Token>& n, int currentYear) {
    DateParts p;
    if (n.size() == 3) {
        if (n[0].digits >= 3 || n[0].value > 31) {
            p = {expandYear(n[0]), n[1].value, n[2].value};
        } else {
            p = {expandYear(n[2]), n[0].value, n[1].value};
        }
    } else if (n.size() == 2) {
        if (n[0].digits >= 3 || n[0].value > 31) {
            p = {expandYear(n[0]), n[1].value, 1};
        } else if (n[1].digits >= 3 || n[1].value > 31) {
            p = {expandYear(n[1]), n[0].value, 1};
        } else {
            p = {currentYear, n[0].value, n[1].value};
        }
    } else {
        return std::nullopt;
    }
    // A first number that cannot be a month is read as the day ("13/1/2003").
    if (p.month > 12 && p.day <= 12) std::swap(p.month, p.day);
    return p;
}

} // namespace

std::optional<ParsedDate> parseDateDetailed(std::u16string_view text, int currentYear) {
    auto tokens = tokenize(text);
    if (!tokens || tokens->empty()) return std::nullopt;
    auto time = extractTime(*tokens);
    if (!time) return std::nullopt;
    int month = 0;
    int weekdays = 0;
    std::vector<Token> numbers;
    for (const Token& t : *tokens) {
        if (t.kind == TokenKind::Number) numbers.push_back(t);
        else if (t.kind == TokenKind::Weekday) ++weekdays;
        else if (t.kind == TokenKind::Month && month == 0) month = t.value;
        else return std::nullopt;
    }
    if (weekdays > 1) return std::nullopt;
    ParsedDate result;
    double day = 0;
    if (month != 0 || !numbers.empty()) {
        auto parts = month != 0 ? dateWithMonthName(month, numbers, currentYear)
                                : numericDate(numbers, currentYear);
        if (!parts || !isValidDate(parts->year, parts->month, parts->day)) return std::nullopt;
        day = double(daysFromCivil(parts->year, parts->month, parts->day));
        result.hasDate = true;
    } else if (!time->present || weekdays != 0) {
        return std::nullopt;
    }
    const double fraction = (time->hour * 3600 + time->minute * 60 + time->second) / 86400.0;
    result.hasTime = time->present;
    result.serial = day >= 0 ? day + fraction : day - fraction;
    return result;
}

std::optional<double> parseDate(std::u16string_view text, int currentYear) {
    auto parsed = parseDateDetailed(text, currentYear);
    if (!parsed) return std::nullopt;
    return parsed->serial;
}

namespace {

std::u16string number(int value, int width = 1) {
    std::u16string digits;
    do {
        digits.insert(digits.begin(), char16_t(u'0' + value % 10));
        value /= 10;
    } while (value > 0);
    while (int(digits.size()) < width) digits.insert(digits.begin(), u'0');
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
    case DateFormat::ShortDate: return shortDate(p);
    case DateFormat::LongTime: return longTime(p);
    case DateFormat::ShortTime: return number(p.hour, 2) + u":" + number(p.minute, 2);
    case DateFormat::General: break;
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
