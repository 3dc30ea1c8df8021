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

std::optional<CatalogueObject::Misfit> CatalogueObject::fit(const MemberInfo& member,
                                                            std::span<Variant* const> values) {
    Ports* const own = ports();
    for (std::size_t i = 0; i < member.parameterCount; ++i)
        if (const auto failure = frame::convertArgument(*values[i], member.parameterRow[i], own))
            return Misfit{i, *failure};
    return {};
}

Variant CatalogueObject::run(const MemberInfo& member, std::span<Variant* const> values,
                             std::size_t& fitting) {
    return member.run(self(), ports(), values.data(), fitting);
}

Variant CatalogueObject::invoke(const MemberInfo* member, const Arguments& arguments) {
    try {
        return frame::untrapped([&] {
            if (member == nullptr) raise(ErrorNumber::NoSuchMember);
            frame::Values values;
            values.place(*member, arguments);
            if (const auto misfit = fit(*member, values.all())) raise(misfit->number);
            std::size_t fitting = 0;
            return run(*member, values.all(), fitting);
        });
    } catch (const AutomationError& error) {
        frame::setPendingError(error);
        throw;
    }
}

}  // namespace quorkit
