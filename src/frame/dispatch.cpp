#include <quorkit/dispatch.h>

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

const MemberInfo& memberOf(const CatalogueObject& target, const Call& request) {
    const MemberInfo* member = request.identifier
                                   ? findMember(target.info(), *request.identifier, request.kind)
                                   : findMember(target.info(), request.member, request.kind);
    if (member == nullptr) raise(ErrorNumber::NoSuchMember);
    return *member;
}

/// `fitting`: the position of the value that is not what its parameter needs.
void callOwn(CatalogueObject& target, Call& request, frame::Values& values, std::size_t& fitting,
             CallResult& outcome) {
    const MemberInfo& member = memberOf(target, request);
    values.place(member, {request.positional, request.named}, request.variablesMayBeOmitted);
    if (request.constantsByName)
        for (std::size_t i = 0; i < member.parameterCount; ++i)
            resolve(*values.all()[i], member.parameterRow[i].type);
    if (const auto misfit = target.fit(member, values.all())) {
        fitting = misfit->position;
        outcome.error = toClient(AutomationError(misfit->number), target.className());
    } else {
        outcome.result = target.run(member, values.all(), fitting);
    }
}

/// One for each parameter.
std::vector<Variant> finalValues(const frame::Values& values, std::vector<Variant>& positional) {
    if (positional.size() == values.all().size()) return std::move(positional);  // it has them all
    std::vector<Variant> all;
    all.reserve(values.all().size());
    for (Variant* value : values.all()) all.push_back(std::move(*value));
    return all;
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
    return instance(info != nullptr && info->kind == ClassKind::Global ? info : nullptr);
}

ObjectRef Library::object(StringView className) {
    return instance(findClass(className));
}

ObjectRef Library::instance(const ClassInfo* info) {
    if (info == nullptr || info->kind != ClassKind::Global) return createOrRaise(info, ports_);
    ObjectRef& object = globals_[info];
    if (object == nullptr) object = createOrRaise(info, ports_);
    return object;
}

CallResult call(Object& target, Call request) {
    CallResult outcome;
    ports::takeReason();  // of what came before
    frame::Values values;
    std::size_t fitting = 0;
    try {
        if (CatalogueObject* const own = target.catalogued())
            callOwn(*own, request, values, fitting, outcome);
        else
            outcome.result =
                target.call(request.member, request.kind, {request.positional, request.named});
    } catch (const AutomationError& error) {
        outcome.error = toClient(error, target.className());
    } catch (...) {
        outcome.error = errorOf(std::current_exception(), target.className());
    }
    if (outcome.error && values.placed() && fitting < values.all().size())
        outcome.error->argument = fitting;
    outcome.arguments =
        values.placed() ? finalValues(values, request.positional) : std::move(request.positional);
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
