#include <gtest/gtest.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(StringReplace, Replaces) {
    const Variant missing = Variant::missing();
    const struct {
        std::vector<Variant> arguments;
        const char16_t* result;
    } cases[] = {
        {{u"aaa", u"a", u"aa"}, u"aaaaaa"},
        {{u"abcabc", u"b", u"X"}, u"aXcaXc"},
        {{u"abcabc", u"b", u"X", false}, u"aXcabc"},
        {{u"abcabc", u"b", u"X", u"-1"}, u"aXcaXc"},
        {{u"abcabc", u"b", u"X", Variant()}, u"aXcabc"},
        {{u"ABC", u"b", u"x"}, u"ABC"},
        {{u"ABC", u"b", u"x", missing, true}, u"AxC"},
        {{u"\u00C4rger \u00E4", u"\u00E4", u"Ae", missing, Long{1}}, u"Aerger Ae"},
        {{u"KeepCase", u"P", u"-", missing, true}, u"Kee-Case"},
        {{u"aaa", u"aa", u"b"}, u"ba"},
        {{u"aabaabaac", u"aabaac", u"-"}, u"aab-"},
        {{u"abababac", u"ababac", u"-"}, u"ab-"},
        {{u"a-b-", u"-", u""}, u"ab"},
        {{u"abc", u"", u"x"}, u"abc"},
        {{u"", u"a", u"b"}, u""},
        {{u"ab", u"abc", u"x"}, u"ab"},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [arguments, result] : cases)
        EXPECT_EQ(strings(u"StringReplace", arguments), Variant(result));
    EXPECT_EQ(strings.errorOf(u"StringReplace", {u"a", u"b", u"c", u"maybe"}), 13);
    EXPECT_EQ(strings.errorOf(u"StringReplace", {u"a", u"b", u"c", true, Null{}}), 94);
}

// Neither texts full of near misses nor many replacements may take quadratic time: with a million
// characters that would not end.
TEST(StringReplace, IsLinear) {
    constexpr std::size_t length = 1'000'000;
    Late strings(u"GQuorStrings");
    const String text(length, u'a');
    const String nearMiss = String(length / 2, u'a') + u"b";
    EXPECT_EQ(strings(u"StringReplace", {text, nearMiss, u""}), Variant(text));
    EXPECT_EQ(strings(u"StringReplace", {text, u"A", u"bb", true, true}),
              Variant(String(2 * length, u'b')));
}

TEST(GetCountSearchPatternInString, CountsWithoutOverlap) {
    const struct {
        std::vector<Variant> arguments;
        Long count;
    } cases[] = {
        {{u"aaaa", u"aa"}, 2},        {{u"aaa", u"aa"}, 1},      {{u"abc", u"d"}, 0},
        {{u"abc", u""}, 0},           {{u"", u"a"}, 0},          {{u"aaa", u"A"}, 0},
        {{u"aaa", u"A", Long{1}}, 3}, {{u"aaa", u"A", 1.0}, 3},  {{u"aaa", u"A", u"1"}, 3},
        {{u"aaa", u"A", Long{2}}, 0}, {{u"aaa", u"A", true}, 0}, {{u"aaa", u"A", u"x"}, 0},
        {{u"aaa", u"A", Null{}}, 0},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [arguments, count] : cases)
        EXPECT_EQ(strings(u"GetCountSearchPatternInString", arguments), Variant(count));
}

}  // namespace
}  // namespace quorkit::test
