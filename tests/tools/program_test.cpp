#include <gtest/gtest.h>
#include <quorkit/GQuorProgram.h>
#include <quorkit/ports/memory.h>

#include <thread>

#include "support/late.h"

namespace quorkit::test {
namespace {

using std::chrono::milliseconds;
using Ending = Processes::Ending;

class ProgramTest : public testing::Test {
   protected:
    MemoryPorts world;
    Late program{u"GQuorProgram", world};
};

TEST_F(ProgramTest, RunsPrograms) {
    const std::tuple<milliseconds, std::vector<Variant>, Long, int> cases[] = {
        {milliseconds(2000), {u"x"}, 3, 19},
        {milliseconds(2000), {u"x", u"title", false}, 3, 0},
        {milliseconds(2100), {u"x", u"title", true, Long{2}}, 3, 20},
        {milliseconds(2200), {u"x", u"title", true, Long{2}}, -9999, 20},
    };
    for (const auto& [runs, arguments, result, events] : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        world.processes.programs = {{u"x", {3, runs}}};
        world.host.eventRounds = 0;
        EXPECT_EQ(program(u"ExecuteAndWaitEx", arguments), result);
        EXPECT_EQ(world.host.eventRounds, events);
        const auto& started = world.processes.started.back();
        EXPECT_EQ(started.title, arguments.size() == 1 ? u"" : u"title");
        EXPECT_TRUE(started.closed);
        EXPECT_EQ(started.terminated, result == -9999);
        EXPECT_EQ(started.ending,
                  arguments.back() == Variant(Long{2}) ? Ending::WithItsGroup : Ending::WithItself);
    }
    EXPECT_EQ(program(u"ExecuteAndWaitEx", {u"none"}), Long{-1});
    program(u"ExecuteAndWait", {u"none"});
    program(u"ExecuteAndWait", {u"x"});
    EXPECT_EQ(world.host.eventRounds, 20);
}

// Event handlers may run anything, take long, and fail.
TEST_F(ProgramTest, HandlesEventsWhileItWaits) {
    world.processes.programs = {{u"x", {3, milliseconds(10'000)}}, {u"y", {4, milliseconds(0)}}};
    world.host.events = {[&] { EXPECT_EQ(program(u"ExecuteAndWaitEx", {u"y"}), Long{4}); },
                         [] { std::this_thread::sleep_for(milliseconds(1001)); }};
    EXPECT_EQ(program(u"ExecuteAndWaitEx", {u"x", u"", true, Long{1}}), Long{-9999});
    world.host.events = {[] { raise(ErrorNumber::Overflow); }};
    EXPECT_EQ(program.errorOf(u"ExecuteAndWaitEx", {u"x"}), 6);
    EXPECT_TRUE(world.processes.started.back().closed);
}

TEST_F(ProgramTest, OpenURL) {
    program(u"OpenURL", {u""});
    program(u"OpenURL", {u"http://a/?b c", true});
    world.processes.openAnswer = kAccessDenied;
    program(u"OpenURL", {u"b"});
    EXPECT_EQ(world.processes.opened, (std::vector<String>{u"http://a/?b c", u"b"}));
    String shown;
    for (const auto& [text, caption, style] : world.host.messages)
        shown += caption + (style == kInformationIcon ? u" i " : u" ! ") + text + u"|";
    EXPECT_EQ(shown,
              u"quorkit i Es wurde keine Seite f\u00FCr die Anzeige im Browser vorgegeben.|"
              u"quorkit ! Problem beim Aufruf der Seite. (Path/File access error\r\n"
              u"Bitte rufen Sie die Seite \r\nb\r\naus Ihrem Browser auf|");
}

TEST_F(ProgramTest, OpenMail) {
    program.expect(u"OpenMail", {{{u"sales"}, true},
                                 {{u"sales", u"Offer 1/2", u"", u"", u"Hi"}, true},
                                 {{u"a", u"", u"b c", u"d", u"\u00E4"}, true}});
    EXPECT_EQ(world.processes.opened,
              (std::vector<String>{u"mailto:sales?", u"mailto:sales?Subject=Offer%201/2&Body=Hi",
                                   u"mailto:a?&CC=b c&BCC=d&Body=%E4"}));
    world.processes.openAnswer = kFileNotFound;
    EXPECT_EQ(program(u"OpenMail", {u"a"}), false);
}

}  // namespace
}  // namespace quorkit::test
