#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

using Values = std::vector<Variant>;

Values itemsOf(const Variant& collection) {
    Values items;
    const auto c = std::dynamic_pointer_cast<Collection>(collection.get<ObjectRef>());
    for (Long position = 1; position <= c->count(); ++position) items.push_back(c->item(position));
    return items;
}

TEST(Lists, ArrayToCollectionAndBack) {
    const struct {
        Variant array;
        Values items;
    } cases[] = {
        {Array<String>({u"b", u"a"}, 5), {u"b", u"a"}},
        {Array<Variant>({Long{1}, Null{}, u"x"}), {Long{1}, Null{}, u"x"}},
        {Array<Byte>(std::vector<Byte>{0, 255}), {Integer{0}, Integer{255}}},
        {Array<String>(), {}},
        {Array<String>(Bounds{0, 0}), {}},
    };
    Late convert(u"GQuorConvert");
    for (const auto& [array, items] : cases) {
        const Variant c = convert(u"ArrayToCollection", {array});
        EXPECT_EQ(itemsOf(c), items);
        EXPECT_EQ(convert(u"CollectionToArray", {c}), Variant(Array<Variant>(items)));
    }
    EXPECT_EQ(convert.errorOf(u"ArrayToCollection", {u"text"}), 13);
    EXPECT_EQ(convert.errorOf(u"CollectionToArray", {ObjectRef()}), 91);
}

TEST(Lists, AKeyValueTableGivesItsValuesUnderTheirKeys) {
    Late convert(u"GQuorConvert");
    Array<Variant> table({1, 2}, {1, 3});
    table.elements() = {u"One", Long{1}, u"", Long{2}, Long{3}, u"three"};
    const auto c = std::dynamic_pointer_cast<Collection>(
        convert(u"ArrayToCollection", {table}).get<ObjectRef>());
    ASSERT_EQ(c->count(), 3);
    EXPECT_EQ(c->item(u"one"), Variant(Long{1}));
    EXPECT_EQ(c->item(2), Variant(Long{2}));
    EXPECT_EQ(c->item(u"3"), Variant(u"three"));

    table.at(1, 3) = u"ONE";
    EXPECT_EQ(convert.errorOf(u"ArrayToCollection", {table}), 457);
    EXPECT_EQ(convert.errorOf(u"ArrayToCollection", {Array<String>({0, 3}, {0, 1})}), 13);
}

}  // namespace
}  // namespace quorkit::test
