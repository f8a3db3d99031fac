// Text: UTF-8 <-> UTF-16 round trips, invalid bytes as Windows-1252, case folding of names.
#include "vbscript/Text.h"

#include <gtest/gtest.h>

using namespace vbs;

TEST(Text, Utf8RoundTripKeepsSurrogatePairs)
{
    const std::string utf8 = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z"; // a é € 😀 z
    const String s = fromUtf8(utf8);
    EXPECT_EQ(s.size(), 6u); // the emoji is two code units
    EXPECT_EQ(s[3], 0xD83D);
    EXPECT_EQ(toUtf8(s), utf8);
}

TEST(Text, InvalidUtf8)
{
    // Text files: Windows-1252.
    EXPECT_EQ(fromUtf8OrCp1252("caf\xE9"), u"caf\u00E9");
    EXPECT_EQ(fromUtf8OrCp1252("\x80"), u"\u20AC");
    EXPECT_EQ(fromUtf8OrCp1252("\xC3"), u"\u00C3"); // truncated sequence
    // Names from the system: the same bytes come back.
    for (const std::string bytes : {"caf\xE9.jpg", "\xC3", "a\xFF\xFE\x80b", "\xE2\x82"}) {
        EXPECT_EQ(fromUtf8(bytes).size(), bytes.size()) << bytes;
        EXPECT_EQ(toUtf8(fromUtf8(bytes)), bytes);
    }
    EXPECT_EQ(toUtf8(String(1, char16_t(0xD800))), "\xEF\xBF\xBD"); // lone surrogate
}

TEST(Text, CaseFolding)
{
    EXPECT_TRUE(equalsNoCase(u"WScript", u"wscript"));
    EXPECT_FALSE(equalsNoCase(u"abc", u"abd"));
    EXPECT_EQ(foldCase(u"MiXeD_1"), u"mixed_1");
    EXPECT_EQ(upperCase(u"abc"), u"ABC");
    EXPECT_TRUE(equalsNoCase(u"Größe", u"GRÖßE"));
    EXPECT_EQ(foldCase(u"ÀÉÎ ŁŚ ΑΩ ЖЁ"), u"àéî łś αω жё");
    EXPECT_EQ(upperCase(u"àéî łś αω жё ÿ"), u"ÀÉÎ ŁŚ ΑΩ ЖЁ Ÿ");
}
