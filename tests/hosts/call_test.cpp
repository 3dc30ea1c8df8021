#include <gtest/gtest.h>

#include "hosts/command.h"

namespace quorkit::test {
namespace {

/// The words behind "call" on the command line, and the output.
struct CallLine {
    CallLine(String words, std::string printed)
        : line(u"call " + words), output(std::move(printed)) {}
    String line;
    std::string output;
};

void expectOutput(const std::vector<CallLine>& cases) {
    for (const CallLine& one : cases) {
        const CommandOutcome outcome = command(one.line);
        EXPECT_EQ(outcome.output, one.output) << outcome.errors;
        EXPECT_EQ(outcome.status, 0);
    }
}

TEST(Call, TakesTextsAndNamedArguments) {
    expectOutput(
        {CallLine(u"GQuorStrings.LPad 0 7 3", "007\n"),
         CallLine(u"gquorstrings.LPAD 0 --arg MAXLEN=3 --arg s==", "00=\n"),
         CallLine(u"GQuorStrings.StringReplace aAa a  --arg vbIgnoreCase=True", "\n"),
         CallLine(u"GQuorStrings.LPad -- --arg x 3", "--x\n"),
         CallLine(u"GQuorConvert.IntToBool -5", "True\n"),
         CallLine(u"GQuorConvert.myVal 1'234.50", "1234.5\n"),
         CallLine(u"QuorInifile.IniFileName --set inifilename=a=b.ini", "a=b.ini\n"),
         CallLine(u"GQuorConvert.cBoolEx [ja", "False\n"),
         CallLine(u"GQuorStrings.getNoNumbers [\"a\"]", "[\"a\"]\n"),
         // Escapes are only replaced when asked for.
         CallLine(u"GQuorStrings.getNoNumbers 1\\n", "\\n\n"),
         CallLine(uR"(-e GQuorStrings.getNoNumbers \u00e91\t\q\\u\u12)", "\u00E9\t\\q\\u\\u\n"),
         CallLine(uR"(-e GQuorStrings.NullStringToString --arg s=a\0b)", "a\n")});
}

TEST(Call, TakesAndPrintsStructures) {
    const String tokens = u"GQuorConvert.StringTokenTo";
    expectOutput(
        {// Arguments for results only may be left out.
         CallLine(tokens + u"StringArray a,\u00E4 ,",
                  "2\nsArray = {\"array\":[\"a\",\"\u00E4\"],\"lower\":0}\n"),
         CallLine(tokens + u"StringCollection a;b ; False",
                  "2\nc = {\"collection\":[{\"item\":\"a\"},{\"item\":\"b\"}]}\n"),
         CallLine(tokens + u"StringCollection  ; False", "0\nc = \n"),
         CallLine(u"--json " + tokens + u"StringArray a ,",
                  "{\"args\":[\"a\",\",\",{\"array\":[\"a\"],\"lower\":0}],\"result\":1}\n"),
         CallLine(
             uR"(GQuorConvert.CollectionToStringToken {"collection":[{"item":"x"},{"item":2}]} ;)",
             "x;2\n"),
         CallLine(uR"(GQuorConvert.ArrayToCollection ["p",true,[1,2]])",
                  "p\nTrue\n{\"array\":[1,2],\"lower\":0}\n"),
         CallLine(uR"(GQuorConvert.ArrayToCollection {"table":[["k","v"],["","w"]],"lower":[1,1]})",
                  "k\tv\nw\n"),
         CallLine(uR"(GQuorConvert.CollectionToArray {"collection":[{"item":1.5},{"item":null}]})",
                  "1.5\n\n"),
         CallLine(uR"(GQuorConvert.CollectionToArray {"collection":[]})", "")});
}

TEST(Call, TellsErrors) {
    const CallLine cases[] = {
        {u"QuorInifile.IniFileName --set LPad=1",
         "438: Object doesn't support this property or method"},
        {u"GQuorStrings.LPad 0 7 x", "13: Type mismatch"},
    };
    for (const CallLine& one : cases) {
        const CommandOutcome outcome = command(one.line);
        EXPECT_EQ(outcome.errors, "quorkit: error " + one.output + '\n');
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.status, 1);
    }
}

TEST(CommandLine, ThatIsNotUnderstoodShowsUsage) {
    for (const char16_t* line :
         {u"", u"frobnicate", u"list x", u"call", u"call LPad", u"call A.B --arg",
          u"call A.B --arg name", u"call A.B --colour", u"describe GQuorStrings QuorInifile",
          u"describe GQuorStrings --idl", u"describe --yaml", u"registry", u"registry export",
          u"registry export a b c", u"registry check x"}) {
        const CommandOutcome outcome = command(line);
        EXPECT_EQ(outcome.status, 2) << outcome.errors;
        EXPECT_NE(outcome.errors.find("usage: quorkit"), std::string::npos);
        EXPECT_EQ(outcome.output, "");
    }
}

}  // namespace
}  // namespace quorkit::test
