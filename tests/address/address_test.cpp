#include <gtest/gtest.h>
#include <quorkit/catalogue.h>
#include <quorkit/enumerations.h>

#include <algorithm>
#include <string>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(QuorAddress, KeepsAttributesByNameAndByNumber) {
    const Variant outOfRange = u"Error: attributindex out of range!";
    Late address(u"QuorAddress");
    EXPECT_EQ(address.get(u"HomeCountry"), Variant(u"Schweiz"));
    EXPECT_EQ(address(u"getAttribut", {u"Firma"}), Variant(u""));
    EXPECT_EQ(address(u"getStandardAttribut", {eAdr_Firma}), Variant(u""));
    for (const Long number : {INT32_MIN, INT32_MIN + 1, -1, 0, 26, INT32_MAX}) {
        EXPECT_EQ(address(u"setStandardAttribut", {number, u"x"}), Variant(Long{-1}));
        EXPECT_EQ(address(u"getStandardAttribut", {number}), outOfRange);
    }
    EXPECT_EQ(address(u"setAttribut", {u"gebURTStag2", u"first"}), Variant(Long{1}));
    // Each attribute is stored under the name of its constant; one constant is misspelled.
    const auto known =
        std::ranges::find(enumerations(), std::string("eKnownAttributes"), &EnumerationInfo::name);
    for (const ConstantInfo& one : known->constants) {
        const std::string constant = one.value == eAdr_Gebursttag2 ? "eAdr_Geburtstag2" : one.name;
        address(u"setStandardAttribut", {one.value, Variant(one.value)});
        EXPECT_EQ(address(u"getStandardAttribut", {one.value}),
                  address(u"getAttribut", {String(constant.begin() + 5, constant.end())}));
    }
    EXPECT_EQ(address(u"getAttribut", {u"ORT"}), Variant(u"8"));
    EXPECT_EQ(address(u"setAttribut", {u"Sprache", u""}), Variant(Long{26}));
}

TEST(QuorAddress, LaysOutThePostalBlock) {
    const std::vector<std::pair<const char16_t*, const char16_t*>> full = {
        {u"Firma", u" Muster AG\t"}, {u"Anrede", u"Herr"},   {u"Vorname", u"Peter"},
        {u"Nachname", u"Muster"},    {u"Strasse", u"Weg 1"}, {u"Plz", u"3007"},
        {u"Ort", u"Bern"},           {u"Vorname2", u"Anna"}, {u"Land", u"SCHWEIZ "},
    };
    const struct {
        decltype(full) changes;
        const char16_t* block;
        bool includeCountry = false;
    } cases[] = {
        {{}, u"Muster AG|Herr Peter Muster|Weg 1|3007 Bern"},
        {{}, u"Muster AG|Herr Peter Muster|Weg 1|3007 Bern|SCHWEIZ", true},
        {{{u"Type", u" p\r\n"}}, u"Herr|Peter Muster|Muster AG|Weg 1|3007 Bern"},
        {{{u"Type", u"x"}, {u"Firma", u" "}}, u"Herr|Peter Muster|Weg 1|3007 Bern"},
        {{{u"Type", u"g"}, {u"Firma", u""}}, u"Herr Peter Muster|Weg 1|3007 Bern"},
        {{{u"Type", u"P"}, {u"Vorname", u""}, {u"Nachname", u""}}, u"Muster AG|Weg 1|3007 Bern"},
        {{{u"InklName2", u"Ja"}}, u"Muster AG|Herr|Peter und Anna Muster|Weg 1|3007 Bern"},
        {{{u"InklName2", u"0"}, {u"Plz", u""}}, u"Muster AG|Herr Peter Muster|Weg 1|Bern"},
        {{{u"InklName2", u"1"}, {u"Vorname2", u""}},
         u"Muster AG|Herr Peter Muster|Weg 1|3007 Bern"},
        {{{u"Type", u"P"}, {u"InklName2", u"x"}, {u"Nachname2", u"MUSTER"}, {u"Anrede", u""}},
         u"Peter und Anna Muster|Muster AG|Weg 1|3007 Bern"},
        {{{u"Type", u"P"}, {u"InklName2", u"x"}, {u"Nachname2", u"Meier"}, {u"Vorname", u""}},
         u"Herr|Muster|Anna Meier|Muster AG|Weg 1|3007 Bern"},
        {{{u"Strasse", u"Haus 1\r\n\r\n Weg 1\n"}, {u"Land", u"\u00D6sterreich"}},
         u"Muster AG|Herr Peter Muster|Haus 1|Weg 1|3007 Bern|\u00D6STERREICH"},
        {{{u"Land", u"Gro\u00DFbritannien"}},
         u"Muster AG|Herr Peter Muster|Weg 1|3007 Bern|GROSSBRITANNIEN"},
        {{{u"Vorname", u""}, {u"InklName2", u"x"}},
         u"Muster AG|Herr|Muster|Anna Muster|Weg 1|3007 Bern"},
        {{{u"Land", u"CH"}}, u"Muster AG|Herr Peter Muster|Weg 1|3007 Bern|CH"},
        {{{u"Land", u""}}, u"Muster AG|Herr Peter Muster|Weg 1|3007 Bern"},
        {{{u"Land", u""}}, u"Muster AG|Herr Peter Muster|Weg 1|3007 Bern|SCHWEIZ", true},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [changes, block, includeCountry] : cases) {
        Late address(u"QuorAddress");
        for (const auto& [name, value] : full) address(u"setAttribut", {name, value});
        for (const auto& [name, value] : changes) address(u"setAttribut", {name, value});
        EXPECT_EQ(address(u"getPostAddress", {includeCountry}),
                  strings(u"StringReplace", {block, u"|", u"\r\n"}));
    }

    Late address(u"QuorAddress");
    EXPECT_EQ(address(u"getPostAddress"), Variant(u""));
    address(u"setAttribut", {u"Land", u"Schweiz"});
    address.let(u"HomeCountry", u"Deutschland");
    EXPECT_EQ(address(u"getPostAddress"), Variant(u"SCHWEIZ"));
}

TEST(QuorAddress, FormatsPhoneNumbers) {
    const Variant missing = Variant::missing();
    const struct {
        std::vector<Variant> arguments;
        String number;
    } cases[] = {
        {{u"123 45 67"}, u"123 45 67"},
        {{u"44 1234567"}, u"44 123 45 67"},
        {{u"+123 45 67", false, missing, true}, u"+ 123 45 67"},
        {{u"044/123 45 67"}, u"044 123 45 67"},
        {{u"0441234567", true}, u"0041 44 123 45 67"},
        {{u"0441234567", true, missing, true}, u"+41 44 123 45 67"},
        {{u"0441234567", true, u"+41"}, u"+41 44 123 45 67"},
        {{u"0800 800800", true}, u"0800 800 800"},
        {{u"0843123456"}, u"084 312 34 56"},
        {{u"+41 (44) 123 45 67", true}, u"0041 44 123 45 67"},
        {{u"+41441234567", false, missing, true}, u"+41 44 123 45 67"},
        {{u"00800-12345678"}, u"00800 123 456 78"},
        {{u"1234567890123"}, u"123 456 789 01 23"},
        {{u"1234567890123", true, u"x"}, u"x 23 456 789 01 23"},
        {{u"00411234567890"}, u"0041 123 456 78 90"},
        {{u"12-34567890"}, u"123 456 78 90"},
        {{u"0049 30 123456", false, missing, true}, u"+49 30 123456"},
        {{u""}, u""},
        {{u"+", true, missing, true}, u"+"},
        {{String(40'000, u'1')}, String(40'000, u'1')},
        {{String(40'000, u'\0') + u"1234567"}, u"123 45 67"},
    };
    Late address(u"QuorAddress");
    for (const auto& [arguments, number] : cases)
        EXPECT_EQ(address(u"formatPhoneNumber", arguments), Variant(number));
}

}  // namespace
}  // namespace quorkit::test
