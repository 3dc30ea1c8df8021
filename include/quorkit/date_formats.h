// What a date format may hold, for help and reference pages.
#pragma once

#include <span>
#include <vector>

namespace quorkit {

/// What stands for a part of the date, and what it writes.
struct DateToken {
    const char* token = "";
    const char* sentence = "";
};

/// A format that may be given by its name alone.
struct DateFormatName {
    const char* name = "";
    const char* format = "";
};

/// All of them, in the order in which a reader expects them.
std::vector<DateToken> dateTokens();
std::span<const DateFormatName> dateFormatNames();

}  // namespace quorkit
