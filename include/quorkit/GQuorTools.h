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

    /// The position, counted from 1, of the first item of `c` that equals `vElement`: numbers by
    /// value (a NaN equals all), texts with their letter case, error values by their code; Null
    /// equals nothing. -1 when there is none, and for Nothing. Error 13, 438 or 91 when it meets
    /// what cannot be compared: arrays, objects, an error value and another value.
    Long IndexOfElementInCollection(Unchanged<Variant> vElement, Unchanged<CollectionRef> c);

    /// Whether `sHex` holds nothing but hexadecimal digits, in any case; so does the empty text.
    Boolean isHex(Unchanged<String> sHex);

    /// Whether what is typed into a text box can be used: any object with a property Text. `iKind`
    /// is what the text must be: 0 anything; 1 a whole number of 32 bits; 2 a number; 3 a date.
    /// Numbers and dates are read as people of the user's language type them. Numbers: 1,5 and
    /// 1.000,50 in German, French, Italian and Spanish, 1.5 and 1,000.50 in English and others,
    /// everywhere 1'000.50 and 1 000.50, also "1e3" or "(5)", but no "&H1F". GQuorConvert.myVal
    /// reads them without regard to the language: a single mark is always its decimal mark. A date
    /// may be a time alone. Blanks around do no harm, and blanks alone are empty. The text has no
    /// more than `iMaxLength` characters (0 and below: any number of them). With `bEmptyAllowed` an
    /// empty box will do for every kind, otherwise for none. Error 5 for another kind, 91 for
    /// Nothing, 438 for an object without Text, 94 where that is Null; its own errors reach the
    /// caller.
    Boolean CheckTextBoxValue(const ObjectRef& txtBox, Long iKind,
                              Optional<Long, 0> iMaxLength = {},
                              Optional<Boolean, true> bEmptyAllowed = {});

    // --- The user ---

    /// Waits so many seconds while the program around the library handles its events, so that what
    /// these run may call the library again. 0 and below: it handles what has come, and goes on.
    void delay(Long countSeconds);

    /// Shows the user an error, in a message titled "Error": its number and description, and of the
    /// other texts those that are not empty, each with its name in front and in a line of its own.
    /// `iImage` is the message's style, see MessageStyle in ports/host.h.
    ///
    /// Where `sErrNumber` or `sErrMsg` is empty, it is that of the error that the client's last
    /// failed call by name has raised on this thread, through whatever host; number 0 and no
    /// description when there was none. Calls that succeed leave that error as it is, so that a
    /// handler may write a log entry first; so does this one. Errors that are no quorkit member's
    /// are not known here: give them. In C++, calls that are not by name set nothing.
    void DisplayError(const Optional<String>& sModuleName = {},
                      const Optional<String>& sFunction = {},
                      const Optional<String>& sErrNumber = {}, const Optional<String>& sErrMsg = {},
                      const Optional<String>& sAddInfo = {}, const Optional<String>& sApp = {},
                      Optional<Integer, 0> iImage = {});

    // --- Sorting ---

    /// Sorts the elements `iLowBound` ... `iHighBound` of a one-dimensional array in place: numbers
    /// by value and before texts, texts by character. Without `bCaseSensitive` all are compared as
    /// texts in capitals; it is forced in a range that starts with neither Empty nor a text. Not
    /// stable: equal elements go where this quick sort, with its pivot in the middle, puts them.
    /// Fast for texts with case and for numbers of one type in any sequence; others may take time
    /// in the square of their count, as when they rise and fall again.
    ///
    /// Never returns when an element cannot be compared (Null, arrays, error values, objects;
    /// without letter case also an infinite number or a date out of range, which have no text) or
    /// a bound is outside the array: a failing step is retried until it succeeds.
    void QuickSortVariantArray(Array<Variant>& avarIn, Long iLowBound, Long iHighBound,
                               Optional<Boolean, true> bCaseSensitive = {},
                               Optional<Boolean, true> bSortUp = {});

    // --- Calendar ---
    //
    // The years 0 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999. Error 5 when a date on the
    // way is not in the years 100 to 9999. Dates are taken to the nearest second.

    /// `RefDate` moved by the amounts of an option string such as "y=1, m=-2, d=10": years (y),
    /// months (m), days (d), hours (h), minutes (n) and seconds (s), always applied in this
    /// sequence, letter case aside, and backwards with `bInvertOptionString`. The 31st becomes the
    /// last day of a shorter month; a fraction is rounded to the nearest whole, halves to even.
    /// GQuorStrings.ParseString tells how the text is read. Never an error: a unit whose amount is
    /// no number or leads out of the years 100 to 9999 is not applied, and none is when the text
    /// cannot be read.
    Date DateAddEx(Unchanged<Date> RefDate, Unchanged<String> sOptionString,
                   Optional<Boolean, false> bInvertOptionString = {});

    /// Easter Sunday by Gauss's rule with its constants for 1700 to 2199; for other years they are
    /// 0, and so the day is not Easter's. 26 March comes out as 19 April, as in 1989.
    Date OsterSonntag(Integer iYear);
    /// 49 days after OsterSonntag: Whit Sunday.
    Date PfingstSonntag(Integer iYear);
    /// 39 days after OsterSonntag: Ascension Day.
    Date Auffahrt(Integer iYear);
    /// 60 days after OsterSonntag: Corpus Christi.
    Date Fronleichnam(Integer iYear);

    /// The weekday of `D` in two letters, in German, French, Italian or English; "" for any other
    /// language. The full names are one day late: a Sunday is "Montag", and a Saturday is "".
    String WochentagString(Unchanged<Date> D, Optional<Boolean, false> bFullName = {},
                           Optional<eLanguage, eLanguage_German> iLanguage = {});

    /// 53 when the year has the weekday (Monday 1 ... Sunday 7) that often, otherwise 52. Also 52
    /// for the 53 Sundays of a leap year that begins on a Saturday, where 53 stands for day 0.
    Integer CountWeekDaysInYear(Integer iYear, Integer iWeekDay);

    /// The last day of a month, 28 to 31. Months below 1 and above 12 are those of other years.
    /// Error 5 for December 9999 too.
    Integer LastDayInMonth(Integer iMonth, Integer iYear);
    /// The last day of the month of `D`.
    Integer LastDayInMonth2(Date D);

   private:
    Ports& ports_;
};

}  // namespace quorkit
