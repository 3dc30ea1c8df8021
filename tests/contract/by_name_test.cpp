// The contract table, said by name.
#include <gtest/gtest.h>
#include <quorkit/dispatch.h>

#include <set>

#include "contract/table.h"
#include "json/utf8.h"

namespace quorkit::test {
namespace {

ObjectRef ownerOf(Library& library, const RowBeingSaid& row, const Json& step) {
    const std::string owner = targetOf(step).first;
    const Variant* named = row.named(owner);
    return named == nullptr ? library.object(utf16(owner)) : named->get<ObjectRef>();
}

Answer answerTo(Library& library, RowBeingSaid& row, const Json& step) {
    Call request{.member = utf16(targetOf(step).second), .kind = CallKind::Call};
    if (kindOf(step) == "get") request.kind = CallKind::Get;
    if (kindOf(step) == "let") request.kind = CallKind::Let;
    Answer answer;
    ObjectRef owner;
    try {
        for (const Json& one : step.value("args", Json::array()))
            request.positional.push_back(row.value(one));
        if (step.contains("to")) request.positional.push_back(row.value(step["to"]));
        const Json named = step.value("named", Json::object());
        for (const auto& [name, one] : named.items())
            request.named.push_back({utf16(name), row.value(one)});
        owner = ownerOf(library, row, step);
    } catch (const AutomationError& error) {  // nothing that could be called
        answer.error = error.number();
        return answer;
    }
    CallResult result = call(*owner, std::move(request));
    const MemberInfo* member = row.memberOf(step);
    answer.result = std::move(result.result);
    if (result.error) {
        answer.error = result.error->number;
        if (result.error->argument && member != nullptr)
            answer.argument = member->parameterRow[*result.error->argument].name;
    } else if (member != nullptr) {
        for (std::size_t i = 0; i < member->parameterCount; ++i)
            if (member->parameterRow[i].byReference)
                answer.finals[member->parameterRow[i].name] = std::move(result.arguments[i]);
    }
    return answer;
}

void say(RowBeingSaid& row) {
    Library library;
    for (const Json& step : row.steps()) {
        if (row.doneWithout(step)) continue;
        if (!step.contains("new")) {
            row.expect(step, answerTo(library, row, step));
            continue;
        }
        const std::string name = step["as"];
        row.name(name, step["new"], library.object(utf16(step["new"])));
        const Json with = step.value("with", Json::object());
        for (const auto& [property, to] : with.items()) {
            const Json let = {{"let", name + "." + property}, {"to", to}};
            row.expect(let, answerTo(library, row, let));
        }
    }
}

TEST(Contract, HoldsByName) {
    for (const std::string& file : tableFiles())
        sayRows(file, [](std::size_t, RowBeingSaid& row) { say(row); });
}

// A reader finds each member at least once, with a sentence.
TEST(Contract, HasARowForEveryMember) {
    std::set<const MemberInfo*> called;
    std::set<const MemberInfo*> told;
    for (const std::string& file : tableFiles())
        for (const Json& json : rowsOf(file)) {
            RowBeingSaid row(json);
            for (const Json& step : row.steps()) {
                if (step.contains("new")) row.name(step["as"], step["new"], {});
                const Json with = step.value("with", Json::object());
                for (const auto& [property, to] : with.items())
                    called.insert(
                        row.memberOf({{"let", step["as"].get<std::string>() + "." + property}}));
                if (step.contains("new") || step.contains("file") || step.contains("properties"))
                    continue;
                const MemberInfo* member = row.memberOf(step);
                called.insert(member);
                if (step.contains("as") && member != nullptr)
                    row.name(step["as"], member->result.name(), {});
                if (json.contains("tells")) told.insert(member);
            }
        }
    for (const ClassInfo& info : classes())
        for (const MemberInfo& member : info.members()) {
            EXPECT_TRUE(called.contains(&member)) << info.name << "." << member.name;
            EXPECT_TRUE(told.contains(&member) || member.kind == MemberKind::PropertyLet)
                << "no example of " << info.name << "." << member.name;
        }
}

}  // namespace
}  // namespace quorkit::test
