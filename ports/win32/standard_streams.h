// The handles that a program we start inherits: three standard streams, and nothing else.
#pragma once

#include <windows.h>

#include <array>
#include <memory>

#include "win32/owned_handle.h"

namespace quorkit::native {

class StandardStreams {
   public:
    /// Copies this program's streams, whether these can be inherited or not.
    StandardStreams();
    ~StandardStreams();
    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;

    /// Whether there are any, and the system has accepted the list of them.
    bool any() const { return list_ != nullptr; }
    /// Puts the streams into the record. A program without any passes on those of its console, if
    /// it has one.
    void enter(STARTUPINFOEXW& record) const;

   private:
    std::array<OwnedHandle, 3> copies_;
    std::array<HANDLE, 3> handles_{};  // only those that exist
    std::unique_ptr<char[]> room_;
    LPPROC_THREAD_ATTRIBUTE_LIST list_ = nullptr;
};

}  // namespace quorkit::native
