#include <gtest/gtest.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Versions, Split) {
    // The four components and the result.
    const std::pair<const char16_t*, std::vector<Variant>> versions[] = {
        {u"5.1", {5, 1, 0, 0, 0}},
        {u"1.2.3.4.5", {1, 2, 3, 4, 0}},
        {u"5.x.2.1", {5, -1, 2, 1, -1}},
        {u"1..2", {1, -1, 2, 0, -1}},
        {u"1.2.", {1, 2, 0, 0, 0}},
        {u"", {-1, 0, 0, 0, -1}},
        {u" 1 .+2.-3.1e2", {1, 2, -3, 100, 0}},
        {u"1,2", {-1, 0, 0, 0, -1}},
        {u"x.99999999999", {-1, -1, -1, -1, -1}},
        {u"2147483647.2147483648.3", {2147483647, -1, -1, -1, -1}}};
    Late strings(u"GQuorStrings");
    for (const auto& [version, all] : versions) {
        strings.expect(u"SplitAppVersionString",
                       {Row({version, 7, 7, 7, 7}, {all[4], all[0], all[1], all[2], all[3]})});
        strings.expect(
            {u"ExtractMajorVersionFromAppVersionString", u"ExtractMinorVersionFromAppVersionString",
             u"ExtractRevisionFromAppVersionString", u"ExtractBuildNumberFromAppVersionString"},
            {Row({version}, {all.begin(), all.end() - 1})});
    }
}

TEST(Versions, AreWrittenWithFourComponentsOrWithoutZerosAtTheEnd) {
    Late strings(u"GQuorStrings");
    strings.expect(u"formatAppVersionString",
                   {Row({u"2,1,0,0"}, u"2.1.0.0"), Row({u"a.-2,3"}, u"-1.-2.3.0"),
                    Row({u""}, u"-1.0.0.0"), Row({u"2,1,0,0", false}, u"2.1"),
                    Row({u"0.0.0.0", false}, u"0"), Row({u"1.0.3.0", false}, u"1.0.3"),
                    Row({u"1.0.0.5", false}, u"1.0.0.5"), Row({u"007", false}, u"7")});
}

TEST(Versions, Compare) {
    Late strings(u"GQuorStrings");
    strings.expect(
        u"CompareAppVersionString",
        {Row({u"1.2", u"1.2.0.0"}, 0), Row({u"1.9", u"1.10"}, -1), Row({u"10.0", u"2.0"}, 1),
         Row({u"1.2.3.4", u"1.2.3.4.5"}, -1), Row({u"1.2", u"1.2b"}, 0), Row({u"", u"0.x"}, 0),
         Row({u"1 . 2", u"1.2."}, 0), Row({u"1.2,9", u"1.2,1"}, 0),
         Row({u"1.99999999999", u"1.99999999998"}, 1), Row({u"1", u"1.-1"}, 1)});
}

}  // namespace
}  // namespace quorkit::test
