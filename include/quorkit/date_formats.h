// What a date format may hold, for help and reference pages.
#pragma once

#include <span>
#include <vector>

namespace quorkit {

/// A symbol in a date format, and the text it stands for.
struct DateToken {
    const char* token = "";
    const char* sentence = "";
};

/// A complete format that has a name of its own.
struct DateFormatName {
    const char* name = "";
    const char* format = "";
};

/// All symbols, in the order in which a reader expects them.
std::vector<DateToken> dateTokens();
std::span<const DateFormatName> dateFormatNames();

}  // namespace quorkit
