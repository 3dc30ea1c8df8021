// Gives an argument the type of its parameter.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/ports/ports.h>
#include <quorkit/variant.h>

namespace quorkit::frame {

/// Converts `value` in place to `type`, as the automation runtime does when a call is made. Only a
/// text that is to be a Date makes it ask the system for the user's language.
/// Error 13 when it does not convert, 6 when it does not fit, 94 for Null where a value is needed;
/// `value` is then unchanged.
void convert(Variant& value, const TypeInfo& type, Ports& ports);

}  // namespace quorkit::frame
