// Files of the system this program runs on. A build has one of the rooms that implement it.
#pragma once

#include <quorkit/ports/files.h>

namespace quorkit {

class NativeFiles final : public Files {
   public:
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
};

}  // namespace quorkit
