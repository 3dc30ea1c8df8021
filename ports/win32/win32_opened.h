// What is behind a Handle: an open file, or a lock.
#pragma once

#include <quorkit/ports/folders.h>
#include <windows.h>

#include <cstdint>
#include <memory>

#include "win32/file_gate.h"

namespace quorkit::native {

/// What tells whether somebody has changed a file meanwhile.
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
    std::uint64_t position = 0;  ///< where the next read begins
    std::unique_ptr<Gate> gate;  ///< of a lock, and of a file for adding
    bool lock = false;
    Look look;             ///< of a lock: when it was locked
    bool forWork = false;  ///< of a replacement: whether it has not been put in place yet
    /// A file that is open cannot be replaced here, so one that yields is opened for each
    /// operation, and told by its number from another that has taken its name.
    String name;
    std::uint64_t number = 0;
};

/// Ends a file at `size`.
ErrorCode cutAt(HANDLE file, std::uint64_t size);
/// Writes at `place`, or where the last write ended when it is null.
ErrorCode writeAll(HANDLE file, std::string_view bytes, OVERLAPPED* place);

inline Opened& opened(Handle handle) {
    return *reinterpret_cast<Opened*>(handle);
}

inline Handle handOut(std::unique_ptr<Opened> file) {
    return Handle(reinterpret_cast<std::intptr_t>(file.release()));
}

}  // namespace quorkit::native
