#include <gtest/gtest.h>
#include <quorkit/GQuorTools.h>
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

// What passes by reference and never changes takes what a parameter by value does.
TEST(Tools, TakeLiterals) {
    EXPECT_TRUE(GQuorTools().isHex(u"1F"));
    EXPECT_EQ(GQuorTools().IndexOfElementInCollection(5.0, nullptr), -1);
}

// An object may call itself anything.
TEST(Tools, IndexOfElementInCollectionTakesOnlyCollections) {
    struct Stranger final : Object {
        const char* className() const override { return "Collection"; }
    };
    EXPECT_EQ(Late(u"GQuorTools")
                  .errorOf(u"IndexOfElementInCollection", {u"x", std::make_shared<Stranger>()}),
              13);
}

}  // namespace
}  // namespace quorkit::test
