#include <gtest/gtest.h>

#include "support/collections.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(ParseString, ReadsAssignments) {
    const struct {
        std::vector<Variant> arguments;
        const char16_t* values;
    } cases[] = {
        {{u"a=1, b = \"x, y\" ,c="}, u"a:1|b:x, y|c:|"},
        {{u"a=\"\""}, u"a:|"},
        {{u"a=\"\"ignored, b=2"}, u"a:|b:2|"},
        {{u"a=\" x \" ignored = , b=2"}, u"a: x |b:2|"},
        {{u"a=\"\"\"say \"hi\", \"\"now\"\"\", b=2"}, u"a:say \"hi\", \"\"now|b:2|"},
        {{u"a=\"\"\"\"b\"\"\""}, u"a:\"b|"},
        {{u"a=1,b=\"open"}, u"a:1|"},
        {{u"a=1,b=\"\"\"open\"\""}, u"a:1|"},
        {{u"just text"}, u""},
        {{u""}, u""},
        {{u"  "}, u""},
        {{u"  x=1  "}, u"x:1|"},
        {{u"\tx=\r\n\t1\t"}, u"\tx:1\t|"},
        {{u"=5,=6"}, u":5|:6|"},
        {{u"a=b=c"}, u"a:b=c|"},
        {{u"p, q=1"}, u"p, q:1|"},
        {{u"a=1,"}, u"a:1|"},
        {{u"="}, u":|"},
        {{u"a:'1;2';b:3", u":", u"'", u";"}, u"a:1;2|b:3|"},
        // A longer delimiter matches as a whole and is passed by one character only.
        {{u"a==1&&b==2", u"==", u"\"", u"&&"}, u"a:=1|&b:=2|"},
        {{u"a=1,b=2", u""}, u""},
        {{u"a=\"1\",b=2", u"=", u""}, u"a:\"1\"|b:2|"},
        {{u"a=1,b=2", u"=", u"\"", u""}, u"a:1,b=2|"},
        {{String(u"a\0b=c\0d", 7)}, nullptr},
        {{u"\xD800=\xDC00"}, u"\xD800:\xDC00|"},
    };
    Late strings(u"GQuorStrings");
    for (const auto& [arguments, values] : cases)
        EXPECT_EQ(flat(strings(u"ParseString", arguments)),
                  values == nullptr ? String(u"a\0b:c\0d|", 8) : values);
}

TEST(ParseString, TrimsTheCallersText) {
    Late strings(u"GQuorStrings");
    EXPECT_EQ(strings.call(u"ParseString", {u"  x=1  "}).arguments[0], Variant(u"x=1"));
}

TEST(ParseString, FailsOnARepeatedNameAndOnLongTexts) {
    Late strings(u"GQuorStrings");
    EXPECT_EQ(strings.errorOf(u"ParseString", {u"A=1,a=2"}), 457);
    EXPECT_EQ(strings.errorOf(u"ParseString", {u"\u00C4=1,\u00E4=2"}), 457);
    const String longest = u"a=" + String(32765, u'x');
    EXPECT_EQ(flat(strings(u"ParseString", {u"  " + longest + u" "})),
              u"a:" + longest.substr(2) + u"|");
    EXPECT_EQ(strings.errorOf(u"ParseString", {longest + u"x"}), 6);
    EXPECT_EQ(flat(strings(u"ParseString", {String(32766, u'x') + u"="})),
              String(32766, u'x') + u":|");
}

}  // namespace
}  // namespace quorkit::test
