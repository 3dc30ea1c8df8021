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
