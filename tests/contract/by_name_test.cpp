// The contract table, said by name.
#include <gtest/gtest.h>
#include <quorkit/dispatch.h>

#include "contract/table.h"

namespace quorkit::test {
namespace {

Answer answerTo(Library& library, RowBeingSaid& row, const Json& step) {
    const Target target = targetOf(step);
    Call request{.member = target.member, .kind = target.kind};
    Answer answer;
    ObjectRef owner;
    try {
        for (const Json& one : step.value("args", Json::array()))
            request.positional.push_back(row.value(one));
        if (step.contains("to")) request.positional.push_back(row.value(step["to"]));
        const Json named = step.value("named", Json::object());
        for (const auto& [name, one] : named.items())
            request.named.push_back({utf16(name), row.value(one)});
        const Variant* kept = row.named(target.owner);
        owner = kept == nullptr ? library.object(utf16(target.owner)) : kept->get<ObjectRef>();
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

}  // namespace
}  // namespace quorkit::test
