// The collection against the plainest one: two parallel lists, searched from end to end.
#include <gtest/gtest.h>
#include <quorkit/QuorCollection.h>

#include <optional>
#include <random>

#include "runtime/letter_case.h"

namespace quorkit {
namespace {

struct Linear {
    std::vector<Variant> values;
    std::optional<std::vector<String>> names;  // counted from 1, not there at first

    Long count() const { return static_cast<Long>(values.size()); }
    bool inRange(Long p) const { return p >= 1 && p <= count(); }
    Long index(const String& key) const {
        Long found = -1;
        for (Long i = 1; i <= count(); ++i)
            if (runtime::toLower(name(i)) == runtime::toLower(key)) found = i;
        return found;
    }
    String name(Long i) const {
        const bool there = names && i >= 1 && i <= static_cast<Long>(names->size());
        return there ? (*names)[static_cast<std::size_t>(i) - 1] : String();
    }
    Long replace(const Variant& value, Long p) {
        if (!inRange(p)) return -1;
        values.erase(values.begin() + p - 1);
        values.insert(values.begin() + p - 1, value);
        return p;
    }
    Long set(const Variant& value, const String& key) {
        if (const Long p = index(key); p != -1) return replace(value, p);
        values.push_back(value);
        if (!names) names.emplace();
        names->resize(values.size());
        names->back() = key;
        return count();
    }
    bool remove(Long p) {
        if (!inRange(p)) return false;
        values.erase(values.begin() + p - 1);
        names->erase(names->begin() + p - 1);
        if (names->empty()) names->resize(1);
        return true;
    }
};

class AgainstLinear : public testing::Test {
   protected:
    QuorCollection c;
    Linear linear;
    std::mt19937 random{1};

    Long below(std::size_t limit) { return static_cast<Long>(random() % limit); }
    String anyKey() {
        static const char16_t* const spellings[] = {u"key", u"Key", u"\u00E4", u"\u00C4", u""};
        const std::string number = std::to_string(below(20));
        return spellings[below(std::size(spellings))] + String(number.begin(), number.end());
    }
    /// Also positions that are not there, but mostly the ends and the middle.
    Long anyPosition() { return below(3) == 0 ? below(2) * linear.count() : below(50) - 1; }

    void change(Long step) {
        const String key = anyKey();
        const Long p = anyPosition();
        // In turn the collection grows to all its keys and shrinks to nothing.
        switch (step / 200 % 2 == 0 ? below(5) : 2 + below(4)) {
            case 0:
            case 1:
                EXPECT_EQ(c.setValueByKey(step, key), linear.set(step, key));
                break;
            case 2:
                EXPECT_EQ(c.setValueByIndex(step, p), linear.replace(step, p));
                break;
            case 3:
            case 4:
                EXPECT_EQ(c.removeByIndex(p), linear.remove(p));
                break;
            default:
                EXPECT_EQ(c.removeByKey(key), linear.remove(linear.index(key)));
                if (below(10) == 0) c = c.clone();
        }
    }

    void compare() {
        ASSERT_EQ(c.count(), linear.count());
        for (Long i = -1; i <= linear.count() + 2; ++i) {
            const String name = linear.name(i);
            ASSERT_EQ(c.getKey(i), name);
            ASSERT_EQ(c.GetIndex(name), linear.index(name));
            const Variant value =
                linear.inRange(i) ? linear.values[static_cast<std::size_t>(i) - 1] : Variant(u"");
            ASSERT_EQ(c.getValueByIndex(i), value);
            if (!linear.inRange(i)) continue;
            ASSERT_EQ(c.getValueByKey(runtime::toUpper(name)), value);
        }
        Array<String> names;
        ASSERT_EQ(c.getAllKeyNames(names), linear.count());
        ASSERT_EQ(names, Array<String>(linear.names.value_or(std::vector<String>(1)), 1));
    }
};

TEST_F(AgainstLinear, AnythingInAnyOrder) {
    for (Long step = 0; step < 6000 && !HasFailure(); ++step) {
        change(step);
        compare();
    }
}

// With a walk over all elements this would not end.
TEST(QuorCollection, IsFast) {
    constexpr Long count = 200'000;
    QuorCollection c;
    const auto key = [](Long i) { return String{char16_t(i >> 12), char16_t(0xD000 + i % 4096)}; };
    for (Long i = 1; i <= count; ++i) c.setValueByKey(i, key(i));
    for (Long i = 1; i <= count / 4; ++i) c.removeByIndex(1);
    for (Long i = count; i > count / 2; i -= 2) c.removeByKey(key(i));
    for (Long i = count / 4 + 1; i <= count / 2; ++i) ASSERT_EQ(c.GetIndex(key(i)), i - count / 4);
    for (Long i = 1; i <= c.count(); ++i) ASSERT_EQ(c.GetIndex(c.getKey(i)), i);
}

}  // namespace
}  // namespace quorkit
