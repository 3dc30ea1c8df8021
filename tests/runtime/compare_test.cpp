#include "runtime/compare.h"

#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include <limits>

#include "support/errors.h"

namespace quorkit::runtime {
namespace {

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

// In rising order; values in one group are equal.
TEST(Compare, OrdersNumbersBeforeTexts) {
    const std::vector<std::vector<Variant>> groups = {
        {-std::numeric_limits<Double>::infinity()},
        {Date{-1.25}},
        {true, Integer{-1}},
        {false, Long{0}, -0.0, Date{0}},
        {Integer{5}, Long{5}, 5.0, Date{5}},
        {5.5},
        {Long{70000}, 7e4},
        {std::numeric_limits<Double>::infinity()},
        {u""},
        {String(1, u'\0')},
        {u"5"},
        {u"A"},
        {u"a"},
        {u"a-"},
        {u"ab"},
        {u"\U0001F600"},
        {u"\uFFFF"},
    };
    for (std::size_t i = 0; i < groups.size(); ++i)
        for (std::size_t j = 0; j < groups.size(); ++j)
            for (const Variant& a : groups[i])
                for (const Variant& b : groups[j])
                    EXPECT_TRUE(compare(a, b) == (i <=> j)) << i << ' ' << j;
}

TEST(Compare, FitsEmptyToTheOtherSide) {
    for (const Variant& same : {Variant(), Variant(0.0), Variant(false), Variant(u"")}) {
        EXPECT_TRUE(compare(Variant(), same) == 0);
        EXPECT_TRUE(compare(same, Variant()) == 0);
    }
    EXPECT_TRUE(compare(Variant(), true) > 0);
    EXPECT_TRUE(compare(Variant(), u"a") < 0);
}

TEST(Compare, MeetsNaNAndNull) {
    for (const Variant& number : {Variant(kNaN), Variant(1.0), Variant(Long{-7}), Variant()}) {
        EXPECT_TRUE(compare(kNaN, number) == 0);
        EXPECT_TRUE(compare(number, kNaN) == 0);
    }
    EXPECT_TRUE(compare(kNaN, u"") < 0);
    for (const Variant& value : {Variant(Null{}), Variant(), Variant(1.0), Variant(u"")}) {
        EXPECT_TRUE(compare(Null{}, value) == std::partial_ordering::unordered);
        EXPECT_TRUE(compare(value, Null{}) == std::partial_ordering::unordered);
    }
}

TEST(Compare, RefusesWhatIsNoScalar) {
    const struct {
        Variant value;
        Long error;
    } cases[] = {{Array<Variant>(), 13},
                 {Array<Byte>(), 13},
                 {ErrorValue{1}, 13},
                 {Variant::missing(), 13},
                 {std::make_shared<Collection>(), 438},
                 {ObjectRef(), 91}};
    for (const auto& [value, error] : cases)
        for (const Variant& other : {value, Variant(), Variant(1.0), Variant(Null{})}) {
            EXPECT_EQ(test::errorOf([&] { compare(value, other); }), error);
            EXPECT_EQ(test::errorOf([&] { compare(other, value); }), error);
        }
}

}  // namespace
}  // namespace quorkit::runtime
