// Regular expressions: JScript's pattern reading on PCRE2, global matching and $-replacement
// (what a script sees of them through RegExp, its flags, matches and $n, $& and $$: the golden
// regexp script).
#include "RegexEngine.h"

#include <gtest/gtest.h>

using namespace vbs::lib;

namespace {

std::shared_ptr<const RegexProgram> re(std::u16string_view pattern, bool ignoreCase = false,
                                       bool multiline = false) {
    auto program = RegexProgram::compile(pattern, {ignoreCase, multiline});
    EXPECT_TRUE(program);
    return program;
}

bool test(std::u16string_view pattern, std::u16string_view subject, bool ignoreCase = false,
          bool multiline = false) {
    return re(pattern, ignoreCase, multiline)->matchFrom(subject, 0).has_value();
}

} // namespace

TEST(RegexEngine, Options) {
    EXPECT_FALSE(test(u"abc", u"xABCx"));
    EXPECT_TRUE(test(u"a$", u"a\r\nb", false, true));
    EXPECT_FALSE(test(u"a$", u"a\n")); // "$" is the very end unless multi-line
    EXPECT_FALSE(test(u"a.b", u"a\nb"));
    EXPECT_TRUE(test(u"\\u0041\\x42", u"AB"));
    EXPECT_TRUE(test(u"a[^]b", u"a\nb"));
    EXPECT_TRUE(test(u"\\bword\\b", u"a word."));
    EXPECT_TRUE(test(u"x{2}", u"xx"));
}

TEST(RegexEngine, UnmatchedGroupsAndEmptyMatches) {
    EXPECT_EQ(re(u"(a)|(b)")->replace(u"b", u"[$1|$2]", true), u"[|b]");
    auto star = re(u"x*");
    EXPECT_EQ(star->matchAll(u"abc", true).size(), 4u);
    EXPECT_EQ(star->replace(u"abc", u"-", true), u"-a-b-c-");
    EXPECT_EQ(re(u"a*")->replace(u"baaac", u"-", true), u"-b--c-");
}

TEST(RegexEngine, ReplacementForms) {
    auto swap = re(u"(\\w+) (\\w+)");
    EXPECT_EQ(swap->replace(u"a b", u"$$1", true), u"$1");
    EXPECT_EQ(swap->replace(u"a b", u"$0 $3 $", true), u"$0 $3 $");
    EXPECT_EQ(swap->replace(u"a b", u"$11", true), u"a1"); // no group 11: group 1, then "1"
    EXPECT_EQ(re(u"b")->replace(u"abc", u"[$`|$']", true), u"a[a|c]c");
    auto many = re(u"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)");
    EXPECT_EQ(many->replace(u"abcdefghijk", u"$11$10$9", true), u"kji");
}

TEST(RegexEngine, BadPatternsReportAnError) {
    std::u16string error;
    EXPECT_FALSE(RegexProgram::compile(u"(", {}, &error));
    EXPECT_FALSE(error.empty());
    EXPECT_FALSE(RegexProgram::compile(u"a**+", {}, &error));
}

TEST(RegexEngine, CodeUnitsAreCharacters) {
    std::u16string lone = u"xy";
    lone.insert(1, 1, char16_t(0xD800));
    EXPECT_EQ(re(u"x.y")->matchAll(lone, true).size(), 1u);
    EXPECT_EQ(re(u"\u00E9")->replace(u"caf\u00E9", u"e", true), u"cafe");
}
