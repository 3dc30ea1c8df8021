// The objects behind a Handle on Linux.
#pragma once

#include <fcntl.h>
#include <quorkit/ports/files.h>
#include <sys/stat.h>

#include <cstdint>
#include <memory>
#include <string>

#include "linux/file_lock.h"

namespace quorkit::native {

/// What is known of a file for adding between two writes.
struct Adding {
    unsigned generation = 0;     ///< of the process that opened it
    bool safe = false;           ///< a lock keeps others from replacing it
    std::uint32_t links = 0;     ///< number of its names when its own was last looked up,
    std::int64_t lastLook = 0;   ///< and the time of that
    off_t end = -1;              ///< end of the last line, if nobody else has added anything
    off_t size = 0;              ///< of the last line
    std::string beginning = {};  ///< of the last line
    std::string feed = {};       ///< what ends a line
};

/// An open file, or the lock on one that may not exist. The destructor unlocks and closes it.
struct Opened {
    int descriptor = -1;
    FileAccess access = FileAccess::Read;
    std::string path;
    struct stat about = {};  ///< status when it was opened; for a lock, when it was locked
    bool locked = false;     ///< `lock` has been called
    bool forWork = false;    ///< for a replacement: it exists at `path`
    Adding adding;

    Opened() = default;
    ~Opened() { close(); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    /// Opens a regular file at `path` with flags of open(2). A file to be written is not opened
    /// through another user's link, see finalPath.
    ErrorCode openRegular(int flags);
    ErrorCode lock(int kind, Wait wait = Wait::Patiently);
    void unlock();
    ErrorCode close();
    /// Whether `path` still leads to this file.
    bool keepsItsName() const;
    /// Whether it does, and the file has not been written since `about`.
    bool isAsItWas() const;
};

inline Opened& openedOf(Handle handle) {
    return *reinterpret_cast<Opened*>(handle);
}
inline Handle toHandle(std::unique_ptr<Opened> file) {
    return Handle(reinterpret_cast<std::intptr_t>(file.release()));
}

/// Flags that never wait for a pipe or a device, and close the file in programs that we start.
inline constexpr int kQuietly = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

/// Without any write permission a file counts as read-only even for the superuser.
bool writableByAnyone(const struct stat& file);

}  // namespace quorkit::native
