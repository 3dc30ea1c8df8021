#include "runtime/random.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace quorkit::test {
namespace {

TEST(Random, FillsTheRangeEvenlyAndRepeatsBySeed) {
    constexpr int draws = 100'000;
    std::array<int, 10> tenths{};
    std::vector<float> first;
    runtime::Randomize(1);
    for (int i = 0; i < draws; ++i) {
        const float value = runtime::Rnd();
        ASSERT_TRUE(value >= 0 && value < 1) << value;
        ++tenths[static_cast<std::size_t>(value * 10)];
        if (i < 100) first.push_back(value);
    }
    for (const int count : tenths) EXPECT_NEAR(count, draws / 10, draws / 100);

    runtime::Randomize(2);
    EXPECT_NE(runtime::Rnd(), first[0]);
    runtime::Randomize(1);
    for (const float value : first) EXPECT_EQ(runtime::Rnd(), value);
}

}  // namespace
}  // namespace quorkit::test
