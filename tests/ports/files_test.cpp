// The content of files, and changing them whole, in every room.
#include <atomic>
#include <thread>

#include "ports/rooms.h"

namespace quorkit::test {
namespace {

class FilesTest : public RoomTest {};

TEST_P(FilesTest, WritesAndReads) {
    const std::string all = std::string("a\r\n\0b", 6) + std::string(300000, 'x');
    write("f", all);
    EXPECT_EQ(read("f"), all);
    std::uint64_t size = 0;
    ASSERT_EQ(files.CreateFileA(room->name("f"), FileAccess::Read, opened), kSuccess);
    EXPECT_EQ(files.GetFileSizeEx(opened, size), kSuccess);
    EXPECT_EQ(size, all.size());
    EXPECT_EQ(files.CloseHandle(opened), kSuccess);
    EXPECT_EQ(files.CreateFileA(room->name("f"), FileAccess::CreateNew, opened), kFileExists);
    EXPECT_EQ(files.DeleteFileA(room->name("f")), kSuccess);
    EXPECT_EQ(files.CreateFileA(room->name("f"), FileAccess::Read, opened), kFileNotFound);
    EXPECT_EQ(files.DeleteFileA(room->name("f")), kFileNotFound);
}

TEST_P(FilesTest, Replaces) {
    write("old", "old");
    write("new", "new");
    EXPECT_EQ(files.ReplaceFileA(room->name("old"), room->name("new")), kSuccess);
    EXPECT_EQ(files.FlushFolderOf(room->name("old")), kSuccess);
    EXPECT_EQ(read("old"), "new");
    EXPECT_EQ(read("new"), "(failed)");
    EXPECT_NE(files.ReplaceFileA(room->name("old"), room->name("new")), kSuccess);
    EXPECT_EQ(read("old"), "new");
}

TEST_P(FilesTest, ReadersAlwaysFindOneWholeState) {
    write("f", std::string(50000, 'a'));
    std::atomic<bool> done = false;
    std::thread writer([&] {
        for (int i = 0; i < 200; ++i) {
            write("new", std::string(50000, i % 2 == 0 ? 'b' : 'a'));
            EXPECT_EQ(files.ReplaceFileA(room->name("f"), room->name("new")), kSuccess);
        }
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

TEST_P(FilesTest, LocksByName) {
    for (const bool exists : {false, true}) {
        if (exists) write("f", "x");
        ASSERT_EQ(files.LockFileA(room->name("f"), opened), kSuccess);
        std::atomic<bool> entered = false;
        std::thread other([&] {
            Handle second = Handle::Invalid;
            EXPECT_EQ(files.LockFileA(room->name("f"), second), kSuccess);
            entered = true;
            EXPECT_EQ(files.CloseHandle(second), kSuccess);
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_FALSE(entered);
        EXPECT_EQ(files.CloseHandle(opened), kSuccess);
        other.join();
        EXPECT_EQ(read("f"), exists ? "x" : "(failed)");  // a lock leaves no file behind
    }
}

TEST_P(FilesTest, RefusesWhatIsNoWritableFile) {
    write("f", "x");
    room->makeReadOnly("f");
    EXPECT_EQ(files.LockFileA(room->name("f"), opened), kAccessDenied);
    EXPECT_EQ(files.LockFileA(room->name("no/f"), opened), kPathNotFound);
    const String nul = room->name("f") + u'\0' + u"g";
    EXPECT_EQ(files.LockFileA(nul, opened), kInvalidName);
    EXPECT_EQ(files.CreateFileA(nul, FileAccess::Read, opened), kInvalidName);
    EXPECT_EQ(files.LockFileA(u"", opened), kInvalidName);
}

INSTANTIATE_TEST_SUITE_P(Rooms, FilesTest, kRooms, nameOfRoom);

}  // namespace
}  // namespace quorkit::test
