// Gives an argument the type of its parameter.
#pragma once

#include <quorkit/catalogue.h>
#include <quorkit/errors.h>
#include <quorkit/ports/ports.h>
#include <quorkit/variant.h>

#include <optional>

namespace quorkit::frame {

/// Converts `value` in place to `type`, as the automation runtime does when a call is made. A text
/// that becomes a Date is read in the user's language, for which `ports` is asked; without ports it
/// is English. Gives error 13 when the value does not convert, 6 when it does not fit, 94 for Null
/// where a value is needed; `value` then stays as it was.
[[nodiscard]] std::optional<ErrorNumber> convert(Variant& value, const TypeInfo& type,
                                                 Ports* ports);

/// The same for an argument. The value of a parameter that only carries a result out is never read:
/// one that does not convert becomes the initial value of the type.
[[nodiscard]] std::optional<ErrorNumber> convertArgument(Variant& value,
                                                         const ParameterInfo& parameter,
                                                         Ports* ports);

/// The value of a variable of this type before it is set.
Variant initialValue(Type type);

}  // namespace quorkit::frame
