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

/// Puts the constant in the place of its name.
void resolve(Variant& value, const TypeInfo& type) {
    const auto* name = value.getIf<String>();
    if (name == nullptr || type.enumeration == nullptr) return;
    if (const auto constant = findConstant(*type.enumeration, *name)) value = *constant;
}

/// `fitting`: the position of the argument that is not what its parameter needs.
void callOwn(CatalogueObject& target, Call& request, CallResult& outcome, std::size_t& fitting) {
    const MemberInfo* member = request.identifier
                                   ? findMember(target.info(), *request.identifier, request.kind)
                                   : findMember(target.info(), request.member, request.kind);
    if (member == nullptr) raise(ErrorNumber::NoSuchMember);
    const frame::Values values(*member, {request.positional, request.named},
                               request.variablesMayBeOmitted);
    if (request.constantsByName)
        for (std::size_t i = 0; i < member->parameterCount; ++i)
            resolve(*values.all()[i], member->parameterRow[i].type);
    const auto handBack = [&] {
        for (Variant* value : values.all()) outcome.arguments.push_back(std::move(*value));
    };
    outcome.arguments.reserve(member->parameterCount);
    try {
        outcome.result = target.run(*member, values.all(), fitting);
    } catch (...) {
        handBack();
        throw;
    }
    handBack();
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
    constexpr auto none = static_cast<std::size_t>(-1);
    std::size_t fitting = none;
    try {
        if (auto* const own = dynamic_cast<CatalogueObject*>(&target))
            callOwn(*own, request, outcome, fitting);
        else
            outcome.result =
                target.call(request.member, request.kind, {request.positional, request.named});
    } catch (...) {
        outcome.error = errorOf(std::current_exception(), target.className());
        if (fitting < outcome.arguments.size()) outcome.error->argument = fitting;
    }
    if (fitting == none) outcome.arguments = std::move(request.positional);
    outcome.reason = ports::takeReason();
    return outcome;
}

CallError errorOf(const std::exception_ptr& failure, const char* className) {
    try {
        frame::untrapped([&] { std::rethrow_exception(failure); });
        return {};
    } catch (const AutomationError& error) {
        frame::setPendingError(error);
        const std::string source = className == nullptr ? "" : "." + std::string(className);
        return {error.number(), error.what(), "quorkit" + source, {}};
    }
}

}  // namespace quorkit
