// One suite for every room that implements the system.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>
#include <stdlib.h>

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
    const struct {
        String name;
        const char16_t* value;  // null: there is none
    } cases[] = {
        {u"QuorkitTest", u"mixed"},
        {u"quorkittest", u"mixed"},
        {u"QUORKITTEST", u"mixed"},
        {u"QuorkitTes", nullptr},
        {u"QuorkitTest2", nullptr},
        {u"", nullptr},
        {u"QuorkitTest=", nullptr},
        {u"=", nullptr},
        {String(u"QuorkitTest\0x", 13), nullptr},
        {String(1, u'\xD800'), nullptr},
    };
    for (const auto& one : cases) {
        String value = u"untouched";
        EXPECT_EQ(system.GetEnvironmentVariableA(one.name, value), one.value != nullptr);
        EXPECT_EQ(value, one.value == nullptr ? u"untouched" : one.value);
    }
    String value;
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
#endif

TEST(NativeSystem, TellsTheLocalTime) {
    const SystemTime told = ports::native().system.GetLocalTime();
    std::tm local{};
    local.tm_year = told.year - 1900;
    local.tm_mon = told.month - 1;
    local.tm_mday = told.day;
    local.tm_hour = told.hour;
    local.tm_min = told.minute;
    local.tm_sec = told.second;
    local.tm_isdst = -1;
    EXPECT_LE(std::abs(std::difftime(std::mktime(&local), std::time(nullptr))), 2);
    EXPECT_TRUE(told.milliseconds >= 0 && told.milliseconds < 1000);
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
