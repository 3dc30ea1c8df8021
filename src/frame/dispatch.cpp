#include <quorkit/dispatch.h>

#include <new>
#include <stdexcept>
#include <utility>

#include "frame/arguments.h"
#include "frame/error_patterns.h"
#include "frame/pending_error.h"

namespace quorkit {
namespace {

ObjectRef createOrRaise(const ClassInfo* info, Ports& ports) {
    if (info == nullptr || info->create == nullptr)
        frame::raiseToClient(ErrorNumber::CannotCreateObject);
    return info->create(ports);
}

CallError toClient(const AutomationError& error, const char* className) {
    frame::setPendingError(error);
    const std::string source = className == nullptr ? "" : "." + std::string(className);
    return {error.number(), error.what(), "quorkit" + source, {}};
}

/// Puts the constant in the place of its name.
void resolve(Variant& value, const TypeInfo& type) {
    const auto* name = value.getIf<String>();
    if (name == nullptr || type.enumeration == nullptr) return;
    if (const auto constant = findConstant(*type.enumeration, *name)) value = *constant;
}

/// Puts every argument in its parameter's place: one value for each, `missing` when left out.
void place(const MemberInfo& member, Call& request) {
    std::vector<Variant>& values = request.positional;
    const std::size_t given = values.size();
    if (given > member.parameterCount) raise(ErrorNumber::WrongNumberOfArguments);
    if (given < member.parameterCount) values.resize(member.parameterCount, Variant::missing());
    for (NamedArgument& one : request.named) {
        const auto position = findParameter(member, one.name);
        if (!position) raise(ErrorNumber::NamedArgumentNotFound);
        if (*position < given || !values[*position].isMissing())
            raise(ErrorNumber::WrongNumberOfArguments);
        values[*position] = std::move(one.value);
    }
}

/// The arguments become the values of all parameters. `fitting`: the position of the one that is
/// not what its parameter needs.
Variant callOwn(CatalogueObject& target, Call& request, std::size_t& fitting) {
    const MemberInfo* member = request.identifier
                                   ? findMember(target.info(), *request.identifier, request.kind)
                                   : findMember(target.info(), request.member, request.kind);
    if (member == nullptr) raise(ErrorNumber::NoSuchMember);
    place(*member, request);
    const frame::Values values(*member, {request.positional}, request.variablesMayBeOmitted);
    if (request.constantsByName)
        for (std::size_t i = 0; i < member->parameterCount; ++i)
            resolve(request.positional[i], member->parameterRow[i].type);
    return target.run(*member, values.all(), fitting);
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

Variant Object::elements() {
    frame::raiseToClient(ErrorNumber::NoSuchMember);
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

ObjectRef Library::object(StringView className) {
    const ClassInfo* info = findClass(className);
    return info != nullptr && info->kind == ClassKind::Global ? global(className)
                                                              : createOrRaise(info, ports_);
}

CallResult call(Object& target, Call request) {
    CallResult outcome;
    ports::takeReason();  // of what came before
    auto fitting = static_cast<std::size_t>(-1);
    try {
        if (auto* const own = dynamic_cast<CatalogueObject*>(&target))
            outcome.result = callOwn(*own, request, fitting);
        else
            outcome.result =
                target.call(request.member, request.kind, {request.positional, request.named});
    } catch (const AutomationError& error) {
        outcome.error = toClient(error, target.className());
    } catch (...) {
        outcome.error = errorOf(std::current_exception(), target.className());
    }
    outcome.arguments = std::move(request.positional);
    if (outcome.error && fitting < outcome.arguments.size()) outcome.error->argument = fitting;
    outcome.reason = ports::takeReason();
    return outcome;
}

CallError errorOf(const std::exception_ptr& failure, const char* className) {
    try {
        frame::untrapped([&] { std::rethrow_exception(failure); });
        return {};
    } catch (const AutomationError& error) {
        return toClient(error, className);
    }
}

}  // namespace quorkit
