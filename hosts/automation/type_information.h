// The type library in this file.
#pragma once

#include <oaidl.h>

namespace quorkit::automation {

/// The description of a class or an interface.
HRESULT typeInfoOf(const GUID& identity, ITypeInfo** info);

}  // namespace quorkit::automation
