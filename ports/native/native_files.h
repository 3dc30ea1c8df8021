// The files and folders of this system; a build has one implementation.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/ports/folders.h>

namespace quorkit::native {

class NativeFiles final : public Files {
   public:
    ErrorCode Open(const String& name, FileAccess access, Handle& handle) override;
    ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) override;
    ErrorCode SetFilePointerEx(Handle handle, std::uint64_t position) override;
    ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                       std::size_t& count) override;
    ErrorCode WriteFile(Handle handle, std::string_view bytes) override;
    ErrorCode FlushFileBuffers(Handle handle) override;
    ErrorCode CloseHandle(Handle handle) override;
    ErrorCode DeleteFileA(const String& name) override;
    ErrorCode Append(Handle handle, std::string_view bytes,
                     std::string_view lineBreak = {}) override;
    ErrorCode EmptyFile(Handle handle) override;
    ErrorCode FinalName(const String& name, String& target) override;
    ErrorCode LockForChange(const String& name, Handle& handle, Wait wait) override;
    ErrorCode CreateReplacement(Handle lock, const String& beside, Handle& file) override;
    ErrorCode Replace(Handle lock, Handle file, Wait wait) override;
    ErrorCode WriteInPlace(Handle lock, std::string_view content) override;
    ErrorCode FlushFolderOf(const String& name) override;
};

class NativeFolders final : public Folders {
   public:
    ErrorCode GetFileAttributesA(const String& name, std::uint32_t& attributes) override;
    ErrorCode CreateDirectoryA(const String& name) override;
    ErrorCode FirstEntry(const String& folder, FindDetail detail, Handle& search,
                         FindData& entry) override;
    ErrorCode NextEntry(Handle search, FindData& entry) override;
    void EndListing(Handle search) override;
};

}  // namespace quorkit::native
