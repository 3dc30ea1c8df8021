// Makes the objects that clients ask for.
#pragma once

#include <quorkit/catalogue.h>
#include <unknwn.h>

#include <atomic>

#include "automation/server.h"

namespace quorkit::automation {

/// Makes objects of a class; of a global class it gives each apartment its one instance.
class ClassFactory final : public IClassFactory {
   public:
    /// Counted once.
    explicit ClassFactory(const ClassInfo& info);
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID wanted, void** made) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

   private:
    ~ClassFactory() = default;

    std::atomic<ULONG> count_ = 1;
    const String className_;
    const InUse inUse_;
};

/// The public class of that identity; null when there is none.
const ClassInfo* classOf(const GUID& identity);

}  // namespace quorkit::automation
