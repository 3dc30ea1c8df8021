// The runtime's calendar: the parts of a Date, and dates calculated from others. It is Gregorian
// throughout and goes from 1 January 100 to 31 December 9999.
//
// All functions work in whole seconds: a Date is rounded to the nearest one (but never past the
// last second of 9999), and results have no fraction of a second. Error 5 for a Date out of range.
#pragma once

#include <quorkit/ports/system.h>
#include <quorkit/values.h>

namespace quorkit::runtime {

/// Whether a Date may hold this number of days.
bool isDateInRange(Double days);

/// The date and the time, without milliseconds.
SystemTime partsOf(Date date);
/// The Date of `parts`, which must be an existing day and time. Milliseconds are dropped, as in the
/// runtime's own Now.
Date dateOf(const SystemTime& parts);

/// Whether the day exists: a year from 100 to 9999, and a day that its month has.
bool isDay(int year, int month, int day);

/// A year of one or two digits in full: 0 to 29 become 2000 to 2029, 30 to 99 become 1930 to 1999.
/// Any other year stays.
int fullYear(int year);

/// The day `day` of the month `month` in the year `fullYear(year)`. Months below 1 and above 12
/// carry over into other years, then days into other months. Error 5 when the result is out of
/// range.
Date DateSerial(Long year, Long month, Long day);

/// The day of the week, 1 to 7, counted from `firstDay`: 1 is Sunday, 2 Monday, and so on.
int Weekday(Date date, int firstDay = 1);

/// The day of the year, 1 to 366.
int dayOfYear(Date date);

/// The runtime's names of intervals. DayOfYear, Day and Weekday all mean single days.
enum class Interval {
    Year,       ///< "yyyy"
    Quarter,    ///< "q"
    Month,      ///< "m"
    DayOfYear,  ///< "y"
    Day,        ///< "d"
    Weekday,    ///< "w"
    Week,       ///< "ww"
    Hour,       ///< "h"
    Minute,     ///< "n"
    Second,     ///< "s"
};

/// `date` moved by `number` intervals; a fraction is rounded to the nearest whole number, halves to
/// even. Months, quarters and years keep the day of the month, or take the last day of a shorter
/// month. Error 5 when the result is out of range, and when `number` is NaN.
Date DateAdd(Interval interval, Double number, Date date);

}  // namespace quorkit::runtime
