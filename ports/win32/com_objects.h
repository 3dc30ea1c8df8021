// COM objects, which the dialogs and the shell are made of.
#pragma once

#include <objbase.h>
#include <windows.h>

#include <memory>

namespace quorkit::native {

/// Prepares the calling thread for COM while this object lives.
class Objects {
   public:
    Objects() : ready_(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~Objects() {
        if (SUCCEEDED(ready_)) ::CoUninitialize();
    }
    Objects(const Objects&) = delete;
    Objects& operator=(const Objects&) = delete;

   private:
    HRESULT ready_;  // a failure means that the program has prepared the thread itself
};

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class T>
using Interface = std::unique_ptr<T, Release>;

/// The object that `make` stores in the pointer it gets; null when that fails.
template <class T, class Make>
Interface<T> made(Make make) {
    T* object = nullptr;
    return Interface<T>(SUCCEEDED(make(&object)) ? object : nullptr);
}

}  // namespace quorkit::native
