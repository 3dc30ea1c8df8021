#include <gtest/gtest.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Digits, AreKeptOrDropped) {
    const struct {
        const char16_t* text;
        const char16_t* number;
        const char16_t* digits;
        const char16_t* rest;
    } cases[] = {
        {u"", u"", u"", u""},
        {u"CHF -1 234.50", u"1234.50", u"123450", u"CHF - ."},
        {u"+41 44", u"+4144", u"4144", u"+ "},
        {u"-1-2+3", u"-123", u"123", u"--+"},
        {u"1.2.3,4", u"1.2.34", u"1234", u"..,"},
        {u"-", u"-", u"", u"-"},
        {u" -5", u"5", u"5", u" -"},
        {u"/09:\u0661\u00B2\uFF11", u"09", u"09", u"/:\u0661\u00B2\uFF11"},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [text, number, digits, rest] : cases) {
        EXPECT_EQ(strings(u"StringToNumber", {text}), Variant(number));
        EXPECT_EQ(strings(u"getOnlyNumberPart", {text}), Variant(number));
        EXPECT_EQ(strings(u"getOnlyNumbers", {text}), Variant(digits));
        EXPECT_EQ(strings(u"getNoNumbers", {text}), Variant(rest));
    }
}

}  // namespace
}  // namespace quorkit::test
