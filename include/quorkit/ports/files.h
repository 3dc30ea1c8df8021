// Files as operations. Each returns an error code; `kSuccess` is the only one that means done.
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
    Append,          ///< for adding at the end, made when missing; see Files
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

/// Names are Windows names: a drive is a letter and a colon, a network name begins with "\\", "\"
/// and "/" separate. A name is taken as it is spelled when it exists so, else without regard to
/// letter case. Each system stores names its own way (UTF-8 on Linux); a name that this process was
/// given by an operation opens again, whatever bytes it has on disk. A name that holds U+0000 gives
/// kInvalidName everywhere. An operation that fails changes nothing unless it says so.
///
/// Some add to a file and some change it whole. What one of them has decides what the others get:
///
///     what one has           | another opens to add | appends  | locks    | changes unasked
///     -----------------------|----------------------|----------|----------|-----------------
///     nothing                | at once              | at once  | at once  | is done
///     open, Append           | at once              | at once  | waits    | is noticed (1)
///     open, AppendYielding   | at once              | at once  | at once  | is noticed
///      ... while it appends  | at once              | at once  | waits    | is noticed
///     lock                   | waits (2)            | waits    | waits    | is noticed
///     lock of no file (3)    | waits                | no file  | waits    | is noticed
///
/// Changes unasked: who replaces, makes, moves or deletes the file without LockForChange. Nothing
/// keeps him from it, but the next Append, EmptyFile, Replace or WriteInPlace of whoever has the
/// file finds that out, gives kFileReplaced and has written nothing to the file that the name leads
/// to now. So does an append after a wait for a lock under which the file was replaced.
///
/// Waits: who locks gets kLockViolation when the wait was too short. Who adds waits Patiently, and
/// when that was in vain he adds without the lock, and does not wait for it again until it can be
/// had. The kernel holds locks, and takes them back when a process dies.
///
/// (1) Windows does not let anybody replace it. (2) For AppendYielding Linux waits only when it
/// appends. (3) Linux cannot lock what does not exist: all of this is at once there, and Replace
/// gives kFileReplaced to all but the first who makes the file.
class Files {
   public:
    virtual ~Files() = default;

    /// Opens a file. A directory, a pipe or a device gives kAccessDenied and is never waited for.
    virtual ErrorCode Open(const String& name, FileAccess access, Handle& handle) = 0;
    virtual ErrorCode GetFileSizeEx(Handle handle, std::uint64_t& size) = 0;
    /// The next read begins `position` bytes behind the start of the file.
    virtual ErrorCode SetFilePointerEx(Handle handle, std::uint64_t position) = 0;
    /// Reads up to `capacity` bytes from where the last read ended; `count` 0 is the end. A file
    /// opened for adding that may not be read gives kInvalidHandle; one made by CreateNew is not
    /// for reading.
    virtual ErrorCode ReadFile(Handle handle, char* buffer, std::size_t capacity,
                               std::size_t& count) = 0;
    /// Writes all of `bytes` behind the last write to a file that is new; a failure may leave a
    /// part written. kAccessDenied for a file opened in another way.
    virtual ErrorCode WriteFile(Handle handle, std::string_view bytes) = 0;
    /// Returns when what was written has reached the disk.
    virtual ErrorCode FlushFileBuffers(Handle handle) = 0;
    /// Closes a file or gives a lock back. The handle is gone, whatever the answer.
    virtual ErrorCode CloseHandle(Handle handle) = 0;
    virtual ErrorCode DeleteFileA(const String& name) = 0;

    // --- Adding to a file that is opened for it; kAccessDenied for any other ---

    /// Adds `bytes` behind whatever any process has written, in one piece or not at all: only a
    /// full disk may keep a part while others have the file open for adding, and only the death of
    /// the process one that is not whole. With `lineBreak`, two characters of one or two bytes
    /// each, they are a line that ends in it, and begin a line: when the file ends in one without
    /// its end, such as the process that died has left, `lineBreak` goes in front.
    ///
    /// kFileReplaced when the name no longer leads to this file. Linux notices at once when the
    /// file is deleted or replaced, and within a hundredth of a second when it, or a folder around
    /// it, is moved. Also for a file that a forked child has from its parent.
    virtual ErrorCode Append(Handle handle, std::string_view bytes,
                             std::string_view lineBreak = {}) = 0;
    /// Leaves nothing of the content; kFileReplaced as above.
    virtual ErrorCode EmptyFile(Handle handle) = 0;

    // --- Changing a file whole ---

    /// The name that `name` leads to when every link is followed, for this port alone: it is taken
    /// literally. The last component need not exist.
    virtual ErrorCode FinalName(const String& name, String& target) = 0;

    /// Waits for the sole right to change the file `name`, a final name (see FinalName), among all
    /// processes that ask for it this way. kLockViolation when the wait was too short;
    /// ports::takeReason then says who is in the way, where the system tells. The file need not
    /// exist; its folder must. It must allow writing, and if it does not exist its folder, else
    /// kAccessDenied.
    virtual ErrorCode LockForChange(const String& name, Handle& lock,
                                    Wait wait = Wait::Patiently) = 0;

    /// Makes an empty file, for writing, that is to take the place of the locked one. Until Replace
    /// it has no name where the system can do that, else the name `beside`, final and in the same
    /// folder. A file that has that name already, such as one that a dead process has left, is
    /// deleted; where that is not allowed, a number goes behind the name. CloseHandle takes a file
    /// away again that has not been put in place. kAccessDenied when the folder does not allow it.
    virtual ErrorCode CreateReplacement(Handle lock, const String& beside, Handle& file) = 0;
    /// Puts `file`, from CreateReplacement, in the place of the locked file, in one step: at every
    /// moment the name leads to the whole old content or the whole new one. Rights of the old file
    /// are kept, and owner and group where the system lets this user give files to them; where it
    /// keeps them from the old group, the group's rights become those of all others. After it
    /// CloseHandle alone may follow for both handles.
    ///
    /// On failure the old file is as before. kAccessDenied when it cannot be replaced, as where
    /// another file system is mounted on it. kFileReplaced when somebody who did not ask for the
    /// lock has changed, replaced or made the file meanwhile: then lock it and begin again.
    virtual ErrorCode Replace(Handle lock, Handle file, Wait wait = Wait::Patiently) = 0;
    /// Writes `content` over the content of the locked file, which exists, and brings it to the
    /// disk. Not one step: readers may see a part of either, and a failure may leave that.
    /// kFileReplaced as above.
    virtual ErrorCode WriteInPlace(Handle lock, std::string_view content) = 0;
    /// Returns when the folder of `name` has reached the disk.
    virtual ErrorCode FlushFolderOf(const String& name) = 0;
};

}  // namespace quorkit
