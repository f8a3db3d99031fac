// Numbers as text: decimal rounding, FormatNumber/FormatCurrency/FormatPercent (en-US), Hex, Oct.
#pragma once

#include <cstdint>
#include <string>

namespace vbs::lib {

// Tristate arguments of the Format functions: -1 True, 0 False, -2 the locale's default.
inline constexpr int kTristateTrue = -1;
inline constexpr int kTristateFalse = 0;
inline constexpr int kTristateDefault = -2;

struct NumberFormat {
    int digitsAfterDecimal = -1; // -1: the locale's default (2)
    int includeLeadingDigit = kTristateDefault;
    int useParensForNegative = kTristateDefault;
    int groupDigits = kTristateDefault;
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
