// The effect of one edit on the bytes of a file: only its own line changes.
#include "inifile/ini_fixture.h"

namespace quorkit::test {
namespace {

TEST_F(IniTest, ChangesOnlyItsLine) {
    edit(u"WriteKeyValue",
         {Edit("; c\n[A]\n\nk = 1\n# x\nk=2\n", {u"a", u"K", u"9"}, 1,
               "; c\n[A]\n\nk = 9\n# x\nk=2\n"),
          Edit("[A]\nk = 1 \n", {u"A", u"k", u"1"}, 1, "[A]\nk = 1 \n"),
          Edit("[A]\r\n\tk\t=\t1\t\r\n", {u"A", u"k", u"22"}, 1, "[A]\r\n\tk\t=\t22\t\r\n"),
          Edit("[A]\nk = \"a;b\"\n", {u"A", u"k", u"c"}, 1, "[A]\nk = \"c\"\n"),
          Edit("[A]\nk=1\n", {u"A", u"k", u""}, 1, "[A]\nk=\n"),
          Edit("[A]\nk = \n", {u"A", u"k", u"v"}, 1, "[A]\nk = v\n"),
          Edit("[A]\na=1\n\n; b\n[B]\nb=1\n", {u"A", u"c", u"2"}, 1,
               "[A]\na=1\nc=2\n\n; b\n[B]\nb=1\n"),
          Edit("[A]\na=1\n\n\n[B]\n", {u"A", u"c", u"2"}, 1, "[A]\na=1\nc=2\n\n\n[B]\n"),
          Edit("[A]\na=1", {u"A", u"c", u"2"}, 1, "[A]\na=1\nc=2"),
          Edit("[A]", {u"A", u"c", u"2"}, 1, "[A]\r\nc=2"),
          Edit("[A]\r\na=1\n[B]\r\nb=1\n", {u"B", u"c", u"2"}, 1, "[A]\r\na=1\n[B]\r\nb=1\nc=2\n"),
          Edit("; c\n[A]\na=1\n", {u"B", u"b", u"2"}, 1, "; c\n[A]\na=1\n[B]\nb=2\n"),
          Edit("[A]\na=1", {u"B", u"b", u"2"}, 1, "[A]\na=1\n[B]\nb=2"),
          Edit("", {u"B", u"b", u"2"}, 1, "[B]\r\nb=2\r\n"),
          Edit("[A]\n;k=1\n", {u"A", u"k", u"2"}, 1, "[A]\nk=2\n;k=1\n"),
          Edit("[A]\na=1\n[a]\nb=1\n", {u"A", u"b", u"2"}, 1, "[A]\na=1\nb=2\n[a]\nb=1\n"),
          Edit("[ A\t] x\n", {u"a", u"k", u"1"}, 1, "[ A\t] x\nk=1\n"),
          Edit("[A]\n", {u" a\t", u"k", u"1"}, 1, "[A]\nk=1\n"),
          Edit("[A]\n", {u" B\t", u"k", u"1"}, 1, "[A]\n[B]\nk=1\n")});
    edit(u"DeleteKey",
         {Edit("[A]\n;x\na=1\nA=2\n", {u"A", u"A"}, 1, "[A]\n;x\nA=2\n"),
          Edit("[A]\na=1\nb=2", {u"A", u"b"}, 1, "[A]\na=1\n"),
          Edit("[A]\na=1\n", {u"A", u"x"}, 0, "[A]\na=1\n"),
          Edit("[A]\na=\xE4\nb=\xC3\xA4\n", {u"A", u"a"}, 0, "[A]\na=\xE4\nb=\xC3\xA4\n")});
    edit(u"DeleteSection", {Edit("x\n[A]\na=1\n;c\n\n[B]\nb=1\n", {u"A"}, 1, "x\n[B]\nb=1\n"),
                            Edit("[A]\n", {u"B"}, 0, "[A]\n")});
    edit(u"AddSection", {Edit("[A]\n", {u"B"}, 1, "[A]\n[B]\n"),
                         Edit("[A]\na=1\n;c\n[B]\nb=1\n", {u"A"}, 1, "[A]\n[B]\nb=1\n")});
}

TEST_F(IniTest, ReadsWhatRealFilesHold) {
    content(
        "k=outside\r\n[A] ; note\r\n k = v w "
        "\r\nq=\"a\"b\"\r\ns='x'\r\ne=a=b;c\r\n;k2=x\n[A]\nz=1\n[]\nn=1");
    ini.expect(u"ReadKeyValue", {Row({u"a", u"K", u"?"}, u"v w"), Row({u"a", u"q", u"?"}, u"a\"b"),
                                 Row({u"a", u"s", u"?"}, u"x"), Row({u"a", u"e", u"?"}, u"a=b;c"),
                                 Row({u"a", u"k2", u"?"}, u"?"), Row({u"a", u";k2", u"?"}, u"?"),
                                 Row({u"a", u"z", u"?"}, u"?"), Row({u"a", u"", u"?"}, u"?")});
    ini.expect(u"ReadSectionKeys", {Row({u"A", 0}, {names({u"k", u"q", u"s", u"e"}), 4})});
    ini.expect(u"ReadSectionNames", {Row({0}, {names({u"A", u"A"}), 2})});
}

TEST_F(IniTest, KeepsTheEncoding) {
    const String omega = u"\u03A9";
    const std::string little("\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\x31\0\x00\xD8", 20);
    const std::string edited("\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\xA9\x03", 18);
    const auto swapped = [](std::string bytes) {
        for (std::size_t i = 0; i < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
        return bytes;
    };
    const std::string ansi = "[A]\nx=\xE4\nk=1\n";
    const std::string utf8 = "[A]\nx=\xC3\xA4\nk=1\n";
    const std::string plain = "[A]\nk=1\n";
    const String half(1, u'\xD800');
    const auto with = [](String key, String value) {
        return std::vector<Variant>{u"A", std::move(key), std::move(value)};
    };
    edit(u"WriteKeyValue",
         {Edit("\xEF\xBB\xBF" + plain, with(u"k", omega), 1, "\xEF\xBB\xBF[A]\nk=\xCE\xA9\n"),
          Edit(little, with(u"k", omega), 1, edited),
          Edit(swapped(little) + 'x', with(u"k", omega), 1, swapped(edited) + 'x'),
          Edit(utf8, with(u"k", omega), 1, "[A]\nx=\xC3\xA4\nk=\xCE\xA9\n"),
          Edit(ansi, with(u"k", u"\u20AC"), 1, "[A]\nx=\xE4\nk=\x80\n"),
          Edit("[\xC4]\n\xD6=1\n", {u"\u00E4", u"\u00F6", u"2"}, 1, "[\xC4]\n\xD6=2\n"),
          // A plain file becomes code page 1252, unless that lacks a letter or the text would be
          // read back as UTF-8.
          Edit(plain, with(u"k", u"\u00E4"), 1, "[A]\nk=\xE4\n"),
          Edit(plain, with(u"k", u"\u00E4\u03A9"), 1, "[A]\nk=\xC3\xA4\xCE\xA9\n"),
          Edit(plain, with(u"k", u"\u00C3\u00A4"), 1, "[A]\nk=\xC3\x83\xC2\xA4\n"),
          Edit("", {omega, u"k", u""}, 1, "[\xCE\xA9]\r\nk=\r\n"),
          // A letter that the code page lacks is refused. A key in another spelling needs no
          // letters.
          Edit(ansi, with(u"k", omega), 0, ansi), Edit(ansi, with(omega, u"1"), 0, ansi),
          Edit(ansi, {omega, u"k", u"1"}, 0, ansi), Edit(utf8, with(u"k", half), 0, utf8),
          Edit(plain, with(half, u"1"), 0, plain),
          Edit("[\xDF]\nk=\xE4\n", {u"\u1E9E", u"\u212A", u"1"}, 1, "[\xDF]\nk=1\n")});
    const Variant entries = table({{omega, u"1"}, {u"k", omega}, {u"k", u"2"}});
    edit(u"WriteSectionContent", {Edit(ansi, {u"A", entries}, 1, "[A]\nx=\xE4\nk=2\n"),
                                  Edit(ansi, {omega, entries}, 0, ansi),
                                  Edit(plain, {u"A", entries}, 3, "[A]\nk=2\n\xCE\xA9=1\n")});
    edit(u"WriteMultiLineSection", {Edit(ansi, {u"A", entries}, 1, "[A]\nk=2\nx=\xE4\n"),
                                    Edit(ansi, {omega, entries}, 0, ansi)});
    // The last one holds a few NULs, but is 8-bit text.
    const std::string bare = little.substr(2);
    const std::string little32("\xFF\xFE\0\0[\0\0\0", 8);
    const std::string big32("\0\0\xFE\xFF\0\0\0[", 8);
    const std::string nul(1, '\0');
    for (const std::string& file : {bare, swapped(bare), little32, big32, big32.substr(4)})
        for (const char16_t* member :
             {u"WriteKeyValue", u"WriteMultiLineValue", u"DeleteSection", u"AddSection"})
            edit(member,
                 {Edit(file, member[0] == u'W' ? with(u"k", u"2") : std::vector<Variant>{u"A"}, 0,
                       file)});
    EXPECT_NE(ports::takeReason().find("UTF-16"), std::string::npos);
    EXPECT_EQ(ini.call(u"ReadSectionContent", {u"A", 0}).arguments[1], Variant(-1));
    ini.expect(u"isIniFileMultiLineFieldSave", {Row({}, false)});
    edit(u"WriteKeyValue", {Edit(plain + "=" + nul + nul + "\n", with(u"k", u"2"), 1,
                                 "[A]\nk=2\n=" + nul + nul + "\n")});
}

TEST_F(IniTest, HasOneRuleOfLetterCase) {
    // Names are compared in small letters, and these capitals have other small letters.
    const std::pair<String, String> spellings[] = {{u"stra\u00DFe", u"STRA\u1E9EE"},
                                                   {u"x\u00E5", u"X\u212B"},
                                                   {u"i", u"\u0130"},
                                                   {u"k", u"\u212A"}};
    for (const auto& [small, other] : spellings) {
        content("; \xCE\xA9\n");
        write(small, small, u"1");
        const std::string before = content();
        EXPECT_EQ(read(other, other), u"1");
        const Variant entry = table({{other, u"2"}});
        ini.expect({u"WriteSectionContent", u"WriteMultiLineSection"}, {Row({other, entry}, 1)});
        ini.expect(u"ReadSectionKeys", {Row({small, 0}, {names({other}), 1})});
        ini.expect(u"ReadMultiLineValue", {Row({small, small}, u"2")});
        ini.expect(u"DeleteMultiLineKey", {Row({other, small}, 1)});
        content(before);
        ini.expect(u"DeleteKeys", {Row({other, names({other})}, 1)});
    }
    content("[S]\ni=1\n\xC4\xB0=2\n");
    ini.expect(u"DeleteKeys", {Row({u"S", names({u"i"})}, -2)});
}

TEST_F(IniTest, AnswersForWhatIsMissing) {
    ini.expect(u"ReadKeyValue", {Row({u"A", u"k", u"?"}, u"?")});
    ini.expect(u"ReadSectionKeys", {Row({u"A", 7}, {names({u""}), 0})});
    ini.expect(u"ReadSectionNames", {Row({7}, {names({u""}), 0})});
    ini.expect(u"DeleteKey", {Row({u"A", u"k"}, 0)});
    EXPECT_EQ(content(), "(no file)");
    EXPECT_EQ(ini.get(u"IniFileName"), Variant(kFile));
}

TEST_F(IniTest, GivesBackWhatWasWritten) {
    for (const char* before :
         {"", "[A]\nx=\xE4\n", "[A]\nx=\xC3\xA4\n", "\xEF\xBB\xBF[A]\nk='1'\n"}) {
        for (const char16_t* value :
             {u"", u" ", u"\t a ", u"a=b", u";x", u"[B]", u"\"", u"\"\"", u"'a'", u"\"a", u"a\rb",
              u"\n", u"x\r", u"\r\n[B]\r\nk=2", u"C:\\new\\r", u"\\n", u"\u00E4\u00C3\u00A4",
              u"$!ESCAPEDFIELD@#x\\n", u" \"a\n\" "}) {
            content(before);
            EXPECT_EQ(write(u"A", u"k", value), 1);
            EXPECT_EQ(read(u"A", u"k"), value) << content();
            ini.expect(u"ReadSectionNames", {Row({0}, {names({u"A"}), 1})});
        }
    }
}

TEST_F(IniTest, RefusesWhatTheLayoutCannotCarry) {
    const std::string before = "[A]\nk=1\n; c\nl=2\n";
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
        if (one.key == u";k") continue;  // a comment, if it is an entry of a whole section
        const Variant entry = table({{one.key, one.value}});
        ini.expect({u"WriteSectionContent", u"WriteMultiLineSection"},
                   {Row({one.section, entry}, 0)});
        EXPECT_EQ(content(), before);
    }
    ini.let(u"IniFileName", String(u"a") + nul);
    EXPECT_EQ(write(u"A", u"k", u"1"), 0);
}

}  // namespace
}  // namespace quorkit::test
