// Files that are opened for adding at their end, in every implementation.
#include <functional>
#include <vector>

#include "ports/implementations.h"

namespace quorkit::test {
namespace {

class AddingTest : public EachImplementation {
   protected:
    /// While `body` waits for the lock, replaces the file by one with `bytes`.
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
    EXPECT_EQ(files.Append(first, "abc"), kSuccess);
    EXPECT_EQ(files.Append(second, "def"), kSuccess);
    EXPECT_EQ(files.Append(first, "ghi"), kSuccess);
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
    EXPECT_EQ(files.EmptyFile(second), kSuccess);
    EXPECT_EQ(files.Append(first, "new"), kSuccess);
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
            EXPECT_EQ(files.Append(handle, line, lineBreak), kSuccess);
        EXPECT_EQ(files.Append(second, "torn"), kSuccess);  // while the first one has it open
        EXPECT_EQ(files.Append(first, line, lineBreak), kSuccess);
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
            EXPECT_EQ(files.Append(opened, "x"), kSuccess);
        }).join();
        return std::chrono::steady_clock::now() - start;
    };
    EXPECT_GE(add(FileAccess::AppendYielding), std::chrono::milliseconds(4900));
    close(opened);
    EXPECT_LT(add(FileAccess::Append), std::chrono::seconds(2));
    close(held);
    EXPECT_EQ(files.Append(opened, "x"), kSuccess);
    Handle other = Handle::Invalid;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(files.LockForChange(name("f"), other, Wait::Briefly), kLockViolation);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(90));
    EXPECT_EQ(read("f"), "xxx");
    close(opened);
}

/// The table in files.h, except for appends to a file that yields.
TEST_P(AddingTest, AndLockingWaitForOthersAsTheTableSays) {
#ifdef _WIN32
    const bool locksNames = true;
#else
    const bool locksNames = !GetParam();
#endif
    const auto start = std::chrono::steady_clock::now();
    Handle before = Handle::Invalid;  // opened before others take a lock
    const std::function<void()> others[] = {[&] { close(open("f", FileAccess::Append)); },
                                            [&] { close(lock("f")); },
                                            [&] { EXPECT_EQ(files.Append(before, ""), kSuccess); }};
    struct Case {
        bool there;
        std::function<Handle()> take;
        std::vector<bool> waiting;
    };
    const Case cases[] = {
        {true, [&] { return open("f", FileAccess::Append); }, {false, true, false}},
        {true, [&] { return open("f", FileAccess::AppendYielding); }, {false, false, false}},
        {true, [&] { return lock("f"); }, {true, true, true}},
        {false, [&] { return lock("f"); }, {locksNames, locksNames}}};
    for (const auto& [there, take, waiting] : cases)
        for (std::size_t i = 0; i < waiting.size(); ++i) {
            if (there) before = open("f", FileAccess::AppendYielding);
            const Handle held = take();
            EXPECT_EQ(read("f"), there ? "" : "(failed)");  // a lock makes no file
            if (!waiting[i]) std::thread(others[i]).join();
            if (waiting[i])
                waits(others[i], [&] { close(held); });
            else
                close(held);
            if (there) close(before);
            files.DeleteFileA(name("f"));
        }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
}

TEST_P(AddingTest, WaitsForTheLockAndTellsThatTheFileIsReplaced) {
    write("f", "old\n");
    waitsWhileReplaced("new\n", [&] { opened = open("f", FileAccess::Append); });
    EXPECT_EQ(files.Append(opened, "added\n"), kSuccess);
    close(opened);
    EXPECT_EQ(read("f"), "new\nadded\n");

    opened = open("f", FileAccess::AppendYielding);
    EXPECT_EQ(files.Append(opened, "a"), kSuccess);
    waitsWhileReplaced("new", [&] { EXPECT_EQ(files.Append(opened, "lost"), kFileReplaced); });
    close(opened);
    // The file that is made last must not get the number of the deleted one.
    const std::filesystem::path file = name("f");
    if (GetParam()) std::filesystem::create_hard_link(file, file.parent_path() / "kept");
    opened = open("f", FileAccess::AppendYielding);
    EXPECT_EQ(files.Append(opened, "er"), kSuccess);
    EXPECT_EQ(read("f"), "newer");
    EXPECT_EQ(files.DeleteFileA(name("f")), kSuccess);
    for (const bool made : {false, true}) {
        if (made) replace("f", "other");
        EXPECT_EQ(files.Append(opened, "lost"), kFileReplaced);
        EXPECT_EQ(files.EmptyFile(opened), kFileReplaced);
    }
    close(opened);
    EXPECT_EQ(read("f"), "other");
#ifndef _WIN32  // Wine does not report that a file will be deleted when it is closed
    opened = open("f", FileAccess::Append);  // also under its lock
    EXPECT_EQ(files.DeleteFileA(name("f")), kSuccess);
    EXPECT_EQ(files.Append(opened, "lost"), kFileReplaced);
    close(opened);
#endif
}

INSTANTIATE_TEST_SUITE_P(Implementations, AddingTest, testing::Bool(), nameOfImplementation);

}  // namespace
}  // namespace quorkit::test
