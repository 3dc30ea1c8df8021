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

/// `fitting`: how many of the values were what their parameters need.
Variant callOwn(CatalogueObject& target, Call& request, std::vector<Variant>& values,
                std::size_t& fitting) {
    const MemberInfo* member = request.identifier
                                   ? findMember(target.info(), *request.identifier, request.kind)
                                   : findMember(target.info(), request.member, request.kind);
    if (member == nullptr) frame::raiseToClient(ErrorNumber::NoSuchMember);
    frame::Values arranged =
        frame::arrange(*member, frame::sourcesOf(*member, {request.positional, request.named}),
                       request.variablesMayBeOmitted);
    values.assign(
        std::move_iterator(arranged.begin()),
        std::move_iterator(arranged.begin() + static_cast<std::ptrdiff_t>(member->parameterCount)));
    if (request.constantsByName)
        for (std::size_t i = 0; i < values.size(); ++i)
            resolve(values[i], member->parameterRow[i].type);
    return target.run(*member, values, &fitting);
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
    auto* const own = dynamic_cast<CatalogueObject*>(&target);
    constexpr auto none = static_cast<std::size_t>(-1);
    std::size_t fitting = none;
    try {
        if (own != nullptr)
            outcome.result = callOwn(*own, request, outcome.arguments, fitting);
        else
            outcome.result =
                target.call(request.member, request.kind, {request.positional, request.named});
    } catch (...) {
        outcome.error = errorOf(std::current_exception(), target.className());
        if (fitting < outcome.arguments.size()) outcome.error->argument = fitting;
    }
    if (own == nullptr || fitting == none) outcome.arguments = std::move(request.positional);
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
