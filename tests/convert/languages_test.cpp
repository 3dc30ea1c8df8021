#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/memory.h>

#include <map>
#include <stdexcept>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(Languages, WindowsIdentifiersAreKnownExactly) {
    const std::map<Integer, Long> known = {
        {1031, 1}, {2055, 1}, {3079, 1}, {4103, 1}, {5127, 1}, {1036, 2},  {2060, 2},  {3084, 2},
        {4108, 2}, {5132, 2}, {1040, 3}, {2064, 3}, {1033, 4}, {2057, 4},  {3081, 4},  {4105, 4},
        {5129, 4}, {6153, 4}, {7177, 4}, {8201, 4}, {9225, 4}, {10249, 4}, {11273, 4}, {1034, 5}};
    Late convert(u"GQuorConvert");
    for (Integer identifier = -1; identifier < 13000; ++identifier) {
        const auto found = known.find(identifier);
        EXPECT_EQ(convert(u"WindowsLanguageIDToLanguageID", {identifier}),
                  Variant(found == known.end() ? 0 : found->second))
            << identifier;
    }
}

TEST(Languages, HaveOneWindowsIdentifierEach) {
    const Integer identifiers[] = {2055, 4108, 2064, 1033, 1034};
    Late convert(u"GQuorConvert");
    for (Long language = 1; language <= 5; ++language)
        EXPECT_EQ(convert(u"LanguageIDToWindowsLanguageID", {language}),
                  Variant(identifiers[language - 1]));
}

TEST(Languages, TheSystemsOwnIsALanguageNumber) {
    const struct {
        LanguageIdentifier user;
        LanguageIdentifier system;
        Integer language;
    } cases[] = {{1031, 1036, 1}, {0, 1036, 2}, {0, 0, 0}, {3082, 1031, 0}, {0xFFFF, 1031, 0}};
    MemoryPorts world;
    Late convert(u"GQuorConvert", world);
    for (const auto& [user, system, language] : cases) {
        world.system.userLanguage = user;
        world.system.systemLanguage = system;
        for (const Long asked : {0, 9, 6, -1})
            EXPECT_EQ(convert(u"LanguageIDToWindowsLanguageID", {asked}), Variant(language));
    }
}

TEST(Languages, AFailingUserLanguageFallsBackOnTheSystems) {
    struct Failing final : MemorySystem {
        LanguageIdentifier GetUserDefaultUILanguage() override { throw std::runtime_error("gone"); }
    } system;
    system.systemLanguage = 1040;
    MemoryFiles files;
    Ports ports{files, system};
    EXPECT_EQ(Late(u"GQuorConvert", ports)(u"LanguageIDToWindowsLanguageID", {Long{9}}),
              Variant(Integer{3}));
}

}  // namespace
}  // namespace quorkit::test
