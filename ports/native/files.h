// Files of the system this program runs on. A build has one of the rooms that implement it.
#pragma once

#include <quorkit/ports/files.h>

namespace quorkit {

class NativeFiles final : public Files {
   public:
    ErrorCode CreateFileA(const String& name, FileAccess access, Handle& handle) override;
    ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) override;
    ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                       std::size_t& count) override;
    ErrorCode WriteFile(Handle handle, std::string_view bytes) override;
    ErrorCode FlushFileBuffers(Handle handle) override;
    ErrorCode CloseHandle(Handle handle) override;
    ErrorCode GetFinalPathNameA(const String& name, String& target) override;
    ErrorCode LockFileA(const String& name, Handle& handle) override;
    ErrorCode ReplaceFileA(const String& name, const String& replacement) override;
    ErrorCode FlushFolderOf(const String& name) override;
    ErrorCode DeleteFileA(const String& name) override;
};

}  // namespace quorkit
