#include <quorkit/catalogue_object.h>

#include <cstddef>

#include "frame/arguments.h"
#include "frame/conversion.h"
#include "frame/error_patterns.h"
#include "frame/pending_error.h"

namespace quorkit {

Long CatalogueObject::identifierOf(StringView name) const {
    for (const CallKind kind : {CallKind::Call, CallKind::Let})
        if (const MemberInfo* member = findMember(info(), name, kind)) return member->identifier;
    frame::raiseToClient(ErrorNumber::NoSuchMember);
}

Variant CatalogueObject::invoke(Long identifier, CallKind kind, const Arguments& arguments) {
    return invoke(findMember(info(), identifier, kind), arguments);
}

Variant CatalogueObject::call(StringView name, CallKind kind, const Arguments& arguments) {
    return invoke(findMember(info(), name, kind), arguments);
}

Variant CatalogueObject::run(const MemberInfo& member, std::span<Variant* const> values,
                             std::size_t& fitting) {
    Ports* const own = ports();
    for (fitting = 0; fitting < member.parameterCount; ++fitting)
        frame::convertArgument(*values[fitting], member.parameterRow[fitting], own);
    return member.run(self(), own, values.data(), fitting);
}

Variant CatalogueObject::invoke(const MemberInfo* member, const Arguments& arguments) {
    try {
        return frame::untrapped([&] {
            if (member == nullptr) raise(ErrorNumber::NoSuchMember);
            const frame::Values values(*member, arguments);
            std::size_t fitting = 0;
            return run(*member, values.all(), fitting);
        });
    } catch (const AutomationError& error) {
        frame::setPendingError(error);
        throw;
    }
}

}  // namespace quorkit
