// Dates as text: 2024-01-31T13:45:00, with milliseconds (13:45:00.250) when there are any.
#pragma once

#include <quorkit/values.h>

#include <optional>
#include <string>
#include <string_view>

namespace quorkit::json {

/// Rounds to milliseconds. Nothing outside the years 100 to 9999, the range of a Date.
std::optional<std::string> toIsoDate(Date date);
/// Accepts a date without a time too. Nothing when the text is no date of the years 100 to 9999.
std::optional<Date> fromIsoDate(std::string_view text);

}  // namespace quorkit::json
