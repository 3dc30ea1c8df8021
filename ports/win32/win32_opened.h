// The object behind a Handle: an open file, or a lock.
#pragma once

#include <quorkit/ports/folders.h>
#include <windows.h>

#include <cstdint>
#include <memory>

#include "win32/file_mutex.h"

namespace quorkit::native {

/// A record of a file that shows whether somebody has changed it.
struct Look {
    bool there = false;
    std::uint64_t size = 0;
    FileTime lastWrite = 0;

    static Look at(const String& name);
    bool operator==(const Look&) const = default;
};

struct Opened {
    HANDLE file = nullptr;  ///< null for a lock, and for FileAccess::AppendYielding
    FileAccess access = FileAccess::Read;
    std::uint64_t position = 0;        ///< start of the next read
    std::unique_ptr<FileMutex> mutex;  ///< for a lock, and for a file for adding
    bool lock = false;
    Look look;             ///< for a lock: when it was locked
    bool forWork = false;  ///< for a replacement: it is not in place yet
    /// For AppendYielding. An open file cannot be replaced here, so it is opened for each
    /// operation; its number shows whether the name leads to another file now.
    String name;
    std::uint64_t number = 0;
};

/// Cuts a file off at `size`.
ErrorCode cutAt(HANDLE file, std::uint64_t size);
/// Writes at `place`, or behind the last write when `place` is null.
ErrorCode writeAll(HANDLE file, std::string_view bytes, OVERLAPPED* place);

inline Opened& opened(Handle handle) {
    return *reinterpret_cast<Opened*>(handle);
}

inline Handle toHandle(std::unique_ptr<Opened> file) {
    return Handle(reinterpret_cast<std::intptr_t>(file.release()));
}

}  // namespace quorkit::native
