// A handle of the system that closes itself.
#pragma once

#include <windows.h>

#include <memory>

namespace quorkit::native {

struct CloseIt {
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, CloseIt>;

}  // namespace quorkit::native
