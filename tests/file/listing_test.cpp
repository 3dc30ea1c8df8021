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

/// The names of a list, sorted, each with a blank behind it; a list must be counted from 0.
String sorted(const Variant& list) {
    auto names = list.get<Array<String>>().elements();
    EXPECT_EQ(list.get<Array<String>>().bounds(), (Bounds{0, static_cast<Long>(names.size())}));
    std::ranges::sort(names);
    String text;
    for (const String& name : names) text += name + u' ';
    return text;
}

/// Real files; the rest of the world is made up.
class Listing : public testing::Test {
   protected:
    Listing() {
        for (const char* folder : {"b/c", "d", "empty"})
            fs::create_directories(scratch.path(folder));
        for (const char* name : {"a.txt", "a.TXT.bak", "e", "b/b1.txt", "b/b2.TXT", "b/c/c.txt",
                                 "b/c/c.doc", "d/d.txt"})
            scratch.write(name, "");
    }
    String filesWith(std::vector<Variant> options, const char* folder = "") {
        std::vector<Variant> arguments{scratch.name(folder), Array<String>()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Outcome outcome = file.call(u"getFilesFromDirectoryEx", arguments);
        const String names = sorted(outcome.arguments[1]);
        EXPECT_EQ(outcome.result, Variant(static_cast<Long>(std::ranges::count(names, u' ')) -
                                          (names == u" " ? 1 : 0)));
        return names;
    }
    Outcome files(const String& folder, const String& filter, bool withFolder, bool recursive,
                  Variant list = Array<String>()) {
        return file.call(u"GetFilesFromDirectory3", {folder, filter, withFolder, recursive, list});
    }
    String message() {
        String text;
        for (const auto& [body, caption] : memory.host.messages) text += body + u'/' + caption;
        memory.host.messages.clear();
        return text;
    }

    Scratch scratch;
    String top = scratch.folder().u16string() + u"\\";
    MemoryPorts memory;
    FaultyFiles faulty{ports::native().files};
    Ports ports{faulty, memory.drives, memory.system, memory.host};
    Late file{u"GQuorFile", ports};
};

TEST_F(Listing, FiltersByName) {
    const std::pair<String, String> rows[] = {{u"*.*", u"a.TXT.bak a.txt e "},
                                              {u"*.TXT", u"a.txt "},
                                              {u"b\\*.txt", u"b1.txt b2.TXT "},
                                              {u"E", u"e "},
                                              {u"b", u" "},
                                              {u"", u" "},
                                              {u".", u" "},
                                              {u"*\\*", u" "},
                                              {u"no\\*", u" "}};
    for (const auto& [filter, names] : rows) EXPECT_EQ(filesWith({filter}), names) << filter.size();
    EXPECT_EQ(filesWith({}), u"a.TXT.bak a.txt e ");
    EXPECT_EQ(filesWith({u"b\\b1*", true}), top + u"b1.txt ");
    EXPECT_EQ(filesWith({}, "empty"), u" ");
    EXPECT_EQ(filesWith({}, "missing"), u" ");
    EXPECT_EQ(filesWith({}, "a.txt"), u" ");
}

TEST_F(Listing, FiltersByDate) {
    using namespace std::chrono_literals;
    memory.system.minutesEastOfUtc = 60;
    const auto write = [&](const char* name, std::chrono::sys_time<std::chrono::milliseconds> at) {
        scratch.write(name, "");
        fs::last_write_time(scratch.path(name), std::chrono::file_clock::from_sys(at - 60min));
    };
    using std::chrono::sys_days;
    write("d/first", sys_days(2020y / 1 / 1) + 700ms);
    write("d/middle", sys_days(2020y / 6 / 15) + 12h);
    write("d/last", sys_days(2020y / 12 / 31));
    write("d/d.txt", sys_days(2020y / 12 / 31) + 1s);
    const Variant none = Variant::missing();
    const struct {
        Variant upTo, from;
        String names;
    } rows[] = {
        {u"2020-01-01", none, u"first "},
        {none, u"2020-12-31", u"d.txt last "},
        {u"2020-01-01", u"2020-12-31", u"d.txt first last "},
        {u"2020-12-31", u"2020-01-01", u"first last middle "},
        {u"2020-06-15 12:00:00", u"2020-06-15 12:00:00", u"d.txt first last middle "},
        {u"2020-06-15 11:59:59", u"2020-06-15 12:00:01", u"d.txt first last "},
        {Date{43831}, none, u"first "},
        {Double{44196.000001}, none, u"first last middle "},
        {Empty{}, none, u" "},
    };
    for (const auto& [upTo, from, names] : rows)
        EXPECT_EQ(filesWith({u"*", false, upTo, from}, "d"), names)
            << testing::PrintToString(std::pair(upTo, from));
    const Variant old = Array<String>({u"old"});
    for (const Variant& bad : {Variant(u"no date"), Variant(Null{}), Variant(1e300)})
        file.expect(u"getFilesFromDirectoryEx",
                    {Row({top, old, u"*", false, none, bad},
                         {Long{-1}, old, u"*", false, none, bad, u""})});
    EXPECT_EQ(message(), u"");
}

TEST_F(Listing, FiltersByAttributes) {
    fs::permissions(scratch.path("a.txt"), fs::perms::owner_read);
    scratch.write(".hidden", "");
    const auto with = [&](const char16_t* attributes) {
        return filesWith({u"*", false, Variant::missing(), Variant::missing(), String(attributes)});
    };
    const String all = u".hidden a.TXT.bak a.txt e ";
    for (const char16_t* nothing : {u"", u"R", u"+q", u"-", u"+A", u"-S+A-", u"-A+a"})
        EXPECT_EQ(with(nothing), all) << String(nothing).size();
    EXPECT_EQ(with(u"+r"), u"a.txt ");
    EXPECT_EQ(with(u"+RxR"), u".hidden a.TXT.bak e ");
    EXPECT_EQ(with(u"+S"), u" ");
#ifdef __linux__
    EXPECT_EQ(with(u"-H-R"), u"a.TXT.bak e ");
#endif
    fs::permissions(scratch.path("a.txt"), fs::perms::owner_all);
}

TEST_F(Listing, AddsToAList) {
    const Outcome first = files(top + u"b", u"*.txt", false, false);
    EXPECT_EQ(first.result, Variant(Long{2}));
    const Outcome second = files(top + u"d", u"*", true, false, first.arguments[4]);
    EXPECT_EQ(second.result, Variant(Long{3}));
    EXPECT_EQ(sorted(second.arguments[4]), top + u"d\\d.txt b1.txt b2.TXT ");
    const Outcome third = files(top + u"none", u"*", true, true, second.arguments[4]);
    EXPECT_EQ(third.result, Variant(Long{3}));
    EXPECT_EQ(third.arguments[4], second.arguments[4]);

    const Variant one = Array<String>({u"d.txt"});
    const Variant none = Array<String>({u""});
    for (const Variant& noNames :
         {Variant(Array<String>()), none, Variant(Array<String>(Bounds{5, 0}))}) {
        EXPECT_EQ(files(top + u"d", u"*", false, false, noNames).arguments[4], one);
        const Outcome empty = files(top + u"empty", u"*", false, true, noNames);
        EXPECT_EQ(empty.result, Variant(Long{0}));
        EXPECT_EQ(empty.arguments[4], none);
    }
    for (const Variant& bad :
         {Variant(Array<String>({u"x"}, 1)), Variant(Array<String>({0, 1}, {0, 1}))}) {
        const Outcome refused = files(top, u"*", false, true, bad);
        EXPECT_EQ(refused.result, Variant(Long{-1}));
        EXPECT_EQ(refused.arguments[4], bad);
        EXPECT_EQ(message(), u"Subscript out of range/9");
    }

    GQuorFile direct(ports);  // the name and the filter may stand in the list itself
    Array<String> list({top + u"d", u"d*"});
    EXPECT_EQ(direct.GetFilesFromDirectory3(list.at(0), list.at(1), false, false, list), 3);
    EXPECT_EQ(list.at(2), u"d.txt");
}

TEST_F(Listing, GoesThroughFolders) {
    EXPECT_EQ(sorted(files(top, u"*.txt", false, true).arguments[4]),
              u"a.txt b1.txt b2.TXT c.txt d.txt ");
    EXPECT_EQ(sorted(files(top, u"c\\*.txt", true, true).arguments[4]), top + u"b\\c.txt ");

    // A folder's files first; a folder with all beneath it before the next.
    const auto names = files(top, u"*.*", false, true).arguments[4].get<Array<String>>().elements();
    const auto place = [&](StringView name) { return std::ranges::find(names, name); };
    ASSERT_EQ(names.size(), 8u);
    EXPECT_LT(std::max({place(u"a.txt"), place(u"a.TXT.bak"), place(u"e")}),
              std::min({place(u"b1.txt"), place(u"b2.TXT"), place(u"d.txt")}));
    EXPECT_EQ(
        std::max(place(u"c.txt"), place(u"c.doc")) - std::min(place(u"b1.txt"), place(u"b2.TXT")),
        3);

    fs::path deep = scratch.folder();
    for (int i = 0; i < 40; ++i) deep /= "x";
    fs::create_directories(deep);
    std::ofstream(deep / "deep") << "";
    EXPECT_EQ(files(top, u"deep", false, true).result, Variant(Long{1}));
}

TEST_F(Listing, ListsFolders) {
    const Outcome outcome = file.call(u"GetAllSubDirectories", {top, Array<String>({u"old"})});
    EXPECT_EQ(outcome.result, Variant(Long{3}));
    EXPECT_EQ(sorted(outcome.arguments[1]), top + u"b " + top + u"d " + top + u"empty ");
    const Variant none = Array<String>({u""});
    file.expect(u"GetAllSubDirectories",
                {Row({top + u"d", Array<String>()}, {Long{0}, none}),
                 Row({top + u"no", Array<String>({u"old"})}, {Long{0}, none}),
                 Row({Null{}, Array<String>({u"old"})}, {Long{-1}, none})});
    EXPECT_EQ(message(), u"Invalid use of Null/94");
}

TEST_F(Listing, CountsExtensions) {
    scratch.write("b/C", "");
    const Outcome outcome =
        file.call(u"getAllFileExtensionsFromDirectory", {top + u"b", Array<String>()});
    EXPECT_EQ(outcome.result, Variant(Long{2}));
    const auto& table = outcome.arguments[1].get<Array<String>>();
    EXPECT_EQ(table.bounds(1), (Bounds{0, 2}));
    const Long text = table.at(0, 0) == u".txt" ? 0 : 1;
    EXPECT_EQ(table.elements(), text == 0 ? (std::vector<String>{u".txt", u"2", u"", u"1"})
                                          : (std::vector<String>{u"", u"1", u".txt", u"2"}));

    const Variant list = Array<String>({u"x"});
    Array<String> larger({0, 2}, {0, 9});
    Array<String> txt({0, 2}, {0, 1});
    txt.elements() = {u".txt", u"1"};
    file.expect(u"getAllFileExtensionsFromDirectory", {Row({top + u"empty", list}, {Long{0}, list}),
                                                       Row({top + u"d", list}, {Error{9}, list}),
                                                       Row({top + u"d", larger}, {Long{1}, txt})});
}

TEST_F(Listing, EndsWhereTheSystemFails) {
    faulty.answer(1, kGeneralFailure, "FindFirst");
    EXPECT_EQ(filesWith({}), u" ");
    faulty.answer(3, kGeneralFailure, "FindNext");
    EXPECT_NE(files(top, u"*", false, true).result, Variant(Long{-1}));
    EXPECT_EQ(message(), u"");
}

TEST_F(Listing, BearsAFolderThatChanges) {
    for (int i = 0; i < 200; ++i) scratch.write("d/stays" + std::to_string(i), "");
    std::atomic<bool> done = false;
    std::thread other([&] {
        for (int i = 0; !done; i = (i + 1) % 300) {
            const std::string name = "d/goes" + std::to_string(i);
            std::error_code ignored;
            if (!fs::remove(scratch.path(name), ignored)) scratch.write(name, "");
        }
    });
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(std::ranges::count(
                      filesWith({u"stays*", false, u"9999-01-01", Empty{}, u"+A"}, "d"), u' '),
                  200);
        EXPECT_EQ(files(top, u"stays*", true, true).result, Variant(Long{200}));
    }
    done = true;
    other.join();
}

#ifdef __linux__
TEST_F(Listing, FollowsLinksButNotRoundAndRound) {
    fs::create_directory_symlink("..", scratch.path("b/up"));
    fs::create_directory_symlink(".", scratch.path("b/c/here"));
    fs::create_directory_symlink(scratch.folder(), scratch.path("d/top"));
    fs::create_directory_symlink("../b/c", scratch.path("d/other"));
    fs::create_symlink("nowhere", scratch.path("d/dangling"));
    fs::create_symlink("d.txt", scratch.path("d/linked.txt"));
    EXPECT_EQ(sorted(files(top, u"*.txt", false, true).arguments[4]),
              u"a.txt b1.txt b2.TXT c.txt c.txt d.txt linked.txt ");
    faulty.answer(0, kGeneralFailure, "GetFinal");  // nobody knows where links lead to
    EXPECT_EQ(sorted(files(top, u"*.txt", false, true).arguments[4]),
              u"a.txt b1.txt b2.TXT c.txt d.txt linked.txt ");

    // From a folder that is spelled some other way.
    faulty.answer(static_cast<std::size_t>(-1), kSuccess);
    const fs::path before = fs::current_path();
    fs::current_path(scratch.path("b"));
    for (const char16_t* spelling : {u".", u"c\\..", u"up/b\\", u"..\\b\\"})
        EXPECT_EQ(files(spelling, u"b1*", false, true).result, Variant(Long{1}));
    fs::current_path(before);
}
#endif

}  // namespace
}  // namespace quorkit::test
