// String helpers. No state; every call works on its own copy of its arguments.
//
// White space is every character whose code in the code page 1252 is below 33: the control
// characters and the space, but not the no-break space. A digit is one of "0" to "9", no other.
#pragma once

#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorStrings {
   public:
    explicit GQuorStrings(Ports& = ports::native()) {}

    /// `s` up to, not including, its first U+0000.
    String NullStringToString(const String& s);

    /// `s` without the white space at both ends; what is inside stays.
    String TrimWhiteSpace(const String& s);
    String RTrimWhiteSpace(const String& s);
    String LTrimWhiteSpace(const String& s);

    /// Whether the first character of `c` is white space; False for an empty `c`.
    Boolean isWhiteSpace(Unchanged<String> c);

    /// `vsString` with the old pattern replaced by the new one: everywhere unless `vbReplaceAll`
    /// is given and False, then only the first time. What was put in is not searched again. Letter
    /// case counts unless `vbIgnoreCase` is given and True. An empty old pattern is never found.
    /// Linear in the text. Error 13 when an option does not convert to Boolean, 94 for Null.
    String StringReplace(const String& vsString, const String& vsOldPattern,
                         const String& vsNewPattern, const Optional<Variant>& vbReplaceAll = {},
                         const Optional<Variant>& vbIgnoreCase = {});

    /// `s` with the first character of `sPadChar` put in front until it is `maxLen` long. A text
    /// that is long enough is returned as it is, never cut; an empty `sPadChar` adds nothing.
    String LPad(const String& sPadChar, const String& s, Long maxLen);
    /// The same with the padding at the end.
    String RPad(const String& sPadChar, const String& s, Long maxLen);

    /// How often `searchpattern` occurs in `s` without overlapping. Letter case is ignored when
    /// `compareType` is given and equals 1. An empty pattern occurs 0 times.
    Long GetCountSearchPatternInString(const String& s, const String& searchpattern,
                                       const Optional<Unchanged<Variant>>& compareType = {});

    /// The characters of `s` that can belong to a number: digits and full stops anywhere, a sign
    /// only as the first character. Nothing is parsed: "1.2.3" stays as it is.
    String StringToNumber(const String& s);
    /// The same as StringToNumber.
    String getOnlyNumberPart(const String& s);
    /// The digits of `s`, in order.
    String getOnlyNumbers(const String& s);
    /// Every character of `s` that is not a digit, in order.
    String getNoNumbers(const String& s);
};

}  // namespace quorkit
