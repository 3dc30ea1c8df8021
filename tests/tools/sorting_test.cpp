#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <random>
#include <thread>

#include "runtime/compare.h"
#include "runtime/convert.h"
#include "runtime/letter_case.h"
#include "support/child.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

using Values = std::vector<Variant>;

Variant sorted(Values values, bool caseSensitive = true, bool up = true) {
    const auto high = static_cast<Long>(values.size()) - 1;
    Late tools(u"GQuorTools");
    return tools
        .call(u"QuickSortVariantArray",
              {Array<Variant>(std::move(values)), Long{0}, high, caseSensitive, up})
        .arguments[0];
}

/// The algorithm as it was published, word by word.
void sortAsWritten(Array<Variant>& array, Long low, Long high, bool caseSensitive, bool up) {
    if (high <= low) return;
    if (!array.at(low).is<Empty>() && !array.at(low).is<String>()) caseSensitive = true;
    const auto taken = [&](Long index) -> Variant {
        const Variant& value = array.at(index);
        return caseSensitive ? value : Variant(runtime::toUpper(runtime::CStr(value)));
    };
    const Variant pivot = taken((low + high) / 2);
    Long i = low;
    Long j = high;
    while (i <= j) {
        const auto a = runtime::compare(taken(i), pivot);
        const auto b = runtime::compare(taken(j), pivot);
        if (up ? a >= 0 && b <= 0 : a <= 0 && b >= 0) {
            std::swap(array.at(i), array.at(j));
            ++i;
            --j;
        } else {
            if (up ? a < 0 : a > 0) ++i;
            if (up ? b > 0 : b < 0) --j;
        }
    }
    sortAsWritten(array, low, j, caseSensitive, up);
    sortAsWritten(array, i, high, caseSensitive, up);
}

TEST(QuickSort, SortsPartsUpAndDown) {
    const Values letters = {u"b", u"A", u"c"};
    EXPECT_EQ(sorted(letters), Variant(Array<Variant>(Values{u"A", u"b", u"c"})));
    EXPECT_EQ(sorted(letters, false), Variant(Array<Variant>(Values{u"A", u"b", u"c"})));
    EXPECT_EQ(sorted(letters, true, false), Variant(Array<Variant>(Values{u"c", u"b", u"A"})));
    Late tools(u"GQuorTools");
    Array<Variant> numbers({4.0, 3.0, 2.0, 1.0}, -1);
    EXPECT_EQ(tools.call(u"QuickSortVariantArray", {numbers, Long{0}, Long{2}}).arguments[0],
              Variant(Array<Variant>({4.0, 1.0, 2.0, 3.0}, -1)));
    EXPECT_EQ(tools.call(u"QuickSortVariantArray", {numbers, Long{7}, Long{7}}).arguments[0],
              Variant(numbers));
}

TEST(QuickSort, PutsEqualElementsWhereTheWrittenAlgorithmDoes) {
    const Values numbers = {Integer{1}, Long{1},   1.0,     Date{1}, true, Integer{-1},
                            false,      Long{0},   0.0,     -0.0,    2.5,  Integer{7},
                            -3.0,       Date{2.5}, Long{7}, 1e300};
    const Values texts = {u"a", u"A", u"b", u"B", u"", u"ab", u"aB", u"\u00E4", u"\u00C4", u"5"};
    Values emptyOrNumber = numbers;
    emptyOrNumber.insert(emptyOrNumber.end(), 4, Variant());
    Values emptyOrText = texts;
    emptyOrText.insert(emptyOrText.end(), 3, Variant());
    Values all = emptyOrNumber;
    all.insert(all.end(), texts.begin(), texts.end());
    const Double nan = std::numeric_limits<Double>::quiet_NaN();
    const struct {
        Values from;
        bool asText = true;  ///< whether all of them can be written as text
    } cases[] = {{numbers},
                 {texts},
                 {emptyOrNumber},
                 {emptyOrText},
                 {all},
                 {{3.0, 0.0, -0.0, 1.5, -7.0}},
                 {{3.0, 1.0, nan, 1.5, Long{1}, Long{3}}, false}};

    // Tells apart what is equal: types, and both zeros; and not what never is: a NaN.
    const auto shown = [](const Array<Variant>& array) {
        std::vector<std::pair<std::size_t, String>> elements;
        for (const Variant& value : array.elements()) {
            const auto* number = value.getIf<Double>();
            const bool isNaN = number != nullptr && std::isnan(*number);
            const bool isMinusZero = number != nullptr && *number == 0 && std::signbit(*number);
            elements.emplace_back(value.index(), isNaN         ? u"NaN"
                                                 : isMinusZero ? u"-0"
                                                               : runtime::CStr(value));
        }
        return elements;
    };
    std::mt19937 random(1);
    for (const auto& [from, asText] : cases)
        for (int round = 0; round < 3000; ++round) {
            Values values(1 + random() % 24);
            for (Variant& value : values) value = from[random() % from.size()];
            const bool up = random() % 2 == 0;
            const bool caseSensitive = !asText || random() % 2 == 0;
            Array<Variant> expected(values);
            sortAsWritten(expected, 0, expected.upper(), caseSensitive, up);
            ASSERT_EQ(shown(sorted(values, caseSensitive, up).get<Array<Variant>>()),
                      shown(expected))
                << round;
        }
}

TEST(QuickSort, AMillionElementsInAnySequence) {
    constexpr int count = 1'000'000;
    Values rising;
    Values roof;
    for (int i = 0; i < count; ++i) {
        rising.emplace_back(Long{i / 2});
        roof.emplace_back(Long{std::min(i, count - 1 - i)});
    }
    const Variant expected = Array<Variant>(rising);
    EXPECT_TRUE(sorted(rising) == expected);
    EXPECT_TRUE(sorted(Values(rising.rbegin(), rising.rend())) == expected);
    EXPECT_TRUE(sorted(roof) == expected);
    const Values equal(count, Variant(u"same"));
    EXPECT_TRUE(sorted(equal, false) == Variant(Array<Variant>(equal)));
}

// What fails is retried for ever, so it takes a process that can be killed.
int sortFromChild(const std::vector<std::string>& arguments) {
    const Values last = {3.0, Null{}, Array<Variant>(), ErrorValue{1}, 3.0};
    const auto which = static_cast<std::size_t>(std::stoi(arguments[0]));
    Late tools(u"GQuorTools");
    tools(u"QuickSortVariantArray",
          {Array<Variant>({2.0, 1.0, last[which]}), Long{0}, Long{which == 4 ? 3 : 2}});
    return 0;
}
const PartName kSort("sort", sortFromChild);

TEST(QuickSort, RetriesForEverWhatCannotBeCompared) {
    EXPECT_EQ(Child("sort", {"0"}).wait(), 0);
    Child null("sort", {"1"});
    Child array("sort", {"2"});
    Child error("sort", {"3"});
    Child outside("sort", {"4"});
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    for (Child* child : {&null, &array, &error, &outside}) {
        child->kill();
        EXPECT_EQ(child->wait(), -1);
    }
}

}  // namespace
}  // namespace quorkit::test
