#include <gtest/gtest.h>
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>

namespace quorkit {
namespace {

TEST(Dictionary, TellsKeysApart) {
    const Variant object = std::make_shared<Collection>();
    // No two of them are the same key.
    const std::vector<Variant> keys = {
        {},       Null{}, ErrorValue{1}, true,  false,       Long{0},
        Long{-1}, 1.5,    u"",           u"1",  u"a",        u"A",
        Date{},   object, ObjectRef(),   1e300, Long{65536}, String(1, u'\0')};
    Dictionary dictionary;
    for (const Variant& key : keys) dictionary.add(key, key);
    for (const Variant& key : keys) {
        ASSERT_NE(dictionary.find(key), nullptr);
        EXPECT_EQ(*dictionary.find(key), key);
        EXPECT_THROW(dictionary.add(key, u"again"), AutomationError);
    }
    EXPECT_EQ(dictionary.count(), static_cast<Long>(keys.size()));
    EXPECT_EQ(dictionary.find(u"b"), nullptr);
}

TEST(Dictionary, NumbersAreOneKeyWhateverTheirType) {
    Dictionary dictionary;
    dictionary.set(Integer{1}, u"one");
    dictionary.set(0.0, u"zero");
    dictionary.set(1.0, u"uno");
    EXPECT_EQ(*dictionary.find(Long{1}), Variant(u"uno"));
    EXPECT_EQ(*dictionary.find(-0.0), Variant(u"zero"));
    EXPECT_EQ(dictionary.entries()[0].key, Variant(Integer{1}));
}

TEST(Dictionary, AnArrayIsNoKey) {
    Dictionary dictionary;
    EXPECT_THROW(dictionary.set(Array<Byte>(), u""), AutomationError);
    EXPECT_EQ(dictionary.count(), 0);
}

}  // namespace
}  // namespace quorkit
