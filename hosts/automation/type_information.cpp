#include "automation/type_information.h"

#include "automation/com.h"
#include "automation/server.h"

namespace quorkit::automation {

HRESULT typeInfoOf(const GUID& identity, ITypeInfo** info) {
    // The system keeps a library that is in use; holding it here would keep it for ever.
    Ref<ITypeLib> library;
    const HRESULT loaded = LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, library.receive());
    return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(identity, info);
}

}  // namespace quorkit::automation
