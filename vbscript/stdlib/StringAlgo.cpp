// String algorithms of the library on UTF-16 code units: case, search, replace, split, escape.
#include "StringAlgo.h"

#include <array>

namespace vbs::lib {

namespace {

const std::array<char16_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool unitsEqual(char16_t a, char16_t b, Compare compare) {
    return a == b || (compare == Compare::Text && foldLower(a) == foldLower(b));
}

bool matchesAt(std::u16string_view text, size_t pos, std::u16string_view needle, Compare compare) {
    if (pos + needle.size() > text.size()) return false;
    for (size_t i = 0; i < needle.size(); ++i)
        if (!unitsEqual(text[pos + i], needle[i], compare)) return false;
    return true;
}

size_t findFrom(std::u16string_view text, std::u16string_view needle, size_t from,
                Compare compare) {
    if (needle.size() > text.size()) return std::u16string_view::npos;
    for (size_t pos = from; pos + needle.size() <= text.size(); ++pos)
        if (matchesAt(text, pos, needle, compare)) return pos;
    return std::u16string_view::npos;
}

int hexValue(char16_t c) {
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    return -1;
}

int hexRun(std::u16string_view text, size_t pos, size_t count) {
    if (pos + count > text.size()) return -1;
    int value = 0;
    for (size_t i = 0; i < count; ++i) {
        const int digit = hexValue(text[pos + i]);
        if (digit < 0) return -1;
        value = value * 16 + digit;
    }
    return value;
}

} // namespace

char16_t foldLower(char16_t c) {
    if (c < 0x80) return (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return char16_t(c + 32);
    if (c >= 0x100 && c <= 0x137) return char16_t(c | 1);
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E))
        return (c & 1) ? char16_t(c + 1) : c;
    if (c >= 0x14A && c <= 0x177) return char16_t(c | 1);
    if (c == 0x178) return 0xFF;
    if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) return char16_t(c + 32);
    if (c == 0x386) return 0x3AC;
    if (c >= 0x388 && c <= 0x38A) return char16_t(c + 37);
    if (c == 0x38C) return 0x3CC;
    if (c == 0x38E || c == 0x38F) return char16_t(c + 63);
    if (c >= 0x400 && c <= 0x40F) return char16_t(c + 80);
    if (c >= 0x410 && c <= 0x42F) return char16_t(c + 32);
    if (c >= 0xFF21 && c <= 0xFF3A) return char16_t(c + 32);
    return c;
}

char16_t foldUpper(char16_t c) {
    if (c < 0x80) return (c >= u'a' && c <= u'z') ? char16_t(c - 32) : c;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return char16_t(c - 32);
    if (c == 0xFF) return 0x178;
    if ((c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177)) return char16_t(c & ~1);
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E))
        return (c & 1) ? c : char16_t(c - 1);
    if (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) return char16_t(c - 32);
    if (c == 0x3AC) return 0x386;
    if (c >= 0x3AD && c <= 0x3AF) return char16_t(c - 37);
    if (c == 0x3CC) return 0x38C;
    if (c == 0x3CD || c == 0x3CE) return char16_t(c - 63);
    if (c >= 0x430 && c <= 0x44F) return char16_t(c - 32);
    if (c >= 0x450 && c <= 0x45F) return char16_t(c - 80);
    if (c >= 0xFF41 && c <= 0xFF5A) return char16_t(c - 32);
    return c;
}

std::u16string toLower(std::u16string_view text) {
    std::u16string out(text);
    for (char16_t& c : out)
        c = foldLower(c);
    return out;
}

std::u16string toUpper(std::u16string_view text) {
    std::u16string out(text);
    for (char16_t& c : out)
        c = foldUpper(c);
    return out;
}

int compareStrings(std::u16string_view a, std::u16string_view b, Compare compare) {
    const size_t n = a.size() < b.size() ? a.size() : b.size();
    for (size_t i = 0; i < n; ++i) {
        char16_t x = a[i], y = b[i];
        if (compare == Compare::Text) {
            x = foldLower(x);
            y = foldLower(y);
        }
        if (x != y) return x < y ? -1 : 1;
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

long inStr(long start, std::u16string_view haystack, std::u16string_view needle, Compare compare) {
    if (haystack.empty() || start > long(haystack.size())) return 0;
    if (needle.empty()) return start;
    const size_t pos = findFrom(haystack, needle, size_t(start - 1), compare);
    return pos == std::u16string_view::npos ? 0 : long(pos) + 1;
}

long inStrRev(std::u16string_view haystack, std::u16string_view needle, long start,
              Compare compare) {
    if (start == -1) start = long(haystack.size());
    if (haystack.empty() || start > long(haystack.size())) return 0;
    if (needle.empty()) return start;
    for (long end = start; end >= long(needle.size()); --end) {
        const size_t pos = size_t(end) - needle.size();
        if (matchesAt(haystack, pos, needle, compare)) return long(pos) + 1;
    }
    return 0;
}

std::u16string replace(std::u16string_view text, std::u16string_view find, std::u16string_view with,
                       long start, long count, Compare compare) {
    if (start > long(text.size())) return {};
    const std::u16string_view rest = text.substr(size_t(start - 1));
    if (find.empty() || count == 0) return std::u16string(rest);
    std::u16string out;
    size_t pos = 0;
    while (count != 0) {
        const size_t hit = findFrom(rest, find, pos, compare);
        if (hit == std::u16string_view::npos) break;
        out.append(rest.substr(pos, hit - pos));
        out.append(with);
        pos = hit + find.size();
        if (count > 0) --count;
    }
    out.append(rest.substr(pos));
    return out;
}

std::vector<std::u16string> split(std::u16string_view text, std::u16string_view delimiter,
                                  long limit, Compare compare) {
    std::vector<std::u16string> pieces;
    if (text.empty() || limit == 0) return pieces;
    if (delimiter.empty()) return {std::u16string(text)};
    size_t pos = 0;
    while (limit < 0 || long(pieces.size()) + 1 < limit) {
        const size_t hit = findFrom(text, delimiter, pos, compare);
        if (hit == std::u16string_view::npos) break;
        pieces.emplace_back(text.substr(pos, hit - pos));
        pos = hit + delimiter.size();
    }
    pieces.emplace_back(text.substr(pos));
    return pieces;
}

std::vector<std::u16string> filter(const std::vector<std::u16string>& items,
                                   std::u16string_view value, bool include, Compare compare) {
    std::vector<std::u16string> out;
    for (const std::u16string& item : items) {
        const bool found = findFrom(item, value, 0, compare) != std::u16string_view::npos;
        if (found == include) out.push_back(item);
    }
    return out;
}

std::u16string_view trimLeft(std::u16string_view text) {
    const size_t first = text.find_first_not_of(u' ');
    return first == std::u16string_view::npos ? std::u16string_view{} : text.substr(first);
}

std::u16string_view trimRight(std::u16string_view text) {
    const size_t last = text.find_last_not_of(u' ');
    return last == std::u16string_view::npos ? std::u16string_view{} : text.substr(0, last + 1);
}

std::u16string escape(std::u16string_view text) {
    static const char16_t* kDigits = u"0123456789ABCDEF";
    std::u16string out;
    for (char16_t c : text) {
        const bool plain = (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
                           (c >= u'0' && c <= u'9') ||
                           std::u16string_view(u"@*_+-./").find(c) != std::u16string_view::npos;
        if (plain) {
            out += c;
        } else if (c < 256) {
            out += u'%';
            out += kDigits[c >> 4];
            out += kDigits[c & 15];
        } else {
            out += u"%u";
            for (int shift = 12; shift >= 0; shift -= 4)
                out += kDigits[(c >> shift) & 15];
        }
    }
    return out;
}

std::u16string unescape(std::u16string_view text) {
    std::u16string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'%') {
            int value = -1;
            if (i + 1 < text.size() && text[i + 1] == u'u') {
                value = hexRun(text, i + 2, 4);
                if (value >= 0) {
                    out += char16_t(value);
                    i += 5;
                    continue;
                }
            }
            value = hexRun(text, i + 1, 2);
            if (value >= 0) {
                out += char16_t(value);
                i += 2;
                continue;
            }
        }
        out += text[i];
    }
    return out;
}

int ansiFromUnicode(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return c;
    for (size_t i = 0; i < kCp1252High.size(); ++i)
        if (kCp1252High[i] == c) return int(0x80 + i);
    return -1;
}

char16_t unicodeFromAnsi(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? kCp1252High[byte - 0x80] : char16_t(byte);
}

} // namespace vbs::lib
