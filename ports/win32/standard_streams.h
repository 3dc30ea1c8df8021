// What a program that we start inherits: three standard streams, and nothing else.
#pragma once

#include <windows.h>

#include <array>
#include <memory>

#include "win32/owned_handle.h"

namespace quorkit::native {

class StandardStreams {
   public:
    /// Copies of this program's own streams, whether those can be inherited or not.
    StandardStreams();
    ~StandardStreams();
    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;

    /// Whether there are any, and the system has taken the list of them.
    bool any() const { return list_ != nullptr; }
    /// Puts them into the record; a program without any gives those of its console, if any.
    void enter(STARTUPINFOEXW& record) const;

   private:
    std::array<OwnedHandle, 3> copies_;
    std::array<HANDLE, 3> handles_{};  // those that are there
    std::unique_ptr<char[]> room_;
    LPPROC_THREAD_ATTRIBUTE_LIST list_ = nullptr;
};

}  // namespace quorkit::native
