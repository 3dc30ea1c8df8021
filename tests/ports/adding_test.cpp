// Files that are opened for adding at their end, in every room.
#include "ports/rooms.h"

namespace quorkit::test {
namespace {

class AddingTest : public RoomTest {
   protected:
    /// Runs `body`, which must wait for the lock until the file holds `bytes` instead.
    template <class Body>
    void waitsWhileReplaced(const std::string& bytes, Body body) {
        const Handle held = lock("f");
        waits(body, [&] {
            EXPECT_EQ(replace(held, bytes), kSuccess);
            close(held);
        });
    }
};

TEST_P(AddingTest, MakesReadsAndEmpties) {
    const Handle first = open("f", FileAccess::Append);
    const Handle second = open("f", FileAccess::AppendYielding);
    EXPECT_EQ(files.WriteFile(first, "abc"), kSuccess);
    EXPECT_EQ(files.WriteFile(second, "def"), kSuccess);
    EXPECT_EQ(files.WriteFile(first, "ghi"), kSuccess);
    EXPECT_EQ(read("f"), "abcdefghi");

    const std::pair<unsigned, std::string> cases[] = {{1, "bcde|fghi||"}, {1000, "|"}};
    for (const auto& [position, expected] : cases) {
        EXPECT_EQ(files.SetFilePointerEx(first, position), kSuccess);
        std::string pieces;
        for (std::size_t count = 1; count > 0; pieces += '|') {
            char buffer[4] = {};
            ASSERT_EQ(files.ReadFile(first, buffer, 4, count), kSuccess);
            pieces.append(buffer, count);
        }
        EXPECT_EQ(pieces, expected);
    }
    EXPECT_EQ(files.SetEndOfFile(second), kSuccess);
    EXPECT_EQ(files.WriteFile(first, "new"), kSuccess);
    EXPECT_EQ(read("f"), "new");
    close(first);
    close(second);
}

TEST_P(AddingTest, BeginsALineBehindATornOne) {
    using namespace std::string_literals;
    const std::string wide = "\r\0\n\0"s;
    struct Case {
        std::string before;
        std::string lineBreak;
        std::string between;
    };
    const Case cases[] = {{"", "\r\n", ""},
                          {"a\r\n", "\r\n", ""},
                          {"a\n", "\r\n", ""},
                          {"a", "\r\n", "\r\n"},
                          {"a\r", "\r\n", "\r\n"},
                          {"a", "", ""},
                          {"", wide, ""},
                          {"a\0"s + wide, wide, ""},
                          {"a\0"s, wide, wide},
                          {"a\0\n"s, wide, "\0"s + wide},
                          {"\n", wide, "\0"s + wide}};
    for (const auto& [before, lineBreak, between] : cases) {
        write("f", before);
        const Handle first = open("f", FileAccess::Append);
        const Handle second = open("f", FileAccess::AppendYielding);
        const std::string line = "xy" + lineBreak;
        for (const Handle handle : {first, second, second, first})
            EXPECT_EQ(files.WriteFile(handle, line, lineBreak), kSuccess);
        EXPECT_EQ(files.WriteFile(second, "torn"), kSuccess);  // while the first one has it open
        EXPECT_EQ(files.WriteFile(first, line, lineBreak), kSuccess);
        EXPECT_EQ(read("f"),
                  before + between + line + line + line + line + "torn" + lineBreak + line);
        close(first);
        close(second);
        EXPECT_EQ(files.DeleteFileA(name("f")), kSuccess);
    }
}

TEST_P(AddingTest, WaitsOnceForALockThatIsNeverGivenBack) {
    write("f", "");
    const Handle held = lock("f");
    const auto add = [&](FileAccess access) {
        const auto start = std::chrono::steady_clock::now();
        std::thread([&] {
            opened = open("f", access);
            EXPECT_EQ(files.WriteFile(opened, "x"), kSuccess);
        }).join();
        return std::chrono::steady_clock::now() - start;
    };
    EXPECT_GE(add(FileAccess::AppendYielding), std::chrono::milliseconds(4900));
    close(opened);
    EXPECT_LT(add(FileAccess::Append), std::chrono::seconds(2));
    close(held);
    EXPECT_EQ(files.WriteFile(opened, "x"), kSuccess);
    Handle other = Handle::Invalid;
    EXPECT_EQ(files.LockFileA(name("f"), other, Wait::Briefly), kLockViolation);
    EXPECT_EQ(read("f"), "xxx");
    close(opened);
}

TEST_P(AddingTest, KeepsTheLockFromOthers) {
    const Handle first = open("f", FileAccess::Append);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(files.LockFileA(name("f"), opened, Wait::Briefly), kLockViolation);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(90));
    waits([&] { close(lock("f")); }, [&] { close(first); });

    const Handle yielding = open("f", FileAccess::AppendYielding);
    const Handle held = lock("f", Wait::Briefly);
    EXPECT_EQ(files.LockFileA(name("f"), opened, Wait::Briefly), kLockViolation);
    close(held);
    close(yielding);
}

TEST_P(AddingTest, WaitsForTheLockAndTellsThatTheFileIsReplaced) {
    write("f", "old\n");
    waitsWhileReplaced("new\n", [&] { opened = open("f", FileAccess::Append); });
    EXPECT_EQ(files.WriteFile(opened, "added\n"), kSuccess);
    close(opened);
    EXPECT_EQ(read("f"), "new\nadded\n");

    opened = open("f", FileAccess::AppendYielding);
    EXPECT_EQ(files.WriteFile(opened, "a"), kSuccess);
    waitsWhileReplaced("new", [&] { EXPECT_EQ(files.WriteFile(opened, "lost"), kFileReplaced); });
    close(opened);
    opened = open("f", FileAccess::AppendYielding);
    EXPECT_EQ(files.WriteFile(opened, "er"), kSuccess);
    EXPECT_EQ(read("f"), "newer");
    EXPECT_EQ(files.DeleteFileA(name("f")), kSuccess);
    write("next", "");  // or what is made below might be the deleted file over again
    for (const bool made : {false, true}) {
        if (made) replace("f", "other");
        EXPECT_EQ(files.WriteFile(opened, "lost"), kFileReplaced);
        EXPECT_EQ(files.SetEndOfFile(opened), kFileReplaced);
    }
    close(opened);
    EXPECT_EQ(read("f"), "other");
#ifndef _WIN32  // Wine does not tell that a file will be deleted when it is closed
    opened = open("f", FileAccess::Append);  // also under its lock
    EXPECT_EQ(files.DeleteFileA(name("f")), kSuccess);
    EXPECT_EQ(files.WriteFile(opened, "lost"), kFileReplaced);
    close(opened);
#endif
}

INSTANTIATE_TEST_SUITE_P(Rooms, AddingTest, testing::Bool(), nameOfRoom);

}  // namespace
}  // namespace quorkit::test
