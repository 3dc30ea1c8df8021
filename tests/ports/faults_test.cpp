// The state after a failing operation, and a full disk in memory.
#include <gtest/gtest.h>
#include <quorkit/ports/decorators.h>
#include <quorkit/ports/memory.h>

#include <tuple>

namespace quorkit::test {
namespace {

TEST(FaultyFiles, FailAsTheRealOnesMay) {
    MemoryFiles memory;
    FaultyFiles files(memory);
    MemoryFolders inner(memory);
    FaultyFolders folders(inner, files);
    memory.put(u"log", "old ");
    Handle made = Handle::Invalid;
    Handle log = Handle::Invalid;
    ASSERT_EQ(files.Open(u"made", FileAccess::CreateNew, made), kSuccess);
    ASSERT_EQ(files.Open(u"log", FileAccess::Append, log), kSuccess);

    files.answer(0, kDiskFull);
    EXPECT_EQ(files.WriteFile(made, "1234"), kDiskFull);
    EXPECT_EQ(memory.content(u"made"), "12");
    EXPECT_EQ(files.Append(log, "1234"), kDiskFull);
    EXPECT_EQ(files.EmptyFile(log), kDiskFull);
    EXPECT_EQ(memory.content(u"log"), "old ");
    EXPECT_EQ(folders.CreateDirectoryA(u"d"), kDiskFull);
    EXPECT_EQ(files.CloseHandle(log), kDiskFull);
    EXPECT_EQ(files.calls(), 5u);
    EXPECT_EQ(memory.LockForChange(u"log", log, Wait::Briefly), kSuccess);  // it was given back

    files.answer(0, kSuccess, "Write");
    EXPECT_EQ(files.WriteFile(made, "34"), kSuccess);
    EXPECT_EQ(memory.content(u"made"), "12");
    EXPECT_EQ(folders.CreateDirectoryA(u"d"), kSuccess);
    EXPECT_EQ(memory.CloseHandle(log), kSuccess);

    ASSERT_EQ(memory.Open(u"log", FileAccess::Append, log), kSuccess);
    memory.setFreeSpace(5);
    EXPECT_EQ(memory.Append(log, "123456"), kDiskFull);
    EXPECT_EQ(memory.Append(log, "12345"), kSuccess);
    EXPECT_EQ(memory.content(u"log"), "old 12345");
}

TEST(FaultyPorts, FailByOneOrderForAll) {
    MemoryPorts world;
    world.desktop.windows.resize(1);
    FaultyPorts faulty(world);
    Ports& ports = faulty;
    Handle handle = Handle::Invalid;
    String text = u"kept";
    const auto results = [&](ErrorCode code) {
        faulty.answer(0, code);
        return std::tuple(ports.drives.GetDriveTypeA(u"C:"), ports.system.GetTempPathA(text),
                          ports.processes.CreateProcessA(u"none", {}, {}, handle),
                          ports.processes.WaitForSingleObject(handle),
                          ports.desktop.EnumWindows().size(), ports.clipboard.EmptyClipboard());
    };
    using Waited = Processes::Waited;
    EXPECT_EQ(results(kDiskFull), std::tuple(0, false, kDiskFull, Waited::Failed, 0u, false));
    EXPECT_EQ(results(kSuccess), std::tuple(0, true, kSuccess, Waited::Ended, 0u, true));
    EXPECT_EQ(text, u"kept");
    faulty.answer(2, kAccessDenied, "Get");
    EXPECT_EQ(ports.drives.GetDriveTypeA(u"C:"), 3);
    EXPECT_TRUE(ports.clipboard.EmptyClipboard());
    EXPECT_FALSE(ports.system.GetTempPathA(text));
    EXPECT_TRUE(ports.system.GetTempPathA(text));
    EXPECT_EQ(faulty.calls(), 3u);
}

}  // namespace
}  // namespace quorkit::test
