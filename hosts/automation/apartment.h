// One client's view of the library: an apartment, which is a thread with its objects.
#pragma once

#include <oaidl.h>
#include <quorkit/dispatch.h>

#include <map>
#include <memory>
#include <mutex>

#include "automation/com.h"

namespace quorkit::automation {

class DispatchObject;

/// Used on the thread that it belongs to, but for what says otherwise. An apartment lives until its
/// thread has ended and no client holds an object of it.
class Apartment : public std::enable_shared_from_this<Apartment> {
   public:
    /// That of the calling thread, made on first use.
    static std::shared_ptr<Apartment> current();
    /// The calling thread ends. Frees nothing: the system holds a lock of its own meanwhile, under
    /// which nothing may run that could wait.
    static void leave() noexcept;
    /// Frees the apartments of ended threads, and with `all` every other that no client uses.
    static void sweep(bool all);

    Library& library() { return library_; }
    bool isCurrent() const { return thread_ == GetCurrentThreadId(); }

    /// The object as a client sees it: its own object as itself, a picture as one of the system's,
    /// any other of the library's always as the same. Null for Nothing.
    Ref<IDispatch> dispatchOf(const ObjectRef& object);
    /// A client's object as the library sees it, one of the library's as itself, the system's
    /// picture as a picture. Null is Nothing.
    /// Error 13 when it cannot be called by name.
    ObjectRef objectOf(IUnknown* object);

    /// A client has let go of the object. On any thread.
    void forget(const DispatchObject& object);

   private:
    Library library_;
    DWORD thread_ = GetCurrentThreadId();
    std::mutex mutex_;
    std::map<const Object*, DispatchObject*> known_;  // they count themselves
};

}  // namespace quorkit::automation
