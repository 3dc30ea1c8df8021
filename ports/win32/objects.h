// What is built of objects: dialogs, and the shell.
#pragma once

#include <objbase.h>
#include <windows.h>

namespace quorkit::win32 {

/// A thread must be made ready for objects before it uses what is built of them.
class Objects {
   public:
    Objects() : ready_(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~Objects() {
        if (SUCCEEDED(ready_)) ::CoUninitialize();
    }
    Objects(const Objects&) = delete;
    Objects& operator=(const Objects&) = delete;

   private:
    HRESULT ready_;  // a failure means that the program itself has chosen a way
};

}  // namespace quorkit::win32
