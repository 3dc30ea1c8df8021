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

}  // namespace
}  // namespace quorkit::test
