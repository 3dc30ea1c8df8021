// Dates as texts and back: "yyyy-mm-dd", and " hh:mm:ss" behind it when there is a time.
#pragma once

#include <quorkit/values.h>

#include <optional>

namespace quorkit::runtime {

/// The years 100 to 9999, which is what a Date can hold.
bool isDateInRange(Double days);

/// Rounded to the second; without the time at midnight. `date` is in range.
String dateText(Date date);

/// The date that the whole text is; the time may follow after a blank or "T", without its seconds
/// too. Nothing when it is no date.
std::optional<Date> dateIn(StringView text);

}  // namespace quorkit::runtime
