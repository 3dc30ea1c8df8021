#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Tools, IndexOfElementInCollection) {
    Late tools(u"GQuorTools");
    const auto list = std::make_shared<Collection>();
    for (const Variant& item :
         {Variant(Null{}), Variant(u"abc"), Variant(Long{5}), Variant(5.0), Variant()})
        list->add(item);
    const struct {
        Variant element;
        Long position;
    } cases[] = {{u"abc", 2}, {u"ABC", -1}, {Date{5}, 3}, {u"5", -1}, {u"", 5}, {Null{}, -1}};
    for (const auto& [element, position] : cases)
        EXPECT_EQ(tools(u"IndexOfElementInCollection", {element, list}), position) << position;
    EXPECT_EQ(tools(u"IndexOfElementInCollection", {u"x", ObjectRef()}), Long{-1});
    EXPECT_EQ(tools.errorOf(u"IndexOfElementInCollection", {Array<Variant>(), list}), 13);
}

TEST(Tools, IsHex) {
    Late tools(u"GQuorTools");
    for (const char16_t* hex : {u"", u"1aF", u"0123456789ABCDEFabcdef"})
        EXPECT_EQ(tools(u"isHex", {hex}), true);
    for (const char16_t* other : {u"&H1F", u"0x1F", u"1G", u" 1", u"g", u"/", u":", u"@", u"`"})
        EXPECT_EQ(tools(u"isHex", {other}), false);
}

}  // namespace
}  // namespace quorkit::test
