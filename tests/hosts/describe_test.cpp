#include <gtest/gtest.h>

#include "hosts/command.h"

namespace quorkit::test {
namespace {

TEST(Describe, ShowsOneMember) {
    EXPECT_EQ(command(u"describe quorinifile.INIFILENAME").output,
              "Property Get IniFileName() As String\n"
              "    0x68030000  The name of the file that all members work on.\n"
              "Property Let IniFileName(newValue As String)\n"
              "    0x68030000  Names the file that all members work on.\n");
    EXPECT_EQ(command(u"describe --json GQuorConvert.ConvertDezToAny").output,
              command(u"describe gquorconvert.convertdeztoany --json").output);
    EXPECT_NE(command(u"describe GQuorConvert.ConvertDezToAny")
                  .output.find("Optional iMinLength As Integer = 0) As String\n"),
              std::string::npos);
    EXPECT_EQ(command(u"describe GQuorNothing").errors,
              "quorkit: error 429: Cannot create object\n");
    EXPECT_EQ(command(u"describe GQuorStrings.Nothing").errors,
              "quorkit: error 438: Object doesn't support this property or method\n");
}

TEST(Describe, WritesAnInterfaceDefinition) {
    const std::string text = command(u"describe --idl").output;
    const char* parts[] = {
        "[uuid(673d863d-04b8-44f9-aadf-94b1a8221c8d), version(1.0)]\nlibrary quorkit\n",
        "[uuid(673d863e-04b8-44f9-aadf-94b1a8221c8d)]\n    dispinterface _GQuorStrings {",
        "[uuid(673d863f-04b8-44f9-aadf-94b1a8221c8d), appobject, helpstring(\"string helpers",
        "coclass GQuorLanguage { [default] dispinterface _GQuorLanguage; };",
        "        eLogEntryType_BlankLine = -2,\n",
        "work on.\")]\n        BSTR IniFileName();\n",
        "void IniFileName([in] BSTR newValue);\n",
        "[in, out] SAFEARRAY(BSTR)* sKeyNames, [in, optional] VARIANT lSectionSizeInByte);\n",
        "[in, out] _Collection** c);\n",
        "eLanguage WindowsLanguageIDToLanguageID([in] short iLanguage);\n",
        "[in, defaultvalue(0)] short iMinLength);\n",
    };
    for (const char* part : parts) EXPECT_NE(text.find(part), std::string::npos) << part;
}

TEST(Describe, WritesAHeaderForC) {
    const std::string text = command(u"describe --c-header").output;
    for (const char* line :
         {"_CLSID_GQuorStrings {0x673d863f, 0x04b8, 0x44f9, {0xaa, 0xdf, 0x94, 0xb1, 0xa8, 0x22, "
          "0x1c, 0x8d}}\n",
          "_DISPID_GQuorStrings_LPad 0x60030016\n", "_eLogEntryType_BlankLine (-2)\n"})
        EXPECT_NE(text.find(std::string("\n#define QUORKIT") + line), std::string::npos) << line;
    EXPECT_EQ(command(u"describe --c-header GQuorStrings").status, 2);
}

TEST(List, EndsWithTheTotals) {
    const std::string text = command(u"list").output;
    EXPECT_NE(text.find("QuorInifile     creatable  19\n    IniFileName ReadKeyValue "),
              std::string::npos);
    EXPECT_NE(text.find(" members in 15 classes\n"), std::string::npos);
}

}  // namespace
}  // namespace quorkit::test
