// The locales SetLocale can choose: how numbers, amounts and dates are written and read.
#pragma once

#include "DateTime.h"
#include "Text.h"

#include <array>
#include <cstdint>

namespace vbs {

struct Locale {
    int32_t lcid;
    std::u16string_view tag; // "en-US"
    char16_t decimal;
    char16_t group;
    // Amounts: the symbol, the default number of decimals, and where symbol and sign go, numbered
    // as Windows numbers them (positive 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $"; negative 0 "($1)",
    // 1 "-$1", 8 "-1 $", 9 "-$ 1").
    std::u16string_view currency;
    int currencyDigits;
    int currencyPositive;
    int currencyNegative;
    // Date and time pictures (d dd ddd dddd M MM MMM MMMM yy yyyy h hh H HH m mm s ss tt 'text').
    std::u16string_view shortDate;
    std::u16string_view longDate;
    std::u16string_view longTime;
    std::u16string_view am, pm;
    std::array<std::u16string_view, 12> months, monthsShort;
    std::array<std::u16string_view, 7> days, daysShort; // Sunday first
};

const Locale& englishUs();
// nullptr for a locale the engine does not know; 0 is the system's, which is en-US here.
const Locale* findLocale(int32_t lcid);
const Locale* findLocale(std::u16string_view tag);

// The locale conversions use on this thread: the running engine's (en-US outside the engine).
const Locale& activeLocale();

// Makes a locale the active one until the end of the scope.
class LocaleScope {
public:
    explicit LocaleScope(const Locale* locale);
    ~LocaleScope();
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;
    static void set(const Locale* locale); // changes the active locale of the current scope

private:
    const Locale* m_saved;
};

// A date or time written with one of the locale's pictures.
String formatDatePicture(const DateParts& parts, std::u16string_view picture, const Locale& locale);
// CStr of a date: the short date and the long time, each left out when it is zero.
String formatGeneralDate(double oleDate, const Locale& locale);

} // namespace vbs
