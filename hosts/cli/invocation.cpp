#include "cli/invocation.h"

namespace quorkit::cli {

Target objectOf(Library& library, StringView className) {
    const ClassInfo* info = findClass(className);
    const bool global = info != nullptr && info->kind == ClassKind::Global;
    return std::dynamic_pointer_cast<CatalogueObject>(global ? library.global(className)
                                                             : library.create(className));
}

const MemberInfo& memberOf(const ClassInfo& info, StringView name, CallKind kind) {
    const MemberInfo* member = findMember(info, name, kind);
    if (member == nullptr) raise(ErrorNumber::NoSuchMember);
    return *member;
}

Outcome invoke(CatalogueObject& target, const MemberInfo& member, const Arguments& arguments) {
    Outcome outcome;
    outcome.arguments = arrange(member, arguments);
    outcome.result = target.run(member, outcome.arguments);
    return outcome;
}

Outcome invoke(Object& target, StringView member, CallKind kind, std::vector<Variant> positional,
               std::vector<NamedArgument> named) {
    if (auto* const own = dynamic_cast<CatalogueObject*>(&target))
        return invoke(*own, memberOf(own->info(), member, kind), {positional, named});
    Outcome outcome;
    outcome.result = target.call(member, kind, {positional, named});
    outcome.arguments = std::move(positional);
    return outcome;
}

Json toJson(const Outcome& outcome, ObjectTable& objects) {
    Json arguments = Json::array();
    for (const Variant& one : outcome.arguments) arguments.push_back(toJson(one, objects));
    return {{"result", toJson(outcome.result, objects)}, {"args", std::move(arguments)}};
}

}  // namespace quorkit::cli
