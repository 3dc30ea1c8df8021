#include <gtest/gtest.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Versions, Split) {
    const struct {
        const char16_t* version;
        Long components[4];
        Long result;
    } cases[] = {
        {u"5.1", {5, 1, 0, 0}, 0},
        {u"5.x.2.1", {5, -1, 2, 1}, -1},
        {u"1..2", {1, -1, 2, 0}, -1},
        {u"1.2.3.4.5", {1, 2, 3, 4}, 0},
        {u"1.2.", {1, 2, 0, 0}, 0},
        {u"", {-1, 0, 0, 0}, -1},
        {u"..", {-1, -1, 0, 0}, -1},
        {u" 1 .+2.-3.1e2", {1, 2, -3, 100}, 0},
        {u"1,2", {-1, 0, 0, 0}, -1},
        {u"2147483647.2147483648.3", {2147483647, -1, -1, -1}, -1},
        {u"x.99999999999", {-1, -1, -1, -1}, -1},
    };
    const char16_t* extracting[] = {
        u"ExtractMajorVersionFromAppVersionString", u"ExtractMinorVersionFromAppVersionString",
        u"ExtractRevisionFromAppVersionString", u"ExtractBuildNumberFromAppVersionString"};
    Late strings(u"GQuorStrings");
    for (const auto& [version, components, result] : cases) {
        const auto outcome =
            strings.call(u"SplitAppVersionString", {version, Long{7}, Long{7}, Long{7}, Long{7}});
        EXPECT_EQ(outcome.result, Variant(result));
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(outcome.arguments[i + 1], Variant(components[i]));
            EXPECT_EQ(strings(extracting[i], {version}), Variant(components[i]));
        }
    }
}

TEST(Versions, AreWrittenWithFourComponentsOrWithoutZerosAtTheEnd) {
    const struct {
        const char16_t* version;
        const char16_t* four;
        const char16_t* least;
    } cases[] = {
        {u"2,1,0,0", u"2.1.0.0", u"2.1"},   {u"0.0.0.0", u"0.0.0.0", u"0"},
        {u"1.0.3.0", u"1.0.3.0", u"1.0.3"}, {u"1.0.0.5", u"1.0.0.5", u"1.0.0.5"},
        {u"007", u"7.0.0.0", u"7"},         {u"a.-2,3", u"-1.-2.3.0", u"-1.-2.3"},
        {u"", u"-1.0.0.0", u"-1"},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [version, four, least] : cases) {
        EXPECT_EQ(strings(u"formatAppVersionString", {version}), Variant(four));
        EXPECT_EQ(strings(u"formatAppVersionString", {version, false}), Variant(least));
    }
}

TEST(Versions, Compare) {
    const struct {
        const char16_t* low;
        const char16_t* high;
        Long order;
    } cases[] = {
        {u"1.2", u"1.2.0.0", 0},
        {u"1.9", u"1.10", -1},
        {u"2.0", u"10.0", -1},
        {u"1.2.3.4", u"1.2.3.4.5", -1},
        {u"1.2", u"1.2b", 0},
        {u"", u"0.x", 0},
        {u"1.2.", u"1 . 2", 0},
        {u"1.2,9", u"1.2,1", 0},
        {u"1.99999999998", u"1.99999999999", -1},
        {u"1.-1", u"1", -1},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [low, high, order] : cases) {
        EXPECT_EQ(strings(u"CompareAppVersionString", {low, high}), Variant(order));
        EXPECT_EQ(strings(u"CompareAppVersionString", {high, low}), Variant(-order));
    }
}

}  // namespace
}  // namespace quorkit::test
