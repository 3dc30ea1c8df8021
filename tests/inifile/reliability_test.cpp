// Nothing is lost: not to other writers, not to a kill.
#include <gtest/gtest.h>
#include <quorkit/QuorInifile.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "support/child.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

int writeKeys(const std::vector<std::string>& arguments) {
    FaultyFiles files(ports::native().files);
    files.answer(0, kSuccess, "Flush");  // what a dying process leaves does not depend on the disk
    Ports ports = ports::native().with(files);
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
#ifdef _WIN32
    constexpr int kKills = 40;  // a process takes its time to start there
#else
    constexpr int kKills = 300;
#endif
    QuorInifile ini;
    ini.setIniFileName(scratch.name("s.ini"));
    for (int i = 0; i < kKills; ++i) {
        scratch.write("s.ini", "[S]\nfirst=1\n[T]\nlast=1\n");
        Child writer("writeKeys", {scratch.path("s.ini").string(), "k", "100000"});
        const auto written = [&] { return ini.ReadKeyValue(u"S", u"k0", u"") == u"k0"; };
        for (int waits = 0; waits < 10000 && !written(); ++waits)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        ASSERT_TRUE(written());
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 5000));
        writer.kill();
        writer.wait();
        Long count = 0;
        ini.ReadSectionContent(u"S", count, Long{1000000});
        ASSERT_EQ(ini.ReadKeyValue(u"S", u"first", u""), u"1");
        ASSERT_EQ(ini.ReadKeyValue(u"T", u"last", u""), u"1");
        if (count > 1) {
            const std::string last = std::to_string(count - 2);
            const String key = u"k" + String(last.begin(), last.end());
            ASSERT_EQ(ini.ReadKeyValue(u"S", key, u""), key);
        }
        ASSERT_EQ(ini.WriteKeyValue(u"S", u"after", u"1"), 1);
        ASSERT_LE(scratch.count(), 1u);
    }
}

/// Random INI text: sections, keys, comments and rubbish, with any line ends and any bytes.
std::string randomText(std::mt19937& random) {
    const auto pick = [&](auto... choices) {
        const std::string all[] = {choices...};
        return all[random() % sizeof...(choices)];
    };
    const auto word = [&] {
        std::string result;
        for (auto n = random() % 6; n-- > 0;)
            result += pick("a", "B", "c", " ", "\xE4", "\xC3\xA4", "\t", "\"", "\r");
        return result;
    };
    std::string text = pick("", "", "\xEF\xBB\xBF");
    for (auto n = random() % 30; n-- > 0;) {
        text += pick("[" + word() + "]", word() + "=" + word(), word() + " = " + word(),
                     ";" + word(), "", word());
        text += pick("\n", "\r\n", "\r\n");
    }
    if (random() % 3 == 0 && !text.empty()) text.pop_back();
    return text;
}

/// Leaves of both texts what is not the same in front and at the end.
void keepDifference(std::string& a, std::string& b) {
    const auto same = std::ranges::mismatch(a, b);
    a.erase(a.begin(), same.in1);
    b.erase(b.begin(), same.in2);
    for (; !a.empty() && !b.empty() && a.back() == b.back(); a.pop_back()) b.pop_back();
}

TEST(IniReliability, OneChangeOneLine) {
    std::mt19937 random(7);
    MemoryPorts world;
    QuorInifile ini(world);
    ini.setIniFileName(u"s.ini");
    int written = 0;
    int unchanged = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::string before = randomText(random);
        world.files.put(u"s.ini", before);
        Long count = 0;
        const Variant listed = ini.ReadSectionNames(count);
        if (count == 0) continue;
        const auto& sections = listed.get<Array<String>>();
        const String section =
            sections.at(static_cast<Long>(random() % static_cast<unsigned>(count)));

        // A section of nothing but different keys, written back as it was read, stays as it is.
        const Variant whole = ini.ReadSectionContent(section, count);
        const bool keysOnly = count == whole.get<Array<String>>().bounds(2).count;
        ini.ReadMultiLineSection(section, count);
        if (keysOnly && count != -2) {
            ini.WriteSectionContent(section, whole);
            ASSERT_EQ(world.files.content(u"s.ini"), before);
            ++unchanged;
        }

        const Variant keys = ini.ReadSectionKeys(section, count);
        const String key = count == 0 || random() % 2 == 0
                               ? u"new"
                               : keys.get<Array<String>>().at(
                                     static_cast<Long>(random() % static_cast<unsigned>(count)));
        const String value = random() % 2 == 0 ? u" v\nw" : u"\u00E4";
        if (ini.WriteKeyValue(section, key, value) == 0) {
            ASSERT_EQ(world.files.content(u"s.ini"), before);
            continue;
        }
        ++written;
        ASSERT_EQ(ini.ReadKeyValue(section, key, u"?"), value) << before;
        const std::string after = *world.files.content(u"s.ini");
        std::string was = before;
        std::string is = after;
        keepDifference(was, is);
        const bool onlyItsLine = key == u"new" ? was.empty() && std::ranges::count(is, '\n') == 1
                                               : (was + is).find('\n') == std::string::npos;
        ASSERT_TRUE(onlyItsLine) << before << "\n----\n" << after;
    }
    EXPECT_GT(written, 5000);
    EXPECT_GT(unchanged, 500);
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
    while (big.size() < 100u << 20) big += "[S" + std::to_string(big.size()) + "]\r\nkey=value\r\n";
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
