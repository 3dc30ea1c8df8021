// The registry store on Linux: its files, changes that people make by hand, and the remains of
// processes that died.
#ifndef _WIN32
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "base/unicode.h"
#include "linux/folder_hive.h"
#include "linux/folder_names.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;
using native::FolderHive;

RegistryValue text(StringView value) {
    return {kRegString, base::toUtf16(String(value) + u'\0')};
}
RegistryValue dword(char byte) {
    return {kRegDWord, {byte, 0, 0, 0}};
}

class LinuxRegistry : public testing::Test {
   protected:
    Scratch scratch;
    FolderHive hive{[this] { return scratch.path("store").string(); }, native::kForUser};
    const std::string values = "store/acme/tool/@values";
    const Hive::Path tool = {u"Acme", u"Tool"};

    void SetUp() override { ASSERT_EQ(hive.create(tool), kSuccess); }
    ErrorCode set(const String& name, const RegistryValue& value) {
        return hive.setValues(tool, std::vector<NamedValue>{{name, value}});
    }
    std::vector<std::string> damage() {
        std::vector<std::string> result;
        for (const RegistryDamage& one : hive.check())
            result.push_back(base::toUtf8(one.place + u' ' + one.what)
                                 .substr(scratch.path("store").string().size() + 1));
        return result;
    }
};

TEST_F(LinuxRegistry, ShowsPeopleWhatItHolds) {
    EXPECT_EQ(set(u"", text(u"default")), kSuccess);
    EXPECT_EQ(set(u"a \"name\" \\", text(u"C:\\Temp \"x\"\r\nÄ")), kSuccess);
    EXPECT_EQ(set(u"Left", dword(12)), kSuccess);
    EXPECT_EQ(set(u"Path", {kRegExpandString, base::toUtf16(StringView(u"%HOME%\0", 7))}),
              kSuccess);
    EXPECT_EQ(set(u"List", {kRegMultiString, base::toUtf16(StringView(u"a\0b\0\0", 5))}), kSuccess);
    EXPECT_EQ(set(u"Odd", {kRegString, "x"}), kSuccess);
    EXPECT_EQ(set(u"Bytes", {kRegBinary, "\x01\xFF"}), kSuccess);
    EXPECT_EQ(scratch.read(values),
              "[Tool]\n@=\"default\"\n"
              "\"a \\\"name\\\" \\\\\"=\"C:\\\\Temp \\\"x\\\"\\r\\nÄ\"\n"
              "\"Left\"=dword:0000000c\n\"Path\"=str(2):\"%HOME%\"\n"
              "\"List\"=str(7):\"a\\0b\\0\"\n\"Odd\"=hex(1):78\n\"Bytes\"=hex:01,ff\n");
    struct stat about = {};
    ASSERT_EQ(stat(scratch.path(values).c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0777, 0600u);
}

TEST_F(LinuxRegistry, KeepsWhatPeopleWrite) {
    scratch.write(
        values,
        "# by hand\r\n[Tool]\r\n\r\n \"left\" = dword:1 ; a comment\r\n\"Left\"=dword:2\r\n"
        "half a line\r\n\"Hex\"=hex:01,\\\r\n  02\r\n\"Broken\"=dword:xyz\r\n\"Last\"=\"x\"");
    fs::permissions(scratch.path(values), fs::perms{0646});
    RegistryValue value;
    EXPECT_EQ(hive.value(tool, u"LEFT", value), kSuccess);
    EXPECT_EQ(value, dword(2));
    EXPECT_EQ(hive.value(tool, u"Hex", value), kSuccess);
    EXPECT_EQ(value.data, "\x01\x02");
    EXPECT_EQ(hive.value(tool, u"Broken", value), kFileNotFound);
    EXPECT_EQ(
        damage(),
        (std::vector<std::string>{
            "acme/tool/@values:5 has the name of a value further up, which does not count",
            "acme/tool/@values:6 is no value", "acme/tool/@values:9 has a name, but no value"}));
    EXPECT_EQ(set(u"hex", dword(3)), kSuccess);
    EXPECT_EQ(set(u"New", dword(4)), kSuccess);
    EXPECT_EQ(hive.deleteValue(tool, u"LEFT"), kSuccess);
    EXPECT_EQ(scratch.read(values),
              "# by hand\r\n[Tool]\r\n\r\nhalf a line\r\n\"Hex\"=dword:00000003\r\n"
              "\"Broken\"=dword:xyz\r\n\"Last\"=\"x\"\r\n\"New\"=dword:00000004\r\n");
    EXPECT_EQ(fs::status(scratch.path(values)).permissions(), fs::perms{0646});
    std::vector<String> names;
    EXPECT_EQ(hive.subKeys({u"ACME"}, names), kSuccess);
    EXPECT_EQ(names, std::vector<String>{u"Tool"});
}

// An unfinished line damages no other line, neither the next nor a new one.
TEST_F(LinuxRegistry, GetsOverUnfinishedLines) {
    for (const char* line : {"\"Bad\"=hex:01,\\", "\"Bad\"=\"x,\\", "; a comment,\\", ",\\"}) {
        scratch.write(values, std::string(line) + "\n\"Next\"=dword:7\n" + line);
        RegistryValue value;
        EXPECT_EQ(hive.value(tool, u"Next", value), kSuccess) << line;
        EXPECT_EQ(set(u"New", dword(1)), kSuccess);
        EXPECT_EQ(hive.value(tool, u"New", value), kSuccess) << line;
        EXPECT_EQ(set(u"Bad", dword(2)), kSuccess);
        EXPECT_EQ(hive.value(tool, u"Next", value), kSuccess) << line;
    }
}

TEST_F(LinuxRegistry, HasNothingWithoutAFolder) {
    FolderHive none{[] { return std::string(); }, native::kForUser};
    RegistryValue value;
    std::vector<String> names;
    EXPECT_EQ(none.open({}, RegistryAccess::Read), kSuccess);
    EXPECT_EQ(none.subKeys({u"etc"}, names), kFileNotFound);
    EXPECT_NE(none.create({u"tmp", u"quorkit"}), kSuccess);
    EXPECT_NE(none.setValues({u"tmp"}, std::vector<NamedValue>{{u"x", dword(1)}}), kSuccess);
    EXPECT_EQ(none.deleteKey({u"tmp"}), kFileNotFound);
    EXPECT_TRUE(none.check().empty());
}

TEST_F(LinuxRegistry, LeavesItsFolderByNoName) {
    struct Case {
        String name;
        std::string folder;
    };
    const String longName(255, u'\x4E00');
    for (const Case& one : std::vector<Case>{
             {u"Ä b.", "ä b."},
             {u"..", "%2e."},
             {u".x", "%2ex"},
             {u"@Values", "%40values"},
             {u"A/b%", "a%2fb%25"},
             {u"\n", "%0a"},
             {String(u"a") + u'\xD800', "a%ed%a0%80"},
             {u"\U0001F600", "\xF0\x9F\x98\x80"},
             {longName, {}},
             {longName.substr(1) + u"Q", {}},
         }) {
        const std::string folder = native::folderNameOf(one.name);
        EXPECT_TRUE(one.folder.empty() || one.folder == folder) << folder;
        EXPECT_LE(folder.size(), 255u);
        EXPECT_EQ(hive.create({u"Names", one.name}), kSuccess);
        EXPECT_TRUE(fs::is_directory(scratch.path("store/names/" + folder))) << folder;
        std::vector<String> names;
        EXPECT_EQ(hive.subKeys({u"Names"}, names), kSuccess);
        EXPECT_EQ(names, std::vector<String>{one.name});
        EXPECT_EQ(hive.deleteKey({u"NAMES", one.name}), kSuccess);
    }
    EXPECT_NE(native::folderNameOf(longName), native::folderNameOf(longName.substr(1)));
    EXPECT_EQ(damage(), std::vector<std::string>());
    EXPECT_EQ(scratch.count(), 1u);
}

// Anything unexpected in the place of a key or of its values affects only that key.
TEST_F(LinuxRegistry, GetsOverWhatItCannotUse) {
    EXPECT_EQ(set(u"Left", dword(1)), kSuccess);
    const fs::path store = scratch.path("store");
    for (const char* folder : {"link", "pipe", "folder", "rubbish"})
        EXPECT_EQ(hive.create({String(folder, folder + std::string_view(folder).size())}),
                  kSuccess);
    for (const char* key : {"link", "pipe", "folder"}) fs::remove(store / key / "@values");
    fs::create_symlink(store / "acme/tool/@values", store / "link/@values");
    ASSERT_EQ(mkfifo((store / "pipe/@values").c_str(), 0600), 0);
    fs::create_directory(store / "folder/@values");
    scratch.write("store/rubbish/@values", std::string("\xFF\0\"\n\"=\n@=hex:\\\n[", 16));
    fs::create_directory(store / "Capital");
    fs::create_directory_symlink(store, store / "circle");
    scratch.write("store/notes", "");

    for (const char16_t* key : {u"link", u"pipe", u"folder", u"rubbish"}) {
        RegistryValue value;
        std::vector<NamedValue> all;
        EXPECT_NE(hive.value({key}, u"Left", value), kSuccess);
        EXPECT_EQ(hive.values({key}, all) == kSuccess, StringView(key) == u"rubbish");
        EXPECT_EQ(hive.setValues({key}, std::vector<NamedValue>{{u"x", dword(1)}}) == kSuccess,
                  StringView(key) == u"rubbish");
    }
    std::vector<String> names;
    EXPECT_EQ(hive.subKeys({}, names), kSuccess);
    EXPECT_EQ(names, (std::vector<String>{u"Acme", u"folder", u"link", u"pipe", u"rubbish"}));
    EXPECT_EQ(hive.deleteKey({u"folder"}), kAccessDenied);
    EXPECT_TRUE(fs::exists(store / "folder/@values"));
    // A path may lead through a link, but nothing is deleted through it.
    fs::create_directory_symlink(store / "acme", store / "lnk");
    RegistryValue value;
    EXPECT_EQ(hive.value({u"lnk", u"tool"}, u"Left", value), kSuccess);
    EXPECT_EQ(hive.subKeys({u"lnk"}, names), kAccessDenied);
    EXPECT_EQ(hive.deleteKey({u"lnk"}), kAccessDenied);
    EXPECT_EQ(hive.value(tool, u"Left", value), kSuccess);
    fs::remove(store / "lnk");
    auto found = damage();
    std::ranges::sort(found);
    EXPECT_EQ(found, (std::vector<std::string>{
                         "Capital is looked for under the name capital",
                         "circle is a link, which is not listed",
                         "folder/@values cannot be read",
                         "link/@values cannot be read",
                         "notes does not belong to the store",
                         "pipe/@values cannot be read",
                         "rubbish/@values:1 is no UTF-8",
                         "rubbish/@values:1 is no value",
                         "rubbish/@values:2 is no value",
                         "rubbish/@values:3 has a name, but no value",
                         "rubbish/@values:4 is no value",
                     }));
}

TEST_F(LinuxRegistry, GivesRightsWhateverTheProcessHas) {
    FolderHive shared{[this] { return scratch.path("shared").string(); }, native::kForEverybody};
    const mode_t before = umask(0077);
    EXPECT_EQ(shared.create(tool), kSuccess);
    EXPECT_EQ(shared.setValues(tool, std::vector<NamedValue>{{u"Left", dword(1)}}), kSuccess);
    umask(before);
    for (const char* name : {"shared", "shared/acme/tool", "shared/acme/tool/@values"}) {
        struct stat about = {};
        ASSERT_EQ(stat(scratch.path(name).c_str(), &about), 0);
        EXPECT_EQ(about.st_mode & 0777, S_ISDIR(about.st_mode) ? 0755u : 0644u) << name;
    }
}

TEST_F(LinuxRegistry, RefusesWhatIsReadOnly) {
    EXPECT_EQ(set(u"Left", dword(1)), kSuccess);
    const fs::path file = scratch.path(values);
    const std::string before = scratch.read(values);
    fs::permissions(file, fs::perms::owner_read);
    EXPECT_EQ(set(u"Left", dword(2)), kAccessDenied);
    EXPECT_EQ(scratch.read(values), before);
    fs::permissions(file.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(hive.open(tool, RegistryAccess::Write), kAccessDenied);
    EXPECT_EQ(hive.open(tool, RegistryAccess::Read), kSuccess);
    fs::permissions(file.parent_path(), fs::perms::owner_all);
}

// A refused deletion loses nothing while keys come and go beneath the key.
TEST_F(LinuxRegistry, RefusedDeletionsCostNothing) {
    ASSERT_EQ(hive.create({u"K", u"Stays"}), kSuccess);
    std::atomic<bool> done = false;
    std::thread children([&] {
        while (!done) {
            EXPECT_EQ(hive.create({u"K", u"Sub"}), kSuccess);
            EXPECT_EQ(hive.deleteKey({u"K", u"Sub"}), kSuccess);
        }
    });
    std::thread deleter([&] {
        while (!done) EXPECT_EQ(hive.deleteKey({u"K"}), kAccessDenied);
    });
    for (char i = 0; i < 100; ++i) {
        const std::vector<NamedValue> one = {{u"x", dword(i)}};
        EXPECT_EQ(hive.setValues({u"K"}, one), kSuccess);
        RegistryValue value;
        EXPECT_EQ(hive.value({u"K"}, u"x", value), kSuccess);
        EXPECT_EQ(value, dword(i));
    }
    done = true;
    children.join();
    deleter.join();
    EXPECT_EQ(damage(), std::vector<std::string>());
}

TEST_F(LinuxRegistry, PutsAwayWhatDyingProcessesLeave) {
    for (const char* left : {"store/acme/tool", "store/acme", "store"}) {
        for (const char* folder : {"/@new", "/@old"}) {
            fs::create_directory(scratch.path(left + std::string(folder)));
            scratch.write(left + std::string(folder) + "/@values", "[Half");
        }
        scratch.write(left + std::string("/@values.new"), "[Half");
    }
    EXPECT_EQ(damage(), std::vector<std::string>());
    std::vector<String> names;
    EXPECT_EQ(hive.subKeys({u"Acme"}, names), kSuccess);
    EXPECT_EQ(names, std::vector<String>{u"Tool"});
    EXPECT_EQ(set(u"Left", dword(1)), kSuccess);
    EXPECT_FALSE(fs::exists(scratch.path("store/acme/tool/@values.new")));
    EXPECT_EQ(hive.create({u"Acme", u"Other"}), kSuccess);
    EXPECT_FALSE(fs::exists(scratch.path("store/acme/@new")));
    EXPECT_EQ(hive.deleteKey(tool), kSuccess);
    EXPECT_EQ(hive.deleteKey({u"Acme", u"Other"}), kSuccess);
    EXPECT_EQ(hive.deleteKey({u"Acme"}), kSuccess);
    EXPECT_FALSE(fs::exists(scratch.path("store/acme")));
}

}  // namespace
}  // namespace quorkit::test
#endif
