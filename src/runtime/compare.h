// The runtime's comparison of two Variants, which every search and sort of values uses.
#pragma once

#include <quorkit/variant.h>

#include <compare>

namespace quorkit::runtime {

/// The order of `a` and `b`. Numbers, Booleans (-1 and 0) and dates compare by value, texts by code
/// unit. Any number is less than any text, even than one that spells a number. Empty is 0 beside a
/// number and "" beside a text. A NaN equals every number, so that no algorithm loops over one.
/// With Null the result is unordered, which makes every comparison untrue. Error 13 for arrays,
/// error values and missing arguments, 438 for objects, 91 for Nothing, even beside Null.
std::partial_ordering compare(const Variant& a, const Variant& b);

/// Whether `a` equals `b` in the sense of `compare`. In addition, two error values can be compared,
/// and are equal when their codes are.
bool equal(const Variant& a, const Variant& b);

}  // namespace quorkit::runtime
