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
    const struct {
        const char16_t* text;
        const char16_t* result;
    } cases[] = {
        {u"%TEMP%\\x", u"/tmp\\x"},
        {u"%Temp%", u"/tmp"},
        {u"50% off", u"50% off"},
        {u"50% off, 10% more", u"50 more"},
        {u"%UNDEFINED_NAME%x", u"x"},
        {u"%A%%B%", u"firstfirst-first"},
        {u"%A%%", u"first%"},
        {u"%%%A%", u"first"},
        {u"%Half%A%", u"1first"},  // the "%" of the value pairs with the next one
        {u"%Cut%B", u"x%AB"},
        {u"%Cut% %", u"x"},
        {u"%P%A%", u"first"},
        {u"", u""},
        {u"%", u"%"},
    };
    Late strings(u"GQuorStrings", world);
    for (const auto& [text, result] : cases)
        EXPECT_EQ(strings(u"ExpandEnvironmentString", {text}), Variant(result));
    for (const char16_t* endless : {u"%Self%", u"a %Grows%"})
        EXPECT_EQ(strings.errorOf(u"ExpandEnvironmentString", {endless}), 28);

    // Many placeholders are no endless one.
    String text;
    for (int i = 0; i < 50'000; ++i) text += u"%B%";
    EXPECT_EQ(strings(u"ExpandEnvironmentString", {text}).get<String>().size(), 50'000 * 11);
}

TEST(ExpandDateString, PutsInTheLocalTime) {
    MemoryPorts world;
    world.system.localTime = {2024, 3, 5, 7, 8, 9, 999};
    world.system.userLanguage = 1031;
    const struct {
        const char16_t* text;
        const char16_t* result;
    } cases[] = {
        {u"log_[yyyymmdd].txt", u"log_20240305.txt"},
        {u"[dd.mm.yyyy hh:nn:ss]", u"05.03.2024 07:08:09"},
        {u"[dddd], [d. mmmm]", u"Dienstag, 5. M\u00E4rz"},
        {u"a[b", u"a[b"},
        {u"a]b[yy]]", u"a]b24]"},
        {u"[[yyyy]]", u"2024"},  // the first one gives "[2024", which is a format again
        {u"[]", u"05.03.2024 07:08:09"},
        {u"", u""},
    };
    Late strings(u"GQuorStrings", world);
    for (const auto& [text, result] : cases)
        EXPECT_EQ(strings(u"ExpandDateString", {text}), Variant(result));
    EXPECT_EQ(strings.errorOf(u"ExpandDateString", {String(5000, u'[') + String(5000, u']')}), 28);
}

TEST(IsValidMailAddress, IsCoarse) {
    const struct {
        const char16_t* address;
        bool valid;
    } cases[] = {
        {u"a@b.c", true},    {u"a@b", false}, {u"@b.c", false},   {u"a.b@c", false},
        {u"a@.", true},      {u"", false},    {u"@a@b.c", false}, {u"a@@.", true},
        {u"a b@c d.", true}, {u"a.c", false},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [address, valid] : cases)
        EXPECT_EQ(strings(u"isValidMailAddress", {address}), Variant(valid));
}

}  // namespace
}  // namespace quorkit::test
