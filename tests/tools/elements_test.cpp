#include <gtest/gtest.h>
#include <quorkit/GQuorTools.h>
#include <quorkit/collection.h>
#include <quorkit/ports/memory.h>

#include <thread>

#include "rpc/property_object.h"
#include "support/errors.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

// What passes by reference and never changes takes what a parameter by value does.
TEST(Tools, TakeLiterals) {
    EXPECT_TRUE(GQuorTools().isHex(u"1F"));
    EXPECT_EQ(GQuorTools().IndexOfElementInCollection(5.0, nullptr), -1);
}

TEST(Tools, Delay) {
    MemoryPorts world;
    Late tools(u"GQuorTools", world);
    int handled = 0;
    const auto event = [&] { ++handled; };
    world.host.events = {event, event};
    tools(u"delay", {Long{3}});
    EXPECT_EQ(handled, 2);
    EXPECT_EQ(std::chrono::round<std::chrono::seconds>(world.host.waited).count(), 3);
    world.host.events = {event, event};
    tools(u"delay", {Long{-5}});
    EXPECT_EQ(handled, 3);
}

TEST(Tools, DisplayError) {
    MemoryPorts world;
    Late tools(u"GQuorTools", world);
    const auto shown = [&](std::vector<Variant> arguments = {}) {
        tools(u"DisplayError", std::move(arguments));
        const String& text = world.host.messages.back().text;
        EXPECT_TRUE(text.starts_with(u"Application Error!\r\n\r\n"));
        return text.substr(text.find(u"Error-"));
    };
    EXPECT_EQ(shown({u"mod", u"Read", u"53", u"Not found", u"", u"", Integer{16}}),
              u"Error-Number: 53\r\nDescription : Not found\r\nFunction: Read\r\nModule: mod\r\n");
    EXPECT_EQ(world.host.messages.back().caption, u"Error");
    EXPECT_EQ(world.host.messages.back().style, kStopIcon);
    String none;  // nothing has failed yet
    std::thread([&] { none = shown({u"", u"", u"", u"", u"i", u"a"}); }).join();
    EXPECT_TRUE(
        none.ends_with(u": 0\r\nDescription : \r\nAdditional Info: i\r\nApplication: a\r\n"));
    EXPECT_EQ(Late(u"GQuorFile", world).errorOf(u"LoadFileToByteArray", {u"x", Array<Byte>()}), 53);
    tools(u"isHex", {u"1"});
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(shown(), u"Error-Number: 53\r\nDescription : File not found\r\n");
    EXPECT_EQ(errorOf([&] { tools.object().call(u"None"); }), 438);
    EXPECT_TRUE(shown().starts_with(u"Error-Number: 438\r\n"));
    // A client does not get an error that a member has handled itself.
    EXPECT_EQ(Late(u"GQuorFile", world).errorOf(u"LoadFileToByteArray", {u"x", Array<Byte>()}), 53);
    Late(u"GQuorWindows", world)(u"SaveVBAUserFormPosition", {u"HKCU\\F", Collection::make()});
    EXPECT_TRUE(shown().starts_with(u"Error-Number: 53\r\n"));
}

TEST(Tools, CheckTextBoxValue) {
    MemoryPorts world;
    Late tools(u"GQuorTools", world);
    const auto box = [](const char16_t* property, const Variant& text) {
        return std::make_shared<rpc::PropertyObject>(
            std::vector<rpc::PropertyObject::Property>{{property, text}});
    };
    const LanguageIdentifier english = 1033, german = 2055, french = 4108;
    const std::tuple<LanguageIdentifier, Long, std::vector<Variant>, Boolean> cases[] = {
        {english, 0, {u"x", u" ", u""}, true},
        {english, 1, {u"7", u" -2147483648 ", u"1e3", Integer{5}, u"", u" \t\u00A0"}, true},
        {english, 1, {u"1,000", u"1.0", u"1'000"}, true},
        {english, 1, {u"1.5", u"2147483648", u"x", u"&H1F", u"&O7"}, false},
        {english, 2, {u"-1.5", u"1,234,567.5", u"1'000.50", u"(5)", u"12 000-", u".5e3"}, true},
        {english, 2, {u"1,5", u"1.000,50", u"1E999", u"1 x", u"1,00", u",5", u"1,000e"}, false},
        {german, 1, {u"1.000", u"1'000.0", u"-1.234.567,0"}, true},
        {german, 1, {u"1,5", u"1,000,5", u"1.5"}, false},
        {german, 2, {u"1,5", u"1.5", u"1.000,50", u"1\u2019000.50", u",5-", u"1,5e3"}, true},
        {german, 2, {u"1.00,5", u"1000.000,5", u"1,5.5", u"1,,5", u"&HF"}, false},
        {french, 2, {u"1\u202F234,5", u"- 1 234 567"}, true},
        {english, 3, {u"2024-02-29", u"31.1.2024 ", u"1/31/2024", u"  "}, true},
        {english, 3, {u"2023-02-29", u"45000", u"x"}, false},
    };
    for (const auto& [language, kind, texts, fits] : cases)
        for (const Variant& text : texts) {
            world.system.userLanguage = language;
            EXPECT_EQ(tools(u"CheckTextBoxValue", {box(u"Text", text), kind}), fits)
                << language << ' ' << kind << testing::PrintToString(text);
        }
}

}  // namespace
}  // namespace quorkit::test
