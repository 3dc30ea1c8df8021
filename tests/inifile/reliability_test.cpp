// Nothing is lost, neither to other writers nor to a kill.
#include <gtest/gtest.h>
#include <quorkit/QuorInifile.h>
#include <quorkit/ports/faults.h>

#include <chrono>
#include <random>
#include <thread>

#include "support/child.h"
#include "support/sanitized.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

int writeKeys(const std::vector<std::string>& arguments) {
    FaultyPorts ports(ports::native());
    ports.answer(0, kSuccess, "Flush");  // a dying process leaves the same with or without a flush
    QuorInifile ini(ports);
    ini.setIniFileName(std::filesystem::path(arguments[0]).u16string());
    const String prefix(arguments[1].begin(), arguments[1].end());
    const int count = std::stoi(arguments[2]);
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        const String key = prefix + String(number.begin(), number.end());
        if (prefix.ends_with(u"lines "))
            ini.WriteMultiLineValue(u"S", key + u'.', key + u"\r\n" + key);
        else
            ini.WriteKeyValue(u"S", key, key);
        if (ini.lastResult() == 0) return 1;
    }
    return 0;
}
const PartName writeKeysPart("writeKeys", writeKeys);

TEST(IniReliability, SeveralWritersLoseNothing) {
    Scratch scratch;  // the file does not exist yet: its creation is a race too
    const std::string file = scratch.path("s.ini").string();
    Child a("writeKeys", {file, "a", "1000"});
    Child b("writeKeys", {file, "b", "1000"});
    Child lines("writeKeys", {file, "a value of several lines ", "200"});
    EXPECT_EQ(a.wait(), 0);
    EXPECT_EQ(b.wait(), 0);
    EXPECT_EQ(lines.wait(), 0);

    QuorInifile ini;
    ini.setIniFileName(scratch.name("s.ini"));
    Long count = 0;
    ini.ReadSectionContent(u"S", count, Long{1000000});
    EXPECT_EQ(count, 2600);  // in 50 KB
    EXPECT_EQ(ini.ReadKeyValue(u"S", u"a999", u""), u"a999");
    EXPECT_EQ(ini.ReadKeyValue(u"S", u"b0", u""), u"b0");
    EXPECT_EQ(scratch.count(), 1u);
}

TEST(IniReliability, AKilledWriterLeavesTheFileWhole) {
    Scratch scratch;
    std::mt19937 random(20240131);
    QuorInifile ini;
    ini.setIniFileName(scratch.name("s.ini"));
    for (int i = 0; i < 40; ++i) {
        scratch.write("s.ini", "[S]\nfirst=1\n[T]\nlast=1\n");
        Child writer("writeKeys", {scratch.path("s.ini").string(), "k", "100000"});
        for (int waits = 0; waits < 10000 && ini.ReadKeyValue(u"S", u"k0", u"").empty(); ++waits)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 5000));
        writer.kill();
        writer.wait();
        Long count = 0;
        ini.ReadSectionContent(u"S", count, Long{1000000});
        const std::string last = std::to_string(count - 2);
        const String key = u"k" + String(last.begin(), last.end());
        ASSERT_EQ(ini.ReadKeyValue(u"S", key, u""), key);
        ASSERT_EQ(ini.ReadKeyValue(u"S", u"first", u""), u"1");
        ASSERT_EQ(ini.ReadKeyValue(u"T", u"last", u""), u"1");
        ASSERT_EQ(ini.WriteKeyValue(u"S", u"after", u"1"), 1);
        ASSERT_LE(scratch.count(), 1u);
    }
}

TEST(IniReliability, RefusesWhatIsTooLarge) {
    Scratch scratch;
    const std::uintmax_t size = (256u << 20) + 1;
    scratch.write("s.ini", "[S]\nk=1\n");
    std::filesystem::resize_file(scratch.path("s.ini"), size);
    QuorInifile ini;
    ini.setIniFileName(scratch.name("s.ini"));
    Long count = 0;
    EXPECT_EQ(ini.ReadKeyValue(u"S", u"k", u"?"), u"?");
    EXPECT_NE(ports::takeReason().find("larger than 256 MB"), std::string::npos);
    ini.ReadSectionContent(u"S", count);
    EXPECT_EQ(count, -1);
    EXPECT_EQ(ini.WriteKeyValue(u"S", u"k", u"2"), 0);
    EXPECT_EQ(ini.DeleteKeys(String(u"S"), Array<String>({u"k"})), -1);
    EXPECT_EQ(std::filesystem::file_size(scratch.path("s.ini")), size);
}

TEST(IniReliability, AHundredMegabytes) {
    Scratch scratch;
    std::string big;
    constexpr std::size_t size = sized(100 << 20);
    while (big.size() < size) big += "[S" + std::to_string(big.size()) + "]\r\nkey=value\r\n";
    scratch.write("s.ini", big + "[End]\r\nkey=value\r\n");
    QuorInifile ini;
    ini.setIniFileName(scratch.name("s.ini"));
    EXPECT_EQ(ini.WriteKeyValue(u"end", u"key", u"changed"), 1);
    EXPECT_EQ(ini.ReadKeyValue(u"END", u"key", u""), u"changed");
    EXPECT_EQ(scratch.read("s.ini"), big + "[End]\r\nkey=changed\r\n");
    EXPECT_TRUE(ini.isIniFileMultiLineFieldSave());
}

}  // namespace
}  // namespace quorkit::test
