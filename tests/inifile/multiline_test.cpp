// Values of several lines.
#include "inifile/ini_fixture.h"

namespace quorkit::test {
namespace {

class MultiLine : public IniTest {
   protected:
    void writes(String key, String value, Long result = 1) {
        ini.expect(u"WriteMultiLineValue", {Row({u"S", key, value}, result)});
    }
    void reads(String key, String value, Variant byDefault = Variant::missing()) {
        ini.expect(u"ReadMultiLineValue", {Row({u"S", key, byDefault}, value)});
    }
    void isSave(bool save) { ini.expect(u"isIniFileMultiLineFieldSave", {Row({}, save)}); }
};

TEST_F(MultiLine, StoresNumberedLinesInFront) {
    content("[S]\nother=1\n");
    writes(u"Text", u"a\r\nb");
    EXPECT_EQ(content(), "[S]\nText=$!MULTILINEFIELD@#\nText1=a\nText2=b\nother=1\n");
    reads(u"text", u"a\r\nb");
    writes(u"Text", u"z");
    writes(u"Line2", u"x\r\ny", 0);
    writes(u" ", u"x", 0);
    EXPECT_EQ(content(), "[S]\nText=z\nother=1\n");
}

TEST_F(MultiLine, GivesBackWhatWasWritten) {
    // Blanks around a key do not count. The letters of the last key make the file UTF-8.
    for (const String key : {u"K", u"Text ", u" T", u"\u043A\u043B"}) {
        for (const String value :
             {u"x\r\n\r\ny", u"a\nb\r\n c ", u"\r\nx", u"\"q\"\r\n;", u"one"}) {
            writes(key, value);
            reads(key, value);
        }
    }
    isSave(true);
    ini.expect(u"DeleteMultiLineKey", {Row({u"S", u"\u043A\u043B"}, 1)});
    String many(4000, u'x');
    for (int i = 0; i < 300; ++i) many += u"\r\n" + String(4000, u'x');
    writes(u"K", many);
    reads(u"K", many);
    ini(u"DeleteMultiLineKey", {u"S", u"K"});
    EXPECT_EQ(ini.call(u"ReadSectionContent", {u"S", 0}).arguments[1], Variant(2));
}

TEST_F(MultiLine, AnswersForWhatIsNotWhole) {
    content("[S]\nm=$!multilinefield@#\nd=v\ne=$!MULTILINEFIELD@#\nE1=x\nE3=z\n");
    reads(u"m", u"default", u"default");
    reads(u"none", u"7", 7);
    reads(u"", u"", u"default");
    reads(u"d", u"v");
    reads(u"e", u"x");
    const Variant entry = table({{u"b", u"1"}});
    ini.expect(u"WriteMultiLineSection",
               {Row({u"S", entry, u"many", false}, 0), Row({u"S", entry, 0, u"maybe"}, 0)});
}

TEST_F(MultiLine, TakesBackTheSectionItRead) {
    content("[S]\n;k=v\n;k=w\n");  // comments may repeat
    isSave(true);
    const std::string before("[S]\n;k=v\nb=\"1\"\nc=x\0y\n", 21);
    content(before);
    const Variant whole = ini(u"ReadMultiLineSection", {u"S", 0});
    EXPECT_EQ(whole.get<Array<String>>().bounds(2).count, 3);
    ini(u"WriteSectionContent", {u"S", whole});
    EXPECT_EQ(content(), before);
    ini.expect(u"WriteSectionContent", {Row({u"T", whole}, 2)});  // the last key holds U+0000
    EXPECT_EQ(content(), before + "[T]\n;k=v\nb=1\n");
}

TEST_F(MultiLine, ReadsAndWritesWholeSections) {
    const Variant entries = table({{u"a", u"1\r\n2"}, {u"k9", u"no"}, {u"rasender", u"Smith"}}, 1);
    ini.expect(u"WriteMultiLineSection", {Row({u"S", entries, Variant::missing(), true}, 2)});
    const std::string rest = "rasender=$!MULTILINEFIELD@#\r\nrasender1=Smith\r\n";
    EXPECT_EQ(content(), "[S]\r\na=$!MULTILINEFIELD@#\r\na1=1\r\na2=2\r\n" + rest);
    const Variant read = table({{u"a", u"1\r\n2"}, {u"rasender", u"Smith"}});
    ini.expect(u"ReadMultiLineSection", {Row({u"S", 0, 0}, {read, 2, 0})});
    isSave(true);
    ini.expect(u"DeleteMultiLineKeys", {Row({u"S", names({u"A", u"x"})}, 1)});
    EXPECT_EQ(content(), "[S]\r\n" + rest);

    content("[T]\nt=1\n[S]\nabc=1\nABC=2\n");
    EXPECT_EQ(ini.call(u"ReadMultiLineSection", {u"S", 0}).arguments[1], Variant(-2));
    isSave(false);
    ini.expect(u"DeleteMultiLineKeys", {Row({u"S", names({u"abc"})}, -2)});
}

TEST_F(MultiLine, ReadsALargeSectionWhenItsSizeIsGiven) {
    const Long size = 1000000;
    String text = u"line";
    for (int i = 1; i < 20000; ++i) text += u"\r\nline of the text";
    ini(u"WriteMultiLineValue", {u"S", u"K", text});
    ini.expect(u"ReadMultiLineSection", {Row({u"S", 0, size}, {table({{u"K", text}}), 1, size})});
}

}  // namespace
}  // namespace quorkit::test
