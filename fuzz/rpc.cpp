// A session over JSON-RPC on ports in memory, one message a line. A line that begins with a number
// calls the member at that place in the catalogue with the arguments behind it, in JSON; so every
// member is called with any values. Finds: invalid answers, or of several lines; members that fail
// without an error of the runtime; values that their notation does not return.
#include "rpc/rpc.h"

#include <quorkit/catalogue.h>
#include <quorkit/ports/memory.h>

#include <algorithm>
#include <charconv>
#include <vector>

#include "support/target.h"

namespace quorkit::fuzz {
namespace {

using json::Json;

/// Members that use as much time or memory as they are asked to.
constexpr std::string_view kUnbounded[] = {"lpad", "rpad", "delay", "quicksortvariantarray"};

bool isBounded(const std::string& member) {
    std::string name = member;
    std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
    return std::ranges::find(kUnbounded, name) == std::end(kUnbounded);
}

bool isBounded(const Json& message) {
    if (message.is_array())
        return std::ranges::all_of(message, [](const Json& one) { return isBounded(one); });
    if (!message.is_object() || !message.contains("params")) return true;
    const Json& parameters = message["params"];
    if (!parameters.is_object() || !parameters.contains("member")) return true;
    const Json& member = parameters["member"];
    return !member.is_string() || isBounded(member.get<std::string>());
}

struct Place {
    const ClassInfo* info;
    const MemberInfo* member;
};

const std::vector<Place>& places() {
    static const std::vector<Place> all = [] {
        std::vector<Place> found;
        for (const ClassInfo& info : classes())
            for (const MemberInfo& member : info.members()) found.push_back({&info, &member});
        return found;
    }();
    return all;
}

/// The message for a short line.
std::string message(std::string_view line) {
    std::size_t number = 0;
    const auto end = std::from_chars(line.data(), line.data() + line.size(), number);
    if (end.ec != std::errc()) return std::string(line);
    const auto& [info, member] = places()[number % places().size()];
    const char* kind = member->kind == MemberKind::PropertyGet   ? "get"
                       : member->kind == MemberKind::PropertyLet ? "let"
                                                                 : "call";
    return std::string(R"({"jsonrpc":"2.0","id":1,"method":"invoke","params":{"class":")") +
           info->name + R"(","member":")" + member->name + R"(","kind":")" + kind +
           R"(","args":[)" + std::string(end.ptr, line.data() + line.size()) + "]}}";
}

/// Checks that a value in an answer is read back as the same value.
void checkValue(const Json& value) {
    json::ObjectTable objects;
    Variant read;
    try {
        read = json::fromJson(value, objects);
    } catch (const AutomationError& error) {
        promise(error.number() == 424, "an answer's values can be read");
        return;  // an object in the session
    }
    promiseEqual(json::toJson(read, objects).dump(), value.dump(), "a value comes back from JSON");
}

void checkAnswer(const Json& answer) {
    promise(answer.is_object() && answer.value("jsonrpc", Json()) == "2.0" &&
                answer.contains("id") && answer.contains("result") != answer.contains("error"),
            "an answer has an id, and a result or an error");
    if (answer.contains("error")) {
        promise(answer["error"]["code"] != -32603, "no member fails but with an error of its own");
        return;
    }
    const Json& result = answer["result"];
    if (!result.is_object() || !result.contains("args")) return;
    checkValue(result["result"]);
    for (const Json& value : result["args"]) checkValue(value);
}

}  // namespace

void run(std::string_view input) {
    MemoryPorts ports;
    ports.system.localTime = {2024, 2, 29, 13, 5, 59, 0};
    rpc::Session session(ports);
    while (!input.empty()) {
        const std::size_t end = std::min(input.find('\n'), input.size());
        const std::string line = message(input.substr(0, end));
        input.remove_prefix(std::min(end + 1, input.size()));
        Json request;
        try {
            request = json::readJson(line);
        } catch (const json::JsonError&) {
        }
        if (!isBounded(request)) continue;
        const auto text = session.answer(line);
        if (!text) continue;
        promise(text->find('\n') == std::string::npos, "an answer is one line");
        const Json answer = json::readJson(*text);
        if (!answer.is_array()) checkAnswer(answer);
        if (answer.is_array())
            for (const Json& one : answer) checkAnswer(one);
    }
}

}  // namespace quorkit::fuzz
