// The RegExp object through its Dispatch interface: properties, Test, Execute's collections,
// Replace, and a bad pattern.
#include "RegExpObject.h"
#include "DispatchCall.h"

using namespace vbstest;
using vbs::Value;

namespace {

vbs::Ref<vbs::Dispatch> regExp(std::u16string_view pattern, bool global = false) {
    auto re = vbs::lib::createRegExp();
    let(*re, u"Pattern", {Value(pattern)});
    let(*re, u"Global", {Value(global)});
    return re;
}

} // namespace

TEST(RegExpObject, PropertiesAndTest) {
    auto re = regExp(u"^img_\\d+$");
    EXPECT_EQ(get(*re, u"pattern").toString(), u"^img_\\d+$");
    EXPECT_FALSE(get(*re, u"IgnoreCase").toBoolean());
    EXPECT_TRUE(invoke(*re, u"Test", {Value(u"img_0042")}).toBoolean());
    EXPECT_FALSE(invoke(*re, u"Test", {Value(u"IMG_0042")}).toBoolean());
    let(*re, u"IgnoreCase", {Value(true)});
    EXPECT_TRUE(invoke(*re, u"Test", {Value(u"IMG_0042")}).toBoolean());
    EXPECT_FALSE(invoke(*re, u"Test", {Value(u"a\nimg_1")}).toBoolean());
    let(*re, u"Multiline", {Value(true)});
    EXPECT_TRUE(invoke(*re, u"Test", {Value(u"a\nimg_1")}).toBoolean());
    EXPECT_EQ(re->typeName(), u"IRegExp2");
}

TEST(RegExpObject, ExecuteCollections) {
    auto re = regExp(u"(\\w)(\\d)?", true);
    const Value matches = invoke(*re, u"Execute", {Value(u"a1 b")});
    auto list = dispatchOf(matches);
    EXPECT_EQ(list->typeName(), u"IMatchCollection2");
    ASSERT_EQ(get(list, u"Count").toLong(), 2);
    auto second = dispatchOf(get(list, u"Item", {Value(int16_t(1))}));
    EXPECT_EQ(get(second, u"Value").toString(), u"b");
    EXPECT_EQ(get(second, u"FirstIndex").toLong(), 3);
    EXPECT_EQ(get(second, u"Length").toLong(), 1);
    auto subs = dispatchOf(get(second, u"SubMatches"));
    EXPECT_EQ(get(subs, u"Count").toLong(), 2);
    EXPECT_EQ(get(subs, u"Item", {Value(int16_t(0))}).toString(), u"b");
    EXPECT_TRUE(get(subs, u"Item", {Value(int16_t(1))}).isEmpty()); // the group took no part
    // m.SubMatches(0): the index goes to the collection's default member.
    EXPECT_EQ(get(second, u"SubMatches", {Value(int16_t(0))}).toString(), u"b");
    EXPECT_EQ(each(list).size(), 2u);
    EXPECT_EQ(each(subs).size(), 2u);
    EXPECT_EQ(errorOf([&] { get(list, u"Item", {Value(int16_t(2))}); }), 5);
    let(*re, u"Global", {Value(false)});
    EXPECT_EQ(get(dispatchOf(invoke(*re, u"Execute", {Value(u"a1 b")})), u"Count").toLong(), 1);
}

TEST(RegExpObject, Replace) {
    auto re = regExp(u"(\\d+)x(\\d+)", true);
    EXPECT_EQ(invoke(*re, u"Replace", {Value(u"640x480, 800x600"), Value(u"$2 by $1")}).toString(),
              u"480 by 640, 600 by 800");
    let(*re, u"Global", {Value(false)});
    EXPECT_EQ(invoke(*re, u"Replace", {Value(u"1x2 3x4"), Value(u"[$&]")}).toString(),
              u"[1x2] 3x4");
}

TEST(RegExpObject, BadPatternIsASyntaxError) {
    auto re = regExp(u"a(b");
    EXPECT_EQ(errorOf([&] { invoke(*re, u"Test", {Value(u"ab")}); }), 5017);
    let(*re, u"Pattern", {Value(u"a(b)")});
    EXPECT_TRUE(invoke(*re, u"Test", {Value(u"ab")}).toBoolean());
    EXPECT_EQ(errorOf([&] { invoke(*re, u"Test"); }), 450);
}
