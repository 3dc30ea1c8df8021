// Files and folders as operations. Each returns an error code; `kSuccess` is the only one that
// means done.
#pragma once

#include <quorkit/values.h>
#include <quorkit/values/error_code.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorkit {

/// An open file, a search or a held lock. Never inherited by a program we start.
enum class Handle : std::intptr_t { Invalid = -1 };

enum class FileAccess {
    Read,            ///< an existing regular file, from its start
    CreateNew,       ///< a file that must not exist yet, readable by its owner only, for writing
    Append,          ///< for adding at the end, made when missing; see LockFileA
    AppendYielding,  ///< the same, without keeping others from replacing the file
};

inline bool isForAdding(FileAccess access) {
    return access == FileAccess::Append || access == FileAccess::AppendYielding;
}

/// How long to wait for what another process holds. No wait is for ever: whoever may only read a
/// file can lock it too, and a holder may be stopped.
enum class Wait {
    Patiently,  ///< five seconds, for what must not fail because others write too
    Briefly,    ///< a tenth of a second
};
constexpr std::chrono::milliseconds longest(Wait wait) {
    return std::chrono::milliseconds(wait == Wait::Patiently ? 5000 : 100);
}

/// Bits of FindData::attributes, by the numbers of Win32.
enum FileAttribute : std::uint32_t {
    kReadOnly = 1,  ///< may not be written by this process
    kHidden = 2,    ///< on Linux: the name begins with a full stop
    kSystem = 4,    ///< on Linux: never
    kDirectory = 16,
    kArchive = 32,  ///< on Linux: every regular file
    kNormal = 128,
    kReparsePoint = 1024,  ///< a link; the other bits are those of what it leads to
};

/// 100 nanoseconds since 1 January 1601, UTC.
using FileTime = std::uint64_t;

/// One entry of a folder.
struct FindData {
    String name;
    std::uint32_t attributes = 0;
    FileTime lastWrite = 0;  ///< 0 where it was not asked for or cannot be known
};

enum class FindDetail {
    Names,       ///< the name, and of the attributes kDirectory and kReparsePoint alone
    Times,       ///< the time of the last change besides
    Attributes,  ///< and all attributes
};

/// Names are Windows names: a drive is a letter and a colon, a network name begins with "\\", "\"
/// and "/" separate. A name is taken as it is spelled when it exists so, else without regard to
/// letter case. Each system stores names its own way (UTF-8 on Linux); a name that this process was
/// given by an operation opens again, whatever bytes it has on disk. A name that holds U+0000 gives
/// kInvalidName everywhere. An operation that fails changes nothing unless it says so.
class Files {
   public:
    virtual ~Files() = default;

    // --- Content ---

    /// Opens a file. A directory, a pipe or a device gives kAccessDenied and is never waited for.
    virtual ErrorCode CreateFileA(const String& name, FileAccess access, Handle& handle) = 0;
    virtual ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) = 0;
    /// The next read begins `position` bytes behind the start of the file.
    virtual ErrorCode SetFilePointerEx(Handle handle, std::uint64_t position) = 0;
    /// Reads up to `capacity` bytes from where the last read ended; `count` 0 is the end. A file
    /// opened for adding that may not be read gives kInvalidHandle; one made by CreateNew is not
    /// for reading.
    virtual ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                               std::size_t& count) = 0;
    /// Writes all of `bytes` behind the last write; a failure may leave a part written.
    ///
    /// To a file opened for adding they go behind whatever any process has written, in one piece
    /// or not at all: only a full disk may keep a part while others have the file open for adding,
    /// and only the death of the process one that is not whole. With `lineBreak`, two characters of
    /// one or two bytes each, they are a line that ends in it, and begin a line: when the file ends
    /// in one without its end, such as the process that died has left, `lineBreak` goes in front.
    ///
    /// kFileReplaced when the name no longer leads to this file: nothing has been written to the
    /// one that it leads to. Linux notices at once when the file is deleted or replaced, and within
    /// a hundredth of a second when it, or a folder around it, is moved. Also for a file that a
    /// forked child has from its parent.
    virtual ErrorCode WriteFile(Handle handle, std::string_view bytes,
                                std::string_view lineBreak = {}) = 0;
    /// Empties a file that is opened for adding; kFileReplaced as above.
    virtual ErrorCode SetEndOfFile(Handle handle) = 0;
    /// Returns when what was written has reached the disk.
    virtual ErrorCode FlushFileBuffers(Handle handle) = 0;
    /// Closes a file or gives a lock back. The handle is gone, whatever the answer.
    virtual ErrorCode CloseHandle(Handle handle) = 0;

    // --- Changing a file whole ---

    /// The name that `name` leads to when every link is followed, for this port alone: it is taken
    /// literally. The last component need not exist.
    virtual ErrorCode GetFinalPathNameA(const String& name, String& target) = 0;

    /// Waits for the sole right to change the file `name`, a final name (see GetFinalPathNameA),
    /// among all processes that ask for it this way. kLockViolation when the wait was too short;
    /// ports::takeReason then says who is in the way, where the system tells. The kernel holds the
    /// right and takes it back when the process dies. The file need not exist; its folder must. It
    /// must allow writing, and if it does not exist its folder, else kAccessDenied.
    ///
    /// Nobody gets the lock while the file is open for FileAccess::Append, and nobody opens it so
    /// while it is locked; of AppendYielding that is true of each single write. But who adds waits
    /// Patiently, and when that was in vain no more until the lock can be had again: then he adds
    /// without it. Linux cannot lock what does not exist: see ReplaceFileA.
    virtual ErrorCode LockFileA(const String& name, Handle& lock, Wait wait = Wait::Patiently) = 0;

    /// Makes an empty file, for writing, that is to take the place of the locked one. Until
    /// ReplaceFileA it has no name where the system can do that, else the name `beside`, final and
    /// in the same folder. A file that has that name already, such as one that a dead process has
    /// left, is deleted; where that is not allowed, a number goes behind the name. CloseHandle
    /// takes a file away again that has not been put in place. kAccessDenied when the folder does
    /// not allow it.
    virtual ErrorCode CreateReplacement(Handle lock, const String& beside, Handle& file) = 0;
    /// Puts `file`, from CreateReplacement, in the place of the locked file, in one step: at every
    /// moment the name leads to the whole old content or the whole new one. Rights of the old file
    /// are kept, and owner and group where the system lets this user give files to them; where it
    /// keeps them from the old group, the group's rights become those of all others. After it
    /// CloseHandle alone may follow for both handles.
    ///
    /// On failure the old file is as before. kAccessDenied when it cannot be replaced, as where
    /// another file system is mounted on it. kFileReplaced when somebody who did not ask for the
    /// lock has changed, replaced or made the file since LockFileA: then lock it and begin again.
    virtual ErrorCode ReplaceFileA(Handle lock, Handle file, Wait wait = Wait::Patiently) = 0;
    /// Writes `content` over the content of the locked file, which exists, and brings it to the
    /// disk. Not one step: readers may see a part of either, and a failure may leave that.
    /// kFileReplaced as above.
    virtual ErrorCode WriteInPlace(Handle lock, std::string_view content) = 0;
    /// Returns when the folder of `name` has reached the disk.
    virtual ErrorCode FlushFolderOf(const String& name) = 0;

    virtual ErrorCode DeleteFileA(const String& name) = 0;

    // --- Folders ---

    /// The attributes of a file or folder, with kReparsePoint for a link; a link that leads nowhere
    /// is not found.
    virtual ErrorCode GetFileAttributesA(const String& name, std::uint32_t& attributes) = 0;
    /// Makes one folder; kPathNotFound when the folder around it is missing.
    virtual ErrorCode CreateDirectoryA(const String& name) = 0;

    /// Begins to list the folder `folder`, in the system's own order, and gives its first entry.
    /// "." and ".." are among the entries, but not always in the root of a drive. What vanishes
    /// meanwhile is left out or not. kFileNotFound for a folder without entries, kPathNotFound
    /// for a name that leads to no folder. On success FindClose must follow.
    virtual ErrorCode FindFirstFileA(const String& folder, FindDetail detail, Handle& search,
                                     FindData& entry) = 0;
    /// The next entry; kNoMoreFiles behind the last one.
    virtual ErrorCode FindNextFileA(Handle search, FindData& entry) = 0;
    virtual void FindClose(Handle search) = 0;
};

}  // namespace quorkit
