#include <gtest/gtest.h>
#include <quorkit/GQuorConvert.h>
#include <quorkit/GQuorFile.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

#include <algorithm>

#include "support/late.h"

namespace quorkit::test {
namespace {

const Variant kMissing = Variant::missing();

/// A list of the names in a text, separated by blanks; "" is the list without names.
Variant list(const String& text) {
    Array<String> names;
    GQuorConvert().StringTokenToStringArray(text, u" ", names);
    return names;
}

/// The expected count and list when these names are found.
std::vector<Variant> countAndList(const String& names) {
    return {Long(names.empty() ? 0 : std::ranges::count(names, u' ') + 1), list(names)};
}

/// A call of getFilesFromDirectoryEx that leaves out the last of the options.
Row search(const String& folder, const String& names, const std::vector<Variant>& options = {}) {
    Row row({folder, list(u"old")}, countAndList(names));
    for (const Variant& option : options) row.arguments.push_back(option);
    const Variant last[] = {u"*.*", false, kMissing, kMissing, u""};
    for (std::size_t i = 0; i < std::size(last); ++i)
        row.expected.push_back(i < options.size() ? options[i] : last[i]);
    return row;
}

/// A call of GetFilesFromDirectory3.
Row walk(const String& folder, const String& filter, bool withFolder, bool recursive,
         const String& names, const Variant& before = list(u"")) {
    return Row({folder, filter, withFolder, recursive, before}, countAndList(names));
}

/// Files in memory; folders are listed in the order of names.
class Listing : public testing::Test {
   protected:
    Listing() {
        for (const char16_t* name : {u"a.txt", u"a.TXT.bak", u"b\\b1.txt", u"b\\b2.TXT", u"b\\B3",
                                     u"b\\c\\c.doc", u"b\\c\\c.txt", u"d\\d.txt", u"e"})
            world.files.put(u"C:\\" + String(name), "");
        world.files.addFolder(u"C:\\empty");
    }

    MemoryPorts world;
    FaultyPorts ports{world.ports};
    Late file{u"GQuorFile", ports};
};

TEST_F(Listing, FiltersByName) {
    file.expect(u"getFilesFromDirectoryEx",
                {search(u"C:", u"a.txt a.TXT.bak e", {u"*.*"}), search(u"C:", u"a.txt", {u"*.TXT"}),
                 search(u"C:", u"b1.txt b2.TXT", {u"b\\*.txt"}), search(u"C:", u"e", {u"E"}),
                 search(u"C:", u"", {u"b"}), search(u"C:", u"", {u""}), search(u"C:", u"", {u"."}),
                 search(u"C:", u"", {u"*\\*"}), search(u"C:", u"", {u"no\\*"}),
                 search(u"", u"a.txt a.TXT.bak e"),
                 search(u"C:\\b\\", u"C:\\b\\B3", {u"b3*", true}), search(u"C:\\empty", u""),
                 search(u"C:\\missing", u""), search(u"C:\\e", u""), search(u"Q:", u"")});
}

TEST_F(Listing, FiltersByDateAndAttributes) {
    constexpr FileTime second = 10'000'000;
    constexpr FileTime day = 86'400 * second;
    constexpr FileTime start = 153'036 * day - 3'600 * second;  // of 2020 in their time zone
    const std::tuple<String, FileTime, std::uint32_t> made[] = {
        {u"first", start + second / 2, kArchive},
        {u"last", start + 365 * day, kHidden | kArchive},
        {u"late", start + 365 * day + second, kSystem},
        {u"middle", start + 166 * day + day / 2, kReadOnly}};
    for (const auto& [name, time, attributes] : made) {
        world.files.put(u"C:\\t\\" + name, "");
        world.files.setLastWrite(u"C:\\t\\" + name, time);
        world.files.setAttributes(u"C:\\t\\" + name, attributes);
    }
    world.system.minutesEastOfUtc = 60;
    const auto dated = [](const String& names, const Variant& upTo, const Variant& from) {
        return search(u"C:\\t", names, {u"*", false, upTo, from});
    };
    const auto wrong = [](const Variant& date) {
        return Row({u"C:", list(u"old"), u"*", false, kMissing, date},
                   {Long{-1}, list(u"old"), u"*", false, kMissing, date, u""});
    };
    const auto with = [](const String& attributes, const String& names) {
        return search(u"C:\\t", names, {u"*", false, kMissing, kMissing, attributes});
    };
    file.expect(u"getFilesFromDirectoryEx",
                {dated(u"first", u"2020-01-01", kMissing),
                 dated(u"last late", kMissing, u"2020-12-31"),
                 dated(u"first last late", u"2020-01-01", u"2020-12-31"),
                 dated(u"first last middle", u"2020-12-31", u"2020-01-01"),
                 dated(u"first last late middle", u"2020-06-15 12:00:00", u"2020-06-15 12:00:00"),
                 dated(u"first last late", u"2020-06-15 11:59:59", u"2020-06-15 12:00:01"),
                 dated(u"first", Date{43831}, kMissing),
                 dated(u"first last middle", Double{44196.000001}, kMissing),
                 dated(u"", Empty{}, kMissing),
                 wrong(u"no date"),
                 wrong(Null{}),
                 wrong(1e300),
                 with(u"R", u"first last late middle"),
                 with(u"+q", u"first last late middle"),
                 with(u"-H-S", u"first middle"),
                 with(u"+r", u"middle"),
                 with(u"+RxR", u"first last late"),
                 with(u"-A+a-", u"first last"),
                 with(u"+A-H", u"first"),
                 with(u"+S+R", u"")});
    EXPECT_TRUE(world.host.messages.empty());

    world.files.setLastWrite(u"C:\\t\\first", UINT64_MAX / 2);  // no calendar shows it: it is now
    world.system.localTime.year = 2021;
    file.expect(u"getFilesFromDirectoryEx",
                {dated(u"first last late middle", u"2021-01-01", u"2021-01-01"),
                 dated(u"first", kMissing, u"2021-01-01")});
}

TEST_F(Listing, AddsToAListGoesThroughFoldersAndCountsExtensions) {
    const Variant two = list(u"x y");
    const Variant square = Array<String>({0, 1}, {0, 1});
    const Variant fromOne = Array<String>({u"x"}, 1);
    file.expect(u"GetFilesFromDirectory3",
                {walk(u"C:\\b", u"*.txt", false, false, u"b1.txt b2.TXT"),
                 walk(u"C:\\d\\", u"*", true, false, u"x y C:\\d\\d.txt", two),
                 walk(u"C:\\none", u"*", true, true, u"x y", two),
                 walk(u"C:\\d", u"*", false, false, u"d.txt", Array<String>()),
                 walk(u"C:\\empty", u"*", false, true, u"", Array<String>(Bounds{5, 0})),
                 walk(u"C:", u"*.txt", false, true, u"a.txt b1.txt b2.TXT c.txt d.txt"),
                 walk(u"C:", u"c\\*", true, true, u"C:\\b\\c.doc C:\\b\\c.txt"),
                 walk(u"C:\\b", u"c\\*", false, false, u"c.doc c.txt"),
                 Row({u"C:", u"*", false, true, square}, {Long{-1}, square}),
                 Row({u"C:", u"*", false, true, fromOne}, {Long{-1}, fromOne})});
    file.expect(u"GetAllSubDirectories",
                {Row({u"C:", list(u"old")}, countAndList(u"C:\\b C:\\d C:\\empty")),
                 Row({u"C:\\d", Array<String>()}, countAndList(u"")),
                 Row({u"C:\\no", list(u"old")}, countAndList(u"")),
                 Row({Null{}, list(u"old")}, {Long{-1}, list(u"")})});
    String told;
    for (const auto& one : world.host.messages) told += one.caption + u":" + one.text + u" ";
    EXPECT_EQ(told, u"9:Subscript out of range 9:Subscript out of range 94:Invalid use of Null ");

    Array<String> larger({0, 2}, {0, 9});
    Array<String> table({0, 2}, {0, 2});
    table.elements() = {u".txt", u"2", u"", u"1"};
    file.expect(u"getAllFileExtensionsFromDirectory",
                {Row({u"C:\\b", Array<String>()}, {Long{2}, table}),
                 Row({u"C:\\b", larger}, {Long{2}, table}),
                 Row({u"C:\\empty", list(u"x")}, {Long{0}, list(u"x")}),
                 Row({u"C:\\d", list(u"x")}, Error{9})});

    GQuorFile direct(world);  // name and filter may be elements of the list
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
    world.files.addLink(u"C:\\d\\second", u"C:\\b\\c");
    file.expect(
        u"GetFilesFromDirectory3",
        {walk(u"C:", u"*.txt", false, true, u"a.txt b1.txt b2.TXT c.txt d.txt linked.txt c.txt"),
         walk(u"C:\\b", u"b1*", false, true, u"b1.txt"),
         walk(u"C:\\b\\up\\b", u"b1*", false, true, u"b1.txt")});
    ports.answer(0, kGeneralFailure, "FinalName");  // nobody knows where links lead
    file.expect(u"GetFilesFromDirectory3",
                {walk(u"C:\\d", u"*", false, true, u"d.txt linked.txt nowhere")});
    ports.answer(0, kGeneralFailure, "FirstEntry");
    file.expect(u"GetFilesFromDirectory3", {walk(u"C:", u"*.txt", false, true, u"")});
    EXPECT_TRUE(world.host.messages.empty());
}

}  // namespace
}  // namespace quorkit::test
