// String algorithms over every code unit: case mapping, the escape forms and the ANSI code page.
// Trimming and the search, replace and split rules are checked by the golden scripts.
#include "StringAlgo.h"

#include <gtest/gtest.h>

using namespace vbs::lib;

TEST(StringAlgo, CaseMapping) {
    EXPECT_EQ(toUpper(u"stra\u00DFe \u00E9 \u00FF \u0444 \u03C9"),
              u"STRA\u00DFE \u00C9 \u0178 \u0424 \u03A9");
    EXPECT_EQ(toLower(u"\u0178\u00C9\u0401\u0100\u0139Z"), u"\u00FF\u00E9\u0451\u0101\u013Az");
    for (char16_t c = 1; c < 0x500; ++c) {
        if (foldLower(c) != c) {
            EXPECT_EQ(foldUpper(foldLower(c)), c) << int(c);
        }
    }
}

TEST(StringAlgo, EscapeRoundTrip) {
    EXPECT_EQ(escape(u"a b+c/@*_-.\u00E9\u20AC"), u"a%20b+c/@*_-.%E9%u20AC");
    EXPECT_EQ(unescape(u"a%20b+%E9%u20AC%u00e9"), u"a b+\u00E9\u20AC\u00E9");
    EXPECT_EQ(unescape(u"%zz%4%u12"), u"%zz%4%u12");
    std::u16string all = u"\x01 ~%\u00FF\u0100\uFFFF";
    all += char16_t(0xD800);
    EXPECT_EQ(unescape(escape(all)), all);
}

TEST(StringAlgo, AnsiCodePage) {
    EXPECT_EQ(ansiFromUnicode(u'A'), 65);
    EXPECT_EQ(ansiFromUnicode(0x20AC), 128);
    EXPECT_EQ(ansiFromUnicode(0xE9), 0xE9);
    EXPECT_EQ(ansiFromUnicode(0x3A9), -1);
    EXPECT_EQ(unicodeFromAnsi(0x80), 0x20AC);
    EXPECT_EQ(unicodeFromAnsi(0x9F), 0x178);
    for (int b = 0; b < 256; ++b)
        EXPECT_EQ(ansiFromUnicode(unicodeFromAnsi(uint8_t(b))), b);
}
