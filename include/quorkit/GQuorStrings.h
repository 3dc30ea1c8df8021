// String helpers. No state; no call changes its arguments unless it says so.
//
// White space is every character whose code in code page 1252 is below 33: the control characters
// and the space, but not the no-break space. A digit is one of "0" to "9".
#pragma once

#include <quorkit/collection.h>
#include <quorkit/enumerations.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorStrings {
   public:
    explicit GQuorStrings(Ports& ports = ports::native()) : ports_(ports) {}

    // --- White space, padding, replacement, digits ---

    /// `s` up to, not including, its first U+0000.
    String NullStringToString(const String& s);

    /// `s` without the white space at both ends; what is inside stays.
    String TrimWhiteSpace(const String& s);
    String RTrimWhiteSpace(const String& s);
    String LTrimWhiteSpace(const String& s);

    /// Whether the first character of `c` is white space; False for an empty `c`.
    Boolean isWhiteSpace(Unchanged<String> c);

    /// `vsString` with the old pattern replaced by the new one: everywhere, or with `vbReplaceAll`
    /// False only once. Replaced text is not searched again. Letter case counts unless
    /// `vbIgnoreCase` is True. An empty old pattern is never found. Linear in the text. Error 13
    /// when an option does not convert to Boolean, 94 for Null.
    String StringReplace(const String& vsString, const String& vsOldPattern,
                         const String& vsNewPattern, const Optional<Variant>& vbReplaceAll = {},
                         const Optional<Variant>& vbIgnoreCase = {});

    /// `s` with the first character of `sPadChar` put in front until it is `maxLen` long. A text
    /// that is long enough is returned as it is, never cut. An empty `sPadChar` adds nothing.
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

    // --- Structured texts ---

    /// The values of assignments such as `a=1, b = "x, y", c="""say "hi" ""now"""`, in order, each
    /// under its name; a value without a name gets no key. `s` itself changes: the caller's
    /// variable loses the blanks at both ends.
    ///
    /// A value ends at the next argument delimiter and loses the blanks around it. In quotes, that
    /// is between two text delimiters, it keeps blanks and argument delimiters. Between three and
    /// three it also keeps text delimiters. Anything between the closing quote and the next
    /// argument delimiter is ignored. The list ends where no further command delimiter follows. It
    /// also ends at a quote that is never closed, and that assignment is dropped.
    ///
    /// Delimiters are single characters, compared by code unit. A longer one is found only as a
    /// whole, but the reading goes on one character behind its start. An empty one is never found.
    /// White space behind the command delimiter is skipped. Linear.
    ///
    /// Error 457 when a name occurs twice, letter case aside; 6 when the trimmed text is longer
    /// than 32,767 characters.
    CollectionRef ParseString(String& s,
                              const Optional<Unchanged<String>, Text(u"=")>& cmdDelimiter = {},
                              const Optional<Unchanged<String>, Text(u"\"")>& txtDelimiter = {},
                              const Optional<Unchanged<String>, Text(u",")>& argDelimiter = {});

    /// The names of the fields such as `@#Name#@`, in order, without keys, repeated as often as
    /// they occur. Header and trailer match without regard to letter case. Fields do not nest;
    /// empty ones are left out; an empty header or trailer is never found. The search skips as many
    /// characters as the trailer has, so a field at the very start of the text is not found.
    /// Linear.
    CollectionRef ReadAllVarFields(Unchanged<String> sText,
                                   const Optional<String, Text(u"@#")>& sVarFieldHeader = {},
                                   const Optional<String, Text(u"#@")>& sVarFieldTrailer = {});

    /// `cmd` receives the part of `Param` before its first "=", `arg` the part behind it. Without
    /// "=" `cmd` receives all of it and `arg` stays as it is. Error 6 when `Param` is longer than
    /// 32,767 characters.
    void SplitDOSCMDParam(const String& Param, Out<String> cmd, Out<String> arg);

    /// `s` without the digits at its end, converted to upper or lower case if `eConvert` says so.
    /// Error 6 when `s` is longer than 32,767 characters.
    String getFieldNameWithoutLineNumber(const String& s, eConvertToUpperOrLower eConvert);
    /// The digits at the end of `s`, leading zeros included. Error 6 as above.
    String getFieldNameLineNumber(const String& s);

    // --- Application versions: major.minor.revision.build ---

    /// Reads the four components. Missing ones are 0; further ones are ignored. A component is any
    /// number, rounded to the nearest, halves to even, or -1 when it is no number. Returns 0 when
    /// all could be read, otherwise -1. A component beyond 32 bits ends the reading: it and all
    /// behind it are -1, and so is the result. An empty text has one component, which is no number.
    Long SplitAppVersionString(const String& sVersionNr, Out<Long> Major, Out<Long> Minor,
                               Out<Long> Revision, Out<Long> Build);
    /// One component of a version, as SplitAppVersionString reads it.
    Long ExtractMajorVersionFromAppVersionString(const String& sVersion);
    Long ExtractMinorVersionFromAppVersionString(const String& sVersion);
    Long ExtractRevisionFromAppVersionString(const String& sVersion);
    Long ExtractBuildNumberFromAppVersionString(const String& sVersion);
    /// The version as "1.2.0.0". Commas may also separate the components of `sVersion`. With
    /// `b4Digit` False the zeros at the end are left out ("1.2"). A component that is no number is
    /// written as -1.
    String formatAppVersionString(const String& sVersion,
                                  const Optional<Boolean, true>& b4Digit = {});
    /// 0 when the versions are equal, 1 when the first is higher, -1 when the second is. All
    /// components count, however many; missing ones are 0. The value of a component is the number
    /// at its start ("2b" is 2, "x" is 0). Error 6 for a component too large for a Double, and for
    /// a hexadecimal or octal one beyond 32 bits.
    Long CompareAppVersionString(const String& sVersionNr1, const String& sVersionNr2);

    // --- Placeholders ---

    /// `s` with every %NAME% replaced by the value of the environment variable NAME. A variable of
    /// exactly that spelling is preferred to one that differs in letter case. Without such a
    /// variable, and for "%%", the placeholder is removed. A "%" without a partner stays.
    /// Placeholders in a value are replaced too. Error 28 when the placeholders in one value bring
    /// in more than 1,000,000 characters, as they do when a value contains itself.
    String ExpandEnvironmentString(const String& s);
    /// `s` with every [FORMAT] replaced by the current local date and time in that format, such as
    /// [yyyy-mm-dd]; docs/reference.md lists the formats. Names of months and days are in the
    /// system's language. A "[" without a "]" behind it stays. Error 28 as above.
    String ExpandDateString(const String& s);

    /// Whether a full stop follows somewhere behind the first "@", and that "@" is not the first
    /// character. Nothing else is checked: "a@." passes.
    Boolean isValidMailAddress(const String& sMailAddress);

   private:
    Ports& ports_;
};

}  // namespace quorkit
