// The attributes that have a number.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

namespace quorkit::address {

/// The name under which a known attribute is stored; empty for any other number.
StringView storedName(eKnownAttributes attribut);

}  // namespace quorkit::address
