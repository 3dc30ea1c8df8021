#include <gtest/gtest.h>
#include <quorkit/GQuorConvert.h>
#include <quorkit/ports/memory.h>

#include "file/wildcard.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

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
