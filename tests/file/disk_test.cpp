#include <gtest/gtest.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

#include <numeric>
#include <set>
#include <thread>

#include "support/errors.h"
#include "support/late.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

constexpr auto kNever = static_cast<std::size_t>(-1);

/// Real files, whose operations can be made to fail.
class Disk : public testing::Test {
   protected:
    static Variant bytes(const std::string& text, Long lower = 1) {
        return Array<Byte>(std::vector<Byte>(text.begin(), text.end()), lower);
    }

    Scratch scratch;
    String f = scratch.name("f");
    MemoryPorts memory;
    FaultyPorts ports{memory.ports.with(ports::native().files, ports::native().folders)};
    Late file{u"GQuorFile", ports};
};

TEST_F(Disk, HasFilesAndFolders) {
    fs::create_directories(scratch.path("full/empty"));
    scratch.write("full/f.txt", "");
    const String full = scratch.name("full");
    file.expect({u"FileExists", u"PathExists", u"IsDirectoryEmpty"},
                {Row({full}, {true, true, false}), Row({full + u"\\"}, {true, true, false}),
                 Row({full + u"\\empty"}, {true, true, true}),
                 Row({full + u"\\empty\\"}, {true, true, true}),
                 Row({full + u"\\f.txt"}, {true, false, false}), Row({full + u"\\none"}, false),
                 Row({full + u"\\none\\none"}, false), Row({full + String(u"\0", 1)}, false),
                 Row({u""}, false)});
    file.expect(u"PathExists",
                {Row({full + u"\\*"}, true), Row({full + u"\\e*"}, true),
                 Row({full + u"\\*.txt"}, false), Row({full + u"\\x*"}, false),
                 Row({full + u"\\*\\empty"}, false), Row({u"\\"}, false), Row({u"C"}, false)});
    ports.answer(1, kGeneralFailure, "NextEntry");  // nobody knows whether more follow
    file.expect(u"IsDirectoryEmpty", {Row({full + u"\\empty"}, false)});
}

TEST_F(Disk, MakesFoldersAndThoseAroundThem) {
    scratch.write("f", "");
    const fs::path before = fs::current_path();
    fs::current_path(scratch.folder());  // the folder of a bare name
    const String top = scratch.name("a");
    file.expect(u"mkDirEx",
                {Row({top + u"\\b\\c"}, true), Row({top + u"\\b\\c"}, true),
                 Row({top + u"\\d\\e\\"}, true), Row({scratch.name("f")}, false),
                 Row({scratch.name("f") + u"\\x"}, false), Row({u""}, false),
                 Row({u"Q:\\a\\b"}, false), Row({top + u"\\" + String(300, u'x')}, false),
                 Row({u"bare"}, true), Row({u"x"}, true), Row({u"f"}, false)});
    file.expect(u"PathExists", {Row({u"bar*"}, true), Row({u"*re"}, true)});
    fs::current_path(before);
    for (const char* made : {"a/b/c", "a/d/e", "bare"})
        EXPECT_TRUE(fs::is_directory(scratch.path(made))) << made;
}

TEST_F(Disk, WritesAndReadsContentAtOnce) {
    std::string all(256, '\0');
    std::iota(all.begin(), all.end(), '\0');
    for (const std::string& content : {std::string("longer than the next\r\n"), std::string("abc"),
                                       all, std::string(3'000'000, 'x')}) {
        ports.answer(kNever, kSuccess, "WriteFile");
        file(u"SaveByteArrayToFile", {bytes(content, -7), f});
        EXPECT_EQ(ports.calls(), 1u);
        EXPECT_EQ(scratch.read("f"), content);
        ports.answer(kNever, kSuccess, "ReadFile");
        file.expect(u"LoadFileToByteArray", {Row({f, bytes("old", 0)}, {Empty{}, bytes(content)})});
        EXPECT_EQ(ports.calls(), 1u);
    }
    file(u"SaveByteArrayToFile", {bytes(""), f});
    EXPECT_EQ(fs::file_size(scratch.path("f")), 0u);
    EXPECT_EQ(scratch.count(), 1u);
}

TEST_F(Disk, LeavesTheArrayWhenContentCannotBeRead) {
    scratch.write("empty", "");
    scratch.write("huge", "");
    scratch.write("full", "abc");
    fs::resize_file(scratch.path("huge"), std::uintmax_t{1} << 31);  // takes no room
    GQuorFile direct(ports);  // a failing call by name would change no argument
    const auto expectError = [&](const String& name, Long error) {
        const Array<Byte> old(std::vector<Byte>{1, 2}, 5);
        Array<Byte> array = old;
        EXPECT_EQ(errorOf([&] { direct.LoadFileToByteArray(name, array); }), error);
        EXPECT_EQ(array, old);
    };
    using Named = std::pair<String, Long>;
    for (const auto& [name, error] :
         {Named(f, 53), Named(scratch.name("no") + u"\\f", 76), Named(scratch.name(""), 75),
          Named(f + String(1, u'\0'), 52), Named(u"", 52), Named(scratch.name("empty"), 9),
          Named(scratch.name("huge"), 6)})
        expectError(name, error);
    using Failure = std::pair<ErrorCode, Long>;
    for (const char* operation : {"Open", "GetFileSize", "ReadFile"})
        for (const auto& [code, error] :
             {Failure(kTooManyOpenFiles, 67), Failure(kSharingViolation, 70),
              Failure(kAccessDenied, 75), Failure(kGeneralFailure, 57)}) {
            ports.answer(1, code, operation);
            expectError(scratch.name("full"), error);
        }
}

TEST_F(Disk, LeavesTheFileWhenContentCannotBeWritten) {
    scratch.write("f", "old");
    file.expect(
        u"SaveByteArrayToFile",
        {Row({Array<Byte>(), f}, Error{9}), Row({Array<Byte>({0, 1}, {0, 1}), f}, Error{9}),
         Row({bytes("x"), f + u"\\no\\f"}, Error{76}),
         Row({bytes("x"), scratch.name("no") + u"\\f"}, Error{76}),
         Row({bytes("x"), scratch.name("")}, Error{75}), Row({bytes("x"), u""}, Error{52})});
    fs::permissions(scratch.path("f"), fs::perms::owner_read);
    file.expect(u"SaveByteArrayToFile", {Row({bytes("x"), f}, Error{75})});
    fs::permissions(scratch.path("f"), fs::perms::owner_all);
    Handle lock = Handle::Invalid;
    ASSERT_EQ(memory.files.LockForChange(u"f", lock, Wait::Patiently), kSuccess);
    Late(u"GQuorFile", memory.ports)
        .expect(u"SaveByteArrayToFile", {Row({bytes("x"), u"f"}, Error{70})});
    memory.files.CloseHandle(lock);
    EXPECT_EQ(scratch.read("f"), "old");
}

TEST_F(Disk, HasTemporaryFiles) {
    const String folder = memory.system.temporaryFolder = scratch.name("");
    const auto make = [&](const char16_t* prefix) {
        return file(u"CreateTempFileName", {prefix}).get<String>();
    };
    std::set<String> names;
    while (names.size() < 300) ASSERT_TRUE(names.insert(make(u"report")).second);
    EXPECT_EQ(scratch.count(), 300u);
    for (const String& name : names) {
        const auto number = name.find_first_not_of(u"0123456789ABCDEF", folder.size() + 3);
        EXPECT_TRUE(name.starts_with(folder + u"rep") && name.substr(number) == u".TMP" &&
                    number <= folder.size() + 7);
        EXPECT_EQ(fs::file_size(fs::path(name)), 0u);
#ifndef _WIN32
        EXPECT_EQ(fs::status(fs::path(name)).permissions(),
                  fs::perms::owner_read | fs::perms::owner_write);
#endif
    }
    for (const char16_t* good : {u"", u"abc\\d"}) EXPECT_NE(make(good), u"");
    for (const char16_t* bad : {u"..\\", u"a/b", u"C:"}) EXPECT_EQ(make(bad), u"");
    ports.answer(1, kFileExists, "Open");
    EXPECT_NE(make(u"x"), u"");
    ports.answer(0, kFileExists, "Open");
    EXPECT_EQ(make(u"x"), u"");
    EXPECT_EQ(ports.calls(), 65536u);
    ports.answer(kNever, kSuccess);
    for (const String& none : {String(), String(512, u'x'), scratch.name("no") + u"\\"}) {
        memory.system.temporaryFolder = none;
        EXPECT_EQ(make(u"x"), u"");
    }
}

TEST_F(Disk, ListsAFolderThatChangesAndADeepOne) {
    std::string deep;
    for (int i = 0; i < 40; ++i) fs::create_directory(scratch.path(deep += "x/"));
    scratch.write(deep + "stays deep", "");
    for (int i = 0; i < 200; ++i) scratch.write("stays" + std::to_string(i), "");
    const std::jthread other([&](const std::stop_token& done) {
        for (int i = 0; !done.stop_requested(); i = (i + 1) % 300) {
            const std::string name = "goes" + std::to_string(i);
            std::error_code ignored;
            if (!fs::remove(scratch.path(name), ignored)) scratch.write(name, "");
        }
    });
    for (int i = 0; i < 100; ++i) {
        file.expect(u"getFilesFromDirectoryEx", {Row({scratch.name(""), Array<String>(), u"stays*",
                                                      false, u"9999-01-01", u"2020-01-01", u"-R"},
                                                     Long{200})});
        file.expect(u"GetFilesFromDirectory3",
                    {Row({scratch.name(""), u"stays*", true, true, Array<String>()}, Long{201})});
    }
}

}  // namespace
}  // namespace quorkit::test
