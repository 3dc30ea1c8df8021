// One suite of tests for the files in memory and the native ones, so that both behave the same.
#pragma once

#include <gtest/gtest.h>
#include <quorkit/ports/memory.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "file/whole_file.h"
#include "support/scratch.h"

namespace quorkit::test {

/// An empty folder, on the disk (true) or in memory.
class EachImplementation : public testing::TestWithParam<bool> {
    MemoryPorts memory;
    Scratch scratch;

   protected:
    Ports& world = GetParam() ? ports::native() : memory.ports;
    Files& files = world.files;
    Folders& folders = world.folders;
    Handle opened = Handle::Invalid;

    String name(const std::string& file) {
        return GetParam() ? scratch.name(file) : String(file.begin(), file.end());
    }
    void makeReadOnly(const std::string& file) {
        using std::filesystem::perms;
        if (!GetParam()) return memory.files.setReadOnly(name(file));
        std::filesystem::permissions(scratch.path(file), perms::owner_read | perms::group_read);
    }
    /// False when links cannot be made here.
    bool makeLink(const std::string& link, const std::string& target) {
        std::error_code error;
        if (!GetParam()) memory.files.addLink(name(link), name(target));
        if (GetParam()) std::filesystem::create_symlink(target, scratch.path(link), error);
        return !error;
    }
    Handle open(const std::string& file, FileAccess access) {
        Handle handle = Handle::Invalid;
        EXPECT_EQ(files.Open(name(file), access, handle), kSuccess);
        return handle;
    }
    Handle lock(const std::string& file, Wait wait = Wait::Patiently) {
        Handle handle = Handle::Invalid;
        EXPECT_EQ(files.LockForChange(name(file), handle, wait), kSuccess);
        return handle;
    }
    void close(Handle handle) { EXPECT_EQ(files.CloseHandle(handle), kSuccess); }

    void write(const std::string& file, const std::string& bytes) {
        const Handle handle = open(file, FileAccess::CreateNew);
        EXPECT_EQ(files.WriteFile(handle, bytes), kSuccess);
        EXPECT_EQ(files.FlushFileBuffers(handle), kSuccess);
        close(handle);
    }
    /// Replaces the locked file by one with `bytes`.
    ErrorCode replace(Handle held, const std::string& bytes) {
        Handle made = Handle::Invalid;
        EXPECT_EQ(files.CreateReplacement(held, name("work"), made), kSuccess);
        EXPECT_EQ(files.WriteFile(made, bytes), kSuccess);
        EXPECT_EQ(files.FlushFileBuffers(made), kSuccess);
        const ErrorCode code = files.Replace(held, made);
        close(made);
        return code;
    }
    void replace(const std::string& file, const std::string& bytes) {
        const Handle held = lock(file);
        EXPECT_EQ(replace(held, bytes), kSuccess);
        close(held);
    }
    std::string read(const std::string& file) {
        std::string content;
        return file::readWholeFile(files, name(file), content) == kSuccess ? content : "(failed)";
    }
    /// Runs `body` on a thread of its own. `meanwhile` runs while `body` waits, and ends the wait.
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

inline std::string nameOfImplementation(const testing::TestParamInfo<bool>& info) {
    return info.param ? "native" : "memory";
}

}  // namespace quorkit::test
