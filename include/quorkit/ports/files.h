// Operations on files. Each returns an error code; only `kSuccess` means that it was done.
#pragma once

#include <quorkit/values.h>
#include <quorkit/values/error_code.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorkit {

/// An open file, a listing or a lock that is held. Never inherited by a program that we start.
enum class Handle : std::intptr_t { Invalid = -1 };

enum class FileAccess {
    Read,            ///< an existing regular file, from its start
    CreateNew,       ///< a file that must not exist yet, for writing, readable by its owner only
    Append,          ///< for adding at the end; made when missing; see Files
    AppendYielding,  ///< like Append, but lets others replace the file
};

inline bool isForAdding(FileAccess access) {
    return access == FileAccess::Append || access == FileAccess::AppendYielding;
}

/// How long to wait while another process holds a lock. Every wait is limited, because anyone who
/// may read a file can lock it and a holder may be stopped.
enum class Wait {
    Patiently,  ///< five seconds, for operations that must not fail because others write too
    Briefly,    ///< a tenth of a second
};
constexpr std::chrono::milliseconds longest(Wait wait) {
    return std::chrono::milliseconds(wait == Wait::Patiently ? 5000 : 100);
}

/// Names are Windows names: a drive is a letter and a colon, a network name begins with "\\", "\"
/// and "/" separate. A name means the file of exactly that spelling if there is one, else one that
/// differs in letter case. Each system stores names its own way (UTF-8 on Linux); a name that an
/// operation has returned to this process can be opened again, whatever bytes it has on disk. A
/// name that holds U+0000 gives kInvalidName everywhere. An operation that fails changes nothing
/// unless it says so.
///
/// There are two ways to write to a file: adding at its end, and changing it whole under a lock.
/// The table says what the second user of a file meets, depending on what the first one holds:
///
///     what the first holds   | the second opens to | the second | the second | foreign changes
///                            | add                 | appends    | locks      |
///     -----------------------|---------------------|------------|------------|----------------
///     nothing                | at once             | at once    | at once    | succeed
///     open, Append           | at once             | at once    | waits      | are noticed (1)
///     open, AppendYielding   | at once             | at once    | at once    | are noticed
///      ... while it appends  | at once             | at once    | waits      | are noticed
///     lock                   | waits (2)           | waits      | waits      | are noticed
///     lock of no file (3)    | waits               | no file    | waits      | are noticed
///
/// A foreign change is made by someone who replaces, makes, moves or deletes the file without
/// LockForChange. It cannot be prevented, but the holder's next Append, EmptyFile, Replace or
/// WriteInPlace notices it: the operation returns kFileReplaced and has written nothing to the file
/// that the name leads to now. An append that has waited for a lock returns kFileReplaced too if
/// the file was replaced under that lock.
///
/// A lock gives kLockViolation when the wait was too short. An append waits Patiently; if that is
/// in vain it goes ahead without the lock, and later appends do not wait until the lock was free
/// once. The kernel holds the locks and takes them back when a process dies.
///
/// (1) On Windows nobody can replace the file. (2) With AppendYielding Linux waits only when
/// appending. (3) Linux cannot lock a file that does not exist: there everything happens at once,
/// and of all who make the file only the first succeeds; Replace gives kFileReplaced to the others.
class Files {
   public:
    virtual ~Files() = default;

    /// Opens a file. A directory, a pipe or a device gives kAccessDenied, without waiting.
    virtual ErrorCode Open(const String& name, FileAccess access, Handle& handle) = 0;
    virtual ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) = 0;
    /// Makes the next read begin `position` bytes behind the start of the file.
    virtual ErrorCode SetFilePointerEx(Handle handle, std::uint64_t position) = 0;
    /// Reads up to `capacity` bytes from where the last read ended; `count` 0 means the end.
    /// kInvalidHandle for a file opened for adding that may not be read. A file from CreateNew is
    /// not for reading.
    virtual ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                               std::size_t& count) = 0;
    /// Writes all of `bytes` to a new file, behind the last write; a failure may leave a part
    /// written. kAccessDenied for a file opened in another way.
    virtual ErrorCode WriteFile(Handle handle, std::string_view bytes) = 0;
    /// Returns when everything written has reached the disk.
    virtual ErrorCode FlushFileBuffers(Handle handle) = 0;
    /// Closes a file or gives a lock back. The handle is invalid afterwards, even on a failure.
    virtual ErrorCode CloseHandle(Handle handle) = 0;
    virtual ErrorCode DeleteFileA(const String& name) = 0;

    // --- Adding; a file that was not opened for adding gives kAccessDenied ---

    /// Adds `bytes` at the current end of the file, in one piece or not at all. There are two
    /// exceptions: on a full disk a part may stay while others have the file open for adding; and a
    /// process that dies may leave a part. With `lineBreak`, two characters of one or two bytes
    /// each, `bytes` are a line that ends in `lineBreak`. If the file then ends in a line without
    /// its end, such as a dead process leaves, `lineBreak` is written in front, so that `bytes`
    /// begin a line.
    ///
    /// kFileReplaced when the name no longer leads to this file. Linux notices at once when the
    /// file is deleted or replaced, and within a hundredth of a second when it, or a folder above
    /// it, is moved. This also holds for a file that a forked child has from its parent.
    virtual ErrorCode Append(Handle handle, std::string_view bytes,
                             std::string_view lineBreak = {}) = 0;
    /// Deletes the content; kFileReplaced as above.
    virtual ErrorCode EmptyFile(Handle handle) = 0;

    // --- Changing a file whole ---

    /// The name that `name` leads to when all links are followed. Only this port understands it,
    /// and takes it literally. The last component need not exist.
    virtual ErrorCode FinalName(const String& name, String& target) = 0;

    /// Waits for the sole right to change the file `name`, which must be a final name (see
    /// FinalName), among all processes that lock it in this way. kLockViolation when the wait was
    /// too short; ports::takeReason then names the holder, where the system knows it. The file need
    /// not exist, but its folder must. kAccessDenied when the file, or for a new file its folder,
    /// does not allow writing.
    virtual ErrorCode LockForChange(const String& name, Handle& lock,
                                    Wait wait = Wait::Patiently) = 0;

    /// Makes an empty file, for writing, that Replace is to put in the place of the locked one.
    /// Where the system can do that, the file has no name until then; elsewhere its name is
    /// `beside`, a final name in the same folder. An old file of that name, such as a dead process
    /// leaves, is deleted; if that is not allowed, a number is added to the name. CloseHandle
    /// deletes a file that was not put in place. kAccessDenied when the folder does not allow this.
    virtual ErrorCode CreateReplacement(Handle lock, const String& beside, Handle& file) = 0;
    /// Puts `file`, from CreateReplacement, in the place of the locked file in one step: at every
    /// moment the name leads to the whole old content or the whole new one. The rights of the old
    /// file are kept; owner and group are kept where the system lets this user give files to them.
    /// Where the old group cannot be kept, the group gets only the rights of all others. Afterwards
    /// both handles can only be closed.
    ///
    /// On failure the old file is unchanged. kAccessDenied when it cannot be replaced, for instance
    /// because another file system is mounted on it. kFileReplaced when somebody without the lock
    /// has changed, replaced or made the file meanwhile: then lock it and begin again.
    virtual ErrorCode Replace(Handle lock, Handle file, Wait wait = Wait::Patiently) = 0;
    /// Overwrites the content of the locked file, which exists, with `content`, and brings it to
    /// the disk. This is not one step: readers may see a mixture of old and new, and a failure may
    /// leave one. kFileReplaced as above.
    virtual ErrorCode WriteInPlace(Handle lock, std::string_view content) = 0;
    /// Returns when the folder that contains `name` has reached the disk.
    virtual ErrorCode FlushFolderOf(const String& name) = 0;
};

}  // namespace quorkit
