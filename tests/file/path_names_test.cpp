#include <gtest/gtest.h>
#include <quorkit/GQuorConvert.h>
#include <quorkit/ports/memory.h>

#include "file/wildcard.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(PathNames, AreTakenApart) {
    Late file(u"GQuorFile");
    file.expect(
        {u"ExtractDrive", u"ExtractPath", u"ExtractFileName", u"ExtractFileExt"},
        {Row({u"C:\\dir\\a.txt"}, {u"C:", u"C:\\dir\\", u"a.txt", u".txt"}),
         Row({u"c:a.tar.gz"}, {u"c:", u"c:", u"a.tar.gz", u".gz"}),
         Row({u"dir/x."}, {u"", u"dir/", u"x.", u"."}),
         Row({u"C:\\my.dir\\readme"}, {u"C:", u"C:\\my.dir\\", u"readme", u""}),
         Row({u".profile"}, {u"", u"", u".profile", u".profile"}),
         Row({u"d:"}, {u"d:", u"d:", u"", u""}), Row({u"1:\\x"}, {u"", u"1:\\", u"x", u""}),
         Row({u"\u00E4:x"}, {u"", u"\u00E4:", u"x", u""}), Row({u":x"}, {u"", u":", u"x", u""}),
         Row({u"\\\\srv\\share\\f"}, {u"\\\\srv", u"\\\\srv\\share\\", u"f", u""}),
         Row({u""}, {u"", u"", u"", u""})});
    file.expect(
        {u"ExtractUNCName", u"ExtractUNCServerAndShareName"},
        {Row({u"\\\\srv\\share\\d\\f"}, {u"srv", u"\\\\srv\\share"}),
         Row({u"\\\\srv\\share"}, {u"srv", u"\\\\srv\\share"}),
         Row({u"\\\\srv\\"}, {u"srv", u"\\\\srv\\"}), Row({u"\\\\srv"}, {u"srv", u"\\\\srv"}),
         Row({u"\\\\srv\\\\x"}, {u"srv", u"\\\\srv\\"}), Row({u"\\\\"}, {u"", u""}),
         Row({u"\\\\\\share"}, {u"", u""}), Row({u"C:\\x"}, {u"", u""}), Row({u""}, {u"", u""})});
}

TEST(PathNames, ArePutTogether) {
    Late file(u"GQuorFile");
    file.expect(u"PathAddBackSlash", {Row({u""}, u""), Row({u"C:"}, u"C:\\"),
                                      Row({u"C:\\"}, u"C:\\"), Row({u"a/"}, u"a/\\")});
    file.expect(
        u"getParentDirectory",
        {Row({u"C:\\a\\b"}, u"C:\\a"), Row({u"C:\\a\\b\\"}, u"C:\\a\\"), Row({u"C:\\a"}, u"C:"),
         Row({u"C:\\a\\"}, u"C:\\"), Row({u"C:\\"}, u""), Row({u"a\\b"}, u""),
         Row({u"a\\bc"}, u"a"), Row({u"abcd"}, u""), Row({u"\\abc"}, u""), Row({u"\\abc\\"}, u""),
         Row({u"\\\\ab\\c"}, u""), Row({u"\\\\srv\\sh"}, u"\\\\srv"),
         Row({u"\\\\srv\\sh\\d"}, u"\\\\srv\\sh"), Row({u"\\\\abcde"}, u"\\"), Row({u""}, u"")});
    file.expect(
        u"ChangeFileExt",
        {Row({u"a.txt", u".bak"}, u"a.bak"), Row({u"name", u"txt"}, u"nametxt"),
         Row({u"C:\\my.dir\\readme", u".txt"}, u"C:\\my.txt"), Row({u"a.b.c", u""}, u"a.b")});
    file.expect(
        u"GetFileNameForLanguage",
        {Row({u"help.chm", u"D"}, u"help_D.chm"), Row({u"help_E.CHM", u"F"}, u"help_F.chm"),
         Row({u"readme", u"D"}, u"readme_D."), Row({u"data.txt", u"F", u"csv"}, u"data.txt_F.csv"),
         Row({u"a_EN.x", u"F"}, u"a_EN_F.x"), Row({u"_E.x", u"F"}, u"_F.x"),
         Row({u"a.x", u"F"}, Error{5}), Row({u"", u"F"}, Error{5})});
}

TEST(PathNames, AreExpandedEnvironmentFirst) {
    MemoryPorts world;
    world.system.environment = {{u"A", u"[yyyy]"}};
    Late file(u"GQuorFile", world);
    file.expect(u"ExpandFileName", {Row({u"%a%\\x[m].log"}, u"1970\\x1.log")});
}

std::vector<String> words(const String& text, const String& delimiter = u" ") {
    Array<String> array;
    GQuorConvert().StringTokenToStringArray(text, delimiter, array);
    return array.elements();
}

TEST(Wildcard, MatchesAsWindowsDoes) {
    const String all = u"a ab a.b a.txt A.TXT2 b.tar.gz .x readme a..b \u00C4b.c ";
    using Case = std::pair<String, String>;  // a pattern, and the names that match it
    for (const auto& [patterns, matched] :
         {Case(u"*|*.*|*.*.*|*?|*. |*.. |* . |*.*.|*.*. .|**.", all), Case(u"|a\"b| |...|. .", u""),
          Case(u"*.|*..|* .|*. .", u"a ab readme "),
          Case(u"a*.|a?|a??|a?.|a?? .|a*.. .|a*. .", u"a ab "),
          Case(u"*.txt|*.txt |a.txt|a.txt.|a.txt . |a.t?t..|a.t?t", u"a.txt "),
          Case(u"*.TXT*", u"a.txt A.TXT2 "), Case(u"*.t*", u"a.txt A.TXT2 b.tar.gz "),
          Case(u"*a*.g*", u"b.tar.gz "), Case(u"readme.*", u"readme "), Case(u".*", u".x "),
          Case(u"a.*", u"a a.b a.txt A.TXT2 a..b "), Case(u"a*.*", u"a ab a.b a.txt A.TXT2 a..b "),
          Case(u"?.?", u"a a.b .x "),
          Case(u"??.*", u"a ab a.b a.txt A.TXT2 b.tar.gz .x a..b \u00C4b.c "),
          Case(u"*.?", u"a ab a.b .x readme a..b \u00C4b.c "), Case(u"a.???", u"a a.b a.txt "),
          Case(u"*b", u"ab a.b a..b "), Case(u"*..*", u"a..b "), Case(u"\u00E4?.C", u"\u00C4b.c ")})
        for (const String& pattern : words(patterns, u"|")) {
            const file::Wildcard wildcard(pattern);
            String found;
            for (const String& name : words(all))
                if (wildcard.matches(name)) found += name + u' ';
            EXPECT_EQ(found, matched) << testing::PrintToString(pattern);
        }
}

TEST(Wildcard, TakesNoLongerForManyRuns) {
    String pattern;
    for (int i = 0; i < 300; ++i) pattern += u"*a?";
    EXPECT_FALSE(file::Wildcard(pattern + u"b").matches(String(3000, u'a')));
    EXPECT_TRUE(file::Wildcard(pattern).matches(String(3000, u'a')));
}

}  // namespace
}  // namespace quorkit::test
