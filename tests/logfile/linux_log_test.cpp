// What only real processes and disks of Linux show: kills amid a write, forks, a full disk, locks.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/QuorLogFile.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <random>
#include <sstream>
#include <thread>

#include "support/child.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

/// An entry: the letter so many times, in angle brackets.
String entryOf(char letter, std::size_t length) {
    return u'<' + String(length, static_cast<char16_t>(letter)) + u'>';
}

void prepare(QuorLogFile& log, const std::filesystem::path& file, bool keptOpen, Long limit = 0) {
    log.setLogFileName(file.u16string());
    log.setAppend(true);
    log.setMaxFileSize(limit);
    log.setAutoOpenClose(!keptOpen);
    if (keptOpen) log.OpenLogfile();
}

void add(QuorLogFile& log, char letter, std::size_t length, int count = 1) {
    for (int i = 0; i < count; ++i) {
        String entry = entryOf(letter, length);
        log.writeLogfileEntry(entry, eLogEntryType_Error);
    }
}

/// Writes entries until it is killed, and makes a file when it has begun.
int writeOn(const std::vector<std::string>& arguments) {
    QuorLogFile log;
    prepare(log, arguments[0], arguments[2] == "kept");
    for (bool begun = false;; begun = true) {
        add(log, arguments[1][0], std::stoul(arguments[3]));
        if (!begun) std::ofstream(arguments[4]).put('x');
    }
}
const PartName writeOnPart("writeOn", writeOn);

/// How many whole entries of a letter and length stand on lines of their own. Fails on a line that
/// holds anything but such an entry or, so many times, the beginning of one.
int countWhole(const std::string& content, char letter, std::size_t length, int mostTorn) {
    int count = 0;
    int torn = 0;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        const char its = line.size() < 2 ? '?' : line[1];
        const bool whole = line.size() > 2 && line.ends_with('>');
        const std::string inside =
            line.substr(std::min<std::size_t>(1, line.size()), line.size() - (whole ? 2 : 1));
        EXPECT_EQ(inside.find_first_not_of(its), std::string::npos) << line.substr(0, 100);
        EXPECT_TRUE(line.empty() || line[0] == '<') << line.substr(0, 100);
        if (!whole) ++torn;
        if (whole && its == letter && inside.size() == length) ++count;
    }
    EXPECT_LE(torn, mostTorn);
    return count;
}

TEST(LinuxLog, ATornLineIsNotContinued) {
    std::mt19937 random(std::random_device{}());
    for (const std::size_t length : {100u, 300000u}) {
        for (const bool keptOpen : {false, true}) {
            Scratch scratch;
            const auto file = scratch.path("a.log");
            constexpr int kills = 15;
            std::atomic<bool> done = false;
            int written = 0;
            std::thread survivor([&] {
                QuorLogFile log;
                prepare(log, file, keptOpen);
                for (; !done; ++written) add(log, 's', 77);
            });
            for (int i = 0; i < kills; ++i) {
                const auto begun = scratch.path("begun" + std::to_string(i));
                Child victim("writeOn", {file.string(), "v", i % 2 == 0 ? "kept" : "opened",
                                         std::to_string(length), begun.string()});
                while (!std::filesystem::exists(begun)) std::this_thread::yield();
                std::this_thread::sleep_for(std::chrono::microseconds(random() % 5000));
                victim.kill();
                victim.wait();
            }
            done = true;
            survivor.join();
            EXPECT_EQ(countWhole(scratch.read("a.log"), 's', 77, kills), written);
        }
    }
}

TEST(LinuxLog, AForkedChildGoesOnByItself) {
    for (const bool keptOpen : {false, true}) {
        Scratch scratch;
        QuorLogFile log;
        QuorLogFile other;
        prepare(log, scratch.path("a.log"), keptOpen);
        add(log, 'p', 50);
        const pid_t child = fork();
        if (child == 0) {
            add(log, 'c', 3000, 500);
            log.CloseLogfile();
            _exit(0);
        }
        add(log, 'p', 7, 500);
        waitpid(child, nullptr, 0);
        add(log, 'p', 7, 500);
        const std::string content = scratch.read("a.log");
        EXPECT_EQ(countWhole(content, 'c', 3000, 0), 500);
        EXPECT_EQ(countWhole(content, 'p', 7, 0), 1000);
        EXPECT_EQ(other.limitFileSize(scratch.name("a.log"), Long{4000}), !keptOpen);
    }
}

TEST(LinuxLog, AFileThatOthersMoveIsMadeAnew) {
    Scratch scratch;
    QuorLogFile log;
    prepare(log, scratch.path("a.log"), true);
    const std::function<void()> others[] = {
        [&] { std::filesystem::remove(scratch.path("a.log")); },
        [&] {
            std::filesystem::create_hard_link(scratch.path("a.log"), scratch.path("backup"));
            add(log, 'x', 10);
            scratch.write("new", "");
            std::filesystem::rename(scratch.path("new"), scratch.path("a.log"));
        },
        [&] {
            std::filesystem::rename(scratch.path("a.log"), scratch.path("old"));
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        },
    };
    for (const auto& move : others) {
        add(log, 'x', 10, 3);
        move();
        add(log, 'y', 10, 5);
        EXPECT_EQ(countWhole(scratch.read("a.log"), 'y', 10, 0), 5);
    }
}

TEST(LinuxLog, AFullDiskCostsOnlyWhatDoesNotFit) {
    Scratch scratch;
    const std::string folder = scratch.folder().string();
    if (mount("none", folder.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "only the superuser can mount a small disk";
    ports::takeReason();
    for (const bool keptOpen : {false, true}) {
        for (const std::size_t length : {98u, 498u}) {
            QuorLogFile log;
            prepare(log, scratch.path("a.log"), keptOpen, 50 * 1024);
            for (int i = 0; i < 1000; ++i) {
                add(log, static_cast<char>('a' + i % 26), length);
                if (i % 20 != 0) continue;
                const std::string content = scratch.read("a.log");
                const String last = entryOf(static_cast<char>('a' + i % 26), length);
                ASSERT_TRUE(content.ends_with(std::string(last.begin(), last.end()) + "\r\n")) << i;
            }
            EXPECT_EQ(ports::takeReason(), "");
        }
        std::filesystem::remove(scratch.path("a.log"));

        QuorLogFile log;
        QuorLogFile another;
        prepare(log, scratch.path("a.log"), keptOpen);
        prepare(another, scratch.path("a.log"), true);
        scratch.write("filler", std::string(20000, 'x'));
        add(log, 'a', 3000, 30);
        EXPECT_NE(ports::takeReason().find("disk is full"), std::string::npos);
        std::filesystem::remove(scratch.path("filler"));
        add(log, 'z', 3000, 2);
        EXPECT_EQ(countWhole(scratch.read("a.log"), 'z', 3000, 1), 2);
        another.CloseLogfile();
        log.CloseLogfile();
        std::filesystem::remove(scratch.path("a.log"));
    }
    umount(folder.c_str());
}

TEST(LinuxLog, NobodyWhoHoldsALockStopsIt) {
    Scratch scratch;
    scratch.write("a.log", "");
    const int hostile = open(scratch.path("a.log").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(hostile, LOCK_EX), 0);
    QuorLogFile log;
    prepare(log, scratch.path("a.log"), false);
    const auto start = std::chrono::steady_clock::now();
    add(log, 'x', 10, 100);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
    EXPECT_EQ(countWhole(scratch.read("a.log"), 'x', 10, 0), 100);
    EXPECT_NE(ports::takeReason().find("locked by this program"), std::string::npos);
    close(hostile);
}

}  // namespace
}  // namespace quorkit::test
#endif
