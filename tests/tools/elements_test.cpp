#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Tools, IndexOfElementInCollection) {
    Late tools(u"GQuorTools");
    const auto list = std::make_shared<Collection>();
    for (const Variant& item : {Variant(Null{}), Variant(u"x"), Variant(u"abc"), Variant(Long{5}),
                                Variant(5.0), Variant(u"7"), Variant(), Variant(true)})
        list->add(item);
    const struct {
        Variant element;
        Long position;
    } cases[] = {{u"abc", 3}, {u"ABC", -1}, {Date{5}, 4}, {u"5", -1},  {Integer{7}, -1},
                 {0.0, 7},    {u"", 7},     {-1.0, 8},    {Null{}, -1}};
    for (const auto& [element, position] : cases)
        EXPECT_EQ(tools(u"IndexOfElementInCollection", {element, list}), position) << position;
    EXPECT_EQ(tools(u"IndexOfElementInCollection", {u"x", ObjectRef()}), Long{-1});

    list->add(list);
    EXPECT_EQ(tools(u"IndexOfElementInCollection", {u"x", list}), Long{2});
    EXPECT_EQ(tools.errorOf(u"IndexOfElementInCollection", {u"none", list}), 438);
    EXPECT_EQ(tools.errorOf(u"IndexOfElementInCollection", {Array<Variant>(), list}), 13);
}

TEST(Tools, IsHex) {
    Late tools(u"GQuorTools");
    for (const char16_t* hex : {u"", u"1aF", u"0123456789ABCDEFabcdef"})
        EXPECT_EQ(tools(u"isHex", {hex}), true);
    for (const char16_t* other :
         {u"&H1F", u"0x1F", u"1G", u" 1", u"g", u"/", u":", u"@", u"`", u"-1", u"\uFF11"})
        EXPECT_EQ(tools(u"isHex", {other}), false);
}

}  // namespace
}  // namespace quorkit::test
