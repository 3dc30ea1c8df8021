// Assignments, fields, parameters and field names.
#include <gtest/gtest.h>
#include <quorkit/GQuorStrings.h>
#include <quorkit/enumerations.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(ParseString, ReadsAssignments) {
    const String longest = u"a=" + String(32765, u'x');
    Late strings(u"GQuorStrings");
    // A longer delimiter matches as a whole, but the reading goes on one character behind its
    // start.
    strings.expect(u"ParseString",
                   {Row({u"a=\"\""}, u"a:|"),
                    Row({u"a=\"\"ignored, b=2"}, u"a:|b:2|"),
                    Row({u"a=\"\"\"\"b\"\"\""}, u"a:\"b|"),
                    Row({u"a=1,b=\"open"}, u"a:1|"),
                    Row({u"a=1,b=\"\"\"open\"\""}, u"a:1|"),
                    Row({u"just text"}, u""),
                    Row({u""}, u""),
                    Row({u"  "}, u""),
                    Row({u"\tx=\r\n\t1\t"}, u"\tx:1\t|"),
                    Row({u"=5,=6"}, u":5|:6|"),
                    Row({u"a=b=c"}, u"a:b=c|"),
                    Row({u"p, q=1"}, u"p, q:1|"),
                    Row({u"a=1,"}, u"a:1|"),
                    Row({u"="}, u":|"),
                    Row({u"\xD800=\xDC00"}, u"\xD800:\xDC00|"),
                    Row({u"a=1,b=2", u""}, u""),
                    Row({u"A=1,a=2"}, Error{457}),
                    Row({u"\u00C4=1,\u00E4=2"}, Error{457}),
                    Row({u"a=1, b = \"x, y\" ,c="}, u"a:1|b:x, y|c:|"),
                    Row({u"a=\" x \" ignored = , b=2"}, u"a: x |b:2|"),
                    Row({u"a=\"\"\"say \"hi\", \"\"now\"\"\", b=2"}, u"a:say \"hi\", \"\"now|b:2|"),
                    Row({u"a:'1;2';b:3", u":", u"'", u";"}, u"a:1;2|b:3|"),
                    Row({u"a==1&&b==2", u"==", u"\"", u"&&"}, u"a:=1|&b:=2|"),
                    Row({u"a=\"1\",b=2", u"=", u""}, u"a:\"1\"|b:2|"),
                    Row({u"a=1,b=2", u"=", u"\"", u""}, u"a:1,b=2|"),
                    Row({String(u"a\0b=c\0d", 7)}, String(u"a\0b:c\0d|", 8)),
                    Row({u"  " + longest + u" "}, u"a:" + longest.substr(2) + u"|"),
                    Row({longest + u"x"}, Error{6})});
    // The caller's variable loses its blanks first.
    EXPECT_EQ(strings.call(u"ParseString", {u"  x=1  "}).arguments[0], Variant(u"x=1"));
}

TEST(ReadAllVarFields, ListsTheNames) {
    Late strings(u"GQuorStrings");
    // The search skips as many characters as the trailer has.
    strings.expect(
        u"ReadAllVarFields",
        {Row({u"@#Name#@ text"}, u""), Row({u" @#Name#@"}, u""), Row({u"  @#Name#@"}, u":Name|"),
         Row({u"x @#A#@@#A#@"}, u":A|:A|"), Row({u"x @##@@#B#@"}, u":B|"),
         Row({u"x @#a@#b#@"}, u":a@#b|"), Row({u"x @#open"}, u""), Row({u"x @#A#@ @#open"}, u":A|"),
         Row({u""}, u""), Row({u"x @#A#@", u"", u"#@"}, u""), Row({u"x @#A#@", u"@#", u""}, u""),
         Row({u"....<Ab>c<de>", u"<", u">"}, u":Ab|:de|"),
         Row({u"-----begIn X eNd-", u"BEGIN", u"end"}, u": X |")});

    String many = u"--", names;
    for (int i = 0; i < 100'000; ++i) {
        many += u"@#field#@";
        names += u":field|";
    }
    strings.expect(u"ReadAllVarFields", {Row({many}, names)});
}

// Positions have 16 bits.
const String kLongest(32767, u'7');
const String kTooLong = kLongest + u"=";

TEST(SplitDOSCMDParam, SplitsAtTheFirstEqualsSign) {
    Late strings(u"GQuorStrings");
    strings.expect(
        u"SplitDOSCMDParam",
        {Row({u"/log=c:\\x=1", u"", u"?"}, {Empty{}, u"/log", u"c:\\x=1"}),
         Row({u"/quiet", u"", u"?"}, {Empty{}, u"/quiet", u"?"}),
         Row({u"=x", u"", u"?"}, {Empty{}, u"", u"x"}),
         Row({u"/a=", u"", u"?"}, {Empty{}, u"/a", u""}),
         Row({u"", u"?", u"?"}, {Empty{}, u"", u"?"}),
         Row({kLongest, u"", u""}, {Empty{}, kLongest, u""}), Row({kTooLong, u"", u""}, Error{6})});

    String text = u"/a=b";  // in C++ the results may be the argument itself
    String value;
    GQuorStrings().SplitDOSCMDParam(text, text, value);
    EXPECT_EQ(text + u" " + value, u"/a b");
    text = u"/a=b";
    GQuorStrings().SplitDOSCMDParam(text, value, text);
    EXPECT_EQ(value + u" " + text, u"/a b");
}

TEST(FieldNames, LoseOrShowTheirLineNumber) {
    Late strings(u"GQuorStrings");
    strings.expect(u"getFieldNameWithoutLineNumber",
                   {Row({u"Str\u00E4\u00DFe012", eConvertChars_toUpper}, u"STR\u00C4\u00DFE"),
                    Row({u"Street1\u00C42", eConvertChars_toLower}, u"street1\u00E4"),
                    Row({u"Street", eConvertChars_noConvert}, u"Street"),
                    Row({u"Street\u0661", 3}, u"Street\u0661"), Row({u"007", -1}, u""),
                    Row({u"", eConvertChars_toUpper}, u""), Row({kLongest, 0}, u""),
                    Row({kTooLong, 0}, Error{6})});
    strings.expect(u"getFieldNameLineNumber",
                   {Row({u"Street12"}, u"12"), Row({u"Stre0et012"}, u"012"),
                    Row({u"Street\u0661"}, u""), Row({u"007"}, u"007"), Row({u""}, u""),
                    Row({kLongest}, kLongest), Row({kTooLong}, Error{6})});
}

}  // namespace
}  // namespace quorkit::test
