#include "support/late.h"

#include <gtest/gtest.h>
#include <quorkit/collection.h>
#include <quorkit/utf8.h>

#include <algorithm>
#include <ostream>
#include <stdexcept>

#include "json/value_json.h"
#include "support/errors.h"

namespace quorkit {

void PrintTo(const Variant& value, std::ostream* out) {
    json::ObjectTable objects;
    *out << json::writeJson(json::toJson(value, objects));
}

}  // namespace quorkit

namespace quorkit::test {
namespace {

/// A collection of texts in the form in which a row expects it; any other value unchanged.
Variant flat(const Variant& value) {
    const auto* object = value.getIf<ObjectRef>();
    const auto c = object == nullptr ? nullptr : std::dynamic_pointer_cast<Collection>(*object);
    if (c == nullptr) return value;
    String text;
    for (Long i = 1; i <= c->count(); ++i) {
        if (!c->item(i).is<String>()) return value;
        text += c->entry(i).key + u":" + c->item(i).get<String>() + u"|";
    }
    return text;
}

}  // namespace

Late::Late(const char16_t* className, Ports& ports)
    : library_(ports),
      object_(std::dynamic_pointer_cast<CatalogueObject>(library_.create(className))) {}

Outcome Late::invoke(const char16_t* member, CallKind kind, std::vector<Variant> arguments) {
    const MemberInfo* info = findMember(object_->info(), member, kind);
    if (info == nullptr) throw std::logic_error("the test names a member that does not exist");
    CallResult result = quorkit::call(
        *object_, {.member = member, .kind = kind, .positional = std::move(arguments)});
    if (!result.reason.empty()) ports::giveReason(result.reason);
    if (result.error) throw AutomationError(static_cast<ErrorNumber>(result.error->number));
    return {std::move(result.result), std::move(result.arguments)};
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

void Late::expect(const std::vector<const char16_t*>& members, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        std::vector<Variant> expected = row.expected;
        if (expected.size() == 1) expected.resize(members.size(), expected[0]);
        std::vector<Variant> found;
        for (const char16_t* member : members) {
            Outcome outcome;
            const Long error = test::errorOf([&] { outcome = call(member, row.arguments); });
            if (error != 0) outcome.result = Error{static_cast<std::uint32_t>(error)};
            found.push_back(flat(outcome.result));
            if (members.size() > 1) continue;
            const auto last = std::min(expected.size() - 1, outcome.arguments.size());
            for (auto i = outcome.arguments.end() - static_cast<std::ptrdiff_t>(last);
                 i != outcome.arguments.end(); ++i)
                found.push_back(flat(*i));
        }
        EXPECT_EQ(found, expected) << toUtf8(members[0]) << testing::PrintToString(row.arguments);
    }
}

}  // namespace quorkit::test
