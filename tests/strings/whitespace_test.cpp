#include <gtest/gtest.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Whitespace, IsTrimmed) {
    const struct {
        String text;
        String left;   // without what is in front
        String right;  // without what is behind
        String both;
    } cases[] = {
        {u"", u"", u"", u""},
        {u" \t\r\n", u"", u"", u""},
        {u"  a b  ", u"a b  ", u"  a b", u"a b"},
        {String(u"\0\x1F!\0", 4), String(u"!\0", 2), String(u"\0\x1F!", 3), u"!"},
        {u"\u00A0x\u0081", u"\u00A0x\u0081", u"\u00A0x\u0081", u"\u00A0x\u0081"},
        {u"\u2003x\u3000", u"\u2003x\u3000", u"\u2003x\u3000", u"\u2003x\u3000"},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [text, left, right, both] : cases) {
        EXPECT_EQ(strings(u"LTrimWhiteSpace", {text}), Variant(left));
        EXPECT_EQ(strings(u"RTrimWhiteSpace", {text}), Variant(right));
        EXPECT_EQ(strings(u"TrimWhiteSpace", {text}), Variant(both));
    }
}

TEST(Whitespace, IsToldByTheFirstCharacter) {
    Late strings(u"GQuorStrings");
    for (const char16_t* text : {u" x", u"\t", u" "})
        EXPECT_EQ(strings(u"isWhiteSpace", {text}), Variant(true));
    for (const char16_t* text : {u"", u"x ", u"!", u"\u00A0", u"\u2003", u"\u0080"})
        EXPECT_EQ(strings(u"isWhiteSpace", {text}), Variant(false));
}

TEST(NullStringToString, CutsAtTheFirstNul) {
    Late strings(u"GQuorStrings");
    EXPECT_EQ(strings(u"NullStringToString", {u"abc"}), Variant(u"abc"));
    EXPECT_EQ(strings(u"NullStringToString", {String(u"ab\0c\0", 5)}), Variant(u"ab"));
    EXPECT_EQ(strings(u"NullStringToString", {String(u"\0a", 2)}), Variant(u""));
}

}  // namespace
}  // namespace quorkit::test
