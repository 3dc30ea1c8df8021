// Files and folders in memory, for tests; rights, links and free space are set by hand.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/ports/folders.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace quorkit {

/// Names are Windows names, compared without regard to letter case. The drive "C:" exists from the
/// start; names without a drive are in its root. The functions that set up files make all missing
/// folders, drives and shares above a name, and throw std::invalid_argument when a name cannot
/// exist there, such as one beneath a file.
class MemoryFiles final : public Files {
   public:
    MemoryFiles();
    ~MemoryFiles() override;
    MemoryFiles(const MemoryFiles&) = delete;
    MemoryFiles& operator=(const MemoryFiles&) = delete;

    // --- Setting up ---

    /// Makes a folder, or the root of a drive such as "D:" or of a share such as "\\server\share".
    void addFolder(const String& name);
    /// Puts a new file in place of any that is there. Its archive attribute and its time, the first
    /// moment of 1970, stay whatever is written to it.
    void put(const String& name, std::string content);
    /// Makes a link to a file or folder, which need not exist. A relative target starts from the
    /// folder of the link.
    void addLink(const String& name, const String& target);
    /// In a read-only folder nothing can be made, replaced or deleted.
    void setReadOnly(const String& name, bool readOnly = true);
    /// Sets kReadOnly, kHidden, kSystem and kArchive to their values in `attributes`.
    void setAttributes(const String& name, std::uint32_t attributes);
    void setLastWrite(const String& name, FileTime time);
    /// Sets how many bytes can still be written before the disk is full. No operation gives space
    /// back.
    void setFreeSpace(std::size_t bytes);
    /// The content of a file; nothing when there is none of that name.
    std::optional<std::string> content(const String& name) const;

    // --- The port ---

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

   private:
    friend class MemoryFolders;
    struct State;
    std::unique_ptr<State> state_;
};

/// The folders of these files.
class MemoryFolders final : public Folders {
   public:
    /// `files` must outlive this.
    explicit MemoryFolders(MemoryFiles& files) : state_(*files.state_) {}

    ErrorCode GetFileAttributesA(const String& name, std::uint32_t& attributes) override;
    ErrorCode CreateDirectoryA(const String& name) override;
    ErrorCode FirstEntry(const String& folder, FindDetail detail, Handle& search,
                         FindData& entry) override;
    ErrorCode NextEntry(Handle search, FindData& entry) override;
    void EndListing(Handle search) override;

   private:
    MemoryFiles::State& state_;
};

}  // namespace quorkit
