// The content of files, and replacing it, in every implementation.
#include "ports/implementations.h"

namespace quorkit::test {
namespace {

class FilesTest : public EachImplementation {};

TEST_P(FilesTest, WritesAndReads) {
    const std::string all = std::string("a\r\n\0b", 6) + std::string(300000, 'x');
    write("f", all);
    EXPECT_EQ(read("f"), all);
    std::uint64_t size = 0;
    opened = open("f", FileAccess::Read);
    EXPECT_EQ(files.GetFileSizeEx(opened, size), kSuccess);
    EXPECT_EQ(size, all.size());
    close(opened);
    EXPECT_EQ(files.Open(name("f"), FileAccess::CreateNew, opened), kFileExists);
    EXPECT_EQ(files.DeleteFileA(name("f")), kSuccess);
    EXPECT_EQ(files.Open(name("f"), FileAccess::Read, opened), kFileNotFound);
    EXPECT_EQ(files.DeleteFileA(name("f")), kFileNotFound);
}

TEST_P(FilesTest, ReplacesAndLeavesNothingForWork) {
    replace("made", "made");
    EXPECT_EQ(read("made"), "made");
    write("old", "old");
    write("work", "left by a process that died");
    replace("old", "new");
    EXPECT_EQ(files.FlushFolderOf(name("old")), kSuccess);
    EXPECT_EQ(read("old"), "new");
    EXPECT_EQ(read("work"), "(failed)");

    const Handle held = lock("old");
    ASSERT_EQ(files.CreateReplacement(held, name("work"), opened), kSuccess);
    EXPECT_EQ(files.WriteFile(opened, "given up"), kSuccess);
    close(opened);
    EXPECT_EQ(read("work"), "(failed)");
    EXPECT_EQ(files.WriteInPlace(held, "a longer text"), kSuccess);
    EXPECT_EQ(files.WriteInPlace(held, "in place"), kSuccess);
    EXPECT_EQ(files.CreateReplacement(held, name("no/work"), opened), kPathNotFound);
    close(held);
    EXPECT_EQ(read("old"), "in place");
}

TEST_P(FilesTest, TellsThatSomebodyHasChangedTheFileWithoutItsLock) {
    for (const bool exists : {false, true}) {
        const Handle held = lock("f");
        if (exists) files.DeleteFileA(name("f"));
        write("f", exists ? "others'" : "x");
        EXPECT_EQ(replace(held, "lost"), kFileReplaced);
        EXPECT_NE(files.WriteInPlace(held, "lost"), kSuccess);
        close(held);
        EXPECT_EQ(read("f"), exists ? "others'" : "x");
    }
}

TEST_P(FilesTest, ReadersAlwaysFindOneWholeState) {
    write("f", std::string(50000, 'a'));
    std::atomic<bool> done = false;
    std::thread writer([&] {
        for (int i = 0; i < 200; ++i) replace("f", std::string(50000, i % 2 == 0 ? 'b' : 'a'));
        done = true;
    });
    int torn = 0;
    while (!done) {
        const std::string content = read("f");
        torn += content != std::string(50000, content[0]);
    }
    writer.join();
    EXPECT_EQ(torn, 0);
}

TEST_P(FilesTest, RefusesWhatIsNoWritableFile) {
    write("f", "x");
    makeReadOnly("f");
    ASSERT_EQ(folders.CreateDirectoryA(name("d")), kSuccess);
    for (const FileAccess access : {FileAccess::Append, FileAccess::AppendYielding}) {
        EXPECT_EQ(files.Open(name("f"), access, opened), kAccessDenied);
        EXPECT_EQ(files.Open(name("d"), access, opened), kAccessDenied);
        EXPECT_EQ(files.Open(name("no/f"), access, opened), kPathNotFound);
    }
    EXPECT_EQ(files.LockForChange(name("f"), opened), kAccessDenied);
    EXPECT_EQ(files.LockForChange(name("no/f"), opened), kPathNotFound);
    const String nul = name("f") + u'\0' + u"g";
    EXPECT_EQ(files.LockForChange(nul, opened), kInvalidName);
    EXPECT_EQ(files.Open(nul, FileAccess::Read, opened), kInvalidName);
    EXPECT_EQ(files.LockForChange(u"", opened), kInvalidName);
    EXPECT_EQ(read("f"), "x");
}

INSTANTIATE_TEST_SUITE_P(Implementations, FilesTest, testing::Bool(), nameOfImplementation);

}  // namespace
}  // namespace quorkit::test
