// Collections and dictionaries, as C++ programs use them.
#include <gtest/gtest.h>
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>

#include "support/errors.h"

namespace quorkit {
namespace {

using test::errorOf;

std::vector<Variant> items(const Collection& c) {
    std::vector<Variant> all;
    for (Long position = 1; position <= c.count(); ++position) all.push_back(c.item(position));
    return all;
}

TEST(Collection, KeepsOrderAndUniqueKeys) {
    const CollectionRef made = Collection::make();
    Collection& c = *made;
    c.add(u"a", u"Key");
    c.add(u"c", u"\u00C4");
    c.insert(1, {{}, u"first"});
    c.insert(3, {{}, u"before c"});
    EXPECT_EQ(errorOf([&] { c.add(u"b", u"KEY"); }), 457);
    EXPECT_EQ(items(c), (std::vector<Variant>{u"first", u"a", u"before c", u"c"}));
    EXPECT_EQ(c.item(u"kEY"), Variant(u"a"));
    EXPECT_EQ(c.entry(u"\u00E4").item, Variant(u"c"));
    EXPECT_EQ(c.entry(2).key, u"Key");
    EXPECT_FALSE(c.contains(u""));
    c.remove(2);
    EXPECT_FALSE(c.contains(u"key"));
    c.add(u"b", u"KEY");
    c.remove(u"\u00E4");
    EXPECT_EQ(items(c), (std::vector<Variant>{u"first", u"before c", u"b"}));
}

TEST(Collection, RefusesAbsentPositionsAndKeys) {
    const CollectionRef made = Collection::make();
    Collection& c = *made;
    c.add(u"a", u"key");
    for (const Long position : {-1, 0, 2}) {
        EXPECT_EQ(errorOf([&] { c.item(position); }), 9);
        EXPECT_EQ(errorOf([&] { c.remove(position); }), 9);
        EXPECT_EQ(errorOf([&] { c.insert(position == 2 ? 3 : position, {{}, u"b"}); }), 9);
    }
    EXPECT_EQ(errorOf([&] { c.item(u"other"); }), 5);
    EXPECT_EQ(errorOf([&] { c.remove(u"other"); }), 5);
    EXPECT_EQ(c.count(), 1);
}

TEST(Dictionary, TellsKeysApart) {
    const Variant object = Collection::make();
    // No two of them are the same key.
    const std::vector<Variant> keys = {
        {},       Null{}, ErrorValue{1}, true,  false,       Long{0},
        Long{-1}, 1.5,    u"",           u"1",  u"a",        u"A",
        Date{},   object, ObjectRef(),   1e300, Long{65536}, String(1, u'\0')};
    const DictionaryRef made = Dictionary::make();
    Dictionary& dictionary = *made;
    for (const Variant& key : keys) dictionary.add(key, key);
    for (const Variant& key : keys) {
        ASSERT_TRUE(dictionary.find(key));
        EXPECT_EQ(*dictionary.find(key), key);
        EXPECT_THROW(dictionary.add(key, u"again"), AutomationError);
    }
    EXPECT_EQ(dictionary.count(), static_cast<Long>(keys.size()));
    EXPECT_FALSE(dictionary.find(u"b"));
    EXPECT_THROW(dictionary.set(Array<Byte>(), u""), AutomationError);
    EXPECT_EQ(dictionary.count(), static_cast<Long>(keys.size()));
}

TEST(Dictionary, NumbersAreOneKeyWhateverTheirType) {
    const DictionaryRef made = Dictionary::make();
    Dictionary& dictionary = *made;
    dictionary.set(Integer{1}, u"one");
    dictionary.set(0.0, u"zero");
    dictionary.set(1.0, u"uno");
    EXPECT_EQ(*dictionary.find(Long{1}), Variant(u"uno"));
    EXPECT_EQ(*dictionary.find(-0.0), Variant(u"zero"));
    EXPECT_EQ(dictionary.entries()[0].key, Variant(Integer{1}));
}

}  // namespace
}  // namespace quorkit
