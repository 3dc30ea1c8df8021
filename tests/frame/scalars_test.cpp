// Scalars that clients have and Variant has not.
#include <gtest/gtest.h>
#include <quorkit/scalars.h>

#include <limits>
#include <utility>

#include "support/errors.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

using namespace scalars;
using Limits64 = std::numeric_limits<std::int64_t>;

TEST(Scalars, ComeIn) {
    const std::pair<Variant, Variant> cases[] = {
        {fromByte(255), Integer{255}},
        {fromSingle(0.1f), 0.100000001490116119384765625},
        {fromInt64(-2147483648LL), Long{-2147483647 - 1}},
        {fromInt64(2147483648LL), 2147483648.0},
        {fromInt64(Limits64::min()), -9223372036854775808.0},
        {fromUInt64(2147483647), Long{2147483647}},
        {fromUInt64(~std::uint64_t{0}), 18446744073709551616.0},
        {fromCurrency(12345), 1.2345},
        {fromCurrency(-1), -0.0001},
        {fromCurrency(Limits64::max()), 922337203685477.5807},
        {fromCurrency(Limits64::min()), -922337203685477.5808},
        {fromDecimal({0, 5, 1, true}), -0.5},
        {fromDecimal({~0u, ~std::uint64_t{0}, 0, false}), 79228162514264337593543950335.0},
        {fromDecimal({~0u, ~std::uint64_t{0}, 28, false}), 7.9228162514264337593543950335},
        {fromDecimal({}), 0.0},
        {fromAnsi("\x80\xE4"), u"\u20AC\u00E4"},
    };
    for (const auto& [value, expected] : cases) EXPECT_EQ(value, expected);
}

TEST(Scalars, GoOut) {
    EXPECT_EQ(toByte(u"254.5"), 254);
    EXPECT_EQ(toSingle(0.1), 0.1f);
    EXPECT_EQ(toInt64(-2.5), -2);
    EXPECT_EQ(toInt64(-9223372036854775808.0), Limits64::min());
    EXPECT_EQ(toUInt64(18446744073709549568.0), 18446744073709549568u);
    EXPECT_EQ(toAnsi(u"\u20AC\u4E2D"), "\x80?");
    for (const auto& [value, amount] : {std::pair<Variant, std::int64_t>{1.2345, 12345},
                                        {u"-0.00005", -1},
                                        {0.00015, 1},  // a little less than a half
                                        {true, -10000},
                                        {922337203685477.5, 9223372036854775000}})
        EXPECT_EQ(toCurrency(value), amount);
    for (const auto& [value, expected] : {std::pair<Variant, Decimal>{1.5, {0, 15, 1, false}},
                                          {Long{-100}, {0, 100, 0, true}},
                                          {0.0, {}},
                                          {-0.1, {0, 1, 1, true}},
                                          {1e-28, {0, 1, 28, false}},
                                          {1e-29, {}},
                                          {1.0 / 3, {0, 333333333333333, 15, false}},
                                          {7.9e28, {4282598581u, 5861314843172143104u, 0, false}}})
        EXPECT_EQ(toDecimal(value), expected) << testing::PrintToString(value);
}

TEST(Scalars, RefuseWhatDoesNotFit) {
    const Variant infinite = std::numeric_limits<double>::infinity();
    for (const Variant& value : {Variant(8e28), Variant(-1e300), infinite}) {
        EXPECT_EQ(errorOf([&] { toByte(value); }), 6);
        EXPECT_EQ(errorOf([&] { toInt64(value); }), 6);
        EXPECT_EQ(errorOf([&] { toUInt64(value); }), 6);
        EXPECT_EQ(errorOf([&] { toCurrency(value); }), 6);
        EXPECT_EQ(errorOf([&] { toDecimal(value); }), 6);
    }
    EXPECT_EQ(errorOf([&] { toSingle(1e39); }), 6);
    EXPECT_EQ(errorOf([&] { toByte(-1.0); }), 6);
    EXPECT_EQ(errorOf([&] { toUInt64(-1.0); }), 6);
    EXPECT_EQ(errorOf([&] { toInt64(9223372036854775808.0); }), 6);
    EXPECT_EQ(errorOf([&] { toCurrency(u"x"); }), 13);
    EXPECT_EQ(errorOf([&] { toDecimal(Null()); }), 94);
}

}  // namespace
}  // namespace quorkit::test
