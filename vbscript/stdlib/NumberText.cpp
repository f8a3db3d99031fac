// Numbers as text: decimal rounding, FormatNumber/FormatCurrency/FormatPercent, Hex, Oct.
#include "NumberText.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace vbs::lib {

namespace {

// A finite double as at most 15 significant decimal digits: value = 0.d1d2... x 10^pointPos.
struct Decimal {
    bool negative = false;
    std::vector<int> digits;
    int pointPos = 0;

    int digitAt(int index) const {
        return index >= 0 && index < int(digits.size()) ? digits[size_t(index)] : 0;
    }
    bool isZero() const {
        for (int d : digits)
            if (d != 0) return false;
        return true;
    }
};

Decimal toDecimal(double value) {
    Decimal d;
    d.negative = std::signbit(value) && value != 0;
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.14e", std::fabs(value));
    const char* p = buffer;
    for (; *p && *p != 'e'; ++p)
        if (*p >= '0' && *p <= '9') d.digits.push_back(*p - '0');
    d.pointPos = (*p == 'e' ? std::atoi(p + 1) : 0) + 1;
    return d;
}

enum class HalfRule { AwayFromZero, ToEven };

// Rounds to `decimals` places after the point; digits past the kept ones are dropped.
void roundDecimal(Decimal& d, int decimals, HalfRule rule) {
    const int kept = d.pointPos + decimals;
    if (kept >= int(d.digits.size())) return;
    if (kept < 0) {
        d.digits.assign(1, 0);
        d.pointPos = 1;
        return;
    }
    const int next = d.digitAt(kept);
    bool restNonZero = false;
    for (size_t i = size_t(kept) + 1; i < d.digits.size(); ++i)
        restNonZero |= d.digits[i] != 0;
    bool up = next > 5 || (next == 5 && (restNonZero || rule == HalfRule::AwayFromZero));
    if (next == 5 && !restNonZero && rule == HalfRule::ToEven) up = d.digitAt(kept - 1) % 2 == 1;
    d.digits.resize(size_t(kept));
    for (int i = kept - 1; up && i >= 0; --i) {
        if (++d.digits[size_t(i)] < 10)
            up = false;
        else
            d.digits[size_t(i)] = 0;
    }
    if (up) {
        d.digits.insert(d.digits.begin(), 1);
        ++d.pointPos;
    }
}

std::u16string integerPart(const Decimal& d, bool group, char16_t separator) {
    std::u16string out;
    for (int i = 0; i < d.pointPos; ++i) {
        if (group && i > 0 && (d.pointPos - i) % 3 == 0) out += separator;
        out += char16_t(u'0' + d.digitAt(i));
    }
    return out;
}

struct Formatted {
    std::u16string body;
    bool negative = false;
};

Formatted formatPlain(double value, const NumberFormat& f, int defaultDecimals = 2) {
    const int decimals = f.digitsAfterDecimal < 0 ? defaultDecimals : f.digitsAfterDecimal;
    Decimal d = toDecimal(value);
    roundDecimal(d, decimals, HalfRule::AwayFromZero);
    Formatted out;
    out.negative = d.negative && !d.isZero();
    out.body = integerPart(d, f.groupDigits != kTristateFalse, f.group);
    if (out.body.empty() && f.includeLeadingDigit != kTristateFalse) out.body.push_back(u'0');
    if (decimals > 0) {
        out.body.push_back(f.decimal);
        for (int i = 0; i < decimals; ++i)
            out.body.push_back(char16_t(u'0' + d.digitAt(d.pointPos + i)));
    }
    return out;
}

// Negative values show their two's complement in 16 or 32 bits.
std::u16string radixString(int32_t value, bool integerWidth, unsigned radixBits) {
    uint32_t u = uint32_t(value);
    if (value < 0 && integerWidth) u &= 0xFFFFu;
    std::u16string out;
    do {
        const unsigned digit = u & ((1u << radixBits) - 1);
        out.insert(out.begin(), char16_t(digit < 10 ? u'0' + digit : u'A' + digit - 10));
        u >>= radixBits;
    } while (u != 0);
    return out;
}

} // namespace

double roundToDigits(double value, int digits) {
    if (!std::isfinite(value)) return value;
    if (digits <= 0) return std::nearbyint(value);
    Decimal d = toDecimal(value);
    roundDecimal(d, digits, HalfRule::ToEven);
    std::string text = d.negative ? "-0." : "0.";
    for (int digit : d.digits)
        text += char('0' + digit);
    text += "e" + std::to_string(d.pointPos);
    return std::strtod(text.c_str(), nullptr);
}

std::u16string formatNumber(double value, const NumberFormat& format) {
    const Formatted f = formatPlain(value, format);
    if (!f.negative) return f.body;
    return format.useParensForNegative == kTristateTrue ? u"(" + f.body + u")" : u"-" + f.body;
}

namespace {

// Windows' currency patterns: "$" stands for the symbol, "N" for the number.
constexpr std::u16string_view kPositiveCurrency[] = {u"$N", u"N$", u"$ N", u"N $"};
constexpr std::u16string_view kNegativeCurrency[] = {u"($N)", u"-$N", u"$-N", u"$N-", u"(N$)",
    u"-N$", u"N-$", u"N$-", u"-N $", u"-$ N", u"N $-", u"$ N-", u"$ -N", u"N- $", u"($ N)",
    u"(N $)"};

std::u16string applyCurrencyPattern(std::u16string_view pattern, const std::u16string& number,
                                    std::u16string_view symbol) {
    std::u16string out;
    for (char16_t c : pattern) {
        if (c == u'$') out += symbol;
        else if (c == u'N') out += number;
        else out += c;
    }
    return out;
}

bool inParentheses(int negativePattern) {
    return kNegativeCurrency[size_t(negativePattern)][0] == u'(';
}

} // namespace

std::u16string formatCurrency(double value, const NumberFormat& format) {
    const Formatted f = formatPlain(value, format, format.currencyDigits);
    const std::u16string positive =
        applyCurrencyPattern(kPositiveCurrency[size_t(format.currencyPositive & 3)], f.body,
                             format.currency);
    if (!f.negative) return positive;
    if (format.useParensForNegative == kTristateTrue) return u"(" + positive + u")";
    const int pattern = format.currencyNegative & 15;
    // Told not to use parentheses where the locale would: the minus sign goes in front.
    if (format.useParensForNegative == kTristateFalse && inParentheses(pattern)) return u"-" + positive;
    return applyCurrencyPattern(kNegativeCurrency[size_t(pattern)], f.body, format.currency);
}

std::u16string formatPercent(double value, const NumberFormat& format) {
    const Formatted f = formatPlain(value * 100.0, format);
    if (!f.negative) return f.body + u"%";
    return format.useParensForNegative == kTristateTrue ? u"(" + f.body + u"%)"
                                                        : u"-" + f.body + u"%";
}

std::u16string hexString(int32_t value, bool integerWidth) {
    return radixString(value, integerWidth, 4);
}

std::u16string octString(int32_t value, bool integerWidth) {
    return radixString(value, integerWidth, 3);
}

} // namespace vbs::lib
