// Values as plain text, for a person or a shell script.
#pragma once

#include <quorkit/variant.h>

#include <ostream>

namespace quorkit::cli {

/// Prints a value in lines: an array one element a line; a table one row a line with tabs between;
/// a collection or dictionary one item a line, behind its key and a tab; a picture in its JSON
/// notation; any other object as the name of its class. Nothing, Empty and an array without
/// elements print no line.
void printLines(std::ostream& out, const Variant& value);

}  // namespace quorkit::cli
