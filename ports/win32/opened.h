// What is behind a Handle: an open file, or a lock.
#pragma once

#include <quorkit/ports/files.h>
#include <windows.h>

#include <cstdint>
#include <memory>

#include "win32/gate.h"

namespace quorkit::win32 {

struct Opened {
    HANDLE file = nullptr;  ///< null for a lock, and for FileAccess::AppendYielding
    FileAccess access = FileAccess::Read;
    std::uint64_t position = 0;  ///< where the next read begins
    std::unique_ptr<Gate> gate;  ///< of a lock, and of a file for adding
    bool lock = false;
    /// A file that is open cannot be replaced here, so one that yields is opened for each
    /// operation, and told by its number from another that has taken its name.
    String name;
    std::uint64_t number = 0;
};

inline Opened& opened(Handle handle) {
    return *reinterpret_cast<Opened*>(handle);
}

inline Handle handOut(std::unique_ptr<Opened> file) {
    return Handle(reinterpret_cast<std::intptr_t>(file.release()));
}

}  // namespace quorkit::win32
