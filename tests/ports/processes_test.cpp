// Real processes. This program plays all of them, so that the tests run on every system.
#include <gtest/gtest.h>
#include <quorkit/GQuorProgram.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/processes.h>

#include <thread>

#include "support/child.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

using std::chrono::milliseconds;
using Waited = Processes::Waited;
using Words = std::vector<std::string>;

constexpr milliseconds kLong(20'000);

bool appears(const std::filesystem::path& file, milliseconds within) {
    for (; within.count() > 0; within -= milliseconds(10)) {
        if (std::filesystem::exists(file)) return true;
        std::this_thread::sleep_for(milliseconds(10));
    }
    return false;
}

const PartName kTell("tell", [](const Words& words) {
    std::ofstream file(words.at(0), std::ios::binary);
    for (std::size_t i = 1; i < words.size(); ++i) file << words[i] << '\n';
    std::puts("told");
    return 255;
});
// Makes the file "begun" in a folder, waits for "go", then makes "alive".
const PartName kLive("live", [](const Words& words) {
    std::ofstream(words.at(0) + "/begun") << "";
    if (appears(words.at(0) + "/go", kLong)) std::ofstream(words.at(0) + "/alive") << "";
    return 0;
});
// Starts a process and either ends at once or waits with it.
const PartName kParent("parent", [](const Words& words) {
    static const Child* const left = new Child("live", {words.at(0)});
    return appears(words.at(0) + words.at(1), kLong) && left != nullptr ? 0 : 1;
});

class ProcessesTest : public testing::Test {
   protected:
    static String line(const std::string& part, const Words& words) {
        const std::string bytes = lineOf(part, words);
        return String(bytes.begin(), bytes.end());
    }
    ErrorCode start(const String& command) {
        return processes.CreateProcessA(command, u"", Processes::Ending::WithItsGroup, process);
    }

    Scratch scratch;
    const std::string folder = scratch.folder().string();
    Processes& processes = ports::native().processes;
    Handle process = Handle::Invalid;
};

TEST_F(ProcessesTest, GetTheirWordsAndStreams) {
    std::string told = "\na b\nc\\d\n$e;'\n";
    String command = line("tell", {scratch.path("told").string(), "", "a b", "c\\d", "$e;'"});
    for (int i = 0; i < 10'000; ++i) command += u" x";
    for (int i = 0; i < 10'000; ++i) told += "x\n";
    testing::internal::CaptureStdout();
    EXPECT_EQ(GQuorProgram().ExecuteAndWaitEx(command), 255);
    EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("told"));
    EXPECT_EQ(scratch.read("told"), told);
}

TEST_F(ProcessesTest, AreNotStarted) {
    scratch.write("text.exe", "This is no program.");
    std::filesystem::permissions(scratch.path("text.exe"), std::filesystem::perms::owner_all);
    const std::pair<String, ErrorCode> cases[] = {
        {u"", kFileNotFound},
        {u"no-such-program a b", kFileNotFound},
        {u"\"" + scratch.name("none/none.exe") + u"\"", kFileNotFound},
        {u"\"" + scratch.name("text.exe") + u"\" a", kAccessDenied},
        {u"\"" + scratch.name("") + u"\"", kAccessDenied},
        {line("tell", {}) + u'\0', kInvalidName},
    };
    for (const auto& [command, code] : cases)
        EXPECT_EQ(start(command), code) << testing::PrintToString(command);
    EXPECT_EQ(processes.HandToDesktop(scratch.name("none.txt")), kFileNotFound);
}

TEST_F(ProcessesTest, EndWithTheirGroup) {
    for (const bool ends : {false, true}) {
        ASSERT_EQ(start(line("parent", {folder, ends ? "/begun" : "/none"})), kSuccess);
        EXPECT_TRUE(appears(scratch.path("begun"), kLong));
        EXPECT_EQ(processes.WaitForSingleObject(process, ends ? kLong : milliseconds(50)),
                  ends ? Waited::Ended : Waited::TimedOut);
        EXPECT_EQ(processes.EndProcess(process), kSuccess);
        processes.CloseHandle(process);
        scratch.write("go", "");
        EXPECT_FALSE(appears(scratch.path("alive"), milliseconds(500)));
        for (const char* file : {"begun", "go"}) std::filesystem::remove(scratch.path(file));
    }
}

}  // namespace
}  // namespace quorkit::test
