#include "cli/property_object.h"

#include <quorkit/catalogue.h>
#include <quorkit/errors.h>

#include <algorithm>

#include "base/letter_case.h"

namespace quorkit::cli {

void PropertyObject::letGo() {
    const auto gone = std::exchange(properties_, {});
}

Long PropertyObject::identifierOf(StringView name) const {
    const auto found = std::ranges::find_if(
        properties_, [&](const Property& one) { return base::sameText(one.first, name); });
    if (found == properties_.end()) raise(ErrorNumber::NoSuchMember);
    return static_cast<Long>(found - properties_.begin());
}

Variant PropertyObject::invoke(Long identifier, CallKind kind, const Arguments& arguments) {
    if (identifier < 0 || static_cast<std::size_t>(identifier) >= properties_.size())
        raise(ErrorNumber::NoSuchMember);
    if (!arguments.named.empty()) raise(ErrorNumber::NamedArgumentNotFound);
    if (arguments.positional.size() != (kind == CallKind::Let ? 1u : 0u))
        raise(ErrorNumber::WrongNumberOfArguments);
    Variant& value = properties_[static_cast<std::size_t>(identifier)].second;
    if (kind != CallKind::Let) return value;
    value = arguments.positional.front();
    return {};
}

}  // namespace quorkit::cli
