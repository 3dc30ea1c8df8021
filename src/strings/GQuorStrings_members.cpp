#include <quorkit/GQuorStrings.h>

#include "frame/member_row.h"

namespace quorkit {

using rows::method;

template <>
std::span<const MemberInfo> memberRows<GQuorStrings>() {
    using C = GQuorStrings;
    static constexpr MemberInfo rows[] = {
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
        method<&C::isWhiteSpace>(0x60030014, "isWhiteSpace", {"c"},
                                 "Whether the first character of a text is white space."),
        method<&C::LPad>(0x60030016, "LPad", {"sPadChar", "s", "maxLen"},
                         "A text with a character put in front until it is maxLen long."),
        method<&C::RPad>(0x60030017, "RPad", {"sPadChar", "s", "maxLen"},
                         "A text with a character appended until it is maxLen long."),
    };
    return rows;
}

}  // namespace quorkit
