#include <quorkit/GQuorConvert.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorConvert>() {
    using C = GQuorConvert;
    static constexpr MemberInfo rows[] = {
        method<&C::StringTokenToStringArray>(
            0x60030000, "StringTokenToStringArray", {"s", "delimiter", "sArray"},
            "Splits a text at a delimiter into an array; the number of elements."),
        method<&C::StringTokenToStringCollection>(
            0x60030001, "StringTokenToStringCollection", {"s", "delimiter", "bTrim", "c"},
            "Appends the pieces of a text between delimiters to a collection; its count."),
        method<&C::CollectionToStringToken>(0x60030002, "CollectionToStringToken",
                                            {"c", "delimiter"},
                                            "The items of a collection with a delimiter between."),
        method<&C::WindowsLanguageIDToLanguageID>(0x60030003, "WindowsLanguageIDToLanguageID",
                                                  {"iLanguage"},
                                                  "The language of a Windows language identifier."),
        method<&C::LanguageIDToWindowsLanguageID>(
            0x60030004, "LanguageIDToWindowsLanguageID", {"iLanguage"},
            "The Windows language identifier of a language; for eLanguage_System the number of the "
            "system's own language."),
        method<&C::HexToDec>(0x60030005, "HexToDec", {"HexValue"},
                             "The value of hexadecimal digits; up to four are a 16-bit number."),
        method<&C::BoolToInt>(0x60030006, "BoolToInt", {"bValue"}, "1 for True, 0 for False."),
        method<&C::IntToBool>(0x60030007, "IntToBool", {"iValue"},
                              "False for 0, True for every other number."),
        method<&C::cBoolEx>(0x60030008, "cBoolEx", {"vValue"},
                            "Whether a value says yes: a number other than 0, or a word for yes in "
                            "one of five languages."),
        method<&C::ArrayToCollection>(0x60030009, "ArrayToCollection", {"vArray"},
                                      "The items of an array, or the values of a key/value table "
                                      "under their keys, as a collection."),
        method<&C::CollectionToArray>(0x6003000A, "CollectionToArray", {"c"},
                                      "The items of a collection as an array counted from 0, as a "
                                      "key/value table when it has keys."),
        method<&C::RGBString_to_RGBColor>(0x6003000B, "RGBString_to_RGBColor", {"sRGB"},
                                          "The number of a colour from R,G,B or #RRGGBB."),
        method<&C::ConvertDezToAny>(0x6003000C, "ConvertDezToAny",
                                    {"lValue", "iBase", "iMinLength"},
                                    "A number in another number base, with zeros in front."),
        method<&C::ConvertAnyToDez>(0x6003000D, "ConvertAnyToDez", {"sValue", "iBase"},
                                    "The value of digits in a number base."),
        method<&C::TwipsToPixelsX>(0x6003000E, "TwipsToPixelsX", {"lTwips"},
                                   "Twips as pixels across, 15 to one."),
        method<&C::PixelsToTwipsX>(0x6003000F, "PixelsToTwipsX", {"lPixels"},
                                   "Pixels across as twips, 15 for each."),
        method<&C::TwipsToPixelsY>(0x60030010, "TwipsToPixelsY", {"lTwips"},
                                   "Twips as pixels down, 15 to one."),
        method<&C::PixelsToTwipsY>(0x60030011, "PixelsToTwipsY", {"lPixels"},
                                   "Pixels down as twips, 15 for each."),
        method<&C::myVal>(0x60030012, "myVal", {"vValue"},
                          "The first number in a text as people write it, 0 when there is none."),
    };
    return rows;
}

}  // namespace quorkit
