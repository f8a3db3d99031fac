// Number <-> text as VBScript's CStr and IsNumeric do it, in the active locale.
#include "Locale.h"
#include "Value.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace vbs {

namespace {

// Number text written with "." as its decimal point, in the active locale's way.
String withDecimal(String text)
{
    const char16_t decimal = activeLocale().decimal;
    if (decimal != u'.')
        for (char16_t& c : text)
            if (c == u'.')
                c = decimal;
    return text;
}

// Renders d with at most `digits` significant digits: plain notation for exponents in
// [-4, digits), otherwise "1.5E-07" / "1E+20".
String formatSignificant(double d, int digits)
{
    if (std::isnan(d))
        return u"NaN";
    if (std::isinf(d))
        return d < 0 ? u"-1.#INF" : u"1.#INF";
    if (d == 0)
        return u"0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*e", digits - 1, d);
    // buf: [-]D.DDDDe[+-]XX
    std::string s(buf);
    const size_t e = s.find('e');
    const int exp = std::atoi(s.c_str() + e + 1);
    std::string mant = s.substr(0, e);
    const bool neg = mant[0] == '-';
    if (neg)
        mant.erase(0, 1);
    std::string ds; // the significant digits without the point
    for (char c : mant)
        if (c != '.')
            ds.push_back(c);
    while (ds.size() > 1 && ds.back() == '0')
        ds.pop_back();
    std::string out = neg ? "-" : "";
    if (exp >= digits || exp < -4) {
        out += ds[0];
        if (ds.size() > 1)
            out += "." + ds.substr(1);
        char eb[16];
        std::snprintf(eb, sizeof eb, "E%c%02d", exp < 0 ? '-' : '+', std::abs(exp));
        out += eb;
    } else if (exp < 0) {
        out += "0." + std::string(size_t(-exp - 1), '0') + ds;
    } else {
        if (ds.size() <= size_t(exp) + 1) {
            out += ds + std::string(size_t(exp) + 1 - ds.size(), '0');
        } else {
            out += ds.substr(0, size_t(exp) + 1) + "." + ds.substr(size_t(exp) + 1);
        }
    }
    return withDecimal(fromAscii(out));
}

bool isBlank(char16_t c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == 0xA0;
}

bool parseRadix(std::u16string_view t, double& out)
{
    // &H / &O: integer literals; 16-bit or 32-bit two's complement as the literal would be.
    const bool hex = t[1] == 'h' || t[1] == 'H';
    const int base = hex ? 16 : 8;
    size_t i = (t[1] == 'o' || t[1] == 'O' || hex) ? 2 : 1;
    if (i >= t.size())
        return false;
    uint64_t v = 0;
    for (; i < t.size(); ++i) {
        int dgt;
        const char16_t c = t[i];
        if (c >= '0' && c <= '9') dgt = c - '0';
        else if (hex && c >= 'a' && c <= 'f') dgt = c - 'a' + 10;
        else if (hex && c >= 'A' && c <= 'F') dgt = c - 'A' + 10;
        else return false;
        if (dgt >= base)
            return false;
        v = v * uint64_t(base) + uint64_t(dgt);
        if (v > 0xFFFFFFFFull)
            return false;
    }
    if (v <= 0xFFFF && hex && t.size() - 2 <= 4)
        out = double(int16_t(uint16_t(v)));
    else
        out = double(int32_t(uint32_t(v)));
    return true;
}

} // namespace

String Value::formatDouble(double d)
{
    return formatSignificant(d, 15);
}

String Value::formatSingle(float f)
{
    return formatSignificant(double(f), 7);
}

String Value::formatCurrency(int64_t scaled)
{
    const bool neg = scaled < 0;
    const uint64_t a = neg ? uint64_t(0) - uint64_t(scaled) : uint64_t(scaled);
    std::string out = (neg ? "-" : "") + std::to_string(a / 10000);
    uint64_t frac = a % 10000;
    if (frac) {
        std::string f = std::to_string(frac);
        f = std::string(4 - f.size(), '0') + f;
        while (f.back() == '0')
            f.pop_back();
        out += "." + f;
    }
    return withDecimal(fromAscii(out));
}

bool Value::parseNumber(std::u16string_view text, double& out)
{
    size_t b = 0, e = text.size();
    while (b < e && isBlank(text[b])) ++b;
    while (e > b && isBlank(text[e - 1])) --e;
    std::u16string_view t = text.substr(b, e - b);
    if (t.empty())
        return false;
    if (t[0] == '&' && t.size() >= 2)
        return parseRadix(t, out);
    const Locale& locale = activeLocale();
    const std::u16string_view currency = locale.currency;
    // The currency symbol may stand before the number or after it.
    if (t.size() > currency.size() && t.substr(t.size() - currency.size()) == currency) {
        t.remove_suffix(currency.size());
        while (!t.empty() && isBlank(t.back()))
            t.remove_suffix(1);
    }
    std::string ascii;
    size_t i = 0;
    if (t[i] == '+' || t[i] == '-') {
        if (t[i] == '-') ascii.push_back('-');
        ++i;
    }
    if (t.substr(i, currency.size()) == currency) {
        i += currency.size();
        while (i < t.size() && isBlank(t[i]))
            ++i;
    }
    bool digits = false;
    for (; i < t.size() && ((t[i] >= '0' && t[i] <= '9') || (t[i] == locale.group && digits)); ++i) {
        if (t[i] != locale.group) { ascii.push_back(char(t[i])); digits = true; }
    }
    if (i < t.size() && t[i] == locale.decimal) {
        ascii.push_back('.');
        for (++i; i < t.size() && t[i] >= '0' && t[i] <= '9'; ++i) {
            ascii.push_back(char(t[i]));
            digits = true;
        }
    }
    if (!digits)
        return false;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E' || t[i] == 'd' || t[i] == 'D')) {
        ascii.push_back('e');
        ++i;
        if (i < t.size() && (t[i] == '+' || t[i] == '-'))
            ascii.push_back(char(t[i++]));
        bool expDigits = false;
        for (; i < t.size() && t[i] >= '0' && t[i] <= '9'; ++i) {
            ascii.push_back(char(t[i]));
            expDigits = true;
        }
        if (!expDigits)
            return false;
    }
    if (i != t.size())
        return false;
    out = std::strtod(ascii.c_str(), nullptr);
    return std::isfinite(out);
}

} // namespace vbs
