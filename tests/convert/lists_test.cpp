// Token lists, arrays and collections.
#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

CollectionRef collectionOf(const std::vector<Variant>& items) {
    auto c = Collection::make();
    for (const Variant& item : items) c->add(item);
    return c;
}

// Where delimiters could overlap at the end, the array loses the rest: it compares the end of the
// text with the delimiter, while the collection uses the position.
TEST(Lists, TextsAreSplit) {
    const Array<String> old({5, 3}, {1, 2});
    const auto array = [](std::vector<String> texts) {
        return std::vector<Variant>{static_cast<Long>(texts.size()), Array<String>(texts)};
    };
    Late convert(u"GQuorConvert");
    convert.expect(
        u"StringTokenToStringArray",
        {Row({u"a", u",", old}, array({u"a"})),
         Row({u"a,,b,", u",", old}, array({u"a", u"", u"b"})),
         Row({u",a", u",", old}, array({u"", u"a"})), Row({u",", u",", old}, array({u""})),
         Row({u"a,b,,", u",", old}, array({u"a", u"b", u""})),
         Row({u"a\r\nb\rc\r\n", u"\r\n", old}, array({u"a", u"b\rc"})),
         Row({u"aXbxc", u"x", old}, array({u"aXb", u"c"})),
         Row({u"a,b", u"", old}, array({u"a,b"})), Row({u"", u",", old}, array({u""})),
         Row({u"aaa", u"aa", old}, array({u""}))});
    const ObjectRef nothing;
    convert.expect(
        u"StringTokenToStringCollection",
        {Row({u"a", u",", false, nothing}, {1, u":a|"}),
         Row({u"a,,b,", u",", false, nothing}, {3, u":a|:|:b|"}),
         Row({u",", u",", false, nothing}, {1, u":|"}),
         Row({u"a,b,,", u",", false, nothing}, {3, u":a|:b|:|"}),
         Row({u"a\r\nb\rc\r\n", u"\r\n", false, nothing}, {2, u":a|:b\rc|"}),
         Row({u"aXb ", u"x", false, nothing}, {1, u":aXb |"}),
         Row({u"a,b", u"", false, nothing}, {1, u":a,b|"}),
         Row({u"", u",", false, nothing}, {0, nothing}),
         Row({u"aaa", u"aa", false, nothing}, {2, u":|:a|"}),
         Row({u" a ; ;\tb;", u";", true, collectionOf({u"old"})}, {4, u":old|:a|:|:\tb|"})});
}

TEST(Lists, CollectionsAreJoined) {
    Late convert(u"GQuorConvert");
    convert.expect(
        u"CollectionToStringToken",
        {Row({collectionOf({u"", true, -5, 1.5, Empty{}, u"c"}), u";"}, u";True;-5;1.5;;c"),
         Row({collectionOf({}), u";"}, u""), Row({ObjectRef(), u";"}, Error{91}),
         Row({collectionOf({Array<Byte>()}), u";"}, Error{13}),
         Row({u"no collection", u";"}, Error{13})});
}

TEST(Lists, ArraysBecomeCollectionsAndBack) {
    Array<Variant> table({1, 2}, {1, 3});
    table.elements() = {u"One", 1, u"", 2, 3, u"three"};
    const std::pair<Variant, std::vector<Variant>> cases[] = {
        {Array<String>({u"b", u"a"}, 5), {u"b", u"a"}},
        {Array<Variant>({1, Null{}, u"x"}), {1, Null{}, u"x"}},
        {Array<Byte>(std::vector<Byte>{0, 255}), {Integer{0}, Integer{255}}},
        {Array<String>(), {}},
        {Array<String>(Bounds{0, 0}), {}},
    };
    Late convert(u"GQuorConvert");
    for (const auto& [array, items] : cases)
        EXPECT_EQ(convert(u"CollectionToArray", {convert(u"ArrayToCollection", {array})}),
                  Variant(Array<Variant>(items)));
    Array<Variant> same({0, 2}, {0, 3});
    same.elements() = {u"One", 1, u"", 2, u"3", u"three"};
    EXPECT_EQ(convert(u"CollectionToArray", {convert(u"ArrayToCollection", {table})}),
              Variant(same));
    Array<String> texts({1, 2}, {1, 2});
    texts.elements() = {u"One", u"1", u"", u"2"};
    table.at(1, 3) = u"ONE";
    convert.expect(u"ArrayToCollection",
                   {Row({texts}, u"One:1|:2|"), Row({table}, Error{457}),
                    Row({Array<String>({0, 3}, {0, 1})}, Error{13}), Row({u"text"}, Error{13})});
    EXPECT_EQ(convert.errorOf(u"CollectionToArray", {ObjectRef()}), 91);
}

}  // namespace
}  // namespace quorkit::test
