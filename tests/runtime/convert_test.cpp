#include "runtime/convert.h"

#include <gtest/gtest.h>
#include <quorkit/collection.h>
#include <quorkit/errors.h>

#include <functional>
#include <limits>

#include "support/errors.h"

namespace quorkit::runtime {
namespace {

using test::errorOf;

TEST(CStr, WritesEveryScalarType) {
    const struct {
        Variant value;
        String text;
    } cases[] = {
        {{}, u""},
        {true, u"True"},
        {false, u"False"},
        {Integer{-32768}, u"-32768"},
        {std::numeric_limits<Long>::min(), u"-2147483648"},
        {u"as it is", u"as it is"},
        {0.0, u"0"},
        {-0.0, u"0"},
        {0.1, u"0.1"},
        {-1234.5, u"-1234.5"},
        {100.0, u"100"},
        {1.0 / 3, u"0.333333333333333"},
        {2.0 / 3, u"0.666666666666667"},
        {1.0 / 30, u"3.33333333333333E-02"},
        {999999999999999.0, u"999999999999999"},
        {9999999999999999.0, u"1E+16"},
        {1e15, u"1E+15"},
        {1.5e20, u"1.5E+20"},
        {-1e100, u"-1E+100"},
        {1e-15, u"0.000000000000001"},
        {1.5e-15, u"1.5E-15"},
        {Date{0}, u"1899-12-30"},
        {Date{36526}, u"2000-01-01"},
        {Date{36526.75}, u"2000-01-01 18:00:00"},
        {Date{-1.25}, u"1899-12-29 06:00:00"},
        {Date{0.9999999}, u"1899-12-31"},
        {Date{-657434}, u"0100-01-01"},
    };
    for (const auto& [value, text] : cases) EXPECT_EQ(CStr(value), text);
}

// The texts and their numbers are those of the automation library, except for thousands marks and
// currency signs, which depend on the language.
TEST(Numbers, AreReadFromTextsAndOtherTypes) {
    const struct {
        Variant value;
        Double number;
    } cases[] = {{{}, 0},         {true, -1},         {u" 12 ", 12},       {u"-1.5", -1.5},
                 {u"+.5", 0.5},   {u"5.", 5},         {u"\t-\u00A05", -5}, {u"5-", -5},
                 {u"5 + ", 5},    {u"( 5.5 )", -5.5}, {u"1e3", 1000},      {u"5.E+1", 50},
                 {u"1D-2", 0.01}, {u"1e5-", -1e5},    {u"1e-400", 0},      {u"0e99999", 0},
                 {u"&HFF", 255},  {u"&hFFFF", 65535}, {u"&O17", 15},       {u"&HFFFFFFFF", -1}};
    EXPECT_EQ(CDbl(String(u"\u3000\n5\r \0 x", 8)), 5);
    for (const auto& [value, number] : cases) {
        EXPECT_EQ(CDbl(value), number) << CDbl(value);
        EXPECT_TRUE(IsNumeric(value)) << number;
    }
    for (const char16_t* text :
         {u"",     u" ",    u"-",      u"+",     u".",   u"1 2",    u"1x",    u"e5",
          u".e5",  u"1e",   u"1e+",    u"1 e5",  u"&H",  u"&HG",    u"&H F",  u"&H-1",
          u"&O8",  u"&17",  u"-&HFF",  u"&HFF-", u"--1", u"-5-",    u"(5",    u"5)",
          u"()",   u"(-5)", u"-(5)",   u"1.2.3", u"1,5", u"1'000",  u"$5",    u"5%",
          u"True", u"0x1F", u"\u0661", u"inf",   u"nan", u"\uFF15", u"&HFF.5"}) {
        EXPECT_EQ(errorOf([&] { CDbl(text); }), 13) << testing::PrintToString(StringView(text));
        EXPECT_FALSE(IsNumeric(text));
    }
}

TEST(IsNumeric, IsFalseForAllThatIsNoNumber) {
    for (const Variant& value : {Variant(Null{}), Variant(Date{2.5}), Variant::missing(),
                                 Variant(ObjectRef()), Variant(u"1e309")})
        EXPECT_FALSE(IsNumeric(value));
}

TEST(Numbers, RoundHalvesToEvenAndStayInRange) {
    const struct {
        Double value;
        Long number;
    } cases[] = {{0.5, 0},  {1.5, 2},   {2.5, 2},
                 {-0.5, 0}, {-1.5, -2}, {2147483647.4, std::numeric_limits<Long>::max()}};
    for (const auto& [value, number] : cases) EXPECT_EQ(roundToLong(value), number);
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(CInt(-32768.5), -32768);
    EXPECT_EQ(CInt(u"32766.5"), 32766);
    EXPECT_EQ(CInt(u"&HFFFF"), -1);
    EXPECT_EQ(CInt(u"&H0000FFFE"), -2);
    EXPECT_EQ(CLng(-2147483648.5), std::numeric_limits<Long>::min());
    for (const Double value : {32767.5, -32769.0, 1e300, std::numeric_limits<Double>::quiet_NaN()})
        EXPECT_EQ(errorOf([&] { CInt(value); }), 6);
    for (const Double value : {2147483647.5, -2147483648.51})
        EXPECT_EQ(errorOf([&] { roundToLong(value); }), 6);
    EXPECT_EQ(errorOf([] { CInt(u"&H10000"); }), 6);
    for (const char16_t* text : {u"1e400", u"-1e99999999999999999999", u"&H100000000"})
        EXPECT_EQ(errorOf([&] { CDbl(text); }), 6);
}

TEST(CBool, TakesNumbersAndTheTwoWords) {
    for (const Variant& value :
         {Variant(0.1), Variant(Long{-5}), Variant(u"true"), Variant(u"2"), Variant(u"#TRUE#")})
        EXPECT_TRUE(CBool(value));
    for (const Variant& value : {Variant(), Variant(0.0), Variant(u"FALSE"), Variant(u"0.0")})
        EXPECT_FALSE(CBool(value));
    for (const char16_t* text : {u"", u"yes", u" True", u"#true#"})
        EXPECT_EQ(errorOf([&] { CBool(text); }), 13);
}

TEST(CDate, ReadsTextsAndTakesNumbersInRange) {
    EXPECT_EQ(CDate(u" 3/1/2024 ").days, 45352);
    EXPECT_EQ(CDate(u" 3/1/2024 ", eLanguage_German).days, 45294);
    EXPECT_EQ(CDate(Long{5}).days, 5);
    EXPECT_EQ(errorOf([] { CDate(u"45000"); }), 13);
    for (const Double days : {2958466.0, -657435.0}) EXPECT_EQ(errorOf([&] { CDate(days); }), 6);
}

TEST(Conversions, RefuseWhatIsNoScalar) {
    const Variant values[] = {Variant::missing(), ErrorValue{5},    Array<String>(),
                              Array<Byte>(),      Array<Variant>(), Collection::make(),
                              ObjectRef()};
    const std::function<void(const Variant&)> conversions[] = {
        CStr, CBool, CInt, CLng, CDbl, [](const Variant& value) { CDate(value); }};
    for (const auto& conversion : conversions) {
        for (const Variant& value : values) EXPECT_EQ(errorOf([&] { conversion(value); }), 13);
        EXPECT_EQ(errorOf([&] { conversion(Null{}); }), 94);
    }
}

}  // namespace
}  // namespace quorkit::runtime
