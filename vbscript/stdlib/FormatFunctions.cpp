// Formatting builtins in the engine's locale: FormatNumber, FormatCurrency, FormatPercent,
// FormatDateTime, and GetLocale, SetLocale.
#include "Families.h"
#include "LibSupport.h"
#include "NumberText.h"
#include "vbscript/Locale.h"

namespace vbs::lib {

namespace {

NumberFormat formatArgs(const Locale& locale, Args a) {
    NumberFormat f;
    f.digitsAfterDecimal = int(longArg(a, 1, -1));
    if (f.digitsAfterDecimal < -1 || f.digitsAfterDecimal > 255) invalidCall();
    f.includeLeadingDigit = int(longArg(a, 2, kTristateDefault));
    f.useParensForNegative = int(longArg(a, 3, kTristateDefault));
    f.groupDigits = int(longArg(a, 4, kTristateDefault));
    f.decimal = locale.decimal;
    f.group = locale.group;
    f.currency = locale.currency;
    f.currencyDigits = locale.currencyDigits;
    f.currencyPositive = locale.currencyPositive;
    f.currencyNegative = locale.currencyNegative;
    return f;
}

template <std::u16string (*F)(double, const NumberFormat&)> Value formatted(CallContext& ctx, Args a) {
    if (a[0]->isNull()) raise(ErrorCode::TypeMismatch); // Null to format is 13, not 94
    const NumberFormat f = formatArgs(ctx.locale(), a);
    return Value(F(plain(*a[0]).toDouble(), f));
}

// vbGeneralDate is CStr's text; the others are the locale's long and short date and long time,
// and a 24-hour "hh:mm" for the short time.
Value fnFormatDateTime(CallContext& ctx, Args a) {
    if (a[0]->isNull()) raise(ErrorCode::TypeMismatch);
    const long format = longArg(a, 1, 0);
    if (format < 0 || format > 4) invalidCall();
    const double serial = a[0]->toDate();
    const Locale& locale = ctx.locale();
    const vbs::DateParts parts = splitOleDate(serial);
    switch (format) {
    case 1: return Value(formatDatePicture(parts, locale.longDate, locale));
    case 2: return Value(formatDatePicture(parts, locale.shortDate, locale));
    case 3: return Value(formatDatePicture(parts, locale.longTime, locale));
    case 4: return Value(formatDatePicture(parts, u"HH:mm", locale));
    default: return Value(Value::formatDate(serial));
    }
}

Value fnGetLocale(CallContext& ctx, Args) {
    return Value(ctx.locale().lcid);
}

// SetLocale takes a locale id or a tag ("de-de", also as text of the id); 0 or nothing is the
// system's (en-US here). It returns the locale it replaces.
Value fnSetLocale(CallContext& ctx, Args a) {
    const int32_t previous = ctx.locale().lcid;
    const Locale* next = &englishUs();
    if (given(a, 0)) {
        const Value v = plain(*a[0]);
        double number = 0;
        if (v.isString() && !Value::parseNumber(v.str(), number))
            next = findLocale(std::u16string_view(v.str()));
        else
            next = findLocale(v.toLong());
        if (!next) invalidCall();
    }
    ctx.setLocale(*next);
    return Value(previous);
}

const BuiltinDef kFormatFunctions[] = {
    {u"FormatNumber", 1, 5, formatted<formatNumber>},
    {u"FormatCurrency", 1, 5, formatted<formatCurrency>},
    {u"FormatPercent", 1, 5, formatted<formatPercent>},
    {u"FormatDateTime", 1, 2, fnFormatDateTime},
    {u"GetLocale", 0, 0, fnGetLocale},
    {u"SetLocale", 0, 1, fnSetLocale},
};

} // namespace

void registerFormatFunctions(ScriptControl& control) {
    control.registerBuiltins(kFormatFunctions);
}

} // namespace vbs::lib
