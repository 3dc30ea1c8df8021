#include "automation/class_factory.h"

#include <cstring>

#include "automation/apartment.h"
#include "automation/failure.h"
#include "automation/guid.h"

namespace quorkit::automation {

ClassFactory::ClassFactory(const ClassInfo& info)
    : className_(info.name, info.name + std::strlen(info.name)) {}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID wanted, void** made) {
    if (made == nullptr) return E_POINTER;
    *made = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return guarded([&] {
        const auto apartment = Apartment::current();
        const ObjectRef object = apartment->library().object(className_);
        return apartment->dispatchOf(object)->QueryInterface(wanted, made);
    });
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    lock != FALSE ? InUse::begin() : InUse::end();
    return S_OK;
}

const ClassInfo* classOf(const GUID& identity) {
    for (const ClassInfo& info : classes())
        if (guidOf(info.identity) == identity) return &info;
    return nullptr;
}

}  // namespace quorkit::automation
