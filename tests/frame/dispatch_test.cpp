// The rules of a late-bound call, as a host sees them.
#include <gtest/gtest.h>
#include <quorkit/dispatch.h>
#include <quorkit/ports/memory.h>

#include "support/errors.h"

namespace quorkit {
namespace {

using test::errorOf;

class Dispatch : public testing::Test {
   protected:
    MemoryPorts world;
    Library library{world};
    ObjectRef strings = library.global(u"gquorstrings");
};

TEST_F(Dispatch, FindsObjectsAndMembers) {
    EXPECT_EQ(library.global(u"GQuorStrings"), strings);
    EXPECT_NE(library.create(u"QuorInifile"), library.create(u"quorinifile"));
    EXPECT_EQ(strings->identifierOf(u"STRINGREPLACE"), 0x60030003);
    for (const char16_t* name : {u"QuorInifile", u"QuorLogFile", u"Other", u""})
        EXPECT_EQ(errorOf([&] { library.global(name); }), 429);
    EXPECT_EQ(errorOf([&] { library.create(u"Other"); }), 429);
    EXPECT_EQ(errorOf([&] { library.create(u"GQuorLanguage")->call(u"any"); }), 438);
    EXPECT_EQ(errorOf([&] { strings->call(u"LPad", CallKind::Let); }), 438);
    EXPECT_EQ(errorOf([&] { strings->invoke(1, CallKind::Call, {}); }), 438);
}

TEST_F(Dispatch, LeavesTheArgumentsOfARefusedCall) {
    const struct {
        std::vector<Variant> positional;
        std::vector<NamedArgument> named;
        Long error;
    } cases[] = {
        {{u"0", u"7"}, {}, 449},
        {{u"0", u"7", Variant::missing()}, {}, 449},
        {{u"0", u"7", Long{3}, Long{4}}, {}, 450},
        {{u"0", u"7"}, {{u"s", u"8"}}, 450},
        {{u"0"}, {{u"s", u"7"}, {u"S", u"8"}}, 450},
        {{u"0", u"7"}, {{u"length", Long{3}}}, 448},
        {{u"0", u"7"}, {{u"maxLen", u"three"}}, 13},
    };
    for (const auto& [positional, named, error] : cases) {
        auto values = positional;
        auto more = named;
        EXPECT_EQ(errorOf([&] { strings->call(u"LPad", CallKind::Call, {values, more}); }), error);
        EXPECT_EQ(values, positional);
        for (std::size_t i = 0; i < named.size(); ++i) EXPECT_EQ(more[i].value, named[i].value);
    }
}

TEST(Call, TellsWhatAHostMustKnow) {
    MemoryPorts world;
    Library library(world);
    const ObjectRef convert = library.object(u"GQuorConvert");
    const Variant name = u"elanguage_french";
    const auto languageOf = [&](bool constantsByName) {
        return call(*convert, {.member = u"LanguageIDToWindowsLanguageID",
                               .positional = {name},
                               .constantsByName = constantsByName});
    };
    EXPECT_EQ(languageOf(true).result, Variant(Integer{4108}));
    const CallResult refused = languageOf(false);
    ASSERT_TRUE(refused.error);
    EXPECT_EQ(refused.error->number, 13);
    EXPECT_EQ(refused.error->text, "Type mismatch");
    EXPECT_EQ(refused.error->source, "quorkit.GQuorConvert");
    EXPECT_EQ(refused.error->argument, 0u);
    EXPECT_EQ(refused.arguments, std::vector{name});

    const ObjectRef strings = library.object(u"gquorstrings");
    EXPECT_EQ(strings, library.object(u"GQuorStrings"));
    Call split{.member = u"SplitDOSCMDParam", .positional = {u"/a=b"}};
    EXPECT_EQ(call(*strings, split).error->number, 449);
    EXPECT_FALSE(call(*strings, split).error->argument);
    split.variablesMayBeOmitted = true;
    EXPECT_EQ(call(*strings, split).arguments, (std::vector<Variant>{u"/a=b", u"/a", u"b"}));

    world.files.put(u"a.ini", std::string("\xFF\xFE\0\0", 4));
    const ObjectRef ini = library.object(u"QuorInifile");
    EXPECT_NE(ini, library.object(u"QuorInifile"));
    call(*ini, {.member = u"IniFileName", .kind = CallKind::Let, .positional = {u"a.ini"}});
    const CallResult told =
        call(*ini, {.member = u"WriteKeyValue", .positional = {u"S", u"k", u"v"}});
    EXPECT_EQ(told.result, Variant(Long{0}));
    EXPECT_NE(told.reason.find("UTF-32"), std::string::npos);
    EXPECT_EQ(call(*ini, {.member = u"Nothing"}).reason, "");
}

}  // namespace
}  // namespace quorkit
