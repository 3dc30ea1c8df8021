// Language identifiers.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <stdexcept>

#include "support/late.h"

namespace quorkit::test {
namespace {

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
