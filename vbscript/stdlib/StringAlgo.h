// String algorithms of the library on UTF-16 code units: case, search, replace, split, escape.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vbs::lib {

// vbBinaryCompare compares code units; vbTextCompare ignores case.
enum class Compare { Binary = 0, Text = 1 };

// Simple one-to-one case mapping for Latin, Greek, Cyrillic and full-width Latin letters.
char16_t foldLower(char16_t c);
char16_t foldUpper(char16_t c);
std::u16string toLower(std::u16string_view text);
std::u16string toUpper(std::u16string_view text);

// -1, 0 or 1 as StrComp returns them.
int compareStrings(std::u16string_view a, std::u16string_view b, Compare compare);

// InStr: 1-based position of needle at or after start (1-based), 0 when absent.
long inStr(long start, std::u16string_view haystack, std::u16string_view needle, Compare compare);
// InStrRev: last match that ends at or before start (1-based; -1 = the end), 0 when absent.
long inStrRev(std::u16string_view haystack, std::u16string_view needle, long start,
              Compare compare);

// Replace: the result begins at start (1-based); count -1 replaces every occurrence.
std::u16string replace(std::u16string_view text, std::u16string_view find, std::u16string_view with,
                       long start, long count, Compare compare);

// Split: limit -1 for all pieces; the last piece holds the rest when the limit is reached.
std::vector<std::u16string> split(std::u16string_view text, std::u16string_view delimiter,
                                  long limit, Compare compare);

std::vector<std::u16string> filter(const std::vector<std::u16string>& items,
                                   std::u16string_view value, bool include, Compare compare);

// LTrim/RTrim/Trim remove blanks (U+0020) only, as VBScript does.
std::u16string_view trimLeft(std::u16string_view text);
std::u16string_view trimRight(std::u16string_view text);

// Escape/Unescape as in JScript: %XX below 256, %uXXXX above; unknown escapes stay as they are.
std::u16string escape(std::u16string_view text);
std::u16string unescape(std::u16string_view text);

// Windows-1252, the en-US ANSI code page of Asc and Chr: -1 when the character has no byte.
int ansiFromUnicode(char16_t c);
char16_t unicodeFromAnsi(unsigned char byte);

} // namespace vbs::lib
