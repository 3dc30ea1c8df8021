// Tools that fit nowhere else: searching, sorting, checking texts, waiting, reporting errors, the
// calendar. No state.
#pragma once

#include <quorkit/array.h>
#include <quorkit/collection.h>
#include <quorkit/enumerations.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorTools {
   public:
    explicit GQuorTools(Ports& ports = ports::native()) : ports_(ports) {}

    /// The position, counted from 1, of the first item of `c` that equals `vElement`; -1 when there
    /// is none or `c` is Nothing. Numbers are compared by value (a NaN equals every number), texts
    /// with their letter case, error values by their code. Null equals nothing. Error 13, 438 or 91
    /// when the search meets values that cannot be compared: arrays, objects, or an error value
    /// with another value.
    Long IndexOfElementInCollection(Unchanged<Variant> vElement, Unchanged<CollectionRef> c);

    /// Whether `sHex` consists of hexadecimal digits, in any case; True for the empty text.
    Boolean isHex(Unchanged<String> sHex);

    /// Whether the content of a text box is acceptable. The text box is any object with a property
    /// Text. `iKind` says what the text must be: 0 anything; 1 a whole number of 32 bits; 2 a
    /// number; 3 a date, or a time alone. With `bEmptyAllowed` an empty box is acceptable for every
    /// kind, otherwise for none. Blanks around the text are ignored; blanks alone count as empty.
    /// The text must not be longer than `iMaxLength` characters; 0 and below mean no limit.
    ///
    /// Numbers and dates are read as people type them in the user's language: 1,5 and 1.000,50 in
    /// German, French, Italian and Spanish, 1.5 and 1,000.50 in English and others, and everywhere
    /// 1'000.50, 1 000.50, "1e3" and "(5)", but not "&H1F". This differs from GQuorConvert.myVal,
    /// for which a single mark is the decimal mark in every language.
    ///
    /// Error 5 for another kind, 91 when `txtBox` is Nothing, 438 when it has no property Text, 94
    /// when that is Null. Errors that the object itself raises reach the caller.
    Boolean CheckTextBoxValue(const ObjectRef& txtBox, Long iKind,
                              Optional<Long, 0> iMaxLength = {},
                              Optional<Boolean, true> bEmptyAllowed = {});

    // --- The user ---

    /// Waits `countSeconds` seconds while the program around the library handles its events; the
    /// code that these run may call the library again. With 0 and below it handles the events that
    /// are pending and returns.
    void delay(Long countSeconds);

    /// Shows the user an error in a message titled "Error": its number and its description, then
    /// each other text that is not empty, on a line of its own with its name in front. `iImage` is
    /// the style of the message, see MessageStyle in ports/host.h.
    ///
    /// An empty `sErrNumber` or `sErrMsg` is replaced by that of the last error which a call by
    /// name raised on this thread, through any host. Without such an error the number is 0 and the
    /// description empty. Successful calls, this one included, do not clear that error, so a
    /// handler may write a log entry first. Only errors of quorkit members are known here; pass any
    /// other error as arguments. Direct C++ calls record no errors.
    void DisplayError(const Optional<String>& sModuleName = {},
                      const Optional<String>& sFunction = {},
                      const Optional<String>& sErrNumber = {}, const Optional<String>& sErrMsg = {},
                      const Optional<String>& sAddInfo = {}, const Optional<String>& sApp = {},
                      Optional<Integer, 0> iImage = {});

    // --- Sorting ---

    /// Sorts the elements `iLowBound` ... `iHighBound` of a one-dimensional array in place: numbers
    /// by value and before texts, texts by character. Without `bCaseSensitive` all elements are
    /// compared as texts in capitals; a range that starts with neither Empty nor a text ignores
    /// this option and is compared with case. The sort is not stable: this is a quick sort with its
    /// pivot in the middle, and equal elements end up wherever it puts them. It is fast for texts
    /// with case and for numbers of one type, in any order. For others the time may grow with the
    /// square of their number, for instance when they rise and fall repeatedly.
    ///
    /// The member never returns when an element cannot be compared or a bound is outside the array,
    /// because a failing step is retried until it succeeds. Null, arrays, error values and objects
    /// cannot be compared; without letter case also an infinite number or a date out of range,
    /// which have no text.
    void QuickSortVariantArray(Array<Variant>& avarIn, Long iLowBound, Long iHighBound,
                               Optional<Boolean, true> bCaseSensitive = {},
                               Optional<Boolean, true> bSortUp = {});

    // --- Calendar ---
    //
    // The years 0 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999. Error 5 when a result or an
    // intermediate date is outside the years 100 to 9999. Dates are rounded to the nearest second.

    /// `RefDate` moved by the amounts of an option string such as "y=1, m=-2, d=10": years (y),
    /// months (m), days (d), hours (h), minutes (n) and seconds (s), in any letter case. They are
    /// always applied in this order; `bInvertOptionString` reverses their signs. The 31st becomes
    /// the last day of a shorter month. A fraction is rounded to the nearest whole number, halves
    /// to even. GQuorStrings.ParseString tells how the text is read. Never an error: an amount that
    /// is no number, or that leads out of the years 100 to 9999, is not applied; if the text cannot
    /// be read, none is.
    Date DateAddEx(Unchanged<Date> RefDate, Unchanged<String> sOptionString,
                   Optional<Boolean, false> bInvertOptionString = {});

    /// Easter Sunday by Gauss's rule with its constants for 1700 to 2199. For other years the
    /// constants are 0, so the result is wrong. A result of 26 March is changed to 19 April, as in
    /// 1989.
    Date OsterSonntag(Integer iYear);
    /// 49 days after OsterSonntag: Whit Sunday.
    Date PfingstSonntag(Integer iYear);
    /// 39 days after OsterSonntag: Ascension Day.
    Date Auffahrt(Integer iYear);
    /// 60 days after OsterSonntag: Corpus Christi.
    Date Fronleichnam(Integer iYear);

    /// The weekday of `D` in two letters, in German, French, Italian or English; "" for any other
    /// language. The full names are those of the following day: a Sunday is "Montag", and a
    /// Saturday is "".
    String WochentagString(Unchanged<Date> D, Optional<Boolean, false> bFullName = {},
                           Optional<eLanguage, eLanguage_German> iLanguage = {});

    /// 53 when the year has that weekday (Monday 1 ... Sunday 7) 53 times, otherwise 52. One
    /// exception: a leap year that begins on a Saturday gives 52 for Sunday, and 53 for day 0.
    Integer CountWeekDaysInYear(Integer iYear, Integer iWeekDay);

    /// The last day of a month, 28 to 31. Months below 1 and above 12 belong to the years before
    /// and after. Error 5 also for December 9999.
    Integer LastDayInMonth(Integer iMonth, Integer iYear);
    /// The last day of the month of `D`.
    Integer LastDayInMonth2(Date D);

   private:
    Ports& ports_;
};

}  // namespace quorkit
