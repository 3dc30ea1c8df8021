#include <gtest/gtest.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

#include <numeric>
#include <set>

#include "support/errors.h"
#include "support/late.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

class Content : public testing::Test {
   protected:
    static Variant bytes(const std::string& text, Long lower = 1) {
        return Array<Byte>(std::vector<Byte>(text.begin(), text.end()), lower);
    }

    Scratch scratch;
    String f = scratch.name("f");
    MemoryPorts memory;
    FaultyFiles files{ports::native().files};
    Ports ports{files, memory.drives, memory.system, memory.host};
    Late file{u"GQuorFile", ports};
};

TEST_F(Content, IsWrittenAndRead) {
    std::string all(256, '\0');
    std::iota(all.begin(), all.end(), '\0');
    for (const std::string& content : {std::string("longer than the next\r\n"), std::string("abc"),
                                       all, std::string(3'000'000, 'x')}) {
        file(u"SaveByteArrayToFile", {bytes(content, -7), f});
        EXPECT_EQ(scratch.read("f"), content);
        EXPECT_EQ(file.call(u"LoadFileToByteArray", {f, bytes("old", 0)}).arguments[1],
                  bytes(content));
    }
    constexpr auto noOrder = static_cast<std::size_t>(-1);
    files.answer(noOrder, kSuccess, "ReadFile");
    file(u"LoadFileToByteArray", {f, bytes("")});
    EXPECT_EQ(files.calls(), 1u);  // however large it is
    files.answer(noOrder, kSuccess, "WriteFile");
    file(u"SaveByteArrayToFile", {bytes(all), f});
    EXPECT_EQ(files.calls(), 1u);
    file(u"SaveByteArrayToFile", {bytes(""), f});
    EXPECT_EQ(fs::file_size(scratch.path("f")), 0u);
    EXPECT_EQ(scratch.count(), 1u);
}

TEST_F(Content, ThatCannotBeReadIsAnErrorAndLeavesTheArray) {
    scratch.write("empty", "");
    scratch.write("huge", "");
    fs::resize_file(scratch.path("huge"), std::uintmax_t{1} << 31);  // takes no room
    const Array<Byte> old(std::vector<Byte>{1, 2}, 5);
    GQuorFile direct(ports);  // by name, a failing call gives nothing back
    const auto expectError = [&](const String& name, Long error) {
        Array<Byte> array = old;
        EXPECT_EQ(errorOf([&] { direct.LoadFileToByteArray(name, array); }), error);
        EXPECT_EQ(array, old);
    };
    expectError(f, 53);
    expectError(scratch.name("no") + u"\\f", 76);
    expectError(scratch.name(""), 75);
    expectError(f + String(1, u'\0'), 52);
    expectError(u"", 52);
    expectError(scratch.name("empty"), 9);
    expectError(scratch.name("huge"), 6);

    scratch.write("f", "abc");
    const ErrorCode codes[] = {kTooManyOpenFiles, kSharingViolation, kAccessDenied,
                               kGeneralFailure};
    const Long errors[] = {67, 70, 75, 57};
    for (const char* operation : {"CreateFile", "GetFileSize", "ReadFile"})
        for (std::size_t i = 0; i < std::size(codes); ++i) {
            files.answer(1, codes[i], operation);
            expectError(f, errors[i]);
        }
}

TEST_F(Content, ThatCannotBeWrittenIsAnErrorAndLeavesTheFile) {
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
    ASSERT_EQ(memory.files.LockFileA(u"f", lock, Wait::Forever), kSuccess);
    Late inMemory(u"GQuorFile", memory.ports);
    inMemory.expect(u"SaveByteArrayToFile", {Row({bytes("x"), u"f"}, Error{70})});
    memory.files.CloseHandle(lock);
    EXPECT_EQ(scratch.read("f"), "old");
}

TEST_F(Content, IsOldOrNewWhateverFails) {
    file(u"SaveByteArrayToFile", {bytes("new"), f});
    const std::size_t operations = files.calls();
    for (std::size_t failing = 1; failing <= operations; ++failing) {
        scratch.write("f", "old");
        files.answer(failing, kDiskFull);
        const Long error = file.errorOf(u"SaveByteArrayToFile", {bytes("new"), f});
        EXPECT_TRUE(error == 0 || error == 61) << failing;
        EXPECT_EQ(scratch.read("f"), error == 0 ? "new" : "old") << failing;
        files.answer(static_cast<std::size_t>(-1), kSuccess);
        file(u"SaveByteArrayToFile", {bytes("new"), f});  // what was left is not in the way
        EXPECT_EQ(scratch.read("f"), "new") << failing;
        EXPECT_EQ(scratch.count(), 1u) << failing;
    }
}

TEST_F(Content, HasATemporaryFile) {
    const String folder = memory.system.temporaryFolder = scratch.name("");
    const auto make = [&](const char16_t* prefix) {
        return file(u"CreateTempFileName", {prefix}).get<String>();
    };
    std::set<String> names;
    while (names.size() < 300) ASSERT_TRUE(names.insert(make(u"report")).second);
    EXPECT_EQ(scratch.count(), 300u);
    for (const String& name : names) {
        EXPECT_TRUE(name.starts_with(folder + u"rep") && name.ends_with(u".TMP"));
        const String number = name.substr(folder.size() + 3, name.size() - folder.size() - 7);
        EXPECT_TRUE(number.size() <= 4 &&
                    number.find_first_not_of(u"0123456789ABCDEF") == String::npos);
        EXPECT_EQ(fs::file_size(fs::path(name)), 0u);
#ifndef _WIN32
        EXPECT_EQ(fs::status(fs::path(name)).permissions(),
                  fs::perms::owner_read | fs::perms::owner_write);
#endif
    }
    for (const char16_t* good : {u"", u"abc\\d"}) EXPECT_NE(make(good), u"");
    for (const char16_t* bad : {u"..\\", u"a/b", u"C:"}) EXPECT_EQ(make(bad), u"");
    files.answer(1, kFileExists, "CreateFile");
    EXPECT_NE(make(u"x"), u"");
    files.answer(0, kFileExists, "CreateFile");
    EXPECT_EQ(make(u"x"), u"");
    EXPECT_EQ(files.calls(), 65536u);
    files.answer(static_cast<std::size_t>(-1), kSuccess);
    for (const String& none : {String(), String(512, u'x'), scratch.name("no") + u"\\"}) {
        memory.system.temporaryFolder = none;
        EXPECT_EQ(make(u"x"), u"");
    }
}

}  // namespace
}  // namespace quorkit::test
