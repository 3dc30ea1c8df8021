// Numbers as people type them.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

#include <optional>

namespace quorkit::tools {

/// The number that the whole text is, with the decimal mark of the language: in German, French,
/// Italian and Spanish the comma, and the full stop where it can be none between thousands; the
/// full stop in all others. Thousands may be marked, all in one way, by the other one of these two,
/// by apostrophes or by blanks. Signs, parentheses and exponents as `numberIn` of
/// runtime/convert.h has them, "&H" and "&O" not. Nothing when it is no number or too large.
std::optional<Double> typedNumber(StringView text, eLanguage language);

}  // namespace quorkit::tools
