// What is behind a Handle on Linux.
#pragma once

#include <fcntl.h>
#include <quorkit/ports/files.h>
#include <sys/stat.h>

#include <ctime>
#include <memory>
#include <string>

namespace quorkit::disk {

/// An open file, or a lock on one. Its end closes it.
struct Opened {
    int descriptor = -1;
    FileAccess access = FileAccess::Read;
    std::string path;
    struct stat about = {};    ///< as it was when it was opened
    std::time_t lastLook = 0;  ///< when its name was looked at, see keepsItsName
    bool madeByLock = false;   ///< a lock takes the file it made away again if nobody filled it

    Opened() = default;
    ~Opened();
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    /// Opens a regular file at `path` with flags of open(2).
    ErrorCode openRegular(int flags);
    /// Whether `path` leads to this file now.
    bool keepsItsName() const;
};

inline Opened& openedOf(Handle handle) {
    return *reinterpret_cast<Opened*>(handle);
}
inline Handle handOut(std::unique_ptr<Opened> file) {
    return Handle(reinterpret_cast<std::intptr_t>(file.release()));
}

/// Never waits for a pipe or a device, and is closed in programs that we start.
inline constexpr int kQuietly = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

/// Without any write permission a file counts as read-only even for the superuser.
bool writableByAnyone(const struct stat& file);

/// Gives `file` the owner, rights and extended attributes of the file `old` at `path`. A failure
/// may leave some given.
ErrorCode copyRights(const std::string& path, const struct stat& old, const Opened& file);

/// Locks of flock(2): they lie on the file itself, so they die with the process and leave nothing
/// behind.
ErrorCode lock(int descriptor, int kind, Wait wait = Wait::Forever);

}  // namespace quorkit::disk
