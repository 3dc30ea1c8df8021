#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <random>
#include <thread>

#include "support/child.h"
#include "support/late.h"
#include "support/sanitized.h"

namespace quorkit::test {
namespace {

using Values = std::vector<Variant>;

Array<Variant> sorted(Values values, bool caseSensitive = true, bool up = true) {
    const auto high = static_cast<Long>(values.size()) - 1;
    return Late(u"GQuorTools")
        .call(u"QuickSortVariantArray",
              {Array<Variant>(std::move(values)), Long{0}, high, caseSensitive, up})
        .arguments[0]
        .get<Array<Variant>>();
}

TEST(QuickSort, PutsEqualElementsWhereTheWrittenAlgorithmDoes) {
    const Values numbers = {Integer{1}, Long{1}, 1.0, Date{1}, true, false, 0.0, -0.0, 2.5, {}};
    const Values texts = {u"a", u"A", u"b", u"B", u"", u"aB", u"\u00E4", u"\u00C4", u"5", {}};
    Values all = numbers;
    all.insert(all.end(), texts.begin(), texts.end());
    const Values withNaN = {3.0, 1.0, Double{NAN}, Long{1}, Long{3}};
    std::mt19937 random(1);
    std::uint32_t sum = 0;
    const Values* const sources[] = {&numbers, &texts, &all, &withNaN};
    for (const Values* from : sources)
        for (int round = 0; round < 3000; ++round) {
            Values values(1 + random() % 24);
            for (Variant& value : values) value = (*from)[random() % from->size()];
            const bool up = random() % 2 == 0;
            const bool caseSensitive = from == &withNaN || random() % 2 == 0;
            const Variant result = sorted(values, caseSensitive, up);
            for (const char one : testing::PrintToString(result))
                sum = sum * 31 + static_cast<unsigned char>(one);
        }
    EXPECT_EQ(sum, 1369149335u);  // the sum for the published algorithm, step by step
}

TEST(QuickSort, AMillionElementsInAnySequence) {
    constexpr int count = sized(1'000'000);
    Values rising;
    Values roof;
    for (int i = 0; i < count; ++i) {
        rising.emplace_back(Long{i / 2});
        roof.emplace_back(Long{std::min(i, count - 1 - i)});
    }
    EXPECT_TRUE(sorted(rising).elements() == rising);
    EXPECT_TRUE(sorted(Values(rising.rbegin(), rising.rend())).elements() == rising);
    EXPECT_TRUE(sorted(roof).elements() == rising);
    const Values equal(count, Variant(u"same"));
    EXPECT_TRUE(sorted(equal, false).elements() == equal);
}

// A failing step is repeated for ever, so the test uses a process that can be killed.
const PartName kSort("sort", [](const std::vector<std::string>& arguments) {
    const Values last = {3.0, Null{}, Array<Variant>()};
    sorted({2.0, 1.0, last[static_cast<std::size_t>(std::stoi(arguments[0]))]});
    return 0;
});

TEST(QuickSort, RetriesForEverWhatCannotBeCompared) {
    EXPECT_EQ(Child("sort", {"0"}).wait(), 0);
    Child null("sort", {"1"});
    Child array("sort", {"2"});
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    for (Child* child : {&null, &array}) {
        child->kill();
        EXPECT_EQ(child->wait(), -1);
    }
}

}  // namespace
}  // namespace quorkit::test
