// An object of the library as a client calls it.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <quorkit/object.h>

#include <memory>

#include "automation/apartment.h"
#include "automation/counted.h"

namespace quorkit::automation {

/// Members have the names and identifiers of the catalogue. Value is the member with the identifier
/// 0, if there is one, and _NewEnum the elements of a container.
class DispatchObject final
    : public Counted<DispatchObject, IDispatch, IProvideClassInfo, ISupportErrorInfo> {
   public:
    /// Counted once.
    DispatchObject(std::shared_ptr<Apartment> apartment, ObjectRef object);
    ~DispatchObject();

    /// The library's object behind a client's pointer; null when it is none of this apartment's.
    static ObjectRef behind(IUnknown* pointer, const Apartment& apartment);
    const ObjectRef& object() const { return object_; }

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override;
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
    HRESULT typeInfo(const char* identity, ITypeInfo** info) const;
    HRESULT elements(VARIANT* result, EXCEPINFO* failure);

    const std::shared_ptr<Apartment> apartment_;
    const ObjectRef object_;
};

}  // namespace quorkit::automation
