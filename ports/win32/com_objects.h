// What is built of objects: dialogs, and the shell.
#pragma once

#include <objbase.h>
#include <windows.h>

#include <memory>

namespace quorkit::native {

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

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class T>
using Interface = std::unique_ptr<T, Release>;

/// What `make` puts into the pointer that it gets; null when it fails.
template <class T, class Make>
Interface<T> made(Make make) {
    T* object = nullptr;
    return Interface<T>(SUCCEEDED(make(&object)) ? object : nullptr);
}

}  // namespace quorkit::native
