#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include <functional>

#include "support/late.h"

namespace quorkit::test {
namespace {

const Variant kNone(u"");

TEST(QuorCollection, StartsEmpty) {
    Late c(u"QuorCollection");
    EXPECT_EQ(c.get(u"count"), Variant(Long{0}));
    EXPECT_EQ(c(u"GetIndex", {u"any"}), Variant(Long{-1}));
    for (const Long index : {INT32_MIN, -1, 0, 1, INT32_MAX}) {
        EXPECT_EQ(c(u"getKey", {index}), kNone);
        EXPECT_EQ(c(u"getValueByIndex", {index}), kNone);
        EXPECT_EQ(c(u"setValueByIndex", {u"v", index}), Variant(Long{-1}));
        EXPECT_EQ(c(u"removeByIndex", {index}), Variant(false));
    }
    const Outcome names = c.call(u"getAllKeyNames", {Array<String>()});
    EXPECT_EQ(names.result, Variant(Long{0}));
    EXPECT_EQ(names.arguments[0], Variant(Array<String>(std::vector<String>{u""}, 1)));
}

TEST(QuorCollection, ValuesOfAnyKindUnderKeysInAnyCase) {
    Late c(u"QuorCollection");
    const Variant object = std::make_shared<Collection>();
    const Variant values[] = {u"text", Null(), object, Array<Byte>(Bounds{1, 2}), Variant()};
    for (const Variant& value : values) {
        EXPECT_EQ(c(u"setValueByKey", {value, u"Name"}), Variant(Long{1}));
        EXPECT_EQ(c(u"setValueByKey", {value, u"\u00C4"}), Variant(Long{2}));
        EXPECT_EQ(c(u"setValueByKey", {value, u"NAME"}), Variant(Long{1}));
        EXPECT_EQ(c(u"getValueByKey", {u"nAME"}), value);
        EXPECT_EQ(c(u"getValueByKey", {u"\u00E4", u"default"}), value);
    }
    EXPECT_EQ(c(u"getKey", {Long{1}}), Variant(u"Name"));
    EXPECT_EQ(c(u"setValueByKey", {u"empty", u""}), Variant(Long{3}));
    EXPECT_EQ(c(u"getValueByKey", {u""}), Variant(u"empty"));

    EXPECT_EQ(c(u"getValueByKey", {u"absent"}), kNone);
    EXPECT_EQ(c(u"getValueByKey", {u"absent", Variant::missing()}), kNone);
    EXPECT_EQ(c(u"getValueByKey", {u"absent", object}), object);
    EXPECT_EQ(c(u"getValueByKey", {u"absent", Variant()}), Variant());
}

TEST(QuorCollection, ACloneIsAnObjectOfItsOwnThatSharesObjects) {
    Late c(u"QuorCollection");
    const Variant object = std::make_shared<Collection>();
    c(u"setValueByKey", {object, u"Key"});
    const ObjectRef clone = c(u"clone").get<ObjectRef>();
    EXPECT_STREQ(clone->className(), "QuorCollection");
    EXPECT_EQ(c(u"removeByKey", {u"KEY"}), Variant(true));
    EXPECT_EQ(c(u"removeByKey", {u"KEY"}), Variant(false));
    Variant key = u"key";
    EXPECT_EQ(clone->call(u"getValueByKey", CallKind::Call, {{&key, 1}}), object);
}

class Witness final : public Object {
   public:
    explicit Witness(std::function<void()> released) : released_(std::move(released)) {}
    ~Witness() override { released_(); }
    const char* className() const override { return "Witness"; }

   private:
    std::function<void()> released_;
};

// What a value's release does to the collection finds it as it is after the call.
TEST(QuorCollection, IsWholeWhenAValueIsReleased) {
    Late c(u"QuorCollection");
    std::vector<Variant> seen;
    const auto witness = [&] {
        return Variant(std::make_shared<Witness>([&] {
            seen.push_back(c(u"getValueByIndex", {Long{1}}));
            seen.push_back(c(u"GetIndex", {u"a"}));
            c(u"removeByIndex", {Long{1}});
            c(u"setValueByKey", {u"late", u"A"});
        }));
    };
    c(u"setValueByKey", {witness(), u"a"});
    c(u"setValueByKey", {u"new", u"a"});
    c(u"setValueByIndex", {witness(), Long{1}});
    c(u"setValueByIndex", {u"newer", Long{1}});
    c(u"setValueByKey", {witness(), u"a"});
    c(u"removeByKey", {u"a"});
    EXPECT_EQ(seen, (std::vector<Variant>{u"new", Long{1}, u"newer", Long{1}, kNone, Long{-1}}));
    EXPECT_EQ(c(u"getKey", {Long{1}}), Variant(u"A"));
}

}  // namespace
}  // namespace quorkit::test
