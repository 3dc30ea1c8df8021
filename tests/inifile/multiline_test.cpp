// Values of several lines.
#include <gmock/gmock.h>

#include "inifile/ini_fixture.h"

namespace quorkit::test {
namespace {

class MultiLine : public IniTest {
   protected:
    Long write(String key, String value) {
        return ini(u"WriteMultiLineValue", {u"S", std::move(key), std::move(value)}).get<Long>();
    }
    String read(String key, Variant byDefault = Variant::missing()) {
        return ini(u"ReadMultiLineValue", {u"S", std::move(key), std::move(byDefault)})
            .get<String>();
    }
};

TEST_F(MultiLine, StoresNumberedLinesInFront) {
    content("[S]\nother=1\n");
    EXPECT_EQ(write(u"Text", u"a\r\nb"), 1);
    EXPECT_EQ(content(), "[S]\nText=$!MULTILINEFIELD@#\nText1=a\nText2=b\nother=1\n");
    EXPECT_EQ(read(u"text"), u"a\r\nb");
    EXPECT_EQ(write(u"Text", u"z"), 1);
    EXPECT_EQ(content(), "[S]\nText=z\nother=1\n");
    EXPECT_EQ(write(u"Line2", u"x\r\ny"), 0);
    EXPECT_EQ(write(u" ", u"x"), 0);
    EXPECT_EQ(content(), "[S]\nText=z\nother=1\n");
}

TEST_F(MultiLine, GivesBackWhatWasWritten) {
    // Blanks around a key do not count, and a new file has "?" for the last one's letters.
    for (const String key : {u"K", u"Text ", u" T", u"\u043A\u043B"}) {
        for (const String value :
             {u"x\r\n\r\ny", u"a\nb\r\n c ", u"\r\nx", u"\"q\"\r\n;", u"one"}) {
            EXPECT_EQ(write(key, value), 1);
            EXPECT_EQ(read(key), value);
        }
    }
    EXPECT_EQ(ini(u"isIniFileMultiLineFieldSave"), Variant(true));
    EXPECT_EQ(ini(u"DeleteMultiLineKey", {u"S", u"\u043A\u043B"}), Variant(Long{1}));
    String many;
    for (int i = 0; i < 300; ++i) many += (i == 0 ? u"" : u"\r\n") + String(4000, u'x');
    EXPECT_EQ(write(u"K", many), 1);
    EXPECT_EQ(read(u"K"), many);
    ini(u"DeleteMultiLineKey", {u"S", u"K"});  // sees the usual buffer only
    EXPECT_EQ(read(u"K", u"gone"), u"gone");
}

TEST_F(MultiLine, AnswersForWhatIsNotWhole) {
    content("[S]\nm=$!multilinefield@#\nd=v\ne=$!MULTILINEFIELD@#\nE1=x\nE3=z\n");
    EXPECT_EQ(read(u"m", u"default"), u"default");
    EXPECT_EQ(read(u"none", Long{7}), u"7");
    EXPECT_EQ(read(u"", u"default"), u"");
    EXPECT_EQ(read(u"d"), u"v");
    EXPECT_EQ(read(u"e"), u"x");
    for (const auto& [size, old] :
         {std::pair<Variant, Variant>{u"many", false}, {Long{0}, u"maybe"}})
        EXPECT_EQ(ini(u"WriteMultiLineSection", {u"S", table({{u"b", u"1"}}), size, old}),
                  Variant(Long{0}));
}

TEST_F(MultiLine, TakesBackTheSectionItRead) {
    content("[S]\n;k=v\n;k=w\n");  // comments may repeat
    EXPECT_EQ(ini(u"isIniFileMultiLineFieldSave"), Variant(true));
    const std::string before("[S]\n;k=v\nb=\"1\"\nc=x\0y\n", 21);
    content(before);
    const Variant whole = ini(u"ReadMultiLineSection", {u"S", Long{0}});
    EXPECT_EQ(entriesOf(whole).size(), 3u);
    ini(u"WriteSectionContent", {u"S", whole});
    EXPECT_EQ(content(), before);
    EXPECT_EQ(ini(u"WriteSectionContent", {u"T", whole}), Variant(Long{2}));  // not the U+0000
    EXPECT_EQ(content(), before + "[T]\n;k=v\nb=1\n");
}

TEST_F(MultiLine, ReadsAndWritesWholeSections) {
    const Variant entries = table({{u"a", u"1\r\n2"}, {u"k9", u"no"}, {u"rasender", u"Smith"}}, 1);
    EXPECT_EQ(ini(u"WriteMultiLineSection", {u"S", entries, Variant::missing(), true}),
              Variant(Long{2}));
    EXPECT_EQ(content(),
              "[S]\r\na=$!MULTILINEFIELD@#\r\na1=1\r\na2=2\r\n"
              "rasender=$!MULTILINEFIELD@#\r\nrasender1=Smith\r\n");
    const Outcome outcome = ini.call(u"ReadMultiLineSection", {u"S", Long{0}});
    EXPECT_EQ(entriesOf(outcome.result), (Entries{{u"a", u"1\r\n2"}, {u"rasender", u"Smith"}}));
    EXPECT_EQ(outcome.arguments[1], Variant(Long{2}));
    EXPECT_EQ(ini(u"isIniFileMultiLineFieldSave"), Variant(true));

    EXPECT_EQ(ini(u"DeleteMultiLineKeys", {u"S", names({u"A", u"x"})}), Variant(Long{1}));
    EXPECT_EQ(content(), "[S]\r\nrasender=$!MULTILINEFIELD@#\r\nrasender1=Smith\r\n");

    content("[T]\nt=1\n[S]\nabc=1\nABC=2\n");
    EXPECT_EQ(ini.call(u"ReadMultiLineSection", {u"S", Long{0}}).arguments[1], Variant(Long{-2}));
    EXPECT_EQ(ini(u"isIniFileMultiLineFieldSave"), Variant(false));
    EXPECT_EQ(ini(u"DeleteMultiLineKeys", {u"S", names({u"abc"})}), Variant(Long{-2}));
}

TEST_F(MultiLine, ReadsALargeSectionWhenItsSizeIsGiven) {
    String text;
    for (int i = 0; i < 20000; ++i) text += u"line of the text\r\n";
    text.resize(text.size() - 2);
    ini(u"WriteMultiLineValue", {u"S", u"K", text});
    const Outcome outcome = ini.call(u"ReadMultiLineSection", {u"S", Long{0}, Long{1000000}});
    EXPECT_EQ(entriesOf(outcome.result), (Entries{{u"K", text}}));
    // What the caller's size covers is kept when another key is written.
    ini(u"WriteMultiLineSection", {u"S", table({{u"L", u"1"}}), Long{1000000}});
    EXPECT_EQ(entriesOf(ini(u"ReadMultiLineSection", {u"S", Long{0}, Long{1000000}})),
              (Entries{{u"L", u"1"}, {u"K", text}}));
}

}  // namespace
}  // namespace quorkit::test
