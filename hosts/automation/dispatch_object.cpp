#include "automation/dispatch_object.h"

#include <quorkit/catalogue_object.h>

#include <optional>
#include <utility>

#include "automation/enumerator.h"
#include "automation/failure.h"
#include "automation/guid.h"
#include "automation/invocation.h"
#include "automation/type_information.h"

namespace quorkit::automation {
namespace {

/// What only these objects have. Made for this purpose; a pointer that crosses to another apartment
/// loses it.
constexpr GUID kOwn = {
    0x673d865c, 0x04b8, 0x44f9, {0xaa, 0xdf, 0x94, 0xb1, 0xa8, 0x22, 0x1c, 0x8d}};

const ClassInfo& infoOf(const Object& object) {
    return static_cast<const CatalogueObject&>(object).info();
}

/// Null is "".
StringView nameOf(const OLECHAR* text) {
    return text == nullptr ? StringView() : reinterpret_cast<const char16_t*>(text);
}

const MemberInfo* memberOf(const ClassInfo& info, StringView name) {
    const MemberInfo* member = findMember(info, name, CallKind::Call);
    return member != nullptr ? member : findMember(info, name, CallKind::Let);
}

/// A property has one name for the parameters of both of its rows.
DISPID positionOf(const ClassInfo& info, const MemberInfo& member, StringView parameter) {
    for (const CallKind kind : {CallKind::Call, CallKind::Let})
        if (const MemberInfo* row = findMember(info, member.identifier, kind))
            if (const auto position = findParameter(*row, parameter))
                return static_cast<DISPID>(*position);
    return DISPID_UNKNOWN;
}

}  // namespace

DispatchObject::DispatchObject(std::shared_ptr<Apartment> apartment, ObjectRef object)
    : apartment_(std::move(apartment)), object_(std::move(object)) {}

DispatchObject::~DispatchObject() {
    apartment_->forget(*this);
}

ObjectRef DispatchObject::behind(IUnknown* pointer, const Apartment& apartment) {
    void* found = nullptr;
    if (FAILED(pointer->QueryInterface(kOwn, &found))) return {};
    const auto own = Ref<DispatchObject>(static_cast<DispatchObject*>(found));
    return own->apartment_.get() == &apartment ? own->object_ : ObjectRef();
}

HRESULT DispatchObject::QueryInterface(REFIID wanted, void** found) {
    if (found == nullptr) return E_POINTER;
    *found = nullptr;
    const ClassInfo& info = infoOf(*object_);
    // A runtime object has the identity of an interface with functions of its own, which this is
    // not.
    const bool runtime = info.kind == ClassKind::Runtime;
    const bool hidden = runtime && wanted == IID_IProvideClassInfo;
    if (!hidden && Counted::QueryInterface(wanted, found) == S_OK) return S_OK;
    if (wanted == kOwn)
        *found = this;
    else if (!runtime && wanted == guidOf(info.interfaceIdentity))
        *found = static_cast<IDispatch*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT DispatchObject::typeInfo(const char* identity, ITypeInfo** info) const {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return guarded([&] { return typeInfoOf(guidOf(identity), info); });
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (index != 0) return DISP_E_BADINDEX;
    return typeInfo(infoOf(*object_).interfaceIdentity, info);
}

HRESULT DispatchObject::GetClassInfo(ITypeInfo** info) {
    return typeInfo(infoOf(*object_).identity, info);
}

HRESULT DispatchObject::InterfaceSupportsErrorInfo(REFIID which) {
    return which == IID_IDispatch || which == guidOf(infoOf(*object_).interfaceIdentity) ? S_OK
                                                                                         : S_FALSE;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                      DISPID* identifiers) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || identifiers == nullptr) return E_POINTER;
    if (count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) identifiers[i] = DISPID_UNKNOWN;
    const ClassInfo& info = infoOf(*object_);
    const MemberInfo* member = memberOf(info, nameOf(names[0]));
    if (member == nullptr) return DISP_E_UNKNOWNNAME;
    identifiers[0] = member->identifier;
    bool allFound = true;
    for (UINT i = 1; i < count; ++i) {
        identifiers[i] = positionOf(info, *member, nameOf(names[i]));
        allFound &= identifiers[i] != DISPID_UNKNOWN;
    }
    return allFound ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT DispatchObject::elements(VARIANT* result, EXCEPINFO* failure) {
    try {
        Variant all = object_->elements();
        if (result == nullptr) return S_OK;
        VariantInit(result);
        result->punkVal =
            new Enumerator(apartment_, std::move(all.get<Array<Variant>>().elements()));
        result->vt = VT_UNKNOWN;
        return S_OK;
    } catch (...) {
        return tell(errorOf(std::current_exception(), object_->className()), failure);
    }
}

HRESULT DispatchObject::Invoke(DISPID member, REFIID reserved, LCID, WORD flags,
                               DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                               UINT* argument) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (arguments == nullptr) return E_POINTER;
    // An object is used from one thread at a time; a pointer that came here past the system is not.
    if (!apartment_->isCurrent()) return RPC_E_WRONG_THREAD;
    return guarded([&] {
        // The client may let go of the object during the call.
        const auto self = Ref<DispatchObject>::to(this);
        if (member == DISPID_NEWENUM && (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0)
            return elements(result, failure);
        return invoke(static_cast<CatalogueObject&>(*object_), *apartment_, member, flags,
                      *arguments, result, failure, argument);
    });
}

}  // namespace quorkit::automation
