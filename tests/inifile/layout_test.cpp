// What an edit of one key or section does to the bytes of a file: that line, and nothing else.
#include <gmock/gmock.h>

#include <functional>

#include "inifile/ini_fixture.h"

namespace quorkit::test {
namespace {

using testing::ElementsAre;

struct Edit {
    const char* what;
    std::string before;
    std::function<Long(Late&)> edit;
    std::string after;
    Long result = 1;
};

auto set(String section, String key, String value) {
    return [=](Late& ini) { return ini(u"WriteKeyValue", {section, key, value}).get<Long>(); };
}
auto drop(String section, String key) {
    return [=](Late& ini) { return ini(u"DeleteKey", {section, key}).get<Long>(); };
}
auto onSection(const char16_t* member, String section) {
    return [=](Late& ini) { return ini(member, {section}).get<Long>(); };
}

class Layout : public IniTest, public testing::WithParamInterface<Edit> {};

TEST_P(Layout, ChangesOnlyItsLine) {
    content(GetParam().before);
    EXPECT_EQ(GetParam().edit(ini), GetParam().result);
    EXPECT_EQ(content(), GetParam().after);
}

const Edit kEdits[] = {
    {"value", "; c\n[A]\n\nk = 1\n# x\nk=2\n", set(u"a", u"K", u"9"),
     "; c\n[A]\n\nk = 9\n# x\nk=2\n"},
    {"same", "[A]\nk = 1 \n", set(u"A", u"k", u"1"), "[A]\nk = 1 \n"},
    {"spacing", "[A]\r\n\tk\t=\t1\t\r\n", set(u"A", u"k", u"22"), "[A]\r\n\tk\t=\t22\t\r\n"},
    {"quotes", "[A]\nk = \"a;b\"\n", set(u"A", u"k", u"c"), "[A]\nk = \"c\"\n"},
    {"empty", "[A]\nk=1\n", set(u"A", u"k", u""), "[A]\nk=\n"},
    {"fromEmpty", "[A]\nk = \n", set(u"A", u"k", u"v"), "[A]\nk = v\n"},
    {"add", "[A]\na=1\n\n; b\n[B]\nb=1\n", set(u"A", u"c", u"2"),
     "[A]\na=1\nc=2\n\n; b\n[B]\nb=1\n"},
    {"addBeforeBlanks", "[A]\na=1\n\n\n[B]\n", set(u"A", u"c", u"2"), "[A]\na=1\nc=2\n\n\n[B]\n"},
    {"addAtUnendedEnd", "[A]\na=1", set(u"A", u"c", u"2"), "[A]\na=1\nc=2"},
    {"addToHeaderAlone", "[A]", set(u"A", u"c", u"2"), "[A]\r\nc=2"},
    {"mixedEnds", "[A]\r\na=1\n[B]\r\nb=1\n", set(u"B", u"c", u"2"),
     "[A]\r\na=1\n[B]\r\nb=1\nc=2\n"},
    {"section", "; c\n[A]\na=1\n", set(u"B", u"b", u"2"), "; c\n[A]\na=1\n[B]\nb=2\n"},
    {"sectionAtUnendedEnd", "[A]\na=1", set(u"B", u"b", u"2"), "[A]\na=1\n[B]\nb=2"},
    {"newFile", "", set(u"B", u"b", u"2"), "[B]\r\nb=2\r\n"},
    {"commentIsNoKey", "[A]\n;k=1\n", set(u"A", u"k", u"2"), "[A]\nk=2\n;k=1\n"},
    {"firstSection", "[A]\na=1\n[a]\nb=1\n", set(u"A", u"b", u"2"), "[A]\na=1\nb=2\n[a]\nb=1\n"},
    {"delete", "[A]\n;x\na=1\nA=2\n", drop(u"A", u"A"), "[A]\n;x\nA=2\n"},
    {"deleteLast", "[A]\na=1\nb=2", drop(u"A", u"b"), "[A]\na=1\n"},
    {"deleteMissing", "[A]\na=1\n", drop(u"A", u"x"), "[A]\na=1\n", 0},
    {"deleteSection", "x\n[A]\na=1\n;c\n\n[B]\nb=1\n", onSection(u"DeleteSection", u"A"),
     "x\n[B]\nb=1\n"},
    {"deleteMissingSection", "[A]\n", onSection(u"DeleteSection", u"B"), "[A]\n", 0},
    {"addSection", "[A]\n", onSection(u"AddSection", u"B"), "[A]\n[B]\n"},
    {"emptySection", "[A]\na=1\n;c\n[B]\nb=1\n", onSection(u"AddSection", u"A"), "[A]\n[B]\nb=1\n"},
    {"utf8Mark", "\xEF\xBB\xBF[A]\nk=\xC3\xA4\n", set(u"A", u"k", u"\u03A9"),
     "\xEF\xBB\xBF[A]\nk=\xCE\xA9\n"},
    {"utf8Found", "[A]\nx=\xC3\xA4\nk=1\n", set(u"A", u"k", u"\u03A9"),
     "[A]\nx=\xC3\xA4\nk=\xCE\xA9\n"},
    {"ansi", "[A]\nx=\xE4\nk=1\n", set(u"A", u"k", u"\u20AC\u03A9"), "[A]\nx=\xE4\nk=\x80?\n"},
    {"utf16", std::string("\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\x31\0\x00\xD8", 20),
     set(u"A", u"k", u"\u03A9"), std::string("\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\xA9\x03", 18)},
    {"ansiName", "[\xC4]\n\xD6=1\n", set(u"\u00E4", u"\u00F6", u"2"), "[\xC4]\n\xD6=2\n"},
    // These bytes would be read back as one character of UTF-8, so they are written in it.
    {"lookalike", "[A]\n", set(u"A", u"k", u"\u00C3\u00A4"), "[A]\nk=\xC3\x83\xC2\xA4\n"},
    {"lookalikeLeft", "[A]\na=\xE4\nb=\xC3\xA4\n", drop(u"A", u"a"), "[A]\na=\xE4\nb=\xC3\xA4\n",
     0},
};
INSTANTIATE_TEST_SUITE_P(Edits, Layout, testing::ValuesIn(kEdits),
                         [](const auto& test) { return test.param.what; });

TEST_F(IniTest, ReadsWhatRealFilesHold) {
    content(
        "k=outside\r\n[A] ; note\r\n k = v w "
        "\r\nq=\"a\"b\"\r\ns='x'\r\ne=a=b;c\r\n;k2=x\n[A]\nz=1\n[]\nn=1");
    const std::pair<String, String> expected[] = {
        {u"K", u"v w"},        {u"q", u"a\"b"},        {u"s", u"x"},         {u"e", u"a=b;c"},
        {u"k2", u"(default)"}, {u";k2", u"(default)"}, {u"z", u"(default)"}, {u"", u"(default)"}};
    for (const auto& [key, value] : expected) EXPECT_EQ(read(u"a", key), value);

    const Outcome keys = ini.call(u"ReadSectionKeys", {u"A", Long{0}});
    EXPECT_EQ(keys.result, names({u"k", u"q", u"s", u"e"}));
    EXPECT_EQ(keys.arguments[1], Variant(Long{4}));
    const Outcome sections = ini.call(u"ReadSectionNames", {Long{0}});
    EXPECT_EQ(sections.result, names({u"A", u"A"}));
    EXPECT_EQ(sections.arguments[0], Variant(Long{2}));
}

TEST_F(IniTest, AnswersForWhatIsMissing) {
    EXPECT_EQ(read(u"A", u"k"), u"(default)");
    EXPECT_EQ(ini.call(u"ReadSectionKeys", {u"A", Long{7}}).result, names({u""}));
    EXPECT_EQ(ini.call(u"ReadSectionNames", {Long{7}}).arguments[0], Variant(Long{0}));
    EXPECT_EQ(ini(u"DeleteKey", {u"A", u"k"}), Variant(Long{0}));
    EXPECT_EQ(content(), "(no file)");
    EXPECT_EQ(ini.get(u"IniFileName"), Variant(kFile));
}

TEST_F(IniTest, SavesInAnImitatedWorldAsOnADisk) {
    world.files.addFolder(u"sub");
    world.files.addLink(u"link.ini", u"sub/target.ini");
    ini.let(u"IniFileName", u"link.ini");
    EXPECT_EQ(write(u"S", u"k", u"1"), 1);
    EXPECT_EQ(world.files.content(u"sub/target.ini"), "[S]\r\nk=1\r\n");
    world.files.setFreeSpace(5);
    EXPECT_EQ(write(u"S", u"k", u"2"), 0);
    EXPECT_EQ(world.files.content(u"sub/target.ini"), "[S]\r\nk=1\r\n");
    for (const char16_t* name : {u"sub", u"none/s.ini"}) {
        ini.let(u"IniFileName", name);
        EXPECT_EQ(write(u"S", u"k", u"1"), 0);
    }
}

TEST_F(IniTest, CutsAtTheSizesOfItsBuffers) {
    write(u"A", u"long", String(5000, u'x'));
    EXPECT_EQ(read(u"A", u"long"), String(4095, u'x'));
    std::string keys = "[A]\n";
    for (int i = 0; i < 4000; ++i) keys += "k23456" + std::to_string(1000 + i) + "=\n";
    content(keys);  // each name takes 11 characters of the 32765 that are left of a cut list
    EXPECT_EQ(ini.call(u"ReadSectionKeys", {u"A", Long{0}}).arguments[1], Variant(Long{2978}));
}

TEST_F(IniTest, GivesBackWhatWasWritten) {
    const String nasty[] = {u"",
                            u" ",
                            u"\t a ",
                            u"a=b",
                            u"=",
                            u";x",
                            u"[B]",
                            u"\"",
                            u"\"\"",
                            u"'a'",
                            u"\"a",
                            u"a\nb",
                            u"a\rb",
                            u"\n",
                            u"x\r",
                            u"\r\n[B]\r\nk=2",
                            u"C:\\new\\r",
                            u"\\n",
                            u"\u00E4\u00C3\u00A4",
                            u"$!ESCAPEDFIELD@#x\\n",
                            u" \"a\n\" "};
    for (const char* before :
         {"", "[A]\nx=\xE4\n", "[A]\nx=\xC3\xA4\n", "\xEF\xBB\xBF[A]\nk='1'\n"}) {
        for (const String& value : nasty) {
            content(before);
            EXPECT_EQ(write(u"A", u"k", value), 1);
            EXPECT_EQ(read(u"A", u"k"), value) << content();
            EXPECT_EQ(ini.call(u"ReadSectionNames", {Long{0}}).arguments[0], Variant(Long{1}));
        }
    }
}

TEST_F(IniTest, RefusesWhatTheLayoutCannotCarry) {
    const std::string before = "[A]\nk=1\n";
    content(before);
    const String nul(1, u'\0');
    const struct {
        String section, key, value;
    } refused[] = {{u"", u"k", u"1"},       {u"A", u"", u"1"},     {u"A", u" ", u"1"},
                   {u"A]", u"k", u"1"},     {u"A\nB", u"k", u"1"}, {u"A" + nul, u"k", u"1"},
                   {u"A", u"a=b", u"1"},    {u"A", u";k", u"1"},   {u"A", u" [B", u"x]"},
                   {u"A", u"k\rx", u"1"},   {u"A", u"k\nx", u"1"}, {u"A", u"k" + nul, u"1"},
                   {u"A", u"k", u"1" + nul}};
    for (const auto& one : refused) {
        EXPECT_EQ(write(one.section, one.key, one.value), 0);
        if (one.key == u";k") continue;  // as an entry of a whole section it is a comment
        const Variant entry = table({{one.key, one.value}});
        EXPECT_EQ(ini(u"WriteSectionContent", {one.section, entry}), Variant(Long{0}));
        EXPECT_EQ(ini(u"WriteMultiLineSection", {one.section, entry}), Variant(Long{0}));
        EXPECT_EQ(content(), before);
    }
    ini.let(u"IniFileName", String(u"a") + nul);
    EXPECT_EQ(write(u"A", u"k", u"1"), 0);
}

}  // namespace
}  // namespace quorkit::test
