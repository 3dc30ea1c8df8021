#include <gtest/gtest.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "support/late.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

namespace fs = std::filesystem;

const Variant kMissing = Variant::missing();

/// A list of names that stand in a text with blanks between them. "" is the list of no names.
Variant list(StringView text) {
    std::vector<String> names(1);
    for (const char16_t unit : text)
        if (unit == u' ')
            names.emplace_back();
        else
            names.back() += unit;
    return Array<String>(std::move(names));
}

Long countOf(const Variant& list) {
    const auto& names = list.get<Array<String>>().elements();
    return names.size() == 1 && names[0].empty() ? 0 : static_cast<Long>(names.size());
}

/// Files in memory, where folders are listed in the order of their names.
class Listing : public testing::Test {
   protected:
    Listing() {
        for (const char16_t* name : {u"a.txt", u"a.TXT.bak", u"b\\b1.txt", u"b\\b2.TXT", u"b\\B3",
                                     u"b\\c\\c.doc", u"b\\c\\c.txt", u"d\\d.txt", u"e"})
            world.files.put(u"C:\\" + String(name), "");
        world.files.addFolder(u"C:\\empty");
    }
    /// What getFilesFromDirectoryEx finds.
    Variant found(const String& folder, std::vector<Variant> options = {}) {
        options.insert(options.begin(), {folder, Array<String>()});
        const Outcome outcome = file.call(u"getFilesFromDirectoryEx", options);
        EXPECT_EQ(outcome.result, Variant(countOf(outcome.arguments[1])));
        return outcome.arguments[1];
    }
    /// One call of GetFilesFromDirectory3, and the list before and after it.
    struct Walk {
        String folder, filter;
        bool withFolder, recursive;
        Variant before;
        StringView after;
    };
    static void expectFiles(Late& in, const std::vector<Walk>& walks) {
        for (const auto& [folder, filter, withFolder, recursive, before, after] : walks)
            in.expect(u"GetFilesFromDirectory3",
                      {Row({folder, filter, withFolder, recursive, before},
                           {countOf(list(after)), list(after)})});
    }
    void expectMessage(const char16_t* text, const char16_t* caption) {
        ASSERT_EQ(world.host.messages.size(), 1u);
        EXPECT_EQ(world.host.messages[0].text, text);
        EXPECT_EQ(world.host.messages[0].caption, caption);
        world.host.messages.clear();
    }

    MemoryPorts world;
    Late file{u"GQuorFile", world};
};

TEST_F(Listing, FiltersByName) {
    const std::pair<String, StringView> rows[] = {{u"*.*", u"a.txt a.TXT.bak e"},
                                                  {u"*.TXT", u"a.txt"},
                                                  {u"b\\*.txt", u"b1.txt b2.TXT"},
                                                  {u"E", u"e"},
                                                  {u"b", u""},
                                                  {u"", u""},
                                                  {u".", u""},
                                                  {u"*\\*", u""},
                                                  {u"no\\*", u""}};
    for (const auto& [filter, names] : rows)
        EXPECT_EQ(found(u"C:", {filter}), list(names)) << testing::PrintToString(filter);
    EXPECT_EQ(found(u""), list(u"a.txt a.TXT.bak e"));
    EXPECT_EQ(found(u"C:\\b\\", {u"b3*", true}), list(u"C:\\b\\B3"));
    for (const char16_t* folder : {u"C:\\empty", u"C:\\missing", u"C:\\e", u"Q:"})
        EXPECT_EQ(found(folder), list(u""));
}

TEST_F(Listing, FiltersByDate) {
    using namespace std::chrono_literals;
    using std::chrono::sys_days;
    world.system.minutesEastOfUtc = 60;
    const std::pair<String, std::chrono::sys_time<std::chrono::milliseconds>> written[] = {
        {u"first", sys_days(2020y / 1 / 1) + 700ms},
        {u"last", sys_days(2020y / 12 / 31)},
        {u"late", sys_days(2020y / 12 / 31) + 1s},
        {u"middle", sys_days(2020y / 6 / 15) + 12h}};
    for (const auto& [name, time] : written) {
        world.files.put(u"C:\\t\\" + name, "");
        const auto since1601 = time - 60min - sys_days(1601y / 1 / 1);
        world.files.setLastWrite(u"C:\\t\\" + name,
                                 static_cast<FileTime>(since1601.count()) * 10'000);
    }
    const struct {
        Variant upTo, from;
        StringView names;
    } rows[] = {{u"2020-01-01", kMissing, u"first"},
                {kMissing, u"2020-12-31", u"last late"},
                {u"2020-01-01", u"2020-12-31", u"first last late"},
                {u"2020-12-31", u"2020-01-01", u"first last middle"},
                {u"2020-06-15 12:00:00", u"2020-06-15 12:00:00", u"first last late middle"},
                {u"2020-06-15 11:59:59", u"2020-06-15 12:00:01", u"first last late"},
                {Date{43831}, kMissing, u"first"},
                {Double{44196.000001}, kMissing, u"first last middle"},
                {Empty{}, kMissing, u""}};
    for (const auto& [upTo, from, names] : rows)
        EXPECT_EQ(found(u"C:\\t", {u"*", false, upTo, from}), list(names))
            << testing::PrintToString(std::pair(upTo, from));
    for (const Variant& bad : {Variant(u"no date"), Variant(Null{}), Variant(1e300)})
        file.expect(u"getFilesFromDirectoryEx",
                    {Row({u"C:", list(u"old"), u"*", false, kMissing, bad},
                         {Long{-1}, list(u"old"), u"*", false, kMissing, bad, u""})});
    EXPECT_TRUE(world.host.messages.empty());

    world.files.setLastWrite(u"C:\\t\\first", UINT64_MAX / 2);  // no calendar shows it: it is now
    world.system.localTime.year = 2021;
    EXPECT_EQ(found(u"C:\\t", {u"*", false, u"2021-01-01", u"2021-01-01"}),
              list(u"first last late middle"));
    EXPECT_EQ(found(u"C:\\t", {u"*", false, kMissing, u"2021-01-01"}), list(u"first"));
}

TEST_F(Listing, FiltersByAttributes) {
    const std::pair<String, std::uint32_t> made[] = {{u"a", kArchive},
                                                     {u"h", kHidden | kArchive},
                                                     {u"n", 0},
                                                     {u"r", kReadOnly},
                                                     {u"s", kSystem}};
    for (const auto& [name, attributes] : made) {
        world.files.put(u"C:\\t\\" + name, "");
        world.files.setAttributes(u"C:\\t\\" + name, attributes);
    }
    const std::pair<String, StringView> rows[] = {
        {u"", u"a h n r s"}, {u"R", u"a h n r s"}, {u"+q", u"a h n r s"},
        {u"-H-S", u"a n r"}, {u"+r", u"r"},        {u"+RxR", u"a h n s"},
        {u"-A+a-", u"a h"},  {u"+A-H", u"a"},      {u"+S+R", u""}};
    for (const auto& [attributes, names] : rows)
        EXPECT_EQ(found(u"C:\\t", {u"*", false, kMissing, kMissing, attributes}), list(names))
            << testing::PrintToString(attributes);
}

TEST_F(Listing, AddsToAListAndGoesThroughFolders) {
    const Variant none = list(u"");
    const Variant two = list(u"x y");
    expectFiles(file, {{u"C:\\b", u"*.txt", false, false, none, u"b1.txt b2.TXT"},
                       {u"C:\\d\\", u"*", true, false, two, u"x y C:\\d\\d.txt"},
                       {u"C:\\none", u"*", true, true, two, u"x y"},
                       {u"C:\\d", u"*", false, false, Array<String>(), u"d.txt"},
                       {u"C:\\empty", u"*", false, true, Array<String>(Bounds{5, 0}), u""},
                       {u"C:", u"*.txt", false, true, none, u"a.txt b1.txt b2.TXT c.txt d.txt"},
                       {u"C:", u"c\\*", true, true, none, u"C:\\b\\c.doc C:\\b\\c.txt"},
                       {u"C:\\b", u"c\\*", false, false, none, u"c.doc c.txt"}});
    const Variant table = Array<String>({0, 1}, {0, 1});
    const Variant fromOne = Array<String>({u"x"}, 1);
    for (const Variant& bad : {table, fromOne}) {
        file.expect(u"GetFilesFromDirectory3",
                    {Row({u"C:", u"*", false, true, bad}, {Long{-1}, bad})});
        expectMessage(u"Subscript out of range", u"9");
    }
    GQuorFile direct(world);  // the name and the filter may stand in the list itself
    Array<String> names(std::vector<String>{u"C:\\d", u"d*"});
    EXPECT_EQ(direct.GetFilesFromDirectory3(names.at(0), names.at(1), false, false, names), 3);
    EXPECT_EQ(names.at(2), u"d.txt");
}

TEST_F(Listing, GoesRoundNoLinks) {
    world.files.addLink(u"C:\\b\\c\\here", u".");
    world.files.addLink(u"C:\\b\\up", u"..");
    world.files.addLink(u"C:\\d\\linked.txt", u"d.txt");
    world.files.addLink(u"C:\\d\\nowhere", u"none");
    world.files.addLink(u"C:\\d\\other", u"C:\\b\\c");
    FaultyFiles faulty(world.files);
    Ports ports{faulty, world.drives, world.system, world.host};
    Late linked(u"GQuorFile", ports);
    const Variant none = list(u"");
    const StringView all = u"a.txt b1.txt b2.TXT c.txt d.txt linked.txt c.txt";
    expectFiles(linked, {{u"C:", u"*.txt", false, true, none, all},
                         {u"C:\\b", u"b1*", false, true, none, u"b1.txt"},
                         {u"C:\\b\\up\\b", u"b1*", false, true, none, u"b1.txt"}});
    faulty.answer(0, kGeneralFailure, "GetFinal");  // nobody knows where links lead to
    expectFiles(linked, {{u"C:\\d", u"*", false, true, none, u"d.txt linked.txt nowhere"}});
    faulty.answer(0, kGeneralFailure, "FindFirst");
    expectFiles(linked, {{u"C:", u"*", false, true, none, u""}});
    EXPECT_TRUE(world.host.messages.empty());
}

TEST_F(Listing, ListsFoldersAndExtensions) {
    file.expect(u"GetAllSubDirectories",
                {Row({u"C:", list(u"old")}, {Long{3}, list(u"C:\\b C:\\d C:\\empty")}),
                 Row({u"C:\\d", Array<String>()}, {Long{0}, list(u"")}),
                 Row({u"C:\\no", list(u"old")}, {Long{0}, list(u"")}),
                 Row({Null{}, list(u"old")}, {Long{-1}, list(u"")})});
    expectMessage(u"Invalid use of Null", u"94");

    Array<String> larger({0, 2}, {0, 9});
    Array<String> table({0, 2}, {0, 2});
    table.elements() = {u".txt", u"2", u"", u"1"};
    file.expect(u"getAllFileExtensionsFromDirectory",
                {Row({u"C:\\b", Array<String>()}, {Long{2}, table}),
                 Row({u"C:\\b", larger}, {Long{2}, table}),
                 Row({u"C:\\empty", list(u"x")}, {Long{0}, list(u"x")}),
                 Row({u"C:\\d", list(u"x")}, Error{9})});
}

TEST(ListingOnDisk, BearsAFolderThatChangesAndADeepOne) {
    Scratch scratch;
    const String top = scratch.folder().u16string();
    fs::path deep = scratch.folder();
    for (int i = 0; i < 40; ++i) deep /= "x";
    fs::create_directories(deep);
    std::ofstream(deep / "stays deep") << "";
    for (int i = 0; i < 200; ++i) scratch.write("stays" + std::to_string(i), "");
    std::atomic<bool> done = false;
    std::thread other([&] {
        for (int i = 0; !done; i = (i + 1) % 300) {
            const std::string name = "goes" + std::to_string(i);
            std::error_code ignored;
            if (!fs::remove(scratch.path(name), ignored)) scratch.write(name, "");
        }
    });
    Late file(u"GQuorFile");
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(file(u"getFilesFromDirectoryEx", {top, Array<String>(), u"stays*", false,
                                                    u"9999-01-01", u"2020-01-01", u"-R"}),
                  Variant(Long{200}));
        EXPECT_EQ(file(u"GetFilesFromDirectory3", {top, u"stays*", true, true, Array<String>()}),
                  Variant(Long{201}));
    }
    done = true;
    other.join();
}

}  // namespace
}  // namespace quorkit::test
