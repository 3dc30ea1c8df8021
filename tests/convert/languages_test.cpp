// Language identifiers.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <map>
#include <stdexcept>

#include "support/late.h"

namespace quorkit::test {
namespace {

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
