// What a failing operation leaves behind, and a full disk in memory.
#include <gtest/gtest.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

namespace quorkit::test {
namespace {

TEST(FaultyFiles, FailAsTheRealOnesMay) {
    MemoryFiles memory;
    FaultyFiles files(memory);
    memory.put(u"log", "old ");
    Handle made = Handle::Invalid;
    Handle log = Handle::Invalid;
    ASSERT_EQ(files.CreateFileA(u"made", FileAccess::CreateNew, made), kSuccess);
    ASSERT_EQ(files.CreateFileA(u"log", FileAccess::Append, log), kSuccess);

    files.answer(0, kDiskFull);
    EXPECT_EQ(files.WriteFile(made, "1234"), kDiskFull);
    EXPECT_EQ(memory.content(u"made"), "12");
    EXPECT_EQ(files.WriteFile(log, "1234"), kDiskFull);
    EXPECT_EQ(files.SetEndOfFile(log), kDiskFull);
    EXPECT_EQ(memory.content(u"log"), "old ");
    EXPECT_EQ(files.CreateDirectoryA(u"d"), kDiskFull);
    EXPECT_EQ(files.CloseHandle(log), kDiskFull);
    EXPECT_EQ(files.calls(), 5u);
    EXPECT_EQ(memory.LockFileA(u"log", log, Wait::Briefly), kSuccess);  // it has closed

    files.answer(0, kSuccess, "Write");
    EXPECT_EQ(files.WriteFile(made, "34"), kSuccess);
    EXPECT_EQ(memory.content(u"made"), "12");
    EXPECT_EQ(files.CreateDirectoryA(u"d"), kSuccess);
    EXPECT_EQ(memory.CloseHandle(log), kSuccess);

    ASSERT_EQ(memory.CreateFileA(u"log", FileAccess::Append, log), kSuccess);
    memory.setFreeSpace(5);
    EXPECT_EQ(memory.WriteFile(log, "123456"), kDiskFull);
    EXPECT_EQ(memory.WriteFile(log, "12345"), kSuccess);
    EXPECT_EQ(memory.content(u"log"), "old 12345");
}

}  // namespace
}  // namespace quorkit::test
