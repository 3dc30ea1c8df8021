// One call of a client: its arguments on the way in, and what comes back.
#pragma once

#include <oaidl.h>
#include <quorkit/catalogue_object.h>

#include "automation/apartment.h"

namespace quorkit::automation {

/// Calls a member of the object; what Invoke of IDispatch promises.
HRESULT invoke(CatalogueObject& object, Apartment& apartment, DISPID member, WORD flags,
               const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* failure, UINT* argument);

}  // namespace quorkit::automation
