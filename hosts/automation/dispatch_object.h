// An object of the library as a client calls it.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <quorkit/object.h>

#include <atomic>
#include <memory>

#include "automation/apartment.h"
#include "automation/server.h"

namespace quorkit::automation {

/// Members have the names and identifiers of the catalogue. Value is the member with the identifier
/// 0, if there is one, and _NewEnum the elements of a container.
class DispatchObject final : public IDispatch, public IProvideClassInfo, public ISupportErrorInfo {
   public:
    /// Counted once.
    DispatchObject(std::shared_ptr<Apartment> apartment, ObjectRef object);
    DispatchObject(const DispatchObject&) = delete;
    DispatchObject& operator=(const DispatchObject&) = delete;

    /// The library's object behind a client's pointer; null when it is none of this apartment's.
    static ObjectRef behind(IUnknown* pointer, const Apartment& apartment);
    const ObjectRef& object() const { return object_; }
    /// Counts it once more, unless its last reference has gone.
    bool revive();

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* identifiers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                                     UINT* argument) override;
    // IProvideClassInfo
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
    // ISupportErrorInfo
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID which) override;

   private:
    ~DispatchObject();
    HRESULT typeInfo(const char* identity, ITypeInfo** info) const;
    HRESULT elements(VARIANT* result, EXCEPINFO* failure);

    std::atomic<ULONG> count_ = 1;
    const std::shared_ptr<Apartment> apartment_;
    const ObjectRef object_;
    const InUse inUse_;
};

}  // namespace quorkit::automation
