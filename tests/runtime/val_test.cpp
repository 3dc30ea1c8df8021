#include "runtime/val.h"

#include <gtest/gtest.h>
#include <quorkit/errors.h>

namespace quorkit::runtime {
namespace {

TEST(Val, ReadsTheNumberInFront) {
    const struct {
        const char16_t* text;
        Double value;
    } cases[] = {
        {u"", 0},
        {u"abc", 0},
        {u" 1 6\t1\n5 street", 1615},
        {u"1.2.3", 1.2},
        {u"1,5", 1},
        {u"-.5x", -0.5},
        {u"- 7", -7},
        {u"+", 0},
        {u"1e3e3", 1000},
        {u"2E", 2},
        {u"2E+", 2},
        {u"2 d - 1", 0.2},
        {u"1D2", 100},
        {u"1e-400", 0},
        {u".001e-9223372036854775808", 0},
        {u"&H1Fz", 31},
        {u"&hffff", -1},
        {u"&H8000", -32768},
        {u"&H0000FFFF", 65535},
        {u"&H80000000", -2147483648.0},
        {u"&H000000001", 1},
        {u"&HFFFF&", -1},
        {u"& H F", 15},
        {u"&O178", 15},
        {u"&o177777", -1},
        {u"&o0177777", 65535},
        {u"&o37777777777", -1},
        {u"&H", 0},
        {u"&Hz", 0},
        {u"&12", 0},
        {u"1\r2", 1},
        {u"1\u00A02", 1},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(Val(text), value) << testing::PrintToString(StringView(text));
}

TEST(Val, OverflowsBeyondItsTypes) {
    for (const char16_t* text : {u"&H100000000", u"&O40000000000", u"1e309",
                                 u"-1e99999999999999999", u"10e9223372036854775807"})
        EXPECT_THROW(Val(text), AutomationError);
}

}  // namespace
}  // namespace quorkit::runtime
