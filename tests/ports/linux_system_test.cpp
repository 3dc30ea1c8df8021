// The user's language from the locale environment.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/system.h>
#include <stdlib.h>

namespace quorkit::test {
namespace {

TEST(LinuxSystem, ReadsTheLanguageFromTheLocale) {
    const struct {
        const char* all;
        const char* messages;
        const char* lang;
        LanguageIdentifier language;
    } cases[] = {
        {"de_CH.UTF-8", "fr_FR", "it_IT", 2055},
        {"", "fr_CH@euro", "it_IT", 4108},
        {"", "", "it_IT.UTF-8", 1040},
        {"", "", "", 1033},
        {"POSIX", "", "de_DE", 1033},
        {"de_BE", "", "", 1031},
        {"es", "", "", 1034},
        {"ja_JP.UTF-8", "", "de_DE", 0},
        {"den_CA", "", "", 0},
    };
    for (const auto& one : cases) {
        setenv("LC_ALL", one.all, 1);
        setenv("LC_MESSAGES", one.messages, 1);
        setenv("LANG", one.lang, 1);
        EXPECT_EQ(ports::native().system.GetUserDefaultUILanguage(), one.language)
            << one.all << one.messages << one.lang;
    }
}

}  // namespace
}  // namespace quorkit::test
#endif
