#include "cli/doctor.h"

#include <gtest/gtest.h>
#include <quorkit/errors.h>

#include <nlohmann/json.hpp>
#include <thread>

#include "cli/linux_findings.h"
#include "cli/windows_findings.h"
#include "hosts/command.h"

namespace quorkit::test {
namespace {

using namespace cli;

/// One line for each finding; a sentence and its advice are not repeated here.
std::string shown(const Findings& findings) {
    std::string text;
    for (const Finding& one : findings) {
        text += one.state == State::Ok ? "ok " : one.state == State::Note ? "note " : "problem ";
        text += one.topic + '\n';
        EXPECT_FALSE(one.sentence.empty());
        EXPECT_EQ(one.advice.empty(), one.state == State::Ok) << one.topic;
    }
    return text;
}

TEST(Doctor, KnowsLinux) {
    const auto tools = [](const char* second, const char* third) {
        return std::vector<ports::Tool>{
            {"a", "dialogs", ""}, {"b", "dialogs", second}, {"c", "x", third}};
    };
    const std::string folder = "/home/me/r";
    const std::pair<Findings, std::string> rows[] = {
        {localeFindings({"de_CH.UTF-8", true, "UTF-8"}), "ok locale\n"},
        {localeFindings({"de_CH", true, "ISO-8859-1"}), "note locale\n"},
        {localeFindings({"xx_YY.UTF-8", false, ""}), "problem locale\n"},
        {localeFindings({"", true, "ANSI_X3.4-1968"}), "note locale\n"},
        {displayFindings({":0", "wayland-0", true}), "ok display\n"},
        {displayFindings({":0", "", false, "nobody answers at :0"}), "problem display\n"},
        {displayFindings({"", "wayland-0"}), "problem display\n"},
        {displayFindings({"", ""}), "note display\n"},
        {toolFindings(tools("/b", "/c"), true), "ok tool for dialogs\nok tool for x\n"},
        {toolFindings(tools("/b", ""), true), "ok tool for dialogs\nproblem tool for x\n"},
        {toolFindings(tools("", "/c"), false), "note tool for dialogs\nok tool for x\n"},
        {userStoreFindings({folder, true, true, true, false}), "ok registry of the user\n"},
        {userStoreFindings({folder, false, true, true, true}),
         "note registry of the user\nok registry of the user\n"},
        {userStoreFindings({folder, true, true, false, false}), "problem registry of the user\n"},
        {userStoreFindings({folder, false, true, false, false}), "problem registry of the user\n"},
        {userStoreFindings({}), "problem registry of the user\n"},
        {machineStoreFindings({folder, true, true, false, false}), "ok registry of the machine\n"},
        {machineStoreFindings({folder, false, true, false, false}), "ok registry of the machine\n"},
        {machineStoreFindings({folder, true, false, false, false}),
         "problem registry of the machine\n"},
        {damageFindings({}), "ok registry store\n"},
        {damageFindings({{u"a:3", u"bad"}, {u"b", u"bad"}}), "problem registry store\n"},
    };
    for (const auto& [findings, expected] : rows) EXPECT_EQ(shown(findings), expected);
}

TEST(Doctor, KnowsWindows) {
    const OwnFacts own = {64, 15, "0.1.0"};
    const RegistrationFacts good = {true, 64, 15, "C:\\q.dll", true, 64, "0.1.0.0"};
    const auto with = [&](auto change) {
        RegistrationFacts row = good;
        change(row);
        return row;
    };
    using Row = RegistrationFacts;
    const Row everybody = with([](Row& row) { row.user = false; });
    const Row none32 = {false, 32, 0, "", false, 0, ""};
    const std::string user64 = "registered for this user, 64 bits\n";
    const std::string everybody64 = "registered for everybody, 64 bits\n";
    const std::pair<std::vector<Row>, std::string> rows[] = {
        {{good}, "ok " + user64},
        {{everybody, good, none32},
         "ok " + everybody64 + "ok " + user64 + "note registered, 32 bits\n"},
        {{everybody, with([](Row& row) { row.path = "D:\\q.dll"; })},
         "ok " + everybody64 + "ok " + user64 + "note registered twice, 64 bits\n"},
        {{none32, with([](Row& row) { row.bits = 32, row.fileBits = 32; }),
          with([](Row& row) { row.classes = 0; })},
         "problem registered, 64 bits\nok registered for this user, 32 bits\n"},
        {{with([](Row& row) { row.fileExists = false; })}, "problem " + user64},
        {{with([](Row& row) { row.fileBits = 32; })}, "problem " + user64},
        {{with([](Row& row) { row.classes = 14; })}, "problem " + user64},
        {{with([](Row& row) { row.version = "0.1.1.0"; })}, "note " + user64},
        {{with([](Row& row) { row.version = ""; })}, "ok " + user64},
    };
    for (const auto& [facts, expected] : rows)
        EXPECT_EQ(shown(registrationFindings(facts, own)), expected);
    EXPECT_EQ(shown(objectFindings(32, "")), "ok creating and calling an object, 32 bits\n");
    EXPECT_EQ(shown(objectFindings(32, "x")), "problem creating and calling an object, 32 bits\n");
    EXPECT_EQ(shown(typeLibraryFindings({"C:\\q.dll", ""})), "ok type library\n");
    EXPECT_EQ(shown(typeLibraryFindings({"C:\\q.dll", "x"})), "problem type library\n");
    EXPECT_EQ(shown(typeLibraryFindings({"", "x"})), "problem type library\n");
    EXPECT_EQ(shown(screenFindings(true)) + shown(screenFindings(false)),
              "ok screen\nnote screen\n");
}

TEST(Doctor, SurvivesItsChecks) {
    const Check all[] = {
        {"throws", [](Ports&) -> Findings { raise(ErrorNumber::NoSuchMember); }},
        {"hangs",
         [](Ports&) -> Findings {
             for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
         }},
        {"works",
         [](Ports&) -> Findings {
             return {{State::Ok, "works", "well"}};
         }},
    };
    const Findings findings = examine(all, ports::native(), std::chrono::milliseconds(300));
    ASSERT_EQ(findings.size(), 3u);
    EXPECT_EQ(findings[0].sentence,
              "cannot be examined: Object doesn't support this property or method");
    EXPECT_EQ(findings[1].sentence, "does not answer");
    EXPECT_EQ(findings[2].sentence, "well");
}

TEST(Doctor, SaysItInTextAndJson) {
    MemoryPorts memory;
    const CommandOutcome text = command(u"doctor", {}, memory);
    const CommandOutcome json = command(u"doctor --json", {}, memory);
    const auto list = nlohmann::json::parse(json.output);
    std::size_t lines = 0;
    bool problem = false;
    for (const auto& one : list) {
        const std::string state = one.at("state");
        problem |= state == "problem";
        const std::string line = state + std::string(9 - state.size(), ' ') +
                                 std::string(one.at("topic")) + ": " +
                                 std::string(one.at("sentence")) + '\n';
        EXPECT_NE(text.output.find(line), std::string::npos) << line << text.output;
        ++lines;
    }
    EXPECT_GT(lines, 3u);
    EXPECT_EQ(json.status, problem ? 1 : 0);
    EXPECT_EQ(text.status, json.status);
    EXPECT_EQ(command(u"doctor --all").status, 2);
}

TEST(Register, NeedsWindowsAndASensibleLine) {
    for (const String line : {u"--user --machine", u"--remove x.dll", u"x.dll y.dll", u"--all"})
        EXPECT_EQ(command(u"register " + line).status, 2);
    const CommandOutcome outcome = command(u"register /none/quorkit.dll");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.errors, "");
}

}  // namespace
}  // namespace quorkit::test
