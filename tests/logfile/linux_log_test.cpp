// Cases that only Linux has: forks, files that others move, links.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/QuorLogFile.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <map>
#include <sstream>
#include <thread>

#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

class LinuxLog : public testing::Test {
   protected:
    LinuxLog() {
        log.setLogFileName(scratch.name("a.log"));
        log.setAppend(true);
    }
    void write(String entry, int count = 1) {
        for (int i = 0; i < count; ++i) log.writeLogfileEntry(entry, eLogEntryType_Error);
    }
    Scratch scratch;
    QuorLogFile log;
};

TEST_F(LinuxLog, AForkedChildGoesOnByItself) {
    for (const bool keptOpen : {false, true}) {
        scratch.write("a.log", "");
        log.setAutoOpenClose(!keptOpen);
        if (keptOpen) log.OpenLogfile();
        write(u"p");
        const pid_t child = fork();
        if (child == 0) {
            write(String(3000, u'c'), 500);
            log.CloseLogfile();
            _exit(0);
        }
        write(u"p", 500);
        waitpid(child, nullptr, 0);
        write(u"p", 500);
        std::map<std::string, int> found;
        std::istringstream lines(scratch.read("a.log"));
        for (std::string line; std::getline(lines, line);) ++found[line];
        EXPECT_EQ(found, (std::map<std::string, int>{{"p\r", 1001},
                                                     {std::string(3000, 'c') + '\r', 500}}));
        EXPECT_EQ(QuorLogFile().limitFileSize(scratch.name("a.log"), Long{4000}), !keptOpen);
    }
}

TEST_F(LinuxLog, FollowsItsNameNotItsLinksAndIsNotInherited) {
    log.setAutoOpenClose(false);
    log.setMaxFileSize(30);
    ASSERT_TRUE(log.OpenLogfile());
    const std::string command = "ls -l /proc/self/fd > " + scratch.path("handles").string();
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string handles = scratch.read("handles");
    EXPECT_NE(handles.find("/handles"), std::string::npos);
    EXPECT_EQ(handles.find("a.log"), std::string::npos);

    fs::create_hard_link(scratch.path("a.log"), scratch.path("twin"));
    write(u"12345678", 5);
    EXPECT_TRUE(QuorLogFile().limitFileSize(scratch.name("a.log"), Long{30}));
    write(u"new");
    EXPECT_EQ(scratch.read("a.log"), "12345678\r\n12345678\r\nnew\r\n");
    fs::rename(scratch.path("a.log"), scratch.path("a.log.1"));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // see Files::Append
    log.setLogFileName(u"/nowhere/else.log");                    // the open file stays
    write(u"newer");
    EXPECT_EQ(scratch.read("a.log"), "newer\r\n");
    fs::remove(scratch.path("a.log"));
    write(u"newest");
    EXPECT_EQ(scratch.read("a.log"), "newest\r\n");
    fs::create_symlink("target.log", scratch.path("link.log"));
    log.CloseLogfile();
    log.setLogFileName(scratch.name("link.log"));
    ASSERT_TRUE(log.OpenLogfile());
    write(u"12345678", 5);
    EXPECT_TRUE(QuorLogFile().limitFileSize(scratch.name("link.log"), Long{30}));
    EXPECT_TRUE(fs::is_symlink(scratch.path("link.log")));
    EXPECT_EQ(scratch.read("target.log"), "12345678\r\n12345678");
}

}  // namespace
}  // namespace quorkit::test
#endif
