// One suite of tests for every room that implements files, so that the imitation cannot drift.
#pragma once

#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <memory>
#include <string>

#include "file/whole_file.h"
#include "support/scratch.h"

namespace quorkit::test {

/// A folder in one of the rooms.
struct Room {
    virtual ~Room() = default;
    virtual Files& files() = 0;
    virtual String name(const std::string& file) = 0;
    virtual void makeReadOnly(const std::string& file) = 0;
    /// False when a test can make no links here.
    virtual bool makeLink(const std::string& link, const std::string& target) = 0;
};

struct MemoryRoom : Room {
    MemoryPorts world;
    Files& files() override { return world.files; }
    String name(const std::string& file) override { return String(file.begin(), file.end()); }
    void makeReadOnly(const std::string& file) override { world.files.setReadOnly(name(file)); }
    bool makeLink(const std::string& link, const std::string& target) override {
        world.files.addLink(name(link), name(target));
        return true;
    }
};

struct NativeRoom : Room {
    Scratch scratch;
    Files& files() override { return ports::native().files; }
    String name(const std::string& file) override { return scratch.name(file); }
    void makeReadOnly(const std::string& file) override {
        using std::filesystem::perms;
        std::filesystem::permissions(scratch.path(file), perms::owner_read | perms::group_read);
    }
    bool makeLink(const std::string& link, const std::string& target) override {
        std::error_code error;
        std::filesystem::create_symlink(target, scratch.path(link), error);
        return !error;
    }
};

using MakeRoom = std::unique_ptr<Room> (*)();

class RoomTest : public testing::TestWithParam<MakeRoom> {
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

inline const auto kRooms = testing::Values(
    MakeRoom([]() -> std::unique_ptr<Room> { return std::make_unique<MemoryRoom>(); }),
    MakeRoom([]() -> std::unique_ptr<Room> { return std::make_unique<NativeRoom>(); }));

inline std::string nameOfRoom(const testing::TestParamInfo<MakeRoom>& room) {
    return room.index == 0 ? "memory" : "native";
}

}  // namespace quorkit::test
