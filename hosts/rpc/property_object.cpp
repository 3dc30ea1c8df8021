#include "rpc/property_object.h"

#include <quorkit/errors.h>

namespace quorkit::rpc {

Variant PropertyObject::call(StringView name, CallKind kind, const Arguments& arguments) {
    const Long index = properties_.GetIndex(String(name));
    if (index < 0) raise(ErrorNumber::NoSuchMember);
    if (!arguments.named.empty()) raise(ErrorNumber::NamedArgumentNotFound);
    if (arguments.positional.size() != (kind == CallKind::Let ? 1u : 0u))
        raise(ErrorNumber::WrongNumberOfArguments);
    if (kind != CallKind::Let) return properties_.getValueByIndex(index);
    properties_.setValueByIndex(arguments.positional.front(), index);
    return {};
}

}  // namespace quorkit::rpc
