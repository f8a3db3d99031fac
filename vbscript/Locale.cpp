// The locales SetLocale can choose, with the defaults Windows gives them, and date pictures.
#include "Locale.h"

#include <cmath>

namespace vbs {

namespace {

using Months = std::array<std::u16string_view, 12>;
using Days = std::array<std::u16string_view, 7>;
constexpr Months kEnglishMonths{u"January", u"February", u"March", u"April", u"May", u"June",
    u"July", u"August", u"September", u"October", u"November", u"December"};
constexpr Months kEnglishMonthsShort{
    u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
constexpr Days kEnglishDays{
    u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};
constexpr Days kEnglishDaysShort{u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};

const Locale kLocales[] = {
    {1033, u"en-US", u'.', u',', u"$", 2, 0, 0, u"M/d/yyyy", u"dddd, MMMM d, yyyy", u"h:mm:ss tt",
        u"AM", u"PM",
        kEnglishMonths, kEnglishMonthsShort, kEnglishDays, kEnglishDaysShort},
    {2057, u"en-GB", u'.', u',', u"\u00A3", 2, 0, 1, u"dd/MM/yyyy", u"dd MMMM yyyy", u"HH:mm:ss",
        u"AM", u"PM",
        kEnglishMonths, kEnglishMonthsShort, kEnglishDays, kEnglishDaysShort},
    {1031, u"de-DE", u',', u'.', u"\u20AC", 2, 3, 8, u"dd.MM.yyyy", u"dddd, d. MMMM yyyy",
        u"HH:mm:ss", u"", u"",
        {u"Januar", u"Februar", u"M\u00E4rz", u"April", u"Mai", u"Juni", u"Juli", u"August",
            u"September", u"Oktober", u"November", u"Dezember"},
        {u"Jan", u"Feb", u"Mrz", u"Apr", u"Mai", u"Jun", u"Jul", u"Aug", u"Sep", u"Okt", u"Nov",
            u"Dez"},
        {u"Sonntag", u"Montag", u"Dienstag", u"Mittwoch", u"Donnerstag", u"Freitag", u"Samstag"},
        {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"}},
    {1036, u"fr-FR", u',', u'\u00A0', u"\u20AC", 2, 3, 8, u"dd/MM/yyyy", u"dddd d MMMM yyyy",
        u"HH:mm:ss", u"", u"",
        {u"janvier", u"f\u00E9vrier", u"mars", u"avril", u"mai", u"juin", u"juillet", u"ao\u00FBt",
            u"septembre", u"octobre", u"novembre", u"d\u00E9cembre"},
        {u"janv.", u"f\u00E9vr.", u"mars", u"avr.", u"mai", u"juin", u"juil.", u"ao\u00FBt",
            u"sept.", u"oct.", u"nov.", u"d\u00E9c."},
        {u"dimanche", u"lundi", u"mardi", u"mercredi", u"jeudi", u"vendredi", u"samedi"},
        {u"dim.", u"lun.", u"mar.", u"mer.", u"jeu.", u"ven.", u"sam."}},
    {1040, u"it-IT", u',', u'.', u"\u20AC", 2, 2, 9, u"dd/MM/yyyy", u"dddd d MMMM yyyy",
        u"HH:mm:ss", u"", u"",
        {u"gennaio", u"febbraio", u"marzo", u"aprile", u"maggio", u"giugno", u"luglio", u"agosto",
            u"settembre", u"ottobre", u"novembre", u"dicembre"},
        {u"gen", u"feb", u"mar", u"apr", u"mag", u"giu", u"lug", u"ago", u"set", u"ott", u"nov",
            u"dic"},
        {u"domenica", u"luned\u00EC", u"marted\u00EC", u"mercoled\u00EC", u"gioved\u00EC",
            u"venerd\u00EC", u"sabato"},
        {u"dom", u"lun", u"mar", u"mer", u"gio", u"ven", u"sab"}},
    {1041, u"ja-JP", u'.', u',', u"\u00A5", 0, 0, 1, u"yyyy/MM/dd", u"yyyy'\u5E74'M'\u6708'd'\u65E5'",
        u"H:mm:ss", u"\u5348\u524D", u"\u5348\u5F8C",
        {u"1\u6708", u"2\u6708", u"3\u6708", u"4\u6708", u"5\u6708", u"6\u6708", u"7\u6708",
            u"8\u6708", u"9\u6708", u"10\u6708", u"11\u6708", u"12\u6708"},
        {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10", u"11", u"12"},
        {u"\u65E5\u66DC\u65E5", u"\u6708\u66DC\u65E5", u"\u706B\u66DC\u65E5", u"\u6C34\u66DC\u65E5",
            u"\u6728\u66DC\u65E5", u"\u91D1\u66DC\u65E5", u"\u571F\u66DC\u65E5"},
        {u"\u65E5", u"\u6708", u"\u706B", u"\u6C34", u"\u6728", u"\u91D1", u"\u571F"}},
    {3082, u"es-ES", u',', u'.', u"\u20AC", 2, 3, 8, u"dd/MM/yyyy",
        u"dddd, dd' de 'MMMM' de 'yyyy", u"H:mm:ss", u"", u"",
        {u"enero", u"febrero", u"marzo", u"abril", u"mayo", u"junio", u"julio", u"agosto",
            u"septiembre", u"octubre", u"noviembre", u"diciembre"},
        {u"ene", u"feb", u"mar", u"abr", u"may", u"jun", u"jul", u"ago", u"sep", u"oct", u"nov",
            u"dic"},
        {u"domingo", u"lunes", u"martes", u"mi\u00E9rcoles", u"jueves", u"viernes", u"s\u00E1bado"},
        {u"dom", u"lun", u"mar", u"mi\u00E9", u"jue", u"vie", u"s\u00E1b"}},
};

thread_local const Locale* t_active = nullptr;

void appendNumber(String& out, int value, int width)
{
    String digits;
    do {
        digits.insert(digits.begin(), char16_t(u'0' + value % 10));
        value /= 10;
    } while (value > 0);
    if (int(digits.size()) < width)
        out.append(size_t(width) - digits.size(), u'0');
    out += digits;
}

// How many times the character at i repeats.
size_t runLength(std::u16string_view s, size_t i)
{
    size_t n = 1;
    while (i + n < s.size() && s[i + n] == s[i])
        ++n;
    return n;
}

void appendField(String& out, char16_t c, size_t n, const DateParts& p, const Locale& loc)
{
    const int w = n >= 2 ? 2 : 1;
    switch (c) {
    case u'd':
        if (n >= 4) out += loc.days[size_t(p.weekday - 1)];
        else if (n == 3) out += loc.daysShort[size_t(p.weekday - 1)];
        else appendNumber(out, p.day, w);
        return;
    case u'M':
        if (n >= 4) out += loc.months[size_t(p.month - 1)];
        else if (n == 3) out += loc.monthsShort[size_t(p.month - 1)];
        else appendNumber(out, p.month, w);
        return;
    case u'y':
        if (n <= 2) appendNumber(out, p.year % 100, 2);
        else appendNumber(out, p.year, 4);
        return;
    case u'h': appendNumber(out, p.hour % 12 == 0 ? 12 : p.hour % 12, w); return;
    case u'H': appendNumber(out, p.hour, w); return;
    case u'm': appendNumber(out, p.minute, w); return;
    case u's': appendNumber(out, p.second, w); return;
    case u't': {
        const std::u16string_view mark = p.hour < 12 ? loc.am : loc.pm;
        out += n == 1 ? mark.substr(0, 1) : mark;
        return;
    }
    default: out.append(n, c);
    }
}

} // namespace

const Locale& englishUs()
{
    return kLocales[0];
}

const Locale* findLocale(int32_t lcid)
{
    if (lcid == 0)
        return &englishUs();
    for (const Locale& l : kLocales)
        if (l.lcid == lcid)
            return &l;
    return nullptr;
}

const Locale* findLocale(std::u16string_view tag)
{
    for (const Locale& l : kLocales)
        if (equalsNoCase(l.tag, tag))
            return &l;
    return nullptr;
}

const Locale& activeLocale()
{
    return t_active ? *t_active : englishUs();
}

LocaleScope::LocaleScope(const Locale* locale) : m_saved(t_active)
{
    t_active = locale;
}

LocaleScope::~LocaleScope()
{
    t_active = m_saved;
}

void LocaleScope::set(const Locale* locale)
{
    t_active = locale;
}

String formatDatePicture(const DateParts& parts, std::u16string_view picture, const Locale& locale)
{
    String out;
    for (size_t i = 0; i < picture.size();) {
        const char16_t c = picture[i];
        if (c == u'\'') {
            const size_t end = picture.find(u'\'', i + 1);
            out += picture.substr(i + 1, end == std::u16string_view::npos ? end : end - i - 1);
            i = end == std::u16string_view::npos ? picture.size() : end + 1;
            continue;
        }
        const size_t n = runLength(picture, i);
        appendField(out, c, n, parts, locale);
        i += n;
    }
    // A time picture with "tt" and no designators (24-hour locales) leaves no trailing blank.
    while (!out.empty() && out.back() == u' ')
        out.pop_back();
    return out;
}

String formatGeneralDate(double oleDate, const Locale& locale)
{
    const DateParts p = splitOleDate(oleDate);
    const double days = std::trunc(oleDate);
    const bool hasTime = std::fabs(oleDate - days) * 86400.0 >= 0.5;
    String out;
    if (days != 0)
        out = formatDatePicture(p, locale.shortDate, locale);
    if (hasTime || oleDate == 0) {
        if (!out.empty())
            out += u' ';
        out += formatDatePicture(p, locale.longTime, locale);
    }
    return out;
}

} // namespace vbs
