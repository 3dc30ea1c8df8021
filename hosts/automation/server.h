// The library in its client's process: when it may be unloaded, and where it lies.
#pragma once

#include <windows.h>

#include <string>

namespace quorkit::automation {

/// The library stays loaded as long as one of these exists.
class InUse {
   public:
    InUse() { begin(); }
    ~InUse() { end(); }
    InUse(const InUse&) = delete;
    InUse& operator=(const InUse&) = delete;

    static void begin();
    static void end();
    static bool any();
};

HINSTANCE module();
/// The whole path of the library's file.
std::wstring modulePath();

}  // namespace quorkit::automation
