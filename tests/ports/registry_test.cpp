// The behaviour of every registry.
#include <thread>

#include "base/unicode.h"
#include "support/each_registry.h"

namespace quorkit::test {
namespace {

using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;

const Values kAny = {{u"v", {kRegBinary, "any"}}};

String withNul(String text) {
    return text.append(u"\0x", 2);
}
Values valuesOf(const registry::OpenKey& key) {
    Values found;
    EXPECT_EQ(key.values(found), kSuccess);
    return found;
}
Names keysOf(const registry::OpenKey& key) {
    Names found;
    EXPECT_EQ(key.subKeys(found), kSuccess);
    return found;
}

class RegistryTest : public EachRegistry {
   protected:
    Values values;
    Names names;
};

TEST_P(RegistryTest, FindsAndMakesKeysByPath) {
    make(u"\\A\\B\\");
    const String longest = u'\\' + String(255, u'n');
    String deep;
    for (int i = 0; i < 100; ++i) deep += u"\\deep";
    for (const auto& [place, opening, making] :
         {std::tuple{at(u"\\\\A\\\\B\\\\"), kSuccess, kSuccess},
          {at(longest), kFileNotFound, kSuccess},
          {at(deep), kFileNotFound, kSuccess},
          {at(u"\\A" + longest + u"n\\B"), kInvalidParameter, kInvalidParameter},
          {at(withNul(u"\\A")), kInvalidParameter, kInvalidParameter},
          {{RegistryRoot::CurrentUser, u'\\' + base}, kBadPathName, kBadPathName},
          {{RegistryRoot::CurrentUser, u""}, kSuccess, kSuccess},
          {{RegistryRoot::None, base}, kInvalidHandle, kInvalidHandle}}) {
        SCOPED_TRACE(testing::PrintToString(place.path));
        EXPECT_EQ(registry::OpenKey(registry, place, RegistryAccess::Read).status(), opening);
        EXPECT_EQ(
            registry::OpenKey(registry, place, RegistryAccess::Write, registry::Unopened::IsMade)
                .status(),
            making);
        EXPECT_EQ(registry::OpenKey(registry, place, RegistryAccess::Read).status(), making);
    }
}

TEST_P(RegistryTest, MatchesNamesWithoutLetterCaseAndKeepsTheirSpelling) {
    const RegistryValue other{kRegDWord, "other"};
    EXPECT_EQ(make(u"\\Gr\u00D6\u00DFe \u03A3")
                  .setValues(Values{{u"\u00C4 \u0416", {}}, {u"twice", {}}, {u"TWICE", other}}),
              kSuccess);
    const registry::OpenKey key = make(u"\\gR\u00F6\u00DFE \u03C3");
    EXPECT_EQ(key.setValues(Values{{u"\u00E4 \u0436", other}, {u"B", {}}}), kSuccess);
    EXPECT_EQ(key.deleteValue(u"b"), kSuccess);
    EXPECT_EQ(key.deleteValue(u"b"), kFileNotFound);
    EXPECT_THAT(keysOf(read()), UnorderedElementsAre(u"Gr\u00D6\u00DFe \u03A3"));
    EXPECT_THAT(
        valuesOf(read(u"\\GR\u00F6\u00DFE \u03C3")),
        UnorderedElementsAre(NamedValue{u"\u00C4 \u0416", other}, NamedValue{u"twice", other}));
}

TEST_P(RegistryTest, KeepsDataByteForByte) {
    const Values all = {{u"text", {kRegString, base::toUtf16(String(u"\u00E4\u4E2D\0", 3))}},
                        {u"text without an end", {kRegString, base::toUtf16(u"ab")}},
                        {u"half a character", {kRegString, "a"}},
                        {u"one and a half", {kRegExpandString, "abc"}},
                        {u"half a pair", {kRegString, base::toUtf16(u"\xD800")}},
                        {u"empty text", {kRegString, ""}},
                        {u"list", {kRegMultiString, base::toUtf16(String(u"a\0\0", 3))}},
                        {u"none", {kRegNone, std::string("\0\n\xFF", 3)}},
                        {u"binary", {kRegBinary, ""}},
                        {u"dword", {kRegDWord, std::string("\1\0\0\x80", 4)}},
                        {u"short dword", {kRegDWord, "\1"}},
                        {u"of its own", {0x80000001, "\r\n"}},
                        {u"", {0xFFFFFFFF, std::string(257, 'd')}},
                        {u"large", {kRegBinary, std::string(1 << 20, '\xE9')}}};
    EXPECT_EQ(make().setValues(Values{{u"large", {kRegDWord, "1234"}}}), kSuccess);
    EXPECT_EQ(make().setValues(all), kSuccess);
    EXPECT_EQ(make().setValues({}), kSuccess);
    EXPECT_THAT(valuesOf(read()), UnorderedElementsAreArray(all));
    for (const auto& [name, expected] : all) {
        EXPECT_EQ(read().value(name, value), kSuccess);
        EXPECT_EQ(value, expected) << testing::PrintToString(name);
    }
    EXPECT_EQ(read().value(u"missing", value), kFileNotFound);
    EXPECT_EQ(value, all.back().value);
}

TEST_P(RegistryTest, NamesHoldAnyCharacter) {
    const Names all = {u"/",    u".",      u"..",  u"a/b",   u"a:b",      u"@",     u"=",
                       u"[a]",  u"50%",    u"%41", u"\"q",   u"a\nb",     u"\r\n",  u" blanks ",
                       u"end.", u"~",      u"con", u"*?<>|", u"\x7F\x01", u"a;b#c", u"\xD83D\xDE00",
                       u"-",    u"\xD800", u"\t",  u"\u4E2D"};
    const String longest(16'383, u'v');
    Values expected = {{u"\\with\\", {}}, {longest, {}}};
    for (const String& name : all) {
        expected.push_back({name, {kRegString, base::toUtf16(name)}});
        make(u'\\' + name + u"\\key").setValues({&expected.back(), 1});
        EXPECT_EQ(read(u'\\' + name + u"\\key").value(name, value), kSuccess);
        EXPECT_EQ(value, expected.back().value) << testing::PrintToString(name);
    }
    EXPECT_THAT(keysOf(read()), UnorderedElementsAreArray(all));
    EXPECT_EQ(make().setValues(expected), kSuccess);
    for (const String& bad : {longest + u'v', withNul(u"n")})
        for (const ErrorCode code : {make().setValues(Values{{u"good", {}}, {bad, {}}}),
                                     read().value(bad, value), make().deleteValue(bad)})
            EXPECT_EQ(code, kInvalidParameter);
    EXPECT_THAT(valuesOf(read()), UnorderedElementsAreArray(expected));
}

TEST_P(RegistryTest, DeletesKeysThatHaveNoneBeneath) {
    const registry::OpenKey key = make();
    make(u"\\A\\B").setValues(kAny);
    EXPECT_EQ(key.deleteKey(u"A"), kAccessDenied);
    EXPECT_EQ(key.deleteKey(u"missing"), kFileNotFound);
    for (const String& bad : {String(), String(u"A\\B"), String(u"\\A"), String(u"\\"),
                              withNul(u"A"), String(256, u'n')})
        EXPECT_EQ(key.deleteKey(bad), kInvalidParameter) << testing::PrintToString(bad);
    EXPECT_EQ(valuesOf(read(u"\\A\\B")), kAny);
    const registry::OpenKey reading = read(u"\\A\\B");
    const registry::OpenKey writing = make(u"\\A\\B");
    EXPECT_EQ(make(u"\\A").deleteKey(u"b"), kSuccess);
    EXPECT_EQ(key.deleteKey(u"a"), kSuccess);
    EXPECT_EQ(keysOf(read()), Names());
    for (const ErrorCode code :
         {reading.value(u"v", value), reading.values(values), reading.subKeys(names),
          writing.setValues(kAny), writing.deleteValue(u"v"), writing.deleteKey(u"any")})
        EXPECT_EQ(code, kFileNotFound);
    make(u"\\A\\B");
    EXPECT_EQ(valuesOf(read(u"\\A\\B")), Values());
}

TEST_P(RegistryTest, AnOpenKeyAllowsWhatItWasOpenedFor) {
    Handle made = Handle::Invalid;
    ASSERT_EQ(registry.RegCreateKeyA(RegistryRoot::CurrentUser, base, made), kSuccess);
    EXPECT_EQ(registry.SetValues(made, kAny), kSuccess);
    EXPECT_EQ(registry.RegQueryValueExA(made, u"v", value), kSuccess);
    registry.RegCloseKey(made);
    const registry::OpenKey reading = read();
    const registry::OpenKey writing = make();
    for (const ErrorCode code :
         {reading.setValues(kAny), reading.deleteValue(u"v"), writing.value(u"v", value),
          writing.values(values), writing.subKeys(names)})
        EXPECT_EQ(code, kAccessDenied);
}

TEST_P(RegistryTest, TwoWritersLoseNothing) {
    const auto write = [&](char16_t who) {
        for (std::size_t i = 0; i < 50; ++i) {
            const String name(i + 1, who);
            EXPECT_EQ(make(u"\\K").setValues(Values{{name, {}}}), kSuccess);
            if (i % 2 == 0) continue;
            EXPECT_EQ(make(u"\\K").deleteValue(name), kSuccess);
        }
    };
    std::thread other(write, u'a');
    write(u'b');
    other.join();
    EXPECT_EQ(valuesOf(read(u"\\K")).size(), 50u);
}

INSTANTIATE_TEST_SUITE_P(Implementations, RegistryTest, testing::Bool(), nameOfRegistry);

TEST(MemoryRegistry, ShowsTheClassesOfTheUserOverThoseOfTheMachine) {
    const registry::RegPath machine = {RegistryRoot::LocalMachine, u"Software\\Classes\\.one"};
    const registry::RegPath user = {RegistryRoot::CurrentUser, machine.path};
    const registry::RegPath both = {RegistryRoot::ClassesRoot, u".ONE"};
    const registry::RegPath two = {RegistryRoot::ClassesRoot, u".two"};
    MemoryRegistry registry;
    const auto set = [&](const registry::RegPath& place, const char* data) {
        return registry::OpenKey(registry, place, RegistryAccess::Write, registry::Unopened::IsMade)
            .setValues(Values{{u"v", {kRegBinary, data}}});
    };
    const auto get = [&](const registry::RegPath& place) {
        return valuesOf(registry::OpenKey(registry, place, RegistryAccess::Read)).at(0).value.data;
    };
    EXPECT_EQ(set(both, "machine"), kSuccess);
    EXPECT_EQ(get(machine), "machine");
    EXPECT_EQ(set(user, "user"), kSuccess);
    EXPECT_EQ(get(both), "user");
    EXPECT_EQ(set(two, "machine"), kSuccess);
    EXPECT_THAT(keysOf(registry::OpenKey(registry, {two.root, {}}, RegistryAccess::Read)),
                UnorderedElementsAre(u".one", u".two"));
    registry.setMachineReadOnly();
    EXPECT_EQ(set(both, "new"), kSuccess);
    EXPECT_EQ(get(machine) + get(user), "machinenew");
    for (const registry::RegPath& place : {machine, two, {two.root, u".new"}})
        EXPECT_EQ(set(place, "new"), kAccessDenied);
}

}  // namespace
}  // namespace quorkit::test
