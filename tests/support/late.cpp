#include "support/late.h"

#include <ostream>
#include <stdexcept>

#include "cli/value_json.h"
#include "support/errors.h"

namespace quorkit {

void PrintTo(const Variant& value, std::ostream* out) {
    cli::ObjectTable objects;
    *out << cli::writeJson(cli::toJson(value, objects));
}

}  // namespace quorkit

namespace quorkit::test {

std::set<std::string>& calledMembers() {
    static std::set<std::string> members;
    return members;
}

Late::Late(const char16_t* className, Ports& ports)
    : library_(ports),
      object_(std::dynamic_pointer_cast<CatalogueObject>(library_.create(className))) {}

Outcome Late::invoke(const char16_t* member, CallKind kind, std::vector<Variant> arguments) {
    const MemberInfo* info = findMember(object_->info(), member, kind);
    if (info == nullptr) throw std::logic_error("the test names a member that does not exist");
    calledMembers().insert(std::string(object_->className()) + "." + info->name +
                           (kind == CallKind::Let ? "=" : ""));
    Outcome outcome;
    outcome.arguments = arrange(*info, {arguments});
    outcome.result = object_->run(*info, outcome.arguments);
    return outcome;
}

Outcome Late::call(const char16_t* member, std::vector<Variant> arguments) {
    return invoke(member, CallKind::Call, std::move(arguments));
}

Variant Late::operator()(const char16_t* member, std::vector<Variant> arguments) {
    return call(member, std::move(arguments)).result;
}

Variant Late::get(const char16_t* property) {
    return invoke(property, CallKind::Get, {}).result;
}

void Late::let(const char16_t* property, Variant value) {
    invoke(property, CallKind::Let, {std::move(value)});
}

Long Late::errorOf(const char16_t* member, std::vector<Variant> arguments) {
    return test::errorOf([&] { call(member, std::move(arguments)); });
}

}  // namespace quorkit::test
