// The system in memory and the native one.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <array>
#include <ctime>

#include "support/environment.h"

namespace quorkit::test {
namespace {

TEST(Systems, ReadTheEnvironment) {
    const Variable mixed("QuorkitTest", "mixed");
    const Variable tooLong("QuorkitLong", std::string(5000, 'x'));
    MemorySystem memory;
    memory.environment = {{u"QuorkitTest", u"mixed"}, {u"QuorkitLong", String(5000, u'x')}};
    System& native = ports::native().system;
    String value;
    for (System* system : {static_cast<System*>(&memory), &native}) {
        EXPECT_TRUE(system->GetEnvironmentVariableA(u"QuorkitLong", value));
        EXPECT_EQ(value, String(5000, u'x'));
        for (const char16_t* name : {u"QuorkitTest", u"quorkittest", u"QUORKITTEST"}) {
            EXPECT_TRUE(system->GetEnvironmentVariableA(name, value));
            EXPECT_EQ(value, u"mixed");
        }
        for (const String& name :
             {String(u"QuorkitTes"), String(u"QuorkitTest2"), String(), String(u"QuorkitTest="),
              String(u"="), String(u"QuorkitTest\0x", 13), String(1, u'\xD800')}) {
            EXPECT_FALSE(system->GetEnvironmentVariableA(name, value));
            EXPECT_EQ(value, u"mixed");
        }
    }
#ifndef _WIN32
    const Variable spelled("QUORKITTEST", "as spelled");
    EXPECT_TRUE(native.GetEnvironmentVariableA(u"QUORKITTEST", value));
    EXPECT_EQ(value, u"as spelled");
#endif
}

#ifndef _WIN32
TEST(NativeSystem, ReadsTheLanguageFromTheLocale) {
    const std::pair<std::array<const char*, 3>, LanguageIdentifier> cases[] = {
        {{"de_CH.UTF-8", "fr_FR", "it_IT"}, 2055},
        {{"", "fr_CH@euro", "it_IT"}, 4108},
        {{"", "", "it_IT.UTF-8"}, 1040},
        {{"", "", ""}, 1033},
        {{"POSIX", "", "de_DE"}, 1033},
        {{"de_BE", "", ""}, 1031},
        {{"es", "", ""}, 1034},
        {{"ja_JP.UTF-8", "", "de_DE"}, 0},
        {{"den_CA", "", ""}, 0}};
    for (const auto& [locale, language] : cases) {
        const Variable all("LC_ALL", locale[0]);
        const Variable messages("LC_MESSAGES", locale[1]);
        const Variable lang("LANG", locale[2]);
        EXPECT_EQ(ports::native().system.GetUserDefaultUILanguage(), language)
            << testing::PrintToString(locale);
    }
}
#endif

/// The FileTime at that many seconds after the start of 1970.
constexpr FileTime fileTime(std::int64_t seconds, int thousandths = 0) {
    return static_cast<FileTime>((seconds + 11'644'473'600) * 10'000'000) +
           static_cast<FileTime>(thousandths) * 10'000;
}

using Shown = std::array<int, 7>;

Shown shown(const SystemTime& time) {
    return {time.year,   time.month,  time.day,         time.hour,
            time.minute, time.second, time.milliseconds};
}
Shown shown(System& system, FileTime time) {
    SystemTime local;
    return system.LocalTimeOf(time, local) ? shown(local) : Shown{};
}

TEST(Systems, ShowTimes) {
    constexpr std::int64_t kSummer = 1719837296;  // 1 July 2024, 12:34:56
    MemorySystem memory;
    memory.minutesEastOfUtc = -60;
    EXPECT_EQ(shown(memory, fileTime(kSummer, 789)), (Shown{2024, 7, 1, 11, 34, 56, 789}));
    EXPECT_EQ(shown(memory, 0), (Shown{1600, 12, 31, 23, 0, 0, 0}));

    System& native = ports::native().system;
    const std::time_t now = std::time(nullptr);
    const Shown told = shown(native.GetLocalTime());
    EXPECT_LE(shown(native, fileTime(now)), told);
    EXPECT_LE(told, shown(native, fileTime(now + 5)));
    EXPECT_TRUE(told[6] >= 0 && told[6] < 1000) << told[6];
    const std::tm local = *std::localtime(&now);
    EXPECT_EQ(shown(native, fileTime(now, 789)),
              (Shown{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                     local.tm_min, local.tm_sec, 789}));
    for (const FileTime none : {fileTime(253'402'387'200), FileTime{1} << 63, ~FileTime{0}})
        EXPECT_EQ(shown(memory, none)[0] + shown(native, none)[0], 0) << none;
#ifndef _WIN32
    {
        const Variable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
        tzset();
        EXPECT_EQ(shown(native, fileTime(kSummer)), (Shown{2024, 7, 1, 14, 34, 56}));
        EXPECT_EQ(shown(native, fileTime(kSummer - 180 * 86400)), (Shown{2024, 1, 3, 13, 34, 56}));
    }
    tzset();
#endif
}

TEST(NativeSystem, KnowsItsFolders) {
    const Ports& native = ports::native();
    String folder;
    std::uint32_t attributes = 0;
    ASSERT_TRUE(native.system.GetTempPathA(folder));
    EXPECT_NE(String(u"\\/").find(folder.back()), String::npos);
    EXPECT_EQ(native.folders.GetFileAttributesA(folder, attributes), kSuccess);
    EXPECT_NE(attributes & kDirectory, 0u);

    constexpr int kProfile = 40;
    ASSERT_TRUE(native.system.SHGetFolderPathA(kProfile, folder));
    EXPECT_EQ(String(u"\\/").find(folder.back()), String::npos);
    constexpr int kDrives = 17;
    for (const int none : {kDrives, -1, 9999})
        EXPECT_FALSE(native.system.SHGetFolderPathA(none, folder)) << none;
}

}  // namespace
}  // namespace quorkit::test
