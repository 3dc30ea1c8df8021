// Files that are opened for adding at their end, in every room.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "ports/rooms.h"

namespace quorkit::test {
namespace {

class AddingTest : public RoomTest {
   protected:
    Handle open(FileAccess access) {
        Handle handle = Handle::Invalid;
        EXPECT_EQ(files.CreateFileA(room->name("f"), access, handle), kSuccess);
        return handle;
    }
    /// Runs `body` on a thread of its own while `meanwhile` finds it waiting and lets it go.
    template <class Body, class Meanwhile>
    void waits(Body body, Meanwhile meanwhile) {
        std::atomic<bool> done = false;
        std::thread other([&] {
            body();
            done = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_FALSE(done);
        meanwhile();
        other.join();
    }
};

TEST_P(AddingTest, MakesReadsAndEmpties) {
    const Handle first = open(FileAccess::Append);
    const Handle second = open(FileAccess::AppendYielding);
    EXPECT_EQ(files.WriteFile(first, "abc"), kSuccess);
    EXPECT_EQ(files.WriteFile(second, "def"), kSuccess);
    EXPECT_EQ(files.WriteFile(first, "ghi"), kSuccess);
    EXPECT_EQ(read("f"), "abcdefghi");

    char buffer[4] = {};
    std::size_t count = 0;
    const auto next = [&] {
        EXPECT_EQ(files.ReadFile(first, buffer, 4, count), kSuccess);
        return std::string(buffer, count);
    };
    EXPECT_EQ(files.SetFilePointerEx(first, 1), kSuccess);
    EXPECT_EQ(next(), "bcde");
    EXPECT_EQ(next(), "fghi");
    EXPECT_EQ(next(), "");
    EXPECT_EQ(files.SetFilePointerEx(first, 1000), kSuccess);
    EXPECT_EQ(next(), "");

    EXPECT_EQ(files.SetEndOfFile(second), kSuccess);
    EXPECT_EQ(files.WriteFile(first, "new"), kSuccess);
    EXPECT_EQ(read("f"), "new");
    EXPECT_EQ(files.CloseHandle(first), kSuccess);
    EXPECT_EQ(files.CloseHandle(second), kSuccess);
}

TEST_P(AddingTest, KeepsPiecesWhole) {
    constexpr int kPieces = 300;
    const auto add = [&](char letter, FileAccess access) {
        const Handle handle = open(access);
        for (int i = 0; i < kPieces; ++i) {
            const std::string piece(static_cast<std::size_t>(1 + i * 37 % 5000), letter);
            ASSERT_EQ(files.WriteFile(handle, piece + '\n'), kSuccess);
        }
        EXPECT_EQ(files.CloseHandle(handle), kSuccess);
    };
    std::thread a(add, 'a', FileAccess::Append);
    std::thread b(add, 'b', FileAccess::Append);
    std::thread c(add, 'c', FileAccess::AppendYielding);
    a.join();
    b.join();
    c.join();
    const std::string content = read("f");
    int pieces = 0;
    for (std::size_t i = 0; i < content.size(); ++pieces) {
        const std::size_t end = content.find('\n', i);
        ASSERT_NE(end, std::string::npos);
        ASSERT_EQ(content.substr(i, end - i), std::string(end - i, content[i]));
        i = end + 1;
    }
    EXPECT_EQ(pieces, 3 * kPieces);
}

TEST_P(AddingTest, KeepsTheLockFromOthers) {
    Handle lock = Handle::Invalid;
    const Handle first = open(FileAccess::Append);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(files.LockFileA(room->name("f"), lock, Wait::Briefly), kLockViolation);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(90));
    waits(
        [&] {
            EXPECT_EQ(files.LockFileA(room->name("f"), opened), kSuccess);
            EXPECT_EQ(files.CloseHandle(opened), kSuccess);
        },
        [&] { EXPECT_EQ(files.CloseHandle(first), kSuccess); });

    const Handle yielding = open(FileAccess::AppendYielding);
    EXPECT_EQ(files.LockFileA(room->name("f"), lock, Wait::Briefly), kSuccess);
    EXPECT_EQ(files.LockFileA(room->name("f"), opened, Wait::Briefly), kLockViolation);
    EXPECT_EQ(files.CloseHandle(lock), kSuccess);
    EXPECT_EQ(files.CloseHandle(yielding), kSuccess);
}

TEST_P(AddingTest, WaitsForTheLock) {
    write("f", "old\n");
    Handle lock = Handle::Invalid;
    ASSERT_EQ(files.LockFileA(room->name("f"), lock), kSuccess);
    waits([&] { opened = open(FileAccess::Append); },
          [&] {
              write("new", "new\n");
              EXPECT_EQ(files.ReplaceFileA(room->name("f"), room->name("new")), kSuccess);
              EXPECT_EQ(files.CloseHandle(lock), kSuccess);
          });
    EXPECT_EQ(files.WriteFile(opened, "added\n"), kSuccess);
    EXPECT_EQ(files.CloseHandle(opened), kSuccess);
    EXPECT_EQ(read("f"), "new\nadded\n");
}

TEST_P(AddingTest, TellsThatTheFileIsReplaced) {
    const Handle yielding = open(FileAccess::AppendYielding);
    EXPECT_EQ(files.WriteFile(yielding, "a"), kSuccess);
    Handle lock = Handle::Invalid;
    ASSERT_EQ(files.LockFileA(room->name("f"), lock), kSuccess);
    waits([&] { EXPECT_EQ(files.WriteFile(yielding, "lost"), kFileReplaced); },
          [&] {
              write("new", "new");
              EXPECT_EQ(files.ReplaceFileA(room->name("f"), room->name("new")), kSuccess);
              EXPECT_EQ(files.CloseHandle(lock), kSuccess);
          });
    EXPECT_EQ(read("f"), "new");
    EXPECT_EQ(files.CloseHandle(yielding), kSuccess);
    const Handle again = open(FileAccess::AppendYielding);
    EXPECT_EQ(files.WriteFile(again, "er"), kSuccess);
    EXPECT_EQ(read("f"), "newer");
    EXPECT_EQ(files.DeleteFileA(room->name("f")), kSuccess);
    for (const bool made : {false, true}) {
        if (made) write("f", "other");
        EXPECT_EQ(files.WriteFile(again, "lost"), kFileReplaced);
        EXPECT_EQ(files.SetEndOfFile(again), kFileReplaced);
    }
    EXPECT_EQ(files.CloseHandle(again), kSuccess);
    EXPECT_EQ(read("f"), "other");
}

TEST_P(AddingTest, RefusesWhatCannotBeWritten) {
    write("f", "x");
    room->makeReadOnly("f");
    ASSERT_EQ(files.CreateDirectoryA(room->name("d")), kSuccess);
    for (const FileAccess access : {FileAccess::Append, FileAccess::AppendYielding}) {
        EXPECT_EQ(files.CreateFileA(room->name("f"), access, opened), kAccessDenied);
        EXPECT_EQ(files.CreateFileA(room->name("d"), access, opened), kAccessDenied);
        EXPECT_EQ(files.CreateFileA(room->name("no/f"), access, opened), kPathNotFound);
    }
    EXPECT_EQ(read("f"), "x");
}

INSTANTIATE_TEST_SUITE_P(Rooms, AddingTest, kRooms, nameOfRoom);

TEST(MemoryFiles, AddWholePiecesToAFullDisk) {
    MemoryFiles files;
    files.put(u"f", "old ");
    files.setFreeSpace(5);
    Handle handle = Handle::Invalid;
    ASSERT_EQ(files.CreateFileA(u"f", FileAccess::Append, handle), kSuccess);
    EXPECT_EQ(files.WriteFile(handle, "123456"), kDiskFull);
    EXPECT_EQ(files.WriteFile(handle, "12345"), kSuccess);
    EXPECT_EQ(files.content(u"f"), "old 12345");
}

}  // namespace
}  // namespace quorkit::test
