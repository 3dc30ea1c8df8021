// Values as plain text, for a person or a shell script.
#pragma once

#include <quorkit/variant.h>

#include <ostream>
#include <string>

namespace quorkit::cli {

/// One value in one piece: texts and numbers as they are, True or False, a date as
/// 2024-01-31T13:45:00, "" for Empty, missing and Nothing, the JSON notation for all else.
std::string plainText(const Variant& value);

/// A value in lines: an array one element a line, a table one row a line with tabs between, a
/// collection or dictionary one item a line behind its key and a tab, a picture its JSON notation,
/// any other object the name of its class. Nothing, Empty and an array without elements print no
/// line.
void printLines(std::ostream& out, const Variant& value);

}  // namespace quorkit::cli
