// Nothing is lost: not to other writers, not to a kill, not to failing operations.
#include <gtest/gtest.h>
#include <quorkit/QuorLogFile.h>
#include <quorkit/ports/faults.h>

#include <charconv>
#include <chrono>
#include <map>
#include <thread>

#include "support/child.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

/// Writes entries "<a0000000>", "<a0000001>" ... and then sleeps if told to.
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
    if (arguments.size() > 5) std::this_thread::sleep_for(std::chrono::minutes(1));
    return 0;
}
const PartName writeEntriesPart("writeEntries", writeEntries);

/// The numbers in the file by their letters; fails on anything that is no whole entry.
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
constexpr int kEntries = 2000;  // each takes its time there
#else
constexpr int kEntries = 50000;
#endif

TEST(LogReliability, FourWritersLoseNothing) {
    struct Writer {
        const char* letter;
        const char* mode;
        bool limited;
    };
    constexpr Writer writers[] = {
        {"a", "opened", true}, {"b", "kept", true}, {"c", "opened", false}, {"d", "kept", true}};
    for (const bool limited : {false, true}) {
        Scratch scratch;
        const std::string file = scratch.path("a.log").string();
        if (limited) scratch.write("a.log.xxx", "left behind by one who was killed");
        std::vector<std::unique_ptr<Child>> children;
        for (const Writer& one : writers)
            children.push_back(std::make_unique<Child>(
                "writeEntries",
                std::vector<std::string>{file, one.letter, std::to_string(kEntries),
                                         limited && one.limited ? "20000" : "0", one.mode}));
        for (const auto& child : children) EXPECT_EQ(child->wait(), 0);
        const std::string content = scratch.read("a.log");
        std::size_t total = 0;
        for (const auto& [letter, numbers] : entriesOf(content)) {
            // What is cut off is older than what stays.
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

TEST(LogReliability, AKilledWriterHasWrittenEveryEntry) {
    for (const char* mode : {"opened", "kept"}) {
        Scratch scratch;
        scratch.write("a.log", "");
        Child writer("writeEntries",
                     {scratch.path("a.log").string(), "a", "1000", "0", mode, "sleep"});
        constexpr std::size_t all = 1000 * std::string_view("<a0000000>\r\n").size();
        for (int waits = 0; waits < 10000 && scratch.read("a.log").size() < all; ++waits)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        writer.kill();
        writer.wait();
        EXPECT_EQ(entriesOf(scratch.read("a.log"))['a'].size(), 1000u);
    }
}

TEST(LogReliability, AFileThatIsKeptOpenIsNotShortenedByOthers) {
    Scratch scratch;
    QuorLogFile keeper;
    QuorLogFile other;
    keeper.setLogFileName(scratch.name("a.log"));
    keeper.setAutoOpenClose(false);
    ASSERT_TRUE(keeper.OpenLogfile());
    String entry = String(100, u'x');
    for (int i = 0; i < 10; ++i) keeper.writeLogfileEntry(entry, eLogEntryType_Error);
    EXPECT_FALSE(other.limitFileSize(scratch.name("a.log"), Long{500}));
    keeper.writeLogfileEntry(entry, eLogEntryType_Error);
    EXPECT_EQ(scratch.read("a.log").size(), 11u * 102);
    keeper.CloseLogfile();
    EXPECT_TRUE(other.limitFileSize(scratch.name("a.log"), Long{500}));
    EXPECT_EQ(scratch.read("a.log").size(), 3u * 102 - 2);
}

TEST(LogReliability, EveryFailingOperationLeavesWhatWasThere) {
    const std::string before = "first\r\nsecond\r\nthird\r\nfourth\r\n";
    const std::string shortened = "third\r\nfourth";
    const std::string entry = "new\r\n";
    FaultyFiles files(ports::native().files);
    Ports ports = ports::native().with(files);
    // The content after an entry, with such a fault.
    const auto write = [&](bool keptOpen, std::size_t failing, const char* operation) {
        Scratch scratch;
        scratch.write("a.log", before);
        QuorLogFile log(ports);
        log.setLogFileName(scratch.name("a.log"));
        log.setAppend(true);
        log.setMaxFileSize(20);
        log.setAutoOpenClose(!keptOpen);
        if (keptOpen) log.OpenLogfile();
        files.answer(failing, kGeneralFailure, operation);
        String text = u"new";
        log.writeLogfileEntry(text, eLogEntryType_Error);
        log.CloseLogfile();
        const std::size_t calls = files.calls();
        const std::string after = scratch.read("a.log");
        files.answer(static_cast<std::size_t>(-1), kSuccess);
        EXPECT_TRUE(log.limitFileSize(scratch.name("a.log"), Long{20}));
        EXPECT_EQ(scratch.count(), 1u) << failing;
        return std::pair(after, calls);
    };
    for (const bool keptOpen : {false, true}) {
        std::size_t operations = 1;
        for (std::size_t failing = 1; failing <= operations; ++failing) {
            const auto [after, calls] = write(keptOpen, failing, "");
            operations = std::max(operations, calls);
            EXPECT_TRUE(after == before || after == before + entry || after == shortened ||
                        after == shortened + entry || after == shortened + "\r\n" + entry)
                << failing << after;
        }
        EXPECT_GT(operations, 15u);
        EXPECT_EQ(write(keptOpen, operations + 1, "").first, shortened + entry);
        // A failing shortening costs no entry.
        for (const char* operation : {"GetFinal", "LockFile", "GetFileSize", "SetFilePointer",
                                      "FlushFileBuffers", "ReplaceFile"})
            EXPECT_EQ(write(keptOpen, 0, operation).first, before + entry) << operation;
    }
}

}  // namespace
}  // namespace quorkit::test
