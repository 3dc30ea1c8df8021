// Conversions between texts, lists, languages, number bases, colours and units. No state.
#pragma once

#include <quorkit/array.h>
#include <quorkit/collection.h>
#include <quorkit/enumerations.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorConvert {
   public:
    explicit GQuorConvert(Ports& ports = ports::native()) : ports_(ports) {}

    // --- Token lists ---

    /// Splits `s` at every `delimiter` (by code unit) into `sArray`, counted from 0, and returns
    /// the number of elements. A delimiter at the end gives no empty last element; an empty text
    /// gives one empty element. An empty delimiter never matches: one element. Linear.
    Long StringTokenToStringArray(const String& s, const String& delimiter,
                                  Out<Array<String>> sArray);

    /// Appends the pieces of `s` to `c`, which is made when it is Nothing and `s` is not empty;
    /// with `bTrim` without the blanks at both ends. Empty pieces are kept, an empty `s` adds
    /// nothing. Returns the count of `c` afterwards (0 for Nothing).
    Long StringTokenToStringCollection(const String& s, const String& delimiter, Boolean bTrim,
                                       CollectionRef& c);

    /// The items of `c` as texts with `delimiter` between them. Error 91 for Nothing, 13 for an
    /// item without a text, 94 for Null.
    String CollectionToStringToken(const CollectionRef& c, const String& delimiter);

    // --- Languages ---

    /// The language of a Windows language identifier; eLanguage_Unknown for one that is not known.
    /// Of the Spanish ones only 1034 is.
    eLanguage WindowsLanguageIDToLanguageID(Integer iLanguage);
    /// The Windows language identifier of a language. For eLanguage_System, eLanguage_Unknown and
    /// every other value it is the eLanguage number of the system's own language, not a Windows
    /// identifier.
    Integer LanguageIDToWindowsLanguageID(eLanguage iLanguage);

    // --- Numbers ---

    /// The value of hexadecimal digits, with or without "0x" or "&H" in front; 0 when there are
    /// none. Up to four digits are a 16-bit number ("FFFF" is -1), up to eight a 32-bit one.
    /// Error 6 beyond that.
    Long HexToDec(const String& HexValue);

    /// 1 for True, 0 for False: what other programs and databases store for a Boolean.
    Integer BoolToInt(Boolean bValue);
    /// False for 0, True for every other number.
    Boolean IntToBool(Integer iValue);
    /// A Boolean from anything a person or a file may offer: Booleans and numbers as they are (also
    /// as text), the words true, yes, on, wahr, ja, ein, vrai, oui, vero, sì, verdadero, sí, si, x,
    /// y, j, t, ok in any case with any white space around. Everything else is False, also Empty,
    /// Null, missing, dates, objects and arrays. Never an error.
    Boolean cBoolEx(const Variant& vValue);

    /// The items of a one-dimensional array in order. A key/value table gives its values under
    /// their keys (an empty key is no key; error 457 when a key repeats). Bytes become Integers. An
    /// unallocated array gives an empty collection. Error 13 when `vArray` is no array, or has two
    /// dimensions and is no key/value table.
    CollectionRef ArrayToCollection(const Variant& vArray);
    /// The items of `c` as a Variant array counted from 0, without elements when `c` is empty. Has
    /// any of them a key, it is a key/value table, from which ArrayToCollection makes an equal
    /// collection: keys are texts, and "" stands beside an item without one. Error 91 for Nothing.
    Variant CollectionToArray(const CollectionRef& c);

    /// The number of a colour (red + 256 green + 65536 blue) written as "R,G,B" (also with ";" or
    /// blanks between, and as "RGB(R,G,B)"), where parts above 255 count as 255; in hexadecimal
    /// digits from red to blue as "#RRGGBB", "#RGB" (each digit twice), "0xRRGGBB" or "RRGGBB"; or
    /// as that number itself, decimal or as "&HBBGGRR" (zeros in front left out, also with "&"
    /// behind). Six decimal digits are the number, unless the first is a zero. Error 5 for any
    /// other text, and for numbers beyond 0xFFFFFF.
    Long RGBString_to_RGBColor(const String& sRGB);

    /// `lValue` in the number base `iBase` (2 to 36), capitals, "-" in front when negative; with
    /// zeros in front up to `iMinLength` digits. Error 5 for another base.
    String ConvertDezToAny(Long lValue, Integer iBase, Optional<Integer> iMinLength = {});
    /// The value of `sValue` in the number base `iBase` (2 to 36): digits and letters in any case,
    /// a sign in front, blanks around. In the bases 16, 8 and 2 "0x" or "&H", "&O", "0b" may stand
    /// in front of the digits, and without a sign these may be all 32 bits of a number: "FFFFFFFF"
    /// is -1 ("FFFF" is 65535, also where it is -1 for HexToDec). Error 5 for another base, 13 for
    /// anything that is no digit of the base or for no digit at all, 6 beyond 32 bits.
    Long ConvertAnyToDez(const String& sValue, Integer iBase);

    /// Screen units at 96 dots per inch: 15 twips are one pixel. To pixels rounds to the nearest;
    /// to twips is error 6 beyond 32 bits.
    Long TwipsToPixelsX(Long lTwips);
    Long PixelsToTwipsX(Long lPixels);
    Long TwipsToPixelsY(Long lTwips);
    Long PixelsToTwipsY(Long lPixels);

    /// The first number in a text as people write it: 1'234.50, 1 234,50, 1.234,50, 1,234.50,
    /// "CHF -12.50", "12,5 %" (which is 12.5), 1e3. Apostrophes between digits, and blanks in front
    /// of three digits, are thousands marks. Of "." and "," the last one is the decimal mark when
    /// both occur; one that repeats is a thousands mark; a single one is the decimal mark, but not
    /// the comma of an amount in $, £, USD or GBP that has exactly three digits behind it.
    ///
    /// Negative is a number with a minus in front, also in front of its currency ("-$5", "- CHF
    /// 5"); and where nothing but its currency stands there, one with a minus behind ("5-", "5- €",
    /// but not "5.-") or in parentheses. A currency is a sign like $ with up to three letters, a
    /// code of three capitals, or Fr., SFr., kr.
    ///
    /// A value that is no text is taken as its number, True as -1. 0 when there is no number or it
    /// is too large. Never an error.
    Double myVal(const Variant& vValue);

   private:
    Ports& ports_;
};

}  // namespace quorkit
