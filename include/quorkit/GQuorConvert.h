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

    /// Appends the pieces of `s` to `c`. `c` is made when it is Nothing and `s` is not empty.
    /// `bTrim` removes the blanks at both ends of each piece. Empty pieces are kept; an empty `s`
    /// adds nothing. Returns the count of `c` afterwards (0 for Nothing).
    Long StringTokenToStringCollection(const String& s, const String& delimiter, Boolean bTrim,
                                       CollectionRef& c);

    /// The items of `c` as texts with `delimiter` between them. Error 91 when `c` is Nothing, 13
    /// for an item that has no text, 94 for a Null item.
    String CollectionToStringToken(const CollectionRef& c, const String& delimiter);

    // --- Languages ---

    /// The language of a Windows language identifier, or eLanguage_Unknown. Of the Spanish
    /// identifiers only 1034 is known.
    eLanguage WindowsLanguageIDToLanguageID(Integer iLanguage);
    /// The Windows language identifier of a language. For eLanguage_System, eLanguage_Unknown and
    /// any other number the result is the eLanguage number of the system's language, which is not a
    /// Windows identifier.
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
    /// A Boolean from anything that a person or a file may offer. Booleans and numbers keep their
    /// truth value, also when written as text. True are the words true, yes, on, wahr, ja, ein,
    /// vrai, oui, vero, sì, verdadero, sí, si, x, y, j, t and ok, in any letter case and with white
    /// space around. Everything else is False, including Empty, Null, a missing value, dates,
    /// objects and arrays. Never an error.
    Boolean cBoolEx(const Variant& vValue);

    /// The items of a one-dimensional array in order. A key/value table gives its values under
    /// their keys; an empty key means no key, and a key that repeats is error 457. Bytes become
    /// Integers. An unallocated array gives an empty collection. Error 13 when `vArray` is no
    /// array, or has two dimensions and is no key/value table.
    CollectionRef ArrayToCollection(const Variant& vArray);
    /// The items of `c` as a Variant array counted from 0; no elements when `c` is empty. If any
    /// item has a key, the array is a key/value table from which ArrayToCollection makes an equal
    /// collection: keys are texts, and an item without a key has "". Error 91 for Nothing.
    Variant CollectionToArray(const CollectionRef& c);

    /// The number of a colour (red + 256 green + 65536 blue) from one of these forms:
    /// - "R,G,B", also with ";" or blanks between, and as "RGB(R,G,B)"; parts above 255 are 255;
    /// - hexadecimal digits, red first: "#RRGGBB", "#RGB" (each digit twice), "0xRRGGBB", "RRGGBB";
    /// - the number itself, decimal or as "&HBBGGRR" (leading zeros optional, "&" may follow).
    /// Six decimal digits are the number itself, unless the first one is 0. Error 5 for any other
    /// text and for numbers beyond 0xFFFFFF.
    Long RGBString_to_RGBColor(const String& sRGB);

    /// `lValue` in the number base `iBase` (2 to 36), with capital letters and "-" in front of a
    /// negative number. Leading zeros fill it up to `iMinLength` digits. Error 5 for another base.
    String ConvertDezToAny(Long lValue, Integer iBase, Optional<Integer> iMinLength = {});
    /// The value of `sValue` in the number base `iBase` (2 to 36): digits and letters in any case,
    /// with an optional sign in front and blanks around. In the bases 16, 8 and 2 a prefix "0x" or
    /// "&H", "&O" or "0b" may precede the digits. In these bases digits without a sign may fill all
    /// 32 bits: "FFFFFFFF" is -1, while "FFFF" is 65535 (HexToDec gives -1). Error 5 for another
    /// base, 13 for a character that is no digit of the base or when there are no digits, 6 beyond
    /// 32 bits.
    Long ConvertAnyToDez(const String& sValue, Integer iBase);

    /// Screen units at 96 dots per inch: 15 twips are one pixel. The result in pixels is rounded to
    /// the nearest. A result in twips beyond 32 bits is error 6.
    Long TwipsToPixelsX(Long lTwips);
    Long PixelsToTwipsX(Long lPixels);
    Long TwipsToPixelsY(Long lTwips);
    Long PixelsToTwipsY(Long lPixels);

    /// The first number in a text as people write it: 1'234.50, 1 234,50, 1.234,50, 1,234.50, "CHF
    /// -12.50", "12,5 %" (which is 12.5), 1e3. Apostrophes between digits are thousands marks, and
    /// so are blanks in front of three digits. For "." and "," these rules hold: when both occur,
    /// the last one is the decimal mark; one that repeats is a thousands mark; a single one is the
    /// decimal mark. One exception: a single comma with exactly three digits behind it is a
    /// thousands mark in an amount in $, £, USD or GBP.
    ///
    /// A number is negative when a minus stands in front of it, or in front of its currency ("-$5",
    /// "- CHF 5"). If nothing but the number and its currency is there, a minus behind it ("5-",
    /// "5- €", but not "5.-") and parentheses also make it negative. A currency is a sign like $
    /// with up to three letters, a code of three capitals, or Fr., SFr., kr.
    ///
    /// A value that is no text is taken as its number; True is -1. The result is 0 when there is no
    /// number or it is too large. Never an error.
    Double myVal(const Variant& vValue);

   private:
    Ports& ports_;
};

}  // namespace quorkit
