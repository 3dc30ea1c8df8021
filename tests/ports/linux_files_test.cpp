// What a person finds on a Linux disk after a save.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/QuorInifile.h>
#include <quorkit/QuorLogFile.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "support/child.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

class LinuxSave : public testing::Test {
   protected:
    Long save(const std::string& name, const String& value = u"2") {
        QuorInifile ini;
        ini.setIniFileName(scratch.name(name));
        return ini.WriteKeyValue(u"S", u"k", value);
    }
    static constexpr const char* kBefore = "[S]\nk=1\n";
    static constexpr const char* kAfter = "[S]\nk=2\n";
    Scratch scratch;
};

TEST_F(LinuxSave, KeepsModeAndOwner) {
    scratch.write("s.ini", kBefore);
    ASSERT_EQ(chmod(scratch.path("s.ini").c_str(), 0646), 0);
    const bool root = geteuid() == 0;
    if (root) {
        ASSERT_EQ(chown(scratch.path("s.ini").c_str(), 12, 34), 0);
    }
    EXPECT_EQ(save("s.ini"), 1);
    EXPECT_EQ(scratch.read("s.ini"), kAfter);
    struct stat about = {};
    ASSERT_EQ(stat(scratch.path("s.ini").c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777, 0646u);
    EXPECT_EQ(about.st_uid, root ? 12u : geteuid());
    EXPECT_EQ(about.st_gid, root ? 34u : getegid());
}

TEST_F(LinuxSave, FollowsLinks) {
    fs::create_directory(scratch.path("sub"));
    scratch.write("sub/target.ini", kBefore);
    fs::create_symlink("sub/target.ini", scratch.path("a.ini"));
    fs::create_symlink(scratch.path("a.ini"), scratch.path("b.ini"));
    EXPECT_EQ(save("b.ini"), 1);
    EXPECT_TRUE(fs::is_symlink(scratch.path("a.ini")) && fs::is_symlink(scratch.path("b.ini")));
    EXPECT_EQ(scratch.read("sub/target.ini"), kAfter);

    fs::create_symlink("sub/new.ini", scratch.path("dangling.ini"));
    EXPECT_EQ(save("dangling.ini"), 1);
    EXPECT_EQ(scratch.read("sub/new.ini"), "[S]\r\nk=2\r\n");

    fs::create_symlink("loop.ini", scratch.path("loop.ini"));
    EXPECT_EQ(save("loop.ini"), 0);
}

TEST_F(LinuxSave, RefusesWhatMustNotBeWritten) {
    scratch.write("s.ini", kBefore);
    fs::permissions(scratch.path("s.ini"), fs::perms::owner_read);
    EXPECT_EQ(save("s.ini"), 0);
    fs::permissions(scratch.path("s.ini"), fs::perms::owner_all);
    fs::permissions(scratch.folder(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(save("s.ini"), 0);
    EXPECT_EQ(save("new.ini"), 0);
    fs::permissions(scratch.folder(), fs::perms::owner_all);
    EXPECT_EQ(scratch.read("s.ini"), kBefore);
    EXPECT_EQ(scratch.count(), 1u);

    fs::create_directory(scratch.path("folder.ini"));
    ASSERT_EQ(mkfifo(scratch.path("pipe.ini").c_str(), 0600), 0);
    EXPECT_EQ(save("folder.ini"), 0);
    EXPECT_EQ(save("pipe.ini"), 0);
    EXPECT_EQ(save("missing/s.ini"), 0);
}

/// Saves under a limit on the size of files, which ends a write in its middle.
int saveWithLittleRoom(const std::vector<std::string>& arguments) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    QuorInifile ini;
    ini.setIniFileName(fs::path(arguments[0]).u16string());
    return static_cast<int>(ini.WriteKeyValue(u"S", u"k", String(10000, u'x')));
}
const PartName littleRoomPart("saveWithLittleRoom", saveWithLittleRoom);

TEST_F(LinuxSave, AFullDiskLeavesTheOldContent) {
    scratch.write("s.ini", kBefore);
    for (const char* name : {"s.ini", "new.ini"}) {
        Child child("saveWithLittleRoom", {scratch.path(name).string()});
        EXPECT_EQ(child.wait(), 0);
    }
    EXPECT_EQ(scratch.read("s.ini"), kBefore);
    EXPECT_EQ(scratch.count(), 1u);
}

TEST_F(LinuxSave, TellsNamesOfOneLetterCaseApart) {
    fs::create_symlink("S.INI", scratch.path("s.ini"));  // looked for as "s.ini" it would be itself
    EXPECT_EQ(save("s.ini"), 1);
    EXPECT_EQ(scratch.read("S.INI"), "[S]\r\nk=2\r\n");
    fs::create_symlink("nowhere/x", scratch.path("B.ini"));
    fs::create_symlink("b.ini", scratch.path("a.ini"));
    EXPECT_EQ(save("a.ini"), 1);
    EXPECT_EQ(scratch.read("b.ini"), "[S]\r\nk=2\r\n");
}

TEST_F(LinuxSave, KeepsAttributes) {
    scratch.write("s.ini", kBefore);
    const std::string path = scratch.path("s.ini");
    if (setxattr(path.c_str(), "user.quorkit", "kept", 4, 0) != 0) GTEST_SKIP() << "no attributes";
    EXPECT_EQ(save("s.ini"), 1);
    char value[5] = {};
    EXPECT_EQ(getxattr(path.c_str(), "user.quorkit", value, sizeof value), 4);
    EXPECT_STREQ(value, "kept");
}

TEST_F(LinuxSave, PutsNothingInPlaceThatIsNotItsOwn) {
    scratch.write("s.ini", kBefore);
    scratch.write("victim", "victim");
    fs::create_symlink("victim", scratch.path("link"));
    fs::create_hard_link(scratch.path("victim"), scratch.path("twin"));
    Files& files = ports::native().files;
    for (const char* replacement : {"link", "twin"})
        EXPECT_NE(files.ReplaceFileA(scratch.name("s.ini"), scratch.name(replacement)), kSuccess);
    EXPECT_EQ(scratch.read("s.ini"), kBefore);
}

TEST(LinuxLog, FollowsItsNameNotItsLinks) {
    Scratch scratch;
    QuorLogFile log;
    log.setLogFileName(scratch.name("a.log"));
    log.setAutoOpenClose(false);
    log.setMaxFileSize(30);
    ASSERT_TRUE(log.OpenLogfile());
    const auto write = [&](const char16_t* text) {
        String entry = text;
        log.writeLogfileEntry(entry, eLogEntryType_Error);
    };
    for (int i = 0; i < 5; ++i) write(u"12345678");
    fs::create_hard_link(scratch.path("a.log"), scratch.path("twin"));
    EXPECT_TRUE(QuorLogFile().limitFileSize(scratch.name("a.log"), Long{30}));
    write(u"new");
    EXPECT_EQ(scratch.read("a.log"), "12345678\r\n12345678new\r\n");
    fs::rename(scratch.path("a.log"), scratch.path("a.log.1"));
    log.setLogFileName(u"/nowhere/else.log");  // the one that is open stays
    write(u"newer");
    EXPECT_EQ(scratch.read("a.log"), "newer\r\n");
    fs::create_symlink("target.log", scratch.path("link.log"));
    log.CloseLogfile();
    log.setLogFileName(scratch.name("link.log"));
    ASSERT_TRUE(log.OpenLogfile());
    for (int i = 0; i < 5; ++i) write(u"12345678");
    EXPECT_TRUE(QuorLogFile().limitFileSize(scratch.name("link.log"), Long{30}));
    EXPECT_TRUE(fs::is_symlink(scratch.path("link.log")));
    EXPECT_EQ(scratch.read("target.log"), "12345678\r\n12345678");
}

/// Adds entries under the same limit, each opening it.
int logWithLittleRoom(const std::vector<std::string>& arguments) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    QuorLogFile log;
    log.setLogFileName(fs::path(arguments[0]).u16string());
    for (int i = 0; i < 10; ++i) {
        String entry(998, u'x');
        log.writeLogfileEntry(entry, eLogEntryType_Error);
    }
    return 0;
}
const PartName logWithLittleRoomPart("logWithLittleRoom", logWithLittleRoom);

TEST(LinuxLog, AFullDiskTakesNoHalfEntry) {
    Scratch scratch;
    Child child("logWithLittleRoom", {scratch.path("a.log").string()});
    EXPECT_EQ(child.wait(), 0);
    EXPECT_EQ(scratch.read("a.log").size(), 4u * 1000);
}

TEST(LinuxLog, StartedProgramsDoNotInheritIt) {
    Scratch scratch;
    QuorLogFile log;
    log.setLogFileName(scratch.name("a.log"));
    log.setAutoOpenClose(false);
    ASSERT_TRUE(log.OpenLogfile());
    const std::string command = "ls -l /proc/self/fd > " + scratch.path("handles").string();
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string handles = scratch.read("handles");
    EXPECT_NE(handles.find("/handles"), std::string::npos);
    EXPECT_EQ(handles.find("a.log"), std::string::npos);
}

}  // namespace
}  // namespace quorkit::test
#endif
