// Files as operations. Each returns an error code; `kSuccess` is the only one that means done.
#pragma once

#include <quorkit/values.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorkit {

/// The system's error codes, by the numbers of Win32 on every system.
enum ErrorCode : std::uint32_t {
    kSuccess = 0,
    kFileNotFound = 2,
    kPathNotFound = 3,
    kTooManyOpenFiles = 4,
    kAccessDenied = 5,
    kInvalidHandle = 6,
    kSharingViolation = 32,
    kFileExists = 80,
    kDiskFull = 112,
    kInvalidName = 123,
    kGeneralFailure = 31,
};

/// An open file or a held lock. Never inherited by a program we start.
enum class Handle : std::intptr_t { Invalid = -1 };

enum class FileAccess {
    Read,       ///< an existing regular file, from its start
    CreateNew,  ///< a file that must not exist yet, readable by its owner only, for writing
};

/// Names are text; each system stores them its own way (UTF-8 on Linux). A name that holds U+0000
/// gives kInvalidName everywhere. An operation that fails changes nothing unless it says so.
class Files {
   public:
    virtual ~Files() = default;

    /// Opens a file. A directory, a pipe or a device gives kAccessDenied and is never waited for.
    virtual ErrorCode CreateFileA(const String& name, FileAccess access, Handle& handle) = 0;
    virtual ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) = 0;
    /// Reads up to `capacity` bytes from where the last read ended; `count` 0 is the end.
    virtual ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                               std::size_t& count) = 0;
    /// Writes all of `bytes` behind the last write. A failure may leave a part written.
    virtual ErrorCode WriteFile(Handle handle, std::string_view bytes) = 0;
    /// Returns when what was written has reached the disk.
    virtual ErrorCode FlushFileBuffers(Handle handle) = 0;
    /// Closes a file or gives a lock back. The handle is gone, whatever the answer.
    virtual ErrorCode CloseHandle(Handle handle) = 0;

    /// The name that `name` leads to when every link is followed. The last component need not
    /// exist.
    virtual ErrorCode GetFinalPathNameA(const String& name, String& target) = 0;

    /// Waits for the sole right to change the file `name`, among all processes that ask for it
    /// this way. The kernel holds it and takes it back when the process dies. The file need not
    /// exist; its folder must, and both must allow writing, else kAccessDenied. It may stand empty
    /// while the lock is held; CloseHandle removes it again if it was made by the lock and is
    /// still empty.
    virtual ErrorCode LockFileA(const String& name, Handle& handle) = 0;

    /// Puts the file `replacement` in the place of the file `name`, in one step: at every moment
    /// the name leads to the whole old content or the whole new one. Rights and owner of the old
    /// file are kept; the group counts for the owner where the system forbids giving files away.
    /// `name` is final (see GetFinalPathNameA) and both stand in one folder. On failure both files
    /// are as before.
    virtual ErrorCode ReplaceFileA(const String& name, const String& replacement) = 0;
    /// Returns when the folder of `name` has reached the disk.
    virtual ErrorCode FlushFolderOf(const String& name) = 0;

    virtual ErrorCode DeleteFileA(const String& name) = 0;
};

}  // namespace quorkit
