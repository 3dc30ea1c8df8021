#include <gtest/gtest.h>
#include <quorkit/QuorCollection.h>

#include <functional>
#include <random>

#include "base/letter_case.h"
#include "support/late.h"
#include "support/sanitized.h"

namespace quorkit::test {
namespace {

/// The simplest collection: two parallel lists and linear searches.
struct Linear {
    std::vector<Variant> values;
    std::vector<String> names;

    Long count() const { return static_cast<Long>(values.size()); }
    bool has(Long p) const { return p >= 1 && p <= count(); }
    Variant value(Long p) const { return has(p) ? *(values.begin() + p - 1) : Variant(u""); }
    String name(Long p) const {
        return p >= 1 && p <= static_cast<Long>(names.size()) ? *(names.begin() + p - 1) : String();
    }
    Long index(const String& key) const {
        Long found = -1;
        for (Long p = 1; p <= count(); ++p)
            if (base::toLower(name(p)) == base::toLower(key)) found = p;
        return found;
    }
    Long replace(const Variant& value, Long p) {
        if (!has(p)) return -1;
        values.erase(values.begin() + p - 1);
        values.insert(values.begin() + p - 1, value);
        return p;
    }
    Long set(const Variant& value, const String& key) {
        if (const Long p = index(key); p != -1) return replace(value, p);
        values.push_back(value);
        names.resize(values.size());
        names.back() = key;
        return count();
    }
    bool remove(Long p) {
        if (!has(p)) return false;
        values.erase(values.begin() + p - 1);
        names.erase(names.begin() + p - 1);
        if (names.empty()) names.resize(1);
        return true;
    }
};

void expectSame(Late& c, const Linear& linear) {
    ASSERT_EQ(c.get(u"count"), Variant(linear.count()));
    for (const Long p : {INT32_MIN, -1, linear.count() + 2, INT32_MAX}) {
        EXPECT_EQ(c(u"getKey", {p}), Variant(u""));
        EXPECT_EQ(c(u"getValueByIndex", {p}), Variant(u""));
    }
    for (Long p = 0; p <= linear.count() + 1; ++p) {
        const String name = linear.name(p);
        ASSERT_EQ(c(u"getKey", {p}), Variant(name));
        ASSERT_EQ(c(u"GetIndex", {name}), Variant(linear.index(name)));
        ASSERT_EQ(c(u"getValueByIndex", {p}), linear.value(p));
        ASSERT_EQ(c(u"getValueByKey", {base::toUpper(name)}), linear.value(linear.index(name)));
    }
    const Outcome outcome = c.call(u"getAllKeyNames", {Array<String>()});
    ASSERT_EQ(outcome.result, Variant(linear.count()));
    const auto names = linear.names.empty() ? std::vector<String>(1) : linear.names;
    ASSERT_EQ(outcome.arguments[0], Variant(Array<String>(names, 1)));
}

TEST(QuorCollection, BehavesAsTwoListsDo) {
    Late c(u"QuorCollection");
    Linear linear;
    std::mt19937 random(1);
    const auto below = [&](int limit) {
        return static_cast<Long>(random() % static_cast<unsigned>(limit));
    };
    for (Long step = 0; step < 6000 && !testing::Test::HasFailure(); ++step) {
        if (step % 10 == 0) expectSame(c, linear);  // what went wrong before shows then too
        const auto letter = u"kK\u212A\u00E4\u00C4\u0130"[below(6)];
        const String key = below(50) == 0 ? String() : String{letter, char16_t(u'a' + below(20))};
        const Long p = below(3) == 0 ? below(2) * linear.count() : below(50) - 1;
        // The collection grows to all keys and shrinks to nothing, in turn.
        const Long what = step / 200 % 2 == 0 ? below(5) : 2 + below(4);
        if (what < 2)
            EXPECT_EQ(c(u"setValueByKey", {step, key}), Variant(linear.set(step, key)));
        else if (what == 2)
            EXPECT_EQ(c(u"setValueByIndex", {step, p}), Variant(linear.replace(step, p)));
        else if (what == 3)
            EXPECT_EQ(c(u"removeByKey", {key}), Variant(linear.remove(linear.index(key))));
        else
            EXPECT_EQ(c(u"removeByIndex", {p}), Variant(linear.remove(p)));
    }
}

struct Witness final : Object {
    explicit Witness(std::function<void()> action) : released(std::move(action)) {}
    ~Witness() override { released(); }
    const char* className() const override { return "Witness"; }
    std::function<void()> released;
};

// Code that runs when a value is released finds the collection as it is after the call.
TEST(QuorCollection, IsWholeWhenAValueIsReleased) {
    QuorCollection c;
    std::vector<Variant> seen;
    const auto witness = [&] {
        return std::make_shared<Witness>([&] {
            seen.push_back(c.getValueByIndex(1));
            seen.push_back(c.GetIndex(u"a"));
            c.removeByIndex(1);
            c.setValueByKey(u"late", u"A");
        });
    };
    c.setValueByKey(witness(), u"a");
    c.setValueByKey(u"new", u"a");
    c.setValueByIndex(witness(), 1);
    c.setValueByIndex(u"newer", 1);
    c.setValueByKey(witness(), u"a");
    c.removeByKey(u"a");
    EXPECT_EQ(seen, (std::vector<Variant>{u"new", Long{1}, u"newer", Long{1}, u"", Long{-1}}));
    EXPECT_EQ(c.getKey(1), u"A");
}

// If each call visited all elements, this would not end.
TEST(QuorCollection, IsNotQuadratic) {
    constexpr Long count = sized(200'000);
    QuorCollection c;
    const auto key = [](Long i) { return String{char16_t(i >> 12), char16_t(0xD000 + i % 4096)}; };
    for (Long i = 1; i <= count; ++i) c.setValueByKey(i, key(i));
    for (Long i = 1; i <= count / 4; ++i) c.removeByIndex(1);
    for (Long i = count; i > count / 2; i -= 2) c.removeByKey(key(i));
    for (Long i = 1; i <= c.count(); ++i) ASSERT_EQ(c.GetIndex(c.getKey(i)), i);
}

}  // namespace
}  // namespace quorkit::test
