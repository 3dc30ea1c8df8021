// Nothing is lost, neither to other writers nor to failing operations.
#include <gtest/gtest.h>
#include <quorkit/QuorLogFile.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

#include <charconv>
#include <map>
#include <set>

#include "support/child.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

/// Writes entries "<a0000000>", "<a0000001>" ...
int writeEntries(const std::vector<std::string>& arguments) {
    const std::string& letter = arguments[1];
    QuorLogFile log;
    log.setLogFileName(std::filesystem::path(arguments[0]).u16string());
    log.setAppend(true);
    log.setMaxFileSize(std::stoi(arguments[3]));
    log.setAutoOpenClose(arguments[4] == "opened");
    if (!log.AutoOpenClose() && !log.OpenLogfile()) return 1;
    const int count = std::stoi(arguments[2]);
    for (int i = 0; i < count; ++i) {
        std::string number = std::to_string(i);
        number.insert(0, 7 - number.size(), '0');
        const std::string text = "<" + letter + number + ">";
        String entry(text.begin(), text.end());
        log.writeLogfileEntry(entry, eLogEntryType_Error);
    }
    return 0;
}
const PartName writeEntriesPart("writeEntries", writeEntries);

/// The numbers in the file by their letters; fails on anything that is not a whole entry.
std::map<char, std::vector<int>> entriesOf(std::string_view content) {
    std::map<char, std::vector<int>> entries;
    constexpr std::size_t size = 10;
    while (!content.empty()) {
        int number = -1;
        const std::string_view entry = content.substr(0, size);
        if (entry.size() == size && entry[0] == '<' && entry[size - 1] == '>')
            std::from_chars(entry.data() + 2, entry.data() + size - 1, number);
        if (number == -1) {
            ADD_FAILURE() << "torn: " << content.substr(0, 2 * size);
            return entries;
        }
        entries[entry[1]].push_back(number);
        content.remove_prefix(size);
        if (content.starts_with("\r\n")) content.remove_prefix(2);
    }
    return entries;
}

#ifdef _WIN32
constexpr int kEntries = 2000;  // each takes its time under Wine
#else
constexpr int kEntries = 50000;
#endif

TEST(LogReliability, FourWritersLoseNothing) {
    for (const bool limited : {false, true}) {
        Scratch scratch;
        const std::string file = scratch.path("a.log").string();
        if (limited) scratch.write("a.log.xxx", "left behind by one who was killed");
        std::vector<std::unique_ptr<Child>> children;
        for (const std::string letter : {"a", "b", "c", "d"}) {
            const bool shortens = limited && letter != "c";
            const bool opens = letter == "a" || letter == "c";
            children.push_back(std::make_unique<Child>(
                "writeEntries",
                std::vector<std::string>{file, letter, std::to_string(kEntries),
                                         shortens ? "20000" : "0", opens ? "opened" : "kept"}));
        }
        for (const auto& child : children) EXPECT_EQ(child->wait(), 0);
        const std::string content = scratch.read("a.log");
        std::size_t total = 0;
        for (const auto& [letter, numbers] : entriesOf(content)) {
            // Entries that were cut off are older than those that stay.
            for (std::size_t i = 0; i < numbers.size(); ++i)
                ASSERT_EQ(numbers[i], kEntries - static_cast<int>(numbers.size() - i)) << letter;
            total += numbers.size();
        }
        if (!limited) {
            EXPECT_EQ(total, 4u * kEntries);
        }
        EXPECT_EQ(content.size() < 4u * kEntries * 12, limited);
        EXPECT_EQ(scratch.count(), 1u);
    }
}

// FailingCalls tests every member; this adds an entry that comes with a shortening.
TEST(LogReliability, AFailingShorteningCostsNoEntry) {
    const std::string before = "first\r\nsecond\r\nthird\r\nfourth\r\n";
    const std::string shortened = "third\r\nfourth";
    const std::set<std::string> good = {before, before + "new\r\n", shortened,
                                        shortened + "new\r\n", shortened + "\r\nnew\r\n"};
    for (const bool keptOpen : {false, true}) {
        const auto write = [&](std::size_t failing, const char* operation) {
            MemoryPorts world;
            FaultyPorts faulty(world);
            world.files.put(u"C:\\a.log", before);
            QuorLogFile log(faulty);
            log.setLogFileName(u"C:\\a.log");
            log.setAppend(true);
            log.setMaxFileSize(20);
            log.setAutoOpenClose(!keptOpen);
            if (keptOpen) log.OpenLogfile();
            faulty.answer(failing, kGeneralFailure, operation);
            String text = u"new";
            log.writeLogfileEntry(text, eLogEntryType_Error);
            return world.files.content(u"C:\\a.log").value();
        };
        for (std::size_t failing = 1; failing < 40; ++failing)
            EXPECT_TRUE(good.contains(write(failing, ""))) << failing << write(failing, "");
        EXPECT_EQ(write(40, ""), shortened + "new\r\n");
        for (const char* operation : {"FinalName", "LockForChange", "GetFileSize", "SetFilePointer",
                                      "FlushFileBuffers", "Replace"})
            EXPECT_EQ(write(0, operation), before + "new\r\n") << operation;
    }
}

}  // namespace
}  // namespace quorkit::test
