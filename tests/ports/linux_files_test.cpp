// The state of a Linux disk after a save.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/QuorInifile.h>
#include <quorkit/QuorLogFile.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <filesystem>

#include "support/child.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

class LinuxSave : public testing::Test {
   protected:
    Long save(const std::string& name) {
        QuorInifile ini;
        ini.setIniFileName(scratch.name(name));
        return ini.WriteKeyValue(u"S", u"k", u"2");
    }
    static constexpr const char* kBefore = "[S]\nk=1\n";
    static constexpr const char* kAfter = "[S]\nk=2\n";
    Scratch scratch;
};

TEST_F(LinuxSave, KeepsModeOwnerAndAttributes) {
    scratch.write("s.ini", kBefore);
    const std::string path = scratch.path("s.ini");
    ASSERT_EQ(chmod(path.c_str(), 0646), 0);
    const bool root = geteuid() == 0;
    const uid_t user = root ? 12 : geteuid();
    const gid_t group = root ? 34 : getegid();
    ASSERT_EQ(chown(path.c_str(), user, group), 0);
    const bool attributes = setxattr(path.c_str(), "user.quorkit", "kept", 4, 0) == 0;
    EXPECT_EQ(save("s.ini"), 1);
    EXPECT_EQ(scratch.read("s.ini"), kAfter);
    struct stat about = {};
    ASSERT_EQ(stat(path.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777, 0646u);
    EXPECT_TRUE(about.st_uid == user && about.st_gid == group);
    if (!attributes) GTEST_SKIP() << "no attributes";
    char value[5] = {};
    EXPECT_EQ(getxattr(path.c_str(), "user.quorkit", value, sizeof value), 4);
    EXPECT_STREQ(value, "kept");
}

TEST_F(LinuxSave, FollowsLinksAlsoOfOneLetterCaseApart) {
    fs::create_directory(scratch.path("sub"));
    scratch.write("sub/target.ini", kBefore);
    fs::create_symlink("sub/target.ini", scratch.path("a.ini"));
    fs::create_symlink(scratch.path("a.ini"), scratch.path("b.ini"));
    EXPECT_EQ(save("b.ini"), 1);
    EXPECT_TRUE(fs::is_symlink(scratch.path("a.ini")) && fs::is_symlink(scratch.path("b.ini")));
    EXPECT_EQ(scratch.read("sub/target.ini"), kAfter);

    fs::create_symlink("nowhere/x", scratch.path("D.ini"));
    const std::pair<const char*, const char*> dangling[] = {
        {"new.ini", "sub/new.ini"},
        {"s.ini", "S.INI"},  // as "s.ini" the search would find the file itself
        {"c.ini", "d.ini"}};
    for (const auto& [link, target] : dangling) {
        fs::create_symlink(target, scratch.path(link));
        EXPECT_EQ(save(link), 1) << link;
        EXPECT_EQ(scratch.read(target), "[S]\r\nk=2\r\n");
    }
    fs::create_symlink("loop.ini", scratch.path("loop.ini"));
    ASSERT_EQ(mkfifo(scratch.path("pipe.ini").c_str(), 0600), 0);
    for (const char* name : {"loop.ini", "pipe.ini", "sub"}) EXPECT_EQ(save(name), 0) << name;
}

/// Saves or logs with a limit on the size of files, so that a write fails half way.
int writeWithLittleRoom(const std::vector<std::string>& arguments) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    const fs::path path = arguments[0];
    if (path.extension() == ".ini") {
        QuorInifile ini;
        ini.setIniFileName(path.u16string());
        return static_cast<int>(ini.WriteKeyValue(u"S", u"k", String(10000, u'x')));
    }
    QuorLogFile log;
    log.setLogFileName(path.u16string());
    for (int i = 0; i < 10; ++i) {
        String entry(998, u'x');
        log.writeLogfileEntry(entry, eLogEntryType_Error);
    }
    return 0;
}
const PartName littleRoomPart("writeWithLittleRoom", writeWithLittleRoom);

TEST_F(LinuxSave, AFullDiskLeavesTheOldContentAndTakesNoHalfLogEntry) {
    scratch.write("s.ini", kBefore);
    for (const char* name : {"s.ini", "new.ini", "a.log"}) {
        Child child("writeWithLittleRoom", {scratch.path(name).string()});
        EXPECT_EQ(child.wait(), 0);
    }
    EXPECT_EQ(scratch.read("s.ini"), kBefore);
    EXPECT_EQ(scratch.read("a.log").size(), 4u * 1000);
    EXPECT_EQ(scratch.count(), 2u);
}

}  // namespace
}  // namespace quorkit::test
#endif
