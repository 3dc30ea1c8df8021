// Files on Windows, by their UTF-16 names.
#pragma once

#include <quorkit/ports/files.h>

namespace quorkit {

/// Locks are named mutexes made from the file's full name: the kernel gives them back when their
/// process dies, and no handle on the file stands in the way of replacing it.
class Win32Files final : public Files {
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
