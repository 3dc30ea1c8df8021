#include "cli/doctor.h"

#include <quorkit/dispatch.h>
#include <quorkit/utf8.h>

#include <algorithm>
#include <exception>
#include <future>
#include <memory>
#include <thread>

#include "cli/failure.h"
#include "cli/usage.h"
#include "json/json_text.h"

namespace quorkit::cli {
namespace {

constexpr std::chrono::seconds kLimit{10};

const char* nameOf(State state) {
    return state == State::Ok ? "ok" : state == State::Note ? "note" : "problem";
}

Findings look(const Check& check, Ports& ports) {
    try {
        return check.look(ports);
    } catch (...) {
        const std::string why = errorOf(std::current_exception()).text;
        return {{State::Problem, check.topic, "cannot be examined: " + why}};
    }
}

void print(std::ostream& out, const Findings& findings) {
    for (const Finding& one : findings) {
        out << nameOf(one.state) << std::string(9 - std::string_view(nameOf(one.state)).size(), ' ')
            << one.topic << ": " << one.sentence << '\n';
        if (!one.advice.empty()) out << "         -> " << one.advice << '\n';
    }
}

void printJson(std::ostream& out, const Findings& findings) {
    const auto text = [](const std::string& one) { return json::jsonString(fromUtf8(one)); };
    json::Json list = json::Json::array();
    for (const Finding& one : findings)
        list.push_back({{"state", nameOf(one.state)},
                        {"topic", text(one.topic)},
                        {"sentence", text(one.sentence)},
                        {"advice", text(one.advice)}});
    out << json::writeJson(list) << '\n';
}

}  // namespace

Findings examine(std::span<const Check> checks, Ports& ports, std::chrono::milliseconds limit) {
    Findings all;
    for (const Check& check : checks) {
        const auto answer = std::make_shared<std::promise<Findings>>();
        std::future<Findings> found = answer->get_future();
        std::thread([answer, check, &ports] { answer->set_value(look(check, ports)); }).detach();
        if (found.wait_for(limit) == std::future_status::ready) {
            std::ranges::move(found.get(), std::back_inserter(all));
        } else {
            all.push_back({State::Problem, check.topic, "does not answer",
                           "see whether a server or a network file system hangs", true});
        }
    }
    return all;
}

void doctor(std::span<const String> arguments, std::ostream& out, Ports& ports) {
    const bool json = arguments.size() == 1 && arguments.front() == u"--json";
    if (!arguments.empty() && !json) throw UsageError("only --json may stand behind doctor");
    const Findings findings = examine(checks(), ports, kLimit);
    json ? printJson(out, findings) : print(out, findings);
    if (std::ranges::count(findings, true, &Finding::late) != 0) {
        out.flush();
        endAtOnce(1);
    }
    const auto problems = std::ranges::count(findings, State::Problem, &Finding::state);
    if (problems != 0)
        throw Failure(problems == 1 ? "one problem" : std::to_string(problems) + " problems");
}

}  // namespace quorkit::cli
