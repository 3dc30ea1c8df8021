// Collections, as C++ programs use them.
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

}  // namespace
}  // namespace quorkit
