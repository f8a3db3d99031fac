// String algorithms: both compare modes, start positions, limits and the escape forms.
#include "StringAlgo.h"

#include <gtest/gtest.h>

using namespace vbs::lib;

using Pieces = std::vector<std::u16string>;

TEST(StringAlgo, InStr) {
    EXPECT_EQ(inStr(1, u"abcabc", u"c", Compare::Binary), 3);
    EXPECT_EQ(inStr(4, u"abcabc", u"c", Compare::Binary), 6);
    EXPECT_EQ(inStr(1, u"ABC", u"b", Compare::Binary), 0);
    EXPECT_EQ(inStr(1, u"ABC", u"b", Compare::Text), 2);
    EXPECT_EQ(inStr(2, u"abc", u"", Compare::Binary), 2);
    EXPECT_EQ(inStr(4, u"abc", u"a", Compare::Binary), 0);
    EXPECT_EQ(inStr(1, u"", u"a", Compare::Binary), 0);
    EXPECT_EQ(inStr(1, u"ab", u"abc", Compare::Binary), 0);
    EXPECT_EQ(inStr(1, u"x\u00C9y", u"\u00E9", Compare::Text), 2);
}

TEST(StringAlgo, InStrRev) {
    EXPECT_EQ(inStrRev(u"abcabc", u"b", -1, Compare::Binary), 5);
    EXPECT_EQ(inStrRev(u"abcabc", u"b", 4, Compare::Binary), 2);
    EXPECT_EQ(inStrRev(u"abcabc", u"bc", 5, Compare::Binary), 2); // must end by the start
    EXPECT_EQ(inStrRev(u"abc", u"c", 2, Compare::Binary), 0);
    EXPECT_EQ(inStrRev(u"ABC", u"a", -1, Compare::Text), 1);
    EXPECT_EQ(inStrRev(u"abc", u"", 2, Compare::Binary), 2);
    EXPECT_EQ(inStrRev(u"abc", u"a", 7, Compare::Binary), 0);
}

TEST(StringAlgo, ReplaceStartsTheResultAtStart) {
    EXPECT_EQ(replace(u"abcabc", u"b", u"X", 1, -1, Compare::Binary), u"aXcaXc");
    EXPECT_EQ(replace(u"abcabc", u"b", u"X", 3, -1, Compare::Binary), u"caXc");
    EXPECT_EQ(replace(u"abcabc", u"b", u"X", 1, 1, Compare::Binary), u"aXcabc");
    EXPECT_EQ(replace(u"abcabc", u"b", u"X", 1, 0, Compare::Binary), u"abcabc");
    EXPECT_EQ(replace(u"ABCabc", u"b", u"X", 1, -1, Compare::Text), u"AXCaXc");
    EXPECT_EQ(replace(u"ABCabc", u"b", u"X", 1, -1, Compare::Binary), u"ABCaXc");
    EXPECT_EQ(replace(u"abc", u"b", u"X", 7, -1, Compare::Binary), u"");
    EXPECT_EQ(replace(u"abc", u"", u"X", 2, -1, Compare::Binary), u"bc");
    EXPECT_EQ(replace(u"aaaa", u"aa", u"a", 1, -1, Compare::Binary), u"aa");
    EXPECT_EQ(replace(u"abc", u"abc", u"", 1, -1, Compare::Binary), u"");
}

TEST(StringAlgo, Split) {
    EXPECT_EQ(split(u"a,b,c", u",", -1, Compare::Binary), (Pieces{u"a", u"b", u"c"}));
    EXPECT_EQ(split(u"a,b,c", u",", 2, Compare::Binary), (Pieces{u"a", u"b,c"}));
    EXPECT_EQ(split(u"a,b,c", u",", 1, Compare::Binary), (Pieces{u"a,b,c"}));
    EXPECT_EQ(split(u"a,b,c", u",", 0, Compare::Binary), Pieces{});
    EXPECT_EQ(split(u"aXbxc", u"x", -1, Compare::Text), (Pieces{u"a", u"b", u"c"}));
    EXPECT_EQ(split(u"aXbxc", u"x", -1, Compare::Binary), (Pieces{u"aXb", u"c"}));
    EXPECT_EQ(split(u"", u",", -1, Compare::Binary), Pieces{});
    EXPECT_EQ(split(u"a,b", u"", -1, Compare::Binary), (Pieces{u"a,b"}));
    EXPECT_EQ(split(u"a,,b,", u",", -1, Compare::Binary), (Pieces{u"a", u"", u"b", u""}));
    EXPECT_EQ(split(u"a  b", u" ", -1, Compare::Binary), (Pieces{u"a", u"", u"b"}));
}

TEST(StringAlgo, Filter) {
    const Pieces items{u"Apple", u"banana", u"cherry"};
    EXPECT_EQ(filter(items, u"an", true, Compare::Binary), (Pieces{u"banana"}));
    EXPECT_EQ(filter(items, u"an", false, Compare::Binary), (Pieces{u"Apple", u"cherry"}));
    EXPECT_EQ(filter(items, u"a", true, Compare::Binary), (Pieces{u"banana"}));
    EXPECT_EQ(filter(items, u"a", true, Compare::Text), (Pieces{u"Apple", u"banana"}));
}

TEST(StringAlgo, CompareModes) {
    EXPECT_EQ(compareStrings(u"a", u"B", Compare::Binary), 1);
    EXPECT_EQ(compareStrings(u"a", u"B", Compare::Text), -1);
    EXPECT_EQ(compareStrings(u"abc", u"ABC", Compare::Text), 0);
    EXPECT_EQ(compareStrings(u"ab", u"abc", Compare::Binary), -1);
    EXPECT_EQ(compareStrings(u"", u"", Compare::Binary), 0);
    EXPECT_EQ(compareStrings(u"\u00E9", u"\u00C9", Compare::Text), 0);
}

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

TEST(StringAlgo, Trim) {
    EXPECT_EQ(trimLeft(u"  a b  "), u"a b  ");
    EXPECT_EQ(trimRight(u"  a b  "), u"  a b");
    EXPECT_EQ(trimLeft(u"\ta"), u"\ta"); // only blanks
    EXPECT_EQ(trimRight(u"   "), u"");
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
