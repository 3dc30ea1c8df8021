// Members with one argument and one result.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <map>
#include <stdexcept>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Scalars, Booleans) {
    Late convert(u"GQuorConvert");
    convert.expect(u"BoolToInt", {Row({true}, Integer{1}), Row({false}, Integer{0})});
    convert.expect(u"IntToBool", {Row({0}, false), Row({-1}, true), Row({2}, true)});
    convert.expect(
        u"cBoolEx",
        {Row({true}, true), Row({-3}, true), Row({0.5}, true), Row({u" Yes "}, true),
         Row({u"WAHR"}, true), Row({u"S\u00CC"}, true), Row({u"x"}, true), Row({u"-1"}, true),
         Row({u"0.1"}, true), Row({u"on"}, true), Row({u"\t\u00A0Ok\r\n"}, true), Row({u"Y"}, true),
         Row({u"j"}, true), Row({u"T"}, true)});
    convert.expect(u"cBoolEx", {Row({Empty{}}, false), Row({Null{}}, false), Row({false}, false),
                                Row({0.0}, false), Row({u""}, false), Row({u"no"}, false),
                                Row({u"0"}, false), Row({u"yes!"}, false), Row({u"k"}, false),
                                Row({Array<String>({u"yes"})}, false), Row({ObjectRef()}, false),
                                Row({ErrorValue{1}}, false), Row({Date{1}}, false)});
}

TEST(Scalars, Colours) {
    Late convert(u"GQuorConvert");
    convert.expect(u"RGBString_to_RGBColor",
                   {Row({u"1,2,3"}, 0x030201), Row({u" 255 ; 0;0 "}, 0xFF),
                    Row({u"1 2  3"}, 0x030201), Row({u"rgb (0, 0,255)"}, 0xFF0000),
                    Row({u"RGB( 1,2,3 )"}, 0x030201), Row({u"256,99999999999,007"}, 0x07FFFF),
                    Row({u"#0a0B0C"}, 0x0C0B0A), Row({u" #F00"}, 0xFF), Row({u"FF0000"}, 0xFF),
                    Row({u"0xff8000"}, 0x0080FF), Row({u"000080"}, 0x800000), Row({u"&HFF"}, 0xFF),
                    Row({u"&h00FF0000&"}, 0xFF0000), Row({u"&HFFFF"}, 0xFFFF), Row({u"0"}, 0),
                    Row({u" 16777215 "}, 0xFFFFFF), Row({u"100000"}, 100000)});
    for (const char16_t* none :
         {u"",       u"1,2",       u"1,2,3,4",  u"1,2,",    u"1,,2,3",  u"-1,2,3",
          u"red",    u"#12345",    u"#1234567", u"#12345G", u"#-12345", u"RGB(1,2,3",
          u"1,2,3)", u"RGB 1,2,3", u"RGB",      u"1.5,2,3", u"#",       u"0x",
          u"&H",     u"&H1000000", u"16777216", u"-1",      u"12345F0", u"99999999999999999999"})
        convert.expect(u"RGBString_to_RGBColor", {Row({none}, Error{5})});
}

TEST(Scalars, NumberBases) {
    Late convert(u"GQuorConvert");
    convert.expect(u"HexToDec",
                   {Row({u"0x1F"}, 31), Row({u"&H1f"}, 31), Row({u"1F"}, 31), Row({u"zz"}, 0),
                    Row({u""}, 0), Row({u"0x"}, 0), Row({u"FFFF"}, -1), Row({u"0X8000"}, -32768),
                    Row({u"0000FFFF"}, 65535), Row({u"FFFFFFFF"}, -1), Row({u"0x0x1"}, 0),
                    Row({u"100000000"}, Error{6}), Row({u"0xFFFFFFFFFFFFFFFFFFFF"}, Error{6})});
    convert.expect(u"ConvertDezToAny",
                   {Row({255, 16}, u"FF"), Row({-5, 2, 6}, u"-000101"), Row({35, 36, 1}, u"Z"),
                    Row({0, 10, -3}, u"0"), Row({INT32_MIN, 2}, u"-1" + String(31, u'0')),
                    Row({1, 1}, Error{5}), Row({1, 37}, Error{5}), Row({1, -16}, Error{5})});
    convert.expect(
        u"ConvertAnyToDez",
        {Row({u"ff", 16}, 255), Row({u" -1010 ", 2}, -10), Row({u"+Zz", 36}, 1295),
         Row({u"-80000000", 16}, INT32_MIN), Row({u"2147483647", 10}, INT32_MAX),
         Row({u"0xFF", 16}, 255), Row({u"-&hff", 16}, -255), Row({u"&O17", 8}, 15),
         Row({u"0b101", 2}, 5), Row({u"0b1", 16}, 0xB1), Row({u"0x1", 36}, 1189),
         Row({u"FFFFFFFF", 16}, -1), Row({u"0x80000000", 16}, INT32_MIN), Row({u"FFFF", 16}, 65535),
         Row({u"&O37777777777", 8}, -1), Row({String(32, u'1'), 2}, -1)});
    convert.expect(
        u"ConvertAnyToDez",
        {Row({u"1", 0}, Error{5}), Row({u"1", 37}, Error{5}), Row({u"", 10}, Error{13}),
         Row({u"-", 10}, Error{13}), Row({u"12", 2}, Error{13}), Row({u"1 1", 2}, Error{13}),
         Row({u"1.5", 10}, Error{13}), Row({u"--1", 10}, Error{13}), Row({u"0x", 16}, Error{13}),
         Row({u"99999999999999999999999x", 10}, Error{13}), Row({u"2147483648", 10}, Error{6}),
         Row({u"-2147483649", 10}, Error{6}), Row({u"+FFFFFFFF", 16}, Error{6}),
         Row({u"100000000", 16}, Error{6}), Row({u"3VVVVVV", 32}, Error{6})});
}

TEST(Scalars, ScreenUnits) {
    Late convert(u"GQuorConvert");
    convert.expect(
        {u"TwipsToPixelsX", u"TwipsToPixelsY"},
        {Row({150}, 10), Row({7}, 0), Row({8}, 1), Row({-8}, -1), Row({INT32_MIN}, -143165577)});
    convert.expect({u"PixelsToTwipsX", u"PixelsToTwipsY"},
                   {Row({10}, 150), Row({-143165576}, -2147483640), Row({143165577}, Error{6}),
                    Row({INT32_MIN}, Error{6})});
}

TEST(Scalars, NumbersAsPeopleWriteThem) {
    Late convert(u"GQuorConvert");
    convert.expect(
        u"myVal",
        {Row({u"1'234.50"}, 1234.5), Row({u"1\u2019234\u2019567"}, 1234567.0),
         Row({u"1 234,50"}, 1234.5), Row({u"12\u00A0345"}, 12345.0), Row({u"1.234,50"}, 1234.5),
         Row({u"1,234.50"}, 1234.5), Row({u"1,234,567"}, 1234567.0), Row({u"1.234.567"}, 1234567.0),
         Row({u"1.234"}, 1.234), Row({u"CHF -12.50"}, -12.5), Row({u"CHF 5.-"}, 5.0),
         Row({u"5.- "}, 5.0), Row({u"Fr.5"}, 5.0), Row({u"-,5 m"}, -0.5), Row({u"\u2212 7"}, -7.0),
         Row({u"12,5 %"}, 12.5)});
    convert.expect(
        u"myVal",
        {Row({u"1e3"}, 1000.0), Row({u"x 2E-1 y"}, 0.2), Row({u"12EUR"}, 12.0),
         Row({u"&H1F"}, 31.0), Row({u"3 4"}, 3.0), Row({u"3 4000"}, 3.0), Row({u"12.50 200"}, 12.5),
         Row({u"2 x 3"}, 2.0), Row({u"1,2.3.4"}, 1234.0), Row({u""}, 0.0), Row({u"none"}, 0.0),
         Row({u"1e999"}, 0.0), Row({u"x 1e999"}, 0.0), Row({Empty{}}, 0.0), Row({Null{}}, 0.0),
         Row({Array<Byte>()}, 0.0), Row({ObjectRef()}, 0.0), Row({true}, -1.0), Row({5}, 5.0)});
    for (const char16_t* negative :
         {u"-$5", u"-5", u"$-5", u"- CHF 5.00", u"CHF -5.-", u"x: -Fr. 5", u"\u2212\u20AC5",
          u"-US$ 5", u"(5.00)", u"($5)", u"CHF (5)", u"(5 EUR) ", u"(CHF 5)", u"5.00-",
          u"5- \u20AC", u"5 CHF-", u"5,00 -", u"x -5", u"5\u2013"})
        convert.expect(u"myVal", {Row({negative}, -5.0)});
    for (const char16_t* positive :
         {u"5.-", u"5.--", u"5,\u2013", u"5-10", u"5 - 10", u"5-Zi.", u"ABC-DEF 5", u"USB-kr 5",
          u"(5 x)", u"x (5)", u"(5", u"5)", u"- Saldo 5", u"- x y 5", u"+5"})
        convert.expect(u"myVal", {Row({positive}, 5.0)});
    convert.expect(
        u"myVal", {Row({u"(1,234.50)"}, -1234.5), Row({u"1234.50-"}, -1234.5),
                   Row({u"$1,000"}, 1000.0), Row({u"-\u00A31,234-"}, -1234.0),
                   Row({u"12,000 USD"}, 12000.0), Row({u"$1,00"}, 1.0), Row({u"$0,125"}, 0.125),
                   Row({u"$3.459"}, 3.459), Row({u"\u20AC 1,789"}, 1.789), Row({u"1e2-"}, -100.0)});
}

TEST(Languages, HaveWindowsIdentifiers) {
    const std::map<Integer, Long> known = {
        {1031, 1}, {2055, 1}, {3079, 1}, {4103, 1}, {5127, 1}, {1036, 2},  {2060, 2},  {3084, 2},
        {4108, 2}, {5132, 2}, {1040, 3}, {2064, 3}, {1033, 4}, {2057, 4},  {3081, 4},  {4105, 4},
        {5129, 4}, {6153, 4}, {7177, 4}, {8201, 4}, {9225, 4}, {10249, 4}, {11273, 4}, {1034, 5}};
    Late convert(u"GQuorConvert");
    for (Integer identifier = -1; identifier < 13000; ++identifier) {
        const auto found = known.find(identifier);
        const Long language = found == known.end() ? 0 : found->second;
        convert.expect(u"WindowsLanguageIDToLanguageID", {Row({identifier}, language)});
    }
    const Integer identifiers[] = {2055, 4108, 2064, 1033, 1034};
    for (Long language = 1; language <= 5; ++language)
        convert.expect(u"LanguageIDToWindowsLanguageID",
                       {Row({language}, identifiers[language - 1])});
}

TEST(Languages, TheSystemsOwnIsALanguageNumber) {
    struct System final : MemorySystem {
        LanguageIdentifier GetUserDefaultUILanguage() override {
            return userLanguage == 13 ? throw std::runtime_error("gone") : userLanguage;
        }
    } system;
    MemoryPorts world;
    Ports ports = world.ports.with(system);
    Late convert(u"GQuorConvert", ports);
    const LanguageIdentifier cases[][3] = {{1031, 1036, 1}, {0, 1036, 2},      {0, 0, 0},
                                           {3082, 1031, 0}, {0xFFFF, 1031, 0}, {13, 1040, 3}};
    for (const auto& [user, byDefault, language] : cases) {
        system.userLanguage = user;
        system.systemLanguage = byDefault;
        const Integer expected = static_cast<Integer>(language);
        convert.expect(u"LanguageIDToWindowsLanguageID", {Row({0}, expected), Row({9}, expected),
                                                          Row({6}, expected), Row({-1}, expected)});
    }
}

}  // namespace
}  // namespace quorkit::test
