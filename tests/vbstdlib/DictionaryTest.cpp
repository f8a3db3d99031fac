// Scripting.Dictionary through its Dispatch interface: keys of every kind, order, errors.
#include "DictionaryObject.h"
#include "DispatchCall.h"

using namespace vbstest;
using vbs::String;
using vbs::Value;

namespace {

vbs::Ref<vbs::Dispatch> dictionary() {
    return vbs::lib::createDictionary();
}

} // namespace

TEST(Dictionary, AddItemExistsCount) {
    auto d = dictionary();
    invoke(*d, u"Add", {Value(u"a"), Value(int16_t(1))});
    invoke(*d, u"add", {Value(int16_t(2)), Value(u"two")});
    EXPECT_EQ(get(*d, u"Count").toLong(), 2);
    EXPECT_EQ(get(*d, u"Item", {Value(u"a")}).toLong(), 1);
    EXPECT_EQ(get(*d, u"Item", {Value(2.0)}).toString(), u"two"); // numbers match across subtypes
    EXPECT_TRUE(get(*d, u"Exists", {Value(u"a")}).toBoolean());
    EXPECT_FALSE(get(*d, u"Exists", {Value(u"A")}).toBoolean()); // binary compare by default
    EXPECT_FALSE(get(*d, u"Exists", {Value(u"2")}).toBoolean()); // "2" is not 2
    EXPECT_EQ(d->typeName(), u"Dictionary");
}

TEST(Dictionary, Errors) {
    auto d = dictionary();
    invoke(*d, u"Add", {Value(u"k"), Value()});
    const int duplicate = errorOf([&] { invoke(*d, u"Add", {Value(u"k"), Value()}); });
    EXPECT_EQ(duplicate, 457);
    EXPECT_EQ(vbs::errorMessage(457),
              u"This key is already associated with an element of this collection");
    EXPECT_EQ(errorOf([&] { invoke(*d, u"Remove", {Value(u"missing")}); }), 32811);
    EXPECT_EQ(vbs::errorMessage(32811), u"Element not found");
    EXPECT_EQ(errorOf([&] { invoke(*d, u"Add", {Value(u"x")}); }), 450);
    EXPECT_EQ(errorOf([&] { let(*d, u"CompareMode", {Value(int16_t(1))}); }), 5); // not empty
    EXPECT_EQ(errorOf([&] { let(*d, u"Count", {Value(int16_t(1))}); }), 450);     // read-only
    EXPECT_EQ(errorOf([&] { let(*d, u"Item", {Value(int16_t(1))}); }), 450);      // no key
    EXPECT_EQ(errorOf([&] { invoke(*d, u"Frobnicate"); }), 438);
}

TEST(Dictionary, ReadingAMissingKeyAddsIt) {
    auto d = dictionary();
    EXPECT_TRUE(get(*d, u"Item", {Value(u"new")}).isEmpty());
    EXPECT_EQ(get(*d, u"Count").toLong(), 1);
    let(*d, u"Item", {Value(u"other"), Value(int16_t(5))});
    EXPECT_EQ(get(*d, u"Item", {Value(u"other")}).toLong(), 5);
    EXPECT_EQ(d->defaultMemberId(), d->memberId(u"item"));
}

TEST(Dictionary, TextCompareMode) {
    auto d = dictionary();
    let(*d, u"CompareMode", {Value(int16_t(1))});
    invoke(*d, u"Add", {Value(u"Key"), Value(int16_t(1))});
    EXPECT_TRUE(get(*d, u"Exists", {Value(u"KEY")}).toBoolean());
    EXPECT_EQ(errorOf([&] { invoke(*d, u"Add", {Value(u"kEy"), Value()}); }), 457);
    EXPECT_EQ(get(*d, u"CompareMode").toLong(), 1);
}

TEST(Dictionary, OrderKeysItemsRemoveAndRename) {
    auto d = dictionary();
    for (const char16_t* k : {u"c", u"a", u"b"})
        invoke(*d, u"Add", {Value(k), Value(String(k) + u"!")});
    invoke(*d, u"Remove", {Value(u"a")});
    let(*d, u"Key", {Value(u"c"), Value(u"z")});
    const Value keys = get(*d, u"Keys");
    ASSERT_TRUE(keys.isArray());
    ASSERT_EQ(keys.array()->items.size(), 2u);
    EXPECT_EQ(keys.array()->items[0].toString(), u"z");
    EXPECT_EQ(keys.array()->items[1].toString(), u"b");
    EXPECT_EQ(get(*d, u"Items").array()->items[0].toString(), u"c!");
    EXPECT_EQ(get(*d, u"Keys", {Value(int16_t(1))}).toString(), u"b"); // d.Keys(1)
    EXPECT_EQ(errorOf([&] { get(*d, u"Keys", {Value(int16_t(2))}); }), 9);
    const auto loop = each(d);
    ASSERT_EQ(loop.size(), 2u);
    EXPECT_EQ(loop[1].toString(), u"b");
    EXPECT_EQ(errorOf([&] { let(*d, u"Key", {Value(u"b"), Value(u"z")}); }), 457);
    invoke(*d, u"RemoveAll");
    EXPECT_EQ(get(*d, u"Count").toLong(), 0);
    EXPECT_EQ(get(*d, u"Keys").array()->items.size(), 0u);
}

TEST(Dictionary, ObjectKeysAreIdentities) {
    auto d = dictionary();
    auto a = dictionary();
    auto b = dictionary();
    invoke(*d, u"Add", {Value(a), Value(int16_t(1))});
    EXPECT_TRUE(get(*d, u"Exists", {Value(a)}).toBoolean());
    EXPECT_FALSE(get(*d, u"Exists", {Value(b)}).toBoolean());
    const Value arrayKey = Value::makeArray(std::vector<Value>{Value(int16_t(1))});
    EXPECT_EQ(errorOf([&] { invoke(*d, u"Add", {arrayKey, Value()}); }), 13);
}

TEST(Dictionary, ManyRemovalsKeepOrderAndLookups) {
    auto d = dictionary();
    for (int32_t i = 0; i < 100; ++i)
        invoke(*d, u"Add", {Value(i), Value(i * 10)});
    for (int32_t i = 0; i < 100; i += 2)
        invoke(*d, u"Remove", {Value(i)});
    invoke(*d, u"Add", {Value(int32_t(0)), Value(u"back")}); // a removed key can return, last
    EXPECT_EQ(get(*d, u"Count").toLong(), 51);
    const Value keys = get(*d, u"Keys");
    ASSERT_EQ(keys.array()->items.size(), 51u);
    EXPECT_EQ(keys.array()->items[0].toLong(), 1);
    EXPECT_EQ(keys.array()->items[49].toLong(), 99);
    EXPECT_EQ(keys.array()->items[50].toLong(), 0);
    EXPECT_EQ(get(*d, u"Item", {Value(int32_t(51))}).toLong(), 510);
    EXPECT_FALSE(get(*d, u"Exists", {Value(int32_t(50))}).toBoolean());
    let(*d, u"Key", {Value(int32_t(99)), Value(u"last")});
    EXPECT_EQ(get(*d, u"Item", {Value(u"last")}).toLong(), 990);
}
