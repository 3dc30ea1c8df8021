// What is behind a Handle on Linux.
#pragma once

#include <fcntl.h>
#include <quorkit/ports/files.h>
#include <sys/stat.h>

#include <ctime>
#include <memory>
#include <string>

#include "linux/lock.h"

namespace quorkit::disk {

/// An open file, or the lock on one that is there or not. Its end unlocks and closes it.
struct Opened {
    int descriptor = -1;
    FileAccess access = FileAccess::Read;
    std::string path;
    struct stat about = {};    ///< as it was when it was opened; of a lock, when it was locked
    std::time_t lastLook = 0;  ///< when its name was looked at, see keepsItsName
    bool locked = false;       ///< whether `lock` has been called
    bool forWork = false;      ///< of a replacement: whether it stands at `path`

    Opened() = default;
    ~Opened() { close(); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    /// Opens a regular file at `path` with flags of open(2). To be written it is not opened through
    /// another user's link, see finalPath.
    ErrorCode openRegular(int flags);
    ErrorCode lock(int kind, Wait wait = Wait::Patiently);
    void unlock();
    ErrorCode close();
    /// Whether `path` leads to this file now.
    bool keepsItsName() const;
    /// Whether it does, and nobody has written to it since `about`.
    bool isAsItWas() const;
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

}  // namespace quorkit::disk
