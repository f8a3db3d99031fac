// Formatting builtins (en-US): FormatNumber, FormatCurrency, FormatPercent, FormatDateTime,
// GetLocale, SetLocale.
#include "DateText.h"
#include "Families.h"
#include "LibSupport.h"
#include "NumberText.h"

namespace vbs::lib {

namespace {

constexpr int32_t kEnglishUs = 1033;

NumberFormat formatArgs(Args a) {
    NumberFormat f;
    f.digitsAfterDecimal = int(longArg(a, 1, -1));
    if (f.digitsAfterDecimal < -1 || f.digitsAfterDecimal > 255) invalidCall();
    f.includeLeadingDigit = int(longArg(a, 2, kTristateDefault));
    f.useParensForNegative = int(longArg(a, 3, kTristateDefault));
    f.groupDigits = int(longArg(a, 4, kTristateDefault));
    return f;
}

template <std::u16string (*F)(double, const NumberFormat&)> Value formatted(CallContext&, Args a) {
    const NumberFormat f = formatArgs(a);
    return Value(F(plain(*a[0]).toDouble(), f));
}

Value fnFormatDateTime(CallContext&, Args a) {
    const long format = longArg(a, 1, 0);
    if (format < 0 || format > 4) invalidCall();
    const double serial = a[0]->toDate();
    if (format == 0) return Value(Value::formatDate(serial));
    return Value(formatDate(serial, DateFormat(format)));
}

Value fnGetLocale(CallContext&, Args) {
    return Value(kEnglishUs);
}

// Only en-US exists: 1033, "en-us" and 0 (the system's) are accepted; the previous is returned.
Value fnSetLocale(CallContext&, Args a) {
    if (given(a, 0)) {
        const Value v = plain(*a[0]);
        const bool ok = v.isString() ? equalsNoCase(v.str(), u"en-us") || v.str() == u"1033"
                                     : (v.toLong() == kEnglishUs || v.toLong() == 0);
        if (!ok) invalidCall();
    }
    return Value(kEnglishUs);
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
