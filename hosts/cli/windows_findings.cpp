#include "cli/windows_findings.h"

#include <algorithm>

namespace quorkit::cli {
namespace {

using Rows = std::vector<RegistrationFacts>;

std::string bitsText(int bits) {
    return std::to_string(bits) + " bits";
}

std::string scopeOption(const RegistrationFacts& row) {
    return row.user ? "--user" : "--machine";
}

Finding findingOf(const RegistrationFacts& row, const OwnFacts& own) {
    const std::string topic = std::string("registered for ") +
                              (row.user ? "this user" : "everybody") + ", " + bitsText(row.bits);
    const std::string again = "quorkit register " + scopeOption(row) + " with the quorkit of " +
                              bitsText(row.bits) + ", or the same with --remove";
    if (!row.fileExists) return {State::Problem, topic, row.path + " is not there", again};
    if (row.fileBits != row.bits)
        return {State::Problem, topic, row.path + " is no DLL of " + bitsText(row.bits), again};
    if (row.classes < own.classes)
        return {State::Problem, topic,
                "only " + std::to_string(row.classes) + " of " + std::to_string(own.classes) +
                    " classes are registered",
                again};
    if (!row.version.empty() && row.version != own.version + ".0")
        return {State::Note, topic,
                row.path + " has version " + row.version + ", this program " + own.version, again};
    return {State::Ok, topic, row.path};
}

/// What programs of one kind find.
Findings findingsFor(int bits, const Rows& all, const OwnFacts& own) {
    Findings findings;
    const RegistrationFacts* found[2] = {};
    for (const RegistrationFacts& row : all) {
        if (row.bits != bits || row.classes == 0) continue;
        found[row.user ? 1 : 0] = &row;
        findings.push_back(findingOf(row, own));
    }
    if (findings.empty())
        return {{bits == own.bits ? State::Problem : State::Note, "registered, " + bitsText(bits),
                 "nothing, so programs of " + bitsText(bits) + " find no class of quorkit",
                 "quorkit register --user with the quorkit of " + bitsText(bits) +
                     ", or deploy quorkit.automation.manifest with the program"}};
    if (found[0] != nullptr && found[1] != nullptr && found[0]->path != found[1]->path)
        findings.push_back(
            {State::Note, "registered twice, " + bitsText(bits),
             "this user's programs use " + found[1]->path + ", unless they run as administrator",
             "quorkit register --remove --user or --machine"});
    return findings;
}

}  // namespace

Findings registrationFindings(const Rows& all, const OwnFacts& own) {
    Findings findings;
    for (const int bits : {64, 32})
        if (std::ranges::count(all, bits, &RegistrationFacts::bits) != 0)
            std::ranges::move(findingsFor(bits, all, own), std::back_inserter(findings));
    return findings;
}

Findings objectFindings(int bits, const std::string& failure) {
    const std::string topic = "creating and calling an object, " + bitsText(bits);
    if (failure.empty()) return {{State::Ok, topic, "works by name"}};
    return {{State::Problem, topic, failure,
             "mend what is said of the registration above; else register again"}};
}

Findings typeLibraryFindings(const TypeLibraryFacts& facts) {
    constexpr const char* topic = "type library";
    const std::string advice =
        "register again; until then only programs that bind late can use the classes";
    if (facts.path.empty()) return {{State::Problem, topic, "none is registered", advice}};
    if (!facts.failure.empty())
        return {{State::Problem, topic, facts.path + ": " + facts.failure, advice}};
    return {{State::Ok, topic, facts.path}};
}

Findings screenFindings(bool visible) {
    constexpr const char* topic = "screen";
    if (visible) return {{State::Ok, topic, "windows of this program can be seen"}};
    return {{State::Note, topic,
             "this program runs where nobody sees its windows, such as in a service; a message or "
             "dialog would wait for ever",
             "run what asks the user in the user's own session"}};
}

}  // namespace quorkit::cli
