// Whole sections: read as tables, merged, and several keys deleted at once.
#include <gmock/gmock.h>

#include "inifile/ini_fixture.h"

namespace quorkit::test {
namespace {

TEST_F(IniTest, ReadsASectionAsATable) {
    const struct {
        std::string lines;
        Entries entries;
        Long count;
    } cases[] = {
        {"a=1\n; c\nb=2\n", {{u"a", u"1"}, {u"", u""}, {u"b", u"2"}}, 2},
        {"k\n", {{u"", u""}}, 0},
        {"=\n", {{u"", u""}}, 0},  // two characters are not taken apart
        {"", {{u"", u""}}, 0},
        {"a = x=y \n\n ;b = \"q\"\n", {{u"a", u"x=y"}, {u" ;b ", u" \"q\""}}, 2},
    };
    for (const auto& one : cases) {
        content("[S]\n" + one.lines + "[T]\nt=1\n");
        const Outcome outcome = ini.call(u"ReadSectionContent", {u"s", Long{0}});
        EXPECT_EQ(entriesOf(outcome.result), one.entries) << one.lines;
        EXPECT_EQ(outcome.arguments[1], Variant(one.count)) << one.lines;
    }
    EXPECT_EQ(ini.call(u"ReadSectionContent", {u"S", Long{0}, u"many"}).arguments[1],
              Variant(Long{-1}));
}

TEST_F(IniTest, ReadsAsMuchOfASectionAsItsBufferTakes) {
    std::string lines = "[S]\n";
    for (int i = 0; i < 5000; ++i) lines += "key" + std::to_string(10000 + i) + "=x\n";
    content(lines);  // each entry takes 11 characters
    const auto count = [&](Variant size) {
        return ini.call(u"ReadSectionContent", {u"S", Long{0}, std::move(size)}).arguments[1];
    };
    EXPECT_EQ(count(Variant::missing()), Variant(Long{2978}));
    EXPECT_EQ(count(Long{1000}), Variant(Long{2978}));
    EXPECT_EQ(count(u"55002"), Variant(Long{5000}));
    EXPECT_EQ(count(Long{55000}), Variant(Long{4999}));  // cut by two, and the last one goes
}

TEST_F(IniTest, MergesATable) {
    const struct {
        std::string before;
        Entries entries;
        std::string after;
        Long result;
    } cases[] = {
        {"[S]\na=1\nb = 2\n", {{u"A", u"9"}, {u"c", u"3"}}, "[S]\na=9\nb = 2\nc=3\n", 2},
        {"[S]\na=1\n\nb='2'\n\n[T]\n",
         {{u"c", u"3"}, {u"B", u"4"}, {u"C", u"5"}},
         "[S]\na=1\n\nb='4'\nc=5\n\n[T]\n",
         3},
        {"[T]\n", {{u"a", u"1"}, {u"", u"x"}, {u"A", u"2"}}, "[T]\n[S]\na=1\nA=2\n", 2},
        // A line without "=" becomes "=" and costs the last entry.
        {"[S]\na=1\n; c\nb=2\n", {{u"c", u"3"}}, "[S]\na=1\n=\nc=3\n", 1},
        {"[S]\na=1\n; c\nb=2\n", {{u"b", u"9"}, {u"d", u"4"}}, "[S]\na=1\n=\nd=4\n", 2},
        {"[S]\na=1\n; c\nb=2\n", {{u"b", u"9"}}, "[S]\na=1\n=\nb=9\n", 1},
        {"[S]\nx=1", {{u"y", u"2"}}, "[S]\nx=1\ny=2", 1},
        {"[S]\ny=1\nx=1\r", {{u"y", u"2"}}, "[S]\ny=2\nx=1\r", 1},
        {"[S]\na = 1\n", {{u" a ", u"9"}, {u"a=b", u"8"}, {u"c", u"7"}}, "[S]\na = 9\nc=7\n", 2},
    };
    for (const auto& one : cases) {
        for (const Long lower : {0, 1}) {
            content(one.before);
            EXPECT_EQ(ini(u"WriteSectionContent", {u"S", table(one.entries, lower)}),
                      Variant(one.result));
            EXPECT_EQ(content(), one.after);
        }
    }
    EXPECT_EQ(ini(u"WriteSectionContent", {u"S", u"no table"}), Variant(Long{0}));
    EXPECT_EQ(ini(u"WriteSectionContent", {u"S", table({{u"a", u"1"}}), u"many"}),
              Variant(Long{-1}));
}

TEST_F(IniTest, DeletesSeveralKeys) {
    const struct {
        std::string before;
        std::vector<String> keys;
        std::string after;
        Long result;
    } cases[] = {
        {"[S]\na=1\nb = 2\n\n[T]\nt=1\n", {u"A", u"a"}, "[T]\nt=1\n[S]\nb = 2\n", 1},
        {"[S]\nb=2\n[T]\nt=1", {u"x"}, "[T]\nt=1\n[S]\nb=2", 0},
        {"[S]\r\na=1\nb=2\n[T]\nt=1", {u"a"}, "[T]\nt=1\n[S]\r\nb=2", 1},
        {"[S]\nName=1\nNAME=2\n[T]\n", {u"Name"}, "[S]\nName=1\nNAME=2\n[T]\n", -2},
        {"[S]\nx\ny\na=1\nb=2\nc=3\n", {u"a"}, "[S]\n=\n=\n", 1},
        {"[S]\na=1\n[T]\n", {}, "[S]\na=1\n[T]\n", 0},
        {"[T]\n", {u"a"}, "[T]\n", 0},
        // A second section of the name would hide the moved one, so it stays in its place.
        {"[S]\na=1\nb=2\n[s]\nb=9\n", {u"a"}, "[S]\nb=2\n[s]\nb=9\n", 1},
    };
    for (const auto& one : cases) {
        content(one.before);
        EXPECT_EQ(ini(u"DeleteKeys", {u"S", names(one.keys)}), Variant(one.result));
        EXPECT_EQ(content(), one.after);
    }
    content("[S]\na=1\n");
    EXPECT_EQ(ini(u"DeleteKeys", {u"S", Array<String>()}), Variant(Long{0}));
    EXPECT_EQ(ini(u"DeleteKeys", {u"S", names({u"a"}), u"many"}), Variant(Long{-1}));
    world.files.setReadOnly(kFile);
    EXPECT_EQ(ini(u"DeleteKeys", {u"S", names({u"a"})}), Variant(Long{-1}));
    EXPECT_EQ(content(), "[S]\na=1\n");
}

}  // namespace
}  // namespace quorkit::test
