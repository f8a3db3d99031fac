// UTF-8 <-> UTF-16 conversion and case folding.
#include "Text.h"


namespace vbs {

namespace {

// Windows-1252 bytes 0x80-0x9F; the rest of the high half is Latin-1.
const char16_t kCp1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t fromCp1252(unsigned char b)
{
    return b >= 0x80 && b < 0xA0 ? kCp1252[b - 0x80] : char16_t(b);
}

void appendCodePoint(String& out, char32_t cp)
{
    if (cp < 0x10000) {
        out.push_back(char16_t(cp));
    } else {
        cp -= 0x10000;
        out.push_back(char16_t(0xD800 + (cp >> 10)));
        out.push_back(char16_t(0xDC00 + (cp & 0x3FF)));
    }
}

// Length of a valid UTF-8 sequence at p (with its code point), or 0 when invalid.
size_t decodeUtf8(std::string_view s, size_t i, char32_t& cp)
{
    const auto b0 = static_cast<unsigned char>(s[i]);
    size_t len;
    char32_t min;
    if (b0 < 0x80) { cp = b0; return 1; }
    if ((b0 & 0xE0) == 0xC0) { len = 2; cp = b0 & 0x1F; min = 0x80; }
    else if ((b0 & 0xF0) == 0xE0) { len = 3; cp = b0 & 0x0F; min = 0x800; }
    else if ((b0 & 0xF8) == 0xF0) { len = 4; cp = b0 & 0x07; min = 0x10000; }
    else return 0;
    if (i + len > s.size())
        return 0;
    for (size_t k = 1; k < len; ++k) {
        const auto b = static_cast<unsigned char>(s[i + k]);
        if ((b & 0xC0) != 0x80)
            return 0;
        cp = (cp << 6) | (b & 0x3F);
    }
    if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp < 0xE000))
        return 0;
    return len;
}

} // namespace

namespace {

template <class Invalid>
String decode(std::string_view text, Invalid invalid)
{
    String out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        char32_t cp;
        const size_t len = decodeUtf8(text, i, cp);
        if (len == 0) {
            out.push_back(invalid(static_cast<unsigned char>(text[i])));
            ++i;
        } else {
            appendCodePoint(out, cp);
            i += len;
        }
    }
    return out;
}

} // namespace

String fromUtf8(std::string_view text)
{
    return decode(text, [](unsigned char b) { return char16_t(0xDC00 + b); });
}

String fromUtf8OrCp1252(std::string_view text)
{
    return decode(text, fromCp1252);
}

std::string toUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t cp = text[i];
        if (cp >= 0xD800 && cp < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00
            && text[i + 1] < 0xE000) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (text[i + 1] - 0xDC00);
            ++i;
        } else if (cp >= 0xDC80 && cp < 0xDD00) {
            out.push_back(char(cp - 0xDC00)); // a byte fromUtf8 could not decode
            continue;
        } else if (cp >= 0xD800 && cp < 0xE000) {
            cp = 0xFFFD;
        }
        if (cp < 0x80) {
            out.push_back(char(cp));
        } else if (cp < 0x800) {
            out.push_back(char(0xC0 | (cp >> 6)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(char(0xE0 | (cp >> 12)));
            out.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(char(0xF0 | (cp >> 18)));
            out.push_back(char(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(char(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

// Simple case mapping for the scripts' alphabets (Latin-1, Latin Extended-A, Greek, Cyrillic);
// it does not depend on the process locale.
char16_t foldChar(char16_t c)
{
    if (c < 0x80)
        return (c >= 'A' && c <= 'Z') ? char16_t(c + 32) : c;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return char16_t(c + 0x20);
    if (c >= 0x100 && c <= 0x137 && c != 0x130)
        return char16_t(c | 1);
    if (c >= 0x139 && c <= 0x148)
        return (c & 1) ? char16_t(c + 1) : c;
    if (c >= 0x14A && c <= 0x177)
        return char16_t(c | 1);
    if (c == 0x178)
        return 0xFF;
    if (c >= 0x179 && c <= 0x17E)
        return (c & 1) ? char16_t(c + 1) : c;
    if (c >= 0x391 && c <= 0x3AB && c != 0x3A2)
        return char16_t(c + 0x20);
    if (c >= 0x410 && c <= 0x42F)
        return char16_t(c + 0x20);
    if (c >= 0x400 && c <= 0x40F)
        return char16_t(c + 0x50);
    return c;
}

char16_t upperChar(char16_t c)
{
    if (c < 0x80)
        return (c >= 'a' && c <= 'z') ? char16_t(c - 32) : c;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7)
        return char16_t(c - 0x20);
    if (c == 0xFF)
        return 0x178;
    if ((c >= 0x101 && c <= 0x137 && c != 0x131) || (c >= 0x14B && c <= 0x177))
        return char16_t(c & ~1);
    if ((c >= 0x13A && c <= 0x148) || (c >= 0x17A && c <= 0x17E))
        return (c & 1) ? c : char16_t(c - 1);
    if (c >= 0x3B1 && c <= 0x3CB && c != 0x3C2)
        return char16_t(c - 0x20);
    if (c >= 0x430 && c <= 0x44F)
        return char16_t(c - 0x20);
    if (c >= 0x450 && c <= 0x45F)
        return char16_t(c - 0x50);
    return c;
}

String foldCase(std::u16string_view text)
{
    String out(text);
    for (auto& c : out)
        c = foldChar(c);
    return out;
}

String upperCase(std::u16string_view text)
{
    String out(text);
    for (auto& c : out)
        c = upperChar(c);
    return out;
}

bool equalsNoCase(std::u16string_view a, std::u16string_view b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && foldChar(a[i]) != foldChar(b[i]))
            return false;
    return true;
}

String fromAscii(std::string_view text)
{
    return String(text.begin(), text.end());
}

} // namespace vbs
