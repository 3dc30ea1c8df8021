#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(ExpandEnvironmentString, PutsInValues) {
    MemoryPorts world;
    world.system.environment = {
        {u"A", u"first"}, {u"B", u"%A%-%A%"},   {u"Half", u"1%"},        {u"TEMP", u"/tmp"},
        {u"Cut", u"x%A"}, {u"Self", u"%self%"}, {u"Grows", u"%Grows%x"}, {u"P", u"%"},
    };
    // The "%" in a value pairs with the next one. Many placeholders do not count as endless
    // nesting.
    String many, expanded, nested;
    for (int i = 0; i < 10'000; ++i) nested += u"%A%";
    world.system.environment[u"Nested"] = nested;
    for (int i = 0; i < 100'000; ++i) {
        many += u"%B%";
        expanded += u"first-first";
    }
    Late strings(u"GQuorStrings", world);
    strings.expect(
        u"ExpandEnvironmentString",
        {Row({u"%Temp%\\x"}, u"/tmp\\x"), Row({u"50% off"}, u"50% off"),
         Row({u"5% off, 1% on"}, u"5 on"), Row({u"%NONE%x"}, u"x"),
         Row({u"%A%%B%"}, u"firstfirst-first"), Row({u"%A%%"}, u"first%"),
         Row({u"%%%A%"}, u"first"), Row({u"%Half%A%"}, u"1first"), Row({u"%Cut%B"}, u"x%AB"),
         Row({u"%Cut% %"}, u"x"), Row({u"%P%A%"}, u"first"), Row({u"%"}, u"%"),
         Row({u"%Self%"}, Error{28}), Row({u"a %Grows%"}, Error{28}), Row({many}, expanded)});
    EXPECT_EQ(strings(u"ExpandEnvironmentString", {u"%Nested%"}).get<String>().size(), 50'000u);
}

TEST(ExpandDateString, PutsInTheLocalTime) {
    MemoryPorts world;
    world.system.localTime = {2024, 3, 5, 7, 8, 9, 999};
    world.system.userLanguage = 1031;
    // The first "]" in "[[yyyy]]" ends the inner format, which gives "[2024"; that is a format
    // again.
    Late strings(u"GQuorStrings", world);
    strings.expect(
        u"ExpandDateString",
        {Row({u"log_[yyyymmdd].txt"}, u"log_20240305.txt"),
         Row({u"[dddd], [d. mmmm]"}, u"Dienstag, 5. M\u00E4rz"), Row({u"[[yyyy]]"}, u"2024"),
         Row({u"[]"}, u"05.03.2024 07:08:09"), Row({u"a[b"}, u"a[b"), Row({u"a]b[yy]]"}, u"a]b24]"),
         Row({u""}, u""), Row({String(5000, u'[') + String(5000, u']')}, Error{28})});
}

}  // namespace
}  // namespace quorkit::test
