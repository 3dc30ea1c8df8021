// Numbers as people type them.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

#include <optional>

namespace quorkit::tools {

/// The number that the whole text is, with the decimal mark of the language. In German, French,
/// Italian and Spanish that is the comma, and also the full stop where it cannot be a thousands
/// mark; in all other languages it is the full stop. Thousands marks are the other one of the two,
/// apostrophes or blanks, but only one kind within a number. Signs, parentheses and exponents are
/// read as by `numberIn` of runtime/convert.h; "&H" and "&O" are not accepted. Nothing when it is
/// no number or too large.
std::optional<Double> typedNumber(StringView text, eLanguage language);

}  // namespace quorkit::tools
