#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

using Texts = std::vector<String>;

CollectionRef collectionOf(const std::vector<Variant>& items) {
    auto c = std::make_shared<Collection>();
    for (const Variant& item : items) c->add(item);
    return c;
}

Texts textsIn(const Variant& collection) {
    Texts texts;
    const auto c = std::dynamic_pointer_cast<Collection>(collection.get<ObjectRef>());
    for (Long position = 1; c != nullptr && position <= c->count(); ++position)
        texts.push_back(c->item(position).get<String>());
    return texts;
}

TEST(Tokens, SplitAlikeIntoArrayAndCollection) {
    const struct {
        const char16_t* text;
        const char16_t* delimiter;
        Texts pieces;
    } cases[] = {
        {u"a", u",", {u"a"}},
        {u"a,b", u",", {u"a", u"b"}},
        {u"a,b,", u",", {u"a", u"b"}},
        {u",a", u",", {u"", u"a"}},
        {u"a,,b", u",", {u"a", u"", u"b"}},
        {u",", u",", {u""}},
        {u"a,b,,", u",", {u"a", u"b", u""}},
        {u"a\r\nb\r\n", u"\r\n", {u"a", u"b"}},
        {u"a\rb\r\n", u"\r\n", {u"a\rb"}},
        {u"aXbxc", u"x", {u"aXb", u"c"}},
        {u"a,b", u"", {u"a,b"}},
    };
    Late convert(u"GQuorConvert");
    for (const auto& [text, delimiter, pieces] : cases) {
        const auto count = static_cast<Long>(pieces.size());
        const Outcome array = convert.call(u"StringTokenToStringArray",
                                           {text, delimiter, Array<String>({5, 3}, {1, 2})});
        EXPECT_EQ(array.result, Variant(count));
        EXPECT_EQ(array.arguments[2], Variant(Array<String>(pieces)));
        const Outcome collection =
            convert.call(u"StringTokenToStringCollection", {text, delimiter, false, ObjectRef()});
        EXPECT_EQ(collection.result, Variant(count));
        EXPECT_EQ(textsIn(collection.arguments[3]), pieces);
    }
}

TEST(Tokens, AnEmptyTextIsOneElementButNoItem) {
    Late convert(u"GQuorConvert");
    const Outcome array = convert.call(u"StringTokenToStringArray", {u"", u",", Array<String>()});
    EXPECT_EQ(array.result, Variant(Long{1}));
    EXPECT_EQ(array.arguments[2], Variant(Array<String>(Texts{u""})));
    const Outcome collection =
        convert.call(u"StringTokenToStringCollection", {u"", u",", false, ObjectRef()});
    EXPECT_EQ(collection.result, Variant(Long{0}));
    EXPECT_EQ(collection.arguments[3], Variant(ObjectRef()));
}

// The end of the text is compared on its own, so the array loses the rest here; the collection
// goes by the position.
TEST(Tokens, DelimitersThatCouldOverlapAtTheEnd) {
    Late convert(u"GQuorConvert");
    const Outcome array =
        convert.call(u"StringTokenToStringArray", {u"aaa", u"aa", Array<String>()});
    EXPECT_EQ(array.arguments[2], Variant(Array<String>(Texts{u""})));
    const Outcome collection =
        convert.call(u"StringTokenToStringCollection", {u"aaa", u"aa", false, ObjectRef()});
    EXPECT_EQ(textsIn(collection.arguments[3]), (Texts{u"", u"a"}));
}

TEST(Tokens, AppendTrimmedToACollection) {
    Late convert(u"GQuorConvert");
    const Outcome outcome = convert.call(u"StringTokenToStringCollection",
                                         {u" a ; ;\tb;", u";", true, collectionOf({u"old"})});
    EXPECT_EQ(outcome.result, Variant(Long{4}));
    EXPECT_EQ(textsIn(outcome.arguments[3]), (Texts{u"old", u"a", u"", u"\tb"}));
}

TEST(Tokens, JoinACollection) {
    Late convert(u"GQuorConvert");
    const auto join = [&](const std::vector<Variant>& items) {
        return convert(u"CollectionToStringToken", {collectionOf(items), u";"});
    };
    EXPECT_EQ(join({u"a", u"b", u"c"}), Variant(u"a;b;c"));
    EXPECT_EQ(join({u"", true, Long{-5}, 1.5, Variant()}), Variant(u";True;-5;1.5;"));
    EXPECT_EQ(join({}), Variant(u""));
    EXPECT_EQ(convert.errorOf(u"CollectionToStringToken", {ObjectRef(), u";"}), 91);
    EXPECT_EQ(convert.errorOf(u"CollectionToStringToken", {collectionOf({Array<Byte>()}), u";"}),
              13);
    EXPECT_EQ(convert.errorOf(u"CollectionToStringToken", {u"no collection", u";"}), 13);
}

}  // namespace
}  // namespace quorkit::test
