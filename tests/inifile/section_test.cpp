// Whole sections: read as tables, merged, and with several keys deleted at once.
#include "inifile/ini_fixture.h"

namespace quorkit::test {
namespace {

TEST_F(IniTest, ReadsASectionAsATable) {
    const auto reads = [&](const std::string& lines, const Entries& entries, Long count) {
        content("[S]\n" + lines + "[T]\nt=1\n");
        ini.expect(u"ReadSectionContent", {Row({u"s", 0, 0}, {table(entries), count, 0})});
    };
    reads("a=1\n; c\nb=2\n", {{u"a", u"1"}, {u"", u""}, {u"b", u"2"}}, 2);
    reads("k\n", {{u"", u""}}, 0);
    reads("=\n", {{u"", u""}}, 0);  // two characters are not taken apart
    reads("", {{u"", u""}}, 0);
    reads("a = x=y \n\n ;b = \"q\"\n", {{u"a", u"x=y"}, {u" ;b ", u" \"q\""}}, 2);
    EXPECT_EQ(ini.call(u"ReadSectionContent", {u"S", 0, u"many"}).arguments[1], Variant(-1));
}

TEST_F(IniTest, ReadsAsMuchOfASectionAsItsBufferTakes) {
    std::string lines = "[S]\n";
    for (int i = 0; i < 5000; ++i) lines += "ke" + std::to_string(10000 + i) + "y=x\n";
    content(lines);  // each entry takes 11 characters; a cut one at the end is dropped
    EXPECT_EQ(ini.call(u"ReadSectionKeys", {u"S", 0}).arguments[1], Variant(3640));
    const std::pair<Variant, Long> sizes[] = {
        {Variant::missing(), 2978}, {1000, 2978}, {u"55002", 5000}, {55000, 4999}};
    for (const auto& [size, count] : sizes)
        EXPECT_EQ(ini.call(u"ReadSectionContent", {u"S", 0, size}).arguments[1], Variant(count));
    // Rewriting uses the whole section, not the part that callers get.
    const Variant entry = table({{u"ke14999y", u"new"}});
    const Variant list = names({u"ke14999y"});
    const struct {
        const char16_t* member;
        std::vector<Variant> arguments;
        Long left;
    } calls[] = {{u"WriteMultiLineValue", {u"S", u"ke14999y", u"x\r\ny"}, 5002},
                 {u"WriteMultiLineSection", {u"S", entry}, 5000},
                 {u"WriteSectionContent", {u"S", entry}, 5000},
                 {u"WriteSectionContent", {u"S", entry, 40000}, 5000},
                 {u"DeleteMultiLineKey", {u"S", u"ke14999y"}, 4999},
                 {u"DeleteKeys", {u"S", list, 40000}, 4999}};
    for (const auto& one : calls) {
        content(lines);
        ini.expect(one.member, {Row(one.arguments, 1)});
        EXPECT_EQ(ini.call(u"ReadSectionContent", {u"S", 0, 1000000}).arguments[1],
                  Variant(one.left));
    }
    write(u"S", u"long", String(5000, u'x'));
    EXPECT_EQ(read(u"S", u"long"), String(4095, u'x'));
}

TEST_F(IniTest, MergesATable) {
    // A line without "=" becomes "=" and costs the last entry.
    for (const Long lower : {0, 1}) {
        const auto with = [&](const Entries& entries) {
            return std::vector<Variant>{u"S", table(entries, lower)};
        };
        edit(u"WriteSectionContent",
             {Edit("[S]\na=1\nb = 2\n", with({{u"A", u"9"}, {u"c", u"3"}}), 2,
                   "[S]\na=9\nb = 2\nc=3\n"),
              Edit("[S]\na=1\n\nb='2'\n\n[T]\n", with({{u"c", u"3"}, {u"B", u"4"}, {u"C", u"5"}}),
                   3, "[S]\na=1\n\nb='4'\nc=5\n\n[T]\n"),
              Edit("[T]\n", with({{u"a", u"1"}, {u"", u"x"}, {u"A", u"2"}}), 2,
                   "[T]\n[S]\na=1\nA=2\n"),
              Edit("[S]\na=1\n; c\nb=2\n", with({{u"c", u"3"}}), 1, "[S]\na=1\n=\nc=3\n"),
              Edit("[S]\na=1\n; c\nb=2\n", with({{u"b", u"9"}, {u"d", u"4"}}), 2,
                   "[S]\na=1\n=\nd=4\n"),
              Edit("[S]\na=1\n; c\nb=2\n", with({{u"b", u"9"}}), 1, "[S]\na=1\n=\nb=9\n"),
              Edit("[S]\nx=1", with({{u"y", u"2"}}), 1, "[S]\nx=1\ny=2"),
              Edit("[S]\ny=1\nx=1\r", with({{u"y", u"2"}}), 1, "[S]\ny=2\nx=1\r"),
              Edit("[S]\na = 1\n", with({{u" a ", u"9"}, {u"a=b", u"8"}, {u"c", u"7"}}), 2,
                   "[S]\na = 9\nc=7\n"),
              Edit("[S]\na=1\n; c\nb=2\n", with({{u"x=y", u"9"}, {u"", u"8"}}), 0,
                   "[S]\na=1\n; c\nb=2\n")});
    }
    ini.expect(u"WriteSectionContent",
               {Row({u"S", u"no table"}, 0), Row({u"S", table({{u"a", u"1"}}), u"many"}, -1)});
}

TEST_F(IniTest, DeletesSeveralKeys) {
    // The last section stays in place if a second one of its name would hide it after the move.
    edit(u"DeleteKeys",
         {Edit("[S]\na=1\nb = 2\n\n[T]\nt=1\n", {u"S", names({u"A", u"a"})}, 1,
               "[T]\nt=1\n[S]\nb = 2\n"),
          Edit("[S]\nb=2\n[T]\nt=1", {u"S", names({u"x"})}, 0, "[T]\nt=1\n[S]\nb=2"),
          Edit("[S]\r\na=1\nb=2\n[T]\nt=1", {u"S", names({u"a"})}, 1, "[T]\nt=1\n[S]\r\nb=2"),
          Edit("[S]\nName=1\nNAME=2\n[T]\n", {u"S", names({u"Name"})}, -2,
               "[S]\nName=1\nNAME=2\n[T]\n"),
          Edit("[S]\nx\ny\na=1\nb=2\nc=3\n", {u"S", names({u"a"})}, 1, "[S]\n=\n=\n"),
          Edit("[S]\na=1\n[T]\n", {u"S", names({})}, 0, "[S]\na=1\n[T]\n"),
          Edit("[S]\na=1\n", {u"S", Array<String>()}, 0, "[S]\na=1\n"),
          Edit("[S]\na=1\n", {u"S", names({u"a"}), u"many"}, -1, "[S]\na=1\n"),
          Edit("[T]\n", {u"S", names({u"a"})}, 0, "[T]\n"),
          Edit("[S]\na=1\nb=2\n[s]\nb=9\n", {u"S", names({u"a"})}, 1, "[S]\nb=2\n[s]\nb=9\n")});
    world.files.setReadOnly(kFile);
    const std::string before = content();
    ini.expect(u"DeleteKeys", {Row({u"S", names({u"b"})}, -1)});
    EXPECT_EQ(content(), before);
}

}  // namespace
}  // namespace quorkit::test
