#include <quorkit/catalogue_object.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "frame/arguments.h"
#include "frame/conversion.h"
#include "frame/error_patterns.h"
#include "frame/pending_error.h"

namespace quorkit {
namespace {

const MemberInfo& orRaise(const MemberInfo* member) {
    if (member == nullptr) frame::raiseToClient(ErrorNumber::NoSuchMember);
    return *member;
}

}  // namespace

Long CatalogueObject::identifierOf(StringView name) const {
    for (const CallKind kind : {CallKind::Call, CallKind::Let})
        if (const MemberInfo* member = findMember(info(), name, kind)) return member->identifier;
    frame::raiseToClient(ErrorNumber::NoSuchMember);
}

Variant CatalogueObject::invoke(Long identifier, CallKind kind, const Arguments& arguments) {
    return invoke(orRaise(findMember(info(), identifier, kind)), arguments);
}

Variant CatalogueObject::call(StringView name, CallKind kind, const Arguments& arguments) {
    return invoke(orRaise(findMember(info(), name, kind)), arguments);
}

Variant CatalogueObject::run(const MemberInfo& member, std::span<Variant> values,
                             std::size_t* fitting) {
    try {
        return frame::untrapped([&] {
            for (std::size_t i = 0; i < member.parameterCount; ++i) {
                const ParameterInfo& parameter = member.parameterRow[i];
                if (fitting != nullptr) *fitting = i;
                if (values[i].isMissing()) {
                    if (!parameter.optional()) raise(ErrorNumber::ArgumentNotOptional);
                    values[i] = parameter.defaultValue();
                }
                frame::convert(values[i], parameter.type, ports());
            }
            if (fitting != nullptr) *fitting = member.parameterCount;
            return member.run(self(), ports(), values.data());
        });
    } catch (const AutomationError& error) {
        frame::setPendingError(error);
        throw;
    }
}

Variant CatalogueObject::invoke(const MemberInfo& member, const Arguments& arguments) {
    if (arguments.named.empty() && arguments.positional.size() == member.parameterCount)
        return run(member, arguments.positional);

    const frame::Sources sources = frame::sourcesOf(member, arguments);
    frame::Values values = frame::arrange(member, sources);
    const auto giveBack = [&] {
        for (std::size_t i = 0; i < member.parameterCount; ++i)
            if (sources[i] != nullptr) *sources[i] = std::move(values[i]);
    };
    try {
        Variant result = run(member, values);
        giveBack();
        return result;
    } catch (...) {
        giveBack();
        throw;
    }
}

}  // namespace quorkit
