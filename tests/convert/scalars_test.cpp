// Members with one value in and one out: each a table of values and results.
#include <gtest/gtest.h>

#include <limits>

#include "support/late.h"

namespace quorkit::test {
namespace {

constexpr Long kMin = std::numeric_limits<Long>::min();
constexpr Long kMax = std::numeric_limits<Long>::max();

struct Case {
    std::vector<Variant> arguments;
    Variant result;
};

void expect(const char16_t* member, const std::vector<Case>& cases) {
    Late convert(u"GQuorConvert");
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(convert(member, cases[i].arguments), cases[i].result) << "case " << i;
}

void expectError(const char16_t* member, Long number,
                 const std::vector<std::vector<Variant>>& cases) {
    Late convert(u"GQuorConvert");
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(convert.errorOf(member, cases[i]), number) << "case " << i;
}

TEST(Convert, HexToDec) {
    expect(u"HexToDec", {{{u"0x1F"}, Long{31}},
                         {{u"&H1f"}, Long{31}},
                         {{u"1F"}, Long{31}},
                         {{u"zz"}, Long{0}},
                         {{u""}, Long{0}},
                         {{u"0x"}, Long{0}},
                         {{u"FFFF"}, Long{-1}},
                         {{u"0X8000"}, Long{-32768}},
                         {{u"0000FFFF"}, Long{65535}},
                         {{u"FFFFFFFF"}, Long{-1}},
                         {{u"0x0x1"}, Long{0}}});
    expectError(u"HexToDec", 6, {{u"100000000"}, {u"0xFFFFFFFFFFFFFFFFFFFF"}});
}

TEST(Convert, Booleans) {
    expect(u"BoolToInt", {{{true}, Integer{1}}, {{false}, Integer{0}}, {{Long{7}}, Integer{1}}});
    expect(u"IntToBool", {{{Integer{0}}, false}, {{Integer{-1}}, true}, {{Integer{2}}, true}});
    for (const Variant& yes :
         {Variant(true), Variant(Long{-3}), Variant(0.5), Variant(u" Yes "), Variant(u"WAHR"),
          Variant(u"S\u00CC"), Variant(u"x"), Variant(u"-1"), Variant(u"0.1"), Variant(u"on")})
        expect(u"cBoolEx", {{{yes}, true}});
    for (const Variant& no :
         {Variant(), Variant(Null{}), Variant(false), Variant(0.0), Variant(u""), Variant(u"no"),
          Variant(u"0"), Variant(u"yes!"), Variant(Array<String>({u"yes"})), Variant(ObjectRef()),
          Variant(ErrorValue{1}), Variant(Date{1})})
        expect(u"cBoolEx", {{{no}, false}});
}

TEST(Convert, Colours) {
    expect(u"RGBString_to_RGBColor", {{{u"1,2,3"}, Long{0x030201}},
                                      {{u" 255 ; 0;0 "}, Long{0xFF}},
                                      {{u"1 2  3"}, Long{0x030201}},
                                      {{u"rgb (0, 0,255)"}, Long{0xFF0000}},
                                      {{u"RGB( 1,2,3 )"}, Long{0x030201}},
                                      {{u"256,99999999999,007"}, Long{0x07FFFF}},
                                      {{u"#0a0B0C"}, Long{0x0C0B0A}}});
    expectError(u"RGBString_to_RGBColor", 5,
                {{u""},
                 {u"1,2"},
                 {u"1,2,3,4"},
                 {u"1,2,"},
                 {u"1,,2,3"},
                 {u"-1,2,3"},
                 {u"red"},
                 {u"#12345"},
                 {u"#1234567"},
                 {u"#12345G"},
                 {u"#-12345"},
                 {u"RGB(1,2,3"},
                 {u"1,2,3)"},
                 {u"RGB 1,2,3"},
                 {u"RGB"},
                 {u"1.5,2,3"}});
}

TEST(Convert, NumberBases) {
    const auto integer = [](int value) { return static_cast<Integer>(value); };
    expect(u"ConvertDezToAny", {{{Long{255}, integer(16)}, u"FF"},
                                {{Long{-5}, integer(2), integer(6)}, u"-000101"},
                                {{Long{35}, integer(36), integer(1)}, u"Z"},
                                {{Long{0}, integer(10), integer(-3)}, u"0"},
                                {{kMin, integer(2)}, u"-1" + String(31, u'0')}});
    expectError(u"ConvertDezToAny", 5,
                {{Long{1}, integer(1)}, {Long{1}, integer(37)}, {Long{1}, integer(-16)}});

    expect(u"ConvertAnyToDez", {{{u"ff", integer(16)}, Long{255}},
                                {{u" -1010 ", integer(2)}, Long{-10}},
                                {{u"+Zz", integer(36)}, Long{1295}},
                                {{u"-80000000", integer(16)}, kMin},
                                {{u"2147483647", integer(10)}, kMax}});
    expectError(u"ConvertAnyToDez", 5, {{u"1", integer(0)}, {u"1", integer(37)}});
    expectError(u"ConvertAnyToDez", 13,
                {{u"", integer(10)},
                 {u"-", integer(10)},
                 {u"12", integer(2)},
                 {u"1 1", integer(2)},
                 {u"1.5", integer(10)},
                 {u"--1", integer(10)},
                 {u"99999999999999999999999x", integer(10)}});
    expectError(u"ConvertAnyToDez", 6,
                {{u"2147483648", integer(10)},
                 {u"-2147483649", integer(10)},
                 {String(100, u'Z'), integer(36)}});
}

TEST(Convert, ScreenUnits) {
    for (const char16_t* member : {u"TwipsToPixelsX", u"TwipsToPixelsY"})
        expect(member, {{{Long{150}}, Long{10}},
                        {{Long{7}}, Long{0}},
                        {{Long{8}}, Long{1}},
                        {{Long{-8}}, Long{-1}},
                        {{kMin}, Long{-143165577}}});
    for (const char16_t* member : {u"PixelsToTwipsX", u"PixelsToTwipsY"}) {
        expect(member, {{{Long{10}}, Long{150}}, {{Long{-143165576}}, Long{-2147483640}}});
        expectError(member, 6, {{Long{143165577}}, {kMin}});
    }
}

TEST(Convert, MyVal) {
    expect(u"myVal", {
                         {{u"1'234.50"}, 1234.5},
                         {{u"1\u2019234\u2019567"}, 1234567.0},
                         {{u"1 234,50"}, 1234.5},
                         {{u"12\u00A0345"}, 12345.0},
                         {{u"1.234,50"}, 1234.5},
                         {{u"1,234.50"}, 1234.5},
                         {{u"1,234,567"}, 1234567.0},
                         {{u"1.234.567"}, 1234567.0},
                         {{u"1.234"}, 1.234},
                         {{u"CHF -12.50"}, -12.5},
                         {{u"CHF 5.-"}, 5.0},
                         {{u"5.- "}, 5.0},
                         {{u"Fr.5"}, 5.0},
                         {{u"-,5 m"}, -0.5},
                         {{u"\u2212 7"}, -7.0},
                         {{u"12,5 %"}, 12.5},
                         {{u"1e3"}, 1000.0},
                         {{u"x 2E-1 y"}, 0.2},
                         {{u"12EUR"}, 12.0},
                         {{u"&H1F"}, 31.0},
                         {{u"3 4"}, 3.0},
                         {{u"3 4000"}, 3.0},
                         {{u"12.50 200"}, 12.5},
                         {{u"2 x 3"}, 2.0},
                         {{u"1,2.3.4"}, 1234.0},
                         {{u""}, 0.0},
                         {{u"none"}, 0.0},
                         {{u"1e999"}, 0.0},
                         {{u"x 1e999"}, 0.0},
                         {{Variant()}, 0.0},
                         {{Null{}}, 0.0},
                         {{Array<Byte>()}, 0.0},
                         {{ObjectRef()}, 0.0},
                         {{true}, -1.0},
                         {{Long{5}}, 5.0},
                     });
}

}  // namespace
}  // namespace quorkit::test
