// What started programs inherit, and what they leave behind.
#ifdef __linux__
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <quorkit/GQuorProgram.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/processes.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "linux/name_text.h"
#include "support/child.h"
#include "support/environment.h"
#include "support/scratch.h"
#include "support/shell.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

Long run(const String& line, Long timeOut = 0) {
    return GQuorProgram().ExecuteAndWaitEx(line, u"", true, timeOut);
}

class LinuxProcesses : public testing::Test {
   protected:
    /// Makes a program that stores its words, each on a line between "<" and ">", and ends with 5.
    void put(const std::string& tool) {
        scratch.write(tool, "#!/bin/sh\nprintf '<%s>\\n' \"$@\" > '" +
                                scratch.path("words").string() + "'\nexit 5\n");
        fs::permissions(scratch.path(tool), fs::perms::owner_all);
    }
    void TearDown() override { EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "one is left"; }

    Scratch scratch;
    const Variable path{"PATH", scratch.folder().string() + ":" + std::getenv("PATH")};
    Processes& processes = ports::native().processes;
};

TEST_F(LinuxProcesses, AreFoundByTheirNames) {
    put("my tool");
    for (const String& name : {scratch.name("my tool"), u"\"" + scratch.name("MY TOOL") + u"\"",
                               u"C:" + scratch.name("My tool"), String(u"my tool")}) {
        EXPECT_EQ(run(name + u" a \"b c\" " + native::textOf("\xE4")), 5);
        EXPECT_EQ(scratch.read("words"), "<a>\n<b c>\n<\xE4>\n");
    }
}

/// Makes the system calls for descriptors of processes fail, as on an old kernel.
void forgetProcessDescriptors() {
    sock_filter rules[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                           BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_pidfd_open, 0, 1),
                           BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
                           BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog filter = {std::size(rules), rules};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter);
}
// A process that blocks and ignores signals. It may also ignore its children, so that their exit
// codes are lost. Two files show what a program inherits of that.
const PartName kHost("host", [](const std::vector<std::string>& words) {
    const bool ignores = words.at(0) == "ignores";
    const String folder(words.at(1).begin(), words.at(1).end());
    if (!ignores) forgetProcessDescriptors();
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, nullptr);
    std::signal(ignores ? SIGCHLD : SIGPIPE, SIG_IGN);
    const int open = dup(STDIN_FILENO);
    const bool waits =
        run(u"sh -c \"exit 3\"") == (ignores ? -1 : 3) && run(u"sleep 100", 1) == -9999;
    // Bits of the first 28 signals that are blocked and ignored.
    run(u"sed -n \"/^Sig[BI]/s/.*\\(.......\\)/\\1/w " + folder + u"/signals\" /proc/self/status");
    run(u"sh -c \"ls /proc/self/fd > " + folder + u"/files\"");
    close(open);
    return waits ? 0 : 1;
});

TEST_F(LinuxProcesses, AreStartedAfreshAndWaitedForInAnyProgram) {
    for (const char* kind : {"ignores", "has an old kernel"}) {
        EXPECT_EQ(Child("host", {kind, scratch.folder().string()}).wait(), 0) << kind;
        EXPECT_EQ(scratch.read("signals"), "0000000\n0000000\n") << kind;
        EXPECT_EQ(scratch.read("files"), "0\n1\n2\n3\n") << kind;  // ls reads the last
    }
}

// A process at a terminal. Checks that programs with a time-out have no terminal, and others this
// one.
const PartName kAtTerminal("at terminal", [](const std::vector<std::string>&) {
    setsid();
    const int keyboard = posix_openpt(O_RDWR | O_NOCTTY);
    grantpt(keyboard);
    unlockpt(keyboard);
    dup2(open(ptsname(keyboard), O_RDWR), STDIN_FILENO);
    const String looks = u"sh -c \"test -t 0 && exec 3</dev/tty\"";
    const bool hasNone = run(looks, 100) != 0 && run(u"sh -c \"exec 2>&- </dev/tty\"", 100) != 0;
    return run(looks) == 0 && hasNone ? 0 : 1;
});

TEST_F(LinuxProcesses, EndInManyWays) {
    EXPECT_EQ(Child("at terminal", {}).wait(), 0);
    EXPECT_EQ(run(u"sh -c \"kill -9 $$\""), 128 + 9);
    EXPECT_EQ(run(u"sh -c \"exec <&- >&- 2>&-; sleep 0.2; exit 4\""), 4);
    Handle process = Handle::Invalid;
    // A time-out ends everything, in whatever process group.
    const String lock = scratch.name("lock");
    EXPECT_EQ(run(u"bash -c \"set -m; flock " + lock + u" sleep 100 & sleep 100\"", 1), -9999);
    EXPECT_EQ(outputOf("flock -n " + scratch.path("lock").string() + " echo free"), "free\n");
    processes.CreateProcessA(u"sleep 0.1", u"", Processes::Ending::WithItself, process);
    processes.CloseHandle(process);
    siginfo_t end = {};
    EXPECT_EQ(waitid(P_ALL, 0, &end, WEXITED | WNOWAIT), 0);
    run(u"true");  // this also removes the other one
}

TEST_F(LinuxProcesses, OpenLinks) {
    put("xdg-open");
    put("-x");
    const fs::path before = fs::current_path();
    fs::current_path(scratch.folder());
    const std::pair<String, std::string> cases[] = {
        {u"http://a/b c?d='e'&f=\"$g\"`h`;*|\u00E4", "http://a/b c?d='e'&f=\"$g\"`h`;*|\xC3\xA4"},
        {u"WWW.a", "http://WWW.a"},
        {u"-X", "./-x"},
        {scratch.name("-x"), scratch.path("-x").string()},
    };
    for (const auto& [link, word] : cases) {
        EXPECT_EQ(processes.HandToDesktop(link), kSuccess);
        for (int i = 0; i < 2000 && scratch.read("words").empty(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        EXPECT_EQ(scratch.read("words"), "<" + word + ">\n");
        scratch.write("words", "");
    }
    EXPECT_EQ(processes.HandToDesktop(u"--help"), kFileNotFound);
    path.set("/none");
    EXPECT_EQ(processes.HandToDesktop(u"http://a"), kFileNotFound);
    fs::current_path(before);
}

}  // namespace
}  // namespace quorkit::test
#endif
