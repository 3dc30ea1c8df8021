#include <quorkit/GQuorTools.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorTools>() {
    using C = GQuorTools;
    static constexpr MemberInfo rows[] = {
        method<&C::IndexOfElementInCollection>(
            0x60030000, "IndexOfElementInCollection", {"vElement", "c"},
            "The position of the first item of a collection that equals a value, or -1."),
        method<&C::delay>(0x60030001, "delay", {"countSeconds"},
                          "Waits some seconds while the program handles its events."),
        method<&C::isHex>(0x60030002, "isHex", {"sHex"},
                          "Whether a text holds nothing but hexadecimal digits."),
        method<&C::DisplayError>(
            0x60030003, "DisplayError",
            {"sModuleName", "sFunction", "sErrNumber", "sErrMsg", "sAddInfo", "sApp", "iImage"},
            "Shows the user an error, or the last one that a call has raised."),
        method<&C::QuickSortVariantArray>(
            0x60030004, "QuickSortVariantArray",
            {"avarIn", "iLowBound", "iHighBound", "bCaseSensitive", "bSortUp"},
            "Sorts a part of an array in place, up or down, with or without letter case."),
        method<&C::DateAddEx>(0x60030005, "DateAddEx",
                              {"RefDate", "sOptionString", "bInvertOptionString"},
                              "A date moved by the amounts of an option string such as y=1,m=-2."),
        method<&C::OsterSonntag>(0x60030006, "OsterSonntag", {"iYear"}, "Easter Sunday of a year."),
        method<&C::PfingstSonntag>(0x60030007, "PfingstSonntag", {"iYear"},
                                   "Whit Sunday of a year."),
        method<&C::Auffahrt>(0x60030008, "Auffahrt", {"iYear"}, "Ascension Day of a year."),
        method<&C::Fronleichnam>(0x60030009, "Fronleichnam", {"iYear"},
                                 "Corpus Christi of a year."),
        method<&C::WochentagString>(0x6003000A, "WochentagString", {"D", "bFullName", "iLanguage"},
                                    "The short or full name of a date's weekday."),
        method<&C::CountWeekDaysInYear>(0x6003000B, "CountWeekDaysInYear", {"iYear", "iWeekDay"},
                                        "How often a weekday, Monday 1 to Sunday 7, is in a year."),
        method<&C::LastDayInMonth>(0x6003000C, "LastDayInMonth", {"iMonth", "iYear"},
                                   "The last day of a month."),
        method<&C::LastDayInMonth2>(0x6003000D, "LastDayInMonth2", {"D"},
                                    "The last day of the month of a date."),
        method<&C::CheckTextBoxValue>(
            0x6003000E, "CheckTextBoxValue", {"txtBox", "iKind", "iMaxLength", "bEmptyAllowed"},
            "Whether the text in a text box fits a kind of value and is not too long."),
    };
    return rows;
}

}  // namespace quorkit
