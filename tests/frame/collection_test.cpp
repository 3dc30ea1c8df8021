#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include "support/errors.h"

namespace quorkit {
namespace {

using test::errorOf;

std::vector<Variant> items(const Collection& c) {
    std::vector<Variant> all;
    for (Long position = 1; position <= c.count(); ++position) all.push_back(c.item(position));
    return all;
}

TEST(Collection, KeepsOrderAndKeys) {
    Collection c;
    c.add(u"a", u"Key");
    c.add(u"b");
    c.add(u"c", u"\u00C4");
    c.insertBefore(1, u"first");
    c.insertBefore(4, u"before c");
    EXPECT_EQ(items(c), (std::vector<Variant>{u"first", u"a", u"b", u"before c", u"c"}));
    EXPECT_EQ(c.item(u"kEY"), Variant(u"a"));
    EXPECT_EQ(c.entry(u"\u00E4").item, Variant(u"c"));
    EXPECT_EQ(c.entry(2).key, u"Key");
    EXPECT_FALSE(c.contains(u""));
}

TEST(Collection, AKeyIsUniqueUntilItsItemGoes) {
    Collection c;
    c.add(u"a", u"key");
    EXPECT_EQ(errorOf([&] { c.add(u"b", u"KEY"); }), 457);
    EXPECT_EQ(items(c), std::vector<Variant>{u"a"});
    c.remove(1);
    EXPECT_FALSE(c.contains(u"key"));
    c.add(u"b", u"KEY");
    c.add(u"c");
    c.remove(u"key");
    EXPECT_EQ(items(c), std::vector<Variant>{u"c"});
}

TEST(Collection, RefusesAbsentPositionsAndKeys) {
    Collection c;
    c.add(u"a", u"key");
    for (const Long position : {-1, 0, 2}) {
        EXPECT_EQ(errorOf([&] { c.item(position); }), 9);
        EXPECT_EQ(errorOf([&] { c.remove(position); }), 9);
        EXPECT_EQ(errorOf([&] { c.insertBefore(position, u"b"); }), 9);
    }
    EXPECT_EQ(errorOf([&] { c.item(u"other"); }), 5);
    EXPECT_EQ(errorOf([&] { c.remove(u"other"); }), 5);
    EXPECT_EQ(c.count(), 1);
}

}  // namespace
}  // namespace quorkit
