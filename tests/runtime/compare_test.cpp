#include "runtime/compare.h"

#include <gtest/gtest.h>
#include <quorkit/collection.h>

#include <cmath>

#include "support/errors.h"

namespace quorkit::runtime {
namespace {

constexpr Double kNaN = NAN;
using Values = std::vector<Variant>;

TEST(Compare, OrdersNumbersBeforeTexts) {
    const Values rising = {Date{-1.25}, true, false, Integer{5}, 5.5,   Long{70000},   u"",
                           u"5",        u"A", u"a",  u"a-",      u"ab", u"\U0001F600", u"\uFFFF"};
    for (std::size_t i = 0; i < rising.size(); ++i)
        for (std::size_t j = 0; j < rising.size(); ++j)
            EXPECT_TRUE(compare(rising[i], rising[j]) == (i <=> j)) << i << ' ' << j;
}

TEST(Compare, KnowsWhatIsEqualAndWhatIsNeither) {
    const Values groups[] = {{true, Integer{-1}, -1.0, Date{-1}},
                             {Variant(), false, -0.0},
                             {Variant(), u""},
                             {kNaN, Long{-7}, Variant()}};
    for (const Values& group : groups)
        for (const Variant& a : group) {
            EXPECT_TRUE(compare(a, group[0]) == 0 && compare(group[0], a) == 0);
            EXPECT_FALSE(compare(a, Null{}) <= 0 || compare(Null{}, a) >= 0);
        }
    EXPECT_TRUE(compare(Variant(), true) > 0 && compare(Variant(), u"a") < 0);
}

TEST(Compare, RefusesWhatIsNoScalar) {
    const std::pair<Variant, Long> cases[] = {
        {Array<Variant>(), 13}, {ErrorValue{1}, 13}, {Collection::make(), 438}, {ObjectRef(), 91}};
    for (const auto& one : cases)
        for (const Variant& other : {one.first, Variant(1.0), Variant(Null{})}) {
            EXPECT_EQ(test::errorOf([&] { compare(one.first, other); }), one.second);
            EXPECT_EQ(test::errorOf([&] { compare(other, one.first); }), one.second);
        }
}

}  // namespace
}  // namespace quorkit::runtime
