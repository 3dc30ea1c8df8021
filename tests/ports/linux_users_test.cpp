// What an ordinary user can do, and what other users can do to him. Only the superuser can run
// this.
#ifdef __linux__
#include <gmock/gmock.h>
#include <grp.h>
#include <linux/capability.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/QuorInifile.h>
#include <quorkit/QuorLogFile.h>
#include <quorkit/errors.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>

#include "linux/folder_hive.h"
#include "linux/linux_names.h"
#include "support/child.h"
#include "support/errors.h"
#include "support/scratch.h"
#include "support/shell.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kUser = 65534;
constexpr uid_t kOther = 65533;

void become(uid_t user) {
    if (setgroups(0, nullptr) != 0 || setgid(user) != 0 || setuid(user) != 0) _exit(99);
    prctl(PR_SET_DUMPABLE, 1);  // like a program started by that user
}

Long saveAs(const String& name) {
    if (name.ends_with(u".ini")) {
        QuorInifile ini;
        ini.setIniFileName(name);
        return 1 - ini.WriteKeyValue(u"S", u"k", u"2");
    }
    if (name.ends_with(u".log")) return QuorLogFile().limitFileSize(name, Long{100}) ? 0 : 1;
    return errorOf([&] {
        const std::string bytes = "saved";
        GQuorFile().SaveByteArrayToFile(
            Array<Byte>(std::vector<Byte>(bytes.begin(), bytes.end()), 0), name);
    });
}

/// Saves the files as an ordinary user. Returns the number and the error of the first failure.
int saveAsUser(const std::vector<std::string>& names) {
    become(kUser);
    for (std::size_t i = 0; i < names.size(); ++i)
        if (const Long error = saveAs(fs::path(names[i]).u16string()))
            return static_cast<int>(100 * i + error);
    return 0;
}
const PartName saveAsUserPart("saveAsUser", saveAsUser);

/// Makes a key in that store as a superuser without one of the usual rights.
int makeKeyWithout(const std::vector<std::string>& arguments) {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct rights[2] = {};
    if (syscall(SYS_capget, &header, rights) != 0) return 98;
    rights[0].effective &= ~(1u << std::stoi(arguments[1]));
    if (syscall(SYS_capset, &header, rights) != 0) return 99;
    native::FolderHive hive([&] { return arguments[0]; }, native::kForUser);
    return static_cast<int>(hive.create({u"Acme"}));
}
const PartName makeKeyWithoutPart("makeKeyWithout", makeKeyWithout);

class LinuxUsers : public testing::Test {
   protected:
    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "only the superuser can set this up";
        own(".", kUser, kUser, 0755);
    }
    void own(const std::string& name, uid_t user, gid_t group, mode_t mode) {
        EXPECT_EQ(chown(scratch.path(name).c_str(), user, group), 0);
        EXPECT_EQ(chmod(scratch.path(name).c_str(), mode), 0);
    }
    /// Makes one file of each kind, and notes its content after saving.
    void put(uid_t user, gid_t group, mode_t mode) {
        scratch.write("a.ini", "[S]\nk=1\n");
        scratch.write("a.bin", "old");
        std::string log;
        for (int i = 0; i < 50; ++i) log += "entry\r\n";
        scratch.write("a.log", log);
        for (const char* name : {"a.ini", "a.bin", "a.log"}) own(name, user, group, mode);
    }
    int save(const std::vector<std::string>& names) {
        std::vector<std::string> paths;
        for (const std::string& name : names) paths.push_back(scratch.path(name).string());
        return Child("saveAsUser", paths).wait();
    }
    int saveAll() { return save({"a.ini", "a.bin", "a.log"}); }
    struct stat about(const std::string& name) {
        struct stat result = {};
        EXPECT_EQ(stat(scratch.path(name).c_str(), &result), 0);
        return result;
    }
    void expectSaved() {
        EXPECT_EQ(scratch.read("a.ini"), "[S]\nk=2\n");
        EXPECT_EQ(scratch.read("a.bin"), "saved");
        EXPECT_LE(scratch.read("a.log").size(), 100u);
        EXPECT_EQ(scratch.count(), 3u);
    }
    Scratch scratch;
};

TEST_F(LinuxUsers, SaveWithTheRightsThatCanBeKept) {
    struct Row {
        uid_t owner;
        gid_t group;
        mode_t mode;
        mode_t folder;  ///< rights of the folder, which belongs to the superuser
        mode_t after;
    };
    constexpr mode_t inPlace = 0;  // if the folder allows nothing else
    for (const Row& row : {Row{kUser, 0, 0644, 0777, 0644}, Row{0, 0, 0666, 0777, 0666},
                           Row{kUser, 0, 0664, 0777, 0644}, Row{kOther, kUser, 0660, 0777, 0660},
                           Row{0, 0, 0666, 0755, inPlace}, Row{0, 0, 0666, 01777, inPlace}}) {
        own(".", 0, 0, row.folder);
        put(row.owner, row.group, row.mode);
        const ino_t before = about("a.ini").st_ino;
        EXPECT_EQ(saveAll(), 0);
        expectSaved();
        EXPECT_EQ(about("a.ini").st_ino == before, row.after == inPlace);
        for (const char* name : {"a.ini", "a.bin", "a.log"}) {
            EXPECT_EQ(about(name).st_uid, row.after == inPlace ? row.owner : kUser);
            EXPECT_EQ(about(name).st_gid, row.after == inPlace ? row.group : kUser);
            EXPECT_EQ(about(name).st_mode & 07777, row.after == inPlace ? row.mode : row.after);
        }
    }
    own(".", 0, 0, 0755);
    EXPECT_EQ(save({"new.ini"}), 1);
    EXPECT_EQ(save({"new.bin"}), 75);
}

TEST_F(LinuxUsers, FollowNoLinksOfOthersInAFolderForAll) {
    own(".", 0, 0, 01777);
    const auto link = [&](const char* name, uid_t owner) {
        fs::create_symlink("target" + fs::path(name).extension().string(), scratch.path(name));
        EXPECT_EQ(lchown(scratch.path(name).c_str(), owner, owner), 0);
    };
    link("others.ini", kOther);
    link("others.bin", kOther);
    link("own.ini", kUser);
    link("system.bin", 0);
    EXPECT_EQ(save({"others.ini"}), 1);
    EXPECT_EQ(save({"others.bin"}), 75);
    EXPECT_EQ(scratch.count(), 4u);
    EXPECT_EQ(save({"own.ini", "system.bin"}), 0);
    EXPECT_EQ(scratch.read("target.bin"), "saved");
}

/// Replaces a file when somebody else has already taken the name of the other file.
int replaceBySquatted(const std::vector<std::string>& names) {
    become(kUser);
    Files& files = ports::native().files;
    Handle lock = Handle::Invalid;
    Handle made = Handle::Invalid;
    ErrorCode code = files.LockForChange(fs::path(names[0]).u16string(), lock);
    if (code == kSuccess)
        code = files.CreateReplacement(lock, fs::path(names[1]).u16string(), made);
    if (code == kSuccess) code = files.WriteFile(made, "new");
    if (code == kSuccess) code = files.Replace(lock, made);
    if (code == kSuccess) code = files.CloseHandle(made);
    if (code == kSuccess) code = files.CloseHandle(lock);
    return static_cast<int>(code);
}
const PartName replaceBySquattedPart("replaceBySquatted", replaceBySquatted);

TEST_F(LinuxUsers, AreNotStoppedByWhoSquatsTheNameForWork) {
    own(".", 0, 0, 01777);
    scratch.write("f", "old");
    scratch.write("work", "other's");
    own("f", kUser, kUser, 0644);
    own("work", kOther, kOther, 0600);
    Child child("replaceBySquatted", {scratch.path("f").string(), scratch.path("work").string()});
    EXPECT_EQ(child.wait(), 0);
    EXPECT_EQ(scratch.read("f"), "new");
    EXPECT_EQ(scratch.read("work"), "other's");
    EXPECT_EQ(scratch.count(), 2u);
}

/// Saves a file on which another one is mounted; 77 when mounting is not possible.
int saveMountPoint(const std::vector<std::string>& names) {
    const char* const path = names[0].c_str();
    if (unshare(CLONE_NEWNS) != 0 ||
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount(path, path, nullptr, MS_BIND, nullptr) != 0)
        return 77;
    return static_cast<int>(saveAs(fs::path(path).u16string()));
}
const PartName saveMountPointPart("saveMountPoint", saveMountPoint);

// The superuser makes keys as their owner. If he gave them away afterwards, the user could not use
// them until then, and after a kill never.
TEST_F(LinuxUsers, OwnFromTheStartTheKeysThatTheSuperuserMakes) {
    const auto make = [&](int without) {
        const std::string store = scratch.path("store").string();
        return Child("makeKeyWithout", {store, std::to_string(without)}).wait();
    };
    EXPECT_EQ(make(CAP_SETUID), static_cast<int>(kAccessDenied));
    EXPECT_EQ(scratch.count(), 0u);
    EXPECT_EQ(make(CAP_CHOWN), static_cast<int>(kSuccess));
    for (const char* name : {"store", "store/@lock", "store/acme", "store/acme/@values"})
        EXPECT_EQ(about(name).st_uid, kUser) << name;
}

TEST_F(LinuxUsers, SaveAFileThatIsAMountPoint) {
    put(0, 0, 0644);
    for (const char* name : {"a.ini", "a.bin", "a.log"}) {
        const int result = Child("saveMountPoint", {scratch.path(name).string()}).wait();
        if (result == 77) GTEST_SKIP() << "nothing can be mounted here";
        EXPECT_EQ(result, 0) << name;
    }
    expectSaved();
}

/// Lists a folder that may be read but not searched.
int listUnsearchable(const std::vector<std::string>& arguments) {
    become(kUser);
    const String folder = fs::path(arguments[0]).u16string();
    const auto found = [&](const char16_t* attributes, const Optional<Variant>& from) {
        Array<String> names;
        return GQuorFile().getFilesFromDirectoryEx(folder, names, String(u"*.txt"), false, from, {},
                                                   String(attributes));
    };
    if (found(u"", {}) != 2 || found(u"-H+A+R", {}) != 2 || found(u"+H", {}) != 0) return 2;
    return found(u"-H", Variant(u"2090-01-01")) == 0 ? 0 : 3;
}
const PartName listUnsearchablePart("listUnsearchable", listUnsearchable);

TEST_F(LinuxUsers, ListFoldersThatCannotBeSearched) {
    for (const char* name : {"a.txt", "b.txt", "c.bin"}) scratch.write(name, "");
    own(".", 0, 0, 0744);
    EXPECT_EQ(Child("listUnsearchable", {scratch.folder().string()}).wait(), 0);
}

TEST_F(LinuxUsers, CannotLendAProgramOfOthersTheirToolsAndStores) {
    own(".", 0, 0, 0755);
    const std::string program = scratch.path("quorkit").string();
    fs::copy_file(QUORKIT_CLI, program);
    own("quorkit", kOther, kOther, 04755);
    fs::create_directory(scratch.path("mine"));
    scratch.write("mine/tool", "#!/bin/sh\nexit 3\n");
    own("mine/tool", kUser, kUser, 0755);
    own("mine", kUser, kUser, 0777);
    const auto call = [&](const std::string& rest) {
        const std::string mine = scratch.path("mine").string();
        return outputOf("cd " + mine + " && XDG_DATA_HOME=" + mine + " HOME=" + mine + " PATH=" +
                        mine + ":$PATH setpriv --reuid=65534 --regid=65534 --clear-groups " +
                        program + " call " + rest);
    };
    ASSERT_THAT(call("GQuorStrings.LPad 0 7 3"), testing::HasSubstr("007"));
    EXPECT_THAT(call("GQuorRegistry.Reg_WriteDWordValue 'HKCU\\Software' v 1"),
                testing::HasSubstr("False"));
    EXPECT_FALSE(fs::exists(scratch.path("mine/quorkit")));
    EXPECT_THAT(call("GQuorProgram.ExecuteAndWaitEx tool '' true 10"),
                testing::Not(testing::HasSubstr("3\n")));
    EXPECT_THAT(call("GQuorProgram.ExecuteAndWaitEx 'sh -c \"exit 3\"' '' true 10"),
                testing::HasSubstr("3"));
}

// --- Locks that others keep ---

TEST(LinuxLocks, StopASaveAfterAWhileAndNoLog) {
    Scratch scratch;
    scratch.write("a.ini", "[S]\nk=1\n");
    for (const char* name : {"a.bin", "a.log"})
        fs::create_hard_link(scratch.path("a.ini"), scratch.path(name));
    const int held = open(scratch.path("a.ini").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    ports::takeReason();
    for (const auto& [name, error] : {std::pair{"a.ini", 1}, {"a.bin", 70}}) {
        EXPECT_EQ(saveAs(scratch.name(name)), error);
        EXPECT_THAT(ports::takeReason(),
                    testing::MatchesRegex(".*" + std::string(name) + " is locked by .+"));
    }
    QuorLogFile log;
    log.setLogFileName(scratch.name("a.log"));
    log.setAppend(true);
    const auto start = std::chrono::steady_clock::now();
    String entry = u"x";
    for (int i = 0; i < 100; ++i) log.writeLogfileEntry(entry, eLogEntryType_Error);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
    EXPECT_THAT(ports::takeReason(), testing::HasSubstr("locked by this program"));
    EXPECT_EQ(scratch.read("a.ini").size(), 8u + 100 * 3);
    close(held);
}

}  // namespace
}  // namespace quorkit::test
#endif
