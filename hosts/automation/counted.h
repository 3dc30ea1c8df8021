// An object that clients hold.
#pragma once

#include <oaidl.h>

#include <atomic>

#include "automation/server.h"

namespace quorkit::automation {

/// What IUnknown promises, for a class with these interfaces: it derives from Counted of itself,
/// and is deleted with its last reference. The library stays loaded until then.
template <class Self, class First, class... More>
class Counted : public First, public More... {
   public:
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
        if (found == nullptr) return E_POINTER;
        *found = nullptr;
        if (wanted == IID_IUnknown || wanted == __uuidof(First)) *found = static_cast<First*>(this);
        ((wanted == __uuidof(More) ? * found = static_cast<More*>(this) : nullptr), ...);
        if (*found == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --count_;
        if (left == 0) delete static_cast<Self*>(this);
        return left;
    }

    /// Counts it once more, unless its last reference has gone.
    bool revive() {
        ULONG count = count_;
        while (count != 0)
            if (count_.compare_exchange_weak(count, count + 1)) return true;
        return false;
    }

   protected:
    /// Counted once.
    Counted() = default;
    ~Counted() = default;

   private:
    std::atomic<ULONG> count_ = 1;
    const InUse inUse_;
};

}  // namespace quorkit::automation
