// Lets chosen operations fail, on top of any files: how a program finds out that it loses nothing.
#pragma once

#include <quorkit/ports/files.h>

#include <cstddef>
#include <set>
#include <string_view>

namespace quorkit {

/// Hands every operation on to `inner` except the one that is told to answer with a code. A write
/// that fails has written half of its bytes, in place too, but to a file opened for adding none; a
/// close that fails has closed.
class FaultyFiles final : public Files {
   public:
    explicit FaultyFiles(Files& inner) : inner_(inner) {}

    /// Call number `call` from now on, counted from 1 over the operations whose names begin with
    /// `operation` (all when empty), is not run and answers `code`; call 0 stands for every one.
    /// kSuccess makes an operation do nothing and report that it is done: answer(0, kSuccess,
    /// "Flush") spares the disk. Replaces the last order; call -1 is no order.
    void answer(std::size_t call, ErrorCode code, std::string_view operation = {});
    /// How many calls have been counted since the last order.
    std::size_t calls() const { return calls_; }

    ErrorCode CreateFileA(const String& name, FileAccess access, Handle& handle) override;
    ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) override;
    ErrorCode SetFilePointerEx(Handle handle, std::uint64_t position) override;
    ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                       std::size_t& count) override;
    ErrorCode WriteFile(Handle handle, std::string_view bytes,
                        std::string_view lineBreak = {}) override;
    ErrorCode SetEndOfFile(Handle handle) override;
    ErrorCode FlushFileBuffers(Handle handle) override;
    ErrorCode CloseHandle(Handle handle) override;
    ErrorCode GetFinalPathNameA(const String& name, String& target) override;
    ErrorCode LockFileA(const String& name, Handle& handle, Wait wait) override;
    ErrorCode CreateReplacement(Handle lock, const String& beside, Handle& file) override;
    ErrorCode ReplaceFileA(Handle lock, Handle file, Wait wait) override;
    ErrorCode WriteInPlace(Handle lock, std::string_view content) override;
    ErrorCode FlushFolderOf(const String& name) override;
    ErrorCode DeleteFileA(const String& name) override;
    ErrorCode GetFileAttributesA(const String& name, std::uint32_t& attributes) override;
    ErrorCode CreateDirectoryA(const String& name) override;
    ErrorCode FindFirstFileA(const String& folder, FindDetail detail, Handle& search,
                             FindData& entry) override;
    ErrorCode FindNextFileA(Handle search, FindData& entry) override;
    void FindClose(Handle search) override;

   private:
    bool due(std::string_view operation);

    Files& inner_;
    std::size_t call_ = static_cast<std::size_t>(-1);
    ErrorCode code_ = kGeneralFailure;
    std::string_view operation_;
    std::size_t calls_ = 0;
    std::set<Handle> adding_;
};

}  // namespace quorkit
