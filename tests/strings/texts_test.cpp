// White space, padding, digits, replacement, versions.
#include <gtest/gtest.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Texts, LoseWhiteSpace) {
    const String nul(1, u'\0');
    Late strings(u"GQuorStrings");
    strings.expect(
        {u"LTrimWhiteSpace", u"RTrimWhiteSpace", u"TrimWhiteSpace"},
        {Row({u""}, {u"", u"", u""}), Row({u" \t\r\n"}, {u"", u"", u""}),
         Row({u"  a b  "}, {u"a b  ", u"  a b", u"a b"}),
         Row({nul + u"\x1F!" + nul}, {u"!" + nul, nul + u"\x1F!", u"!"}),
         Row({u"\u00A0x\u0081"}, u"\u00A0x\u0081"), Row({u"\u2003x\u3000"}, u"\u2003x\u3000")});
    strings.expect(u"isWhiteSpace",
                   {Row({u" x"}, true), Row({u"\t"}, true), Row({u""}, false), Row({u"x "}, false),
                    Row({u"!"}, false), Row({u"\u00A0"}, false), Row({u"\u2003"}, false),
                    Row({u"\u0080"}, false)});
    strings.expect(
        u"NullStringToString",
        {Row({u"abc"}, u"abc"), Row({u"ab" + nul + u"c" + nul}, u"ab"), Row({nul + u"a"}, u"")});
}

TEST(Texts, ArePaddedButNeverCut) {
    Late strings(u"GQuorStrings");
    strings.expect({u"LPad", u"RPad"},
                   {Row({u"0", u"7", 3}, {u"007", u"700"}), Row({u"xy", u"1", 3}, {u"xx1", u"1xx"}),
                    Row({u" ", u"ab", 1}, u"ab"), Row({u"", u"a", 5}, u"a"),
                    Row({u"-", u"", 2}, u"--"), Row({u"-", u"a", INT32_MIN}, u"a")});
}

TEST(Texts, KeepOrLoseTheirDigits) {
    Late strings(u"GQuorStrings");
    strings.expect(
        {u"StringToNumber", u"getOnlyNumberPart", u"getOnlyNumbers", u"getNoNumbers"},
        {Row({u""}, u""), Row({u"CHF -1 234.50"}, {u"1234.50", u"1234.50", u"123450", u"CHF - ."}),
         Row({u"+41 44"}, {u"+4144", u"+4144", u"4144", u"+ "}),
         Row({u"-1-2+3"}, {u"-123", u"-123", u"123", u"--+"}),
         Row({u"1.2.3,4"}, {u"1.2.34", u"1.2.34", u"1234", u"..,"}),
         Row({u" -5"}, {u"5", u"5", u"5", u" -"}),
         Row({u"/09:\u0661\u00B2\uFF11"}, {u"09", u"09", u"09", u"/:\u0661\u00B2\uFF11"})});
}

TEST(Texts, HavePatternsReplaced) {
    const Variant missing = Variant::missing();
    Late strings(u"GQuorStrings");
    strings.expect(
        u"StringReplace",
        {Row({u"aaa", u"a", u"aa"}, u"aaaaaa"), Row({u"aaa", u"aa", u"b"}, u"ba"),
         Row({u"abcabc", u"b", u"X"}, u"aXcaXc"), Row({u"abababac", u"ababac", u"-"}, u"ab-"),
         Row({u"a-b-", u"-", u""}, u"ab"), Row({u"abc", u"", u"x"}, u"abc"),
         Row({u"", u"a", u"b"}, u""), Row({u"ab", u"abc", u"x"}, u"ab"),
         Row({u"aabaabaac", u"aabaac", u"-"}, u"aab-"), Row({u"ABC", u"b", u"x"}, u"ABC"),
         Row({u"abcabc", u"b", u"X", false}, u"aXcabc"),
         Row({u"abcabc", u"b", u"X", u"-1"}, u"aXcaXc"),
         Row({u"abcabc", u"b", u"X", Empty{}}, u"aXcabc"),
         Row({u"\u00C4rger", u"\u00E4", u"Ae", missing, 1}, u"Aerger"),
         Row({u"KeepCase", u"P", u"-", missing, true}, u"Kee-Case"),
         Row({u"a", u"b", u"c", u"maybe"}, Error{13}),
         Row({u"a", u"b", u"c", true, Null{}}, Error{94})});
}

// Texts full of near misses and many replacements must not take quadratic time; with a million
// characters that would not end.
TEST(Texts, AreReplacedInLinearTime) {
    constexpr std::size_t length = 1'000'000;
    const String text(length, u'a');
    Late strings(u"GQuorStrings");
    strings.expect(u"StringReplace",
                   {Row({text, String(length / 2, u'a') + u"b", u""}, text),
                    Row({text, u"A", u"bb", true, true}, String(2 * length, u'b'))});
}

TEST(Texts, AreSearchedWithoutOverlap) {
    Late strings(u"GQuorStrings");
    strings.expect(
        u"GetCountSearchPatternInString",
        {Row({u"aaaa", u"aa"}, 2), Row({u"aaa", u"aa"}, 1), Row({u"abc", u"d"}, 0),
         Row({u"abc", u""}, 0), Row({u"", u"a"}, 0), Row({u"aaa", u"A"}, 0),
         Row({u"aaa", u"A", 1}, 3), Row({u"aaa", u"A", 1.0}, 3), Row({u"aaa", u"A", u"1"}, 3),
         Row({u"aaa", u"A", 2}, 0), Row({u"aaa", u"A", true}, 0), Row({u"aaa", u"A", u"x"}, 0),
         Row({u"aaa", u"A", Null{}}, 0)});
}

TEST(Versions, Split) {
    // The four components and the result.
    const std::pair<const char16_t*, std::vector<Variant>> versions[] = {
        {u"5.1", {5, 1, 0, 0, 0}},
        {u"1.2.3.4.5", {1, 2, 3, 4, 0}},
        {u"5.x.2.1", {5, -1, 2, 1, -1}},
        {u"1..2", {1, -1, 2, 0, -1}},
        {u"1.2.", {1, 2, 0, 0, 0}},
        {u"", {-1, 0, 0, 0, -1}},
        {u" 1 .+2.-3.1e2", {1, 2, -3, 100, 0}},
        {u"1,2", {-1, 0, 0, 0, -1}},
        {u"x.99999999999", {-1, -1, -1, -1, -1}},
        {u"2147483647.2147483648.3", {2147483647, -1, -1, -1, -1}},
        {u"1.1e400.2.3", {1, -1, 2, 3, -1}}};
    Late strings(u"GQuorStrings");
    for (const auto& [version, all] : versions) {
        strings.expect(u"SplitAppVersionString",
                       {Row({version, 7, 7, 7, 7}, {all[4], all[0], all[1], all[2], all[3]})});
        strings.expect(
            {u"ExtractMajorVersionFromAppVersionString", u"ExtractMinorVersionFromAppVersionString",
             u"ExtractRevisionFromAppVersionString", u"ExtractBuildNumberFromAppVersionString"},
            {Row({version}, {all.begin(), all.end() - 1})});
    }
}

TEST(Versions, AreWrittenWithFourComponentsOrWithoutZerosAtTheEnd) {
    Late strings(u"GQuorStrings");
    strings.expect(u"formatAppVersionString",
                   {Row({u"2,1,0,0"}, u"2.1.0.0"), Row({u"a.-2,3"}, u"-1.-2.3.0"),
                    Row({u""}, u"-1.0.0.0"), Row({u"2,1,0,0", false}, u"2.1"),
                    Row({u"0.0.0.0", false}, u"0"), Row({u"1.0.3.0", false}, u"1.0.3"),
                    Row({u"1.0.0.5", false}, u"1.0.0.5"), Row({u"007", false}, u"7")});
}

TEST(Versions, Compare) {
    Late strings(u"GQuorStrings");
    strings.expect(
        u"CompareAppVersionString",
        {Row({u"1.2", u"1.2.0.0"}, 0), Row({u"1.9", u"1.10"}, -1), Row({u"10.0", u"2.0"}, 1),
         Row({u"1.2.3.4", u"1.2.3.4.5"}, -1), Row({u"1.2", u"1.2b"}, 0), Row({u"", u"0.x"}, 0),
         Row({u"1 . 2", u"1.2."}, 0), Row({u"1.2,9", u"1.2,1"}, 0),
         Row({u"1.99999999999", u"1.99999999998"}, 1), Row({u"1", u"1.-1"}, 1)});
}

}  // namespace
}  // namespace quorkit::test
