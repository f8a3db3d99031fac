// Numbers as text: decimal rounding, FormatNumber/FormatCurrency/FormatPercent, Hex, Oct.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vbs::lib {

// Tristate arguments of the Format functions: -1 True, 0 False, -2 the locale's default.
inline constexpr int kTristateTrue = -1;
inline constexpr int kTristateFalse = 0;
inline constexpr int kTristateDefault = -2;

struct NumberFormat {
    int digitsAfterDecimal = -1; // -1: the locale's default (2, an amount its currency's)
    int includeLeadingDigit = kTristateDefault;
    int useParensForNegative = kTristateDefault;
    int groupDigits = kTristateDefault;
    // How the locale writes numbers and amounts; en-US unless set. The currency patterns are
    // numbered as Windows numbers them (positive 0 "$1" to 3 "1 $", negative 0 "($1)" to 15).
    char16_t decimal = u'.';
    char16_t group = u',';
    std::u16string_view currency = u"$";
    int currencyDigits = 2;
    int currencyPositive = 0;
    int currencyNegative = 0;
};

// Round(number, digits): halves go to the even digit, judged on the number's 15 significant
// decimal digits so that Round(2.675, 2) is 2.68 as it reads.
double roundToDigits(double value, int digits);

std::u16string formatNumber(double value, const NumberFormat& format = {});
std::u16string formatCurrency(double value, const NumberFormat& format = {});
std::u16string formatPercent(double value, const NumberFormat& format = {});

// Hex/Oct of a whole number: negatives show their two's complement in 16 bits when the value
// is an Integer (or Byte) and in 32 bits otherwise.
std::u16string hexString(int32_t value, bool integerWidth);
std::u16string octString(int32_t value, bool integerWidth);

} // namespace vbs::lib
