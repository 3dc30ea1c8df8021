#include <gtest/gtest.h>

#include <limits>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Padding, FillsUpButNeverCuts) {
    const struct {
        const char16_t* pad;
        const char16_t* text;
        Long length;
        const char16_t* left;
        const char16_t* right;
    } cases[] = {
        {u"0", u"7", 3, u"007", u"700"},
        {u"xy", u"1", 3, u"xx1", u"1xx"},
        {u" ", u"ab", 1, u"ab", u"ab"},
        {u" ", u"ab", 2, u"ab", u"ab"},
        {u"", u"a", 5, u"a", u"a"},
        {u"-", u"", 2, u"--", u"--"},
        {u"-", u"", 0, u"", u""},
        {u"-", u"a", -1, u"a", u"a"},
        {u"-", u"a", std::numeric_limits<Long>::min(), u"a", u"a"},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [pad, text, length, left, right] : cases) {
        EXPECT_EQ(strings(u"LPad", {pad, text, length}), Variant(left));
        EXPECT_EQ(strings(u"RPad", {pad, text, length}), Variant(right));
    }
}

}  // namespace
}  // namespace quorkit::test
