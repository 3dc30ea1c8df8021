#include "file/wildcard.h"

#include <gtest/gtest.h>

namespace quorkit::test {
namespace {

TEST(Wildcard, MatchesAsWindowsDoes) {
    const StringView names[] = {u"a",        u"ab", u"a.b",    u"a.txt", u"A.TXT2",
                                u"b.tar.gz", u".x", u"readme", u"a..b",  u"\u00C4b.c"};
    const String all = u"a ab a.b a.txt A.TXT2 b.tar.gz .x readme a..b \u00C4b.c ";
    const struct {
        StringView pattern;
        String matched;  // the names, each with a blank behind it
    } rows[] = {{u"*", all},
                {u"*.*", all},
                {u"*.", u"a ab readme "},
                {u"a*.", u"a ab "},
                {u"*.txt", u"a.txt "},
                {u"*.TXT*", u"a.txt A.TXT2 "},
                {u"*.t*", u"a.txt A.TXT2 b.tar.gz "},
                {u"a.txt", u"a.txt "},
                {u"a.txt.", u"a.txt "},
                {u"readme.*", u"readme "},
                {u"a.*", u"a a.b a.txt A.TXT2 a..b "},
                {u"a*.*", u"a ab a.b a.txt A.TXT2 a..b "},
                {u"a?", u"a ab "},
                {u"a??", u"a ab "},
                {u"?.?", u"a a.b .x "},
                {u"??.*", u"a ab a.b a.txt A.TXT2 b.tar.gz .x a..b \u00C4b.c "},
                {u"*.?", u"a ab a.b .x readme a..b \u00C4b.c "},
                {u"a.t?t", u"a.txt "},
                {u"a.???", u"a a.b a.txt "},
                {u"a.????", u"a a.b a.txt A.TXT2 "},
                {u"*?", all},
                {u"*a*.g*", u"b.tar.gz "},
                {u"*b", u"ab a.b a..b "},
                {u".*", u".x "},
                {u"\u00E4?.C", u"\u00C4b.c "},
                {u"*.*.*", all},
                {u"*..*", u"a..b "},
                {u"a\"b", u""},
                {u"", u""}};
    for (const auto& [pattern, matched] : rows) {
        const Wildcard wildcard(pattern);
        String found;
        for (const StringView name : names)
            if (wildcard.matches(name)) found += String(name) + u' ';
        EXPECT_EQ(found, matched) << testing::PrintToString(pattern);
    }
}

TEST(Wildcard, TakesNoLongerForManyRuns) {
    String pattern;
    for (int i = 0; i < 300; ++i) pattern += u"*a?";
    EXPECT_FALSE(Wildcard(pattern + u"b").matches(String(3000, u'a')));
    EXPECT_TRUE(Wildcard(pattern).matches(String(3000, u'a')));
}

}  // namespace
}  // namespace quorkit::test
