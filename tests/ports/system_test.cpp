// One suite for every room that implements the system.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>
#include <stdlib.h>

#include <array>
#include <chrono>
#include <ctime>

namespace quorkit::test {
namespace {

void setVariable(const std::string& name, const std::string& value) {
#ifdef _WIN32
    _putenv_s(name.c_str(), value.c_str());
#else
    setenv(name.c_str(), value.c_str(), 1);
#endif
}

void expectEnvironment(System& system) {
    String value;
    for (const char16_t* name : {u"QuorkitTest", u"quorkittest", u"QUORKITTEST"}) {
        EXPECT_TRUE(system.GetEnvironmentVariableA(name, value));
        EXPECT_EQ(value, u"mixed");
    }
    for (const String& name :
         {String(u"QuorkitTes"), String(u"QuorkitTest2"), String(), String(u"QuorkitTest="),
          String(u"="), String(u"QuorkitTest\0x", 13), String(1, u'\xD800')}) {
        EXPECT_FALSE(system.GetEnvironmentVariableA(name, value));
        EXPECT_EQ(value, u"mixed");
    }
    EXPECT_TRUE(system.GetEnvironmentVariableA(u"QuorkitLong", value));
    EXPECT_EQ(value, String(5000, u'x'));
}

TEST(MemorySystem, ReadsTheEnvironment) {
    MemorySystem system;
    system.environment[u"QuorkitTest"] = u"mixed";
    system.environment[u"QuorkitLong"] = String(5000, u'x');
    expectEnvironment(system);
}

TEST(NativeSystem, ReadsTheEnvironment) {
    setVariable("QuorkitTest", "mixed");
    setVariable("QuorkitLong", std::string(5000, 'x'));
    expectEnvironment(ports::native().system);
}

#ifndef _WIN32
TEST(NativeSystem, PrefersTheVariableSpelledSo) {
    setVariable("QuorkitTwice", "other");
    setVariable("QUORKITTWICE", "as spelled");
    String value;
    EXPECT_TRUE(ports::native().system.GetEnvironmentVariableA(u"QUORKITTWICE", value));
    EXPECT_EQ(value, u"as spelled");
}

TEST(LinuxSystem, ReadsTheLanguageFromTheLocale) {
    constexpr const char* variables[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
    std::array<std::string, 3> own;
    for (std::size_t i = 0; i < own.size(); ++i)
        if (const char* value = getenv(variables[i])) own[i] = value;
    const std::pair<std::array<const char*, 3>, LanguageIdentifier> cases[] = {
        {{"de_CH.UTF-8", "fr_FR", "it_IT"}, 2055},
        {{"", "fr_CH@euro", "it_IT"}, 4108},
        {{"", "", "it_IT.UTF-8"}, 1040},
        {{"", "", ""}, 1033},
        {{"POSIX", "", "de_DE"}, 1033},
        {{"de_BE", "", ""}, 1031},
        {{"es", "", ""}, 1034},
        {{"ja_JP.UTF-8", "", "de_DE"}, 0},
        {{"den_CA", "", ""}, 0},
    };
    for (const auto& [locale, language] : cases) {
        for (std::size_t i = 0; i < own.size(); ++i) setVariable(variables[i], locale[i]);
        EXPECT_EQ(ports::native().system.GetUserDefaultUILanguage(), language)
            << testing::PrintToString(locale);
    }
    for (std::size_t i = 0; i < own.size(); ++i) setVariable(variables[i], own[i]);
}
#endif

TEST(NativeSystem, TellsTheLocalTime) {
    const auto clock = [] {
        const std::time_t now = std::time(nullptr);
        const std::tm local = *std::localtime(&now);
        return std::array{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                          local.tm_hour,        local.tm_min,     local.tm_sec};
    };
    const auto before = clock();
    const SystemTime now = ports::native().system.GetLocalTime();
    const std::array told{now.year, now.month, now.day, now.hour, now.minute, now.second};
    EXPECT_LE(before, told);
    EXPECT_LE(told, clock());
    EXPECT_TRUE(now.milliseconds >= 0 && now.milliseconds < 1000);
}

/// The time so many seconds after the start of 1970.
constexpr FileTime fileTime(std::int64_t seconds, int milliseconds = 0) {
    return static_cast<FileTime>((seconds + 11'644'473'600) * 10'000'000) +
           static_cast<FileTime>(milliseconds) * 10'000;
}

std::array<int, 7> shown(System& system, FileTime time) {
    SystemTime local;
    if (!system.FileTimeToSystemTime(time, local)) return {};
    return {local.year,   local.month,  local.day,         local.hour,
            local.minute, local.second, local.milliseconds};
}

constexpr std::int64_t kSummer = 1719837296;  // 1 July 2024, 12:34:56
constexpr FileTime kNoTimes[] = {fileTime(253'402'387'200), FileTime{1} << 63, ~FileTime{0}};

TEST(MemorySystem, ShowsTimes) {
    MemorySystem system;
    system.minutesEastOfUtc = -60;
    EXPECT_EQ(shown(system, fileTime(kSummer, 789)), (std::array{2024, 7, 1, 11, 34, 56, 789}));
    EXPECT_EQ(shown(system, 0), (std::array{1600, 12, 31, 23, 0, 0, 0}));
    for (const FileTime none : kNoTimes) EXPECT_EQ(shown(system, none)[0], 0) << none;
}

TEST(NativeSystem, ShowsTimes) {
    System& system = ports::native().system;
    const auto seconds = [](const std::array<int, 7>& time) {
        return (time[2] * 24 + time[3]) * 3600 + time[4] * 60 + time[5];
    };
    const SystemTime now = system.GetLocalTime();
    const auto told = shown(system, fileTime(std::time(nullptr), 789));
    EXPECT_NEAR(seconds(told), seconds({0, 0, now.day, now.hour, now.minute, now.second}), 2);
    EXPECT_EQ(told[0], now.year);
    EXPECT_EQ(told[6], 789);
    for (const FileTime none : kNoTimes) EXPECT_EQ(shown(system, none)[0], 0) << none;
#ifndef _WIN32
    setVariable("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    tzset();
    EXPECT_EQ(shown(system, fileTime(kSummer)), (std::array{2024, 7, 1, 14, 34, 56, 0}));
    EXPECT_EQ(shown(system, fileTime(kSummer - 180 * 86400)),
              (std::array{2024, 1, 3, 13, 34, 56, 0}));
    unsetenv("TZ");
    tzset();
#endif
}

TEST(NativeSystem, KnowsItsFolders) {
    const Ports& native = ports::native();
    String folder;
    std::uint32_t attributes = 0;
    ASSERT_TRUE(native.system.GetTempPathA(folder));
    EXPECT_NE(String(u"\\/").find(folder.back()), String::npos);
    EXPECT_EQ(native.files.GetFileAttributesA(folder, attributes), kSuccess);
    EXPECT_NE(attributes & kDirectory, 0u);

    constexpr int kProfile = 40;
    ASSERT_TRUE(native.system.SHGetFolderPathA(kProfile, folder));
    EXPECT_EQ(String(u"\\/").find(folder.back()), String::npos);
    constexpr int kDrives = 17;
    for (const int none : {kDrives, -1, 9999})
        EXPECT_FALSE(native.system.SHGetFolderPathA(none, folder)) << none;
}

TEST(NativeSystem, CountsOn) {
    System& system = ports::native().system;
    const std::uint64_t before = system.QueryPerformanceCounter();
    const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(50);
    while (std::chrono::steady_clock::now() < end) {
    }
    EXPECT_GT(system.QueryPerformanceCounter(), before);
}

}  // namespace
}  // namespace quorkit::test
