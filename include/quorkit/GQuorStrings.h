// String helpers. No state; every call works on its own copy of its arguments.
//
// White space is every character whose code in the code page 1252 is below 33: the control
// characters and the space, but not the no-break space. A digit is one of "0" to "9", no other.
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

    // --- Structured texts ---

    /// The values of assignments such as `a=1, b = "x, y", c="""say "hi" ""now"""`, in their order,
    /// each under its name; one without a name gets no key. The first step takes the blanks off
    /// both ends of the caller's own `s`.
    ///
    /// A value reaches up to the next argument delimiter and loses the blanks around it. In one
    /// text delimiter it keeps them, and argument delimiters too; in three also text delimiters.
    /// What follows the closing one is ignored up to the next argument delimiter. A text without a
    /// further command delimiter ends the list, and so does an open quote, whose assignment is
    /// dropped. Delimiters are single characters, compared by code unit; a longer one is found as a
    /// whole but passed by one character, an empty one is never found. White space behind the
    /// command delimiter is skipped. Linear.
    ///
    /// Error 457 when a name occurs twice, letter case aside; 6 when the trimmed text is longer
    /// than 32,767 characters.
    CollectionRef ParseString(String& s,
                              const Optional<Unchanged<String>, Text(u"=")>& cmdDelimiter = {},
                              const Optional<Unchanged<String>, Text(u"\"")>& txtDelimiter = {},
                              const Optional<Unchanged<String>, Text(u",")>& argDelimiter = {});

    /// The names of the fields such as `@#Name#@`, in their order, without keys, as often as they
    /// occur. Header and trailer match without regard to letter case; fields do not nest, empty
    /// ones are left out, an empty header or trailer is never found. The search starts behind as
    /// many characters as the trailer has: a field at the very start of the text is not found.
    /// Linear.
    CollectionRef ReadAllVarFields(Unchanged<String> sText,
                                   const Optional<String, Text(u"@#")>& sVarFieldHeader = {},
                                   const Optional<String, Text(u"#@")>& sVarFieldTrailer = {});

    /// `Param` before its first "=" goes to `cmd`, what follows to `arg`. Without "=" all of it
    /// goes to `cmd`, and `arg` stays as it is. Error 6 when it is longer than 32,767 characters.
    void SplitDOSCMDParam(const String& Param, Out<String> cmd, Out<String> arg);

    /// `s` without the digits at its end, in upper or lower case when told so.
    /// Error 6 when it is longer than 32,767 characters.
    String getFieldNameWithoutLineNumber(const String& s, eConvertToUpperOrLower eConvert);
    /// The digits at the end of `s` as they stand there, leading zeros too. Error 6 as above.
    String getFieldNameLineNumber(const String& s);

    // --- Application versions: major.minor.revision.build ---

    /// Reads the four components, 0 for those that are missing; further ones are ignored. Each is
    /// any number, rounded to the nearest, halves to even; -1 when it is none. Returns 0 when all
    /// could be read, otherwise -1. A component beyond 32 bits ends the reading: the result, that
    /// component and those behind it are -1. An empty text has one component, which is no number.
    Long SplitAppVersionString(const String& sVersionNr, Out<Long> Major, Out<Long> Minor,
                               Out<Long> Revision, Out<Long> Build);
    /// One component of a version, as SplitAppVersionString reads it.
    Long ExtractMajorVersionFromAppVersionString(const String& sVersion);
    Long ExtractMinorVersionFromAppVersionString(const String& sVersion);
    Long ExtractRevisionFromAppVersionString(const String& sVersion);
    Long ExtractBuildNumberFromAppVersionString(const String& sVersion);
    /// The version as "1.2.0.0", its components also separated by commas; with `b4Digit` False
    /// without the zeros at its end ("1.2"). A component that is no number is written as -1.
    String formatAppVersionString(const String& sVersion,
                                  const Optional<Boolean, true>& b4Digit = {});
    /// 0 when the versions are equal, 1 when the first is higher, -1 when the second is. Any number
    /// of components counts, missing ones are 0; of each the number at its start counts ("2b" is
    /// 2, "x" is 0). Error 6 for a component too large for a Double, and for a hexadecimal or octal
    /// one beyond 32 bits.
    Long CompareAppVersionString(const String& sVersionNr1, const String& sVersionNr2);

    // --- Placeholders ---

    /// `s` with every %NAME% replaced by the environment variable NAME: by the one that is spelled
    /// so, otherwise by one spelled so but for letter case; by nothing when there is none, as for
    /// "%%". A "%" without a partner stays. Placeholders in a value are replaced too; error 28 when
    /// what they bring in passes 1,000,000 characters for one value, as with one that holds itself.
    String ExpandEnvironmentString(const String& s);
    /// `s` with every [FORMAT] replaced by the current local date and time in that format, such as
    /// [yyyy-mm-dd] (docs/reference.md lists what a format may hold); month and day names are those
    /// of the system's language. A "[" without a "]" behind it stays. Error 28 as above.
    String ExpandDateString(const String& s);

    /// Whether there is an "@" that is not the first character (the first "@" decides) and a full
    /// stop somewhere behind it. Nothing else is checked: "a@." passes.
    Boolean isValidMailAddress(const String& sMailAddress);

   private:
    Ports& ports_;
};

}  // namespace quorkit
