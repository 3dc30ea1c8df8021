// One suite for every room that implements files, so that the imitation cannot drift.
#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <atomic>
#include <memory>
#include <thread>

#include "file/whole_file.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

/// A folder in one of the rooms.
struct Room {
    virtual ~Room() = default;
    virtual Files& files() = 0;
    virtual String name(const std::string& file) = 0;
    virtual void makeReadOnly(const std::string& file) = 0;
};

struct MemoryRoom : Room {
    MemoryPorts world;
    Files& files() override { return world.files; }
    String name(const std::string& file) override { return String(file.begin(), file.end()); }
    void makeReadOnly(const std::string& file) override { world.files.setReadOnly(name(file)); }
};

struct NativeRoom : Room {
    Scratch scratch;
    Files& files() override { return ports::native().files; }
    String name(const std::string& file) override { return scratch.name(file); }
    void makeReadOnly(const std::string& file) override {
        using std::filesystem::perms;
        std::filesystem::permissions(scratch.path(file), perms::owner_read | perms::group_read);
    }
};

using MakeRoom = std::unique_ptr<Room> (*)();

class FilesTest : public testing::TestWithParam<MakeRoom> {
   protected:
    void write(const std::string& file, const std::string& bytes) {
        Handle handle = Handle::Invalid;  // threads have one each
        ASSERT_EQ(files.CreateFileA(room->name(file), FileAccess::CreateNew, handle), kSuccess);
        EXPECT_EQ(files.WriteFile(handle, bytes), kSuccess);
        EXPECT_EQ(files.FlushFileBuffers(handle), kSuccess);
        EXPECT_EQ(files.CloseHandle(handle), kSuccess);
    }
    std::string read(const std::string& file) {
        std::string content = "(unread)";
        if (readWholeFile(files, room->name(file), content) != kSuccess) return "(failed)";
        return content;
    }

    std::unique_ptr<Room> room = GetParam()();
    Files& files = room->files();
    Handle opened = Handle::Invalid;
};

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

INSTANTIATE_TEST_SUITE_P(
    Rooms, FilesTest,
    testing::Values([]() -> std::unique_ptr<Room> { return std::make_unique<MemoryRoom>(); },
                    []() -> std::unique_ptr<Room> { return std::make_unique<NativeRoom>(); }),
    [](const auto& test) { return test.index == 0 ? "memory" : "native"; });

}  // namespace
}  // namespace quorkit::test
