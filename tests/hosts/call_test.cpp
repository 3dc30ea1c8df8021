#include <gtest/gtest.h>

#include "hosts/command.h"

namespace quorkit::test {
namespace {

struct Case {
    std::vector<String> words;
    std::string output;
};

TEST(Call, PrintsResultAndChangedArguments) {
    const Case cases[] = {
        // Names without regard to case, texts coerced, arguments by name.
        {{u"GQuorStrings.LPad", u"0", u"7", u"3"}, "007\n"},
        {{u"gquorstrings.LPAD", u"0", u"--arg", u"MAXLEN=3", u"--arg", u"s=="}, "00=\n"},
        {{u"GQuorStrings.StringReplace", u"aAa", u"a", u"", u"--arg", u"vbIgnoreCase=True"}, "\n"},
        {{u"GQuorConvert.IntToBool", u"-5"}, "True\n"},
        {{u"GQuorConvert.myVal", u"1'234.50"}, "1234.5\n"},
        // Pure outputs need not be given.
        {{u"GQuorConvert.StringTokenToStringArray", u"a,\u00E4", u","},
         "2\nsArray = {\"array\":[\"a\",\"\u00E4\"],\"lower\":0}\n"},
        {{u"GQuorConvert.StringTokenToStringCollection", u"a b", u" ", u"False"},
         "2\nc = {\"collection\":[{\"item\":\"a\"},{\"item\":\"b\"}]}\n"},
        {{u"GQuorConvert.StringTokenToStringCollection", u"", u" ", u"False"}, "0\nc = \n"},
        {{u"--json", u"GQuorConvert.StringTokenToStringArray", u"a", u","},
         "{\"args\":[\"a\",\",\",{\"array\":[\"a\"],\"lower\":0}],\"result\":1}\n"},
        // Structures are given as JSON, and printed line by line.
        {{u"GQuorConvert.CollectionToStringToken", uR"({"collection":[{"item":"x"},{"item":2}]})",
          u";"},
         "x;2\n"},
        {{u"GQuorConvert.ArrayToCollection", uR"(["p",true,[1,2]])"},
         "p\nTrue\n{\"array\":[1,2],\"lower\":0}\n"},
        {{u"GQuorConvert.ArrayToCollection", uR"({"table":[["k","v"],["","w"]],"lower":[1,1]})"},
         "k\tv\nw\n"},
        {{u"GQuorConvert.CollectionToArray", uR"({"collection":[{"item":1.5},{"item":null}]})"},
         "1.5\n\n"},
        {{u"GQuorConvert.CollectionToArray", uR"({"collection":[]})"}, ""},
        {{u"GQuorConvert.cBoolEx", u"[ja"}, "False\n"},
        {{u"GQuorStrings.getNoNumbers", u"[\"a\"]"}, "[\"a\"]\n"},
        // Escapes only when asked for; options end at --.
        {{u"GQuorStrings.getNoNumbers", u"1\\n"}, "\\n\n"},
        {{u"-e", u"GQuorStrings.getNoNumbers", uR"(\u00e91\t\q\\u\u12)"}, "\u00E9\t\\q\\u\\u\n"},
        {{u"-e", u"GQuorStrings.NullStringToString", u"--arg", uR"(s=a\0b)"}, "a\n"},
        {{u"GQuorStrings.LPad", u"--", u"--arg", u"x", u"3"}, "--x\n"},
        // Properties.
        {{u"QuorInifile.IniFileName", u"--set", u"inifilename=a=b.ini"}, "a=b.ini\n"},
    };
    for (Case one : cases) {
        one.words.insert(one.words.begin(), u"call");
        const CommandOutcome outcome = command(one.words);
        EXPECT_EQ(outcome.output, one.output) << outcome.errors;
        EXPECT_EQ(outcome.status, 0);
    }
}

TEST(Call, TellsErrors) {
    const Case cases[] = {
        {{u"GQuorNothing.LPad"}, "429: Cannot create object"},
        {{u"GQuorStrings.Nothing"}, "438: Object doesn't support this property or method"},
        {{u"QuorInifile.IniFileName", u"--set", u"LPad=1"},
         "438: Object doesn't support this property or method"},
        {{u"GQuorStrings.LPad", u"0", u"7", u"x"}, "13: Type mismatch"},
        {{u"GQuorStrings.LPad", u"0", u"7"}, "449: Argument not optional"},
        {{u"GQuorStrings.LPad", u"0", u"7", u"3", u"4"},
         "450: Wrong number of arguments or invalid property assignment"},
        {{u"GQuorStrings.LPad", u"--arg", u"t=1"}, "448: Named argument not found"},
        {{u"GQuorConvert.CollectionToArray", u"{\"object\":1}"}, "424: Object required"},
    };
    for (Case one : cases) {
        one.words.insert(one.words.begin(), u"call");
        const CommandOutcome outcome = command(one.words);
        EXPECT_EQ(outcome.errors, "quorkit: error " + one.output + '\n');
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.status, 1);
    }
}

TEST(CommandLine, ThatIsNotUnderstoodShowsUsage) {
    const std::vector<String> lines[] = {
        {},
        {u"frobnicate"},
        {u"list", u"x"},
        {u"call"},
        {u"call", u"LPad"},
        {u"call", u"A.B", u"--arg"},
        {u"call", u"A.B", u"--arg", u"name"},
        {u"call", u"A.B", u"--colour"},
        {u"describe", u"GQuorStrings", u"QuorInifile"},
        {u"describe", u"GQuorStrings", u"--idl"},
        {u"describe", u"--yaml"},
    };
    for (const auto& words : lines) {
        const CommandOutcome outcome = command(words);
        EXPECT_EQ(outcome.status, 2) << outcome.errors;
        EXPECT_NE(outcome.errors.find("usage: quorkit"), std::string::npos);
        EXPECT_EQ(outcome.output, "");
    }
}

}  // namespace
}  // namespace quorkit::test
