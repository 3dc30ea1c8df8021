#include <quorkit/dispatch.h>

#include <algorithm>

#include "base/published_names.h"
#include "frame/conversion.h"
#include "frame/error_patterns.h"
#include "frame/pending_error.h"

namespace quorkit {
namespace {

const MemberInfo& reachableMember(const ClassInfo& info, Long identifier, CallKind kind) {
    const MemberInfo* member = findMember(info, identifier, kind);
    if (member == nullptr) frame::raiseToClient(ErrorNumber::NoSuchMember);
    return *member;
}

ObjectRef createOrRaise(const ClassInfo* info, Ports& ports) {
    if (info == nullptr) frame::raiseToClient(ErrorNumber::CannotCreateObject);
    return info->create(ports);
}

std::size_t positionOf(const MemberInfo& member, StringView name) {
    const auto parameters = member.parameters();
    const auto found = std::ranges::find_if(
        parameters, [&](const ParameterInfo& one) { return base::sameName(name, one.name); });
    if (found == parameters.end()) frame::raiseToClient(ErrorNumber::NamedArgumentNotFound);
    return static_cast<std::size_t>(found - parameters.begin());
}

}  // namespace

Long Object::identifierOf(StringView) const {
    frame::raiseToClient(ErrorNumber::NoSuchMember);
}

Variant Object::invoke(Long, CallKind, const Arguments&) {
    frame::raiseToClient(ErrorNumber::NoSuchMember);
}

Variant Object::call(StringView name, CallKind kind, const Arguments& arguments) {
    return invoke(identifierOf(name), kind, arguments);
}

Long CatalogueObject::identifierOf(StringView name) const {
    for (const CallKind kind : {CallKind::Call, CallKind::Let})
        if (const MemberInfo* member = findMember(info(), name, kind)) return member->identifier;
    frame::raiseToClient(ErrorNumber::NoSuchMember);
}

std::vector<Variant> arrange(const MemberInfo& member, const Arguments& arguments) {
    const auto parameters = member.parameters();
    if (arguments.positional.size() > parameters.size())
        frame::raiseToClient(ErrorNumber::WrongNumberOfArguments);
    std::array<Variant*, MemberInfo::kMaxParameters> sources = {};
    for (std::size_t i = 0; i < arguments.positional.size(); ++i)
        sources[i] = &arguments.positional[i];
    for (NamedArgument& one : arguments.named) {
        Variant*& source = sources[positionOf(member, one.name)];
        if (source != nullptr) frame::raiseToClient(ErrorNumber::WrongNumberOfArguments);
        source = &one.value;
    }
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if ((sources[i] == nullptr || sources[i]->isMissing()) && !parameters[i].optional())
            frame::raiseToClient(ErrorNumber::ArgumentNotOptional);

    std::vector<Variant> values(parameters.size(), Variant::missing());
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (sources[i] != nullptr) values[i] = std::move(*sources[i]);
    return values;
}

Variant CatalogueObject::run(const MemberInfo& member, std::span<Variant> values) {
    try {
        return frame::untrapped([&] {
            for (std::size_t i = 0; i < member.parameterCount; ++i) {
                const ParameterInfo& parameter = member.parameterRow[i];
                if (values[i].isMissing()) {
                    if (!parameter.optional()) raise(ErrorNumber::ArgumentNotOptional);
                    values[i] = parameter.defaultValue();
                }
                frame::convert(values[i], parameter.type, ports_);
            }
            return member.run(self(), values.data());
        });
    } catch (const AutomationError& error) {
        frame::setPendingError(error);
        throw;
    }
}

Variant CatalogueObject::invoke(Long identifier, CallKind kind, const Arguments& arguments) {
    const MemberInfo& member = reachableMember(info(), identifier, kind);
    if (arguments.named.empty() && arguments.positional.size() == member.parameterCount)
        return run(member, arguments.positional);

    std::vector<Variant> values = arrange(member, arguments);
    const auto giveBack = [&] {
        std::move(values.begin(),
                  values.begin() + static_cast<std::ptrdiff_t>(arguments.positional.size()),
                  arguments.positional.begin());
        for (NamedArgument& one : arguments.named)
            one.value = std::move(values[positionOf(member, one.name)]);
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

ObjectRef Library::create(StringView className) {
    return createOrRaise(findClass(className), ports_);
}

ObjectRef Library::global(StringView className) {
    const ClassInfo* info = findClass(className);
    if (info != nullptr && info->kind != ClassKind::Global) info = nullptr;
    ObjectRef& object = globals_[info];
    if (object == nullptr) object = createOrRaise(info, ports_);
    return object;
}

}  // namespace quorkit
