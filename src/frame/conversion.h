// Gives an argument the type of its parameter.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/variant.h>

namespace quorkit {

/// Converts `value` in place to `type`, as the automation runtime does when a call is made.
/// Error 13 when it does not convert, 6 when it does not fit, 94 for Null where a value is needed;
/// `value` is then unchanged.
void convert(Variant& value, const TypeInfo& type);

}  // namespace quorkit
