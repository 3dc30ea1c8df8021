#include <quorkit/GQuorStrings.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorStrings>() {
    using C = GQuorStrings;
    static constexpr MemberInfo rows[] = {
        method<&C::getFieldNameWithoutLineNumber>(
            0x60030000, "getFieldNameWithoutLineNumber", {"s", "eConvert"},
            "A field name without the digits at its end, in upper or lower case when told so."),
        method<&C::getFieldNameLineNumber>(0x60030001, "getFieldNameLineNumber", {"s"},
                                           "The digits at the end of a field name."),
        method<&C::SplitDOSCMDParam>(
            0x60030002, "SplitDOSCMDParam", {"Param", "cmd", "arg"},
            "Splits a parameter such as /log=file at its first equals sign."),
        method<&C::StringReplace>(
            0x60030003, "StringReplace",
            {"vsString", "vsOldPattern", "vsNewPattern", "vbReplaceAll", "vbIgnoreCase"},
            "A text with a pattern replaced, everywhere or only the first time."),
        method<&C::NullStringToString>(0x60030004, "NullStringToString", {"s"},
                                       "A text up to its first U+0000."),
        method<&C::TrimWhiteSpace>(0x60030005, "TrimWhiteSpace", {"s"},
                                   "A text without the white space at both ends."),
        method<&C::RTrimWhiteSpace>(0x60030006, "RTrimWhiteSpace", {"s"},
                                    "A text without the white space at its end."),
        method<&C::LTrimWhiteSpace>(0x60030007, "LTrimWhiteSpace", {"s"},
                                    "A text without the white space at its start."),
        method<&C::StringToNumber>(0x60030008, "StringToNumber", {"s"},
                                   "The digits and full stops of a text, with a sign in front."),
        method<&C::getOnlyNumbers>(0x60030009, "getOnlyNumbers", {"s"}, "The digits of a text."),
        method<&C::getNoNumbers>(0x6003000A, "getNoNumbers", {"s"}, "A text without its digits."),
        method<&C::getOnlyNumberPart>(0x6003000B, "getOnlyNumberPart", {"s"},
                                      "The same as StringToNumber."),
        method<&C::GetCountSearchPatternInString>(
            0x6003000C, "GetCountSearchPatternInString", {"s", "searchpattern", "compareType"},
            "How often a pattern occurs in a text; letter case is ignored when compareType is 1."),
        method<&C::formatAppVersionString>(
            0x6003000D, "formatAppVersionString", {"sVersion", "b4Digit"},
            "A version with four components, or without the zeros at its end."),
        method<&C::CompareAppVersionString>(
            0x6003000E, "CompareAppVersionString", {"sVersionNr1", "sVersionNr2"},
            "0 when two versions are equal, 1 when the first is higher, -1 when the second is."),
        method<&C::SplitAppVersionString>(
            0x6003000F, "SplitAppVersionString",
            {"sVersionNr", "Major", "Minor", "Revision", "Build"},
            "Reads the four components of a version; -1 when one of them is no number."),
        method<&C::ExtractMajorVersionFromAppVersionString>(
            0x60030010, "ExtractMajorVersionFromAppVersionString", {"sVersion"},
            "The first component of a version."),
        method<&C::ExtractMinorVersionFromAppVersionString>(
            0x60030011, "ExtractMinorVersionFromAppVersionString", {"sVersion"},
            "The second component of a version."),
        method<&C::ExtractRevisionFromAppVersionString>(
            0x60030012, "ExtractRevisionFromAppVersionString", {"sVersion"},
            "The third component of a version."),
        method<&C::ExtractBuildNumberFromAppVersionString>(
            0x60030013, "ExtractBuildNumberFromAppVersionString", {"sVersion"},
            "The fourth component of a version."),
        method<&C::isWhiteSpace>(0x60030014, "isWhiteSpace", {"c"},
                                 "Whether the first character of a text is white space."),
        method<&C::ParseString>(0x60030015, "ParseString",
                                {"s", "cmdDelimiter", "txtDelimiter", "argDelimiter"},
                                "The values of assignments such as a=1,b=\"x, y\", keyed by name."),
        method<&C::LPad>(0x60030016, "LPad", {"sPadChar", "s", "maxLen"},
                         "A text with a character put in front until it is maxLen long."),
        method<&C::RPad>(0x60030017, "RPad", {"sPadChar", "s", "maxLen"},
                         "A text with a character appended until it is maxLen long."),
        method<&C::ExpandEnvironmentString>(
            0x60030018, "ExpandEnvironmentString", {"s"},
            "A text with every %NAME% replaced by that environment variable."),
        method<&C::ExpandDateString>(
            0x60030019, "ExpandDateString", {"s"},
            "A text with every [FORMAT] replaced by the current date and time in that format."),
        method<&C::ReadAllVarFields>(0x6003001A, "ReadAllVarFields",
                                     {"sText", "sVarFieldHeader", "sVarFieldTrailer"},
                                     "The names of the fields such as @#Name#@ in a text."),
        method<&C::isValidMailAddress>(
            0x6003001B, "isValidMailAddress", {"sMailAddress"},
            "Whether a text has an @ and a full stop where a mail address has them."),
    };
    return rows;
}

}  // namespace quorkit
